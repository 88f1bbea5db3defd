// CGridHeader: the scroll information it keeps but never shows, and how it follows the
// horizontal scrolling of its scroll parent.
#include "grid/GridHeader.h"

#include <stdlib.h>

#include <algorithm>

CWnd* CGridHeader::GetScrollParentWnd() const
{
    return m_hWndScrollParent != NULL ? CWnd::FromHandle(m_hWndScrollParent) : GetParent();
}

int CGridHeader::GetScrollPosition() const
{
    return ::GetScrollPos(m_hWnd, IsStyleVert() ? SB_VERT : SB_HORZ);
}

void CGridHeader::UpdateScrollInfo(int* pPage, int* pMaxPos)
{
    SCROLLINFO si = {sizeof(si), SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(IsStyleVert() ? SB_VERT : SB_HORZ, &si);
    UpdateScrollBars(&si, NULL, pPage, pMaxPos);
}

int CGridHeader::GetMaxScrollPosition()
{
    int nMaxPos = 0;
    UpdateScrollInfo(NULL, &nMaxPos);
    return nMaxPos;
}

BOOL CGridHeader::UpdateScrollBars(SCROLLINFO* pOld, int* pPos, int* pPage, int* pMaxPos)
{
    if (m_hWnd == NULL)
        return FALSE;
    const int nBar = IsStyleVert() ? SB_VERT : SB_HORZ;
    CRect rcParent;
    CWnd* pScrollParent = GetScrollParentWnd();
    if (pScrollParent->GetSafeHwnd() != NULL)
        pScrollParent->GetClientRect(&rcParent);
    SCROLLINFO si = {sizeof(si), SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL, 0, 0, 0, 0, 0};
    si.nPos = GetScrollPosition();
    if (IsStyleVert())
    {
        const int nAverage = GetAverageHeight();
        si.nMax = GetItemCount() - 1;
        si.nPage = nAverage < 1 ? 0 : static_cast<UINT>(std::max(rcParent.Height(), 0) / nAverage);
    }
    else
    {
        si.nMax = m_nTotalWidth - 1;
        si.nPage = static_cast<UINT>(std::max(std::min(rcParent.Width(), m_nTotalWidth), 0));
    }
    const int nMaxPos = std::max(si.nMax - static_cast<int>(si.nPage) + 1, 0);
    si.nPos = std::min(std::max(si.nPos, 0), nMaxPos);
    if (pOld == NULL || pOld->nMin != si.nMin || pOld->nMax != si.nMax || pOld->nPage != si.nPage ||
        pOld->nPos != si.nPos)
    {
        SetScrollInfo(nBar, &si, FALSE);
        ShowScrollBar(nBar, FALSE);
    }
    if (pPos != NULL)
        *pPos = si.nPos;
    if (pPage != NULL)
        *pPage = static_cast<int>(si.nPage);
    if (pMaxPos != NULL)
        *pMaxPos = nMaxPos;
    return TRUE;
}

void CGridHeader::ScrollTo(int nPos)
{
    const int nOld = GetScrollPosition();
    if (nPos == nOld)
        return;
    if (IsStyleVert())
    {
        SetScrollPos(SB_VERT, nPos, FALSE);
        ScrollWindowEx(0, (nOld - nPos) * GetAverageHeight(), NULL, NULL, NULL, NULL, SW_INVALIDATE | SW_ERASE);
    }
    else
    {
        SetScrollPos(SB_HORZ, nPos, FALSE);
        ScrollWindowEx(nOld - nPos, 0, NULL, NULL, NULL, NULL, SW_INVALIDATE | SW_ERASE);
    }
    RefreshItem(GetItemCount());
    UpdateWindow();
}

void CGridHeader::CheckNUpdateScrollCx()
{
    CWnd* pScrollParent = GetScrollParentWnd();
    if (m_nLastParentPos < 0 || pScrollParent->GetSafeHwnd() == NULL)
        return;
    SCROLLINFO si = {sizeof(si), SIF_ALL, 0, 0, 0, 0, 0};
    if (!::GetScrollInfo(pScrollParent->GetSafeHwnd(), SB_HORZ, &si))
        return;
    const int nDistance = abs(si.nPos - m_nLastParentPos);
    const int nParentMaxPos = std::max(si.nMax - static_cast<int>(si.nPage) + 1, 0);
    const int nMaxPos = GetMaxScrollPosition();
    if (nDistance == 0 || nDistance == m_nHorzLineStep || nMaxPos != nParentMaxPos || si.nMin != 0)
        return;
    const int nDirection = si.nPos > m_nLastParentPos ? 1 : -1;
    int nPos = GetScrollPosition() + nDirection * (nDistance - m_nHorzLineStep);
    if (si.nPos == 0 || si.nPos == nParentMaxPos)
        nPos = si.nPos;
    ScrollTo(std::min(std::max(nPos, 0), nMaxPos));
    m_nHorzLineStep = nDistance;
}

void CGridHeader::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar*)
{
    if (IsStyleVert())
        return;
    if (nSBCode == SB_LINELEFT || nSBCode == SB_LINERIGHT)
    {
        // The line step is checked against scroll information brought up to date first.
        int nPage = 0;
        int nMaxPos = 0;
        UpdateScrollInfo(&nPage, &nMaxPos);
        CheckNUpdateScrollCx();
    }
    if (!ScrollByRequest(nSBCode, nPos, m_nHorzLineStep))
        return;
    if (nSBCode == SB_LINELEFT || nSBCode == SB_LINERIGHT)
    {
        CWnd* pScrollParent = GetScrollParentWnd();
        if (pScrollParent->GetSafeHwnd() != NULL)
            m_nLastParentPos = pScrollParent->GetScrollPos(SB_HORZ);
    }
}

void CGridHeader::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar*)
{
    if (IsStyleVert())
        ScrollByRequest(nSBCode, nPos, 1);
}

BOOL CGridHeader::ScrollByRequest(UINT nSBCode, UINT nPos, int nLine)
{
    int nPage = 0;
    int nMaxPos = 0;
    UpdateScrollInfo(&nPage, &nMaxPos);
    int nNew = GetScrollPosition();
    // The horizontal and vertical codes share their values (SB_LINELEFT is SB_LINEUP, ...).
    switch (nSBCode)
    {
    case SB_LINEUP:
        nNew -= nLine;
        break;
    case SB_LINEDOWN:
        nNew += nLine;
        break;
    case SB_PAGEUP:
        nNew -= nPage;
        break;
    case SB_PAGEDOWN:
        nNew += nPage;
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        if (static_cast<int>(nPos) <= nMaxPos)
            nNew = static_cast<int>(nPos);
        break;
    case SB_TOP:
        nNew = 0;
        break;
    case SB_BOTTOM:
        nNew = nMaxPos;
        break;
    default:
        return FALSE;
    }
    ScrollTo(std::min(std::max(nNew, 0), nMaxPos));
    return TRUE;
}
