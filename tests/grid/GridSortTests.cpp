#include "tests/grid/GridHost.h"

#include <climits>
#include <random>

namespace
{
typedef int (*PFNCOMPARE)(const void*, const void*, void*);
const PFNCOMPARE kComparators[] = {CGridList::CompareTextAscending,    CGridList::CompareTextDescending,
                                   CGridList::CompareNumbersAscending, CGridList::CompareNumbersDescending,
                                   CGridList::CompareTimeAscending,    CGridList::CompareTimeDescending};

std::vector<DWORD_PTR> Records(CGridList& grid)
{
    std::vector<DWORD_PTR> records;
    for (int row = grid.GetFirstDataRow(); row < grid.GetRowCount(); ++row)
        records.push_back(grid.GetItemDataPtr(row));
    return records;
}
} // namespace

TEST(GridSortTest, EachTypeOrdersItsWayAndRefusedGridsOrKeptBlankRowsStay)
{
    struct
    {
        int bFixedRow, bFixedCol;
        short nType;
        bool bKeepEmpty;
        std::vector<std::string> texts, sorted; // one row each after the fixed row
    } cases[] = {
        {1, 0, 2, false, {"10", "9", "abc", "-5", " +7x"}, {"-5", "abc", " +7x", "9", "10"}},
        {1, 0, 3, false, {"1", "3", "2"}, {"3", "2", "1"}},
        {1, 0, 4, false, {"10:00", "9:05", "0:30"}, {"0:30", "9:05", "10:00"}},
        {1, 0, 0, false, {"b", "_z", "a", "B1"}, {"_z", "a", "b", "B1"}}, // '_' before the letters
        {1, 0, 1, false, {"a", "C", "b"}, {"C", "b", "a"}},
        // The difference 2147483647 - (-1) wraps to a negative number, so 2147483647 does not
        // count as the greater of the two; and the wrapped difference negated stays negative.
        {1, 0, 2, false, {"2147483647", "-1"}, {"2147483647", "-1"}},
        {1, 0, 3, false, {"-1", "2147483647"}, {"-1", "2147483647"}},
        {0, 1, 0, false, {"b", "a", "c"}, {"b", "a", "c"}}, // row headers: never sorted
        {1, 0, 0, false, {}, {}},
        {0, 0, 0, true, {"b", "", "a", "", ""}, {"", "a", "b", "", ""}},
        {0, 0, 0, false, {"b", "", "a", ""}, {"", "", "a", "b"}},
        {0, 0, 6, false, {"b", "a", "c"}, {"b", "a", "c"}}, // no such type
    };
    for (const auto& c : cases)
    {
        CGridHost host;
        ASSERT_TRUE(host.Create(static_cast<int>(c.texts.size()) + c.bFixedRow, 2, c.bFixedRow, c.bFixedCol));
        host.SetColumn(1, c.texts);
        host.m_grid.ListSort(1, c.nType, c.bKeepEmpty);
        EXPECT_EQ(c.sorted, host.Column(1)) << "type " << c.nType << ", fixed " << c.bFixedRow << c.bFixedCol;
    }
    CGridHost host;
    ASSERT_TRUE(host.Create(3, 2, 0, 0));
    host.SetColumn(1, {"b", "a", "c"});
    GridSortCol badKeys[] = {GridSortCol(1, 0), GridSortCol(2, 0)};
    host.m_grid.ListSort(badKeys, 2, false);
    host.m_grid.ListSort(nullptr, 1, false);
    EXPECT_EQ((std::vector<std::string>{"b", "a", "c"}), host.Column(1));
}

TEST(GridSortTest, ComparatorsTieOnTextCaseAndFallToTheNextKey)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(2, 3, 0, 0));
    host.SetColumn(0, {"apple", "APPLE"});
    host.SetColumn(1, {"2", "1"});
    CGridList::CItemData* records[] = {host.m_grid.GetItemData(0, false), host.m_grid.GetItemData(1, false)};
    GridSortCol keys[] = {GridSortCol(0, 0), GridSortCol(1, 2)};
    CGridList::CSortContext byColumn = {nullptr, 0};
    CGridList::CSortContext byKeys = {keys, 2};
    EXPECT_EQ(0, CGridList::CompareTextAscending(&records[0], &records[1], &byColumn));
    EXPECT_GT(CGridList::CompareTextAscending(&records[0], &records[1], &byKeys), 0);
    GridSortCol unknown[] = {GridSortCol(0, 0), GridSortCol(1, 9)};
    EXPECT_EQ(-1, CGridList::CompareSecondaryCols(records[1], records[0], unknown, 2));
    byColumn.nCount = 1; // a column index in the count field
    EXPECT_GT(CGridList::CompareNumbersAscending(&records[0], &records[1], &byColumn), 0);
}

TEST(GridSortTest, MarksFollowTheirRowsAndWholeColumnsStay)
{
    CGridHost host;
    ASSERT_TRUE(host.Create(5, 3, 1, 0));
    host.SetColumn(0, {"d", "c", "b", "a"});
    host.m_parent.SetReply(GN_CCP, 1);
    host.m_grid.SetCurSel(1, 1, false); // row "d"
    ASSERT_TRUE(host.m_grid.OnGCCP_Cut());
    host.m_grid.SetCurSel(1, 2, 4, 2); // the whole data column 2
    host.m_grid.SetCurCaret(2, 0);      // row "c"
    host.m_grid.ListSort(0, short(0), false);

    EXPECT_EQ((std::vector<std::string>{"a", "b", "c", "d"}), host.Column(0));
    EXPECT_EQ(Cell(3, 0), host.m_grid.GetCaretCell());
    EXPECT_EQ(Cell(3, 0), host.m_grid.GetAnchorCell());
    EXPECT_EQ((std::vector<Cell>{Cell(4, 1)}), host.Flagged(CGridList::CS_CUT));
    Cell source;
    ASSERT_TRUE(host.m_grid.GetCCPCellIndex(source));
    EXPECT_EQ(Cell(4, 1), source);
    EXPECT_EQ(1, host.m_grid.GetCCPArraySize());
    EXPECT_TRUE(host.m_grid.GetSelectedCells()->IsExactRect());
    EXPECT_EQ(CRect(2, 1, 2, 4), host.m_grid.GetSelectedCells()->GetRect());
}

TEST(GridSortTest, MoveRowinSortShiftsTheRowsBetween)
{
    struct
    {
        int nTo, nFrom;
        std::vector<std::string> result;
    } cases[] = {{2, 0, {"B", "A", "C", "D"}},
                 {0, 3, {"D", "A", "B", "C"}},
                 {1, 1, {"A", "B", "C", "D"}},
                 {-1, 2, {"A", "B", "C", "D"}}};
    for (const auto& c : cases)
    {
        CGridHost host;
        ASSERT_TRUE(host.Create(4, 1, 0, 0));
        host.SetColumn(0, {"A", "B", "C", "D"});
        host.m_grid.MoveRowinSort(c.nTo, c.nFrom);
        EXPECT_EQ(c.result, host.Column(0)) << c.nTo << "<-" << c.nFrom;
        EXPECT_EQ(4, host.m_grid.GetRowCount());
    }
}

// ListSort's fast path must give the very permutation that HeapSort with the comparators gives.
TEST(GridSortTest, TheFastPathOrdersAsTheHeapSortWithTheComparators)
{
    const unsigned nSeed = 20240607;
    std::mt19937 random(nSeed);
    auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const char* numbers[] = {"0", "-0", "17", "-17", " 42", "\t-3x", "+8", "2147483647", "-2147483648",
                             "2147483648", "4294967297", "99999999999", "-99999999999", "abc", "", "12:30"};
    const char* words[] = {"red", "Red", "RED", "a_b", "aB", "ab_", "magenta", "MAGENTA-x", "magentas",
                           "longer text here", "longer TEXT", "", "_", "!", "zz", "Zz9"};
    const int nRows = 400, nCols = 4;
    for (int nRound = 0; nRound < 18; ++nRound)
    {
        CGridHost host;
        ASSERT_TRUE(host.Create(nRows, nCols, nRound % 2, 0));
        for (int row = host.m_grid.GetFirstDataRow(); row < nRows; ++row)
            for (int col = 0; col < nCols; ++col)
            {
                int nKind = pick(3);
                std::string text = nKind == 0   ? numbers[pick(16)]
                                   : nKind == 1 ? std::to_string(pick(24)) + ":" + std::to_string(pick(60))
                                                : words[pick(16)];
                if (pick(8) != 0)
                    host.m_grid.SetText(row, col, text.c_str(), true);
            }
        std::vector<GridSortCol> keys;
        for (int k = 0, nKeys = 1 + pick(3); k < nKeys; ++k)
            keys.push_back(GridSortCol(pick(nCols), static_cast<short>(pick(6))));
        // Every third grid sorts first by a column of distinct values, so that no rows tie; in
        // every sixth two of them lie so far apart that the numbers' difference wraps.
        if (nRound % 3 == 2)
            for (int row = host.m_grid.GetFirstDataRow(); row < nRows; ++row)
            {
                int nValue = row * 7919 % 1000003 - 500000;
                if (nRound % 6 == 5 && row < 2)
                    nValue = row == 0 ? INT_MAX : -2;
                std::string text = std::to_string(nValue);
                if (keys[0].nSortType < 2)
                    text = (pick(2) != 0 ? "Same Long Prefix " : "same long PREFIX ") + text;
                host.m_grid.SetText(row, keys[0].nCol, text.c_str(), true);
            }
        std::vector<DWORD_PTR> expected = Records(host.m_grid);
        CGridList::CSortContext context = {keys.data(), static_cast<INT_PTR>(keys.size())};
        HeapSort(reinterpret_cast<CGridList::CItemData**>(expected.data()), static_cast<unsigned>(expected.size()),
                 kComparators[keys[0].nSortType], &context);
        host.m_grid.ListSort(keys.data(), static_cast<int>(keys.size()), false);
        ASSERT_EQ(expected, Records(host.m_grid)) << "seed " << nSeed << ", round " << nRound;
    }
}
