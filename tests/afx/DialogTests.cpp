// Dialogs from templates in memory: modal and modeless, data exchange both ways, validation,
// the dialog manager's keyboard through PreTranslateMessage, reflection, the find dialog.
#include <afxdlgs.h>
#include <afxwin.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <string.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
// The program's message boxes are recorded, never shown.
class CTestApp : public CWinApp
{
public:
    struct CBox
    {
        std::string m_strText;
        UINT m_nType;
    };
    std::vector<CBox> m_boxes;

    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) override
    {
        m_boxes.push_back({lpszPrompt, nType});
        return IDOK;
    }
};
CTestApp theApp;

const WORD CLASS_BUTTON = 0x0080;
const WORD CLASS_EDIT = 0x0081;
const WORD CLASS_STATIC = 0x0082;
const WORD CLASS_LISTBOX = 0x0083;
const WORD CLASS_COMBOBOX = 0x0085;

enum
{
    IDC_NAME = 100,
    IDC_COUNT,
    IDC_COMBO,
    IDC_CHECK,
    IDC_RADIO1,
    IDC_RADIO2,
    IDC_RADIO3,
    IDC_LABEL,
    IDC_VALUE,
    IDC_LIST,
};

// A DLGTEMPLATE with its items, laid out as the dialog manager reads it: words and UTF-16
// strings, every item starting on a DWORD boundary. The dialog uses an 8-point font.
class CDlgTemplate
{
public:
    CDlgTemplate(DWORD dwStyle, short cx, short cy, const char* pszTitle)
    {
        AddDword(dwStyle | DS_SETFONT);
        AddDword(0);
        m_words.push_back(0); // the item count, kept by Add
        AddShorts(0, 0, cx, cy);
        m_words.push_back(0); // no menu
        m_words.push_back(0); // the dialog class
        AddString(pszTitle);
        m_words.push_back(8);
        AddString("MS Shell Dlg");
    }

    CDlgTemplate& Add(WORD wClass, const char* pszText, WORD nID, DWORD dwStyle, short x, short y, short cx, short cy)
    {
        if (m_words.size() % 2 != 0)
            m_words.push_back(0);
        AddDword(dwStyle | WS_CHILD | WS_VISIBLE);
        AddDword(0);
        AddShorts(x, y, cx, cy);
        m_words.push_back(nID);
        m_words.push_back(0xFFFF);
        m_words.push_back(wClass);
        AddString(pszText);
        m_words.push_back(0); // no creation data
        ++m_words[4];
        return *this;
    }

    LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }
    size_t GetSize() const { return m_words.size() * sizeof(WORD); }

private:
    void AddDword(DWORD dw)
    {
        m_words.push_back(LOWORD(dw));
        m_words.push_back(HIWORD(dw));
    }
    void AddShorts(short a, short b, short c, short d)
    {
        for (short s : {a, b, c, d})
            m_words.push_back(static_cast<WORD>(s));
    }
    void AddString(const char* psz)
    {
        for (; *psz != '\0'; ++psz)
            m_words.push_back(static_cast<BYTE>(*psz));
        m_words.push_back(0);
    }

    std::vector<WORD> m_words;
};

// Name and count edits, a combo box, a check box, a radio group with a label inside it, OK
// and Cancel.
CDlgTemplate StandardTemplate(DWORD dwStyle)
{
    CDlgTemplate dlgTemplate(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | dwStyle, 200, 140, "Test");
    dlgTemplate.Add(CLASS_EDIT, "", IDC_NAME, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL | WS_GROUP, 10, 10, 80, 12)
        .Add(CLASS_EDIT, "", IDC_COUNT, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 10, 26, 80, 12)
        .Add(CLASS_COMBOBOX, "", IDC_COMBO, CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP, 10, 42, 80, 60)
        .Add(CLASS_BUTTON, "Check", IDC_CHECK, BS_AUTO3STATE | WS_TABSTOP, 10, 58, 80, 10)
        .Add(CLASS_BUTTON, "One", IDC_RADIO1, BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 100, 10, 60, 10)
        .Add(CLASS_STATIC, "label", IDC_LABEL, 0, 100, 22, 60, 10)
        .Add(CLASS_BUTTON, "Two", IDC_RADIO2, BS_AUTORADIOBUTTON, 100, 34, 60, 10)
        .Add(CLASS_BUTTON, "Three", IDC_RADIO3, BS_AUTORADIOBUTTON, 100, 46, 60, 10)
        .Add(CLASS_BUTTON, "OK", IDOK, BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP, 40, 110, 50, 14)
        .Add(CLASS_BUTTON, "Cancel", IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP, 100, 110, 50, 14);
    return dlgTemplate;
}

const char* HostClass()
{
    static const char* s_name = [] {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = ::DefWindowProcA;
        wc.hInstance = ::GetModuleHandleA(NULL);
        wc.lpszClassName = "KelAfxDialogHost";
        ::RegisterClassA(&wc);
        return "KelAfxDialogHost";
    }();
    return s_name;
}

// The owner of the dialogs; it can end a modal dialog when that dialog goes idle.
class CHostWnd : public CWnd
{
public:
    CDialog* m_pDlgToEndWhenIdle = NULL;
    std::vector<std::string> m_idleNotes;

    // Hidden, as are most dialogs here: under Wine without a window manager every activated
    // window that is shown costs seconds when it goes.
    BOOL CreateHost() { return CreateEx(0, HostClass(), "host", WS_POPUP, 0, 0, 400, 300, NULL, NULL); }

protected:
    afx_msg LRESULT OnEnterIdle(WPARAM wParam, LPARAM lParam)
    {
        HWND hDlg = reinterpret_cast<HWND>(lParam);
        m_idleNotes.push_back(std::string(wParam == MSGF_DIALOGBOX ? "dialog" : "other") +
                              (::IsWindowVisible(hDlg) ? " visible" : " hidden"));
        if (m_pDlgToEndWhenIdle != NULL)
            m_pDlgToEndWhenIdle->EndDialog(77);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_MESSAGE(WM_ENTERIDLE, OnEnterIdle)
END_MESSAGE_MAP()

// A dialog over StandardTemplate. Steps run one after another from the message loop, each
// posted after the previous one and whatever that one posted; a timer ends a dialog that
// hangs with -2.
class CTestDialog : public CDialog
{
public:
    CString m_strName = "Ann";
    int m_nCount = 3;
    CString m_strCombo;
    int m_nComboIndex = -1;
    BOOL m_bComboByIndex = FALSE;
    int m_nCheck = BST_CHECKED;
    int m_nRadio = 1;

    std::function<void(CTestDialog&)> m_onInit;
    std::vector<std::function<void(CTestDialog&)>> m_steps;
    int m_nInitCalls = 0;
    BOOL m_bAttachedAtInit = FALSE;
    int m_nKeysTranslated = 0;

    HWND Item(int nID) const { return ::GetDlgItem(m_hWnd, nID); }
    std::string ItemText(int nID) const
    {
        char sz[64] = "";
        ::GetDlgItemTextA(m_hWnd, nID, sz, sizeof(sz));
        return sz;
    }
    void PostKey(UINT nKey) { ::PostMessageA(::GetFocus(), WM_KEYDOWN, nKey, 1); }

    BOOL OnInitDialog() override
    {
        ++m_nInitCalls;
        m_bAttachedAtInit = CWnd::FromHandlePermanent(m_hWnd) == this;
        BOOL bResult = CDialog::OnInitDialog();
        SetTimer(1, 5000);
        if (m_onInit)
            m_onInit(*this);
        if (!m_steps.empty())
            PostMessage(WM_APP, 0);
        return bResult;
    }
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == WM_KEYDOWN)
            ++m_nKeysTranslated;
        return CDialog::PreTranslateMessage(pMsg);
    }

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Text(pDX, IDC_NAME, m_strName);
        DDV_MaxChars(pDX, m_strName, 8);
        DDX_Text(pDX, IDC_COUNT, m_nCount);
        DDV_MinMaxInt(pDX, m_nCount, 1, 10);
        if (m_bComboByIndex)
            DDX_CBIndex(pDX, IDC_COMBO, m_nComboIndex);
        else
            DDX_CBString(pDX, IDC_COMBO, m_strCombo);
        DDX_Check(pDX, IDC_CHECK, m_nCheck);
        DDX_Radio(pDX, IDC_RADIO1, m_nRadio);
    }
    afx_msg LRESULT OnStep(WPARAM wParam, LPARAM)
    {
        m_steps[wParam](*this);
        if (wParam + 1 < m_steps.size() && m_hWnd != NULL)
            PostMessage(WM_APP, wParam + 1);
        return 0;
    }
    afx_msg void OnTimer(UINT_PTR) { EndDialog(-2); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
ON_MESSAGE(WM_APP, OnStep)
ON_WM_TIMER()
END_MESSAGE_MAP()

class CDialogTest : public ::testing::Test
{
protected:
    CHostWnd m_host;
    CTestDialog m_dlg;
    CDlgTemplate m_template = StandardTemplate(0);

    void SetUp() override
    {
        theApp.m_boxes.clear();
        ASSERT_TRUE(m_host.CreateHost());
        m_dlg.InitModalIndirect(m_template.Get(), &m_host);
    }
    void TearDown() override
    {
        m_dlg.DestroyWindow();
        m_host.DestroyWindow();
    }

    static void PumpPending()
    {
        MSG msg;
        while (::PeekMessageA(&msg, NULL, 0, 0, PM_NOREMOVE))
            AfxPumpMessage();
    }
};

TEST_F(CDialogTest, EndDialogDuringInitReturnsItsResultAndFreesTheOwner)
{
    BOOL bOwnerDisabled = FALSE;
    HWND hOwner = NULL;
    m_dlg.m_onInit = [&](CTestDialog& dlg) {
        bOwnerDisabled = !m_host.IsWindowEnabled();
        hOwner = ::GetWindow(dlg.m_hWnd, GW_OWNER);
        dlg.EndDialog(42);
    };
    EXPECT_EQ(42, m_dlg.DoModal());
    EXPECT_EQ(1, m_dlg.m_nInitCalls);
    EXPECT_TRUE(m_dlg.m_bAttachedAtInit);
    EXPECT_TRUE(bOwnerDisabled);
    EXPECT_EQ(m_host.m_hWnd, hOwner);
    EXPECT_TRUE(m_host.IsWindowEnabled());
    EXPECT_EQ(nullptr, m_dlg.m_hWnd);
}

TEST_F(CDialogTest, OkSavesTheMembersAndEndsWithIdok)
{
    std::vector<std::string> shown;
    m_dlg.m_onInit = [&](CTestDialog& dlg) {
        shown = {dlg.ItemText(IDC_NAME), dlg.ItemText(IDC_COUNT),
                 std::to_string(::IsDlgButtonChecked(dlg.m_hWnd, IDC_CHECK)),
                 std::to_string(::IsDlgButtonChecked(dlg.m_hWnd, IDC_RADIO2))};
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_NAME, "Bob");
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_COUNT, " 7 ");
        ::CheckRadioButton(dlg.m_hWnd, IDC_RADIO1, IDC_RADIO3, IDC_RADIO3);
        ::CheckDlgButton(dlg.m_hWnd, IDC_CHECK, BST_INDETERMINATE);
        dlg.PostMessage(WM_COMMAND, IDOK);
    };
    EXPECT_EQ(IDOK, m_dlg.DoModal());
    // The radio index counts buttons only: the label inside the group is skipped.
    EXPECT_EQ((std::vector<std::string>{"Ann", "3", "1", "1"}), shown);
    EXPECT_STREQ("Bob", m_dlg.m_strName);
    EXPECT_EQ(7, m_dlg.m_nCount);
    EXPECT_EQ(2, m_dlg.m_nRadio);
    EXPECT_EQ(BST_INDETERMINATE, m_dlg.m_nCheck);
    EXPECT_TRUE(theApp.m_boxes.empty());
}

TEST_F(CDialogTest, FailedValidationKeepsTheDialogOpenWithTheFieldSelected)
{
    struct
    {
        const char* pszName;
        const char* pszCount;
        const char* pszMessage;
        int nFocus;
        int nCountAfter; // a value that parses is stored before its range is checked
    } const cases[] = {
        {"Zed", "abc", "Please enter an integer.", IDC_COUNT, 3},
        {"Zed", "11", "Please enter an integer between 1 and 10.", IDC_COUNT, 11},
        {"ninechars", "5", "Please enter no more than 8 characters.", IDC_NAME, 3},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszMessage);
        CTestDialog dlg;
        dlg.InitModalIndirect(m_template.Get(), &m_host);
        theApp.m_boxes.clear();
        bool bFocusOnField = false;
        DWORD dwSel = 0;
        BOOL bStillModal = FALSE;
        dlg.m_onInit = [&](CTestDialog& d) {
            ::SetDlgItemTextA(d.m_hWnd, IDC_NAME, c.pszName);
            ::SetDlgItemTextA(d.m_hWnd, IDC_COUNT, c.pszCount);
        };
        dlg.m_steps = {
            [](CTestDialog& d) { d.PostMessage(WM_COMMAND, IDOK); },
            [&](CTestDialog& d) {
                bFocusOnField = ::GetFocus() == d.Item(c.nFocus);
                dwSel = (DWORD)::SendMessageA(d.Item(c.nFocus), EM_GETSEL, 0, 0);
                bStillModal = d.ContinueModal();
                d.EndDialog(IDCANCEL);
            },
        };
        EXPECT_EQ(IDCANCEL, dlg.DoModal());
        ASSERT_EQ(1u, theApp.m_boxes.size());
        EXPECT_EQ(c.pszMessage, theApp.m_boxes[0].m_strText);
        EXPECT_EQ((UINT)MB_ICONEXCLAMATION, theApp.m_boxes[0].m_nType);
        EXPECT_TRUE(bFocusOnField);
        EXPECT_EQ(MAKELONG(0, strlen(c.nFocus == IDC_NAME ? c.pszName : c.pszCount)), (LONG)dwSel);
        EXPECT_TRUE(bStillModal);
        // Members before the failing one are saved already.
        EXPECT_STREQ(c.pszName, dlg.m_strName);
        EXPECT_EQ(c.nCountAfter, dlg.m_nCount);
    }
}

TEST_F(CDialogTest, KeysReachTheDialogManagerThroughPreTranslateMessage)
{
    struct
    {
        UINT nKey;
        INT_PTR nResult;
    } const cases[] = {{VK_RETURN, IDOK}, {VK_ESCAPE, IDCANCEL}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.nKey);
        CTestDialog dlg;
        dlg.InitModalIndirect(m_template.Get(), &m_host);
        bool bTabMoved = false;
        dlg.m_steps = {
            [](CTestDialog& d) { d.PostKey(VK_TAB); },
            [&](CTestDialog& d) {
                bTabMoved = ::GetFocus() == d.Item(IDC_COUNT);
                d.PostKey(c.nKey);
            },
        };
        EXPECT_EQ(c.nResult, dlg.DoModal());
        EXPECT_TRUE(bTabMoved);
        EXPECT_EQ(2, dlg.m_nKeysTranslated);
    }
}

TEST_F(CDialogTest, AHiddenDialogIsShownWhenIdleAndTheOwnerIsTold)
{
    CTestDialog dlg;
    dlg.InitModalIndirect(m_template.Get(), &m_host);
    m_host.m_pDlgToEndWhenIdle = &dlg;
    EXPECT_EQ(77, dlg.DoModal());
    EXPECT_EQ(std::vector<std::string>{"dialog visible"}, m_host.m_idleNotes);
}

TEST_F(CDialogTest, TemplatesFromGlobalMemoryAndMissingResources)
{
    HGLOBAL hTemplate = ::GlobalAlloc(GMEM_MOVEABLE, m_template.GetSize());
    memcpy(::GlobalLock(hTemplate), m_template.Get(), m_template.GetSize());
    ::GlobalUnlock(hTemplate);
    CTestDialog dlg;
    dlg.InitModalIndirect(hTemplate, &m_host);
    dlg.m_onInit = [](CTestDialog& d) { d.EndDialog(5); };
    EXPECT_EQ(5, dlg.DoModal());

    CTestDialog modeless;
    ASSERT_TRUE(modeless.CreateIndirect(hTemplate, &m_host));
    EXPECT_EQ(1, modeless.m_nInitCalls);
    modeless.DestroyWindow();
    ::GlobalFree(hTemplate);

    CDialog missing(9999, &m_host);
    EXPECT_EQ(-1, missing.DoModal());
    EXPECT_TRUE(m_host.IsWindowEnabled());
}

TEST_F(CDialogTest, ModalOwnerIsTheTopLevelWindowAboveAChildParent)
{
    CWnd child;
    ASSERT_TRUE(child.Create(HostClass(), "child", WS_VISIBLE, CRect(0, 0, 50, 50), &m_host, 1));
    CTestDialog dlg;
    dlg.InitModalIndirect(m_template.Get(), &child);
    HWND hOwner = NULL;
    dlg.m_onInit = [&](CTestDialog& d) {
        hOwner = ::GetWindow(d.m_hWnd, GW_OWNER);
        d.EndDialog(IDOK);
    };
    EXPECT_EQ(IDOK, dlg.DoModal());
    EXPECT_EQ(m_host.m_hWnd, hOwner);
}

TEST_F(CDialogTest, ModelessDialogRunsInitAndKeepsItsWindow)
{
    CTestDialog dlg;
    ASSERT_TRUE(dlg.CreateIndirect(m_template.Get(), &m_host));
    EXPECT_EQ(1, dlg.m_nInitCalls);
    EXPECT_TRUE(dlg.m_bAttachedAtInit);
    EXPECT_TRUE(m_host.IsWindowEnabled());
    EXPECT_EQ(m_host.m_hWnd, ::GetWindow(dlg.m_hWnd, GW_OWNER));
    EXPECT_EQ("Ann", dlg.ItemText(IDC_NAME));

    // The dialog manager's keys work for a modeless dialog too, through the message pump.
    dlg.GotoDlgCtrl(CWnd::FromHandle(dlg.Item(IDC_NAME)));
    dlg.PostKey(VK_TAB);
    PumpPending();
    EXPECT_EQ(dlg.Item(IDC_COUNT), ::GetFocus());
    dlg.PrevDlgCtrl();
    EXPECT_EQ(dlg.Item(IDC_NAME), ::GetFocus());
    dlg.NextDlgCtrl();
    EXPECT_EQ(dlg.Item(IDC_COUNT), ::GetFocus());

    dlg.SetDefID(IDCANCEL);
    EXPECT_EQ((DWORD)MAKELONG(IDCANCEL, DC_HASDEFID), dlg.GetDefID());
    CRect rect(0, 0, 4, 8);
    dlg.MapDialogRect(&rect);
    EXPECT_GT(rect.Width(), 0);
    EXPECT_GT(rect.Height(), rect.Width());

    dlg.DestroyWindow();
    EXPECT_EQ(nullptr, dlg.m_hWnd);
}

TEST_F(CDialogTest, ModelessDialogEndedDuringInitIsNotKept)
{
    CTestDialog dlg;
    dlg.m_onInit = [](CTestDialog& d) { d.EndDialog(IDCANCEL); };
    EXPECT_FALSE(dlg.CreateIndirect(m_template.Get(), &m_host));
    EXPECT_EQ(nullptr, dlg.m_hWnd);
}

TEST_F(CDialogTest, InitialisationDataFillsTheComboBeforeTheMembersAreLoaded)
{
    const char records[] = "\x66\x00\x03\x04\x05\x00\x00\x00pear\0"
                           "\x66\x00\x03\x04\x05\x00\x00\x00plum\0"
                           "\x00\x00";
    static_assert(IDC_COMBO == 0x66, "the records address the combo box");
    CTestDialog dlg;
    dlg.InitModalIndirect(m_template.Get(), &m_host, const_cast<char*>(records));
    dlg.m_strCombo = "pl";
    int nCount = 0, nSel = -1;
    dlg.m_onInit = [&](CTestDialog& d) {
        nCount = (int)::SendMessageA(d.Item(IDC_COMBO), CB_GETCOUNT, 0, 0);
        nSel = (int)::SendMessageA(d.Item(IDC_COMBO), CB_GETCURSEL, 0, 0);
        d.EndDialog(IDOK);
    };
    EXPECT_EQ(IDOK, dlg.DoModal());
    EXPECT_EQ(2, nCount);
    EXPECT_EQ(1, nSel);
}

TEST_F(CDialogTest, ButtonsAndComboExchangeBothWays)
{
    CTestDialog dlg;
    dlg.m_nCheck = 5; // no check state
    dlg.m_nRadio = 2;
    dlg.m_strCombo = "ban";
    ASSERT_TRUE(dlg.CreateIndirect(m_template.Get(), &m_host));
    HWND hCombo = dlg.Item(IDC_COMBO);
    // Kept from MFC: loading an impossible check state unchecks the box and resets the member.
    EXPECT_EQ(BST_UNCHECKED, dlg.m_nCheck);
    EXPECT_EQ((UINT)BST_UNCHECKED, ::IsDlgButtonChecked(dlg.m_hWnd, IDC_CHECK));
    EXPECT_EQ((UINT)BST_CHECKED, ::IsDlgButtonChecked(dlg.m_hWnd, IDC_RADIO3));
    EXPECT_EQ("ban", dlg.ItemText(IDC_COMBO)); // no items yet: the text goes to the edit field

    ::SendMessageA(hCombo, CB_ADDSTRING, 0, (LPARAM) "apple");
    ::SendMessageA(hCombo, CB_ADDSTRING, 0, (LPARAM) "banana");
    dlg.m_nRadio = -1;
    ASSERT_TRUE(dlg.UpdateData(FALSE));
    EXPECT_EQ(1, (int)::SendMessageA(hCombo, CB_GETCURSEL, 0, 0)); // the first item that begins with it
    EXPECT_EQ("banana", dlg.ItemText(IDC_COMBO));
    for (int nID : {IDC_RADIO1, IDC_RADIO2, IDC_RADIO3})
        EXPECT_EQ((UINT)BST_UNCHECKED, ::IsDlgButtonChecked(dlg.m_hWnd, nID));

    ::SetDlgItemTextA(dlg.m_hWnd, IDC_COMBO, "cherry");
    ASSERT_TRUE(dlg.UpdateData(TRUE));
    EXPECT_STREQ("cherry", dlg.m_strCombo);
    EXPECT_EQ(-1, dlg.m_nRadio);
    ::CheckDlgButton(dlg.m_hWnd, IDC_RADIO1, BST_CHECKED);
    ASSERT_TRUE(dlg.UpdateData(TRUE));
    EXPECT_EQ(0, dlg.m_nRadio);

    dlg.m_bComboByIndex = TRUE;
    dlg.m_nComboIndex = 0;
    ASSERT_TRUE(dlg.UpdateData(FALSE));
    EXPECT_EQ("apple", dlg.ItemText(IDC_COMBO));
    ::SendMessageA(hCombo, CB_SETCURSEL, 1, 0);
    ASSERT_TRUE(dlg.UpdateData(TRUE));
    EXPECT_EQ(1, dlg.m_nComboIndex);
}

TEST_F(CDialogTest, LoadingValidatesNothingButLimitsTheText)
{
    CTestDialog dlg;
    dlg.m_nCount = 50; // outside 1..10: left for the user to correct
    ASSERT_TRUE(dlg.CreateIndirect(m_template.Get(), &m_host));
    EXPECT_EQ("50", dlg.ItemText(IDC_COUNT));
    EXPECT_TRUE(theApp.m_boxes.empty());
    EXPECT_EQ(8, (int)::SendMessageA(dlg.Item(IDC_NAME), EM_GETLIMITTEXT, 0, 0));
}

// One edit and one member of each kind; m_strKind chooses the exchange.
class CTypedDialog : public CDialog
{
public:
    std::string m_strKind;
    CString m_string;
    struct
    {
        char szText[6];
        char chGuard;
    } m_buffer = {"", '!'};
    BYTE m_byte = 9;
    short m_short = 9;
    int m_int = 9;
    UINT m_uint = 9;
    long m_long = 9;
    DWORD m_dword = 9;
    float m_float = 9;
    double m_double = 9;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        if (m_strKind == "CString")
            DDX_Text(pDX, IDC_VALUE, m_string);
        else if (m_strKind == "buffer")
            DDX_Text(pDX, IDC_VALUE, m_buffer.szText, sizeof(m_buffer.szText));
        else if (m_strKind == "BYTE")
            DDX_Text(pDX, IDC_VALUE, m_byte);
        else if (m_strKind == "short")
            DDX_Text(pDX, IDC_VALUE, m_short);
        else if (m_strKind == "int")
            DDX_Text(pDX, IDC_VALUE, m_int);
        else if (m_strKind == "UINT")
            DDX_Text(pDX, IDC_VALUE, m_uint);
        else if (m_strKind == "long")
            DDX_Text(pDX, IDC_VALUE, m_long);
        else if (m_strKind == "DWORD")
            DDX_Text(pDX, IDC_VALUE, m_dword);
        else if (m_strKind == "float")
            DDX_Text(pDX, IDC_VALUE, m_float);
        else if (m_strKind == "double")
            DDX_Text(pDX, IDC_VALUE, m_double);
        else if (m_strKind == "drop list")
            DDX_CBString(pDX, IDC_LIST, m_string);
        else if (m_strKind == "missing control")
            DDX_Text(pDX, 999, m_int);
        else if (m_strKind == "double range")
        {
            DDX_Text(pDX, IDC_VALUE, m_double);
            DDV_MinMaxDouble(pDX, m_double, 0.5, 2.25);
        }
        else if (m_strKind == "UINT range")
        {
            DDX_Text(pDX, IDC_VALUE, m_uint);
            DDV_MinMaxUInt(pDX, m_uint, 10, 4000000000u);
        }
    }
};

class CDataExchangeTest : public CDialogTest
{
protected:
    CDlgTemplate m_typedTemplate = CDlgTemplate(WS_POPUP | WS_CAPTION, 120, 40, "Typed")
                                       .Add(CLASS_EDIT, "", IDC_VALUE, WS_BORDER | WS_TABSTOP, 5, 5, 100, 12);
    CTypedDialog m_typed;

    void SetUp() override
    {
        CDialogTest::SetUp();
        ASSERT_TRUE(m_typed.CreateIndirect(m_typedTemplate.Get(), &m_host));
    }
    void TearDown() override
    {
        m_typed.DestroyWindow();
        CDialogTest::TearDown();
    }
    std::string Shown() const
    {
        char sz[64] = "";
        ::GetDlgItemTextA(m_typed.m_hWnd, IDC_VALUE, sz, sizeof(sz));
        return sz;
    }
};

TEST_F(CDataExchangeTest, TextParsesEachTypeAndPrintsItBack)
{
    const char* const pszInt = "Please enter an integer.";
    const char* const pszUInt = "Please enter a positive integer.";
    const char* const pszReal = "Please enter a number.";
    struct
    {
        const char* pszKind;
        const char* pszText;
        const char* pszShown; // after saving and loading again; NULL: refused
        const char* pszMessage;
    } const cases[] = {
        {"CString", " any text ", " any text ", ""},
        {"buffer", "abcdefgh", "abcde", ""}, // cut to the buffer, terminator included
        {"BYTE", "255", "255", ""},
        {"BYTE", "256", NULL, "Please enter an integer between 0 and 255."},
        {"BYTE", "-1", NULL, "Please enter an integer between 0 and 255."},
        {"short", "-32768", "-32768", ""},
        {"short", "32768", NULL, pszInt},
        {"int", " \t-2147483648 ", "-2147483648", ""},
        {"int", "+17", "17", ""},
        {"int", "2147483648", NULL, pszInt},
        {"int", "", NULL, pszInt},
        {"int", "12a", NULL, pszInt},
        {"int", "1 2", NULL, pszInt},
        {"int", "99999999999999999999999", NULL, pszInt},
        {"int", "-", NULL, pszInt},
        {"UINT", "4294967295", "4294967295", ""},
        {"UINT", "-0", NULL, pszUInt},
        {"UINT", "4294967296", NULL, pszUInt},
        {"long", "-7", "-7", ""},
        {"long", "0x10", NULL, pszInt},
        {"DWORD", "4000000000", "4000000000", ""},
        {"DWORD", "-1", NULL, pszUInt},
        {"double", "1.5e3", "1500", ""},
        {"double", ".5", "0.5", ""},
        {"double", "-2.", "-2", ""},
        {"double", "0.1", "0.1", ""},
        {"double", "123456789.123456789", "123456789.123457", ""},
        {"double", "1e999", NULL, pszReal},
        {"double", "inf", NULL, pszReal},
        {"double", "1e", NULL, pszReal},
        {"double", ".", NULL, pszReal},
        {"double", "", NULL, pszReal},
        {"float", "3.14159265", "3.14159", ""},
        {"float", "1e39", NULL, pszReal},
        {"double range", "2.25", "2.25", ""},
        {"double range", "2.5", NULL, "Please enter a number between 0.5 and 2.25."},
        {"UINT range", "4000000001", NULL, "Please enter an integer between 10 and 4000000000."},
        {"missing control", "1", NULL, "Invalid argument."},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string(c.pszKind) + " '" + c.pszText + "'");
        m_typed.m_strKind = c.pszKind;
        theApp.m_boxes.clear();
        m_typed.SetDlgItemText(IDC_VALUE, c.pszText);
        BOOL bSaved = m_typed.UpdateData(TRUE);
        EXPECT_EQ(c.pszShown != NULL, bSaved);
        if (c.pszShown != NULL)
        {
            EXPECT_TRUE(theApp.m_boxes.empty());
            m_typed.SetDlgItemText(IDC_VALUE, "");
            EXPECT_TRUE(m_typed.UpdateData(FALSE));
            EXPECT_EQ(c.pszShown, Shown());
        }
        else
        {
            ASSERT_EQ(1u, theApp.m_boxes.size());
            EXPECT_EQ(c.pszMessage, theApp.m_boxes[0].m_strText);
            EXPECT_EQ((UINT)MB_ICONEXCLAMATION, theApp.m_boxes[0].m_nType);
            EXPECT_EQ(c.pszText, Shown()); // the text stays for the user to correct
        }
    }
    EXPECT_EQ('!', m_typed.m_buffer.chGuard);
}

TEST_F(CDataExchangeTest, RefusedTextLeavesTheMemberAndSelectsTheField)
{
    m_typed.m_strKind = "int";
    m_typed.m_int = 4;
    m_typed.SetDlgItemText(IDC_VALUE, "four");
    ::SetFocus(NULL);
    EXPECT_FALSE(m_typed.UpdateData(TRUE));
    EXPECT_EQ(4, m_typed.m_int);
    EXPECT_EQ(::GetDlgItem(m_typed.m_hWnd, IDC_VALUE), ::GetFocus());
    EXPECT_EQ(MAKELONG(0, 4), (LONG)::SendDlgItemMessageA(m_typed.m_hWnd, IDC_VALUE, EM_GETSEL, 0, 0));
}

TEST_F(CDataExchangeTest, LoadingTheTextAlreadyShownLeavesTheControlAlone)
{
    // Setting a control's text clears its modified flag: the flag tells whether it was set.
    HWND hEdit = ::GetDlgItem(m_typed.m_hWnd, IDC_VALUE);
    m_typed.m_strKind = "double";
    m_typed.m_double = 2.5;
    ASSERT_TRUE(m_typed.UpdateData(FALSE));
    ::SendMessageA(hEdit, EM_SETMODIFY, TRUE, 0);
    ASSERT_TRUE(m_typed.UpdateData(FALSE));
    EXPECT_TRUE(::SendMessageA(hEdit, EM_GETMODIFY, 0, 0));
    m_typed.m_double = 3;
    ASSERT_TRUE(m_typed.UpdateData(FALSE));
    EXPECT_FALSE(::SendMessageA(hEdit, EM_GETMODIFY, 0, 0));
    EXPECT_EQ("3", Shown());
}

TEST_F(CDataExchangeTest, DropDownListGivesAtMost255Characters)
{
    CComboBox list;
    ASSERT_TRUE(list.Create(CBS_DROPDOWNLIST | WS_VSCROLL, CRect(0, 0, 100, 100), &m_typed, IDC_LIST));
    list.AddString(std::string(300, 'x').c_str());
    list.SetCurSel(0);
    m_typed.m_strKind = "drop list";
    ASSERT_TRUE(m_typed.UpdateData(TRUE));
    EXPECT_EQ(255, m_typed.m_string.GetLength());
}

// Reflection: the edit handles its own EN_CHANGE before the dialog sees it. ON_CONTROL_REFLECT
// keeps it from the dialog; ON_CONTROL_REFLECT_EX passes it on when its handler says FALSE.
class CReflectingEdit : public CEdit
{
public:
    std::vector<std::string>* m_pEvents = NULL;

protected:
    afx_msg void OnReflectedChange() { m_pEvents->push_back("edit"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingEdit, CEdit)
ON_CONTROL_REFLECT(EN_CHANGE, OnReflectedChange)
END_MESSAGE_MAP()

class CPassingEdit : public CEdit
{
public:
    std::vector<std::string>* m_pEvents = NULL;

protected:
    afx_msg BOOL OnReflectedChange()
    {
        m_pEvents->push_back("edit");
        return FALSE;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPassingEdit, CEdit)
ON_CONTROL_REFLECT_EX(EN_CHANGE, OnReflectedChange)
END_MESSAGE_MAP()

class CReflectDialog : public CTestDialog
{
public:
    CReflectingEdit m_nameEdit;
    CPassingEdit m_countEdit;
    CEdit* m_pSecondOwner = NULL;
    std::vector<std::string> m_events;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Control(pDX, IDC_NAME, m_nameEdit);
        DDX_Control(pDX, IDC_COUNT, m_countEdit);
        if (m_pSecondOwner != NULL)
            DDX_Control(pDX, IDC_NAME, *m_pSecondOwner);
    }
    afx_msg void OnNameChange() { m_events.push_back("dialog name"); }
    afx_msg void OnCountChange() { m_events.push_back("dialog count"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectDialog, CTestDialog)
ON_EN_CHANGE(IDC_NAME, OnNameChange)
ON_EN_CHANGE(IDC_COUNT, OnCountChange)
END_MESSAGE_MAP()

TEST_F(CDialogTest, ReflectedNotificationReachesTheControlFirst)
{
    CReflectDialog dlg;
    dlg.m_nameEdit.m_pEvents = &dlg.m_events;
    dlg.m_countEdit.m_pEvents = &dlg.m_events;
    ASSERT_TRUE(dlg.CreateIndirect(m_template.Get(), &m_host));
    EXPECT_EQ(&dlg.m_nameEdit, CWnd::FromHandlePermanent(dlg.Item(IDC_NAME)));

    ::SendMessageA(dlg.Item(IDC_NAME), WM_CHAR, 'x', 1);
    EXPECT_EQ(std::vector<std::string>{"edit"}, dlg.m_events);
    dlg.m_events.clear();
    ::SendMessageA(dlg.Item(IDC_COUNT), WM_CHAR, 'x', 1);
    EXPECT_EQ((std::vector<std::string>{"edit", "dialog count"}), dlg.m_events);

    // Subclassing happens once; a second object cannot take the control.
    EXPECT_TRUE(dlg.UpdateData(FALSE));
    EXPECT_EQ(&dlg.m_nameEdit, CWnd::FromHandlePermanent(dlg.Item(IDC_NAME)));
    CEdit other;
    dlg.m_pSecondOwner = &other;
    EXPECT_FALSE(dlg.UpdateData(FALSE));
    ASSERT_EQ(1u, theApp.m_boxes.size());
    EXPECT_EQ("Invalid argument.", theApp.m_boxes[0].m_strText);
    EXPECT_EQ(nullptr, other.m_hWnd);
}

// The find dialog: notifications to the owner through the registered message.
class CFindHost : public CWnd
{
public:
    struct CNotice
    {
        CFindReplaceDialog* m_pDlg;
        std::string m_strFind;
        BOOL m_bFindNext, m_bMatchCase, m_bDown, m_bTerminating;
    };
    std::vector<CNotice> m_notices;

protected:
    afx_msg LRESULT OnFindReplace(WPARAM, LPARAM lParam)
    {
        CFindReplaceDialog* pDlg = CFindReplaceDialog::GetNotifier(lParam);
        m_notices.push_back({pDlg, (LPCTSTR)pDlg->GetFindString(), pDlg->FindNext(), pDlg->MatchCase(),
                             pDlg->SearchDown(), pDlg->IsTerminating()});
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CFindHost, CWnd)
ON_REGISTERED_MESSAGE(CFindReplaceDialog::m_nFindReplaceMsg, OnFindReplace)
END_MESSAGE_MAP()

class CTrackedFind : public CFindReplaceDialog
{
public:
    explicit CTrackedFind(bool* pbDeleted) : m_pbDeleted(pbDeleted) {}
    ~CTrackedFind() override { *m_pbDeleted = true; }
    int m_nInitCalls = 0;
    int m_nScopeItems = 0;

    BOOL OnInitDialog() override
    {
        ++m_nInitCalls;
        HWND hScope = ::GetDlgItem(m_hWnd, 1008);
        if (hScope != NULL)
        {
            ::SendMessageA(hScope, LB_ADDSTRING, 0, (LPARAM) "Full Row");
            ::SendMessageA(hScope, LB_ADDSTRING, 0, (LPARAM) "Cell");
            m_nScopeItems = (int)::SendMessageA(hScope, LB_GETCOUNT, 0, 0);
        }
        return CFindReplaceDialog::OnInitDialog();
    }

private:
    bool* m_pbDeleted;
};

class CFindDialogTest : public ::testing::Test
{
protected:
    CFindHost m_host;
    bool m_bDeleted = false;

    void SetUp() override
    {
        ASSERT_TRUE(m_host.CreateEx(0, HostClass(), "host", WS_POPUP, 0, 0, 300, 200, NULL, NULL));
    }
    void TearDown() override { m_host.DestroyWindow(); }

    static void Click(HWND hDlg, int nID)
    {
        ::SendMessageA(hDlg, WM_COMMAND, MAKEWPARAM(nID, BN_CLICKED), (LPARAM)::GetDlgItem(hDlg, nID));
    }
};

TEST_F(CFindDialogTest, FindNextAndCloseNotifyTheOwnerAndTheDialogDeletesItself)
{
    CTrackedFind* pDlg = new CTrackedFind(&m_bDeleted);
    ASSERT_TRUE(pDlg->Create(TRUE, "needle", NULL, FR_DOWN | FR_MATCHCASE, &m_host));
    HWND hDlg = pDlg->m_hWnd;
    EXPECT_EQ(1, pDlg->m_nInitCalls);
    EXPECT_EQ(pDlg, CWnd::FromHandlePermanent(hDlg));
    EXPECT_EQ(m_host.m_hWnd, ::GetWindow(hDlg, GW_OWNER));
    char szText[64] = "";
    ::GetDlgItemTextA(hDlg, edt1, szText, sizeof(szText));
    EXPECT_STREQ("needle", szText);

    Click(hDlg, IDOK);
    ::SetDlgItemTextA(hDlg, edt1, "hay");
    ::CheckDlgButton(hDlg, chx2, BST_UNCHECKED);
    Click(hDlg, IDOK);
    Click(hDlg, IDCANCEL);

    ASSERT_EQ(3u, m_host.m_notices.size());
    for (const CFindHost::CNotice& notice : m_host.m_notices)
        EXPECT_EQ(static_cast<CFindReplaceDialog*>(pDlg), notice.m_pDlg);
    const CFindHost::CNotice& first = m_host.m_notices[0];
    EXPECT_EQ("needle", first.m_strFind);
    EXPECT_TRUE(first.m_bFindNext && first.m_bMatchCase && first.m_bDown);
    EXPECT_FALSE(first.m_bTerminating);
    const CFindHost::CNotice& second = m_host.m_notices[1];
    EXPECT_EQ("hay", second.m_strFind);
    EXPECT_TRUE(second.m_bFindNext);
    EXPECT_FALSE(second.m_bMatchCase);
    EXPECT_TRUE(m_host.m_notices[2].m_bTerminating);
    EXPECT_FALSE(::IsWindow(hDlg));
    EXPECT_TRUE(m_bDeleted);
}

TEST_F(CFindDialogTest, CustomTemplateCarriesControlsOfItsOwn)
{
    CDlgTemplate findTemplate(WS_POPUP | WS_CAPTION | WS_VISIBLE, 249, 90, "Find it");
    findTemplate.Add(CLASS_EDIT, "", edt1, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 5, 5, 150, 12)
        .Add(CLASS_LISTBOX, "", 1008, WS_BORDER | WS_VSCROLL, 5, 22, 100, 40)
        .Add(CLASS_BUTTON, "Match &case", chx2, BS_AUTOCHECKBOX | WS_TABSTOP, 5, 70, 80, 10)
        .Add(CLASS_BUTTON, "&Find Next", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, 190, 5, 50, 14)
        .Add(CLASS_BUTTON, "Cancel", IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP, 190, 22, 50, 14);
    HGLOBAL hTemplate = ::GlobalAlloc(GMEM_FIXED, findTemplate.GetSize());
    memcpy(hTemplate, findTemplate.Get(), findTemplate.GetSize());

    CTrackedFind* pDlg = new CTrackedFind(&m_bDeleted);
    pDlg->m_fr.Flags |= FR_ENABLETEMPLATEHANDLE;
    pDlg->m_fr.hInstance = static_cast<HINSTANCE>(hTemplate);
    ASSERT_TRUE(pDlg->Create(TRUE, "row", NULL, FR_DOWN, &m_host));
    HWND hDlg = pDlg->m_hWnd;
    char szText[64] = "";
    ::GetWindowTextA(hDlg, szText, sizeof(szText));
    EXPECT_STREQ("Find it", szText);
    EXPECT_EQ(2, pDlg->m_nScopeItems);

    Click(hDlg, IDOK);
    ASSERT_EQ(1u, m_host.m_notices.size());
    EXPECT_EQ("row", m_host.m_notices[0].m_strFind);
    EXPECT_TRUE(m_host.m_notices[0].m_bFindNext);

    pDlg->DestroyWindow();
    EXPECT_TRUE(m_bDeleted);
    ::GlobalFree(hTemplate);
}

TEST_F(CFindDialogTest, WithoutAnOwnerThereIsNoDialogAndTheObjectIsGone)
{
    ASSERT_EQ(nullptr, AfxGetMainWnd());
    CTrackedFind* pDlg = new CTrackedFind(&m_bDeleted);
    EXPECT_FALSE(pDlg->Create(TRUE, "x"));
    EXPECT_TRUE(m_bDeleted);
    EXPECT_EQ(nullptr, CFindReplaceDialog::GetNotifier(0));
}
} // namespace
