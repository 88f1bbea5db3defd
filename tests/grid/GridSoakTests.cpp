#include "tests/grid/GridHost.h"

#include <random>

namespace
{
// The model's promises, checked after every operation: each set counts exactly its flagged
// cells, the caret is flagged once and where the grid says, and every remembered cell is in
// the grid (or none).
::testing::AssertionResult CheckInvariants(CGridHost& host)
{
    CGridList& grid = host.m_grid;
    auto inside = [&grid](const Cell& cell) { return cell == Cell() || grid.IsNonHdrCell(cell); };
    size_t nSelected = 0, nCut = 0;
    std::vector<Cell> carets;
    for (int row = 0; row < grid.GetRowCount(); ++row)
        for (int col = 0; col < grid.GetColCount(); ++col)
        {
            DWORD dwState = grid.GetCellState(row, col);
            nSelected += (dwState & CGridList::CS_SELECTED) != 0;
            nCut += (dwState & CGridList::CS_CUT) != 0;
            if ((dwState & CGridList::CS_CARET) != 0)
                carets.push_back(Cell(row, col));
        }
    Cell source;
    grid.GetCCPCellIndex(source);
    if (nSelected != static_cast<size_t>(grid.GetSelectedCount()))
        return ::testing::AssertionFailure() << "selected " << nSelected << " flagged, set " << grid.GetSelectedCount();
    if (nCut != (grid.GetCCPState() == 2 ? static_cast<size_t>(grid.GetCCPArraySize()) : 0))
        return ::testing::AssertionFailure() << "cut " << nCut << " flagged, set " << grid.GetCCPArraySize();
    if (carets.size() != (grid.GetCaretCell() == Cell() ? 0u : 1u) ||
        (!carets.empty() && carets[0] != grid.GetCaretCell()))
        return ::testing::AssertionFailure() << carets.size() << " cells flagged as caret";
    if (!inside(grid.GetAnchorCell()) || !inside(source) || !inside(grid.GetEditIconCell()))
        return ::testing::AssertionFailure() << "a remembered cell left the grid";
    if (grid.GetItemCount() != grid.GetRowCount())
        return ::testing::AssertionFailure() << "the list view counts " << grid.GetItemCount() << " rows";
    return ::testing::AssertionSuccess();
}
} // namespace

TEST(GridSoakTest, RandomOperationsKeepTheModelConsistent)
{
    const unsigned nSeed = 7;
    std::mt19937 random(nSeed);
    auto pick = [&random](int n) { return n <= 0 ? 0 : static_cast<int>(random() % static_cast<unsigned>(n)); };
    CGridHost host;
    ASSERT_TRUE(host.Create(10, 8, 1, 0));
    CGridList& grid = host.m_grid;
    // The list view lays out its scroll bars again at every change of its row count, half a
    // millisecond under Wine; a host loading rows in bulk turns that off the same way, and the
    // soak is about the grid's model.
    grid.SetRedraw(FALSE);
    host.m_parent.SetHandler(GN_CCP, [&pick](NMHDR*) -> LRESULT { return pick(4) != 0; });
    host.m_parent.SetHandler(GN_CARETCHANGE, [&pick](NMHDR* pHdr) -> LRESULT {
        reinterpret_cast<NMGRIDCARETCHANGE*>(pHdr)->nEditIcon = static_cast<short>(-3 + pick(3));
        return 1;
    });
    grid.SetEditIconStyle(CGridList::EIS_SHOW | CGridList::EIS_ONFOCUS);
    const DWORD styles[] = {0, CGridList::GS_FULLROWSELECT, CGridList::GS_SINGLESEL,
                            CGridList::GS_LIST | CGridList::GS_FULLROWSELECT, CGridList::GS_NOSEL};
    for (int nOp = 0; nOp < 100000; ++nOp)
    {
        int nRows = grid.GetRowCount();
        Cell cell(1 + pick(nRows - 1), pick(grid.GetColCount()));
        int nKind = pick(12);
        switch (nKind)
        {
        case 0:
            if (nRows < 30)
                grid.InsertRow(pick(nRows + 1), true);
            break;
        case 1:
            if (nRows > 3)
                grid.DeleteRow(1 + pick(nRows - 1), true);
            break;
        case 2:
            grid.SetText(cell.row, cell.col, std::to_string(pick(50)).c_str(), true);
            break;
        case 3:
            grid.RemoveAllSelectedNAddCell(cell);
            break;
        case 4:
            grid.InvertSelection(cell);
            break;
        case 5:
            grid.SelectDragCells(grid.GetAnchorCell(), cell, grid.GetCaretCell());
            break;
        case 6:
            grid.OnGCCP_Copy();
            break;
        case 7:
            grid.OnGCCP_Cut();
            break;
        case 8:
            grid.OnGCCP_Paste();
            break;
        case 9:
            grid.ListSort(pick(grid.GetColCount()), static_cast<short>(pick(6)), pick(2) != 0);
            break;
        case 10:
            grid.SetCurCaret(cell.row, cell.col);
            break;
        default:
            if (pick(50) == 0)
                grid.ModifyStyle(0xFFFFFFFF, styles[pick(5)]);
            else
                grid.SetCurSel(cell.row, cell.col, 1 + pick(nRows - 1), pick(grid.GetColCount()));
            break;
        }
        if (nOp % 1000 == 0)
            host.m_parent.Clear();
        ASSERT_TRUE(CheckInvariants(host)) << "seed " << nSeed << ", operation " << nOp << " (kind " << nKind << ")";
    }
}
