#include "gallery/MillionRowsPage.h"

#include "bench/GridWorkload.h"

namespace
{
const UINT IDC_GRID = 100;
const int INTRO_LINES = 2;
// Wide enough for each column's longest text.
const int s_anColumnWidths[CGridWorkload::COLS] = {88, 58, 62, 62, 78, 62, 62, 62, 62, 62};
} // namespace

IMPLEMENT_DYNCREATE(CMillionRowsPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CMillionRowsPage, CGalleryPage)
ON_WM_CREATE()
END_MESSAGE_MAP()

int CMillionRowsPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("1,000,000 rows of the grid benchmark's workload (scripts/bench.sh): item, number, ")
                                 _T("amount, time, date and five words. The caret is on the middle row, Item 500000.")) ||
        !m_wndGrid.Create(CGridWorkload::ROWS, CGridWorkload::COLS, 0, 0, CRect(0, 0, 0, 0), this, IDC_GRID) ||
        !FillGrid())
        return -1;
    UseFont(m_wndGrid);
    m_wndGrid.ModifyStyle(0, CGridList::GS_SHOWCARETALWAYS);
    LayoutControls(lpCreateStruct->cx, lpCreateStruct->cy);
    m_wndGrid.SetCurSel(CGridWorkload::ROWS / 2, 0);
    return 0;
}

BOOL CMillionRowsPage::FillGrid()
{
    for (int nCol = 0; nCol < CGridWorkload::COLS; ++nCol)
        m_wndGrid.SetColumnWidth(nCol, s_anColumnWidths[nCol]);
    char szCell[CGridWorkload::MAX_CELL_LEN + 1];
    for (int nRow = 0; nRow < CGridWorkload::ROWS; ++nRow)
    {
        for (int nCol = 0; nCol < CGridWorkload::COLS; ++nCol)
        {
            CGridWorkload::FormatCell(nRow, nCol, szCell);
            if (!m_wndGrid.SetText(nRow, nCol, szCell, true))
                return FALSE;
        }
    }
    return TRUE;
}

void CMillionRowsPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    int nHeight = cy - y - MARGIN;
    m_wndGrid.MoveWindow(MARGIN, y, cx - 2 * MARGIN, nHeight > 0 ? nHeight : 0);
}
