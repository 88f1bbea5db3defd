// CGridHeader: painting the items as push buttons with their texts and engraved sort arrows.
#include "grid/GridHeader.h"

#include <stdio.h>

#include <algorithm>

namespace
{
const int kArrowHeight = 7;
const int kSortIconWidth = 20;
const int kArrowWidth = 8;
} // namespace

void CGridHeader::OnPaint()
{
    CPaintDC dc(this);
    CRect rcClip;
    dc.GetClipBox(&rcClip);
    for (int i = 0; i < GetItemCount(); ++i)
    {
        CRect rcItem;
        GetItemRect(i, &rcItem, true);
        CRect rcPaint;
        if (rcPaint.IntersectRect(&rcItem, &rcClip))
            DrawItem(&dc, i);
        else if (IsStyleVert() ? rcItem.top >= rcClip.bottom : rcItem.left >= rcClip.right)
            break; // the rest lie beyond the clip box
    }
    CRect rcFiller;
    GetItemRect(GetItemCount(), &rcFiller, true);
    CRect rcPaint;
    if (rcPaint.IntersectRect(&rcFiller, &rcClip))
        DrawItem(&dc, GetItemCount());
}

BOOL CGridHeader::OnEraseBkgnd(CDC* pDC)
{
    CRect rcClient;
    GetClientRect(&rcClient);
    pDC->FillSolidRect(&rcClient, m_clrBackground);
    return TRUE;
}

void CGridHeader::DrawItem(CDC* pDC, int nIndex)
{
    CRect rc;
    if (pDC == NULL || !GetItemRect(nIndex, &rc, true) || rc.Width() <= 0)
        return;
    if (nIndex == GetItemCount())
    {
        // The filler's far border falls outside the window.
        if (IsStyleVert())
            rc.bottom += 2;
        else
            rc.right += 2;
        pDC->DrawFrameControl(&rc, DFC_BUTTON, DFCS_BUTTONPUSH);
        return;
    }
    const GHDR_STATE state = static_cast<GHDR_STATE>(GetHdrItem(nIndex).nState);
    if (state == GHDR_PRESSED)
    {
        pDC->DrawFrameControl(&rc, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED);
        pDC->Draw3dRect(&rc, RGB(0, 0, 0), ::GetSysColor(COLOR_BTNSHADOW));
    }
    else
        pDC->DrawFrameControl(&rc, DFC_BUTTON, DFCS_BUTTONPUSH);
    DrawSortIcon(pDC, nIndex, rc, state);
    DrawItemText(pDC, nIndex, rc, state, false);
}

int CGridHeader::DrawItemText(CDC* pDC, int nIndex, CRect rect, GHDR_STATE state, bool bMeasure)
{
    if (pDC == NULL || !IsItem(nIndex) || rect.Height() <= 0)
        return -1;
    const HdrItem& item = GetHdrItem(nIndex);
    rect.DeflateRect(2, 2);
    rect.DeflateRect(m_rcItemPadding.left, m_rcItemPadding.top, m_rcItemPadding.right, m_rcItemPadding.bottom);
    if (state == GHDR_PRESSED)
        rect.OffsetRect(1, 1);
    const UINT nAlign = item.wAlign == 0xFFFF ? DT_CENTER : item.wAlign;
    const int nOldMode = pDC->SetBkMode(TRANSPARENT);
    CFont* pOldFont = NULL;
    if (!m_bPrinting)
    {
        pOldFont = m_fontGrid.GetSafeHandle() != NULL ? pDC->SelectObject(&m_fontGrid)
                                                      : static_cast<CFont*>(pDC->SelectStockObject(DEFAULT_GUI_FONT));
    }
    CRect rcText = rect;
    pDC->DrawText(item.pszText != NULL ? item.pszText : "", -1, &rcText,
                  nAlign | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS | (bMeasure ? DT_CALCRECT : 0));
    if (pOldFont != NULL)
        pDC->SelectObject(pOldFont);
    pDC->SetBkMode(nOldMode);
    if (!bMeasure || nAlign == DT_RIGHT)
        return rect.right;
    // The measure is taken from the left; centred text sits in the middle of the rectangle.
    int nRight = rcText.right;
    if (nAlign == DT_CENTER)
        nRight = rect.left + (rect.Width() - rcText.Width()) / 2 + rcText.Width();
    return std::min(nRight, static_cast<int>(rect.right));
}

CSize CGridHeader::GetSortDrawParam(CDC* pDC, int nIndex, int& nDirection, int& nPriority)
{
    nDirection = 0;
    nPriority = -1;
    CSize size(kSortIconWidth, kArrowHeight);
    if (!IsItem(nIndex))
        return size;
    const HdrItem& item = GetHdrItem(nIndex);
    if (!IsShownSort(item))
        return size;
    nDirection = item.nCurSortType % 2 == 0 ? 1 : 2;
    nPriority = item.nSortPriority;
    if (nPriority >= 1 && pDC != NULL)
    {
        if (m_fontSortNumber.GetSafeHandle() == NULL)
            m_fontSortNumber.CreatePointFont(55, "Small Fonts", pDC);
        char szNumber[16];
        snprintf(szNumber, sizeof(szNumber), "%d", nPriority);
        CRect rcNumber(0, 0, 100, 100);
        CFont* pOldFont = pDC->SelectObject(&m_fontSortNumber);
        pDC->DrawText(szNumber, -1, &rcNumber, DT_CALCRECT | DT_SINGLELINE);
        pDC->SelectObject(pOldFont);
        size.cx += rcNumber.Width();
    }
    return size;
}

BOOL CGridHeader::DrawSortIcon(CDC* pDC, int nIndex, CRect& rect, GHDR_STATE state)
{
    int nDirection = 0;
    int nPriority = -1;
    const CSize size = GetSortDrawParam(pDC, nIndex, nDirection, nPriority);
    if (nDirection != 1 && nDirection != 2)
        return FALSE;
    const CRect rcItem = rect;
    const bool bFits = rect.Width() >= size.cx - 6 && rect.Height() >= size.cy + 4;
    const bool bFullWidth = rect.Width() >= size.cx + 4;
    // Room is left for the icon whether it fits or not; a squeezed item shows no text.
    if (bFullWidth)
        rect.right -= size.cx;
    else
        rect.right = rect.left;
    if (!bFits)
        return FALSE;

    CRect rcInner = rcItem;
    rcInner.DeflateRect(2, 2);
    int nLeft;
    int nRight0;
    if (bFullWidth)
    {
        const int nTextEnd = DrawItemText(pDC, nIndex, rect, state, true);
        nLeft = nTextEnd + 10;
        nRight0 = nTextEnd + size.cx;
    }
    else
    {
        nLeft = rcInner.left + (rcItem.Width() - 4 - size.cx) + 10;
        nRight0 = rcInner.right;
    }
    int nRight = nRight0 - 2;
    if (nRight - nLeft < kArrowWidth)
        return FALSE;
    if (nPriority >= 1 && nRight0 - nLeft > kArrowWidth)
        nRight = nLeft + kArrowWidth;
    int nTop = rcInner.top;
    int nBottom = rcInner.bottom;
    if (rcInner.Height() > kArrowHeight)
    {
        nTop = rcInner.top + (rcInner.Height() - kArrowHeight) / 2;
        nBottom = nTop + kArrowHeight;
    }
    // An even span has two middle columns, an odd one a single one.
    const int nMiddle = nLeft + (nRight - nLeft) / 2;
    const int nMiddleLeft = (nRight - nLeft) % 2 == 0 ? nMiddle - 1 : nMiddle;
    const int nMiddleRight = nMiddle;

    if (m_penArrow.GetSafeHandle() == NULL)
        m_penArrow.CreatePen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW));
    CPen* pOldPen = pDC->SelectObject(&m_penArrow);
    if (nDirection == 1)
    {
        pDC->MoveTo(nMiddleLeft, nTop);
        pDC->LineTo(nLeft, nBottom);
        pDC->SelectStockObject(WHITE_PEN);
        pDC->MoveTo(nMiddleRight, nTop);
        pDC->LineTo(nRight, nBottom);
        pDC->MoveTo(nLeft, nBottom - 1);
        pDC->LineTo(nRight, nBottom - 1);
    }
    else
    {
        pDC->MoveTo(nLeft, nTop);
        pDC->LineTo(nRight, nTop);
        pDC->MoveTo(nLeft, nTop);
        pDC->LineTo(nMiddleLeft, nBottom);
        pDC->SelectStockObject(WHITE_PEN);
        pDC->MoveTo(nRight - 1, nTop);
        pDC->LineTo(nMiddleRight, nBottom);
    }
    pDC->SelectObject(pOldPen);

    CRect rcNumber(nLeft + kArrowWidth, rcInner.top, nRight0, rcInner.bottom);
    if (nPriority >= 1 && rcNumber.Width() > 0)
    {
        char szNumber[16];
        snprintf(szNumber, sizeof(szNumber), "%d", nPriority);
        const int nOldMode = pDC->SetBkMode(TRANSPARENT);
        CFont* pOldFont = pDC->SelectObject(&m_fontSortNumber);
        pDC->DrawText(szNumber, -1, &rcNumber, DT_SINGLELINE);
        pDC->SelectObject(pOldFont);
        pDC->SetBkMode(nOldMode);
    }
    return TRUE;
}
