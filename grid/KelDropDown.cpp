#include "grid/KelDropDown.h"

#include <algorithm>
#include <cstring>

CKelDropDown* CKelDropDown::m_stpOpen = NULL;
HHOOK CKelDropDown::m_sthHook = NULL;

CKelDropDown::~CKelDropDown()
{
    Close();
}

CRect CKelDropDown::PlacePopup(const CRect& rcHost, CSize size, const CRect& rcMonitor)
{
    int cx = std::max(0, std::min<int>(size.cx, rcMonitor.Width()));
    int x = rcHost.left;
    if (x + cx > rcMonitor.right)
        x = rcMonitor.right - cx;
    if (x < rcMonitor.left)
        x = rcMonitor.left;

    int nBelow = rcMonitor.bottom - rcHost.bottom;
    int nAbove = rcHost.top - rcMonitor.top;
    int cy = size.cy;
    int y = rcHost.bottom;
    if (cy > nBelow)
    {
        if (nAbove > nBelow)
        {
            cy = std::min(cy, nAbove);
            y = rcHost.top - std::max(cy, 1);
        }
        else
            cy = nBelow;
    }
    return CRect(x, y, x + cx, y + std::max(cy, 1));
}

void CKelDropDown::CloseOpenDropDown()
{
    if (m_stpOpen != NULL)
    {
        CKelDropDown* pOpen = m_stpOpen;
        ::SendMessage(pOpen->m_hWndHost, KDDM_CLOSEUP, 0, 0);
        // A host that did not answer still loses its watch: only one helper may be open.
        if (m_stpOpen == pOpen)
            pOpen->Close();
    }
}

BOOL CKelDropDown::Open(HWND hWndHost, HWND hWndPopup)
{
    if (!::IsWindow(hWndHost) || !::IsWindow(hWndPopup))
        return FALSE;
    if (m_stpOpen != this)
        CloseOpenDropDown();
    if (m_sthHook == NULL)
    {
        m_sthHook = ::SetWindowsHookEx(WH_MOUSE, OnMouseHook, NULL, ::GetCurrentThreadId());
        if (m_sthHook == NULL)
            return FALSE;
    }
    m_hWndHost = hWndHost;
    m_hWndPopup = hWndPopup;
    m_stpOpen = this;
    return TRUE;
}

void CKelDropDown::Close()
{
    if (m_stpOpen != this)
        return;
    m_stpOpen = NULL;
    if (m_sthHook != NULL)
    {
        ::UnhookWindowsHookEx(m_sthHook);
        m_sthHook = NULL;
    }
}

bool CKelDropDown::IsWithin(HWND hWnd, HWND hWndRoot)
{
    for (; hWnd != NULL; hWnd = (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) ? ::GetParent(hWnd) : NULL)
    {
        if (hWnd == hWndRoot)
            return true;
    }
    return false;
}

LRESULT CALLBACK CKelDropDown::OnMouseHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    HHOOK hHook = m_sthHook;
    if (nCode == HC_ACTION && m_stpOpen != NULL)
    {
        switch (wParam)
        {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
        case WM_NCRBUTTONDOWN:
        case WM_NCMBUTTONDOWN:
        {
            HWND hWnd = reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam)->hwnd;
            char szClass[8] = {};
            ::GetClassNameA(hWnd, szClass, sizeof(szClass));
            if (IsWithin(hWnd, m_stpOpen->m_hWndPopup) || strcmp(szClass, "#32768") == 0)
                break;
            ::PostMessage(m_stpOpen->m_hWndHost, KDDM_CLOSEUP, 0, 0);
            if (IsWithin(hWnd, m_stpOpen->m_hWndHost))
                return 1;
            break;
        }
        default:
            break;
        }
    }
    return ::CallNextHookEx(hHook, nCode, wParam, lParam);
}
