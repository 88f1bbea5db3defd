#include "tests/grid/GridHost.h"
#include "tests/harness/Input.h"

#include <string>

namespace
{
const UINT kNoChar = static_cast<UINT>(-1);
}

// A shown host: the grid only edits while it can be seen. Rows 1-5 hold "r1".."r5" in column 1.
class CGridEditTest : public CGridNotifyTest
{
protected:
    void SetUp() override
    {
        CreateWatched(6, 3, 1, 0, true);
        m_host.m_parent.SetPayloadSize(GN_EDITBEGIN, sizeof(NMGRIDEDITBEGIN));
        m_host.m_parent.SetPayloadSize(GN_EDITEND, sizeof(NMGRIDEDITEND));
        m_host.m_parent.SetPayloadSize(GN_COMBOSELENDOK, sizeof(NMGRIDCOMBOSEL));
        m_host.SetColumn(1, {"r1", "r2", "r3", "r4", "r5"});
        m_grid.SetFocus();
        // The host hears the end's text only while it is told: keep a copy as a host would.
        m_host.m_parent.SetHandler(GN_EDITEND, [this](NMHDR* pHdr) -> LRESULT {
            NMGRIDEDITEND* pEnd = reinterpret_cast<NMGRIDEDITEND*>(pHdr);
            m_strEndText = pEnd->pszText;
            if (m_nEndAction != GEE_SETTEXT)
                pEnd->nAction = m_nEndAction;
            return m_lEndResult;
        });
        m_host.m_parent.Clear();
    }

    HWND Edit() { return m_grid.GetDefaultEditWnd()->GetSafeHwnd(); }
    HWND Combo() { return ::GetDlgItem(m_grid, CGridList::IDC_GRIDCOMBO); }

    // The host's combo box whose entries the grid copies: Red 10, green 20, Green 30.
    void SetEntries(bool bByData)
    {
        if (m_entries.GetSafeHwnd() == NULL)
            m_entries.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 80, 100), CWnd::FromHandle(m_host.m_parent), 5);
        m_entries.ResetContent();
        const char* texts[] = {"Red", "green", "Green"};
        for (int i = 0; i < 3; ++i)
            m_entries.SetItemData(m_entries.AddString(texts[i]), 10 * (i + 1));
        m_grid.SetFixedCombo(m_entries, bByData);
    }

    CComboBox m_entries;
    std::string m_strEndText;
    int m_nEndAction = GEE_SETTEXT;
    LRESULT m_lEndResult = 0;
};

TEST_F(CGridEditTest, AHostThatRefusesTheBeginLeavesNoEditorAndTheRecordCarriesTheTypedCharacter)
{
    m_host.m_parent.SetReply(GN_EDITBEGIN, 1);
    EXPECT_NE(0, m_grid.OnGridEdit_Begin(2, 1, 0, 2, 'x'));
    EXPECT_FALSE(m_grid.IsEditing() || m_grid.IsAnyEditWindowVisible());
    const NMGRIDEDITBEGIN* pBegin = m_host.m_parent.GetLast<NMGRIDEDITBEGIN>(GN_EDITBEGIN);
    ASSERT_NE(nullptr, pBegin);
    EXPECT_EQ(m_host.m_wndGrid.GetSafeHwnd(), pBegin->hdr.hwndFrom);
    EXPECT_EQ((std::vector<int>{0, 2, 2, 1, 'x', 1}),
              (std::vector<int>{pBegin->nEditType, pBegin->nTrigger, pBegin->row, pBegin->col, pBegin->nChar,
                                pBegin->bInitText}));
    EXPECT_EQ(Edit(), pBegin->hWndEdit);

    // Nothing reaches the host for what cannot be edited: a header cell, an unknown style.
    m_host.m_parent.Clear();
    EXPECT_NE(0, m_grid.OnGridEdit_Begin(0, 1, 0, 2, 'x'));
    EXPECT_NE(0, m_grid.OnGridEdit_Begin(2, 1, 2, 2, 'x'));
    EXPECT_EQ(0, m_host.m_parent.GetCount(GN_EDITBEGIN));
}

TEST_F(CGridEditTest, TheTypedCharacterStartsTheTextEnterTakesItEscapeDropsIt)
{
    ASSERT_EQ(0, m_grid.OnGridEdit_Begin(2, 1, 0, 2, 'q'));
    EXPECT_EQ(Edit(), ::GetFocus());
    EXPECT_EQ("q", CInput::GetText(Edit()));
    EXPECT_EQ(std::make_pair(DWORD(1), DWORD(1)), CInput::GetSel(Edit()));
    CInput::TypeText(Edit(), "z");
    CInput::PressKey(Edit(), VK_RETURN);
    EXPECT_FALSE(m_grid.IsEditing() || ::IsWindowVisible(Edit()));
    EXPECT_EQ(m_grid.GetSafeHwnd(), ::GetFocus());
    EXPECT_STREQ("qz", m_grid.GetText(2, 1));
    const NMGRIDEDITEND* pEnd = m_host.m_parent.GetLast<NMGRIDEDITEND>(GN_EDITEND);
    ASSERT_NE(nullptr, pEnd);
    EXPECT_EQ((std::vector<int>{0, 2, 1, GEE_SETTEXT}),
              (std::vector<int>{pEnd->nEditType, pEnd->row, pEnd->col, pEnd->nAction}));
    EXPECT_EQ("qz", m_strEndText);

    // Without a character the cell's text is there, all of it selected; Escape ends silently.
    m_host.m_parent.Clear();
    ASSERT_EQ(0, m_grid.OnGridEdit_Begin(3, 1, 0, 8, kNoChar));
    EXPECT_EQ("r3", CInput::GetText(Edit()));
    EXPECT_EQ(std::make_pair(DWORD(0), DWORD(2)), CInput::GetSel(Edit()));
    CInput::TypeText(Edit(), "gone");
    CInput::PressKey(Edit(), VK_ESCAPE);
    EXPECT_FALSE(m_grid.IsEditing());
    EXPECT_STREQ("r3", m_grid.GetText(3, 1));
    EXPECT_EQ(0, m_host.m_parent.GetCount(GN_EDITEND));
}

// The edit box opened for the first time shows its text: the text was once put in while the box
// still had no width, which scrolled it out of sight. Inside the border, with the caret hidden,
// the text (or the highlight of its selection) covers part of the field.
TEST_F(CGridEditTest, TheOpenedEditBoxShowsItsText)
{
    m_grid.SetText(2, 1, "WWWW");
    ASSERT_EQ(0, m_grid.OnGridEdit_Begin(2, 1, 0, 8, kNoChar));
    ::HideCaret(Edit());
    CWindowImage image;
    ASSERT_TRUE(image.Capture(Edit()));
    const COLORREF crField = ::GetSysColor(COLOR_WINDOW);
    int nInk = 0;
    for (int y = 2; y < image.GetHeight() - 2; ++y)
        for (int x = 2; x < image.GetWidth() - 2; ++x)
            nInk += image.GetPixel(x, y) != crField;
    EXPECT_GT(nInk, 20);
}

TEST_F(CGridEditTest, TheHostsAnswerToTheEndDecidesTheTextAndWhetherEditingGoesOn)
{
    struct
    {
        LRESULT lResult;
        int nAction;
        const char* pszCell;
        bool bStillEditing;
    } cases[] = {
        {0, GEE_SETTEXT, "new", false}, // taken
        {0, 0, "r1", false},            // the host took the value itself
        {1, GEE_SETTEXT, "r1", false},  // refused
        {1, GEE_KEEPEDITING, "r1", true},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.nAction + 10 * static_cast<int>(c.lResult));
        m_grid.SetText(1, 1, "r1");
        m_lEndResult = c.lResult;
        m_nEndAction = c.nAction;
        ASSERT_EQ(0, m_grid.OnGridEdit_Begin(1, 1, 0, 8, kNoChar));
        CInput::TypeText(Edit(), "new");
        CInput::PressKey(Edit(), VK_RETURN);
        EXPECT_STREQ(c.pszCell, m_grid.GetText(1, 1));
        EXPECT_EQ(c.bStillEditing, m_grid.IsEditing() && ::IsWindowVisible(Edit()));
        EXPECT_EQ(c.bStillEditing ? Edit() : m_grid.GetSafeHwnd(), ::GetFocus());
    }
    // Kept open, a scroll of the grid is held back until the host lets the editor go.
    int nTop = m_grid.GetTopIndex();
    m_grid.SendMessage(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_TRUE(m_grid.IsEditing());
    EXPECT_EQ(nTop, m_grid.GetTopIndex());
    m_lEndResult = 0;
    m_nEndAction = GEE_SETTEXT;
    m_grid.SendMessage(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_FALSE(m_grid.IsEditing());
    EXPECT_STREQ("new", m_grid.GetText(1, 1));
}

TEST_F(CGridEditTest, AHostsOwnEditorIsMovedOverTheCellAndClosesThroughItsKillFocusMessage)
{
    CEdit own;
    ASSERT_TRUE(own.Create(WS_CHILD | ES_AUTOHSCROLL, CRect(0, 0, 10, 10), CWnd::FromHandle(m_host.m_parent), 9));
    m_host.m_parent.SetHandler(GN_EDITBEGIN, [&own](NMHDR* pHdr) -> LRESULT {
        reinterpret_cast<NMGRIDEDITBEGIN*>(pHdr)->hWndEdit = own.GetSafeHwnd();
        return 0;
    });
    ASSERT_EQ(0, m_grid.OnGridEdit_Begin(4, 1, 0, 4, kNoChar));
    EXPECT_EQ(m_grid.GetSafeHwnd(), ::GetParent(own));
    EXPECT_EQ(own.GetSafeHwnd(), ::GetFocus());
    EXPECT_FALSE(::IsWindowVisible(Edit()));
    EXPECT_EQ("r4", CInput::GetText(own));
    CRect rcCell, rcOwn;
    m_grid.GetCellRect(4, 1, rcCell);
    own.GetWindowRect(&rcOwn);
    m_grid.ScreenToClient(&rcOwn);
    EXPECT_EQ(CRect(rcCell.left, rcCell.top, rcCell.right - 1, rcCell.bottom - 1), rcOwn); // less the grid lines

    // Focus that stays inside the editor does not close it.
    EXPECT_EQ(0, m_grid.SendMessage(GM_CUSTOMEDITKILLFOCUS, reinterpret_cast<WPARAM>(own.GetSafeHwnd()), 1));
    EXPECT_TRUE(m_grid.IsEditing());
    own.SetWindowText("mine");
    EXPECT_EQ(1, m_grid.SendMessage(GM_CUSTOMEDITKILLFOCUS, 0, 1));
    EXPECT_FALSE(m_grid.IsEditing() || own.IsWindowVisible());
    EXPECT_STREQ("mine", m_grid.GetText(4, 1));
    own.DestroyWindow();
}

TEST_F(CGridEditTest, TheComboChoosesTheCellsEntryByExactTextOrByData)
{
    struct
    {
        bool bByData;
        const char* pszText;
        DWORD dwData;
        int nEntry;
    } cases[] = {
        {false, "Green", 10, 2}, // the exact text, not the first entry equal but for case
        {false, "Blue", 20, -1},
        {true, "Green", 20, 1},
        {true, "Red", 99, -1},
    };
    m_grid.SetColumnWidth(1, 20);
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        SetEntries(c.bByData);
        m_grid.SetText(2, 1, c.pszText);
        m_grid.SetItemData(2, 1, c.dwData);
        ASSERT_EQ(0, m_grid.OnGridEdit_Begin(2, 1, 1, 4, kNoChar));
        EXPECT_EQ(c.nEntry, ::SendMessage(Combo(), CB_GETCURSEL, 0, 0));
        EXPECT_TRUE(::SendMessage(Combo(), CB_GETDROPPEDSTATE, 0, 0));
        EXPECT_GT(::SendMessage(Combo(), CB_GETDROPPEDWIDTH, 0, 0), 20); // wider than the cell
        CInput::PressKey(Combo(), VK_ESCAPE);
        EXPECT_FALSE(m_grid.IsEditing() || ::IsWindowVisible(Combo()));
        EXPECT_STREQ(c.pszText, m_grid.GetText(2, 1));
    }
    EXPECT_EQ(0, m_host.m_parent.GetCount(GN_EDITEND));

    // An empty combo box opens nothing.
    CComboBox empty;
    m_grid.SetFixedCombo(empty, false);
    EXPECT_NE(0, m_grid.OnGridEdit_Begin(2, 1, 1, 4, kNoChar));
    EXPECT_FALSE(m_grid.IsAnyEditWindowVisible());
}

TEST_F(CGridEditTest, AChosenEntryIsAnnouncedThenEndsTheEditInOrder)
{
    SetEntries(false);
    std::string strChosen;
    m_host.m_parent.SetHandler(GN_COMBOSELENDOK, [&strChosen](NMHDR* pHdr) -> LRESULT {
        strChosen = reinterpret_cast<NMGRIDCOMBOSEL*>(pHdr)->pszText;
        return 0;
    });
    m_grid.SetText(3, 1, "green");
    m_sequence.Clear();
    ASSERT_EQ(0, m_grid.OnGridEdit_Begin(3, 1, 1, 4, kNoChar));
    CInput::PressKey(Combo(), VK_DOWN);
    CInput::PressKey(Combo(), VK_RETURN);
    EXPECT_TRUE(Heard({GN_EDITBEGIN, GN_COMBOSELENDOK, GN_EDITEND}));
    const NMGRIDCOMBOSEL* pSel = m_host.m_parent.GetLast<NMGRIDCOMBOSEL>(GN_COMBOSELENDOK);
    ASSERT_NE(nullptr, pSel);
    EXPECT_EQ((std::vector<int>{3, 1, 2, 30}),
              (std::vector<int>{pSel->row, pSel->col, pSel->nIndex, static_cast<int>(pSel->dwData)}));
    EXPECT_EQ("Green", strChosen);
    const NMGRIDEDITEND* pEnd = m_host.m_parent.GetLast<NMGRIDEDITEND>(GN_EDITEND);
    ASSERT_NE(nullptr, pEnd);
    EXPECT_EQ((std::vector<int>{1, 30}), (std::vector<int>{pEnd->nEditType, static_cast<int>(pEnd->dwData)}));
    EXPECT_EQ("Green", m_strEndText);
    EXPECT_STREQ("Green", m_grid.GetText(3, 1));
    EXPECT_EQ(m_grid.GetSafeHwnd(), ::GetFocus());
}
