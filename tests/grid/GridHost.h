// A grid as a host has it: the recorder window is the host, a plain child stands for the grid
// window (it reflects WM_MEASUREITEM and WM_DRAWITEM back to the grid, as every CWnd does), and
// the CGridList sits at the grid window's top-left corner. Notifications reach the recorder
// naming the grid window; the grid's own codes are recorded with their whole payloads.
#pragma once

#include "KelControls.h"
#include "capture/WindowImage.h"
#include "tests/harness/MessageSequence.h"
#include "tests/harness/NotifyRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class CGridHost
{
public:
    enum
    {
        GRID_WINDOW_ID = 77,
        LIST_ID = 1009, // not the grid's default id, so that a test sees which one it keeps
    };

    // The host and the grid window filling it; hidden unless bVisible.
    bool CreateHost(int cx, int cy, bool bVisible)
    {
        if (!m_parent.Create(cx, cy, bVisible))
            return false;
        m_parent.SetPayloadSize(GN_CCPMENU, sizeof(NMGRIDCCPMENU));
        m_parent.SetPayloadSize(GN_CARETCHANGE, sizeof(NMGRIDCARETCHANGE));
        m_parent.SetPayloadSize(GN_CCP, sizeof(NMGRIDCCP));
        m_parent.SetPayloadSize(GN_CELLCHANGE, sizeof(NMGRIDCELL));
        return m_wndGrid.Create("STATIC", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, cx, cy),
                                CWnd::FromHandle(m_parent.GetSafeHwnd()), GRID_WINDOW_ID) != FALSE;
    }

    // The grid, of the given window size; the result of its Create.
    bool CreateGrid(int nRows, int nCols, int bFixedRow, int bFixedCol, const CSize& size)
    {
        return m_grid.Create(nRows, nCols, bFixedRow, bFixedCol, CRect(CPoint(0, 0), size), &m_wndGrid, LIST_ID) !=
               FALSE;
    }

    // A 400 by 300 host holding a grid of its size; rows 16 pixels high as the list view measures them.
    bool Create(int nRows, int nCols, int bFixedRow, int bFixedCol, bool bVisible = false)
    {
        return CreateHost(400, 300, bVisible) && CreateGrid(nRows, nCols, bFixedRow, bFixedCol, CSize(400, 300));
    }

    // What the grid shows once its painting is done, until the next capture.
    const CWindowImage& Capture()
    {
        m_grid.UpdateWindow();
        EXPECT_TRUE(m_image.Capture(m_grid));
        return m_image;
    }

    // Sets the texts of a column from the first data row down.
    void SetColumn(int col, const std::vector<std::string>& texts)
    {
        for (size_t i = 0; i < texts.size(); ++i)
            m_grid.SetText(m_grid.GetFirstDataRow() + static_cast<int>(i), col, texts[i].c_str(), true);
    }

    std::vector<std::string> Column(int col)
    {
        std::vector<std::string> texts;
        for (int row = m_grid.GetFirstDataRow(); row < m_grid.GetRowCount(); ++row)
            texts.push_back(m_grid.GetText(row, col));
        return texts;
    }

    // Cells whose state has all the bits of dwFlags.
    std::vector<Cell> Flagged(DWORD dwFlags)
    {
        std::vector<Cell> cells;
        for (int row = 0; row < m_grid.GetRowCount(); ++row)
            for (int col = 0; col < m_grid.GetColCount(); ++col)
                if ((m_grid.GetCellState(row, col) & dwFlags) == dwFlags)
                    cells.push_back(Cell(row, col));
        return cells;
    }

    CNotifyRecorder m_parent;
    CWnd m_wndGrid;
    CGridList m_grid;
    CWindowImage m_image;
};

// A header's sort keys as column, type and priority, key after key.
inline std::vector<int> SortKeys(CGridHeader& header)
{
    CArray<int, int> cols;
    CArray<short, short> types;
    CArray<int, int> priorities;
    header.GetCurSortTypes(cols, types, priorities);
    std::vector<int> keys;
    for (INT_PTR i = 0; i < cols.GetSize(); ++i)
        keys.insert(keys.end(), {cols[i], types[i], priorities[i]});
    return keys;
}

// Tests of what the host hears, in order: the host is watched once the grid is made.
class CGridNotifyTest : public ::testing::Test
{
protected:
    void CreateWatched(int nRows, int nCols, int bFixedRow, int bFixedCol, bool bVisible = false)
    {
        ASSERT_TRUE(m_host.Create(nRows, nCols, bFixedRow, bFixedCol, bVisible));
        m_sequence.Watch(m_host.m_parent, "host");
    }

    // The grid's notifications the host heard since the last check, against codes.
    ::testing::AssertionResult Heard(const std::vector<UINT>& codes)
    {
        std::vector<CMessageSequence::CMessage> expected;
        for (UINT nCode : codes)
            expected.push_back(
                {"host", WM_NOTIFY, SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, CGridHost::GRID_WINDOW_ID, nCode});
        return m_sequence.Check(expected.data(), expected.size());
    }

    CGridHost m_host;
    CGridList& m_grid = m_host.m_grid;
    CMessageSequence m_sequence;
};

// Tests of the grid's pixels and geometry: a shown host of 320 by 240, the grid made by the test.
class CGridWindowTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_host.CreateHost(320, 240, true)); }

    // nColWidth and nRowHeight in pixels.
    void CreateGrid(int nRows, int nCols, int nColWidth, int nRowHeight, const CSize& size = CSize(320, 240),
                    int bFixedRow = 0, int bFixedCol = 0)
    {
        ASSERT_TRUE(m_host.CreateGrid(nRows, nCols, bFixedRow, bFixedCol, size));
        m_grid.SetAllColsToWidth(nColWidth);
        m_grid.SetRowHeight(nRowHeight);
    }

    const CWindowImage& Capture() { return m_host.Capture(); }

    CGridHost m_host;
    CGridList& m_grid = m_host.m_grid;
};
