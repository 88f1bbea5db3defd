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
    // Every failure here shows an exclamation box; any other kind is marked in its entry.
    std::vector<std::string> m_boxes;

    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) override
    {
        m_boxes.push_back(std::string(lpszPrompt) + (nType == MB_ICONEXCLAMATION ? "" : " (not exclamation)"));
        return IDOK;
    }
};
CTestApp theApp;

const WORD CLASS_BUTTON = 0x0080;
const WORD CLASS_EDIT = 0x0081;
const WORD CLASS_STATIC = 0x0082;
const WORD CLASS_COMBOBOX = 0x0085;

enum
{
    IDC_NAME = 100, IDC_COUNT, IDC_COMBO, IDC_CHECK, IDC_RADIO1, IDC_RADIO2, IDC_RADIO3, IDC_LABEL, IDC_LIST
};

// A DLGTEMPLATE with its items, laid out as the dialog manager reads it: words and UTF-16
// strings, every item starting on a DWORD boundary. The dialog uses an 8-point font.
class CDlgTemplate
{
public:
    CDlgTemplate(DWORD dwStyle, short cx, short cy, const char* pszTitle)
    {
        dwStyle |= DS_SETFONT;
        // Style, extended style, item count, x, y, cx, cy, no menu, the dialog class.
        m_words = {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 0, 0, 0, (WORD)cx, (WORD)cy, 0, 0};
        AddString(pszTitle);
        m_words.push_back(8);
        AddString("MS Shell Dlg");
    }

    CDlgTemplate& Add(WORD wClass, const char* pszText, WORD nID, DWORD dwStyle, short x, short y, short cx, short cy)
    {
        if (m_words.size() % 2 != 0)
            m_words.push_back(0);
        dwStyle |= WS_CHILD | WS_VISIBLE;
        m_words.insert(m_words.end(), {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, (WORD)x, (WORD)y, (WORD)cx, (WORD)cy,
                                       nID, 0xFFFF, wClass});
        AddString(pszText);
        m_words.push_back(0); // no creation data
        ++m_words[4];
        return *this;
    }

    LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_words.data()); }
    size_t GetSize() const { return m_words.size() * sizeof(WORD); }

private:
    void AddString(const char* psz)
    {
        do
            m_words.push_back(static_cast<BYTE>(*psz));
        while (*psz++ != '\0');
    }

    std::vector<WORD> m_words;
};

// Name and count edits, a combo box, a check box, a radio group with a label inside it, OK
// and Cancel.
CDlgTemplate StandardTemplate()
{
    CDlgTemplate dlgTemplate(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, 200, 140, "Test");
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

// The owner of the dialogs: a hidden popup, as most dialogs here are hidden, since under Wine
// without a window manager every activated window that is shown costs seconds when it goes.
// It notes the idle messages of a modal dialog, and can end the dialog then; it hears the
// find dialog too.
class CHostWnd : public CWnd
{
public:
    CDialog* m_pDlgToEndWhenIdle = NULL;
    std::vector<std::string> m_notes;
    std::vector<CFindReplaceDialog*> m_notifiers;

    BOOL CreateHost() { return CreateEx(0, "STATIC", "host", WS_POPUP, 0, 0, 400, 300, NULL, NULL); }

protected:
    afx_msg LRESULT OnEnterIdle(WPARAM wParam, LPARAM lParam)
    {
        m_notes.push_back(std::string(wParam == MSGF_DIALOGBOX ? "dialog" : "other") +
                          (::IsWindowVisible(reinterpret_cast<HWND>(lParam)) ? " visible" : " hidden"));
        if (m_pDlgToEndWhenIdle != NULL)
            m_pDlgToEndWhenIdle->EndDialog(77);
        return 0;
    }
    // The find string and the flags of each notification.
    afx_msg LRESULT OnFindReplace(WPARAM, LPARAM lParam)
    {
        CFindReplaceDialog* pDlg = CFindReplaceDialog::GetNotifier(lParam);
        m_notifiers.push_back(pDlg);
        m_notes.push_back(std::string((LPCTSTR)pDlg->GetFindString()) + (pDlg->FindNext() ? " next" : "") +
                          (pDlg->MatchCase() ? " case" : "") + (pDlg->SearchDown() ? " down" : "") +
                          (pDlg->IsTerminating() ? " closing" : ""));
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
ON_MESSAGE(WM_ENTERIDLE, OnEnterIdle)
ON_REGISTERED_MESSAGE(CFindReplaceDialog::m_nFindReplaceMsg, OnFindReplace)
END_MESSAGE_MAP()

// A dialog over StandardTemplate, or over any template with an exchange of its own. A step
// posted from the initialisation runs after whatever the initialisation posted; a timer ends a
// dialog that hangs with -2.
class CTestDialog : public CDialog
{
public:
    CString m_strName = "Ann";
    int m_nCount = 3;
    CString m_strCombo;
    int m_nCheck = BST_CHECKED;
    int m_nRadio = 1;
    std::function<void(CDataExchange*)> m_exchange; // in place of the standard one

    std::function<void(CTestDialog&)> m_onInit;
    std::function<void(CTestDialog&)> m_onStep;
    int m_nInitCalls = 0; // counted only with the object attached to the window
    int m_nKeysTranslated = 0;
    std::vector<std::string> m_events;

    HWND Item(int nID) const { return ::GetDlgItem(m_hWnd, nID); }
    std::string ItemText(int nID) const
    {
        char sz[64] = "";
        ::GetDlgItemTextA(m_hWnd, nID, sz, sizeof(sz));
        return sz;
    }

    BOOL OnInitDialog() override
    {
        if (CWnd::FromHandlePermanent(m_hWnd) == this)
            ++m_nInitCalls;
        BOOL bResult = CDialog::OnInitDialog();
        SetTimer(1, 5000);
        if (m_onInit)
            m_onInit(*this);
        if (m_onStep)
            PostMessage(WM_APP);
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
        if (m_exchange)
            return m_exchange(pDX);
        DDX_Text(pDX, IDC_NAME, m_strName);
        DDV_MaxChars(pDX, m_strName, 8);
        DDX_Text(pDX, IDC_COUNT, m_nCount);
        DDV_MinMaxInt(pDX, m_nCount, 1, 10);
        DDX_CBString(pDX, IDC_COMBO, m_strCombo);
        DDX_Check(pDX, IDC_CHECK, m_nCheck);
        DDX_Radio(pDX, IDC_RADIO1, m_nRadio);
    }
    afx_msg LRESULT OnStep(WPARAM, LPARAM)
    {
        m_onStep(*this);
        return 0;
    }
    afx_msg void OnTimer(UINT_PTR) { EndDialog(-2); }
    afx_msg void OnNameChange() { m_events.push_back("dialog name"); }
    afx_msg void OnCountChange() { m_events.push_back("dialog count"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
ON_MESSAGE(WM_APP, OnStep)
ON_WM_TIMER()
ON_EN_CHANGE(IDC_NAME, OnNameChange)
ON_EN_CHANGE(IDC_COUNT, OnCountChange)
END_MESSAGE_MAP()

class CDialogTest : public ::testing::Test
{
protected:
    CHostWnd m_host;
    CTestDialog m_dlg;
    CDlgTemplate m_template = StandardTemplate();

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
};

TEST_F(CDialogTest, EndDialogDuringInitReturnsItsResultAndFreesTheTopLevelOwner)
{
    // A popup cannot be owned by a child: the owner is the top-level window above it. The
    // template comes from global memory.
    CWnd child;
    ASSERT_TRUE(child.Create("STATIC", "child", WS_VISIBLE, CRect(0, 0, 50, 50), &m_host, 1));
    HGLOBAL hTemplate = ::GlobalAlloc(GMEM_MOVEABLE, m_template.GetSize());
    memcpy(::GlobalLock(hTemplate), m_template.Get(), m_template.GetSize());
    ::GlobalUnlock(hTemplate);
    m_dlg.InitModalIndirect(hTemplate, &child);
    BOOL bOwnerDisabled = FALSE;
    HWND hOwner = NULL;
    m_dlg.m_onInit = [&](CTestDialog& dlg) {
        bOwnerDisabled = !m_host.IsWindowEnabled();
        hOwner = ::GetWindow(dlg.m_hWnd, GW_OWNER);
        dlg.EndDialog(42);
    };
    EXPECT_EQ(42, m_dlg.DoModal());
    ::GlobalFree(hTemplate);
    EXPECT_EQ(1, m_dlg.m_nInitCalls);
    EXPECT_TRUE(bOwnerDisabled);
    EXPECT_EQ(m_host.m_hWnd, hOwner);
    EXPECT_TRUE(m_host.IsWindowEnabled());
    EXPECT_EQ(nullptr, m_dlg.m_hWnd);

    // A modeless dialog ended during its initialisation is not kept.
    EXPECT_FALSE(m_dlg.CreateIndirect(m_template.Get(), &m_host));
    EXPECT_EQ(nullptr, m_dlg.m_hWnd);

    // A template resource that is not there: -1, and the owner is left enabled.
    CDialog missing(9999, &m_host);
    EXPECT_EQ(-1, missing.DoModal());
    EXPECT_TRUE(m_host.IsWindowEnabled());
}

TEST_F(CDialogTest, ReturnAfterTabSavesTheMembersThroughPreTranslateMessage)
{
    std::vector<std::string> shown;
    bool bTabMoved = false;
    m_dlg.m_onInit = [&](CTestDialog& dlg) {
        shown = {dlg.ItemText(IDC_NAME), dlg.ItemText(IDC_COUNT),
                 std::to_string(::IsDlgButtonChecked(dlg.m_hWnd, IDC_CHECK)),
                 std::to_string(::IsDlgButtonChecked(dlg.m_hWnd, IDC_RADIO2))};
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_NAME, "Bob");
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_COUNT, " 7 ");
        ::CheckRadioButton(dlg.m_hWnd, IDC_RADIO1, IDC_RADIO3, IDC_RADIO3);
        ::CheckDlgButton(dlg.m_hWnd, IDC_CHECK, BST_INDETERMINATE);
        ::PostMessageA(dlg.Item(IDC_NAME), WM_KEYDOWN, VK_TAB, 1);
    };
    m_dlg.m_onStep = [&](CTestDialog& dlg) {
        bTabMoved = ::GetFocus() == dlg.Item(IDC_COUNT);
        ::PostMessageA(::GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
    };
    EXPECT_EQ(IDOK, m_dlg.DoModal());
    EXPECT_TRUE(bTabMoved);
    EXPECT_EQ(2, m_dlg.m_nKeysTranslated);
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
        ASSERT_TRUE(dlg.CreateIndirect(m_template.Get(), &m_host));
        theApp.m_boxes.clear();
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_NAME, c.pszName);
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_COUNT, c.pszCount);
        ::SetFocus(NULL);
        dlg.SendMessage(WM_COMMAND, IDOK);
        EXPECT_TRUE(dlg.ContinueModal()); // not ended
        EXPECT_EQ(std::vector<std::string>{c.pszMessage}, theApp.m_boxes);
        EXPECT_EQ(dlg.Item(c.nFocus), ::GetFocus());
        EXPECT_EQ(MAKELONG(0, strlen(c.nFocus == IDC_NAME ? c.pszName : c.pszCount)),
                  (LONG)::SendMessageA(dlg.Item(c.nFocus), EM_GETSEL, 0, 0));
        // Members before the failing one are saved already.
        EXPECT_STREQ(c.pszName, dlg.m_strName);
        EXPECT_EQ(c.nCountAfter, dlg.m_nCount);
    }
}

TEST_F(CDialogTest, AHiddenDialogIsShownWhenIdleAndTheOwnerIsTold)
{
    m_host.m_pDlgToEndWhenIdle = &m_dlg;
    EXPECT_EQ(77, m_dlg.DoModal());
    EXPECT_EQ(std::vector<std::string>{"dialog visible"}, m_host.m_notes);
}

TEST_F(CDialogTest, ModelessButtonsAndComboExchangeBothWaysAndLoadingValidatesNothing)
{
    // Initialisation data fills the combo box before the members are loaded.
    const char records[] = "\x66\x00\x03\x04\x05\x00\x00\x00pear\0"
                           "\x66\x00\x03\x04\x05\x00\x00\x00plum\0"
                           "\x00\x00";
    static_assert(IDC_COMBO == 0x66, "the records address the combo box");
    m_dlg.m_strCombo = "pl";
    m_dlg.m_nCheck = 5; // no check state
    m_dlg.m_nCount = 50; // outside 1..10: left for the user to correct
    ASSERT_TRUE(m_dlg.CreateIndirect(m_template.Get(), &m_host, const_cast<char*>(records)));
    HWND hDlg = m_dlg.m_hWnd;
    HWND hCombo = m_dlg.Item(IDC_COMBO);
    EXPECT_EQ(1, m_dlg.m_nInitCalls);
    EXPECT_TRUE(m_host.IsWindowEnabled());
    EXPECT_EQ(m_host.m_hWnd, ::GetWindow(hDlg, GW_OWNER));
    EXPECT_EQ(2, (int)::SendMessageA(hCombo, CB_GETCOUNT, 0, 0));
    EXPECT_EQ(1, (int)::SendMessageA(hCombo, CB_GETCURSEL, 0, 0)); // the first item that begins with it
    EXPECT_EQ("50", m_dlg.ItemText(IDC_COUNT));
    EXPECT_TRUE(theApp.m_boxes.empty());
    EXPECT_EQ(8, (int)::SendMessageA(m_dlg.Item(IDC_NAME), EM_GETLIMITTEXT, 0, 0)); // DDV_MaxChars' length
    // Kept from MFC: loading an impossible check state unchecks the box and resets the member.
    EXPECT_EQ(BST_UNCHECKED, m_dlg.m_nCheck);
    EXPECT_EQ((UINT)BST_UNCHECKED, ::IsDlgButtonChecked(hDlg, IDC_CHECK));

    m_dlg.m_strCombo = "kiwi";
    m_dlg.m_nRadio = -1;
    m_dlg.m_nCount = 5;
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    EXPECT_EQ("kiwi", m_dlg.ItemText(IDC_COMBO)); // no item begins with it: the text goes to the edit field
    for (int nID : {IDC_RADIO1, IDC_RADIO2, IDC_RADIO3})
        EXPECT_EQ((UINT)BST_UNCHECKED, ::IsDlgButtonChecked(hDlg, nID));

    ::SetDlgItemTextA(hDlg, IDC_COMBO, "cherry");
    ASSERT_TRUE(m_dlg.UpdateData(TRUE));
    EXPECT_STREQ("cherry", m_dlg.m_strCombo);
    EXPECT_EQ(-1, m_dlg.m_nRadio);
    ::CheckDlgButton(hDlg, IDC_RADIO1, BST_CHECKED);
    ASSERT_TRUE(m_dlg.UpdateData(TRUE));
    EXPECT_EQ(0, m_dlg.m_nRadio);
}

// A modeless dialog whose controls are exchanged as each test chooses: the value goes through
// the name edit.
class CDataExchangeTest : public CDialogTest
{
protected:
    void SetUp() override
    {
        CDialogTest::SetUp();
        m_dlg.m_exchange = [](CDataExchange*) {};
        ASSERT_TRUE(m_dlg.CreateIndirect(m_template.Get(), &m_host));
    }
};

template <class T>
std::function<void(CDataExchange*)> TextOf(T& value)
{
    return [&value](CDataExchange* pDX) { DDX_Text(pDX, IDC_NAME, value); };
}

TEST_F(CDataExchangeTest, TextParsesEachTypeAndPrintsItBack)
{
    CString strValue;
    char achBuffer[7] = {0, 0, 0, 0, 0, 0, '!'}; // 6 characters for the exchange, a guard after
    BYTE byValue = 9;
    short sValue = 9;
    int nValue = 9;
    UINT uValue = 9;
    DWORD dwValue = 9;
    float fValue = 9;
    double dValue = 9;
    auto bufferText = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NAME, achBuffer, 6); };
    auto doubleRange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, IDC_NAME, dValue);
        DDV_MinMaxDouble(pDX, dValue, 0.5, 2.25);
    };
    auto uintRange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, IDC_NAME, uValue);
        DDV_MinMaxUInt(pDX, uValue, 10, 4000000000u);
    };
    auto missingControl = [&](CDataExchange* pDX) { DDX_Text(pDX, 999, nValue); };
    const char* const pszInt = "Please enter an integer.";
    const char* const pszUInt = "Please enter a positive integer.";
    const char* const pszReal = "Please enter a number.";
    const struct
    {
        std::function<void(CDataExchange*)> exchange;
        const char* pszText;
        bool bSaved;
        const char* pszResult; // shown after saving and loading again, or else the prompt
    } cases[] = {
        {TextOf(strValue), " any text ", true, " any text "},
        {bufferText, "abcdefgh", true, "abcde"}, // cut to the buffer, terminator included
        {TextOf(byValue), "255", true, "255"},
        {TextOf(byValue), "256", false, "Please enter an integer between 0 and 255."},
        {TextOf(sValue), "-32768", true, "-32768"},
        {TextOf(sValue), "32768", false, pszInt},
        {TextOf(nValue), " \t-2147483648 ", true, "-2147483648"},
        {TextOf(nValue), "+17", true, "17"},
        {TextOf(nValue), "2147483648", false, pszInt},
        {TextOf(nValue), "", false, pszInt},
        {TextOf(nValue), "1 2", false, pszInt},
        {TextOf(nValue), "99999999999999999999999", false, pszInt},
        {TextOf(nValue), "-", false, pszInt},
        {TextOf(uValue), "4294967295", true, "4294967295"},
        {TextOf(uValue), "-0", false, pszUInt},
        {TextOf(dwValue), "4000000000", true, "4000000000"},
        {TextOf(dValue), "1.5e3", true, "1500"},
        {TextOf(dValue), ".5", true, "0.5"},
        {TextOf(dValue), "-2.", true, "-2"},
        {TextOf(dValue), "123456789.123456789", true, "123456789.123457"},
        {TextOf(dValue), "1e999", false, pszReal},
        {TextOf(dValue), "inf", false, pszReal},
        {TextOf(dValue), "1e", false, pszReal},
        {TextOf(dValue), ".", false, pszReal},
        {TextOf(fValue), "3.14159265", true, "3.14159"},
        {TextOf(fValue), "1e39", false, pszReal},
        {doubleRange, "2.25", true, "2.25"},
        {doubleRange, "2.5", false, "Please enter a number between 0.5 and 2.25."},
        {uintRange, "4000000001", false, "Please enter an integer between 10 and 4000000000."},
        {missingControl, "1", false, "Invalid argument."},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string("'") + c.pszText + "' -> " + c.pszResult);
        m_dlg.m_exchange = c.exchange;
        theApp.m_boxes.clear();
        m_dlg.SetDlgItemText(IDC_NAME, c.pszText);
        EXPECT_EQ(c.bSaved, m_dlg.UpdateData(TRUE) != FALSE);
        EXPECT_EQ(c.bSaved ? std::vector<std::string>() : std::vector<std::string>{c.pszResult}, theApp.m_boxes);
        if (c.bSaved)
        {
            m_dlg.SetDlgItemText(IDC_NAME, "");
            EXPECT_TRUE(m_dlg.UpdateData(FALSE));
        }
        // A refused text stays for the user to correct.
        EXPECT_EQ(c.bSaved ? c.pszResult : c.pszText, m_dlg.ItemText(IDC_NAME));
    }
    EXPECT_EQ('!', achBuffer[6]);
}

TEST_F(CDataExchangeTest, LoadingTheTextAlreadyShownLeavesTheControlAlone)
{
    // Setting a control's text clears its modified flag: the flag tells whether it was set.
    HWND hEdit = m_dlg.Item(IDC_NAME);
    double dValue = 2.5;
    m_dlg.m_exchange = TextOf(dValue);
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    ::SendMessageA(hEdit, EM_SETMODIFY, TRUE, 0);
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    EXPECT_TRUE(::SendMessageA(hEdit, EM_GETMODIFY, 0, 0));
    dValue = 3;
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    EXPECT_FALSE(::SendMessageA(hEdit, EM_GETMODIFY, 0, 0));
    EXPECT_EQ("3", m_dlg.ItemText(IDC_NAME));
}

TEST_F(CDataExchangeTest, DropDownListGivesAtMost255Characters)
{
    CComboBox list;
    ASSERT_TRUE(list.Create(CBS_DROPDOWNLIST | WS_VSCROLL, CRect(0, 0, 100, 100), &m_dlg, IDC_LIST));
    list.AddString(std::string(300, 'x').c_str());
    list.SetCurSel(0);
    CString strValue;
    m_dlg.m_exchange = [&](CDataExchange* pDX) { DDX_CBString(pDX, IDC_LIST, strValue); };
    ASSERT_TRUE(m_dlg.UpdateData(TRUE));
    EXPECT_EQ(255, strValue.GetLength());
}

// An edit that handles its own EN_CHANGE, reflected from the dialog, and keeps it from the
// dialog. (ON_CONTROL_REFLECT_EX, which can pass it on, is tested with the windows.)
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

TEST_F(CDialogTest, ExchangedControlTakesItsReflectedNotificationOnce)
{
    CReflectingEdit nameEdit;
    CEdit other;
    CWnd* pSecondOwner = NULL;
    nameEdit.m_pEvents = &m_dlg.m_events;
    m_dlg.m_exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, IDC_NAME, nameEdit);
        if (pSecondOwner != NULL)
            DDX_Control(pDX, IDC_NAME, *pSecondOwner);
    };
    ASSERT_TRUE(m_dlg.CreateIndirect(m_template.Get(), &m_host));
    EXPECT_EQ(&nameEdit, CWnd::FromHandlePermanent(m_dlg.Item(IDC_NAME)));
    ::SendMessageA(m_dlg.Item(IDC_NAME), WM_CHAR, 'x', 1);
    ::SendMessageA(m_dlg.Item(IDC_COUNT), WM_CHAR, 'x', 1);
    EXPECT_EQ((std::vector<std::string>{"edit", "dialog count"}), m_dlg.m_events);

    // Subclassing happens once; a second object cannot take the control.
    EXPECT_TRUE(m_dlg.UpdateData(FALSE));
    pSecondOwner = &other;
    EXPECT_FALSE(m_dlg.UpdateData(FALSE));
    EXPECT_EQ(std::vector<std::string>{"Invalid argument."}, theApp.m_boxes);
    EXPECT_EQ(nullptr, other.m_hWnd);
    EXPECT_EQ(&nameEdit, CWnd::FromHandlePermanent(m_dlg.Item(IDC_NAME)));
}

// The find dialog notifies its owner through the registered message, and deletes itself.
class CTrackedFind : public CFindReplaceDialog
{
public:
    explicit CTrackedFind(bool* pbDeleted) : m_pbDeleted(pbDeleted) {}
    ~CTrackedFind() override { *m_pbDeleted = true; }
    int m_nInitCalls = 0;

    BOOL OnInitDialog() override
    {
        ++m_nInitCalls;
        return CFindReplaceDialog::OnInitDialog();
    }

private:
    bool* m_pbDeleted;
};

void Click(HWND hDlg, int nID)
{
    ::SendMessageA(hDlg, WM_COMMAND, MAKEWPARAM(nID, BN_CLICKED), (LPARAM)::GetDlgItem(hDlg, nID));
}

TEST_F(CDialogTest, FindNextAndCloseNotifyTheOwnerAndTheFindDialogDeletesItself)
{
    bool bDeleted = false;
    CTrackedFind* pDlg = new CTrackedFind(&bDeleted);
    pDlg->m_fr.Flags |= FR_HIDEWHOLEWORD; // set beforehand: Create adds its flags to those
    ASSERT_TRUE(pDlg->Create(TRUE, "needle", NULL, FR_DOWN | FR_MATCHCASE, &m_host));
    HWND hDlg = pDlg->m_hWnd;
    EXPECT_FALSE(::GetWindowLongA(::GetDlgItem(hDlg, chx1), GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(1, pDlg->m_nInitCalls);
    EXPECT_EQ(pDlg, CWnd::FromHandlePermanent(hDlg));
    EXPECT_EQ(m_host.m_hWnd, ::GetWindow(hDlg, GW_OWNER));

    Click(hDlg, IDOK);
    ::SetDlgItemTextA(hDlg, edt1, "hay");
    ::CheckDlgButton(hDlg, chx2, BST_UNCHECKED);
    Click(hDlg, IDOK);
    Click(hDlg, IDCANCEL);
    EXPECT_EQ((std::vector<std::string>{"needle next case down", "hay next down", "hay down closing"}),
              m_host.m_notes);
    EXPECT_EQ(std::vector<CFindReplaceDialog*>(3, pDlg), m_host.m_notifiers);
    EXPECT_FALSE(::IsWindow(hDlg));
    EXPECT_TRUE(bDeleted);

    // Without an owner there is no dialog, and the object is gone all the same.
    ASSERT_EQ(nullptr, AfxGetMainWnd());
    bDeleted = false;
    EXPECT_FALSE((new CTrackedFind(&bDeleted))->Create(TRUE, "x"));
    EXPECT_TRUE(bDeleted);
    EXPECT_EQ(nullptr, CFindReplaceDialog::GetNotifier(0));
}
} // namespace
