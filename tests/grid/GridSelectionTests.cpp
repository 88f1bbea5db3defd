#include "tests/grid/GridHost.h"
#include "tests/harness/ImportRecorder.h"

namespace
{
typedef CGridList::CSelectedCells CSet;

std::vector<Cell> CellsOf(const CSet& set)
{
    std::vector<Cell> cells;
    set.GetCells(cells);
    return cells;
}
} // namespace

TEST(GridSelectedCellsTest, ARectangleWithExclusionsAndSinglesCountsAndMovesWithRows)
{
    CSet set;
    set.SetRect(CRect(1, 2, 2, 3)); // columns 1-2, rows 2-3
    set.Remove(Cell(2, 2));
    set.Add(Cell(0, 0));
    set.Add(Cell(0, 0));
    EXPECT_EQ(4, set.GetCount());
    EXPECT_FALSE(set.IsExactRect());
    EXPECT_EQ((std::vector<Cell>{Cell(0, 0), Cell(2, 1), Cell(3, 1), Cell(3, 2)}), CellsOf(set));

    set.InsertRow(3); // inside: the rectangle grows, the new row is not in the set
    EXPECT_EQ(4, set.GetCount());
    EXPECT_EQ((std::vector<Cell>{Cell(0, 0), Cell(2, 1), Cell(4, 1), Cell(4, 2)}), CellsOf(set));
    set.InsertRow(0);
    EXPECT_EQ((std::vector<Cell>{Cell(1, 0), Cell(3, 1), Cell(5, 1), Cell(5, 2)}), CellsOf(set));

    set.DeleteRow(4);
    set.DeleteRow(1);
    EXPECT_EQ((std::vector<Cell>{Cell(2, 1), Cell(3, 1), Cell(3, 2)}), CellsOf(set));
    set.Add(Cell(2, 2));
    EXPECT_TRUE(set.IsExactRect());
    set.DeleteRow(2);
    set.DeleteRow(2);
    EXPECT_EQ(0, set.GetCount());
    EXPECT_TRUE(set.IsRectEmpty());
}

class CGridSelectionTest : public CGridNotifyTest
{
protected:
    void SetUp() override
    {
        CreateWatched(6, 4, 1, 1);
        m_host.m_parent.Clear();
    }

    const NMGRIDCCP* LastCCP() { return m_host.m_parent.GetLast<NMGRIDCCP>(GN_CCP); }
};

TEST_F(CGridSelectionTest, TheCaretMovesWithACaretChangeThenACellChange)
{
    m_grid.SetCurSel(2, 2, false);
    m_host.m_parent.Clear();
    m_grid.SetEditIconStyle(CGridList::EIS_SHOW | CGridList::EIS_ONFOCUS);
    m_host.m_parent.SetHandler(GN_CARETCHANGE, [](NMHDR* pHdr) -> LRESULT {
        NMGRIDCARETCHANGE* pCaret = reinterpret_cast<NMGRIDCARETCHANGE*>(pHdr);
        pCaret->nEditIcon = -2;
        pCaret->dwEditIconType = 5;
        pCaret->dwEditIconFlag = 1;
        return 1;
    });
    m_sequence.Clear();
    m_grid.RemoveAllSelectedNAddCell(Cell(3, 1));

    EXPECT_TRUE(Heard({GN_CARETCHANGE, GN_CELLCHANGE}));
    EXPECT_EQ(m_host.m_wndGrid.GetSafeHwnd(), m_host.m_parent.GetNotifies().at(0).m_hWndFrom);
    const NMGRIDCARETCHANGE* pCaret = m_host.m_parent.GetLast<NMGRIDCARETCHANGE>(GN_CARETCHANGE);
    ASSERT_NE(nullptr, pCaret);
    EXPECT_EQ(Cell(2, 2), pCaret->oldCell);
    EXPECT_EQ(Cell(3, 1), pCaret->newCell);
    EXPECT_EQ(0xFFFFFFFFu, pCaret->dwEditIconType); // as sent
    EXPECT_EQ(-1, pCaret->nEditIcon);
    EXPECT_EQ(Cell(3, 1), m_host.m_parent.GetLast<NMGRIDCELL>(GN_CELLCHANGE)->cell);
    EXPECT_EQ(Cell(3, 1), m_grid.GetEditIconCell());
    EXPECT_EQ((std::vector<Cell>{Cell(3, 1)}), m_host.Flagged(CGridList::CS_CARET | CGridList::CS_SELECTED));

    // A reply naming an icon the grid cannot show is ignored.
    m_host.m_parent.SetHandler(GN_CARETCHANGE, [](NMHDR* pHdr) -> LRESULT {
        reinterpret_cast<NMGRIDCARETCHANGE*>(pHdr)->nEditIcon = 4;
        return 1;
    });
    m_grid.SetCurCaret(4, 3);
    EXPECT_TRUE(Heard({GN_CARETCHANGE, GN_CELLCHANGE}));
    EXPECT_EQ(Cell(4, 3), m_host.m_parent.GetLast<NMGRIDCELL>(GN_CELLCHANGE)->cell);
    EXPECT_EQ(Cell(), m_grid.GetEditIconCell());
    EXPECT_EQ(1, m_grid.GetSelectedCount()); // Ctrl-style caret move: the selection stays
}

TEST_F(CGridSelectionTest, SelectionModesShapeWhatAClickAndADragSelect)
{
    struct
    {
        DWORD dwStyle;
        int nAfterDrag;
        int nAfterInvert;
    } cases[] = {
        {0, 6, 5},                                           // multiple: 3 rows x 2 columns
        {CGridList::GS_FULLROWSELECT, 9, 6},                 // whole data rows of 3 cells
        {CGridList::GS_SINGLESEL, 1, 0},                     // the drag target alone
        {CGridList::GS_NOSEL, 0, 0},
        {CGridList::GS_LIST | CGridList::GS_FULLROWSELECT, 3, 2}, // rows as their first data cell
    };
    for (const auto& c : cases)
    {
        m_grid.RemoveAllSelection();
        m_grid.ModifyStyle(0xFFFFFFFF, c.dwStyle);
        m_grid.RemoveAllSelectedNAddCell(Cell(1, 2));
        m_grid.SelectDragCells(Cell(1, 2), Cell(3, 3), Cell(1, 2));
        EXPECT_EQ(c.nAfterDrag, m_grid.GetSelectedCount()) << std::hex << c.dwStyle;
        EXPECT_EQ(c.nAfterDrag, static_cast<int>(m_host.Flagged(CGridList::CS_SELECTED).size()));
        EXPECT_EQ(Cell(3, 3), m_grid.GetCaretCell());
        m_grid.InvertSelection(Cell(3, 3));
        EXPECT_EQ(c.nAfterInvert, m_grid.GetSelectedCount()) << std::hex << c.dwStyle;
    }
    m_grid.ModifyStyle(0xFFFFFFFF, 0);
    EXPECT_FALSE(m_grid.SetCellState(Cell(0, 2), CGridList::CSC_SELECT)); // header
    EXPECT_FALSE(m_grid.SetCellState(Cell(2, 2), CGridList::CSC_CUT));    // no cut pending
    EXPECT_FALSE(m_grid.SetCellState(Cell(2, 2), CGridList::CSC_CCPINDEX));
}

TEST_F(CGridSelectionTest, CopyCutAndPasteFollowTheHostsAnswers)
{
    typedef BOOL (CGridList::*PFNCCP)();
    const PFNCCP pfnCopy = &CGridList::OnGCCP_Copy, pfnCut = &CGridList::OnGCCP_Cut, pfnPaste = &CGridList::OnGCCP_Paste;
    const struct
    {
        const char* pszStep;
        Cell select; // selected (and the caret) first, unless none
        PFNCCP pfn;
        LRESULT lReply; // the host's answer to GN_CCP
        BOOL bResult;
        int nAction; // of the one GN_CCP sent, 0 for none
        int nState;
        int nCells; // marked by the pending copy or cut
        Cell source;
    } steps[] = {
        {"cut", Cell(), pfnCut, 1, TRUE, 2, 2, 4, Cell(1, 1)},
        // A rejected copy leaves the cut pending, marks and source as they were.
        {"rejected copy", Cell(3, 3), pfnCopy, 0, FALSE, 1, 2, 4, Cell(1, 1)},
        {"paste of the cut", Cell(), pfnPaste, 1, TRUE, 6, -1, 0, Cell()},
        {"second paste", Cell(), pfnPaste, 1, FALSE, 0, -1, 0, Cell()}, // not even offered
        {"copy", Cell(), pfnCopy, 1, TRUE, 1, 1, 1, Cell(3, 3)},
        {"paste of the copy", Cell(), pfnPaste, 1, TRUE, 5, 1, 1, Cell(3, 3)},
        {"rejected paste", Cell(), pfnPaste, 0, FALSE, 5, 1, 1, Cell(3, 3)},
        {"paste of the copy again", Cell(), pfnPaste, 1, TRUE, 5, 1, 1, Cell(3, 3)},
    };
    m_grid.SetCurSel(1, 1, 2, 2);
    for (const auto& step : steps)
    {
        SCOPED_TRACE(step.pszStep);
        if (step.select != Cell())
            m_grid.SetCurSel(step.select.row, step.select.col, false);
        m_host.m_parent.SetReply(GN_CCP, step.lReply);
        m_host.m_parent.Clear();
        m_sequence.Clear();
        EXPECT_EQ(step.bResult, (m_grid.*step.pfn)());
        EXPECT_TRUE(Heard(step.nAction != 0 ? std::vector<UINT>{GN_CCP} : std::vector<UINT>{}));
        if (step.nAction != 0)
        {
            ASSERT_NE(nullptr, LastCCP());
            EXPECT_EQ(step.nAction, LastCCP()->nAction);
        }
        EXPECT_EQ(step.nState, m_grid.GetCCPState());
        EXPECT_EQ(step.nCells, m_grid.GetCCPArraySize());
        EXPECT_EQ(step.nState == 2 ? step.nCells : 0, static_cast<int>(m_host.Flagged(CGridList::CS_CUT).size()));
        Cell source;
        m_grid.GetCCPCellIndex(source);
        EXPECT_EQ(step.source, source);
        EXPECT_EQ(step.source == Cell() ? std::vector<Cell>{} : std::vector<Cell>{step.source},
                  m_host.Flagged(CGridList::CS_CCPINDEX));
    }
    EXPECT_FALSE(m_grid.SetCellState(Cell(3, 3), CGridList::CSC_CUT)); // a copy marks no cells
}

class CGridMenuTest : public CGridSelectionTest
{
protected:
    void SetUp() override
    {
        CGridSelectionTest::SetUp();
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
        m_grid.EnableCCP(true);
        m_grid.SetCurSel(2, 2, false);
        m_host.m_parent.SetReply(GN_CCP, 1);
        m_sequence.Clear();
    }
    void TearDown() override { CImportRecorder::Get().Uninstall(); }

    const std::vector<CImportRecorder::CPopupMenuCall>& Menus()
    {
        return CImportRecorder::Get().GetRecords().m_popupMenus;
    }
};

TEST_F(CGridMenuTest, TheMenuOffersWhatTheHostAllows)
{
    struct
    {
        int nCopy, nCut, nPaste; // the host's answer; -9 for no answer
        bool bPending;
        std::vector<bool> grayed; // copy, cut, paste
    } cases[] = {
        {-9, -9, -9, false, {false, false, true}},
        {-9, -9, -9, true, {false, false, false}},
        {1, 0, 1, true, {false, true, false}},
        {1, 1, 1, false, {false, false, true}}, // paste needs a pending copy or cut
        {0, 1, 0, true, {true, false, true}},
    };
    for (const auto& c : cases)
    {
        CImportRecorder::Get().ClearRecords();
        CArray<Cell> none;
        m_grid.SetCCP(-1, -1, -1, none);
        if (c.bPending)
        {
            ASSERT_TRUE(m_grid.OnGCCP_Copy());
        }
        m_host.m_parent.SetHandler(GN_CCPMENU, [&c](NMHDR* pHdr) -> LRESULT {
            NMGRIDCCPMENU* pMenu = reinterpret_cast<NMGRIDCCPMENU*>(pHdr);
            if (c.nCopy == -9)
                return 0;
            pMenu->nCopy = c.nCopy;
            pMenu->nCut = c.nCut;
            pMenu->nPaste = c.nPaste;
            return 1;
        });
        m_host.m_parent.Clear();
        m_sequence.Clear();
        ASSERT_TRUE(m_grid.PrepareCCPMenu(Cell(2, 2)));
        EXPECT_TRUE(Heard({GN_CCPMENU}));
        const NMGRIDCCPMENU* pSent = m_host.m_parent.GetLast<NMGRIDCCPMENU>(GN_CCPMENU);
        ASSERT_NE(nullptr, pSent);
        EXPECT_EQ(1, pSent->nCopy);
        EXPECT_EQ(1, pSent->nCut);
        EXPECT_EQ(c.bPending ? 1 : 0, pSent->nPaste);
        ASSERT_TRUE(m_grid.TrackCCPMenu(CPoint(1, 1)));
        EXPECT_TRUE(Heard({})); // the menu closed without a command
        ASSERT_EQ(1u, Menus().size());
        const std::vector<CImportRecorder::CMenuItem>& items = Menus()[0].m_items;
        ASSERT_EQ(4u, items.size());
        EXPECT_EQ("&Copy", items[0].m_strText);
        EXPECT_EQ("&Cut", items[1].m_strText);
        EXPECT_TRUE((items[2].m_uType & MFT_SEPARATOR) != 0);
        EXPECT_EQ("&Paste", items[3].m_strText);
        EXPECT_EQ(4u, items[3].m_uId);
        std::vector<bool> grayed = {(items[0].m_uState & MFS_GRAYED) != 0, (items[1].m_uState & MFS_GRAYED) != 0,
                                    (items[3].m_uState & MFS_GRAYED) != 0};
        EXPECT_EQ(c.grayed, grayed) << c.nCopy << c.nCut << c.nPaste << c.bPending;
    }
}

TEST_F(CGridMenuTest, AllItemsGrayedShowsNoMenuAndAChosenCommandRuns)
{
    m_host.m_parent.SetHandler(GN_CCPMENU, [](NMHDR* pHdr) -> LRESULT {
        NMGRIDCCPMENU* pMenu = reinterpret_cast<NMGRIDCCPMENU*>(pHdr);
        pMenu->nCopy = pMenu->nCut = pMenu->nPaste = 0;
        return 1;
    });
    EXPECT_FALSE(m_grid.PrepareCCPMenu(Cell(2, 2)));
    EXPECT_FALSE(m_grid.TrackCCPMenu(CPoint(1, 1)));
    EXPECT_TRUE(Menus().empty());
    EXPECT_TRUE(Heard({GN_CCPMENU}));

    m_host.m_parent.SetHandler(GN_CCPMENU, [](NMHDR*) -> LRESULT { return 0; });
    CImportRecorder::Get().PushMenuCommand(CGridList::ID_GCCP_CUT);
    ASSERT_TRUE(m_grid.PrepareCCPMenu(Cell(2, 2)));
    CRect rcCaret;
    ASSERT_TRUE(m_grid.GetCellRect(2, 2, rcCaret));
    ASSERT_TRUE(m_grid.TrackCCPMenu(CPoint(rcCaret.right + 5, rcCaret.bottom + 5)));
    ASSERT_EQ(1u, Menus().size());
    CPoint ptExpected(rcCaret.left, rcCaret.top + rcCaret.Height() / 2); // outside the caret cell
    m_grid.ClientToScreen(&ptExpected);
    EXPECT_EQ(ptExpected.x, Menus()[0].m_x);
    EXPECT_EQ(ptExpected.y, Menus()[0].m_y);
    EXPECT_TRUE(Heard({GN_CCPMENU, GN_CCP}));
    EXPECT_EQ(2, m_grid.GetCCPState());
    EXPECT_EQ(2, LastCCP()->nAction);
}
