// CGridList: in-place editing of a cell in the edit box, a host's own edit window or the combo box.
#include "grid/GridList.h"

#include <algorithm>

namespace
{
const UINT kNoChar = static_cast<UINT>(-1);
const int kDropdownEntries = 8;

BOOL IsInWindow(HWND hWndOuter, HWND hWnd)
{
    return hWndOuter != NULL && hWnd != NULL && (hWnd == hWndOuter || ::IsChild(hWndOuter, hWnd));
}
} // namespace

LRESULT CGridList::Send_GEdit(NMGRIDEDITBEGIN& nm)
{
    return SendGridNotify(&nm.hdr, GN_EDITBEGIN);
}

LRESULT CGridList::Send_GEdit(NMGRIDEDITEND& nm)
{
    return SendGridNotify(&nm.hdr, GN_EDITEND);
}

int CGridList::OnGridEdit_Begin(int row, int col, int style, int trigger, UINT ch)
{
    if (GetSafeHwnd() == NULL || !IsWindowVisible() || m_bEditActive || m_bEditClosing || (style != 0 && style != 1) ||
        !IsNonHdrCell(row, col))
        return 1;
    EnsureVisible(row, col);
    m_hWndEditor = NULL;

    NMGRIDEDITBEGIN nm;
    nm.nEditType = style;
    nm.nTrigger = trigger;
    nm.row = row;
    nm.col = col;
    nm.hWndEdit = style == 0 ? m_wndEdit.GetSafeHwnd() : NULL;
    nm.nChar = static_cast<int>(ch);
    nm.bInitText = style == 0;
    if (Send_GEdit(nm) != 0)
        return 1;

    m_EditCell = Cell(row, col);
    m_nEditStyle = nm.nEditType;
    m_nEditTrigger = trigger;
    m_nEditChar = nm.nChar;
    BOOL bStarted = FALSE;
    if (nm.nEditType == 1)
        bStarted = BeginComboEdit(row, col, static_cast<UINT>(nm.nChar));
    else if (nm.nEditType == 0)
        bStarted = BeginWindowEdit(nm.hWndEdit, row, col, static_cast<UINT>(nm.nChar), nm.bInitText);
    if (!bStarted)
    {
        m_hWndEditor = NULL;
        m_bEditActive = 0;
    }
    return bStarted ? 0 : 1;
}

BOOL CGridList::BeginComboEdit(int row, int col, UINT ch)
{
    CRect rcCell;
    if (m_wndCombo.GetSafeHwnd() == NULL || m_wndCombo.GetCount() < 1 || !GetEditorRect(row, col, rcCell))
        return FALSE;
    WidenComboList(rcCell.Width());
    // The selection field fills the cell: the combo box is its item height and a frame high.
    CRect rcCombo;
    m_wndCombo.GetWindowRect(&rcCombo);
    int nFrame = rcCombo.Height() - static_cast<int>(m_wndCombo.SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    m_wndCombo.SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(1, rcCell.Height() - nFrame));
    m_wndCombo.SetCurSel(FindComboEntry(row, col));
    m_wndCombo.SetWindowPos(&CWnd::wndTop, rcCell.left, rcCell.top, rcCell.Width(),
                            rcCell.Height() + GetComboDropdownHeight(), 0);
    m_hWndEditor = m_wndCombo.GetSafeHwnd();
    m_bEditActive = 1;
    m_wndCombo.ShowWindow(SW_SHOW);
    m_wndCombo.SetFocus();
    m_wndCombo.SendMessage(CB_SHOWDROPDOWN, TRUE);
    // The character chooses an entry; a combo box that closes its list on it ends the edit at
    // once, which still consumed the character.
    if (ch != kNoChar && m_bEditActive)
        m_wndCombo.SendMessage(WM_CHAR, ch, 0);
    return TRUE;
}

BOOL CGridList::BeginWindowEdit(HWND hWndEdit, int row, int col, UINT ch, BOOL bInitText)
{
    if (hWndEdit == NULL || !::IsWindow(hWndEdit) || hWndEdit == m_hWnd)
        return FALSE;
    m_hWndEditor = hWndEdit;
    m_bEditActive = 1;
    // The text goes in once the window has the cell's size: an edit box scrolls its text to the
    // caret as wide as it is then, and one still without width would keep the text out of sight.
    if (!SetupCustomEditWnd(CWnd::FromHandle(hWndEdit), row, col))
        return FALSE;
    if (bInitText && m_bEditActive)
    {
        // A typed character replaces the text; without one the whole text is there to be replaced.
        if (ch == kNoChar)
        {
            ::SetWindowText(hWndEdit, GetText(row, col));
            ::SendMessage(hWndEdit, EM_SETSEL, 0, -1);
        }
        else
        {
            TCHAR szChar[2] = {static_cast<TCHAR>(ch), 0};
            ::SetWindowText(hWndEdit, szChar);
            ::SendMessage(hWndEdit, EM_SETSEL, 1, 1);
        }
        ::SendMessage(hWndEdit, EM_SCROLLCARET, 0, 0);
    }
    return m_bEditActive;
}

BOOL CGridList::SetupCustomEditWnd(CWnd* pWnd, int row, int col)
{
    HWND hWnd = pWnd == NULL ? NULL : pWnd->GetSafeHwnd();
    CRect rect;
    if (hWnd == NULL || !::IsWindow(hWnd) || hWnd == m_hWnd || !GetEditorRect(row, col, rect))
        return FALSE;
    if ((::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) != 0)
    {
        if (::GetParent(hWnd) != m_hWnd)
            ::SetParent(hWnd, m_hWnd);
    }
    else
        ClientToScreen(&rect);
    ::SetWindowPos(hWnd, HWND_TOP, rect.left, rect.top, rect.Width(), rect.Height(), SWP_SHOWWINDOW);
    ::SetFocus(hWnd);
    return TRUE;
}

BOOL CGridList::GetEditorRect(int row, int col, CRect& rect)
{
    if (!GetCellRect(row, col, rect))
        return FALSE;
    rect = GetCellInnerRect(rect);
    return TRUE;
}

int CGridList::FindComboEntry(int row, int col) const
{
    int nCount = m_wndCombo.GetCount();
    if (m_bComboByData)
    {
        DWORD dwData = GetItemData(row, col);
        for (int i = 0; i < nCount; ++i)
            if (static_cast<DWORD>(m_wndCombo.GetItemData(i)) == dwData)
                return i;
        return -1;
    }
    // Exactly the text: the combo box's own search ignores case.
    LPCTSTR lpszText = GetText(row, col);
    CString strEntry;
    for (int i = 0; i < nCount; ++i)
    {
        m_wndCombo.GetLBText(i, strEntry);
        if (strEntry == lpszText)
            return i;
    }
    return -1;
}

void CGridList::WidenComboList(int nWidth)
{
    CClientDC dc(&m_wndCombo);
    CFont* pOldFont = dc.SelectObject(m_wndCombo.GetFont());
    int nWidest = 0;
    CString strEntry;
    for (int i = 0, nCount = m_wndCombo.GetCount(); i < nCount; ++i)
    {
        m_wndCombo.GetLBText(i, strEntry);
        nWidest = std::max(nWidest, static_cast<int>(dc.GetTextExtent(strEntry).cx));
    }
    dc.SelectObject(pOldFont);
    nWidest += 2 * ::GetSystemMetrics(SM_CXEDGE) + ::GetSystemMetrics(SM_CXVSCROLL);
    m_wndCombo.SendMessage(CB_SETDROPPEDWIDTH, std::max(nWidth, nWidest));
}

int CGridList::GetComboDropdownHeight() const
{
    if (m_wndCombo.GetSafeHwnd() == NULL)
        return 0;
    int nEntries = std::min(std::max(m_wndCombo.GetCount(), 1), kDropdownEntries);
    return nEntries * static_cast<int>(m_wndCombo.SendMessage(CB_GETITEMHEIGHT, 0)) + 2;
}

void CGridList::SetFixedCombo(CComboBox& combo, bool bMatchByData)
{
    m_bComboByData = bMatchByData;
    if (m_wndCombo.GetSafeHwnd() == NULL || &combo == &m_wndCombo)
        return;
    m_wndCombo.ResetContent();
    if (combo.GetSafeHwnd() == NULL)
        return;
    CString strEntry;
    for (int i = 0, nCount = combo.GetCount(); i < nCount; ++i)
    {
        combo.GetLBText(i, strEntry);
        int nIndex = m_wndCombo.AddString(strEntry);
        if (nIndex >= 0)
            m_wndCombo.SetItemData(nIndex, combo.GetItemData(i));
    }
}

BOOL CGridList::IsAnyEditWindowVisible() const
{
    return (m_wndEdit.GetSafeHwnd() != NULL && m_wndEdit.IsWindowVisible()) ||
           (m_wndCombo.GetSafeHwnd() != NULL && m_wndCombo.IsWindowVisible()) ||
           (m_bEditActive && m_hWndEditor != NULL && ::IsWindowVisible(m_hWndEditor));
}

int CGridList::GridEdit(int row, int col, int style, int trigger, bool bMakeCaret)
{
    if (bMakeCaret && IsNonHdrCell(row, col))
        RemoveAllSelectedNAddCell(Cell(row, col));
    return OnGridEdit_Begin(row, col, style, trigger, kNoChar);
}

BOOL CGridList::OnGridEdit_End(int row, int col, int style, LPCTSTR lpszText, DWORD dwData)
{
    if (!m_bEditActive || m_bEditClosing || (style != 0 && style != 1) || style != m_nEditStyle ||
        !(m_EditCell == Cell(row, col)) || !IsNonHdrCell(row, col))
        return FALSE;
    m_bEditClosing = 1;
    // The host may change what the pointer shows while it is told.
    CString strText(lpszText == NULL ? "" : lpszText);
    NMGRIDEDITEND nm;
    nm.nEditType = style;
    nm.row = row;
    nm.col = col;
    nm.pszText = strText;
    nm.dwData = dwData;
    nm.nAction = GEE_SETTEXT;
    LRESULT lResult = Send_GEdit(nm);
    if (lResult == 0 && nm.nAction == GEE_SETTEXT)
        SetText(row, col, strText);
    HideEditor();
    BOOL bEnded = lResult == 0 || nm.nAction != GEE_KEEPEDITING;
    if (bEnded)
        m_bEditActive = 0;
    else if (::IsWindow(m_hWndEditor))
    {
        ::ShowWindow(m_hWndEditor, SW_SHOW);
        ::SetFocus(m_hWndEditor);
    }
    m_bEditClosing = 0;
    return bEnded;
}

BOOL CGridList::OnGridEdit_Close(int row, int col, int style, int bTakeValue, int nPassKey)
{
    if (!m_bEditActive || m_bEditClosing || style != m_nEditStyle || !(m_EditCell == Cell(row, col)))
        return FALSE;
    // A combo box without a chosen entry has no value to take.
    int nEntry = style == 1 ? m_wndCombo.GetCurSel() : -1;
    BOOL bEnded;
    if (bTakeValue && (style == 0 || nEntry >= 0))
    {
        CString strText;
        DWORD dwData;
        if (style == 1)
        {
            m_wndCombo.GetLBText(nEntry, strText);
            dwData = static_cast<DWORD>(m_wndCombo.GetItemData(nEntry));
        }
        else
        {
            if (::IsWindow(m_hWndEditor))
                CWnd::FromHandle(m_hWndEditor)->GetWindowText(strText);
            dwData = GetItemData(row, col);
        }
        bEnded = OnGridEdit_End(row, col, style, strText, dwData);
    }
    else
    {
        m_bEditClosing = 1;
        HideEditor();
        m_bEditActive = 0;
        m_bEditClosing = 0;
        bEnded = TRUE;
    }
    if (bEnded && nPassKey != 0)
    {
        SendMessage(WM_KEYDOWN, static_cast<WPARAM>(nPassKey), 1);
        SendMessage(WM_KEYUP, static_cast<WPARAM>(nPassKey), static_cast<LPARAM>(0xC0000001));
    }
    return bEnded;
}

void CGridList::HideEditor()
{
    if (!::IsWindow(m_hWndEditor))
        return;
    if (IsInWindow(m_hWndEditor, ::GetFocus()))
        SetFocus();
    ::ShowWindow(m_hWndEditor, SW_HIDE);
}

BOOL CGridList::ProcessCustomEditKillFocus(HWND hWndNewFocus, int bTakeValue)
{
    if (!m_bEditActive || m_bEditClosing)
        return TRUE;
    if (IsInWindow(m_hWndEditor, hWndNewFocus))
        return FALSE;
    return OnGridEdit_Close(m_EditCell.row, m_EditCell.col, m_nEditStyle, bTakeValue, 0);
}

LRESULT CGridList::OnProcessCustomEditKillFocus(WPARAM wParam, LPARAM lParam)
{
    return ProcessCustomEditKillFocus(reinterpret_cast<HWND>(wParam), lParam != 0);
}

void CGridList::OnEditKillFocus()
{
    if (m_bEditActive && !m_bEditClosing && m_nEditStyle == 0 && m_hWndEditor == m_wndEdit.GetSafeHwnd())
        OnGridEdit_Close(m_EditCell.row, m_EditCell.col, 0, 1, 0);
}

void CGridList::OnComboSelEndOk()
{
    if (!m_bEditActive || m_bEditClosing || m_nEditStyle != 1)
        return;
    NMGRIDCOMBOSEL nm;
    nm.nIndex = m_wndCombo.GetCurSel();
    if (nm.nIndex < 0)
    {
        OnComboSelEndCancel();
        return;
    }
    CString strText;
    m_wndCombo.GetLBText(nm.nIndex, strText);
    nm.row = m_EditCell.row;
    nm.col = m_EditCell.col;
    nm.dwData = static_cast<DWORD>(m_wndCombo.GetItemData(nm.nIndex));
    nm.pszText = strText;
    SendGridNotify(&nm.hdr, GN_COMBOSELENDOK);
    OnGridEdit_Close(m_EditCell.row, m_EditCell.col, 1, 1, 0);
}

void CGridList::OnComboSelEndCancel()
{
    if (m_bEditActive && !m_bEditClosing && m_nEditStyle == 1)
        OnGridEdit_Close(m_EditCell.row, m_EditCell.col, 1, 0, 0);
}

void CGridList::OnComboKillFocus()
{
    OnComboSelEndCancel();
}
