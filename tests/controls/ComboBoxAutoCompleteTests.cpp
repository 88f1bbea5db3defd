// The auto-completing combo with its list owner: keys as the message loop delivers them
// (PreTranslateMessage first), completion while typing, the new-record check and its messages.
#include "KelControls.h"
#include "tests/harness/Input.h"
#include "tests/harness/MessageSequence.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
enum
{
    IDC_COMBO = 10,
    IDC_OTHER = 11,
    COMBO_ID = 7
};

// The combo's parent and list owner: supplies a gel list with ids as item data (the blank
// record carries -1), answers new records with m_nNewReply and notes what it heard.
class CListOwner : public CWnd
{
public:
    std::vector<std::string> m_heard;
    LRESULT m_nNewReply = 0;

    afx_msg LRESULT OnNewRecord(WPARAM, LPARAM lParam)
    {
        const CNewComboBoxRecord* pRecord = reinterpret_cast<CNewComboBoxRecord*>(lParam);
        m_heard.push_back("new '" + std::string(pRecord->m_strText) + "' " + std::to_string(pRecord->m_lComboID) +
                          (pRecord->m_pCombo != NULL && pRecord->m_lRecordID == -1 ? "" : " bad record"));
        return m_nNewReply;
    }
    afx_msg LRESULT OnLoadList(WPARAM, LPARAM lParam)
    {
        const CNewComboBoxRecord* pRecord = reinterpret_cast<CNewComboBoxRecord*>(lParam);
        static const char* const s_items[] = {"", "Amber", "Blue", "Green", "Grey", "Red"};
        for (int nIndex = 0; nIndex < 6; ++nIndex)
            pRecord->m_pCombo->SetItemData(pRecord->m_pCombo->AddString(s_items[nIndex]), nIndex - 1);
        m_heard.push_back("load '" + std::string(pRecord->m_strText) + "'");
        return 0;
    }
    afx_msg LRESULT OnEditKey(WPARAM wParam, LPARAM lParam)
    {
        m_heard.push_back("key " + std::to_string(wParam) + " " + std::to_string(lParam));
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CListOwner, CWnd)
ON_MESSAGE(CComboBoxAutoComplete::WM_NEW_RECORD, OnNewRecord)
ON_MESSAGE(CComboBoxAutoComplete::WM_LOAD_LIST, OnLoadList)
ON_MESSAGE(CComboBoxAutoComplete::WM_EDIT_KEY, OnEditKey)
END_MESSAGE_MAP()
} // namespace

class CAutoCompleteTest : public ::testing::Test
{
protected:
    CListOwner m_owner;
    CComboBoxAutoComplete m_combo{&m_owner, COMBO_ID, TRUE};
    CEdit m_other;
    HWND m_hEdit = NULL;

    void SetUp() override
    {
        // A captionless popup shown without activation: taking the focus costs no wait.
        ASSERT_TRUE(m_owner.CreateEx(0, "STATIC", "", WS_POPUP | WS_CLIPCHILDREN, 20, 20, 300, 200, NULL, NULL));
        ASSERT_TRUE(m_combo.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                                   CRect(10, 10, 200, 150), &m_owner, IDC_COMBO));
        ASSERT_TRUE(m_other.Create(WS_CHILD | WS_VISIBLE, CRect(10, 50, 200, 70), &m_owner, IDC_OTHER));
        m_owner.ShowWindow(SW_SHOWNOACTIVATE);
        m_hEdit = ::GetWindow(m_combo.m_hWnd, GW_CHILD);
        ASSERT_NE(nullptr, m_hEdit);
    }

    // A key pressed as the message loop has it: the combo's PreTranslateMessage, then the edit
    // field unless swallowed. Returns whether it was swallowed.
    bool Key(UINT uKey)
    {
        MSG msg = {m_hEdit, WM_KEYDOWN, uKey, 0, 0, {0, 0}};
        if (CWnd::WalkPreTranslateTree(m_owner.m_hWnd, &msg))
            return true;
        CInput::PressKey(m_hEdit, uKey);
        MSG up = {m_hEdit, WM_KEYUP, uKey, 0, 0, {0, 0}};
        CWnd::WalkPreTranslateTree(m_owner.m_hWnd, &up);
        return false;
    }
    void Type(const char* pszText)
    {
        for (; *pszText != '\0'; ++pszText)
        {
            MSG msg = {m_hEdit, WM_KEYDOWN, static_cast<WPARAM>(LOBYTE(::VkKeyScanA(*pszText))), 0, 0, {0, 0}};
            ASSERT_FALSE(CWnd::WalkPreTranslateTree(m_owner.m_hWnd, &msg));
            char szChar[2] = {*pszText, '\0'};
            CInput::TypeText(m_hEdit, szChar);
        }
    }
    std::string State()
    {
        std::pair<DWORD, DWORD> sel = CInput::GetSel(m_hEdit);
        return CInput::GetText(m_hEdit) + " " + std::to_string(sel.first) + "-" + std::to_string(sel.second);
    }
    // Loads the list and gives the combo the focus with an item selected, so it is remembered.
    void Focus(int nSel)
    {
        m_other.SetFocus();
        Key(VK_DOWN); // any key but Escape, Tab, Shift and Ctrl loads the list
        m_combo.SetCurSel(nSel);
        ::SetFocus(m_hEdit);
        m_owner.m_heard.clear();
    }
};

TEST_F(CAutoCompleteTest, TypingLoadsTheListOnceAndCompletesUntilDeleting)
{
    Key(VK_SHIFT);
    EXPECT_TRUE(m_owner.m_heard.empty());
    Type("g");
    Type("r");
    EXPECT_EQ((std::vector<std::string>{"load ''"}), m_owner.m_heard);
    EXPECT_EQ("Green 2-5", State()); // the completed part is selected
    Type("ey");
    EXPECT_EQ("Grey 4-4", State());
    Key(VK_BACK);
    EXPECT_EQ("Gre 3-3", State()); // deleting never completes again
    Type("x");
    EXPECT_EQ("Grex 4-4", State()); // no match: the text as typed, the caret after it
    Key(VK_HOME);
    Type("z");
    EXPECT_EQ("zGrex 1-1", State()); // typed before the end: the selection stays
    EXPECT_EQ(1u, m_owner.m_heard.size());
}

TEST_F(CAutoCompleteTest, CompletionFollowsTheListAsItChanges)
{
    Type("x"); // loads the list
    struct
    {
        std::function<void()> change;
        const char* pszTyped;
        const char* pszState;
    } const cases[] = {
        {[&] { m_combo.InsertString(2, "Gold"); }, "go", "Gold 2-4"},
        {[&] { m_combo.DeleteString(2); }, "go", "Go 2-2"}, // "g" completed to Green first
        {[&] { m_combo.AddString("gOLDEN"); }, "GOL", "gOLDEN 3-6"},
        {[&] { m_combo.ResetContent(); }, "gr", "gr 2-2"},
        {[&] { m_combo.AddString("Green"); }, "gr", "Green 2-5"},
    };
    for (const auto& c : cases)
    {
        c.change();
        ::SetWindowTextA(m_hEdit, "");
        Type(c.pszTyped);
        EXPECT_EQ(c.pszState, State());
    }

    // A sorted list places its items itself.
    CComboBoxAutoComplete sorted(&m_owner, COMBO_ID, TRUE);
    ASSERT_TRUE(sorted.Create(WS_CHILD | CBS_DROPDOWN | CBS_SORT, CRect(0, 0, 100, 100), &m_owner, IDC_OTHER + 1));
    for (const char* pszItem : {"Blue", "Red", "Amber", "Azure"})
        sorted.AddString(pszItem);
    sorted.SetLoadedCombo(TRUE);
    HWND hEdit = ::GetWindow(sorted.m_hWnd, GW_CHILD);
    CInput::TypeText(hEdit, "a");
    EXPECT_EQ("Amber", CInput::GetText(hEdit));
}

TEST_F(CAutoCompleteTest, DroppingDownLoadsAndTheEditKeySelectsTheEqualItem)
{
    m_combo.ShowDropDown();
    m_combo.ShowDropDown(FALSE);
    ::SetWindowTextA(m_hEdit, " Blue ");
    EXPECT_TRUE(Key(VK_F5));
    ::SetWindowTextA(m_hEdit, "blue");
    m_combo.SetEditKey(VK_F2);
    EXPECT_FALSE(Key(VK_F5));
    EXPECT_TRUE(Key(VK_F2)); // no item equals "blue" in case: the selection stays
    EXPECT_EQ((std::vector<std::string>{"load ''", "key 7 2", "key 7 2"}), m_owner.m_heard);
}

TEST_F(CAutoCompleteTest, EnterAndLeavingCheckForANewRecord)
{
    struct
    {
        const char* pszText;
        int bAllowBlank;
        LRESULT nReply;
        bool bSwallowed;
        int nSel;
        const char* pszHeard; // "" for nothing
    } const cases[] = {
        {" Red ", 1, 0, false, 5, ""},                         // equal to an item: chosen
        {"  ", 1, 0, false, 0, ""},                            // blank: the item of data -1
        {"  ", 0, 0, true, 3, "new '' 7"},                     // blank not allowed: a new record
        {"  Amberlight ", 1, 0, true, 3, "new 'Amberlight' 7"}, // refused: Green comes back
        {"Cyan", 1, 1, true, -1, "new 'Cyan' 7"},              // taken: the owner's to select
        {"red", 1, 0, true, 3, "new 'red' 7"},                 // equal only ignoring case
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        Focus(3);
        m_combo.SetCurSel(-1); // as typing leaves it
        m_combo.SetAllowBlank(c.bAllowBlank);
        m_owner.m_nNewReply = c.nReply;
        ::SetWindowTextA(m_hEdit, c.pszText);
        EXPECT_EQ(c.bSwallowed, Key(VK_RETURN));
        EXPECT_EQ(c.nSel, m_combo.GetCurSel());
        EXPECT_EQ(c.pszHeard, m_owner.m_heard.empty() ? "" : m_owner.m_heard.back());
        // Leaving right after Enter asks nothing again.
        size_t nHeard = m_owner.m_heard.size();
        m_other.SetFocus();
        EXPECT_EQ(nHeard, m_owner.m_heard.size());
    }

    // Leaving with a new text asks; after any other message (the key's release) it asks again.
    Focus(3);
    ::SetWindowTextA(m_hEdit, "Cyan");
    m_other.SetFocus();
    EXPECT_EQ((std::vector<std::string>{"new 'Cyan' 7"}), m_owner.m_heard);
    EXPECT_EQ(3, m_combo.GetCurSel());
}

TEST_F(CAutoCompleteTest, EscapeBringsBackTheRememberedItem)
{
    Focus(2);
    m_combo.SetCurSel(-1);
    ::SetWindowTextA(m_hEdit, "Bl");
    EXPECT_TRUE(Key(VK_ESCAPE));
    EXPECT_EQ(2, m_combo.GetCurSel());
    EXPECT_FALSE(Key(VK_ESCAPE)); // an item is selected: the key goes on

    // A selection change is remembered too.
    m_combo.SetCurSel(4);
    ::SendMessageA(m_owner.m_hWnd, WM_COMMAND, MAKEWPARAM(IDC_COMBO, CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(m_combo.m_hWnd));
    m_combo.SetCurSel(-1);
    ::SetWindowTextA(m_hEdit, "");
    EXPECT_TRUE(Key(VK_ESCAPE));
    EXPECT_EQ(4, m_combo.GetCurSel());

    // Nothing typed and nothing remembered: the key goes on.
    Focus(0);
    m_combo.SetCurSel(-1);
    EXPECT_FALSE(Key(VK_ESCAPE));
}

TEST_F(CAutoCompleteTest, ARefusedRecordIsAskedForBeforeTheOldItemIsSelectedAgain)
{
    Focus(3);
    ::SetWindowTextA(m_hEdit, "Cyan");
    CMessageSequence sequence;
    sequence.Watch(m_owner.m_hWnd, "owner");
    sequence.Watch(m_combo.m_hWnd, "combo");
    for (UINT uMsg : {WM_GETTEXT, WM_GETTEXTLENGTH, CB_GETCOUNT, CB_GETITEMDATA, CB_FINDSTRINGEXACT, CB_GETLBTEXT,
                      CB_GETLBTEXTLEN, CB_GETCURSEL})
        sequence.Ignore(uMsg);
    EXPECT_TRUE(Key(VK_RETURN));
    EXPECT_TRUE(sequence.Check({
        {"owner", CComboBoxAutoComplete::WM_NEW_RECORD, SEQ_SENT},
        {"combo", CB_SETCURSEL, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 3},
    }));
}
