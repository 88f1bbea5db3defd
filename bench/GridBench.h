// CGridBench: one set of measurements of CGridList loaded with the shared grid workload, in
// this process: fill, memory after the fill, paint, row insert and delete at the top,
// type-ahead, the find dialog's search and the two sorts; then, in a grid window loaded
// likewise, a header click to a sorted and repainted grid and one step of a divider drag. The
// process must be fresh, because the peak working set only grows.
//
// Each figure is printed as one line "name value" for the runner (grid_bench.cpp), which takes
// the median over several processes. A check that fails (a wrong sort order, a grid that
// refuses a text) ends the set with a message on stderr.
#pragma once

#include <afxwin.h>

#include "grid/GridList.h"
#include "grid/TGrid.h"

#include <cstdio>
#include <vector>

class CGridBench
{
public:
    // The paint measurement: a client area of 1024 x 768, rows 25 and columns 90 pixels.
    static const int CLIENT_WIDTH = 1024;
    static const int CLIENT_HEIGHT = 768;
    static const int ROW_HEIGHT = 25;
    static const int COLUMN_WIDTH = 90;
    static const int PAINT_WARMUPS = 3;
    static const int PAINT_RUNS = 20;
    // Row insert and delete: pairs of operations, averaged.
    static const int INSERT_DELETE_PAIRS = 100;
    // Divider drag: steps of one pixel, the median taken.
    static const int DRAG_STEPS = 40;

    explicit CGridBench(int nRows);
    CGridBench(const CGridBench&) = delete;
    CGridBench& operator=(const CGridBench&) = delete;

    // Runs every measurement once, printing the figures to pOut; false when a step failed.
    bool Run(FILE* pOut);

    // Seconds from a fixed start, from the performance counter.
    static double Now();
    static double Median(std::vector<double> values);

private:
    bool CreateHost();
    bool Fill(FILE* pOut);
    void ReportMemory(FILE* pOut);
    bool SizeForPaint();
    bool ScrollToTop(int nRow);
    bool Paint(FILE* pOut);
    bool InsertDelete(FILE* pOut);
    bool Sort(FILE* pOut, GridSortCol* pKeys, int nKeys, const char* pszName);
    // Type-ahead of the text from row 0, typed as characters; it must end on nRow.
    bool KeyboardFind(FILE* pOut, const char* pszText, int nRow, const char* pszName);
    // The find dialog's Full Row search from row 0 for an expression only the last row matches.
    bool FindDialog(FILE* pOut);
    // Puts the rows back in the workload's order, so that each sort starts from it.
    bool RestoreWorkloadOrder();
    // The workload row that ended at nRow, read back from its first cell ("Item r").
    int SourceRow(int nRow) const;
    bool IsSorted(int nSort) const;
    static void PumpMessages();
    // The grid window's figures; the list of the other measurements is gone by then.
    bool FillFrame();
    bool HeaderClickSort(FILE* pOut);
    bool DividerDrag(FILE* pOut);

    int m_nRows;
    CWnd m_wndHost;
    CGridList m_grid;
    CGrid m_frame;
};
