// CGridList: mouse, wheel and keyboard input.
#include "grid/GridList.h"

#include <algorithm>
#include <climits>

namespace
{
// Timer ids well away from those the list view uses for itself.
const UINT_PTR kClickEditTimer = 0x4B01;
const UINT_PTR kDragTimer = 0x4B02;
const UINT kDragRepeat = 50; // ms between scroll steps while a drag holds past an edge

// Printable ASCII but the space: the characters that start an edit.
bool IsEditStartChar(UINT nChar)
{
    return nChar > 0x20 && nChar < 0x7F;
}

bool IsEditorStyle(int nStyle)
{
    return nStyle == CGridList::GES_EDIT || nStyle == CGridList::GES_COMBO;
}
} // namespace

void CGridList::SimpleBeep()
{
    ::MessageBeep(0xFFFFFFFF);
}

// ---- Edit triggers ----------------------------------------------------------------------------

BOOL CGridList::SetGridEditStyle(DWORD dwTrigger, int nStyle)
{
    if (dwTrigger == 0 || (dwTrigger & (dwTrigger - 1)) != 0)
        return FALSE;
    size_t nBit = 0;
    while ((dwTrigger >> nBit) != 1)
        ++nBit;
    if (m_arEditStyles.size() <= nBit)
        m_arEditStyles.resize(nBit + 1, GES_NONE);
    m_arEditStyles[nBit] = nStyle;
    return TRUE;
}

int CGridList::GetGridEditStyle(DWORD dwTrigger) const
{
    for (size_t nBit = 0; nBit < m_arEditStyles.size(); ++nBit)
    {
        if (dwTrigger == (DWORD(1) << nBit))
            return m_arEditStyles[nBit];
    }
    return GES_NONE;
}

int CGridList::GetGridEditStyles(DWORD dwTrigger) const
{
    switch (dwTrigger)
    {
    case GET_CLICK:
    case GET_CHAR:
    case GET_DBLCLK:
    case GET_RETURN:
    case GET_INSERT:
        return GetGridEditStyle(dwTrigger);
    default:
        return GES_NONE;
    }
}

int CGridList::BeginTriggerEdit(DWORD dwTrigger, UINT nChar)
{
    const int nStyle = GetGridEditStyle(dwTrigger);
    if (!IsEditorStyle(nStyle) || !IsNonHdrCell(m_CaretCell))
        return 1;
    return OnGridEdit_Begin(m_CaretCell.row, m_CaretCell.col, nStyle, static_cast<int>(dwTrigger), nChar);
}

void CGridList::KillClickEditTimer()
{
    if (m_nClickEditTimer != 0)
        KillTimer(m_nClickEditTimer);
    m_nClickEditTimer = 0;
}

// ---- Hit testing ------------------------------------------------------------------------------

BOOL CGridList::HitTest(CPoint point, Cell& cell)
{
    cell = Cell();
    CRect rcClient;
    GetClientRect(&rcClient);
    if (m_nRows == 0 || !rcClient.PtInRect(point))
        return FALSE;
    // Rows are all as high as the top one.
    const int nTop = m_nTopRow;
    CRect rcTop;
    if (!GetRowRect(nTop, rcTop) || rcTop.Height() <= 0 || point.y < rcTop.top)
        return FALSE;
    const int row = nTop + (point.y - rcTop.top) / rcTop.Height();
    int nFirst = 0;
    int nLast = 0;
    if (row >= m_nRows || !GetColumnsInSpan(rcTop.left, point.x, point.x + 1, nFirst, nLast))
        return FALSE;
    cell = Cell(row, nFirst);
    return TRUE;
}

int CGridList::HitTest(LVHITTESTINFO* pInfo)
{
    if (pInfo == NULL)
        return -1;
    Cell cell;
    const BOOL bHit = HitTest(CPoint(pInfo->pt), cell);
    pInfo->flags = bHit ? LVHT_ONITEM : LVHT_NOWHERE;
    pInfo->iItem = cell.row;
    pInfo->iSubItem = cell.col;
    return cell.row;
}

BOOL CGridList::FindClosestCell(const CPoint& point, int& row, int& col)
{
    row = col = -1;
    CRect rcClient;
    GetClientRect(&rcClient);
    CRect rcTop;
    if (m_nRows <= GetFirstDataRow() || m_nCols <= GetFirstDataCol() || rcClient.IsRectEmpty() ||
        !GetRowRect(m_nTopRow, rcTop))
        return FALSE;
    // Into the client area and the cells it shows, then onto the nearest data cell.
    const CSize size = GetGridSize();
    const LONG nRight = std::min<LONG>(rcClient.right, rcTop.left + size.cx) - 1;
    const LONG nBottom = std::min<LONG>(rcClient.bottom, rcTop.top + (m_nRows - m_nTopRow) * rcTop.Height()) - 1;
    CPoint pt(std::max<LONG>(rcClient.left, std::min<LONG>(point.x, nRight)),
              std::max<LONG>(rcClient.top, std::min<LONG>(point.y, nBottom)));
    Cell cell;
    if (!HitTest(pt, cell))
        return FALSE;
    row = std::max(cell.row, GetFirstDataRow());
    col = std::max(cell.col, GetFirstDataCol());
    return TRUE;
}

// ---- Left button and drag selection ------------------------------------------------------------

void CGridList::OnLButtonDown(UINT nFlags, CPoint point)
{
    if ((nFlags & MK_LBUTTON) == 0)
        return;
    Cell cell;
    HitTest(point, cell);
    KillClickEditTimer();
    if (ProcessCustomEditKillFocus(NULL, TRUE) == 0)
        return;
    if (m_bCapture)
        ReleaseCapture();

    m_DownCell = Cell();
    m_CtrlDownCell = Cell();
    m_bDownMovedCaret = FALSE;
    if (IsNonHdrCell(cell))
    {
        if (IsStyleList())
            cell.col = GetFirstDataCol();
        m_DownCell = cell;
        m_bDownMovedCaret = IsShowEditIconsOnFocus(cell.row, cell.col) && cell != m_CaretCell;
        if ((nFlags & MK_SHIFT) != 0 && GetSelectedCount() > 0)
            SelectDragCells(m_AnchorCell, cell, m_CaretCell);
        else if ((nFlags & MK_CONTROL) == 0)
        {
            const bool bWasCaret = cell == m_CaretCell;
            RemoveAllSelectedNAddCell(cell);
            const int nStyle = GetGridEditStyle(GET_CLICK);
            if (bWasCaret && IsEditorStyle(nStyle) && !HitTestEditIcon(cell.row, cell.col, point))
            {
                // A second click edits only once it is sure not to be half of a double click.
                m_ClickEditCell = cell;
                m_nClickEditStyle = nStyle;
                m_dwClickEditTrigger = GET_CLICK;
                m_nClickEditChar = static_cast<UINT>(-1);
                m_nClickEditTimer = SetTimer(kClickEditTimer, ::GetDoubleClickTime(), NULL);
            }
        }
        else
            m_CtrlDownCell = cell;
        m_LastDragCell = m_CaretCell;
        m_ptLastDrag = point;
        if (IsMultiSelection())
        {
            SetCapture();
            m_bCapture = TRUE;
        }
    }
    if (::GetFocus() != m_hWnd)
        SetFocus();
}

void CGridList::OnLButtonUp(UINT nFlags, CPoint point)
{
    if (m_bCapture)
        ReleaseCapture();
    Cell cell;
    HitTest(point, cell);
    Cell unit = cell;
    if (IsStyleList() && IsNonHdrCell(cell))
        unit.col = GetFirstDataCol();
    const bool bOnDown = IsNonHdrCell(m_DownCell) && unit == m_DownCell;

    if (!m_bDownMovedCaret && bOnDown && (m_dwEditIconStyle & EIS_SHOW) != 0 &&
        HitTestEditIcon(cell.row, cell.col, point))
    {
        // The edit type of the icon the cell shows: the caret's own on the focused cell only.
        const short nType = cell == m_EditIconCell ? m_nEditIconType : GetCellEditIconEditType(cell.row, cell.col);
        if (cell != m_CaretCell)
            RemoveAllSelectedNAddCell(cell);
        OnGridEdit_Begin(cell.row, cell.col, nType, 0, static_cast<UINT>(-1));
    }
    else if ((nFlags & MK_CONTROL) != 0 && IsNonHdrCell(unit) && unit == m_CtrlDownCell)
        InvertSelection(unit);

    if (bOnDown || (IsFullRowSelectGrid() && IsNonHdrCell(m_DownCell) && cell.row == m_DownCell.row))
        SendItemActivateNotification(NM_CLICK, cell.row, cell.col, point);
    m_DownCell = Cell();
    m_CtrlDownCell = Cell();
}

void CGridList::OnMouseMove(UINT nFlags, CPoint point)
{
    if ((nFlags & MK_LBUTTON) == 0 || !m_bCapture || !IsMultiSelection() || point == m_ptLastDrag)
        return;
    m_ptLastDrag = point;
    DragSelectTo(point);
}

void CGridList::DragSelectTo(CPoint point)
{
    CRect rcClient;
    GetClientRect(&rcClient);
    Cell target;
    if (rcClient.PtInRect(point))
    {
        StopDragTimer();
        if (!HitTest(point, target) || !IsNonHdrCell(target))
            return;
    }
    else
    {
        if (!FindClosestCell(point, target.row, target.col))
            return;
        // Past an edge the drag reaches one row or column beyond what shows, which scrolls it
        // into view; the timer repeats the step while the pointer stays out there.
        if (point.y < rcClient.top)
            target.row = std::max(GetFirstDataRow(), GetFirstVisibleRow() - 1);
        else if (point.y >= rcClient.bottom)
            target.row = std::min(m_nRows - 1, GetLastVisibleRow() + 1);
        if (point.x < rcClient.left)
            target.col = std::max(GetFirstDataCol(), GetFirstVisibleCol() - 1);
        else if (point.x >= rcClient.right)
            target.col = std::min(m_nCols - 1, GetLastVisibleCol() + 1);
        EnsureVisible(target.row, target.col);
        if (m_nDragTimer == 0)
            m_nDragTimer = SetTimer(kDragTimer, kDragRepeat, NULL);
    }
    if (IsStyleList())
        target.col = GetFirstDataCol();
    if (target == m_LastDragCell || (::GetKeyState(VK_CONTROL) < 0 && target == m_CtrlDownCell))
        return;
    m_LastDragCell = target;
    SelectDragCells(m_AnchorCell, target, m_CaretCell);
}

void CGridList::StopDragTimer()
{
    if (m_nDragTimer != 0)
        KillTimer(m_nDragTimer);
    m_nDragTimer = 0;
}

void CGridList::OnCaptureChanged(CWnd*)
{
    m_bCapture = FALSE;
    StopDragTimer();
    Default();
}

void CGridList::OnLButtonDblClk(UINT, CPoint point)
{
    KillClickEditTimer();
    Cell cell;
    if (!HitTest(point, cell))
        return;
    if (SendItemActivateNotification(NM_DBLCLK, cell.row, cell.col, point) != 0 || cell != m_CaretCell)
        return;
    long nIcon = EDITICON_NONE;
    CRect rcIcon;
    if ((m_dwEditIconStyle & EIS_SHOW) != 0 && GetEditIconRect(cell.row, cell.col, rcIcon, NULL, &nIcon) &&
        (nIcon == EDITICON_DROPDOWN || nIcon == EDITICON_DIALOG) && rcIcon.PtInRect(point))
    {
        const short nType = cell == m_EditIconCell ? m_nEditIconType : GetCellEditIconEditType(cell.row, cell.col);
        OnGridEdit_Begin(cell.row, cell.col, nType, 0, static_cast<UINT>(-1));
        return;
    }
    BeginTriggerEdit(GET_DBLCLK, static_cast<UINT>(-1));
}

// ---- Right and middle buttons -----------------------------------------------------------------

void CGridList::OnRButtonDown(UINT, CPoint point)
{
    KillClickEditTimer();
    if (ProcessCustomEditKillFocus(NULL, TRUE) == 0)
        return;
    Cell cell;
    HitTest(point, cell);
    m_bCCPMenuArmed = FALSE;
    if (IsNonHdrCell(cell))
    {
        Cell unit(cell.row, IsStyleList() ? GetFirstDataCol() : cell.col);
        if (!IsSelectedCell(unit, true))
            RemoveAllSelectedNAddCell(unit);
        m_bCCPMenuArmed = PrepareCCPMenu(unit);
        SendItemActivateNotification(NM_RCLICK, cell.row, cell.col, point);
    }
    if (::GetFocus() != m_hWnd)
        SetFocus();
}

void CGridList::OnRButtonUp(UINT, CPoint point)
{
    if (m_bCCPMenuArmed)
        TrackCCPMenu(point);
    m_bCCPMenuArmed = FALSE;
}

void CGridList::OnMButtonDown(UINT, CPoint)
{
    // Nothing of the list view's own: the button only closes an editor and takes the focus.
    KillClickEditTimer();
    if (ProcessCustomEditKillFocus(NULL, TRUE) != 0 && ::GetFocus() != m_hWnd)
        SetFocus();
}

// ---- Wheel ------------------------------------------------------------------------------------

int CGridList::GetWheelScrollRows(int nNotches, int nLines, int nPage)
{
    if (nLines < nPage && abs(nNotches) * static_cast<long long>(nLines) < nPage)
        return nNotches * nLines;
    // Never more than a page less a row per notch, so that a row stays in sight.
    return (nPage - 1) * nNotches;
}

BOOL CGridList::OnMouseWheel(UINT, short zDelta, CPoint)
{
    if (!IsVertScrollBarVisible() || ProcessCustomEditKillFocus(NULL, TRUE) == 0)
        return FALSE;
    SCROLLINFO si;
    si.cbSize = sizeof(si);
    si.fMask = SIF_ALL;
    const int nTop = m_nTopRow;
    if (!GetScrollInfo(SB_VERT, &si))
        return FALSE;
    const int nPage = static_cast<int>(si.nPage);
    const int nRows = GetWheelScrollRows(zDelta / WHEEL_DELTA, GetNumScrollLines(), nPage);
    const int nPos = std::max(0, std::min(nTop - nRows, std::max(0, si.nMax - nPage + 1)));
    if (nPos == nTop)
        return TRUE;
    // The partners hear of the new position as a thumb-position request.
    ScrollToRow(nPos, false);
    SendScrollMsg(1, SB_THUMBPOSITION, static_cast<UINT>(m_nTopRow));
    SendScrollMsg(1, SB_ENDSCROLL, 0);
    return TRUE;
}

int CGridList::GetNumScrollLines()
{
    UINT nLines = 3;
    OSVERSIONINFOA vi;
    vi.dwOSVersionInfoSize = sizeof(vi);
    if (::GetVersionExA(&vi) && vi.dwPlatformId == VER_PLATFORM_WIN32_NT && vi.dwMajorVersion >= 4)
    {
        if (!::SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &nLines, 0))
            nLines = 3;
    }
    else
    {
        // Before the system knew the wheel, its driver's helper window answered.
        HWND hWheel = ::FindWindowA("MouseZ", "Magellan MSWHEEL");
        const UINT nMsg = ::RegisterWindowMessageA("MSH_SCROLL_LINES_MSG");
        if (hWheel != NULL && nMsg != 0)
            nLines = static_cast<UINT>(::SendMessageA(hWheel, nMsg, 0, 0));
    }
    // A page per notch (WHEEL_PAGESCROLL) is more lines than any page.
    return nLines > INT_MAX ? INT_MAX : static_cast<int>(nLines);
}

// ---- Keyboard ---------------------------------------------------------------------------------

UINT CGridList::OnGetDlgCode()
{
    return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS;
}

BOOL CGridList::PreTranslateMessage(MSG* pMsg)
{
    // The grid's keys are its own: a dialog holding it must not take Tab, Enter or the arrows
    // for its navigation. Escape and the system keys still reach the dialog.
    const UINT nMsg = pMsg->message;
    if (pMsg->hwnd == m_hWnd && (nMsg == WM_KEYDOWN || nMsg == WM_KEYUP || nMsg == WM_CHAR) && pMsg->wParam != VK_ESCAPE)
    {
        ::TranslateMessage(pMsg);
        ::DispatchMessageA(pMsg);
        return TRUE;
    }
    return CListCtrl::PreTranslateMessage(pMsg);
}

void CGridList::OnKeyDown(UINT nChar, UINT, UINT nFlags)
{
    NMKEY nm;
    nm.nVKey = nChar;
    nm.uFlags = nFlags;
    if (SendGridNotify(&nm.hdr, NM_KEYDOWN) != 0)
        return;
    const bool bCtrl = ::GetKeyState(VK_CONTROL) < 0;
    const bool bShift = ::GetKeyState(VK_SHIFT) < 0;
    switch (nChar)
    {
    case VK_TAB:
        TabOut(bShift);
        return;
    case VK_RETURN:
    {
        NMHDR hdr;
        SendGridNotify(&hdr, NM_RETURN);
        BeginTriggerEdit(GET_RETURN, static_cast<UINT>(-1));
        return;
    }
    case VK_INSERT:
        BeginTriggerEdit(GET_INSERT, static_cast<UINT>(-1));
        return;
    case VK_F3:
        ::SendMessage(::GetParent(m_hWnd), GM_FINDDIALOG, 0, 0);
        return;
    case 'F':
        // Ctrl+F asks for the find dialog as F3 does; the letter alone is left to type-ahead.
        if (bCtrl)
        {
            ::SendMessage(::GetParent(m_hWnd), GM_FINDDIALOG, 0, 0);
            return;
        }
        break;
    case VK_F8:
        ::SendMessage(::GetParent(m_hWnd), GM_KEYF8, 0, 0);
        return;
    case 'C':
    case 'X':
    case 'V':
        // The letters alone beep too, though their characters go on to type-ahead.
        if (bCtrl)
            OnCCPKey(nChar == 'C' ? 1 : nChar == 'X' ? 2 : 3);
        else
            SimpleBeep();
        return;
    }

    const int nFirstRow = GetFirstDataRow();
    const int nFirstCol = GetFirstDataCol();
    const bool bList = IsStyleList() != FALSE;
    Cell target = IsNonHdrCell(m_CaretCell) ? m_CaretCell : Cell(nFirstRow, nFirstCol);
    switch (nChar)
    {
    case VK_PRIOR:
    case VK_NEXT:
    {
        if (!IsVertScrollBarVisible())
            return;
        const int nPage = GetCountPerPage();
        target.row = nChar == VK_PRIOR ? target.row - nPage : target.row + nPage;
        target.row = std::max(nFirstRow, std::min(target.row, m_nRows - 1));
        break;
    }
    case VK_HOME:
        if (bCtrl || bList)
            target.row = nFirstRow;
        target.col = nFirstCol;
        break;
    case VK_END:
        if (bCtrl || bList)
            target = Cell(m_nRows - 1, nFirstCol);
        else
            target.col = m_nCols - 1;
        break;
    case VK_LEFT:
    case VK_RIGHT:
        if (bList)
            return;
        target.col = nChar == VK_LEFT ? std::max(nFirstCol, target.col - 1) : std::min(m_nCols - 1, target.col + 1);
        break;
    case VK_UP:
        target.row = std::max(nFirstRow, target.row - 1);
        break;
    case VK_DOWN:
        target.row = std::min(m_nRows - 1, target.row + 1);
        break;
    default:
        return;
    }
    if (!IsNonHdrCell(target))
        return;
    if (bCtrl && nChar != VK_HOME && nChar != VK_END)
        SetCurCaret(target.row, target.col);
    else if (bShift)
        SelectDragCells(m_AnchorCell, target, m_CaretCell);
    else
        RemoveAllSelectedNAddCell(target);
    EnsureVisible(target.row, target.col);
}

void CGridList::OnKeyUp(UINT, UINT, UINT)
{
    Default();
}

void CGridList::OnCCPKey(int nAction)
{
    const bool bPending = m_nCCPState == 1 || m_nCCPState == 2;
    if (IsCCPEnabled() && !IsNoSelection() && (nAction == 3 ? bPending : GetSelectedCount() > 0))
    {
        // The host may veto the key by zeroing its value.
        int nCopy = nAction == 1 ? 1 : -1;
        int nCut = nAction == 2 ? 1 : -1;
        int nPaste = nAction == 3 ? 1 : -1;
        Send_GN_CCPMENU(nCopy, nCut, nPaste);
        if ((nAction == 1 ? nCopy : nAction == 2 ? nCut : nPaste) != 0)
        {
            if (nAction == 1)
                OnGCCP_Copy();
            else if (nAction == 2)
                OnGCCP_Cut();
            else
                OnGCCP_Paste();
            return;
        }
    }
    SimpleBeep();
}

void CGridList::TabOut(bool bPrevious)
{
    // The grid window is the control of the dialog; containers of controls between it and the
    // dialog are climbed through.
    HWND hControl = ::GetParent(m_hWnd);
    HWND hDialog = hControl == NULL ? NULL : ::GetParent(hControl);
    while (hDialog != NULL && (::GetWindowLongA(hDialog, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0 &&
           (::GetWindowLongA(hDialog, GWL_STYLE) & WS_CHILD) != 0)
    {
        hControl = hDialog;
        hDialog = ::GetParent(hDialog);
    }
    if (hDialog == NULL)
        return;
    HWND hNext = ::GetNextDlgTabItem(hDialog, hControl, bPrevious);
    if (hNext != NULL && hNext != m_hWnd)
        ::SetFocus(hNext);
}

void CGridList::OnChar(UINT nChar, UINT, UINT nFlags)
{
    // The key state last: under Wine reading it is a round trip to the window manager, which
    // type-ahead would pay for every key.
    if (IsEditStartChar(nChar) && (nFlags & 0x2000) == 0 && IsEditorStyle(GetGridEditStyle(GET_CHAR)) &&
        ::GetKeyState(VK_CONTROL) >= 0 && BeginTriggerEdit(GET_CHAR, nChar) == 0)
        return;
    if (IsKeyboardFind())
        KeyboardFind(nChar);
}

void CGridList::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kClickEditTimer)
    {
        KillClickEditTimer();
        OnGridEdit_Begin(m_ClickEditCell.row, m_ClickEditCell.col, m_nClickEditStyle,
                         static_cast<int>(m_dwClickEditTrigger), m_nClickEditChar);
    }
    else if (nIDEvent == kDragTimer)
    {
        if (m_bCapture)
            DragSelectTo(m_ptLastDrag);
        else
            StopDragTimer();
    }
    else
        Default();
}

// ---- Focus ------------------------------------------------------------------------------------

void CGridList::OnSetFocus(CWnd*)
{
    Default();
    UpdateFocusRect(true);
    if (m_bGraySelection || m_bHideSelection)
        RefreshAllSelection();
}

void CGridList::OnKillFocus(CWnd*)
{
    Default();
    KillClickEditTimer();
    UpdateFocusRect(false);
    if (m_bGraySelection || m_bHideSelection)
        RefreshAllSelection();
}
