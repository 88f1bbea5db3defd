// CComboGrid: opening and closing the drop-down, keys, the mouse on the combo, type-to-find,
// sorting from the header and the messages the combo answers itself.
#include "grid/ComboGrid.h"

#include "grid/ComboGridDropDown.h"
#include "kelutil/KEL_Util.h"

#include <string.h>

#include <algorithm>
#include <vector>

CGridList* CComboGrid::GetList() const
{
    return m_pDropDown != NULL ? &m_pDropDown->GetList() : NULL;
}

CGridHeader* CComboGrid::GetHeader() const
{
    return m_pDropDown != NULL ? &m_pDropDown->GetHeader() : NULL;
}

void CComboGrid::GetMonitorRect(CRect& rcMonitor)
{
    rcMonitor.SetRect(0, 0, GetScreenWidth(), GetScreenHeight());
}

BOOL CComboGrid::SetDropDownRows(int nRows)
{
    if (nRows < 1 || nRows > 50)
        return FALSE;
    m_nDropDownRows = nRows;
    return TRUE;
}

void CComboGrid::SendCommand(UINT nCode)
{
    CWnd* pParent = GetParent();
    if (pParent == NULL)
        return;
    const bool bWasNotifying = m_bNotifying;
    m_bNotifying = true;
    pParent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), nCode), reinterpret_cast<LPARAM>(m_hWnd));
    m_bNotifying = bWasNotifying;
}

LRESULT CComboGrid::SendComboNotify(UINT nCode, NMCOMBOGRID& nm)
{
    CWnd* pParent = ::IsWindow(m_hWnd) ? GetParent() : NULL;
    if (pParent == NULL)
        return 0;
    nm.hdr.hwndFrom = m_hWnd;
    nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    nm.hdr.code = nCode;
    return pParent->SendMessage(WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
}

bool CComboGrid::AskSelChanging(int nRow)
{
    NMCOMBOGRID nm;
    memset(&nm, 0, sizeof(nm));
    nm.nOldRow = m_nCurRow;
    nm.nNewRow = nRow;
    nm.dwData = GetRowData(nRow);
    nm.nCol = -1;
    nm.nSortType = -1;
    nm.cchText = -1;
    return SendComboNotify(CBGN_SELCHANGING, nm) == 0;
}

void CComboGrid::PutListOn(int nRow, bool bEnsureVisible)
{
    if (m_pDropDown == NULL)
        return;
    CComboGridList& list = m_pDropDown->GetList();
    if (nRow >= 0 && nRow < list.GetRowCount())
        list.SetCurSel(nRow, 0, bEnsureVisible);
    else
    {
        list.RemoveAllSelection();
        list.SetCaretItem(Cell());
    }
}

// ---- Opening and closing ------------------------------------------------------------------------

BOOL CComboGrid::ShowDropDown(BOOL bShow)
{
    if (!bShow)
    {
        const BOOL bWasDropped = m_bDropped;
        CloseDropDown(FALSE);
        return bWasDropped;
    }
    if (!::IsWindow(m_hWnd) || !IsWindowEnabled() || m_bDropped || GetColumnCount() == 0)
        return FALSE;
    SendCommand(CBN_DROPDOWN);
    CKelDropDown::CloseOpenDropDown();
    // The host may have destroyed or emptied the combo on CBN_DROPDOWN.
    if (!::IsWindow(m_hWnd) || m_pDropDown == NULL || GetColumnCount() == 0)
        return FALSE;

    CComboGridList& list = m_pDropDown->GetList();
    const int h = list.GetRowHeight();
    const int nRows = list.GetRowCount();
    const int nShown = std::min(std::max(nRows, 1), m_nDropDownRows);
    int nColumns = 0;
    for (int col = 0; col < list.GetColCount(); ++col)
        nColumns += list.GetColumnWidth(col);
    const int cxVScroll = nRows > nShown ? ::GetSystemMetrics(SM_CXVSCROLL) : 0;
    CRect rcCombo;
    GetWindowRect(&rcCombo);
    CSize size(m_nDropDownWidth, m_pDropDown->GetHeaderHeight() + nShown * h + 2);
    if (size.cx == 0)
        size.cx = std::max<int>(rcCombo.Width(), nColumns + 2 + cxVScroll);
    if (nColumns > size.cx - 2 - cxVScroll)
        size.cy += ::GetSystemMetrics(SM_CYHSCROLL);
    CRect rcMonitor;
    GetMonitorRect(rcMonitor);
    const CRect rcPopup = CKelDropDown::PlacePopup(rcCombo, size, rcMonitor);

    ::SetWindowPos(m_pDropDown->m_hWnd, HWND_TOPMOST, rcPopup.left, rcPopup.top, rcPopup.Width(), rcPopup.Height(),
                   SWP_NOACTIVATE);
    CRect rcClient;
    m_pDropDown->GetClientRect(&rcClient);
    m_pDropDown->Layout(rcClient.Width(), rcClient.Height());
    PutListOn(m_nCurRow, true);
    list.SetHotRow(-1);
    ::SetWindowPos(m_pDropDown->m_hWnd, HWND_TOPMOST, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    m_dropDownHelper.Open(m_hWnd, m_pDropDown->m_hWnd);
    m_bDropped = 1;
    return TRUE;
}

void CComboGrid::CloseDropDown(BOOL bTake)
{
    if (!m_bDropped)
        return;
    m_dropDownHelper.Close();
    m_pDropDown->ShowWindow(SW_HIDE);
    m_bDropped = 0;

    const int nRow = m_pDropDown->GetList().GetRow();
    bool bChange = false;
    if (bTake && nRow >= 0 && nRow != m_nCurRow)
    {
        bChange = AskSelChanging(nRow);
        bTake = bChange;
    }
    SendCommand(bTake ? CBN_SELENDOK : CBN_SELENDCANCEL);
    if (bChange)
        MakeCurrent(nRow);
    SendCommand(CBN_CLOSEUP);
    if (bChange)
        SendCommand(CBN_SELCHANGE);
    if (!::IsWindow(m_hWnd) || m_pDropDown == NULL)
        return;
    HWND hWndFocus = ::GetFocus();
    if (hWndFocus != NULL && (hWndFocus == m_pDropDown->m_hWnd || ::IsChild(m_pDropDown->m_hWnd, hWndFocus)))
        SetFocus();
    PutListOn(m_nCurRow, false);
}

LRESULT CComboGrid::OnCloseUp(WPARAM wParam, LPARAM)
{
    CloseDropDown(wParam != 0);
    return 0;
}

LRESULT CComboGrid::OnShowDropDownMsg(WPARAM wParam, LPARAM)
{
    ShowDropDown(wParam != 0);
    return TRUE;
}

LRESULT CComboGrid::OnGetDroppedStateMsg(WPARAM, LPARAM)
{
    return m_bDropped;
}

LRESULT CComboGrid::OnGetDroppedControlRect(WPARAM, LPARAM lParam)
{
    RECT* pRect = reinterpret_cast<RECT*>(lParam);
    if (pRect == NULL || m_pDropDown == NULL)
        return FALSE;
    m_pDropDown->GetWindowRect(pRect);
    return TRUE;
}

void CComboGrid::OnKillFocus(CWnd* pNewWnd)
{
    Default();
    HWND hWndNew = pNewWnd != NULL ? pNewWnd->m_hWnd : NULL;
    if (m_bDropped && hWndNew != m_hWnd && !::IsChild(m_hWnd, hWndNew) &&
        !(hWndNew != NULL && (hWndNew == m_pDropDown->m_hWnd || ::IsChild(m_pDropDown->m_hWnd, hWndNew))))
        CloseDropDown(FALSE);
}

void CComboGrid::OnCancelMode()
{
    CloseDropDown(FALSE);
    Default();
}

// ---- Mouse and keys ------------------------------------------------------------------------------

void CComboGrid::OnLButtonDown(UINT, CPoint)
{
    // The platform's own list must never drop: the press is handled here only.
    if (!IsWindowEnabled())
        return;
    if (m_bDropped)
    {
        CloseDropDown(FALSE);
        return;
    }
    HWND hWndFocus = ::GetFocus();
    if (hWndFocus != m_hWnd && !::IsChild(m_hWnd, hWndFocus))
        SetFocus();
    ShowDropDown(TRUE);
}

void CComboGrid::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    OnLButtonDown(nFlags, point);
}

UINT CComboGrid::OnGetDlgCode()
{
    UINT nCode = static_cast<UINT>(Default());
    return m_bDropped ? nCode | DLGC_WANTALLKEYS : nCode;
}

void CComboGrid::OnKeyDown(UINT nChar, UINT, UINT)
{
    if (!HandleKey(nChar, false))
        Default();
}

void CComboGrid::OnSysKeyDown(UINT nChar, UINT, UINT)
{
    if (!HandleKey(nChar, true))
        Default();
}

void CComboGrid::OnChar(UINT nChar, UINT, UINT)
{
    // Drop-down-list style: characters find a row by the key column, open or closed; the
    // platform combo's own search of its one string never runs.
    if (!IsDropDownList())
    {
        Default();
        return;
    }
    if (m_pDropDown == NULL || nChar == VK_RETURN || nChar == VK_ESCAPE || nChar == VK_TAB)
        return;
    m_pDropDown->GetList().KeyboardFind(nChar);
    if (!m_bDropped && nChar >= 32)
        MoveChoiceTo(m_pDropDown->GetList().GetRow());
}

bool CComboGrid::HandleKey(UINT nChar, bool bAlt)
{
    if ((!bAlt && nChar == VK_F4) || (bAlt && (nChar == VK_DOWN || nChar == VK_UP)))
    {
        if (m_bDropped)
            CloseDropDown(TRUE);
        else
            ShowDropDown(TRUE);
        return true;
    }
    if (bAlt || m_pDropDown == NULL)
        return false;
    if (m_bDropped)
    {
        switch (nChar)
        {
        case VK_RETURN:
        case VK_ESCAPE:
            CloseDropDown(nChar == VK_RETURN);
            return true;
        case VK_TAB:
        {
            CloseDropDown(TRUE);
            CWnd* pParent = GetParent();
            if (pParent != NULL)
                pParent->SendMessage(WM_NEXTDLGCTL, ::GetKeyState(VK_SHIFT) < 0 ? 1 : 0, 0);
            return true;
        }
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT:
        case VK_HOME:
        case VK_END:
            m_pDropDown->GetList().SendMessage(WM_KEYDOWN, nChar, 0);
            return true;
        default:
            return false;
        }
    }
    const int nLast = GetRowCount() - 1;
    const bool bList = IsDropDownList();
    switch (nChar)
    {
    case VK_UP:
        MoveChoiceTo(std::max(m_nCurRow - 1, 0));
        return true;
    case VK_DOWN:
        MoveChoiceTo(std::min(m_nCurRow + 1, nLast));
        return true;
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
        if (!bList)
            return false;
        if (nChar == VK_PRIOR)
            MoveChoiceTo(std::max(m_nCurRow - m_nDropDownRows, 0));
        else if (nChar == VK_NEXT)
            MoveChoiceTo(std::min(m_nCurRow + m_nDropDownRows, nLast));
        else
            MoveChoiceTo(nChar == VK_HOME ? 0 : nLast);
        return true;
    default:
        return false;
    }
}

void CComboGrid::MoveChoiceTo(int nRow)
{
    if (nRow < 0 || nRow >= GetRowCount() || nRow == m_nCurRow)
        return;
    if (AskSelChanging(nRow))
    {
        MakeCurrent(nRow);
        SendCommand(CBN_SELCHANGE);
    }
    PutListOn(m_nCurRow, false);
}

// ---- Typing in the edit field -------------------------------------------------------------------

BOOL CComboGrid::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (HIWORD(wParam) == EN_CHANGE && m_pFieldEdit != NULL &&
        reinterpret_cast<HWND>(lParam) == m_pFieldEdit->m_hWnd)
    {
        // The platform combo turns it into CBN_EDITCHANGE for the parent first.
        Default();
        if (!m_bNotifying)
            OnEditChange();
        return TRUE;
    }
    return CComboBox::OnCommand(wParam, lParam);
}

void CComboGrid::OnEditChange()
{
    CString strText;
    CComboBox::GetWindowText(strText);
    const int nRow = strText.IsEmpty() ? -1 : FindRowText(strText, -1, TRUE);
    if (m_bDropped)
        PutListOn(nRow, true);
    if (m_bAutoComplete && nRow >= 0 && m_nLastEditKey != VK_DELETE && m_nLastEditKey != VK_BACK)
    {
        const CString strRow = GetItemText(nRow, m_nTextCol);
        if (strRow.GetLength() > strText.GetLength())
        {
            m_bNotifying = true;
            // As a combo's own completion does: the row's text, the part not typed selected.
            CComboBox::SetWindowText(strRow);
            m_bNotifying = false;
            m_pFieldEdit->SetSel(strText.GetLength(), -1);
        }
    }
}

// ---- Sorting from the header --------------------------------------------------------------------

void CComboGrid::SortOnColumn(int nCol)
{
    if (!m_bHeaderSort || m_pDropDown == NULL)
        return;
    CGridHeader& header = m_pDropDown->GetHeader();
    const short nDefault = header.GetDefaultSortType(nCol);
    if (nDefault < 0)
        return;
    short nCurrent = -1;
    int nPriority = -1;
    header.GetCurSortType(nCol, nCurrent, nPriority);
    const short nType = static_cast<short>(nCurrent == nDefault ? nDefault + 1 : nDefault);
    NMCOMBOGRID nm;
    memset(&nm, 0, sizeof(nm));
    nm.nOldRow = nm.nNewRow = -1;
    nm.dwData = 0xFFFFFFFF;
    nm.nCol = nCol;
    nm.nSortType = nType;
    nm.cchText = -1;
    if (SendComboNotify(CBGN_SORTING, nm) != 0)
        return;

    // The chosen row is found again by everything it holds: rows equal in all of it are
    // interchangeable to the user.
    CComboGridList& list = m_pDropDown->GetList();
    const int nCols = list.GetColCount();
    std::vector<CString> arTexts;
    if (m_nCurRow >= 0)
        for (int col = 0; col < nCols; ++col)
            arTexts.push_back(list.GetText(m_nCurRow, col));
    header.SetCurSortType(nCol, nType);
    list.ListSort(nCol, nType, false);
    if (m_nCurRow < 0)
        return;
    for (int row = 0; row < list.GetRowCount(); ++row)
    {
        if (list.GetItemData(row, 0) != m_dwCurData)
            continue;
        int col = 0;
        while (col < nCols && arTexts[col] == list.GetText(row, col))
            ++col;
        if (col == nCols)
        {
            m_nCurRow = row;
            return;
        }
    }
}
