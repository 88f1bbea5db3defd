// Where the grid's cells lie, which rows show, the size it fits to, and its scroll partners.
#include "tests/grid/GridHost.h"

TEST_F(CGridWindowTest, CellRectanglesFollowTheColumnsAndTheRowHeightThroughScrolling)
{
    CreateGrid(50, 6, 70, 25, CSize(200, 150));
    m_grid.SetColumnWidth(2, 33);
    m_grid.Scroll(CSize(80, 3 * 25));
    const int nTop = m_grid.GetTopIndex();
    ASSERT_GT(nTop, 0);
    for (int col = 0; col < 6; ++col)
    {
        CRect rcCell;
        ASSERT_TRUE(m_grid.GetCellRect(nTop + 1, col, rcCell));
        CRect rcList;
        m_grid.CListCtrl::GetSubItemRect(nTop + 1, col, LVIR_BOUNDS, rcList);
        // The list view's sub-item 0 is the whole row; the grid's column 0 is its own width.
        if (col == 0)
            rcList.right = rcList.left + 70;
        EXPECT_EQ(rcList, rcCell) << col;
        EXPECT_EQ(CRect(rcCell.left, 25, rcCell.left + m_grid.GetColumnWidth(col), 50), rcCell) << col;
    }
    CRect rcNone;
    EXPECT_FALSE(m_grid.GetCellRect(50, 0, rcNone));
    EXPECT_FALSE(m_grid.GetCellRect(0, 6, rcNone));
    EXPECT_EQ(CSize(5 * 70 + 33, 50 * 25), m_grid.GetGridSize());
    EXPECT_EQ(1, m_grid.GetFirstVisibleCol());
    EXPECT_EQ(4, m_grid.GetLastVisibleCol()); // column 4 starts 3 pixels before the client's right edge

    // A rebuilt grid has the default row height, and its rows are measured again.
    ASSERT_TRUE(m_grid.SetFixedRowCol(5, 2, 0, 0));
    CRect rcRow;
    ASSERT_TRUE(m_grid.GetCellRect(1, 0, rcRow));
    EXPECT_EQ(m_grid.GetRowHeight(), rcRow.Height());
}

TEST_F(CGridWindowTest, LastVisibleRowCountsWholeRowsFromTheScrollPosition)
{
    const struct
    {
        int nRows, bFixedRow, nHeight, nScrollRows;
    } cases[] = {
        {10, 0, 12, 0}, {10, 0, 12, 5}, // a client smaller than a row: the scroll position
        {10, 0, 100, 0}, {10, 0, 100, 7}, {1, 1, 100, 0}, {0, 0, 100, 0},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.nRows << " " << c.nHeight << " " << c.nScrollRows);
        if (m_grid.GetSafeHwnd() != NULL)
            m_grid.DestroyWindow();
        CreateGrid(c.nRows, 2, 50, 20, CSize(150, c.nHeight), c.bFixedRow);
        m_grid.Scroll(CSize(0, c.nScrollRows * 20));
        const int nTop = m_grid.GetTopIndex();
        CRect rcClient;
        m_grid.GetClientRect(&rcClient);
        const bool bNoData = c.nRows <= c.bFixedRow;
        EXPECT_EQ(bNoData ? -1 : nTop, m_grid.GetFirstVisibleRow());
        EXPECT_EQ(bNoData ? -1 : std::min(c.nRows - 1, rcClient.Height() / 20 + nTop), m_grid.GetLastVisibleRow());
    }
}

TEST_F(CGridWindowTest, FitToGridSizesTheWindowWithinItsMaximum)
{
    const int cxBar = ::GetSystemMetrics(SM_CXVSCROLL);
    const int cyBar = ::GetSystemMetrics(SM_CYHSCROLL);
    const struct
    {
        CSize maxSize;
        CSize expected;
    } cases[] = {
        {CSize(300, 300), CSize(120, 200)},
        {CSize(300, 100), CSize(120 + cxBar, 100)}, // too tall: room for the vertical bar
        {CSize(125, 100), CSize(120, 100)},          // too tall, but no room for the bar
        {CSize(100, 300), CSize(100, 200 + cyBar)},  // too wide: the horizontal bar below
    };
    CreateGrid(10, 3, 40, 20, CSize(50, 50));
    for (const auto& c : cases)
    {
        m_grid.FitToGrid(1, c.maxSize);
        CRect rcWindow;
        m_grid.GetWindowRect(&rcWindow);
        EXPECT_EQ(c.expected, rcWindow.Size()) << c.maxSize.cx << "x" << c.maxSize.cy;
    }
}

TEST_F(CGridWindowTest, ScrollPartnersHearTheirBarsOnly)
{
    CreateGrid(100, 3, 40, 20, CSize(100, 100));
    CNotifyRecorder vertical;
    CNotifyRecorder horizontal;
    ASSERT_TRUE(vertical.Create(10, 10) && horizontal.Create(10, 10));
    vertical.RecordMessage(WM_VSCROLL);
    horizontal.RecordMessage(WM_VSCROLL);
    horizontal.RecordMessage(WM_HSCROLL);
    EXPECT_FALSE(m_grid.AddScrollWnd(vertical, 2));
    EXPECT_FALSE(m_grid.AddScrollWnd(NULL, 1));
    EXPECT_TRUE(m_grid.AddScrollWnd(vertical, 3));
    EXPECT_TRUE(m_grid.AddScrollWnd(vertical, 1)); // listed once, its bar updated
    EXPECT_TRUE(m_grid.AddScrollWnd(horizontal, 0));

    m_grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
    m_grid.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0));
    ASSERT_EQ(1u, vertical.GetMessages().size());
    EXPECT_EQ(static_cast<UINT>(WM_VSCROLL), vertical.GetMessages()[0].m_uMsg);
    EXPECT_EQ(static_cast<WPARAM>(SB_LINEDOWN), vertical.GetMessages()[0].m_wParam);
    ASSERT_EQ(1u, horizontal.GetMessages().size());
    EXPECT_EQ(static_cast<UINT>(WM_HSCROLL), horizontal.GetMessages()[0].m_uMsg);
    EXPECT_EQ(1, m_grid.GetTopIndex()) << "the list view scrolls too";

    EXPECT_TRUE(m_grid.DeleteScrollWnd(vertical));
    EXPECT_FALSE(m_grid.DeleteScrollWnd(vertical));
    EXPECT_FALSE(m_grid.SendScrollMsg(1, SB_LINEUP, 0));
}

TEST_F(CGridWindowTest, TheScrollPositionStaysWithinTheRowsAsTheyAndTheWindowChange)
{
    CreateGrid(100, 2, 50, 20, CSize(150, 200));
    m_grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_BOTTOM, 0));
    ASSERT_EQ(100 - m_grid.GetCountPerPage(), m_grid.GetTopIndex());
    // The last row stays at the bottom of the window: the top row, the bar, the cells' places,
    // hit testing and the pixels agree.
    auto expectLastPage = [this]() {
        const int nTop = m_grid.GetRowCount() - m_grid.GetCountPerPage();
        EXPECT_EQ(nTop, m_grid.GetTopIndex());
        EXPECT_EQ(nTop, m_grid.GetScrollPos(SB_VERT));
        CRect rcCell;
        ASSERT_TRUE(m_grid.GetCellRect(nTop, 1, rcCell));
        EXPECT_EQ(0, rcCell.top);
        Cell cell;
        ASSERT_TRUE(m_grid.HitTest(CPoint(60, 5), cell));
        EXPECT_EQ(nTop, cell.row);
        m_grid.SetItemBkColor(nTop, 1, RGB(255, 0, 0));
        EXPECT_EQ(RGB(255, 0, 0), Capture().GetPixel(60, 5));
    };
    for (int i = 0; i < 5; ++i)
        ASSERT_TRUE(m_grid.DeleteRow(m_grid.GetRowCount() - 1));
    expectLastPage();
    m_grid.SetWindowPos(NULL, 0, 0, 150, 300, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    expectLastPage();
}
