#include "grid/ComboGridDropDown.h"

#include "grid/ComboGrid.h"

#include <string.h>

namespace
{
const char kDropDownClass[] = "_KELCOMBOGRIDDROPDOWN";

bool RegisterDropDownClass()
{
    WNDCLASS wc;
    memset(&wc, 0, sizeof(wc));
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = ::DefWindowProcA;
    wc.hInstance = AfxGetInstanceHandle();
    wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = kDropDownClass;
    return AfxRegisterClass(&wc) != FALSE;
}

bool IsInside(HWND hWnd, HWND hWndRoot)
{
    return hWnd != NULL && (hWnd == hWndRoot || ::IsChild(hWndRoot, hWnd));
}
} // namespace

// ---- The popup -----------------------------------------------------------------------------------

BEGIN_MESSAGE_MAP(CComboGridDropDown, CWnd)
ON_WM_MOUSEACTIVATE()
ON_MESSAGE(WM_ACTIVATEAPP, OnActivateAppMsg)
END_MESSAGE_MAP()

CComboGridDropDown::CComboGridDropDown(CComboGrid* pCombo) : m_pCombo(pCombo), m_list(pCombo)
{
}

BOOL CComboGridDropDown::Create(BOOL bColumnsSizable)
{
    // The platform gives a popup no child as owner: the combo's top-level window owns it.
    CWnd* pOwner = m_pCombo->GetTopLevelParent();
    if (!RegisterDropDownClass() ||
        !CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kDropDownClass, "", WS_POPUP | WS_BORDER | WS_CLIPCHILDREN, 0, 0,
                  10, 10, pOwner != NULL ? pOwner->m_hWnd : NULL, NULL))
        return FALSE;
    const CRect rcEmpty(0, 0, 10, 10);
    if (!m_header.Create(WS_CHILD | WS_VISIBLE, rcEmpty, this, IDC_HEADER,
                         CGridHeader::GHS_HORZ | (bColumnsSizable ? 0 : CGridHeader::GHS_NOMOUSETRACK)) ||
        !m_wndListFrame.CreateEx(0, kDropDownClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, rcEmpty, this,
                                 IDC_LISTFRAME) ||
        !m_list.Create(0, 0, FALSE, FALSE, rcEmpty, &m_wndListFrame, IDC_LIST))
    {
        DestroyWindow();
        return FALSE;
    }
    m_header.SetGridFont(m_list.GetFont(), FALSE);
    m_header.SetScrollParent(m_list.GetSafeHwnd());
    return TRUE;
}

void CComboGridDropDown::ResetHeader(int nCols, BOOL bColumnsSizable)
{
    m_header.InitAllData(CGridHeader::GHS_HORZ | (bColumnsSizable ? 0 : CGridHeader::GHS_NOMOUSETRACK));
    m_header.SetScrollParent(m_list.GetSafeHwnd());
    HD_ITEM item;
    memset(&item, 0, sizeof(item));
    for (int col = 0; col < nCols; ++col)
    {
        item.mask = HDI_WIDTH;
        item.cxy = 80;
        m_header.InsertItem(col, &item, true);
        item.mask = CGridHeader::GHDI_CROSSEXTENT;
        item.cxy = GetHeaderHeight();
        m_header.SetItem(col, &item, true);
    }
    m_header.UpdateScrollBars();
    m_header.Invalidate();
}

void CComboGridDropDown::Layout(int cx, int cy)
{
    const int nHeader = GetHeaderHeight();
    m_header.MoveWindow(0, 0, cx, nHeader);
    m_wndListFrame.MoveWindow(0, nHeader, cx, cy > nHeader ? cy - nHeader : 0);
    m_list.MoveWindow(0, 0, cx, cy > nHeader ? cy - nHeader : 0);
}

int CComboGridDropDown::OnMouseActivate(CWnd*, UINT, UINT)
{
    // The focus stays in the combo while the user works in the popup.
    return MA_NOACTIVATE;
}

LRESULT CComboGridDropDown::OnActivateAppMsg(WPARAM wParam, LPARAM)
{
    if (!wParam)
        m_pCombo->CloseDropDown(FALSE);
    return 0;
}

BOOL CComboGridDropDown::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const NMHDR* pHdr = reinterpret_cast<const NMHDR*>(lParam);
    if (pHdr != NULL && pHdr->hwndFrom == m_header.m_hWnd)
    {
        const NMHEADERA* pHeader = reinterpret_cast<const NMHEADERA*>(lParam);
        if (pHdr->code == HDN_TRACKA && pHeader->pitem != NULL && (pHeader->pitem->mask & HDI_WIDTH) != 0)
            m_list.SetColumnWidth(pHeader->iItem, pHeader->pitem->cxy);
        else if (pHdr->code == HDN_ITEMCLICKA && pHeader->iButton == 0)
            m_pCombo->SortOnColumn(pHeader->iItem);
        if (pResult != NULL)
            *pResult = 0;
        return TRUE;
    }
    return CWnd::OnNotify(wParam, lParam, pResult);
}

// ---- The list ------------------------------------------------------------------------------------

BEGIN_MESSAGE_MAP(CComboGridList, CGridList)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

void CComboGridList::DrawGridCell(int row, int col, HDC hDC)
{
    const bool bLend = col != GetFirstDataCol() && IsSelectedItem(row, GetFirstDataCol()) && !IsSelectedItem(row, col);
    if (bLend)
        ChangeCellFlags(row, col, CS_SELECTED, 0);
    CGridList::DrawGridCell(row, col, hDC);
    if (bLend)
        ChangeCellFlags(row, col, 0, CS_SELECTED);
}

void CComboGridList::OnLButtonDown(UINT nFlags, CPoint point)
{
    Cell cell;
    m_nDownRow = HitTest(point, cell) ? cell.row : -1;
    CGridList::OnLButtonDown(nFlags, point);
    if (::GetFocus() == m_hWnd && ::IsWindow(m_pCombo->m_hWnd))
        m_pCombo->SetFocus();
}

void CComboGridList::OnLButtonUp(UINT nFlags, CPoint point)
{
    const int nDownRow = m_nDownRow;
    m_nDownRow = -1;
    CGridList::OnLButtonUp(nFlags, point);
    Cell cell;
    if (nDownRow >= 0 && HitTest(point, cell) && cell.row == nDownRow)
        m_pCombo->CloseDropDown(TRUE);
}

void CComboGridList::OnMouseMove(UINT nFlags, CPoint point)
{
    CGridList::OnMouseMove(nFlags, point);
    if ((nFlags & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)) != 0)
        return;
    // As a platform drop-down list does: the row under the mouse is highlighted and is the caret.
    Cell cell;
    if (HitTest(point, cell) && cell.row != m_nHotRow)
    {
        m_nHotRow = cell.row;
        if (cell.row != GetRow())
            SetCurSel(cell.row, 0, false);
    }
}

// ---- The field edit ------------------------------------------------------------------------------

BEGIN_MESSAGE_MAP(CComboGridEdit, CEdit)
ON_WM_KEYDOWN()
ON_WM_SYSKEYDOWN()
ON_WM_CHAR()
ON_WM_GETDLGCODE()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

void CComboGridEdit::OnKeyDown(UINT nChar, UINT, UINT)
{
    m_pCombo->m_nLastEditKey = nChar;
    if (!m_pCombo->HandleKey(nChar, false))
        Default();
}

void CComboGridEdit::OnSysKeyDown(UINT nChar, UINT, UINT)
{
    if (!m_pCombo->HandleKey(nChar, true))
        Default();
}

void CComboGridEdit::OnChar(UINT nChar, UINT, UINT)
{
    // Enter, Escape and Tab closed the open drop-down as keys: their characters are spent.
    if (nChar == VK_RETURN || nChar == VK_ESCAPE || nChar == VK_TAB)
        return;
    Default();
}

UINT CComboGridEdit::OnGetDlgCode()
{
    UINT nCode = static_cast<UINT>(Default());
    return m_pCombo->GetDroppedState() ? nCode | DLGC_WANTALLKEYS : nCode;
}

void CComboGridEdit::OnKillFocus(CWnd* pNewWnd)
{
    Default();
    HWND hWndNew = pNewWnd != NULL ? pNewWnd->m_hWnd : NULL;
    CComboGridDropDown* pDropDown = m_pCombo->m_pDropDown;
    if (m_pCombo->GetDroppedState() && hWndNew != m_pCombo->m_hWnd && pDropDown != NULL &&
        !IsInside(hWndNew, pDropDown->m_hWnd))
        m_pCombo->CloseDropDown(FALSE);
}
