// CGridList: where cells lie, which rows and columns show, the grid's own size, and the
// windows that scroll in step with it.
#include "grid/GridList.h"

#include <algorithm>

// ---------------------------------------------------------------------------------------------
// Columns

const std::vector<int>& CGridList::GetColumnEdges() const
{
    // Read from the list view only after a column changed: painting asks for every cell.
    if (m_arColEdges.size() != static_cast<size_t>(m_nCols))
    {
        m_arColEdges.resize(static_cast<size_t>(m_nCols));
        int nRight = 0;
        for (int col = 0; col < m_nCols; ++col)
        {
            nRight += CListCtrl::GetColumnWidth(col);
            m_arColEdges[static_cast<size_t>(col)] = nRight;
        }
    }
    return m_arColEdges;
}

LRESULT CGridList::OnColumnChange(WPARAM, LPARAM)
{
    LRESULT lResult = Default();
    m_arColEdges.clear();
    return lResult;
}

LRESULT CGridList::OnSetColumnWidth(WPARAM wParam, LPARAM lParam)
{
    const int col = static_cast<int>(wParam);
    const int nOldWidth = GetColumnWidth(col);
    const int xOldScroll = GetScrollPos(SB_HORZ);
    // A divider drag sets a width per mouse move: the list view would redraw its scroll bars
    // and move the columns on screen each time. It changes the width quietly, and the grid
    // moves and repaints what changed itself.
    LRESULT lResult = 0;
    ChangeListQuietly([this, wParam, lParam, &lResult]() { lResult = OnColumnChange(wParam, lParam); });
    if (lResult == 0 || col < 0 || col >= m_nCols)
        return lResult;
    RepaintResizedColumn(col, nOldWidth, xOldScroll);
    if (GetParent() != NULL)
        GetParent()->SendMessage(GM_COLUMNWIDTHCHANGED, wParam, GetColumnWidth(col));
    return lResult;
}

void CGridList::RepaintResizedColumn(int col, int nOldWidth, int xOldScroll)
{
    if (!IsRefreshNeeded())
        return;
    if (GetScrollPos(SB_HORZ) != xOldScroll)
    {
        Invalidate(FALSE); // every column moved
        return;
    }
    CRect rcClient;
    GetClientRect(&rcClient);
    const int nNewWidth = GetColumnWidth(col);
    const int xLeft = (col > 0 ? GetColumnEdges()[static_cast<size_t>(col) - 1] : 0) - xOldScroll;
    // What lies right of the column moves with its right edge; the column itself is painted
    // anew, since its texts may be aligned anywhere in it.
    CRect rcBeyond(rcClient);
    rcBeyond.left = std::max<int>(rcClient.left, xLeft + std::min(nOldWidth, nNewWidth));
    if (!rcBeyond.IsRectEmpty() && nNewWidth != nOldWidth)
        ScrollWindowEx(nNewWidth - nOldWidth, 0, &rcBeyond, &rcBeyond, NULL, NULL, SW_INVALIDATE);
    CRect rcColumn(xLeft, rcClient.top, xLeft + std::max(nOldWidth, nNewWidth), rcClient.bottom);
    if (rcColumn.IntersectRect(&rcColumn, &rcClient))
        InvalidateRect(&rcColumn, FALSE);
}

int CGridList::GetColumnWidth(int col) const
{
    if (col < 0 || col >= m_nCols)
        return 0;
    const std::vector<int>& arEdges = GetColumnEdges();
    return arEdges[static_cast<size_t>(col)] - (col > 0 ? arEdges[static_cast<size_t>(col) - 1] : 0);
}

BOOL CGridList::SetColumnWidth(int col, int nWidth)
{
    // The width travels in the low word of the message, as the list view takes it.
    return col >= 0 && col < m_nCols && CListCtrl::SetColumnWidth(col, nWidth);
}

void CGridList::SetAllColsToWidth(int nWidth)
{
    for (int col = 0; col < m_nCols; ++col)
        SetColumnWidth(col, nWidth);
}

int CGridList::GetFixedColWidht() const
{
    return m_bFixedCol ? GetColumnWidth(0) : 0;
}

int CGridList::GetTotalVisibleColumnWidht() const
{
    int nFirst = GetFirstVisibleCol();
    int nLast = GetLastVisibleCol();
    if (nFirst < 0)
        return 0;
    const std::vector<int>& arEdges = GetColumnEdges();
    return arEdges[static_cast<size_t>(nLast)] - (nFirst > 0 ? arEdges[static_cast<size_t>(nFirst) - 1] : 0);
}

BOOL CGridList::GetColumnsInSpan(int xRow, int xLeft, int xRight, int& nFirst, int& nLast) const
{
    const std::vector<int>& arEdges = GetColumnEdges();
    // The first column whose right edge lies past xLeft, then the first one starting at or past xRight.
    nFirst = static_cast<int>(std::upper_bound(arEdges.begin(), arEdges.end(), xLeft - xRow) - arEdges.begin());
    nLast = static_cast<int>(std::lower_bound(arEdges.begin(), arEdges.end(), xRight - xRow) - arEdges.begin());
    if (nLast >= m_nCols)
        nLast = m_nCols - 1;
    // Columns of no width meet nothing.
    while (nLast >= nFirst && GetColumnWidth(nLast) == 0)
        --nLast;
    return nFirst <= nLast && xLeft < xRight;
}

// ---------------------------------------------------------------------------------------------
// Cells and rows

BOOL CGridList::GetCellRect(int row, int col, CRect& rect)
{
    if (!IsValidCell(row, col))
        return FALSE;
    CRect rcRow;
    if (row == m_nDrawRow)
        rcRow = m_rcDrawRow;
    else if (!GetRowRect(row, rcRow))
        return FALSE;
    // Sub-item 0 of a list view spans the whole row: the grid's column 0 is its first column only.
    const std::vector<int>& arEdges = GetColumnEdges();
    rect.SetRect(rcRow.left + (col > 0 ? arEdges[static_cast<size_t>(col) - 1] : 0), rcRow.top,
                 rcRow.left + arEdges[static_cast<size_t>(col)], rcRow.bottom);
    return TRUE;
}

BOOL CGridList::GetRowRect(int row, CRect& rect) const
{
    // Rows are all as high and as wide as the list view's first; they lie from the top row down.
    if (row < 0 || row >= m_nRows || !CListCtrl::GetItemRect(0, &rect, LVIR_BOUNDS))
        return FALSE;
    const int nHeight = rect.Height();
    rect.top = (row - m_nTopRow) * nHeight;
    rect.bottom = rect.top + nHeight;
    return TRUE;
}

CRect CGridList::GetCellInnerRect(const CRect& rcCell) const
{
    CRect rect(rcCell);
    if (!IsNoGridLines())
    {
        --rect.right;
        --rect.bottom;
    }
    return rect;
}

CSize CGridList::GetGridSize()
{
    const std::vector<int>& arEdges = GetColumnEdges();
    return CSize(arEdges.empty() ? 0 : arEdges.back(), m_nRowHeight * m_nRows);
}

int CGridList::GetFirstVisibleRow() const
{
    if (m_nRows <= GetFirstDataRow())
        return -1;
    return m_nTopRow;
}

int CGridList::GetLastVisibleRow() const
{
    if (m_nRows <= GetFirstDataRow())
        return -1;
    CRect rcClient;
    GetClientRect(&rcClient);
    int nRows = m_nRowHeight > 0 ? rcClient.Height() / m_nRowHeight : 0;
    return std::min(m_nRows - 1, std::max(0, nRows + m_nTopRow));
}

BOOL CGridList::GetVisibleCols(int& nFirst, int& nLast) const
{
    CRect rcClient;
    GetClientRect(&rcClient);
    return GetColumnsInSpan(-GetScrollPos(SB_HORZ), rcClient.left, rcClient.right, nFirst, nLast);
}

int CGridList::GetFirstVisibleCol() const
{
    int nFirst;
    int nLast;
    return GetVisibleCols(nFirst, nLast) ? nFirst : -1;
}

int CGridList::GetLastVisibleCol() const
{
    int nFirst;
    int nLast;
    return GetVisibleCols(nFirst, nLast) ? nLast : -1;
}

BOOL CGridList::IsHorzScrollBarVisible() const
{
    return (CWnd::GetStyle() & WS_HSCROLL) != 0;
}

BOOL CGridList::IsVertScrollBarVisible() const
{
    return (CWnd::GetStyle() & WS_VSCROLL) != 0;
}

BOOL CGridList::EnsureVisible(int row, int col)
{
    if (!IsValidCell(row, col))
        return FALSE;
    if (IsHdrCell(row, col))
        return TRUE;
    if (IsFullRowSelectGrid())
        col = GetFirstDataCol();

    if (ScrollRowIntoView(row))
    {
        SendScrollMsg(1, SB_THUMBPOSITION, static_cast<UINT>(m_nTopRow));
        SendScrollMsg(1, SB_ENDSCROLL, 0);
    }

    CRect rcCell;
    CRect rcClient;
    GetClientRect(&rcClient);
    if (!GetCellRect(row, col, rcCell))
        return FALSE;
    // Right of the client area it moves in until its right edge shows, but never so far that
    // its left edge leaves.
    int dx = 0;
    if (rcCell.left < rcClient.left)
        dx = rcCell.left - rcClient.left;
    else if (rcCell.right > rcClient.right)
        dx = std::min(rcCell.right - rcClient.right, rcCell.left - rcClient.left);
    if (dx != 0)
    {
        Scroll(CSize(dx, 0));
        SendScrollMsg(0, SB_THUMBPOSITION, static_cast<UINT>(GetScrollPos(SB_HORZ)));
        SendScrollMsg(0, SB_ENDSCROLL, 0);
    }
    return TRUE;
}

// ---------------------------------------------------------------------------------------------
// Sizing the window to the grid

void CGridList::FitToGrid(int bFit, const CSize& maxSize)
{
    if (bFit == 1)
    {
        CRect rcWindow;
        GetWindowRect(&rcWindow);
        bool bCurrent = maxSize.cx == 0 && maxSize.cy == 0;
        m_nMaxWidth = bCurrent ? rcWindow.Width() : maxSize.cx;
        m_nMaxHeight = bCurrent ? rcWindow.Height() : maxSize.cy;
        m_bFitToGrid = 1;
        CWnd::ModifyStyle(LVS_NOSCROLL, 0);
        UpdateClientSizeToGrid();
    }
    else
    {
        m_bFitToGrid = 0;
        m_nMaxWidth = 0;
        m_nMaxHeight = 0;
    }
}

void CGridList::UpdateClientSizeToGrid()
{
    if (!m_bFitToGrid || m_bIgnoreFitToGrid || m_bResizing || m_hWnd == NULL)
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
        int cxBar = ::GetSystemMetrics(SM_CXVSCROLL);
        if (size.cx + cxBar <= m_nMaxWidth)
            size.cx += cxBar;
    }
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    if (size != rcWindow.Size())
    {
        m_bResizing = TRUE;
        SetWindowPos(NULL, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        m_bResizing = FALSE;
    }
}

void CGridList::OnSize(UINT nType, int cx, int cy)
{
    CListCtrl::OnSize(nType, cx, cy);
    RestoreTopRow();
    if (m_bResizing || m_nEvenColumnWidth <= 0 || m_nCols <= 0)
        return;
    // Evenly spread columns share the client width, none narrower than the even width.
    m_bResizing = TRUE;
    SetAllColsToWidth(std::max(m_nEvenColumnWidth, cx / m_nCols));
    m_bResizing = FALSE;
}

void CGridList::SetEvenColumnWidthNHeight(int nWidth, int nHeight)
{
    m_nEvenColumnWidth = nWidth;
    m_nEvenRowHeight = nHeight;
    if (m_hWnd == NULL)
        return;
    CRect rcClient;
    GetClientRect(&rcClient);
    SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(rcClient.Width(), rcClient.Height()));
    UpdateClientSizeToGrid();
}

void CGridList::FitColHeaders()
{
    if (!m_bFixedRow || m_hWnd == NULL)
        return;
    CClientDC dc(this);
    CFont* pOldFont = dc.SelectObject(GetFont());
    int nWidest = 0;
    for (int col = 0; col < m_nCols; ++col)
    {
        LPCTSTR pszText = GetText(0, col);
        nWidest = std::max(nWidest, static_cast<int>(dc.GetTextExtent(pszText, lstrlenA(pszText)).cx));
    }
    dc.SelectObject(pOldFont);
    if (nWidest + 4 > m_nEvenColumnWidth)
        SetAllColsToWidth(nWidest + 4);
    UpdateClientSizeToGrid();
}

void CGridList::SetRowHeight(int nHeight)
{
    if (nHeight < 0)
        return;
    m_nRowHeight = nHeight;
    if (m_hWnd == NULL)
        return;
    RemeasureRows();
    UpdateClientSizeToGrid();
}

void CGridList::RemeasureRows()
{
    // The list view measures its items again only when its size changes.
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    const UINT nFlags = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    m_bResizing = TRUE;
    SetWindowPos(NULL, 0, 0, rcWindow.Width(), rcWindow.Height() + 1, nFlags);
    SetWindowPos(NULL, 0, 0, rcWindow.Width(), rcWindow.Height(), nFlags);
    m_bResizing = FALSE;
    Invalidate(FALSE);
}

void CGridList::MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    if (lpMeasureItemStruct == NULL)
        return;
    lpMeasureItemStruct->itemHeight = static_cast<UINT>(m_nRowHeight);
    m_nMeasuredHeight = m_nRowHeight;
}

BOOL CGridList::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_MEASUREITEM)
        return CListCtrl::OnChildNotify(message, wParam, lParam, pResult);
    MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
    if (pResult != NULL)
        *pResult = TRUE;
    return TRUE;
}

// ---------------------------------------------------------------------------------------------
// Scrolling and scroll partners

BOOL CGridList::AddScrollWnd(HWND hWnd, int nBar)
{
    if (hWnd == NULL || (nBar != 0 && nBar != 1 && nBar != 3))
        return FALSE;
    for (CScrollWnd& partner : m_arScrollWnds)
    {
        if (partner.hWnd == hWnd)
        {
            partner.nBar = nBar;
            return TRUE;
        }
    }
    m_arScrollWnds.push_back(CScrollWnd{hWnd, nBar});
    return TRUE;
}

BOOL CGridList::DeleteScrollWnd(HWND hWnd)
{
    auto it = std::find_if(m_arScrollWnds.begin(), m_arScrollWnds.end(),
                           [hWnd](const CScrollWnd& partner) { return partner.hWnd == hWnd; });
    if (it == m_arScrollWnds.end())
        return FALSE;
    m_arScrollWnds.erase(it);
    return TRUE;
}

BOOL CGridList::SendScrollMsg(int nBar, UINT nSBCode, UINT nPos)
{
    if (nBar != 0 && nBar != 1)
        return FALSE;
    const UINT nMsg = nBar == 1 ? WM_VSCROLL : WM_HSCROLL;
    BOOL bSent = FALSE;
    // A partner may leave the list while it is told.
    std::vector<CScrollWnd> arPartners(m_arScrollWnds);
    for (const CScrollWnd& partner : arPartners)
    {
        if (partner.nBar == nBar || partner.nBar == 3)
        {
            ::SendMessage(partner.hWnd, nMsg, MAKEWPARAM(nSBCode, nPos), 0);
            bSent = TRUE;
        }
    }
    return bSent;
}

void CGridList::OnScrollRequest(int nBar, UINT nSBCode, UINT nPos)
{
    // An editor does not move with the cells: it closes first, and one the host keeps open
    // holds the grid still.
    if (!ProcessCustomEditKillFocus(NULL, 1))
        return;
    // The focus rectangle would be carried along by the scrolled pixels: it stays off until the
    // scrolling ends.
    if (nSBCode != SB_ENDSCROLL && (m_nDrawState & ODS_FOCUS) != 0)
    {
        UpdateFocusRect(false);
        UpdateWindow();
    }
    SendScrollMsg(nBar == SB_VERT ? 1 : 0, nSBCode, nPos);
    if (nBar == SB_HORZ)
        Default();
    else
    {
        const int nPage = std::max(1, GetCountPerPage());
        int nTop = m_nTopRow;
        SCROLLINFO si;
        si.cbSize = sizeof(si);
        switch (nSBCode)
        {
        case SB_LINEUP:
            --nTop;
            break;
        case SB_LINEDOWN:
            ++nTop;
            break;
        case SB_PAGEUP:
            nTop -= nPage;
            break;
        case SB_PAGEDOWN:
            nTop += nPage;
            break;
        case SB_TOP:
            nTop = 0;
            break;
        case SB_BOTTOM:
            nTop = m_nRows;
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            // The bar's own 32-bit position: the message's 16 bits do not reach past row 65535.
            if (GetScrollInfo(SB_VERT, &si, SIF_TRACKPOS))
                nTop = si.nTrackPos;
            break;
        default:
            break;
        }
        ScrollToRow(nTop, false);
    }
    if (nSBCode == SB_ENDSCROLL)
        UpdateFocusRect(true);
}

void CGridList::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar*)
{
    OnScrollRequest(SB_VERT, nSBCode, nPos);
}

void CGridList::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar*)
{
    OnScrollRequest(SB_HORZ, nSBCode, nPos);
}

bool CGridList::ScrollToRow(int nTop, bool bQuiet)
{
    const int nPage = std::max(1, GetCountPerPage());
    nTop = std::max(0, std::min(nTop, m_nRows - nPage));
    const int nOldTop = m_nTopRow;
    CRect rcRow;
    if (nTop == nOldTop || !GetRowRect(nOldTop, rcRow))
        return false;
    m_nTopRow = nTop;
    // The grid paints every cell itself, so moving is setting the bar and repainting; the list
    // view's own scrolling (and hiding it so that it would not draw) costs many round trips to
    // the window server under Wine.
    SCROLLINFO si;
    si.cbSize = sizeof(si);
    si.fMask = SIF_POS;
    si.nPos = nTop;
    SetScrollInfo(SB_VERT, &si, !bQuiet);
    if (bQuiet || abs(nTop - nOldTop) >= nPage)
        RefreshClientArea(bQuiet);
    else
        ScrollWindowEx(0, (nOldTop - nTop) * rcRow.Height(), NULL, NULL, NULL, NULL, SW_INVALIDATE);
    return true;
}

bool CGridList::ScrollRowIntoView(int row)
{
    // A jump neither blits the rows nor draws the bar at once (what it would cost most): the
    // rows and the bar are painted afresh with the next paint.
    const int nPage = std::max(1, GetCountPerPage());
    if (row < m_nTopRow)
        return ScrollToRow(row, true);
    if (row >= m_nTopRow + nPage)
        return ScrollToRow(row - nPage + 1, true);
    return false;
}

void CGridList::RestoreTopRow()
{
    const int nTop = std::max(0, std::min(m_nTopRow, m_nRows - std::max(1, GetCountPerPage())));
    if (GetScrollPos(SB_VERT) != nTop)
        SetScrollPos(SB_VERT, nTop, FALSE);
    if (nTop != m_nTopRow)
    {
        m_nTopRow = nTop;
        RefreshClientArea(true);
    }
}

LRESULT CGridList::OnGetTopIndex(WPARAM, LPARAM)
{
    return m_nTopRow;
}

LRESULT CGridList::OnScrollMsg(WPARAM wParam, LPARAM lParam)
{
    // Across, the list view scrolls; down, the grid moves by whole rows, the nearest to dy.
    const int dy = static_cast<int>(lParam);
    if (wParam != 0 && !DefWindowProc(LVM_SCROLL, wParam, 0))
        return FALSE;
    CRect rcRow;
    if (dy != 0 && GetRowRect(m_nTopRow, rcRow) && rcRow.Height() > 0)
        ScrollToRow(m_nTopRow + (dy + (dy < 0 ? -1 : 1) * rcRow.Height() / 2) / rcRow.Height(), false);
    return TRUE;
}

LRESULT CGridList::OnEnsureVisibleMsg(WPARAM wParam, LPARAM)
{
    const int row = static_cast<int>(wParam);
    if (row < 0 || row >= m_nRows)
        return FALSE;
    ScrollRowIntoView(row);
    return TRUE;
}
