#include "bench/GridBench.h"

#include "bench/GridWorkload.h"
#include "grid/GridFind.h"

#include <psapi.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
const char HOST_CLASS[] = "KelGridBenchHost";
const UINT IDC_BENCH_GRID = 1001;
const double MIB = 1024.0 * 1024.0;

// The published source rows at sorted positions 0, 1, 500000 and 999999 of the full table.
const int s_anCheckPositions[4] = {0, 1, 500000, 999999};
const int s_anSort1Sources[4] = {0, 658671, 511998, 341332};
const int s_anSort2Sources[4] = {47986, 922594, 413311, 221367};
} // namespace

CGridBench::CGridBench(int nRows) : m_nRows(nRows) {}

double CGridBench::Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n == 0 ? 0.0 : n % 2 == 1 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

double CGridBench::Now()
{
    static LARGE_INTEGER s_frequency;
    if (s_frequency.QuadPart == 0)
        ::QueryPerformanceFrequency(&s_frequency);
    LARGE_INTEGER now;
    ::QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) / static_cast<double>(s_frequency.QuadPart);
}

void CGridBench::PumpMessages()
{
    MSG msg;
    while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
    {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
    }
}

bool CGridBench::Run(FILE* pOut)
{
    if (m_nRows <= 0 || m_nRows > CGridWorkload::ROWS)
    {
        fprintf(stderr, "grid_bench: the workload has 1 to %d rows, not %d\n", CGridWorkload::ROWS, m_nRows);
        return false;
    }
    if (!CreateHost() || !Fill(pOut))
        return false;
    ReportMemory(pOut);
    PumpMessages();
    if (!SizeForPaint() || !Paint(pOut) || !InsertDelete(pOut))
        return false;
    // Both before the sorts, while the rows are in the workload's order.
    const int nLast = m_nRows - 1;
    char szLast[CGridWorkload::MAX_CELL_LEN + 1];
    CGridWorkload::FormatCell(nLast, 0, szLast);
    if ((m_nRows > 7654 && !KeyboardFind(pOut, "Item 7654", 7654, "kbfind_7654_ms")) ||
        !KeyboardFind(pOut, szLast, nLast, "kbfind_last_ms") || !FindDialog(pOut))
        return false;
    // Sort 1: column 1 as numbers, ascending. Sort 2: column 5 as text ascending, then
    // column 1 as numbers descending. Both start from the workload's order.
    GridSortCol aSort1[1] = {GridSortCol(1, 2)};
    GridSortCol aSort2[2] = {GridSortCol(5, 0), GridSortCol(1, 3)};
    if (!Sort(pOut, aSort1, 1, "sort1_s") || !RestoreWorkloadOrder() || !Sort(pOut, aSort2, 2, "sort2_s"))
        return false;
    m_grid.DestroyWindow();
    return FillFrame() && HeaderClickSort(pOut) && DividerDrag(pOut);
}

bool CGridBench::CreateHost()
{
    // A captionless popup, shown without activation: under Wine without a window manager
    // that keeps creating and destroying it free of waits.
    WNDCLASSA wc;
    memset(&wc, 0, sizeof(wc));
    wc.lpfnWndProc = ::DefWindowProcA;
    wc.hInstance = ::GetModuleHandleA(NULL);
    wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1));
    wc.lpszClassName = HOST_CLASS;
    if (!::RegisterClassA(&wc) ||
        !m_wndHost.CreateEx(0, HOST_CLASS, NULL, WS_POPUP | WS_CLIPCHILDREN, 0, 0, CLIENT_WIDTH + 64,
                            CLIENT_HEIGHT + 64, NULL, NULL))
    {
        fprintf(stderr, "grid_bench: cannot create the host window\n");
        return false;
    }
    m_wndHost.ShowWindow(SW_SHOWNOACTIVATE);
    return true;
}

bool CGridBench::Fill(FILE* pOut)
{
    // Timed: creating the grid and every cell's text, generating the texts included.
    const double dStart = Now();
    if (!m_grid.Create(m_nRows, CGridWorkload::COLS, 0, 0, CRect(0, 0, CLIENT_WIDTH, CLIENT_HEIGHT), &m_wndHost,
                       IDC_BENCH_GRID))
    {
        fprintf(stderr, "grid_bench: cannot create a grid of %d rows\n", m_nRows);
        return false;
    }
    char szCell[CGridWorkload::MAX_CELL_LEN + 1];
    int nRefused = 0;
    for (int nRow = 0; nRow < m_nRows; ++nRow)
    {
        for (int nCol = 0; nCol < CGridWorkload::COLS; ++nCol)
        {
            CGridWorkload::FormatCell(nRow, nCol, szCell);
            if (!m_grid.SetText(nRow, nCol, szCell, true))
                ++nRefused;
        }
    }
    const double dFill = Now() - dStart;
    if (nRefused != 0)
    {
        fprintf(stderr, "grid_bench: the grid refused %d texts\n", nRefused);
        return false;
    }
    fprintf(pOut, "fill_s %.6f\n", dFill);
    return true;
}

void CGridBench::ReportMemory(FILE* pOut)
{
    PROCESS_MEMORY_COUNTERS_EX counters;
    memset(&counters, 0, sizeof(counters));
    counters.cb = sizeof(counters);
    if (!::GetProcessMemoryInfo(::GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                                sizeof(counters)))
        return;
    fprintf(pOut, "peak_ws_mib %.1f\n", static_cast<double>(counters.PeakWorkingSetSize) / MIB);
    // Windows gives the private bytes twice, as PrivateUsage and as the commit charge in
    // PagefileUsage; Wine fills in only the second.
    const SIZE_T nPrivate = counters.PrivateUsage != 0 ? counters.PrivateUsage : counters.PagefileUsage;
    fprintf(pOut, "private_mib %.1f\n", static_cast<double>(nPrivate) / MIB);
}

bool CGridBench::SizeForPaint()
{
    m_grid.SetRowHeight(ROW_HEIGHT);
    m_grid.SetAllColsToWidth(COLUMN_WIDTH);
    // Grow the window by what its frame and scroll bar take, so that the client area is
    // exactly the measured size.
    for (int nTry = 0; nTry < 2; ++nTry)
    {
        CRect rectWindow, rectClient;
        m_grid.GetWindowRect(&rectWindow);
        m_grid.GetClientRect(&rectClient);
        const int cx = rectWindow.Width() + CLIENT_WIDTH - rectClient.Width();
        const int cy = rectWindow.Height() + CLIENT_HEIGHT - rectClient.Height();
        m_wndHost.SetWindowPos(NULL, 0, 0, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
        m_grid.SetWindowPos(NULL, 0, 0, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
    }
    PumpMessages();
    CRect rectClient;
    m_grid.GetClientRect(&rectClient);
    if (rectClient.Width() != CLIENT_WIDTH || rectClient.Height() != CLIENT_HEIGHT)
    {
        fprintf(stderr, "grid_bench: the grid's client area is %dx%d, not %dx%d\n", rectClient.Width(),
                rectClient.Height(), CLIENT_WIDTH, CLIENT_HEIGHT);
        return false;
    }
    return true;
}

bool CGridBench::ScrollToTop(int nRow)
{
    // The list view scrolls a report view by whole rows of its own height; a second step
    // mends any rounding.
    for (int nTry = 0; nTry < 3 && m_grid.GetTopIndex() != nRow; ++nTry)
    {
        CRect rectTop;
        m_grid.GetItemRect(m_grid.GetTopIndex(), &rectTop, LVIR_BOUNDS);
        m_grid.Scroll(CSize(0, (nRow - m_grid.GetTopIndex()) * rectTop.Height()));
    }
    PumpMessages();
    if (m_grid.GetTopIndex() != nRow)
    {
        fprintf(stderr, "grid_bench: cannot scroll row %d to the top (top row %d)\n", nRow, m_grid.GetTopIndex());
        return false;
    }
    return true;
}

bool CGridBench::Paint(FILE* pOut)
{
    // Row 500,000 of the million rows at the top, the middle row of smaller grids.
    if (!ScrollToTop(m_nRows / 2))
        return false;
    std::vector<double> times;
    for (int nRun = 0; nRun < PAINT_WARMUPS + PAINT_RUNS; ++nRun)
    {
        const double dStart = Now();
        ::RedrawWindow(m_grid.GetSafeHwnd(), NULL, NULL, RDW_INVALIDATE | RDW_UPDATENOW);
        const double dTime = Now() - dStart;
        if (nRun >= PAINT_WARMUPS)
            times.push_back(dTime);
    }
    fprintf(pOut, "paint_ms %.4f\n", Median(times) * 1000.0);
    // A grid that drew nothing would paint fast: look for the grid lines of the first cell,
    // its bottom and right edge.
    CDC* pDC = m_grid.GetDC();
    const COLORREF crLine = RGB(200, 200, 200);
    const bool bDrawn = pDC->GetPixel(COLUMN_WIDTH / 2, ROW_HEIGHT - 1) == crLine &&
                        pDC->GetPixel(COLUMN_WIDTH - 1, ROW_HEIGHT / 2) == crLine;
    m_grid.ReleaseDC(pDC);
    fprintf(pOut, "paint_drawn %d\n", bDrawn ? 1 : 0);
    return true;
}

bool CGridBench::InsertDelete(FILE* pOut)
{
    // At the top, with the top rows on screen: every visible row moves. The repaint that
    // follows each operation is not part of its time.
    if (!ScrollToTop(0))
        return false;
    double dInsert = 0, dDelete = 0;
    for (int nPair = 0; nPair < INSERT_DELETE_PAIRS; ++nPair)
    {
        const double dStart = Now();
        const int nNewRow = m_grid.InsertRow(0, false);
        const double dInserted = Now();
        const BOOL bDeleted = m_grid.DeleteRow(0, false);
        dDelete += Now() - dInserted;
        dInsert += dInserted - dStart;
        if (nNewRow != 0 || !bDeleted)
        {
            fprintf(stderr, "grid_bench: inserting or deleting row 0 failed\n");
            return false;
        }
        PumpMessages();
    }
    if (m_grid.GetRowCount() != m_nRows || SourceRow(0) != 0)
    {
        fprintf(stderr, "grid_bench: the rows differ after inserting and deleting\n");
        return false;
    }
    fprintf(pOut, "insert_ms %.4f\n", dInsert * 1000.0 / INSERT_DELETE_PAIRS);
    fprintf(pOut, "delete_ms %.4f\n", dDelete * 1000.0 / INSERT_DELETE_PAIRS);
    return true;
}

bool CGridBench::Sort(FILE* pOut, GridSortCol* pKeys, int nKeys, const char* pszName)
{
    const double dStart = Now();
    m_grid.ListSort(pKeys, nKeys, false);
    const double dSort = Now() - dStart;
    PumpMessages();
    const int nSort = nKeys == 1 ? 1 : 2;
    if (!IsSorted(nSort))
    {
        fprintf(stderr, "grid_bench: %s: the rows are out of order\n", pszName);
        return false;
    }
    if (m_nRows == CGridWorkload::ROWS)
    {
        const int* pnExpected = nSort == 1 ? s_anSort1Sources : s_anSort2Sources;
        for (int i = 0; i < 4; ++i)
        {
            if (SourceRow(s_anCheckPositions[i]) != pnExpected[i])
            {
                fprintf(stderr, "grid_bench: %s: row %d came from row %d, not %d\n", pszName, s_anCheckPositions[i],
                        SourceRow(s_anCheckPositions[i]), pnExpected[i]);
                return false;
            }
        }
    }
    fprintf(pOut, "%s %.6f\n", pszName, dSort);
    return true;
}

bool CGridBench::KeyboardFind(FILE* pOut, const char* pszText, int nRow, const char* pszName)
{
    m_grid.ModifyStyle(0, CGridList::GS_KEYBOARDFIND);
    m_grid.SetCurSel(0, 0, true);
    m_grid.SendMessage(WM_CHAR, VK_ESCAPE, 0); // a new search
    PumpMessages();
    const double dStart = Now();
    for (const char* p = pszText; *p != '\0'; ++p)
        m_grid.SendMessage(WM_CHAR, static_cast<BYTE>(*p), 0);
    const double dFind = Now() - dStart;
    PumpMessages();
    if (m_grid.GetRow() != nRow)
    {
        fprintf(stderr, "grid_bench: %s: typing \"%s\" ended on row %d, not %d\n", pszName, pszText, m_grid.GetRow(),
                nRow);
        return false;
    }
    fprintf(pOut, "%s %.4f\n", pszName, dFind * 1000.0);
    return true;
}

bool CGridBench::FindDialog(FILE* pOut)
{
    // Two terms that meet only in the last row: its name and its column 1.
    char szName[CGridWorkload::MAX_CELL_LEN + 1];
    char szNumber[CGridWorkload::MAX_CELL_LEN + 1];
    CGridWorkload::FormatCell(m_nRows - 1, 0, szName);
    CGridWorkload::FormatCell(m_nRows - 1, 1, szNumber);
    CString strFind;
    strFind.Format("\"%s\" AND %s", szName, szNumber);
    m_grid.SetCurSel(0, 0, true);
    CStringArray arNames;
    if (!m_grid.ShowFindDlg(arNames) || m_grid.GetFindDlg() == NULL)
    {
        fprintf(stderr, "grid_bench: the find dialog did not open\n");
        return false;
    }
    CGridFind* pDlg = m_grid.GetFindDlg();
    pDlg->SetDlgItemText(IDC_GRIDFIND_TEXT, strFind);
    PumpMessages();
    const HWND hFindNext = pDlg->GetDlgItem(IDOK)->GetSafeHwnd();
    const double dStart = Now();
    pDlg->SendMessage(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(hFindNext));
    const double dFind = Now() - dStart;
    pDlg->DestroyWindow();
    if (m_grid.GetRow() != m_nRows - 1)
    {
        fprintf(stderr, "grid_bench: the find dialog found row %d, not the last\n", m_grid.GetRow());
        return false;
    }
    fprintf(pOut, "finddlg_fullrow_s %.6f\n", dFind);
    return true;
}

bool CGridBench::IsSorted(int nSort) const
{
    // Column 1 has no ties, so both orders are total.
    for (int nRow = 1; nRow < m_nRows; ++nRow)
    {
        const int nPrev = atoi(m_grid.GetText(nRow - 1, 1));
        const int nCur = atoi(m_grid.GetText(nRow, 1));
        if (nSort == 1)
        {
            if (nPrev >= nCur)
                return false;
            continue;
        }
        const int nWords = strcmp(m_grid.GetText(nRow - 1, 5), m_grid.GetText(nRow, 5));
        if (nWords > 0 || (nWords == 0 && nPrev <= nCur))
            return false;
    }
    return true;
}

int CGridBench::SourceRow(int nRow) const
{
    const char* pszItem = m_grid.GetText(nRow, 0);
    return strncmp(pszItem, "Item ", 5) == 0 ? atoi(pszItem + 5) : -1;
}

bool CGridBench::RestoreWorkloadOrder()
{
    std::vector<DWORD_PTR> slots(m_nRows, 0);
    for (int nRow = 0; nRow < m_nRows; ++nRow)
    {
        const int nSource = SourceRow(nRow);
        if (nSource < 0 || nSource >= m_nRows || slots[nSource] != 0)
        {
            fprintf(stderr, "grid_bench: row %d does not hold a workload row of its own\n", nRow);
            return false;
        }
        slots[nSource] = m_grid.GetItemDataPtr(nRow);
    }
    for (int nRow = 0; nRow < m_nRows; ++nRow)
        m_grid.SetItemDataPtr(nRow, slots[nRow]);
    PumpMessages();
    return true;
}

bool CGridBench::FillFrame()
{
    if (!m_frame.Create(m_nRows, CGridWorkload::COLS, 0, 0, WS_CHILD | WS_VISIBLE,
                        CRect(0, 0, CLIENT_WIDTH, CLIENT_HEIGHT), &m_wndHost, IDC_BENCH_GRID))
    {
        fprintf(stderr, "grid_bench: cannot create a grid window of %d rows\n", m_nRows);
        return false;
    }
    CGridList& list = m_frame.GetList();
    char szCell[CGridWorkload::MAX_CELL_LEN + 1];
    for (int nRow = 0; nRow < m_nRows; ++nRow)
    {
        for (int nCol = 0; nCol < CGridWorkload::COLS; ++nCol)
        {
            CGridWorkload::FormatCell(nRow, nCol, szCell);
            list.SetText(nRow, nCol, szCell, true);
        }
    }
    list.SetRowHeight(ROW_HEIGHT);
    list.SetAllColsToWidth(COLUMN_WIDTH);
    list.ModifyStyle(0, CGridList::GS_SORTONHDR);
    m_frame.SetColumnSortClass(1, 1);
    PumpMessages();
    return true;
}

bool CGridBench::HeaderClickSort(FILE* pOut)
{
    // Column 1 as numbers, ascending: the click's press and release, the sort and the repaint
    // of both children.
    CGridList& list = m_frame.GetList();
    HWND hHeader = m_frame.GetHeader().GetSafeHwnd();
    const LPARAM lPoint = MAKELPARAM(COLUMN_WIDTH + COLUMN_WIDTH / 2, 5);
    const double dStart = Now();
    ::SendMessage(hHeader, WM_LBUTTONDOWN, MK_LBUTTON, lPoint);
    ::SendMessage(hHeader, WM_LBUTTONUP, 0, lPoint);
    ::UpdateWindow(hHeader);
    ::UpdateWindow(list.GetSafeHwnd());
    const double dClick = Now() - dStart;
    PumpMessages();
    for (int nRow = 1; nRow < m_nRows; ++nRow)
    {
        if (atoi(list.GetText(nRow - 1, 1)) >= atoi(list.GetText(nRow, 1)))
        {
            fprintf(stderr, "grid_bench: the header click left the rows out of order\n");
            return false;
        }
    }
    fprintf(pOut, "hdrclick_s %.6f\n", dClick);
    return true;
}

bool CGridBench::DividerDrag(FILE* pOut)
{
    // The divider after column 0, dragged right a pixel a step: HDN_TRACK, the list's column
    // width, and the repaint of header and list.
    CGridList& list = m_frame.GetList();
    HWND hHeader = m_frame.GetHeader().GetSafeHwnd();
    const int x = COLUMN_WIDTH - 1;
    ::SendMessage(hHeader, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 5));
    PumpMessages();
    std::vector<double> times;
    for (int nStep = 1; nStep <= DRAG_STEPS; ++nStep)
    {
        const double dStart = Now();
        ::SendMessage(hHeader, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x + nStep, 5));
        ::UpdateWindow(hHeader);
        ::UpdateWindow(list.GetSafeHwnd());
        times.push_back(Now() - dStart);
    }
    ::SendMessage(hHeader, WM_LBUTTONUP, 0, MAKELPARAM(x + DRAG_STEPS, 5));
    PumpMessages();
    if (list.GetColumnWidth(0) != COLUMN_WIDTH + DRAG_STEPS)
    {
        fprintf(stderr, "grid_bench: the drag left column 0 %d pixels wide, not %d\n", list.GetColumnWidth(0),
                COLUMN_WIDTH + DRAG_STEPS);
        return false;
    }
    fprintf(pOut, "divdrag_ms %.4f\n", Median(times) * 1000.0);
    return true;
}
