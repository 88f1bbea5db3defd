// The standard controls.
#include <afxwin.h>

#include <string.h>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

namespace
{
// The text of a list-box or combo-box item. An owner-draw list without LBS_HASSTRINGS copies
// the item data in place of the text, so the buffer has room for it whatever the length says.
void GetItemString(const CWnd* pWnd, UINT nLenMsg, UINT nTextMsg, int nIndex, CString& rString)
{
    int nLen = static_cast<int>(pWnd->SendMessage(nLenMsg, nIndex));
    if (nLen < 0)
    {
        rString.Empty();
        return;
    }
    LPTSTR lpsz = rString.GetBuffer(nLen + static_cast<int>(sizeof(ULONG_PTR)));
    int nCopied = static_cast<int>(pWnd->SendMessage(nTextMsg, nIndex, reinterpret_cast<LPARAM>(lpsz)));
    rString.ReleaseBuffer(nCopied < 0 ? 0 : nCopied);
}

} // namespace

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("STATIC"), lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("BUTTON"), lpszCaption, dwStyle, rect, pParentWnd, nID);
}

void CButton::DrawItem(LPDRAWITEMSTRUCT)
{
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    if (pResult != NULL)
        *pResult = TRUE;
    return TRUE;
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("EDIT"), NULL, dwStyle, rect, pParentWnd, nID);
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    ASSERT(::IsWindow(m_hWnd));
    DWORD dwStart = 0, dwEnd = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&dwStart), reinterpret_cast<LPARAM>(&dwEnd));
    nStartChar = static_cast<int>(dwStart);
    nEndChar = static_cast<int>(dwEnd);
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll)
{
    SetSel(static_cast<int>(LOWORD(dwSelection)), static_cast<int>(HIWORD(dwSelection)), bNoScroll);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    ASSERT(::IsWindow(m_hWnd));
    SendMessage(EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll)
        SendMessage(EM_SCROLLCARET);
}

CPoint CEdit::PosFromChar(UINT nChar) const
{
    ASSERT(::IsWindow(m_hWnd));
    LRESULT lPos = SendMessage(EM_POSFROMCHAR, nChar);
    return CPoint(static_cast<short>(LOWORD(lPos)), static_cast<short>(HIWORD(lPos)));
}

int CEdit::GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpszBuffer == NULL || nMaxLength <= 0)
        return 0;
    // EM_GETLINE reads the buffer size from the buffer's first word, which a one-character
    // buffer cannot hold: such a line goes through a buffer of our own.
    TCHAR szShort[sizeof(WORD)];
    LPTSTR lpszTarget = nMaxLength < static_cast<int>(sizeof(WORD)) ? szShort : lpszBuffer;
    WORD wSize = static_cast<WORD>(nMaxLength < 0xFFFF ? nMaxLength : 0xFFFF);
    memcpy(lpszTarget, &wSize, sizeof(wSize));
    int nCopied = static_cast<int>(SendMessage(EM_GETLINE, nIndex, reinterpret_cast<LPARAM>(lpszTarget)));
    if (lpszTarget != lpszBuffer && nCopied > 0)
        lpszBuffer[0] = szShort[0];
    return nCopied;
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("LISTBOX"), NULL, dwStyle, rect, pParentWnd, nID);
}

void CListBox::GetText(int nIndex, CString& rString) const
{
    ASSERT(::IsWindow(m_hWnd));
    GetItemString(this, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}

int CListBox::SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem)
{
    ASSERT(::IsWindow(m_hWnd));
    if (nFirstItem > nLastItem)
    {
        int nSwap = nFirstItem;
        nFirstItem = nLastItem;
        nLastItem = nSwap;
    }
    if (bSelect)
        return static_cast<int>(SendMessage(LB_SELITEMRANGEEX, nFirstItem, nLastItem));
    // LB_SELITEMRANGEEX deselects only with the range given backwards, which one item cannot be.
    if (nFirstItem == nLastItem)
        return SetSel(nFirstItem, FALSE);
    return static_cast<int>(SendMessage(LB_SELITEMRANGEEX, nLastItem, nFirstItem));
}

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    ASSERT(::IsWindow(m_hWnd));
    DWORD dwResult = static_cast<DWORD>(SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y)));
    bOutside = HIWORD(dwResult) != 0;
    return LOWORD(dwResult);
}

void CAfxOwnerDrawList::DrawItem(LPDRAWITEMSTRUCT) {}
void CAfxOwnerDrawList::MeasureItem(LPMEASUREITEMSTRUCT) {}
int CAfxOwnerDrawList::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
void CAfxOwnerDrawList::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CAfxOwnerDrawList::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = TRUE;
    switch (message)
    {
    case WM_DRAWITEM:
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        break;
    case WM_MEASUREITEM:
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        break;
    case WM_COMPAREITEM:
        lResult = CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        break;
    case WM_DELETEITEM:
        DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        break;
    default:
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    }
    if (pResult != NULL)
        *pResult = lResult;
    return TRUE;
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("COMBOBOX"), NULL, dwStyle, rect, pParentWnd, nID);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    ASSERT(::IsWindow(m_hWnd));
    GetItemString(this, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(_T("SCROLLBAR"), NULL, dwStyle, rect, pParentWnd, nID);
}

// A scroll bar control is its own SB_CTL bar.
BOOL CScrollBar::SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    return CWnd::SetScrollInfo(SB_CTL, lpScrollInfo, bRedraw);
}

BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    return CWnd::GetScrollInfo(SB_CTL, lpScrollInfo, nMask);
}

int CScrollBar::GetScrollLimit()
{
    int nMin = 0, nMax = 0;
    GetScrollRange(&nMin, &nMax);
    SCROLLINFO info;
    if (GetScrollInfo(&info, SIF_PAGE) && info.nPage > 1)
        nMax -= static_cast<int>(info.nPage - 1);
    return nMax;
}
