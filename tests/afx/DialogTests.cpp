// Dialogs from templates in memory: modal and modeless, data exchange both ways, validation,
// the dialog manager's keyboard through PreTranslateMessage, reflection, the find dialog.
#include <afxdlgs.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <string.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
typedef std::vector<std::string> CStrings;

// The program's message boxes are recorded, never shown.
class CTestApp : public CWinApp
{
public:
    // Every failure here shows an exclamation box; any other kind is marked in its entry.
    CStrings m_boxes;

    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) override
    {
        m_boxes.push_back(std::string(lpszPrompt) + (nType == MB_ICONEXCLAMATION ? "" : " (not exclamation)"));
        return IDOK;
    }
};
CTestApp theApp;

enum
{
    IDC_NAME = 100, IDC_COUNT, IDC_COMBO, IDC_CHECK, IDC_RADIO1, IDC_RADIO2, IDC_RADIO3, IDC_LABEL, IDC_LIST
};

// A dialog template as the dialog manager reads it from memory, in words, every item on a DWORD
// boundary, no texts. Name and count edits, a combo box, a check box, a radio group with a label
// inside it, and OK, which ends the group, one under the other.
std::vector<WORD> StandardTemplate()
{
    const DWORD dwDlgStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    // Style, extended style, item count, x, y, cx, cy, no menu, the dialog class, no title.
    std::vector<WORD> words = {LOWORD(dwDlgStyle), HIWORD(dwDlgStyle), 0, 0, 0, 0, 0, 200, 150, 0, 0, 0};
    // wClass is the system's atom: 0x80 button, 0x81 edit, 0x82 static, 0x85 combo box.
    auto add = [&](WORD wClass, WORD nID, DWORD dwStyle) {
        if (words.size() % 2 != 0)
            words.push_back(0);
        dwStyle |= WS_CHILD | WS_VISIBLE;
        WORD y = static_cast<WORD>(4 + 14 * words[4]++);
        // Style, extended style, x, y, cx, cy, id, the class, no text, no creation data.
        words.insert(words.end(), {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 10, y, 80, 12, nID, 0xFFFF, wClass, 0, 0});
    };
    add(0x81, IDC_NAME, WS_TABSTOP | WS_GROUP);
    add(0x81, IDC_COUNT, WS_TABSTOP);
    add(0x85, IDC_COMBO, CBS_DROPDOWN | WS_TABSTOP);
    add(0x80, IDC_CHECK, BS_AUTO3STATE | WS_TABSTOP);
    add(0x80, IDC_RADIO1, BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP);
    add(0x82, IDC_LABEL, 0);
    add(0x80, IDC_RADIO2, BS_AUTORADIOBUTTON);
    add(0x80, IDC_RADIO3, BS_AUTORADIOBUTTON);
    add(0x80, IDOK, BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP);
    return words;
}

// The owner of the dialogs: a hidden popup, as most dialogs here are hidden, since under Wine
// without a window manager every activated window that is shown costs seconds when it goes.
// It notes the idle messages of a modal dialog and ends the dialog then with 77, so that none
// can hang; it hears the find dialog too.
class CHostWnd : public CWnd
{
public:
    CStrings m_notes;

    afx_msg LRESULT OnEnterIdle(WPARAM wParam, LPARAM lParam)
    {
        HWND hDlg = reinterpret_cast<HWND>(lParam);
        m_notes.push_back(std::to_string(wParam) + (::IsWindowVisible(hDlg) ? " visible" : " hidden"));
        static_cast<CDialog*>(CWnd::FromHandlePermanent(hDlg))->EndDialog(77);
        return 0;
    }
    // The find string and the flags of each notification, read through the notifier.
    afx_msg LRESULT OnFindReplace(WPARAM, LPARAM lParam)
    {
        CFindReplaceDialog* pDlg = CFindReplaceDialog::GetNotifier(lParam);
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

// A dialog over StandardTemplate, or over any template with an exchange of its own.
class CTestDialog : public CDialog
{
public:
    CString m_strName = "Ann";
    int m_nCount = 3;
    CString m_strCombo;
    int m_nCheck = BST_CHECKED;
    int m_nRadio = 1;
    std::function<void(CDataExchange*)> m_exchange; // in place of the standard one

    std::function<void(CTestDialog&)> m_onInit = [](CTestDialog&) {};
    int m_nInitCalls = 0; // counted only with the object attached to the window
    CStrings m_events;

    HWND Item(int nID) const { return ::GetDlgItem(m_hWnd, nID); }
    std::string ItemText(int nID) const
    {
        CString str;
        GetDlgItemText(nID, str);
        return (LPCTSTR)str;
    }

    BOOL OnInitDialog() override
    {
        if (CWnd::FromHandlePermanent(m_hWnd) == this)
            ++m_nInitCalls;
        BOOL bResult = CDialog::OnInitDialog();
        m_onInit(*this);
        return bResult;
    }
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
    afx_msg void OnNameChange() { m_events.push_back("dialog name"); }
    afx_msg void OnCountChange() { m_events.push_back("dialog count"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
ON_EN_CHANGE(IDC_NAME, OnNameChange)
ON_EN_CHANGE(IDC_COUNT, OnCountChange)
END_MESSAGE_MAP()

// The objects' destructors destroy their windows, the dialog's first.
class CDialogTest : public ::testing::Test
{
protected:
    CHostWnd m_host;
    CTestDialog m_dlg;
    const std::vector<WORD> m_template = StandardTemplate();
    const LPCDLGTEMPLATE m_lpTemplate = reinterpret_cast<LPCDLGTEMPLATE>(m_template.data());

    void SetUp() override
    {
        theApp.m_boxes.clear();
        ASSERT_TRUE(m_host.CreateEx(0, "STATIC", "host", WS_POPUP, 0, 0, 400, 300, NULL, NULL));
        m_dlg.InitModalIndirect(m_lpTemplate, &m_host);
    }
};

TEST_F(CDialogTest, EndDialogDuringInitReturnsItsResultAndFreesTheTopLevelOwner)
{
    // A popup cannot be owned by a child: the owner is the top-level window above it. The
    // template comes from global memory.
    CWnd child;
    ASSERT_TRUE(child.Create("STATIC", "child", WS_VISIBLE, CRect(0, 0, 50, 50), &m_host, 1));
    HGLOBAL hTemplate = ::GlobalAlloc(GMEM_MOVEABLE, m_template.size() * sizeof(WORD));
    memcpy(::GlobalLock(hTemplate), m_lpTemplate, m_template.size() * sizeof(WORD));
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
    EXPECT_FALSE(m_dlg.CreateIndirect(m_lpTemplate, &m_host));
    EXPECT_EQ(nullptr, m_dlg.m_hWnd);

    // A template resource that is not there: -1, and the owner is left enabled.
    CDialog missing(9999, &m_host);
    EXPECT_EQ(-1, missing.DoModal());
    EXPECT_TRUE(m_host.IsWindowEnabled());
}

TEST_F(CDialogTest, AHiddenDialogShowsWhenIdleAndReturnAfterTabSavesTheMembersThroughPreTranslateMessage)
{
    EXPECT_EQ(77, m_dlg.DoModal());
    EXPECT_EQ(CStrings{"0 visible"}, m_host.m_notes); // MSGF_DIALOGBOX

    // The keys reach the dialog manager through PreTranslateMessage, from the dialog's controls,
    // before the dialog is ever idle.
    m_dlg.m_onInit = [&](CTestDialog& dlg) {
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_NAME, "Bob");
        ::SetDlgItemTextA(dlg.m_hWnd, IDC_COUNT, " 7 ");
        ::CheckRadioButton(dlg.m_hWnd, IDC_RADIO1, IDC_RADIO3, IDC_RADIO3);
        ::CheckDlgButton(dlg.m_hWnd, IDC_CHECK, BST_INDETERMINATE);
        ::PostMessageA(dlg.Item(IDC_NAME), WM_KEYDOWN, VK_TAB, 1);
        ::PostMessageA(dlg.Item(IDC_COUNT), WM_KEYDOWN, VK_RETURN, 1);
    };
    EXPECT_EQ(IDOK, m_dlg.DoModal());
    EXPECT_STREQ("Bob", m_dlg.m_strName);
    EXPECT_EQ(7, m_dlg.m_nCount);
    EXPECT_EQ(2, m_dlg.m_nRadio); // the label inside the group is not counted
    EXPECT_EQ(BST_INDETERMINATE, m_dlg.m_nCheck);
}

TEST_F(CDialogTest, ModelessExchangeLoadsWithoutValidatingAndSavingStopsAtTheFirstFailure)
{
    // Initialisation data fills the combo box (0x66) before the members are loaded.
    const char records[] = "\x66\x00\x03\x04\x05\x00\x00\x00pear\0"
                           "\x66\x00\x03\x04\x05\x00\x00\x00plum\0"
                           "\x00\x00";
    m_dlg.m_strCombo = "pl";
    m_dlg.m_nCheck = 5; // no check state
    m_dlg.m_nCount = 50; // outside 1..10: left for the user to correct
    ASSERT_TRUE(m_dlg.CreateIndirect(m_lpTemplate, &m_host, const_cast<char*>(records)));
    HWND hDlg = m_dlg.m_hWnd;
    EXPECT_TRUE(m_host.IsWindowEnabled());
    EXPECT_EQ(2, (int)::SendDlgItemMessageA(hDlg, IDC_COMBO, CB_GETCOUNT, 0, 0));
    EXPECT_EQ(1, (int)::SendDlgItemMessageA(hDlg, IDC_COMBO, CB_GETCURSEL, 0, 0)); // the first that begins with it
    EXPECT_EQ("50", m_dlg.ItemText(IDC_COUNT));
    EXPECT_TRUE(theApp.m_boxes.empty());
    EXPECT_EQ(8, (int)::SendMessageA(m_dlg.Item(IDC_NAME), EM_GETLIMITTEXT, 0, 0)); // DDV_MaxChars' length
    // Kept from MFC: loading an impossible check state unchecks the box and resets the member.
    EXPECT_EQ(BST_UNCHECKED, m_dlg.m_nCheck);
    EXPECT_EQ((UINT)BST_UNCHECKED, ::IsDlgButtonChecked(hDlg, IDC_CHECK));
    EXPECT_EQ((UINT)BST_CHECKED, ::IsDlgButtonChecked(hDlg, IDC_RADIO2)); // the label is not counted

    m_dlg.m_strCombo = "kiwi";
    m_dlg.m_nRadio = -1;
    m_dlg.m_nCount = 5;
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    EXPECT_EQ("kiwi", m_dlg.ItemText(IDC_COMBO)); // no item begins with it: the text goes to the edit field

    ::SetDlgItemTextA(hDlg, IDC_COMBO, "cherry");
    ASSERT_TRUE(m_dlg.UpdateData(TRUE));
    EXPECT_STREQ("cherry", m_dlg.m_strCombo);
    EXPECT_EQ(-1, m_dlg.m_nRadio); // loading -1 unchecked every button
    ::CheckDlgButton(hDlg, IDC_RADIO1, BST_CHECKED);
    ASSERT_TRUE(m_dlg.UpdateData(TRUE));
    EXPECT_EQ(0, m_dlg.m_nRadio);

    // A failure keeps the dialog open with the field selected.
    struct
    {
        const char* pszName;
        const char* pszCount;
        const char* pszMessage;
        int nFocus;
        int nCountAfter; // a value that parses is stored before its range is checked
    } const cases[] = {
        {"Zed", "abc", "Please enter an integer.", IDC_COUNT, 5},
        {"Zed", "11", "Please enter an integer between 1 and 10.", IDC_COUNT, 11},
        {"ninechars", "5", "Please enter no more than 8 characters.", IDC_NAME, 11},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszMessage);
        theApp.m_boxes.clear();
        ::SetDlgItemTextA(hDlg, IDC_NAME, c.pszName);
        ::SetDlgItemTextA(hDlg, IDC_COUNT, c.pszCount);
        ::SetFocus(NULL);
        m_dlg.SendMessage(WM_COMMAND, IDOK);
        EXPECT_TRUE(m_dlg.ContinueModal()); // not ended
        EXPECT_EQ(CStrings{c.pszMessage}, theApp.m_boxes);
        EXPECT_EQ(m_dlg.Item(c.nFocus), ::GetFocus());
        EXPECT_EQ(MAKELONG(0, strlen(c.nFocus == IDC_NAME ? c.pszName : c.pszCount)),
                  (LONG)::SendMessageA(m_dlg.Item(c.nFocus), EM_GETSEL, 0, 0));
        // Members before the failing one are saved already.
        EXPECT_STREQ(c.pszName, m_dlg.m_strName);
        EXPECT_EQ(c.nCountAfter, m_dlg.m_nCount);
    }
}

template <class T>
std::function<void(CDataExchange*)> TextOf(T& value)
{
    return [&value](CDataExchange* pDX) { DDX_Text(pDX, IDC_NAME, value); };
}

// The value goes through the name edit.
TEST_F(CDialogTest, TextParsesEachTypeAndPrintsItBack)
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
        {TextOf(uValue), "4294967295", true, "4294967295"},
        {TextOf(uValue), "-0", false, "Please enter a positive integer."},
        {TextOf(dwValue), "4000000000", true, "4000000000"},
        {TextOf(dValue), "1.5e3", true, "1500"},
        {TextOf(dValue), ".5", true, "0.5"},
        {TextOf(dValue), "123456789.123456789", true, "123456789.123457"},
        {TextOf(dValue), "1e999", false, pszReal},
        {TextOf(dValue), "inf", false, pszReal},
        {TextOf(dValue), "1e", false, pszReal},
        {TextOf(fValue), "3.14159265", true, "3.14159"},
        {TextOf(fValue), "1e39", false, pszReal},
        {doubleRange, "2.25", true, "2.25"},
        {doubleRange, "2.5", false, "Please enter a number between 0.5 and 2.25."},
        {uintRange, "4000000001", false, "Please enter an integer between 10 and 4000000000."},
        {missingControl, "1", false, "Invalid argument."},
    };
    m_dlg.m_exchange = [](CDataExchange*) {};
    ASSERT_TRUE(m_dlg.CreateIndirect(m_lpTemplate, &m_host));
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string("'") + c.pszText + "' -> " + c.pszResult);
        m_dlg.m_exchange = c.exchange;
        theApp.m_boxes.clear();
        m_dlg.SetDlgItemText(IDC_NAME, c.pszText);
        EXPECT_EQ(c.bSaved, m_dlg.UpdateData(TRUE) != FALSE);
        EXPECT_EQ(c.bSaved ? CStrings() : CStrings{c.pszResult}, theApp.m_boxes);
        if (c.bSaved)
        {
            m_dlg.SetDlgItemText(IDC_NAME, "");
            EXPECT_TRUE(m_dlg.UpdateData(FALSE));
        }
        // A refused text stays for the user to correct.
        EXPECT_EQ(c.bSaved ? c.pszResult : c.pszText, m_dlg.ItemText(IDC_NAME));
    }
    EXPECT_EQ('!', achBuffer[6]);

    // Loading the text shown already (the last case's) leaves the control alone. Setting a text
    // clears the modified flag: the flag tells whether loading set it.
    m_dlg.SendDlgItemMessage(IDC_NAME, EM_SETMODIFY, TRUE);
    dValue = 1;
    m_dlg.m_exchange = TextOf(dValue);
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    EXPECT_TRUE(m_dlg.SendDlgItemMessage(IDC_NAME, EM_GETMODIFY));
    dValue = 3;
    ASSERT_TRUE(m_dlg.UpdateData(FALSE));
    EXPECT_FALSE(m_dlg.SendDlgItemMessage(IDC_NAME, EM_GETMODIFY));

    // A drop-down list gives 255 characters at most.
    CComboBox list;
    ASSERT_TRUE(list.Create(CBS_DROPDOWNLIST, CRect(0, 0, 100, 100), &m_dlg, IDC_LIST));
    list.AddString(std::string(300, 'x').c_str());
    list.SetCurSel(0);
    m_dlg.m_exchange = [&](CDataExchange* pDX) { DDX_CBString(pDX, IDC_LIST, strValue); };
    ASSERT_TRUE(m_dlg.UpdateData(TRUE));
    EXPECT_EQ(255, strValue.GetLength());
}

// An edit that handles its own EN_CHANGE, reflected from the dialog, and keeps it from the
// dialog. (ON_CONTROL_REFLECT_EX, which can pass it on, is tested with the windows.)
class CReflectingEdit : public CEdit
{
public:
    CStrings* m_pEvents = NULL;
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
    nameEdit.m_pEvents = &m_dlg.m_events;
    m_dlg.m_exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, IDC_NAME, nameEdit); };
    ASSERT_TRUE(m_dlg.CreateIndirect(m_lpTemplate, &m_host));
    ::SendMessageA(m_dlg.Item(IDC_NAME), WM_CHAR, 'x', 1);
    ::SendMessageA(m_dlg.Item(IDC_COUNT), WM_CHAR, 'x', 1);
    EXPECT_EQ((CStrings{"edit", "dialog count"}), m_dlg.m_events);

    // Subclassing happens once; a second object cannot take the control.
    EXPECT_TRUE(m_dlg.UpdateData(FALSE));
    m_dlg.m_exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, IDC_NAME, other); };
    EXPECT_FALSE(m_dlg.UpdateData(FALSE));
    EXPECT_EQ(CStrings{"Invalid argument."}, theApp.m_boxes);
    EXPECT_EQ(nullptr, other.m_hWnd);
    EXPECT_EQ(&nameEdit, CWnd::FromHandlePermanent(m_dlg.Item(IDC_NAME)));
}

// The find dialog notifies its owner through the registered message, and deletes itself.
class CTrackedFind : public CFindReplaceDialog
{
public:
    explicit CTrackedFind(bool* pbDeleted) : m_pbDeleted(pbDeleted) {}
    bool* m_pbDeleted;
    int m_nInitCalls = 0;
    ~CTrackedFind() override { *m_pbDeleted = true; }
    BOOL OnInitDialog() override
    {
        ++m_nInitCalls;
        return CFindReplaceDialog::OnInitDialog();
    }
};

TEST_F(CDialogTest, FindNextAndCloseNotifyTheOwnerAndTheFindDialogDeletesItself)
{
    bool bDeleted = false;
    CTrackedFind* pDlg = new CTrackedFind(&bDeleted);
    pDlg->m_fr.Flags |= FR_HIDEWHOLEWORD; // set beforehand: Create adds its flags to those
    ASSERT_TRUE(pDlg->Create(TRUE, "needle", NULL, FR_DOWN | FR_MATCHCASE, &m_host));
    HWND hDlg = pDlg->m_hWnd;
    EXPECT_FALSE(::GetWindowLongA(::GetDlgItem(hDlg, chx1), GWL_STYLE) & WS_VISIBLE);
    EXPECT_EQ(1, pDlg->m_nInitCalls); // through the object attached to the window

    ::SendMessageA(hDlg, WM_COMMAND, IDOK, 0);
    ::SetDlgItemTextA(hDlg, edt1, "hay");
    ::CheckDlgButton(hDlg, chx2, BST_UNCHECKED);
    ::SendMessageA(hDlg, WM_COMMAND, IDOK, 0);
    ::SendMessageA(hDlg, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ((CStrings{"needle next case down", "hay next down", "hay down closing"}), m_host.m_notes);
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
