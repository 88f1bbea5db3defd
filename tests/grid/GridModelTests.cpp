#include "tests/grid/GridHost.h"

#include <string>

TEST(GridModelTest, CreateRefusesImpossibleShapesAndBuildsTheRest)
{
    struct
    {
        int nRows, nCols, bFixedRow, bFixedCol;
        BOOL bOk;
    } cases[] = {{0, 0, 0, 0, TRUE}, {0, 3, 1, 0, FALSE}, {3, 0, 0, 1, FALSE}, {-1, 2, 0, 0, FALSE},
                 {2, -1, 0, 0, FALSE}, {1, 1, 1, 1, TRUE},  {5, 4, 1, 0, TRUE}};
    for (const auto& c : cases)
    {
        CGridHost host;
        ASSERT_TRUE(host.CreateHost(100, 100, false));
        SCOPED_TRACE(testing::Message() << c.nRows << "x" << c.nCols << " fixed " << c.bFixedRow << c.bFixedCol);
        EXPECT_EQ(c.bOk, host.CreateGrid(c.nRows, c.nCols, c.bFixedRow, c.bFixedCol, CSize(100, 100)));
        if (!c.bOk)
            continue;
        EXPECT_EQ(c.nRows, host.m_grid.GetItemCount());
        EXPECT_EQ(c.nCols, host.m_grid.GetHeaderCtrl()->GetItemCount());
        EXPECT_EQ(int(CGridHost::LIST_ID), host.m_grid.GetDlgCtrlID());
        EXPECT_EQ(UINT(CGridHost::LIST_ID), host.m_grid.GetID());
        EXPECT_TRUE((host.m_grid.CWnd::GetStyle() & LVS_OWNERDATA) != 0);
    }
}

TEST(GridModelTest, TheEditorsCarryTheListsFontAndTheEditsLimit)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(3, 3, 0, 0));
    CWnd* pCombo = host.m_grid.GetDlgItem(CGridList::IDC_GRIDCOMBO);
    CEdit* pEdit = static_cast<CEdit*>(host.m_grid.GetDlgItem(CGridList::IDC_GRIDEDIT));
    ASSERT_NE(nullptr, pCombo);
    ASSERT_NE(nullptr, pEdit);
    EXPECT_EQ(255u, pEdit->GetLimitText());
    LOGFONT lfList, lfCombo, lfEdit;
    ASSERT_NE(0, host.m_grid.GetFont()->GetLogFont(&lfList));
    ASSERT_NE(0, pCombo->GetFont()->GetLogFont(&lfCombo));
    ASSERT_NE(0, pEdit->GetFont()->GetLogFont(&lfEdit));
    EXPECT_EQ(lfList.lfHeight, lfCombo.lfHeight);
    EXPECT_EQ(abs(lfList.lfHeight), abs(lfEdit.lfHeight)); // the same point size
    EXPECT_STREQ(lfList.lfFaceName, lfEdit.lfFaceName);
}

TEST(GridModelTest, TextsAreStoredUpToTheirLimitAndRowsStayEmptyUntilWritten)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(4, 3, 1, 0));
    EXPECT_EQ(0u, host.m_grid.GetItemDataPtr(2));
    EXPECT_EQ(0xFFFFFFFFu, host.m_grid.GetItemData(2, 1));
    EXPECT_EQ(0u, host.m_grid.GetItemDataPtr(2)); // reading creates nothing

    std::string strLimit(65534, 'x');
    struct
    {
        const char* pszText;
        std::string strExpected;
    } cases[] = {{"header", "header"}, {strLimit.c_str(), strLimit}, {nullptr, ""}, {"short", "short"}};
    for (const auto& c : cases)
    {
        ASSERT_TRUE(host.m_grid.SetText(0, 1, c.pszText, true));
        EXPECT_EQ(c.strExpected, host.m_grid.GetText(0, 1));
    }
    std::string strTooLong(65535, 'y');
    ASSERT_TRUE(host.m_grid.SetText(1, 2, "before", true));
    ASSERT_TRUE(host.m_grid.SetText(1, 2, strTooLong.c_str(), true));
    EXPECT_STREQ("", host.m_grid.GetText(1, 2));
    EXPECT_FALSE(host.m_grid.SetText(4, 0, "x", true));
    EXPECT_STREQ("", host.m_grid.GetText(-1, 0));

    // A text may be set from the cell's own buffer.
    ASSERT_TRUE(host.m_grid.SetText(2, 0, "a longer text", true));
    ASSERT_TRUE(host.m_grid.SetText(2, 0, host.m_grid.GetText(2, 0) + 2, true));
    EXPECT_STREQ("longer text", host.m_grid.GetText(2, 0));

    EXPECT_FALSE(host.m_grid.SetItemData(0, 1, 5)); // header cell
    EXPECT_TRUE(host.m_grid.SetItemData(3, 1, 5));
    EXPECT_EQ(5u, host.m_grid.GetItemData(3, 1));
    EXPECT_EQ(0xFFFFFFFFu, host.m_grid.GetItemData(3, 2));

    // A deleted row's record and text slots are reused: the next row written starts empty, and
    // the row below keeps its values.
    ASSERT_TRUE(host.m_grid.SetText(2, 2, "gone", true));
    ASSERT_TRUE(host.m_grid.DeleteRow(2, true));
    ASSERT_EQ(2, host.m_grid.InsertRow(2, true));
    ASSERT_TRUE(host.m_grid.SetText(2, 1, "new", true));
    EXPECT_STREQ("new", host.m_grid.GetText(2, 1));
    EXPECT_STREQ("", host.m_grid.GetText(2, 2));
    EXPECT_EQ(5u, host.m_grid.GetItemData(3, 1));
}

TEST(GridModelTest, StylesThatTheGridDoesNotAllowResetTheWholeStyle)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(3, 3, 0, 0));
    struct
    {
        DWORD dwAdd;
        DWORD dwExpected;
    } cases[] = {
        {0x001 | 0x002, 0},              // single and no selection
        {0x001 | 0x008, 0},              // single full-row outside list style
        {0x001 | 0x008 | 0x004, 0x00D},  // single full-row in list style
        {0x002 | 0x001 | 0x008, 0},      // both modes
        {0x008 | 0x080, 0x088},          // multiple full-row
        {0x002 | 0x008, 0x00A},
    };
    for (const auto& c : cases)
    {
        host.m_grid.ModifyStyle(0xFFFFFFFF, c.dwAdd);
        EXPECT_EQ(c.dwExpected, host.m_grid.GetStyle()) << std::hex << c.dwAdd;
    }
    host.m_grid.ModifyStyle(0xFFFFFFFF, CGridList::GS_SINGLESEL | CGridList::GS_FULLROWSELECT | CGridList::GS_LIST);
    host.m_grid.ModifyStyle(CGridList::GS_LIST, 0); // would be single full-row outside list style
    EXPECT_EQ(0u, host.m_grid.GetStyle());
}

TEST(GridModelTest, FormatsFollowTheirPrecedence)
{
    // Draw formats read back as public codes (0 left, 1 right, 2 centre).
    enum Step
    {
        COLUMN,
        ROW,
        CELL,
        ALL_COLUMNS,
    };
    struct
    {
        int bFixedRow, bFixedCol;
        std::vector<std::pair<Step, long>> steps;
        long nExpected;
    } cases[] = {
        {0, 1, {{COLUMN, 2}, {ROW, 1}}, 1}, // row headers only: the row outranks the column
        {1, 0, {{COLUMN, 2}, {ROW, 1}}, 2}, // column headers only: the column outranks the row
        {1, 0, {{ROW, 1}, {COLUMN, 2}}, 2},
        {0, 0, {{ROW, 1}, {COLUMN, 2}}, 1},
        {1, 1, {{COLUMN, 2}, {ROW, 1}}, 1},
        {0, 0, {{CELL, 0}, {ALL_COLUMNS, 2}, {ROW, 1}}, 0}, // the cell's own format outranks both
        {0, 0, {{ALL_COLUMNS, 2}}, 2},
    };
    for (const auto& c : cases)
    {
        CGridHost host;
        ASSERT_TRUE(host.Create(3, 3, c.bFixedRow, c.bFixedCol));
        for (const auto& step : c.steps)
        {
            BOOL bOk = step.first == COLUMN ? host.m_grid.SetColumnTextFormat(1, step.second)
                       : step.first == ROW  ? host.m_grid.SetRowTextFormat(1, step.second)
                       : step.first == CELL ? host.m_grid.SetCellTextFormat(1, 1, step.second)
                                            : host.m_grid.SetColumnTextFormat(-1, step.second);
            ASSERT_TRUE(bOk);
        }
        EXPECT_EQ(c.nExpected, host.m_grid.GetCellTextDrawFormat(1, 1)) << c.bFixedRow << c.bFixedCol;
    }

    CGridHost host;
    ASSERT_TRUE(host.Create(3, 3, 0, 0));
    EXPECT_FALSE(host.m_grid.SetCellTextFormat(1, 1, 3));
    EXPECT_EQ(-1, host.m_grid.GetCellTextFormat(1, 1));
    EXPECT_EQ(0, host.m_grid.GetCellTextDrawFormat(1, 1));
    ASSERT_TRUE(host.m_grid.SetCellTextFormat(1, 1, LVCFMT_RIGHT));
    EXPECT_EQ(DT_RIGHT, host.m_grid.GetCellTextDrawFormat_DT(1, 1));
    ASSERT_TRUE(host.m_grid.SetCellTextDrawFormat(1, 1, LVCFMT_CENTER, CGridList::CELLFMT_ROW, true));
    EXPECT_EQ(DT_CENTER, host.m_grid.GetCellTextDrawFormat_DT(1, 1));
    EXPECT_EQ(LVCFMT_RIGHT, host.m_grid.GetCellTextFormat(1, 1)); // forcing keeps the cell's own
}

TEST(GridModelTest, ImagesAndEditIconsRefuseWhatTheyCannotShow)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(3, 3, 1, 0));
    EXPECT_FALSE(host.m_grid.SetCellImage(1, 1, 0, -1)); // no image list yet
    CImageList images;
    ASSERT_TRUE(images.Create(8, 8, ILC_COLOR24, 2, 0));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(16, 8, 1, 24, nullptr));
    ASSERT_EQ(0, images.Add(&bitmap, RGB(0, 0, 0)));
    host.m_grid.SetImageList(&images, LVSIL_SMALL);
    EXPECT_FALSE(host.m_grid.SetCellImage(1, 1, 1, 0));  // placement 0
    EXPECT_FALSE(host.m_grid.SetCellImage(1, 1, 2, -1)); // beyond the list
    EXPECT_FALSE(host.m_grid.SetCellImage(0, 1, 1, -1)); // header cell
    ASSERT_TRUE(host.m_grid.SetCellImage(1, 1, 1, CGridList::IMAGE_AFTER_TEXT));
    ASSERT_TRUE(host.m_grid.SetCellTextFormat(1, 1, LVCFMT_CENTER));
    ASSERT_TRUE(host.m_grid.SetCellImage(1, 1, 0, -1));
    EXPECT_EQ(0, host.m_grid.GetCellImage(1, 1));
    EXPECT_EQ(CGridList::IMAGE_AFTER_TEXT, host.m_grid.GetCellImagePlacement(1, 1));
    EXPECT_EQ(LVCFMT_CENTER, host.m_grid.GetCellTextDrawFormat(1, 1));

    struct
    {
        int nIcon;
        DWORD dwFlag;
        BOOL bOk;
    } icons[] = {{-2, 1, TRUE}, {-3, 0, TRUE}, {-1, 1, TRUE}, {-4, 0, FALSE}, {0, 0, FALSE}, {-2, 2, FALSE}};
    for (const auto& c : icons)
        EXPECT_EQ(c.bOk, host.m_grid.SetCellEditIcon(2, 1, c.nIcon, 7, c.dwFlag)) << c.nIcon << "/" << c.dwFlag;
    EXPECT_EQ(-1, host.m_grid.GetCellEditIcon(2, 1));
    EXPECT_EQ(0u, host.m_grid.GetCellEditIconFlag(2, 1)); // forced to 0 without an icon
    EXPECT_FALSE(host.m_grid.SetCellEditIcon(0, 1, -2, 7, 0));
    host.m_grid.SetImageList(nullptr, LVSIL_SMALL);
}

TEST(GridModelTest, RowsInsertedAndDeletedCarryTheMarksAlong)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(6, 3, 1, 0));
    host.m_grid.SetCurSel(4, 2, false);
    host.m_grid.Add2CurSel(2, 1);
    host.m_grid.SetEditIconStyle(CGridList::EIS_SHOW);
    ASSERT_TRUE(host.m_grid.OnGCCP_Cut() == FALSE); // the host (reply 0) refuses
    host.m_parent.SetReply(GN_CCP, 1);
    ASSERT_TRUE(host.m_grid.OnGCCP_Cut());

    EXPECT_EQ(3, host.m_grid.InsertRow(3, true));
    EXPECT_EQ(7, host.m_grid.GetItemCount());
    EXPECT_EQ(Cell(5, 2), host.m_grid.GetCaretCell());
    EXPECT_EQ(Cell(5, 2), host.m_grid.GetAnchorCell());
    std::vector<Cell> expected = {Cell(2, 1), Cell(5, 2)};
    EXPECT_EQ(expected, host.Flagged(CGridList::CS_SELECTED));
    EXPECT_EQ(expected, host.Flagged(CGridList::CS_CUT));
    Cell source;
    EXPECT_TRUE(host.m_grid.GetCCPCellIndex(source));
    EXPECT_EQ(Cell(5, 2), source);
    CArray<Cell> cells;
    host.m_grid.GetSelectionArray(cells);
    ASSERT_EQ(2, cells.GetSize());
    EXPECT_EQ(Cell(5, 2), cells[1]);

    ASSERT_TRUE(host.m_grid.DeleteRow(5, true));
    EXPECT_EQ(Cell(), host.m_grid.GetCaretCell());
    EXPECT_EQ(1, host.m_grid.GetSelectedCount());
    EXPECT_EQ(1, host.m_grid.GetCCPArraySize());
    EXPECT_FALSE(host.m_grid.GetCCPCellIndex(source));
    EXPECT_FALSE(host.m_grid.DeleteRow(6, true));

    EXPECT_TRUE(host.m_grid.IsHdrCell(0, 1));
    ASSERT_TRUE(host.m_grid.DeleteRow(0, true));
    EXPECT_FALSE(host.m_grid.IsFixedRow());
    EXPECT_EQ(expected[0].row - 1, host.Flagged(CGridList::CS_SELECTED).at(0).row);
}

TEST(GridModelTest, InsertingARowRepaintsOnlyTheRowsBelowIt)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(100, 3, 0, 0, true));
    host.m_grid.UpdateWindow();
    CRect rcRow;
    ASSERT_TRUE(host.m_grid.CListCtrl::GetItemRect(5, &rcRow, LVIR_BOUNDS));
    host.m_grid.InsertRow(5, true);
    CRect rcUpdate;
    ASSERT_TRUE(::GetUpdateRect(host.m_grid.GetSafeHwnd(), &rcUpdate, FALSE));
    EXPECT_EQ(rcRow.top, rcUpdate.top);
    host.m_grid.UpdateWindow();
    host.m_grid.InsertRow(200, true); // beyond the visible rows: nothing on screen moves
    EXPECT_FALSE(::GetUpdateRect(host.m_grid.GetSafeHwnd(), &rcUpdate, FALSE));
    EXPECT_EQ(102, host.m_grid.GetItemCount());
}
