// The workload generator against the published sample rows; the benchmark checks the whole
// table's size and hash before every run.
#include "bench/GridWorkload.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
std::string Cell(int nRow, int nCol)
{
    char szCell[CGridWorkload::MAX_CELL_LEN + 1];
    CGridWorkload::FormatCell(nRow, nCol, szCell);
    return szCell;
}

TEST(GridWorkload, SampleRowsMatchThePublishedTable)
{
    const struct
    {
        int nRow;
        const char* apszCells[CGridWorkload::COLS];
    } aSamples[] = {
        {0, {"Item 0", "0", "0.00", "00:00:00", "01/01/1950", "red", "red", "red", "red", "red"}},
        {1, {"Item 1", "7919", "1047.29", "00:00:37", "01/14/1950", "cyan", "yellow", "white", "pink", "olive"}},
        {2, {"Item 2", "15838", "2094.58", "00:01:14", "01/27/1950", "black", "brown", "navy", "black", "brown"}},
        {7654, {"Item 7654", "611846", "5957.66", "06:39:58", "07/24/2022", "blue", "navy", "brown", "blue", "navy"}},
        {500000, {"Item 500000", "488123", "5000.00", "02:53:20", "03/20/1958", "red", "red", "red", "red", "red"}},
        {999999, {"Item 999999", "968327", "8952.71", "05:46:03", "05/24/1966", "olive", "pink", "purple", "yellow", "cyan"}},
    };
    for (const auto& sample : aSamples)
        for (int nCol = 0; nCol < CGridWorkload::COLS; ++nCol)
            EXPECT_EQ(sample.apszCells[nCol], Cell(sample.nRow, nCol)) << "row " << sample.nRow << " col " << nCol;
}

TEST(GridWorkload, DatesAtTheEdgesOfLeapYears)
{
    // Row 8423 holds the largest day offset, 36499; rows 33753 and 32294 land on 29 Feb 1952
    // and 1 Mar 2000.
    EXPECT_EQ("12/06/2049", Cell(8423, 4));
    EXPECT_EQ("02/29/1952", Cell(33753, 4));
    EXPECT_EQ("03/01/2000", Cell(32294, 4));
}

TEST(GridWorkload, CellsOutsideTheTableAreEmpty)
{
    char szCell[CGridWorkload::MAX_CELL_LEN + 1] = "x";
    for (const auto& cell : {std::make_pair(-1, 0), std::make_pair(CGridWorkload::ROWS, 0), std::make_pair(0, -1),
                             std::make_pair(0, CGridWorkload::COLS)})
    {
        EXPECT_EQ(-1, CGridWorkload::FormatCell(cell.first, cell.second, szCell));
        EXPECT_STREQ("", szCell);
    }
    EXPECT_EQ(-1, CGridWorkload::FormatCell(0, 0, nullptr));
}
} // namespace
