// CGridHeader: the mouse (divider zones and sizing cursors, divider drags, item presses and
// clicks) and the notifications to the owner.
#include "grid/GridHeader.h"

#include "frame/KelControlsRes.h"

#include <algorithm>

LRESULT CGridHeader::Send_NM_Header(UINT nCode, int iItem, int iButton, HD_ITEM* pItem)
{
    CWnd* pTarget = GetNotifyWnd();
    if (m_hWnd == NULL || pTarget->GetSafeHwnd() == NULL)
        return 0;
    NMHEADERA nm;
    nm.hdr.hwndFrom = m_hWnd;
    nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    nm.hdr.code = nCode;
    nm.iItem = iItem;
    nm.iButton = iButton;
    nm.pitem = pItem;
    return ::SendMessageA(pTarget->GetSafeHwnd(), WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
}

CWnd* CGridHeader::GetNotifyWnd() const
{
    if (m_hWnd == NULL)
        return NULL;
    HWND hWndOwner = ::GetWindow(m_hWnd, GW_OWNER);
    return CWnd::FromHandle(hWndOwner != NULL ? hWndOwner : ::GetParent(m_hWnd));
}

void CGridHeader::SetParentFocus()
{
    CWnd* pTarget = GetNotifyWnd();
    if (pTarget->GetSafeHwnd() != NULL)
        pTarget->SetFocus();
}

// ---------------------------------------------------------------------------------------------
// Divider zones and the sizing cursor

int CGridHeader::DividerHitTest(CPoint point) const
{
    const int nHit = HitTest(point);
    CRect rc;
    if (nHit < 0 || !GetItemRect(nHit, &rc, true))
        return -1;
    const bool bFiller = nHit == GetItemCount();
    const int nLead = IsStyleVert() ? rc.top : rc.left;
    const int nTrail = IsStyleVert() ? rc.bottom : rc.right;
    int nInnerLead = nLead;
    int nInnerTrail = nTrail;
    // Two pixels at each end, where an item is wide enough to keep a middle of its own.
    if (nTrail - nLead > (bFiller ? 2 : 4))
    {
        if (nHit > 0)
            nInnerLead += 2;
        if (!bFiller)
            nInnerTrail -= 2;
    }
    const int nPos = IsStyleVert() ? point.y : point.x;
    if (nPos < nInnerLead)
        return nHit - 1;
    if (nPos >= nInnerTrail && !bFiller)
        return nHit;
    return -1;
}

void CGridHeader::UpdateSizingCursor(int nItem)
{
    const HdrItem& item = GetHdrItem(nItem);
    // The reveal forms drag open an item that is hidden (extent 0).
    UINT nID;
    LPCSTR pszSystemCursor;
    if (IsStyleVert())
    {
        nID = item.nHeight == 0 ? IDC_GRIDHDR_REVEALVERT : IDC_GRIDHDR_SIZEVERT;
        pszSystemCursor = IDC_SIZENS;
    }
    else
    {
        nID = item.nWidth == 0 ? IDC_GRIDHDR_REVEALHORZ : IDC_GRIDHDR_SIZEHORZ;
        pszSystemCursor = IDC_SIZEWE;
    }
    // Through the resource chain, so that a host's own cursor of the same id comes first.
    LPCSTR pszName = MAKEINTRESOURCEA(nID);
    HCURSOR hCursor = ::LoadCursorA(AfxFindResourceHandle(pszName, RT_GROUP_CURSOR), pszName);
    if (hCursor == NULL)
        hCursor = ::LoadCursorA(NULL, pszSystemCursor);
    if (hCursor == ::GetCursor())
        return;
    HCURSOR hPrevious = ::SetCursor(hCursor);
    if (!m_bCursorSaved)
    {
        m_hSavedCursor = hPrevious;
        m_bCursorSaved = true;
    }
}

void CGridHeader::RestoreCursor()
{
    if (!m_bCursorSaved)
        return;
    ::SetCursor(m_hSavedCursor);
    m_hSavedCursor = NULL;
    m_bCursorSaved = false;
}

void CGridHeader::OnMouseMove(UINT, CPoint point)
{
    if (m_nTrackItem >= 0)
    {
        TrackTo(point);
        return;
    }
    const int nPressed = m_nPressedItem[BUTTON_LEFT];
    if (m_bMouseCaptured && IsItem(nPressed))
    {
        // Off the pressed item it shows normal, back on it pressed again.
        const int nState = HitTest(point) == nPressed ? GHDR_PRESSED : GHDR_NORMAL;
        if (GetState(nPressed) != nState)
        {
            SetState(nPressed, nState);
            RefreshItem(nPressed);
        }
        return;
    }
    if (IsNoMouseTrack())
        return;
    const int nItem = DividerHitTest(point);
    if (nItem >= 0)
        UpdateSizingCursor(nItem);
    else
        RestoreCursor();
}

// ---------------------------------------------------------------------------------------------
// Divider drag

void CGridHeader::BeginTrack(int nItem, CPoint point)
{
    if (Send_NM_Header(HDN_BEGINTRACKA, nItem, 0, NULL) != 0)
    {
        ReleaseMouse();
        return;
    }
    CRect rcItem;
    GetItemRect(nItem, &rcItem);
    m_nTrackItem = nItem;
    m_ptTrackStart = point;
    m_nTrackStartExtent = GetExtent(GetHdrItem(nItem));
    m_nTrackEdgeOffset = IsStyleVert() ? rcItem.bottom - point.y : rcItem.right - point.x;
    m_bAutoTrack = false;
    m_nAutoTrackOffset = 0;
    SetCapture();
    m_bMouseCaptured = true;
}

void CGridHeader::TrackTo(CPoint point)
{
    if (IsStyleHorz())
    {
        // With the dragged edge past the strip, the scroll parent scrolls a line that way and
        // the header with it (as its scroll partner); the extent grows by what it scrolled.
        CRect rcClient;
        GetClientRect(&rcClient);
        const int nEdge = point.x + m_nTrackEdgeOffset;
        if (nEdge > rcClient.right || (nEdge < rcClient.left && GetScrollPosition() > 0))
        {
            m_bAutoTrack = true;
            UpdateScrollInfo();
            const int nBefore = GetScrollPosition();
            CWnd* pScrollParent = GetScrollParentWnd();
            if (pScrollParent->GetSafeHwnd() != NULL)
            {
                pScrollParent->SendMessage(WM_HSCROLL, nEdge > rcClient.right ? SB_LINERIGHT : SB_LINELEFT);
                pScrollParent->SendMessage(WM_HSCROLL, SB_ENDSCROLL);
            }
            m_nAutoTrackOffset += GetScrollPosition() - nBefore;
        }
        else if (m_bAutoTrack)
            EndAutoTrack();
    }
    const int nMoved = IsStyleVert() ? point.y - m_ptTrackStart.y : point.x - m_ptTrackStart.x;
    const int nExtent = std::max(m_nTrackStartExtent + nMoved + m_nAutoTrackOffset, 0);
    SendTrack(nExtent - GetExtent(GetHdrItem(m_nTrackItem)), m_nTrackItem, false);
}

void CGridHeader::EndAutoTrack()
{
    m_ptTrackStart.x -= m_nAutoTrackOffset;
    m_nAutoTrackOffset = 0;
    m_bAutoTrack = false;
}

BOOL CGridHeader::SendTrack(int nDelta, int nItem, bool bRedrawAll)
{
    if (!IsItem(nItem) || nDelta == 0)
        return FALSE;
    const int nOld = GetExtent(GetHdrItem(nItem));
    const int nNew = nOld + nDelta;
    if (nNew < 0)
        return FALSE;
    ResizeTrackedItem(nItem, nNew, bRedrawAll);
    HD_ITEM hdi = {};
    hdi.mask = HDI_WIDTH;
    hdi.cxy = nNew;
    if (Send_NM_Header(HDN_TRACKA, nItem, 0, &hdi) == 0)
        return TRUE;
    ResizeTrackedItem(nItem, nOld, bRedrawAll);
    return FALSE;
}

void CGridHeader::ResizeTrackedItem(int nItem, int nExtent, bool bRedrawAll)
{
    CRect rcItem;
    GetItemRect(nItem, &rcItem);
    const int nDelta = nExtent - GetExtent(GetHdrItem(nItem));
    HD_ITEM hdi = {};
    hdi.mask = HDI_WIDTH;
    hdi.cxy = nExtent;
    SetItem(nItem, &hdi, true);
    if (bRedrawAll)
    {
        RedrawWindow();
        return;
    }
    // What lies beyond the item moves with its trailing edge; only the item (and, shrinking,
    // the one uncovered after it) is painted anew.
    CRect rcBeyond;
    GetClientRect(&rcBeyond);
    if (IsStyleVert())
    {
        rcBeyond.top = rcItem.bottom;
        ScrollWindowEx(0, nDelta, &rcBeyond, NULL, NULL, NULL, SW_INVALIDATE);
    }
    else
    {
        rcBeyond.left = rcItem.right;
        ScrollWindowEx(nDelta, 0, &rcBeyond, NULL, NULL, NULL, SW_INVALIDATE);
    }
    if (nDelta < 0 && nItem + 1 < GetItemCount())
    {
        CRect rcNext;
        GetItemRect(nItem + 1, &rcNext);
        InvalidateRect(&rcNext);
    }
    RefreshItem(nItem);
}

void CGridHeader::EndTrack()
{
    if (m_nTrackItem >= 0)
    {
        const int nItem = m_nTrackItem;
        m_nTrackItem = -1;
        m_bAutoTrack = false;
        m_nAutoTrackOffset = 0;
        Send_NM_Header(HDN_ENDTRACKA, nItem, 0, NULL);
        UpdateScrollInfo();
    }
    ReleaseMouse();
}

void CGridHeader::ReleaseMouse()
{
    if (!m_bMouseCaptured)
        return;
    m_bMouseCaptured = false;
    if (::GetCapture() == m_hWnd)
        ::ReleaseCapture();
}

void CGridHeader::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this)
    {
        m_bMouseCaptured = false;
        EndTrack();
        const int nPressed = m_nPressedItem[BUTTON_LEFT];
        m_nPressedItem[BUTTON_LEFT] = -1;
        if (GetState(nPressed) == GHDR_PRESSED)
        {
            SetState(nPressed, GHDR_NORMAL);
            RefreshItem(nPressed);
        }
    }
    CWnd::OnCaptureChanged(pWnd);
}

void CGridHeader::OnKillFocus(CWnd* pNewWnd)
{
    EndTrack();
    CWnd::OnKillFocus(pNewWnd);
}

// ---------------------------------------------------------------------------------------------
// Presses and clicks

void CGridHeader::OnButtonDown(int nButton, CPoint point)
{
    const int nHit = HitTest(point);
    if (!IsItem(nHit))
        return;
    m_nPressedItem[nButton] = nHit;
    // Only the left button shows the press and follows the mouse off the item and back.
    if (nButton == BUTTON_LEFT)
    {
        SetState(nHit, GHDR_PRESSED);
        RefreshItem(nHit);
        SetCapture();
        m_bMouseCaptured = true;
    }
}

void CGridHeader::OnButtonUp(int nButton, CPoint point)
{
    const int nPressed = m_nPressedItem[nButton];
    m_nPressedItem[nButton] = -1;
    if (nButton == BUTTON_LEFT)
    {
        if (GetState(nPressed) == GHDR_PRESSED)
        {
            SetState(nPressed, GHDR_NORMAL);
            RefreshItem(nPressed);
        }
        ReleaseMouse();
    }
    if (IsItem(nPressed) && HitTest(point) == nPressed)
        Send_NM_Header(HDN_ITEMCLICKA, nPressed, nButton, NULL);
}

void CGridHeader::OnButtonDblClk(int nButton, CPoint point)
{
    const int nHit = HitTest(point);
    if (IsItem(nHit))
        Send_NM_Header(HDN_ITEMDBLCLICKA, nHit, nButton, NULL);
}

void CGridHeader::OnLButtonDown(UINT, CPoint point)
{
    const int nDivider = IsNoMouseTrack() ? -1 : DividerHitTest(point);
    if (nDivider >= 0)
    {
        UpdateSizingCursor(nDivider);
        BeginTrack(nDivider, point);
    }
    else
        OnButtonDown(BUTTON_LEFT, point);
}

void CGridHeader::OnLButtonUp(UINT, CPoint point)
{
    if (m_nTrackItem >= 0)
        EndTrack();
    else
        OnButtonUp(BUTTON_LEFT, point);
}

void CGridHeader::OnLButtonDblClk(UINT, CPoint point)
{
    OnButtonDblClk(BUTTON_LEFT, point);
}

void CGridHeader::OnRButtonDown(UINT, CPoint point)
{
    OnButtonDown(BUTTON_RIGHT, point);
}

void CGridHeader::OnRButtonUp(UINT, CPoint point)
{
    OnButtonUp(BUTTON_RIGHT, point);
}

void CGridHeader::OnRButtonDblClk(UINT, CPoint point)
{
    OnButtonDblClk(BUTTON_RIGHT, point);
}

void CGridHeader::OnMButtonDown(UINT, CPoint point)
{
    OnButtonDown(BUTTON_MIDDLE, point);
}

void CGridHeader::OnMButtonUp(UINT, CPoint point)
{
    OnButtonUp(BUTTON_MIDDLE, point);
}

void CGridHeader::OnMButtonDblClk(UINT, CPoint point)
{
    OnButtonDblClk(BUTTON_MIDDLE, point);
}
