// CGridList: painting. The grid paints its invalid rows through DrawItem, one DrawGridCell per
// column that needs it; a cell is its grid lines, background, edit icon, image, text and, on
// the caret, the focus rectangle.
//
// Speed: nothing is created per cell. Lines and backgrounds are opaque ExtTextOut fills, the
// font is selected once per paint, and a text that fits goes out through ExtTextOut at the
// place DrawText would give it, so that only texts that need the end ellipsis pay for DrawText.
#include "grid/GridList.h"

#include <stdlib.h>

#include <algorithm>

namespace
{
const COLORREF CR_BLACK = RGB(0, 0, 0);
// The outline of a selected caret cell while the focus rectangle is off.
const COLORREF CR_SELECTED_FOCUS = RGB(165, 165, 210);
const UINT TEXT_FORMAT = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
const COLORREF CR_NONE = 0xFFFFFFFF;

// Each channel as |c + s - 255|: light backgrounds take the selection's hue, dark ones its
// complement, so the selection shows on both.
COLORREF BlendWithSelection(COLORREF cr, COLORREF crSelection)
{
    return RGB(abs(GetRValue(cr) + GetRValue(crSelection) - 255), abs(GetGValue(cr) + GetGValue(crSelection) - 255),
               abs(GetBValue(cr) + GetBValue(crSelection) - 255));
}

// Paints the sides (1 left, 2 top, 4 right, 8 bottom) of a one-pixel outline.
void FillOutline(CDC* pDC, const CRect& rect, COLORREF cr, UINT nSides)
{
    if (nSides & 2)
        pDC->FillSolidRect(rect.left, rect.top, rect.Width(), 1, cr);
    if (nSides & 4)
        pDC->FillSolidRect(rect.right - 1, rect.top, 1, rect.Height(), cr);
    if (nSides & 8)
        pDC->FillSolidRect(rect.left, rect.bottom - 1, rect.Width(), 1, cr);
    if (nSides & 1)
        pDC->FillSolidRect(rect.left, rect.top, 1, rect.Height(), cr);
}

// The size of an image of a list; false when there is no such image.
bool GetImageSize(HIMAGELIST hImageList, int nImage, int& cx, int& cy)
{
    return nImage >= 0 && hImageList != NULL && nImage < ImageList_GetImageCount(hImageList) &&
           ImageList_GetIconSize(hImageList, &cx, &cy);
}

// Draws an image of a list clipped to a rectangle that starts at the image's top-left corner.
void DrawImageClipped(HIMAGELIST hImageList, int nImage, CDC* pDC, const CRect& rect)
{
    ImageList_DrawEx(hImageList, nImage, pDC->m_hDC, rect.left, rect.top, rect.Width(), rect.Height(), CLR_DEFAULT,
                     CLR_DEFAULT, ILD_NORMAL);
}
} // namespace

// ---------------------------------------------------------------------------------------------
// Rows

void CGridList::OnPaint()
{
    CPaintDC dc(this);
    m_bBatchAllInvalid = false;
    if (m_bPaintLocked)
        return;
    CRect rcClip(dc.m_ps.rcPaint);
    CFont* pFont = GetFont();
    CFont* pOldFont = pFont != NULL ? dc.SelectObject(pFont) : NULL;
    dc.SetBkMode(OPAQUE);

    // Where the rows end, right and down; the client area beyond them is background.
    CRect rcClient;
    GetClientRect(&rcClient);
    int nGridRight = rcClient.left;
    int nGridBottom = rcClient.top;
    const int nTop = m_nTopRow;
    CRect rcRow;
    if (GetRowRect(nTop, rcRow) && rcRow.Height() > 0)
    {
        const int nHeight = rcRow.Height();
        const int nFirst = nTop + std::max<int>(0, (rcClip.top - rcRow.top) / nHeight);
        const int nLast = std::min<int>(m_nRows - 1, nTop + std::max<int>(0, (rcClip.bottom - 1 - rcRow.top) / nHeight));
        DRAWITEMSTRUCT dis = {};
        dis.CtlType = ODT_LISTVIEW;
        dis.CtlID = static_cast<UINT>(GetDlgCtrlID());
        dis.itemAction = ODA_DRAWENTIRE;
        dis.itemState = m_nDrawState;
        dis.hwndItem = m_hWnd;
        dis.hDC = dc.m_hDC;
        m_nPaintFocused = ::GetFocus() == m_hWnd ? 1 : 0;
        for (int row = nFirst; row <= nLast; ++row)
        {
            dis.itemID = static_cast<UINT>(row);
            dis.rcItem = rcRow;
            ::OffsetRect(&dis.rcItem, 0, (row - nTop) * nHeight);
            DrawItem(&dis);
        }
        m_nPaintFocused = -1;
        const std::vector<int>& arEdges = GetColumnEdges();
        nGridRight = rcRow.left + (arEdges.empty() ? 0 : arEdges.back());
        nGridBottom = rcRow.top + (m_nRows - nTop) * nHeight;
    }
    if (nGridBottom < rcClip.bottom)
        dc.FillSolidRect(CRect(rcClip.left, std::max<int>(nGridBottom, rcClip.top), rcClip.right, rcClip.bottom), m_crBk);
    if (nGridRight < rcClip.right)
        dc.FillSolidRect(CRect(std::max<int>(nGridRight, rcClip.left), rcClip.top, rcClip.right,
                               std::min<int>(nGridBottom, rcClip.bottom)),
                         m_crBk);
    if (pOldFont != NULL)
        dc.SelectObject(pOldFont);
}

BOOL CGridList::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CGridList::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct == NULL || m_bPaintLocked)
        return;
    const int row = static_cast<int>(lpDrawItemStruct->itemID);
    CRect rcClip;
    int nFirst;
    int nLast;
    if (row < 0 || row >= m_nRows || ::GetClipBox(lpDrawItemStruct->hDC, &rcClip) == ERROR ||
        !GetColumnsInSpan(lpDrawItemStruct->rcItem.left, rcClip.left, rcClip.right, nFirst, nLast))
        return;
    // The draw state (the focus flag) is the grid's own: scrolling turns it off.
    m_nDrawAction = lpDrawItemStruct->itemAction;
    m_nDrawRow = row;
    m_rcDrawRow = lpDrawItemStruct->rcItem;
    m_bDrawFocused = m_nPaintFocused >= 0 ? m_nPaintFocused : ::GetFocus() == m_hWnd;
    for (int col = nFirst; col <= nLast; ++col)
        DrawGridCell(row, col, lpDrawItemStruct->hDC);
    m_nDrawRow = -1;
    // Cells repainted on their own are always drawn whole.
    m_nDrawAction = ODA_DRAWENTIRE;
}

BOOL CGridList::IsDrawFocused(int row) const
{
    return row == m_nDrawRow ? m_bDrawFocused : ::GetFocus() == m_hWnd;
}

// ---------------------------------------------------------------------------------------------
// Cells

void CGridList::DrawGridCell(int row, int col, HDC hDC)
{
    CRect rcCell;
    if (m_bPaintLocked || hDC == NULL || !GetCellRect(row, col, rcCell))
        return;
    CDC* pDC = CDC::FromHandle(hDC);
    CRect rcText;
    int nIconSide = -1;
    if (m_nDrawAction & ODA_DRAWENTIRE)
    {
        if (!IsNoGridLines())
            DrawGrid(row, col, rcCell, pDC);
        DrawCell(row, col, pDC, rcCell, rcText, nIconSide);
    }
    const std::vector<int>& arEdges = GetColumnEdges();
    CRect rcRow(rcCell);
    rcRow.left -= col > 0 ? arEdges[static_cast<size_t>(col) - 1] : 0;
    rcRow.right = rcRow.left + arEdges.back();
    DrawGridCellFocus(row, col, pDC, rcCell, rcRow, nIconSide);
}

void CGridList::DrawGrid(int row, int col, const CRect& rcCell, CDC* pDC)
{
    if (IsHdrCell(row, col))
    {
        CRect rcButton(rcCell);
        pDC->DrawFrameControl(&rcButton, DFC_BUTTON, DFCS_BUTTONPUSH);
        return;
    }
    // The outer lines of the grid are black; in the last row the right line leaves the corner
    // to the bottom line.
    const bool bLastRow = row == m_nRows - 1;
    pDC->FillSolidRect(rcCell.left, rcCell.bottom - 1, rcCell.Width(), 1, bLastRow ? CR_BLACK : m_crGridLine);
    pDC->FillSolidRect(rcCell.right - 1, rcCell.top, 1, rcCell.Height() - (bLastRow ? 1 : 0),
                       col == m_nCols - 1 ? CR_BLACK : m_crGridLine);
}

void CGridList::DrawCell(int row, int col, CDC* pDC, const CRect& rcCell, CRect& rcText, int& nIconSide)
{
    const bool bHeader = IsHdrCell(row, col) != FALSE;
    const bool bFocused = IsDrawFocused(row) != FALSE;
    COLORREF crBk;
    COLORREF crTextBk;
    COLORREF crText;
    if (IsCutItem(row, col))
    {
        crBk = crTextBk = ::GetSysColor(COLOR_INACTIVEBORDER);
        crText = ::GetSysColor(COLOR_WINDOWTEXT);
    }
    else
    {
        crBk = GetItemBkColor(row, col);
        crTextBk = GetItemTextBkColor(row, col);
        crText = GetItemTextColor(row, col);
        if (crBk == CR_NONE || (m_bPrinting && !m_bPrintBkColor))
            crBk = m_crBk;
        if (crTextBk == CR_NONE)
            crTextBk = m_crTextBk;
        if (crText == CR_NONE)
            crText = m_crText;
    }
    const bool bSelected = IsSelectedItem(row, col) && !IsNoSelection();
    if (bSelected && !(m_bHideSelection && !bFocused))
    {
        if (m_bTransparentSelection)
        {
            // A single selected cell (a single row in full-row grids) is shown by the caret alone.
            int nUnit = IsFullRowSelectGrid() ? m_nCols - GetFirstDataCol() : 1;
            if (GetSelectedCount() > nUnit)
            {
                COLORREF crSelection = !bFocused && m_bGraySelection ? ::GetSysColor(COLOR_BTNFACE) : m_crSelection;
                crBk = BlendWithSelection(crBk, crSelection);
                crTextBk = BlendWithSelection(crTextBk, crSelection);
            }
        }
        else if (bFocused || !m_bGraySelection)
        {
            crBk = crTextBk = ::GetSysColor(COLOR_HIGHLIGHT);
            crText = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
        }
        else
        {
            crBk = crTextBk = ::GetSysColor(COLOR_BTNFACE);
            crText = CR_BLACK;
        }
    }
    if (IsGrayOnDisable() && !IsWindowEnabled())
    {
        crBk = crTextBk = ::GetSysColor(COLOR_BTNFACE);
        crText = CR_BLACK;
    }

    // A header cell's push-button frame is its background.
    const bool bFramed = bHeader && !IsNoGridLines();
    if (!bFramed)
        pDC->FillSolidRect(GetCellInnerRect(rcCell), crBk);

    int nIcon;
    DWORD dwSide;
    CRect rcIcon;
    CRect rcArea = GetCellContentArea(row, col, rcCell, nIcon, dwSide, rcIcon);
    nIconSide = -1;
    if (nIcon != -1)
    {
        // An icon wider than its cell stays inside it.
        int nSaved = pDC->SaveDC();
        pDC->IntersectClipRect(GetCellInnerRect(rcCell));
        if (nIcon < 0)
            DrawGridPredefinedEditIcon(nIcon, pDC, rcIcon);
        else
            DrawImageClipped(m_pEditIconImageList->GetSafeHandle(), nIcon, pDC, rcIcon);
        pDC->RestoreDC(nSaved);
        nIconSide = static_cast<int>(dwSide);
    }

    CRect rcImage;
    FindTextNImageRect(row, col, pDC, rcArea, rcText, rcImage);
    if (!rcText.IsRectEmpty())
    {
        pDC->SetTextColor(crText);
        pDC->SetBkColor(crTextBk);
        if (bFramed)
            pDC->SetBkMode(TRANSPARENT);
        DrawCellText(row, col, pDC, rcText, GetCellTextDrawFormat_DT(row, col));
        if (bFramed)
            pDC->SetBkMode(OPAQUE);
    }
    if (!rcImage.IsRectEmpty())
        DrawImageClipped(CListCtrl::GetImageList(LVSIL_SMALL)->GetSafeHandle(), GetCellImage(row, col), pDC, rcImage);
}

void CGridList::DrawCellText(int row, int col, CDC* pDC, CRect rcText, long nDTAlign)
{
    LPCTSTR pszText = GetText(row, col);
    const int nLength = lstrlenA(pszText);
    if (nLength == 0)
        return;
    nDTAlign &= DT_CENTER | DT_RIGHT;
    const CSize size = pDC->GetTextExtent(pszText, nLength);
    if (size.cx > rcText.Width())
    {
        pDC->DrawText(pszText, nLength, &rcText, TEXT_FORMAT | static_cast<UINT>(nDTAlign));
        return;
    }
    // Where DrawText puts a line that fits.
    int x = rcText.left;
    if (nDTAlign == DT_RIGHT)
        x = rcText.right - size.cx;
    else if (nDTAlign == DT_CENTER)
        x = rcText.left + (rcText.Width() - size.cx) / 2;
    const int y = rcText.top + rcText.Height() / 2 - size.cy / 2;
    pDC->ExtTextOut(x, y, ETO_CLIPPED, &rcText, pszText, static_cast<UINT>(nLength), NULL);
}

// ---------------------------------------------------------------------------------------------
// Text, image and edit-icon places

int CGridList::GetShownEditIcon(int row, int col, DWORD& dwFlag) const
{
    dwFlag = 0;
    if ((m_dwEditIconStyle & EIS_SHOW) == 0 || m_bPrinting || !IsNonHdrCell(row, col))
        return EDITICON_NONE;
    int nIcon;
    if (m_dwEditIconStyle & EIS_ONFOCUS)
    {
        if (Cell(row, col) != m_EditIconCell)
            return EDITICON_NONE;
        nIcon = m_nEditIcon;
        dwFlag = m_dwEditIconFlag;
    }
    else
    {
        nIcon = GetCellEditIcon(row, col);
        dwFlag = GetCellEditIconFlag(row, col);
    }
    if (nIcon == EDITICON_DROPDOWN || nIcon == EDITICON_DIALOG)
        return nIcon;
    if (nIcon >= 0 && m_pEditIconImageList->GetSafeHandle() != NULL && nIcon < m_pEditIconImageList->GetImageCount())
        return nIcon;
    return EDITICON_NONE;
}

BOOL CGridList::IsShowEditIconsOnFocus(int row, int col) const
{
    return (m_dwEditIconStyle & (EIS_SHOW | EIS_ONFOCUS)) == (EIS_SHOW | EIS_ONFOCUS) && IsNonHdrCell(row, col);
}

void CGridList::FindEditIconRect(CRect rcCell, int nIcon, DWORD& dwSide, CRect& rcIcon)
{
    int cx;
    int cy;
    if (nIcon == EDITICON_DROPDOWN || nIcon == EDITICON_DIALOG)
    {
        cx = ::GetSystemMetrics(SM_CXVSCROLL);
        cy = rcCell.Height();
    }
    else if (nIcon < 0 || m_pEditIconImageList->GetSafeHandle() == NULL ||
             !ImageList_GetIconSize(m_pEditIconImageList->GetSafeHandle(), &cx, &cy))
    {
        rcIcon.SetRectEmpty();
        return;
    }
    const int nBottom = std::min(rcCell.bottom, rcCell.top + cy);
    if (dwSide == 1)
        rcIcon.SetRect(rcCell.left, rcCell.top, rcCell.left + cx, nBottom);
    else
    {
        dwSide = 0;
        rcIcon.SetRect(rcCell.right - cx, rcCell.top, rcCell.right, nBottom);
    }
}

CRect CGridList::GetCellContentArea(int row, int col, const CRect& rcCell, int& nIcon, DWORD& dwSide,
                                    CRect& rcIcon) const
{
    CRect rcArea = GetCellInnerRect(rcCell);
    nIcon = GetShownEditIcon(row, col, dwSide);
    rcIcon.SetRectEmpty();
    if (nIcon != EDITICON_NONE)
    {
        const_cast<CGridList*>(this)->FindEditIconRect(rcArea, nIcon, dwSide, rcIcon);
        if (dwSide == 1)
            rcArea.left += rcIcon.Width();
        else
            rcArea.right -= rcIcon.Width();
    }
    rcArea.DeflateRect(1, 1);
    rcArea.left += m_rcCellPadding.left;
    rcArea.top += m_rcCellPadding.top;
    rcArea.right -= m_rcCellPadding.right;
    rcArea.bottom -= m_rcCellPadding.bottom;
    return rcArea;
}

BOOL CGridList::GetEditIconRect(int row, int col, CRect& rcIcon, RECT* pCellRect, long* pIcon, DWORD* pSide)
{
    CRect rcCell;
    int nIcon;
    DWORD dwSide;
    if (!GetCellRect(row, col, rcCell))
        return FALSE;
    GetCellContentArea(row, col, rcCell, nIcon, dwSide, rcIcon);
    if (nIcon == EDITICON_NONE)
        return FALSE;
    if (pCellRect != NULL)
        *pCellRect = rcCell;
    if (pIcon != NULL)
        *pIcon = nIcon;
    if (pSide != NULL)
        *pSide = dwSide;
    return TRUE;
}

BOOL CGridList::HitTestEditIcon(int row, int col, CPoint point)
{
    CRect rcIcon;
    return GetEditIconRect(row, col, rcIcon) && rcIcon.PtInRect(point);
}

void CGridList::FindImageRect(CRect rcArea, int nImage, long nAlign, CRect& rcImage)
{
    rcImage.SetRectEmpty();
    int cx;
    int cy;
    if (!GetImageSize(CListCtrl::GetImageList(LVSIL_SMALL)->GetSafeHandle(), nImage, cx, cy))
        return;
    int x = rcArea.left;
    if (cx <= rcArea.Width() && nAlign == DT_RIGHT)
        x = rcArea.right - cx;
    else if (cx <= rcArea.Width() && nAlign == DT_CENTER)
        x = rcArea.left + (rcArea.Width() - cx) / 2;
    // Centred on the height, or from the top when taller; clipped to the area.
    const int y = cy > rcArea.Height() ? rcArea.top : rcArea.top + (rcArea.Height() - cy) / 2;
    if (x < rcArea.right)
        rcImage.SetRect(x, y, std::min<int>(x + cx, rcArea.right),
                        std::min<int>(y + cy, rcArea.bottom));
}

void CGridList::FindTextNImageRect(int row, int col, CDC* pDC, const CRect& rcArea, CRect& rcText, CRect& rcImage)
{
    rcText = rcArea;
    rcImage.SetRectEmpty();
    const int nImage = GetCellImage(row, col);
    int cxImage;
    int cyImage;
    if (m_bPrinting || !GetImageSize(CListCtrl::GetImageList(LVSIL_SMALL)->GetSafeHandle(), nImage, cxImage, cyImage))
        return;
    // Text and image are placed as one block, aligned as the text.
    LPCTSTR pszText = GetText(row, col);
    const int cxText = pDC->GetTextExtent(pszText, lstrlenA(pszText)).cx;
    const int cxBlock = cxText + cxImage + 2;
    const long nAlign = GetCellTextDrawFormat_DT(row, col);
    int x = rcArea.left;
    if (cxBlock <= rcArea.Width() && nAlign == DT_RIGHT)
        x = rcArea.right - cxBlock;
    else if (cxBlock <= rcArea.Width() && nAlign == DT_CENTER)
        x = rcArea.left + (rcArea.Width() - cxBlock) / 2;

    // What comes first keeps its place; what follows 2 pixels later goes when no room is left.
    if (GetCellImagePlacement(row, col) == IMAGE_AFTER_TEXT)
    {
        rcText.SetRect(x, rcArea.top, std::min<int>(x + cxText, rcArea.right), rcArea.bottom);
        FindImageRect(CRect(x + cxText + 2, rcArea.top, rcArea.right, rcArea.bottom), nImage, DT_LEFT, rcImage);
    }
    else
    {
        FindImageRect(CRect(x, rcArea.top, rcArea.right, rcArea.bottom), nImage, DT_LEFT, rcImage);
        rcText.SetRect(x + cxImage + 2, rcArea.top, std::min<int>(x + cxBlock, rcArea.right),
                       rcArea.bottom);
    }
}

BOOL CGridList::GetIconRect(int row, int col, CRect& rcIcon)
{
    CRect rcCell;
    if (!GetCellRect(row, col, rcCell))
        return FALSE;
    int nIcon;
    DWORD dwSide;
    CRect rcEditIcon;
    CRect rcArea = GetCellContentArea(row, col, rcCell, nIcon, dwSide, rcEditIcon);
    CRect rcText;
    CClientDC dc(this);
    CFont* pFont = GetFont();
    CFont* pOldFont = pFont != NULL ? dc.SelectObject(pFont) : NULL;
    FindTextNImageRect(row, col, &dc, rcArea, rcText, rcIcon);
    if (pOldFont != NULL)
        dc.SelectObject(pOldFont);
    return !rcIcon.IsRectEmpty();
}

BOOL CGridList::HitTestIcon(int row, int col, CPoint point)
{
    CRect rcIcon;
    return GetIconRect(row, col, rcIcon) && rcIcon.PtInRect(point);
}

void CGridList::DrawGridPredefinedEditIcon(int nIcon, CDC* pDC, CRect rect)
{
    if (pDC == NULL || (nIcon != EDITICON_DROPDOWN && nIcon != EDITICON_DIALOG))
        return;
    // A square button at the top of the place, as high as it is wide when the cell allows.
    const int nSide = std::min(rect.Width(), rect.Height());
    if (nSide < 5)
        return;
    CRect rcButton(rect.left, rect.top + (rect.Height() - nSide) / 2, rect.left + nSide,
                   rect.top + (rect.Height() - nSide) / 2 + nSide);
    const COLORREF crShadow = ::GetSysColor(COLOR_BTNSHADOW);
    pDC->FillSolidRect(rcButton, ::GetSysColor(COLOR_BTNFACE));
    pDC->Draw3dRect(rcButton, crShadow, crShadow);
    const CPoint centre = rcButton.CenterPoint();
    if (nIcon == EDITICON_DROPDOWN)
    {
        // A downward triangle: the list opens below.
        for (int i = 0; i < 4; ++i)
            pDC->FillSolidRect(centre.x - 3 + i, centre.y - 2 + i, 7 - 2 * i, 1, crShadow);
    }
    else
    {
        // Three dots: a dialog opens.
        for (int i = -1; i <= 1; ++i)
            pDC->FillSolidRect(centre.x + 3 * i - 1, centre.y + 1, 2, 2, crShadow);
    }
}

// ---------------------------------------------------------------------------------------------
// The focus rectangle

void CGridList::DrawGridCellFocus(int row, int col, CDC* pDC, CRect rcCell, CRect, int)
{
    if (m_bHideCaret || !IsNonHdrCell(row, col))
        return;
    // In full-row grids every data cell of the caret's row draws its part of the row's outline.
    const bool bFullRow = IsFullRowSelectGrid() != FALSE;
    if (bFullRow ? row != m_CaretCell.row : Cell(row, col) != m_CaretCell)
        return;
    UINT nSides = 15;
    const bool bFirst = col == GetFirstDataCol();
    const bool bLast = col == m_nCols - 1;
    if (bFullRow && !(bFirst && bLast))
        nSides = bFirst ? 11 : bLast ? 14 : 10;

    const COLORREF cr = GetDrawItemBkColor(row, col, IsSelectedItem(row, col) != FALSE, IsCutItem(row, col) != FALSE,
                                           IsDrawFocused(row) != FALSE);
    CRect rect(rcCell);
    if (m_nDrawState & ODS_FOCUS)
    {
        if (!IsNoGridLines())
        {
            --rect.bottom;
            if (!bFullRow || bLast)
                --rect.right;
        }
        DrawFocusRect(pDC, rect, cr, nSides);
        return;
    }
    FillOutline(pDC, GetCellInnerRect(rect), cr, nSides);
    if (bFullRow && !IsNoGridLines())
        DrawGrid(row, col, rcCell, pDC);
}

void CGridList::DrawFocusRect(CDC* pDC, CRect& rect, const COLORREF& cr, UINT nSides)
{
    if (pDC == NULL || rect.Width() <= 0 || rect.Height() <= 0)
        return;
    // Dots alternate with their inverse and run on from edge to edge, so that the pattern
    // depends on the pixel's place alone and the parts of a row's outline join up.
    const COLORREF crInverse = cr ^ 0xFFFFFF;
    const HDC hDC = pDC->m_hDC;
    auto drawEdge = [&](int x, int y, int dx, int dy, int nCount, bool bColour) {
        for (int i = 0; i < nCount; ++i, x += dx, y += dy, bColour = !bColour)
            ::SetPixelV(hDC, x, y, bColour ? cr : crInverse);
    };
    const int cx = rect.Width();
    const int cy = rect.Height();
    const bool c = (rect.left & 1) == 0;
    if (nSides & 2)
        drawEdge(rect.left, rect.top, 1, 0, cx, c);
    if (nSides & 4)
        drawEdge(rect.right - 1, rect.top, 0, 1, cy, cx % 2 == 0 ? !c : c);
    if (nSides & 8)
        drawEdge(rect.right - 1, rect.bottom - 1, -1, 0, cx, (cx + cy - 1) % 2 == 0 ? !c : c);
    if (nSides & 1)
        drawEdge(rect.left, rect.bottom - 1, 0, -1, cy, (2 * cx - 2 + cy) % 2 == 0 ? !c : c);
}

void CGridList::RedrawFocusRect()
{
    if (IsNonHdrCell(m_CaretCell))
        RefreshCell_FullRow(m_CaretCell);
}

void CGridList::UpdateFocusRect(bool bFocus)
{
    const UINT nState = bFocus ? (m_nDrawState | ODS_FOCUS) : (m_nDrawState & ~static_cast<UINT>(ODS_FOCUS));
    if (nState == m_nDrawState)
        return;
    m_nDrawState = nState;
    RedrawFocusRect();
}

// ---------------------------------------------------------------------------------------------
// Colours

COLORREF CGridList::GetDrawItemBkColor(int row, int col, bool bSelected, bool bCut, bool bFocus)
{
    if (bSelected && !(m_bHideSelection && !bFocus))
        return CR_SELECTED_FOCUS;
    if (bCut)
        return ::GetSysColor(COLOR_INACTIVEBORDER);
    COLORREF cr = GetItemBkColor(row, col);
    return cr == CR_NONE || (m_bPrinting && !m_bPrintBkColor) ? m_crBk : cr;
}

COLORREF CGridList::Transform2SelColor(COLORREF cr)
{
    return BlendWithSelection(cr, m_crSelection);
}

// ---------------------------------------------------------------------------------------------
// Repainting

// A hidden grid repaints whole when shown, and a locked one when unlocked: neither needs the
// cell's rectangle now, which keeps bulk changes to a hidden grid cheap.
bool CGridList::IsRefreshNeeded()
{
    return !m_bPaintLocked && IsWindowVisible();
}

void CGridList::RefreshCell(int row, int col)
{
    if (IsValidCell(row, col))
        RefreshRectCells(CRect(col, row, col, row));
}

void CGridList::RefreshCell_FullRow(const Cell& cell)
{
    if (!IsFullRowSelectGrid())
        RefreshCell(cell);
    else if (IsValidCell(cell.row, cell.col))
        RefreshRectCells(CRect(0, cell.row, m_nCols - 1, cell.row));
}

void CGridList::RefreshRectCells(const CRect& rcCells)
{
    if (!IsRefreshNeeded() || rcCells.right < rcCells.left || rcCells.bottom < rcCells.top)
        return;
    if (m_nRefreshBatch == 0)
    {
        CRect rcArea;
        if (GetCellsArea(rcCells, rcArea))
            InvalidateRect(&rcArea, FALSE);
    }
    else if (!m_bBatchAllInvalid)
        m_arBatchCells.push_back(rcCells);
}

BOOL CGridList::GetCellsArea(const CRect& rcCells, CRect& rcArea)
{
    // Only the rows on screen are worth a rectangle, and only its part in the client area:
    // under Wine every invalidation is a round trip to the window manager.
    const int nTop = std::max<int>(rcCells.top, m_nTopRow);
    const int nBottom = std::min<int>(rcCells.bottom, m_nTopRow + GetCountPerPage() + 1);
    CRect rcFirst, rcLast, rcClient;
    if (nTop > nBottom || !GetCellRect(nTop, rcCells.left, rcFirst) || !GetCellRect(nBottom, rcCells.right, rcLast))
        return FALSE;
    GetClientRect(&rcClient);
    rcArea.UnionRect(&rcFirst, &rcLast);
    return rcArea.IntersectRect(&rcArea, &rcClient);
}

void CGridList::BeginRefreshBatch()
{
    if (m_nRefreshBatch++ == 0)
        m_bBatchAllInvalid = false;
}

void CGridList::EndRefreshBatch()
{
    if (m_nRefreshBatch == 0 || --m_nRefreshBatch > 0)
        return;
    std::vector<CRect> arCells;
    arCells.swap(m_arBatchCells);
    std::vector<CRect> arAreas;
    for (const CRect& rcCells : arCells)
    {
        CRect rcArea;
        if (GetCellsArea(rcCells, rcArea))
            arAreas.push_back(rcArea);
    }
    // An area inside another (or equal to an earlier one) is left out.
    for (size_t i = 0; i < arAreas.size(); ++i)
    {
        bool bCovered = false;
        for (size_t j = 0; j < arAreas.size() && !bCovered; ++j)
        {
            CRect rcUnion;
            rcUnion.UnionRect(&arAreas[i], &arAreas[j]);
            bCovered = j != i && rcUnion == arAreas[j] && (arAreas[i] != arAreas[j] || j < i);
        }
        if (!bCovered)
            InvalidateRect(&arAreas[i], FALSE);
    }
}

void CGridList::RefreshClientArea(bool bFrame)
{
    ::RedrawWindow(m_hWnd, NULL, NULL, RDW_INVALIDATE | (bFrame ? RDW_FRAME : 0));
    m_arBatchCells.clear();
    m_bBatchAllInvalid = m_nRefreshBatch > 0;
}

void CGridList::RefreshCellEx(const Cell& cell, CDC* pDC, const CRect* pRect)
{
    if (!IsValidCell(cell.row, cell.col) || m_hWnd == NULL)
        return;
    if (pDC == NULL)
    {
        CClientDC dc(this);
        RefreshCellEx(cell, &dc, pRect);
        return;
    }
    const int nSaved = pDC->SaveDC();
    if (pRect != NULL)
        pDC->IntersectClipRect(pRect);
    CFont* pFont = GetFont();
    if (pFont != NULL)
        pDC->SelectObject(pFont);
    pDC->SetBkMode(OPAQUE);
    DrawGridCell(cell.row, cell.col, pDC->m_hDC);
    pDC->RestoreDC(nSaved);
}

void CGridList::RefreshCellEx_FullRow(const Cell& cell, CDC* pDC, const CRect* pRect)
{
    if (!IsFullRowSelectGrid())
    {
        RefreshCellEx(cell, pDC, pRect);
        return;
    }
    for (int col = 0; col < m_nCols; ++col)
        RefreshCellEx(Cell(cell.row, col), pDC, pRect);
}

BOOL CGridList::RedrawWindow(LPCRECT lpRectUpdate, HRGN hrgnUpdate, UINT flags)
{
    return !m_bPaintLocked && CWnd::RedrawWindow(lpRectUpdate, hrgnUpdate, flags);
}
