#include "tests/grid/GridHost.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"

#include "grid/GridFind.h"

namespace
{
// The begin-edit record up to the cell, as the host reads it.
struct CEditBeginHead
{
    NMHDR hdr;
    int nEditType;
    int nTrigger;
    int row;
    int col;
};

const int kRowHeight = 16;
} // namespace

class CGridInputTest : public CGridNotifyTest
{
protected:
    void SetUp() override
    {
        CreateWatched(100, 4, 1, 1);
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
        m_host.m_parent.SetPayloadSize(GN_EDITBEGIN, sizeof(CEditBeginHead));
        m_hGrid = m_grid.GetSafeHwnd();
    }
    void TearDown() override { CImportRecorder::Get().Uninstall(); }

    // Whether the whole row shows.
    bool IsRowShown(int row)
    {
        CRect rect, rcClient;
        m_grid.GetClientRect(&rcClient);
        return m_grid.GetCellRect(row, 1, rect) && rect.top >= rcClient.top && rect.bottom <= rcClient.bottom;
    }

    CPoint CellCentre(int row, int col)
    {
        CRect rect;
        EXPECT_TRUE(m_grid.GetCellRect(row, col, rect));
        return rect.CenterPoint();
    }

    size_t Beeps() const { return CImportRecorder::Get().GetRecords().m_beeps.size(); }

    HWND m_hGrid = NULL;
};

TEST_F(CGridInputTest, ASecondClickEditsOnlyWhenNoDoubleClickFollows)
{
    ::ShowWindow(m_host.m_parent, SW_SHOWNOACTIVATE); // a hidden grid edits nothing
    m_grid.SetGridEditStyle(CGridList::GET_CLICK, CGridList::GES_EDIT);
    m_grid.SetGridEditStyle(CGridList::GET_DBLCLK, CGridList::GES_COMBO); // with no entries: asks, shows nothing
    const CPoint pt = CellCentre(3, 2);
    CInput::Click(m_hGrid, pt.x, pt.y); // makes it the caret: no edit is armed
    m_sequence.Clear();

    // The double click's first press arms the click edit; the double click takes over.
    CInput::DoubleClick(m_hGrid, pt.x, pt.y);
    CInput::PumpMessages(::GetDoubleClickTime() + 200);
    EXPECT_TRUE(Heard({GN_CARETCHANGE, GN_CELLCHANGE, NM_CLICK, NM_DBLCLK, GN_EDITBEGIN}));
    const CEditBeginHead* pBegin = m_host.m_parent.GetLast<CEditBeginHead>(GN_EDITBEGIN);
    ASSERT_NE(nullptr, pBegin);
    EXPECT_EQ(CGridList::GET_DBLCLK, pBegin->nTrigger);
    EXPECT_EQ(CGridList::GES_COMBO, pBegin->nEditType);

    CInput::Click(m_hGrid, pt.x, pt.y);
    EXPECT_TRUE(Heard({GN_CARETCHANGE, GN_CELLCHANGE, NM_CLICK}));
    CInput::PumpMessages(::GetDoubleClickTime() + 200);
    EXPECT_TRUE(Heard({GN_EDITBEGIN}));
    pBegin = m_host.m_parent.GetLast<CEditBeginHead>(GN_EDITBEGIN);
    EXPECT_EQ(CGridList::GET_CLICK, pBegin->nTrigger);
    EXPECT_EQ(CGridList::GES_EDIT, pBegin->nEditType);
    EXPECT_EQ(3, pBegin->row);
    EXPECT_EQ(2, pBegin->col);
    EXPECT_EQ(Cell(3, 2), m_grid.GetEditCell());
}

TEST_F(CGridInputTest, ADragPastTheBottomScrollsAndSelectsUntilTheButtonIsReleased)
{
    const CPoint ptFrom = CellCentre(2, 1);
    CRect rcClient;
    m_grid.GetClientRect(&rcClient);
    const LPARAM lBelow = MAKELPARAM(ptFrom.x + 60, rcClient.bottom + 20);
    ::SendMessage(m_hGrid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(ptFrom.x, ptFrom.y));
    const int nLastShown = m_grid.GetLastVisibleRow();
    ::SendMessage(m_hGrid, WM_MOUSEMOVE, MK_LBUTTON, lBelow);
    EXPECT_EQ(Cell(nLastShown + 1, 2), m_grid.GetCaretCell());
    EXPECT_TRUE(IsRowShown(nLastShown + 1));

    // Held there, the drag goes on scrolling.
    const int nTop = m_grid.GetTopIndex();
    for (int i = 0; i < 40 && m_grid.GetTopIndex() == nTop; ++i)
        CInput::PumpMessages(50);
    ASSERT_GT(m_grid.GetTopIndex(), nTop);
    ::SendMessage(m_hGrid, WM_LBUTTONUP, 0, lBelow);
    const Cell end = m_grid.GetCaretCell();
    EXPECT_TRUE(IsRowShown(end.row) && !IsRowShown(end.row + 1));
    EXPECT_EQ((end.row - 1) * 2, m_grid.GetSelectedCount()); // rows 2 to end, columns 1 and 2
    EXPECT_TRUE(m_grid.IsSelectedItem(end.row, 2) && m_grid.IsSelectedItem(2, 1) && !m_grid.IsSelectedItem(2, 3));

    const int nTopAtRelease = m_grid.GetTopIndex();
    CInput::PumpMessages(200);
    EXPECT_EQ(nTopAtRelease, m_grid.GetTopIndex());
}

TEST_F(CGridInputTest, KeysMoveTheCaretExtendOrKeepTheSelectionAndF3F8GoToTheGridWindow)
{
    m_grid.SetCurSel(5, 2, false);
    const int nPage = m_grid.GetCountPerPage();
    struct
    {
        UINT nKey;
        UINT fModifiers;
        Cell caret;
        int nSelected;
    } cases[] = {
        {VK_DOWN, 0, Cell(6, 2), 1},
        {VK_DOWN, CInput::SHIFT, Cell(7, 2), 2}, // from the anchor
        {VK_DOWN, CInput::CTRL, Cell(8, 2), 2},  // the caret alone
        {VK_RIGHT, 0, Cell(8, 3), 1},
        {VK_RIGHT, 0, Cell(8, 3), 1}, // the last column
        {VK_HOME, 0, Cell(8, 1), 1},
        {VK_END, CInput::CTRL, Cell(99, 1), 1},
        {VK_HOME, CInput::CTRL, Cell(1, 1), 1},
        {VK_UP, 0, Cell(1, 1), 1}, // the header row is not reached
        {VK_NEXT, 0, Cell(1 + nPage, 1), 1},
        {VK_END, 0, Cell(1 + nPage, 3), 1},
    };
    for (const auto& c : cases)
    {
        CInput::PressKey(m_hGrid, c.nKey, c.fModifiers);
        EXPECT_EQ(c.caret, m_grid.GetCaretCell()) << c.nKey << " " << c.fModifiers;
        EXPECT_EQ(c.nSelected, m_grid.GetSelectedCount()) << c.nKey << " " << c.fModifiers;
    }

    m_sequence.Watch(m_host.m_wndGrid.GetSafeHwnd(), "grid window");
    m_sequence.Clear();
    CInput::PressKey(m_hGrid, VK_F3);
    CInput::PressKey(m_hGrid, VK_F8);
    EXPECT_TRUE(m_sequence.Check({
        {"host", WM_NOTIFY, SEQ_SENT | SEQ_LPARAM, 0, NM_KEYDOWN},
        {"grid window", GM_FINDDIALOG, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM | SEQ_LPARAM, 0, 0},
        {"host", WM_NOTIFY, SEQ_SENT | SEQ_LPARAM, 0, NM_KEYDOWN},
        {"grid window", GM_KEYF8, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM | SEQ_LPARAM, 0, 0},
    }));
}

TEST_F(CGridInputTest, TheWheelScrollsLinesButNeverAWholePage)
{
    ASSERT_EQ(3, CGridList::GetNumScrollLines());
    struct
    {
        int nPage; // rows
        int nDelta;
        int nScrolled; // rows down
    } cases[] = {
        {2, -120, 1},  {3, 120, -2},  {4, -120, 3},   {4, -240, 6}, {10, -360, 9},
        {10, -480, 36}, {10, 119, 0}, {10, 4800, -50}, // clamped at the top
    };
    for (const auto& c : cases)
    {
        m_grid.SetWindowPos(NULL, 0, 0, 300, c.nPage * kRowHeight + ::GetSystemMetrics(SM_CYHSCROLL),
                            SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_EQ(c.nPage, m_grid.GetCountPerPage());
        m_grid.Scroll(CSize(0, (50 - m_grid.GetTopIndex()) * kRowHeight));
        ASSERT_EQ(50, m_grid.GetTopIndex());
        CInput::Wheel(m_hGrid, 5, 5, c.nDelta);
        EXPECT_EQ(50 + c.nScrolled, m_grid.GetTopIndex()) << c.nPage << " " << c.nDelta;
    }
}

TEST_F(CGridInputTest, TabMovesTheFocusToTheHostsNextOrPreviousControl)
{
    CWnd* pHost = CWnd::FromHandle(m_host.m_parent);
    CEdit wndBefore, wndAfter;
    ASSERT_TRUE(wndBefore.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 10, 10), pHost, 1));
    ASSERT_TRUE(wndAfter.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 10, 10), pHost, 2));
    // The host's controls in tab order: the grid window, wndBefore, wndAfter.
    for (const auto& c : {std::make_pair(0u, &wndBefore), std::make_pair(UINT(CInput::SHIFT), &wndAfter)})
    {
        m_grid.SetFocus();
        ASSERT_EQ(m_hGrid, ::GetFocus());
        CInput::PressKey(m_hGrid, VK_TAB, c.first);
        EXPECT_EQ(c.second->GetSafeHwnd(), ::GetFocus());
    }
    EXPECT_EQ(0, m_grid.GetSelectedCount());
}

TEST_F(CGridInputTest, CopyCutAndPasteKeysAskTheHostWhichMayVetoWithABeep)
{
    m_grid.EnableCCP(true);
    m_grid.SetCurSel(2, 2, false);
    m_host.m_parent.SetReply(GN_CCP, 1);
    m_host.m_parent.SetPayloadSize(NM_KEYDOWN, sizeof(NMKEY));
    bool bVeto = false;
    m_host.m_parent.SetHandler(GN_CCPMENU, [&bVeto](NMHDR* pHdr) -> LRESULT {
        NMGRIDCCPMENU* pMenu = reinterpret_cast<NMGRIDCCPMENU*>(pHdr);
        if (!bVeto)
            return 0;
        pMenu->nCopy = pMenu->nCut = pMenu->nPaste = 0;
        return 1;
    });
    struct
    {
        UINT nKey;
        UINT fModifiers;
        bool bVeto;
        std::vector<UINT> heard; // after NM_KEYDOWN
        int nAsked[3];           // copy, cut, paste sent with GN_CCPMENU
        int nAction;             // of GN_CCP, 0 for none
        bool bBeep;
    } cases[] = {
        {'V', CInput::CTRL, false, {}, {}, 0, true}, // nothing to paste
        {'C', CInput::CTRL, true, {GN_CCPMENU}, {1, -1, -1}, 0, true},
        {'C', CInput::CTRL, false, {GN_CCPMENU, GN_CCP}, {1, -1, -1}, 1, false},
        {'X', CInput::CTRL, true, {GN_CCPMENU}, {-1, 1, -1}, 0, true},
        {'V', CInput::CTRL, true, {GN_CCPMENU}, {-1, -1, 1}, 0, true},
        {'V', CInput::CTRL, false, {GN_CCPMENU, GN_CCP}, {-1, -1, 1}, 5, false},
        {'C', 0, false, {}, {}, 0, true}, // the letter alone beeps
    };
    for (const auto& c : cases)
    {
        bVeto = c.bVeto;
        m_host.m_parent.Clear();
        m_sequence.Clear();
        const size_t nBeeps = Beeps();
        CInput::PressKey(m_hGrid, c.nKey, c.fModifiers);
        std::vector<UINT> heard = {NM_KEYDOWN};
        heard.insert(heard.end(), c.heard.begin(), c.heard.end());
        EXPECT_TRUE(Heard(heard)) << char(c.nKey) << c.bVeto;
        EXPECT_EQ(c.nKey, m_host.m_parent.GetLast<NMKEY>(NM_KEYDOWN)->nVKey);
        if (!c.heard.empty())
        {
            const NMGRIDCCPMENU* pMenu = m_host.m_parent.GetLast<NMGRIDCCPMENU>(GN_CCPMENU);
            EXPECT_EQ(c.nAsked[0], pMenu->nCopy);
            EXPECT_EQ(c.nAsked[1], pMenu->nCut);
            EXPECT_EQ(c.nAsked[2], pMenu->nPaste);
        }
        if (c.nAction != 0)
        {
            EXPECT_EQ(c.nAction, m_host.m_parent.GetLast<NMGRIDCCP>(GN_CCP)->nAction);
        }
        EXPECT_EQ(c.bBeep ? nBeeps + 1 : nBeeps, Beeps()) << char(c.nKey) << c.bVeto;
    }
}

TEST_F(CGridInputTest, TypeAheadGrowsWithinASecondAndStartsOverAfterAPause)
{
    m_grid.ModifyStyle(0, CGridList::GS_KEYBOARDFIND);
    m_grid.SetText(0, 1, "Name");
    m_host.SetColumn(1, {"nut", "banana", "abc", "bob", "ab"}); // rows 1 to 5
    m_grid.SetCurSel(1, 1, false);
    struct
    {
        const char* pszTyped; // "\x1b" resets the key clock as a pause does
        int nPauseMs;         // before typing
        int nCaretRow;
        bool bBeep;
    } cases[] = {
        {"\x1b" "a", 0, 3, false}, // from the row after the caret
        {"b", 0, 3, false},        // "ab": the row found still matches
        {"b", 1100, 4, false},     // a pause: "b" alone, from the next row
        {"\x1b" "b", 0, 2, false}, // wraps past the header row
        {"\x1b" "n", 0, 2, false}, // the header row matches first: the search stops there
        {"\x1b" "z", 0, 2, true},  // no match: a beep, the selection stays
    };
    for (const auto& c : cases)
    {
        const size_t nBeeps = Beeps();
        if (c.nPauseMs != 0)
            ::Sleep(c.nPauseMs);
        CInput::TypeText(m_hGrid, c.pszTyped);
        EXPECT_EQ(Cell(c.nCaretRow, 1), m_grid.GetCaretCell()) << c.pszTyped;
        EXPECT_EQ(1, m_grid.GetSelectedCount());
        EXPECT_EQ(c.bBeep ? nBeeps + 1 : nBeeps, Beeps()) << c.pszTyped;
    }
}

TEST_F(CGridInputTest, TheFindDialogSearchesRowsColumnsAndCellsAndSaysWhenNothingMatched)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(4, 3, 0, 0));
    CGridList& grid = host.m_grid;
    const char* texts[4][3] = {
        {"red apple", "green", "x"},
        {"blue", "red", "pear"},
        {"apple pie", "yellow", "red pear"},
        {"plum", "", ""},
    };
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 3; ++col)
            grid.SetText(row, col, texts[row][col]);
    grid.SetCurSel(1, 1, false);
    CStringArray names;
    names.Add("Fruit");
    names.Add("Colour");
    ASSERT_TRUE(grid.ShowFindDlg(names));
    CGridFind* pDlg = grid.GetFindDlg();
    ASSERT_NE(nullptr, pDlg);
    const HWND hDlg = pDlg->GetSafeHwnd();
    EXPECT_TRUE(::IsWindowVisible(hDlg));
    EXPECT_EQ("Find", CInput::GetText(hDlg));
    EXPECT_TRUE(::IsDlgButtonChecked(hDlg, IDC_GRIDFIND_FULLROW));
    const HWND hColumns = ::GetDlgItem(hDlg, IDC_GRIDFIND_COLUMNS);
    ASSERT_EQ(3, ::SendMessage(hColumns, CB_GETCOUNT, 0, 0));
    EXPECT_EQ("Fruit", CInput::GetText(hColumns)); // the first chosen
    char szThird[8] = "";
    ::SendMessageA(hColumns, CB_GETLBTEXT, 2, reinterpret_cast<LPARAM>(szThird));
    EXPECT_STREQ("3", szThird);
    EXPECT_FALSE(grid.ShowFindDlg(names)); // already open

    struct
    {
        int nScope;
        int nColumnEntry;
        const char* pszFind;
        Cell found; // (-1, -1): "Unable to find"
    } cases[] = {
        {IDC_GRIDFIND_FULLROW, 0, "red AND pear", Cell(2, 0)},
        {IDC_GRIDFIND_FULLROW, 0, "red AND pear", Cell(1, 0)}, // wraps
        {IDC_GRIDFIND_COLUMN, 2, "pear", Cell(2, 2)},
        {IDC_GRIDFIND_CELL, 0, "red", Cell(0, 0)}, // after the caret, wrapping
        {IDC_GRIDFIND_CELL, 0, "apple NOT red", Cell(2, 0)},
        {IDC_GRIDFIND_CELL, 0, "pie", Cell(2, 0)}, // only the caret cell: found again
        {IDC_GRIDFIND_FULLROW, 0, "grape OR kiwi", Cell()},
    };
    for (const auto& c : cases)
    {
        CImportRecorder::Get().ClearRecords();
        const Cell before = grid.GetCaretCell();
        ::CheckRadioButton(hDlg, IDC_GRIDFIND_FULLROW, IDC_GRIDFIND_COLUMN, c.nScope);
        ::SendMessage(hColumns, CB_SETCURSEL, c.nColumnEntry, 0);
        ::SetDlgItemTextA(hDlg, IDC_GRIDFIND_TEXT, c.pszFind);
        const HWND hFindNext = ::GetDlgItem(hDlg, IDOK);
        ::SendMessage(hDlg, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(hFindNext));
        const std::vector<CImportRecorder::CMessageBoxCall>& boxes = CImportRecorder::Get().GetRecords().m_messageBoxes;
        if (c.found == Cell())
        {
            ASSERT_EQ(1u, boxes.size()) << c.pszFind;
            EXPECT_EQ(std::string("Unable to find ") + c.pszFind + ".", boxes[0].m_strText);
            EXPECT_EQ("Find", boxes[0].m_strCaption);
            EXPECT_EQ(hDlg, boxes[0].m_hWndOwner);
            EXPECT_EQ(before, grid.GetCaretCell());
        }
        else
        {
            EXPECT_TRUE(boxes.empty()) << c.pszFind;
            EXPECT_EQ(c.found, grid.GetCaretCell()) << c.pszFind;
            EXPECT_EQ(1, grid.GetSelectedCount());
        }
    }

    // One dialog in the process: another grid's replaces it.
    CStringArray none;
    ASSERT_TRUE(m_grid.ShowFindDlg(none));
    EXPECT_FALSE(::IsWindow(hDlg));
    EXPECT_EQ(nullptr, grid.GetFindDlg());
    EXPECT_NE(nullptr, m_grid.GetFindDlg());
}
