// CGridList: where cells lie, which rows are visible and how big the grid wants to be.
#include "grid/GridList.h"

#include <algorithm>

BOOL CGridList::GetCellRect(int row, int col, CRect& rect)
{
    if (!IsValidCell(row, col) || GetSafeHwnd() == NULL)
        return FALSE;
    if (col != 0)
        return GetSubItemRect(row, col, LVIR_BOUNDS, rect);
    if (!CListCtrl::GetItemRect(row, &rect, LVIR_BOUNDS))
        return FALSE;
    if (m_nCols > 1)
        rect.right = rect.left + CListCtrl::GetColumnWidth(0);
    return TRUE;
}

CSize CGridList::GetGridSize()
{
    int nWidth = 0;
    for (int col = 0; GetSafeHwnd() != NULL && col < m_nCols; ++col)
        nWidth += CListCtrl::GetColumnWidth(col);
    return CSize(nWidth, m_nRowHeight * m_nRows);
}

BOOL CGridList::EnsureVisible(int row, int col)
{
    if (IsHdrCell(row, col))
        return TRUE;
    if (!IsValidCell(row, col) || GetSafeHwnd() == NULL)
        return FALSE;
    return CListCtrl::EnsureVisible(row, FALSE);
}

void CGridList::UpdateClientSizeToGrid()
{
    if (!m_bFitToGrid || m_bIgnoreFitToGrid || m_bResizing || GetSafeHwnd() == NULL)
        return;
    CSize size = GetGridSize();
    if (size.cx > m_nMaxWidth)
    {
        size.cx = m_nMaxWidth;
        size.cy += ::GetSystemMetrics(SM_CYHSCROLL);
    }
    if (size.cy > m_nMaxHeight)
    {
        size.cy = m_nMaxHeight;
        if (size.cx + ::GetSystemMetrics(SM_CXVSCROLL) <= m_nMaxWidth)
            size.cx += ::GetSystemMetrics(SM_CXVSCROLL);
    }
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    if (rcWindow.Size() == size)
        return;
    m_bResizing = TRUE;
    SetWindowPos(NULL, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_bResizing = FALSE;
}

void CGridList::RefreshCell(int row, int col)
{
    CRect rect;
    if (!m_bPaintLocked && GetCellRect(row, col, rect))
        InvalidateRect(&rect, FALSE);
}

void CGridList::RefreshCell_FullRow(const Cell& cell)
{
    CRect rect;
    if (!IsFullRowSelectGrid())
        RefreshCell(cell);
    else if (!m_bPaintLocked && IsValidCell(cell.row, cell.col) && GetSafeHwnd() != NULL &&
             CListCtrl::GetItemRect(cell.row, &rect, LVIR_BOUNDS))
        InvalidateRect(&rect, FALSE);
}
