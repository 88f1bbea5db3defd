#include "controls/NoEdit.h"

IMPLEMENT_DYNAMIC(CNoEdit, CWnd)

BEGIN_MESSAGE_MAP(CNoEdit, CWnd)
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

void CNoEdit::OnChar(UINT, UINT, UINT) {}

void CNoEdit::OnKeyDown(UINT nChar, UINT, UINT)
{
    HWND hWndParent = ::GetParent(m_hWnd);
    WPARAM wParam = reinterpret_cast<WPARAM>(m_hWnd);
    switch (nChar)
    {
    case VK_TAB: ::SendMessage(hWndParent, WM_NOEDIT_TAB, wParam, ::GetKeyState(VK_SHIFT) < 0 ? 0 : 1); break;
    case VK_UP: ::SendMessage(hWndParent, WM_NOEDIT_UPDOWN, wParam, 1); break;
    case VK_DOWN: ::SendMessage(hWndParent, WM_NOEDIT_UPDOWN, wParam, 0); break;
    default: Default(); break;
    }
}

UINT CNoEdit::OnGetDlgCode()
{
    return DLGC_WANTTAB | DLGC_WANTARROWS | DLGC_WANTCHARS;
}
