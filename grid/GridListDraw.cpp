// CGridList: painting the cells.
#include "grid/GridList.h"

void CGridList::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    m_nDrawAction = lpDrawItemStruct->itemAction;
    for (int col = 0; col < m_nCols; ++col)
        DrawGridCell(static_cast<int>(lpDrawItemStruct->itemID), col, lpDrawItemStruct->hDC);
}

void CGridList::DrawGridCell(int row, int col, HDC hDC)
{
    CRect rcCell;
    if (m_bPaintLocked || !GetCellRect(row, col, rcCell))
        return;
    CDC* pDC = CDC::FromHandle(hDC);
    CRect rcText;
    int nIconSide = -1;
    DrawCell(row, col, pDC, rcCell, rcText, nIconSide);
}

void CGridList::DrawCell(int row, int col, CDC* pDC, const CRect& rcCell, CRect& rcText, int& nIconSide)
{
    COLORREF crBk = GetItemBkColor(row, col);
    pDC->FillSolidRect(&rcCell, crBk == 0xFFFFFFFF ? m_crBk : crBk);
    rcText = rcCell;
    rcText.DeflateRect(1, 1);
    rcText.DeflateRect(m_rcCellPadding);
    nIconSide = -1;
    DrawCellText(row, col, pDC, rcText, GetCellTextDrawFormat_DT(row, col));
}

void CGridList::DrawCellText(int row, int col, CDC* pDC, CRect rcText, long nDTAlign)
{
    COLORREF crText = GetItemTextColor(row, col);
    pDC->SetTextColor(crText == 0xFFFFFFFF ? m_crText : crText);
    pDC->SetBkMode(TRANSPARENT);
    pDC->DrawText(GetText(row, col), -1, &rcText,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | static_cast<UINT>(nDTAlign));
}
