#include "bench/ControlsBench.h"

#include "grid/ComboGrid.h"

#include <cstdio>
#include <vector>

namespace
{
const int ROWS = 100000;
const int RUNS = 21;

// A shown window holding a drop-down-list combo grid of ROWS rows of three columns: "Fixture
// 000000".., a number and a kind; the last row's name alone starts with "Z".
struct CComboGridBench
{
    CWnd m_wndHost;
    CComboGrid m_combo;

    bool Create()
    {
        if (!m_wndHost.CreateEx(0, "STATIC", "", WS_POPUP, 20, 20, 400, 300, NULL, NULL) ||
            !m_combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, CRect(10, 10, 260, 200), &m_wndHost, 1) ||
            !m_combo.SetColumnCount(3))
            return false;
        m_wndHost.ShowWindow(SW_SHOWNOACTIVATE);
        m_combo.SetColumn(0, "Name", 120);
        m_combo.SetColumn(1, "No", 60, 1, 1);
        m_combo.SetColumn(2, "Kind", 80);
        char szText[32];
        for (int row = 0; row < ROWS; ++row)
        {
            snprintf(szText, sizeof(szText), row == ROWS - 1 ? "Zoom %06d" : "Fixture %06d", row);
            m_combo.AddRow(szText, static_cast<DWORD>(row));
            snprintf(szText, sizeof(szText), "%d", row + 1);
            m_combo.SetItemText(row, 1, szText);
            m_combo.SetItemText(row, 2, row % 3 == 0 ? "Moving" : "Static");
        }
        return m_combo.GetRowCount() == ROWS;
    }
};

// Filled once for both figures: filling takes far longer than what is measured.
CComboGridBench* GetBench()
{
    static CComboGridBench s_bench;
    static bool s_bFilled = s_bench.Create();
    return s_bFilled ? &s_bench : NULL;
}
} // namespace

double ControlsBench::ComboGridOpenMs()
{
    CComboGridBench* pBench = GetBench();
    if (pBench == NULL)
    {
        fprintf(stderr, "combogrid: the combo could not be filled\n");
        return -1.0;
    }
    CComboGridBench& bench = *pBench;
    bench.m_combo.SetCurSel(ROWS / 2);
    std::vector<double> times;
    for (int run = 0; run < RUNS; ++run)
    {
        const double dStart = NowMs();
        bench.m_combo.ShowDropDown(TRUE);
        bench.m_combo.GetList()->UpdateWindow();
        bench.m_combo.GetHeader()->UpdateWindow();
        times.push_back(NowMs() - dStart);
        if (!bench.m_combo.GetDroppedState() || bench.m_combo.GetList()->GetRow() != ROWS / 2)
        {
            fprintf(stderr, "combogrid: the drop-down did not open on the chosen row\n");
            return -1.0;
        }
        bench.m_combo.CloseDropDown(FALSE);
    }
    return Median(times);
}

double ControlsBench::ComboGridFindKeyMs()
{
    CComboGridBench* pBench = GetBench();
    if (pBench == NULL)
    {
        fprintf(stderr, "combogrid: the combo could not be filled\n");
        return -1.0;
    }
    CComboGridBench& bench = *pBench;
    std::vector<double> times;
    for (int run = 0; run < RUNS; ++run)
    {
        bench.m_combo.SetCurSel(0);
        bench.m_combo.SendMessage(WM_CHAR, 1, 0); // a control character starts a new search
        // The key closed, from WM_CHAR to the row found through the whole column, made current.
        const double dStart = NowMs();
        bench.m_combo.SendMessage(WM_CHAR, 'z', 0);
        times.push_back(NowMs() - dStart);
        if (bench.m_combo.GetCurSel() != ROWS - 1)
        {
            fprintf(stderr, "combogrid: typing did not find the last row\n");
            return -1.0;
        }
    }
    return Median(times);
}
