#include <afxwin.h>

namespace
{
typedef CHandleMap<CMenu, HMENU, &CMenu::m_hMenu> CMenuMap;
} // namespace

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu::CMenu() : m_hMenu(NULL) {}

CMenu::~CMenu()
{
    DestroyMenu();
}

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu)
{
    return CMenuMap::FromHandle(hMenu);
}

void PASCAL CMenu::DeleteTempMap()
{
    CMenuMap::DeleteTempMap();
}

BOOL CMenu::Attach(HMENU hMenu)
{
    return CMenuMap::Attach(this, hMenu);
}

HMENU CMenu::Detach()
{
    return CMenuMap::Detach(this);
}

BOOL CMenu::CreateMenu()
{
    return m_hMenu == NULL && Attach(::CreateMenu());
}

BOOL CMenu::CreatePopupMenu()
{
    return m_hMenu == NULL && Attach(::CreatePopupMenu());
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName)
{
    return m_hMenu == NULL && lpszResourceName != NULL &&
           Attach(::LoadMenuA(AfxFindResourceHandle(lpszResourceName, RT_MENU), lpszResourceName));
}

BOOL CMenu::DestroyMenu()
{
    if (m_hMenu == NULL)
        return FALSE;
    return ::DestroyMenu(Detach());
}

int CMenu::GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const
{
    ASSERT(::IsMenu(m_hMenu));
    if (lpString == NULL || nMaxCount <= 0)
        return 0;
    // Read whole and cut here: the system may write a character past a buffer that is too short.
    CString strText;
    GetMenuString(nIDItem, strText, nFlags);
    ::lstrcpynA(lpString, strText, nMaxCount);
    return ::lstrlenA(lpString);
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const
{
    ASSERT(::IsMenu(m_hMenu));
    // Asking without a buffer gives the length.
    int nLength = ::GetMenuStringA(m_hMenu, nIDItem, NULL, 0, nFlags);
    if (nLength <= 0)
    {
        rString.Empty();
        return 0;
    }
    nLength = ::GetMenuStringA(m_hMenu, nIDItem, rString.GetBuffer(nLength + 1), nLength + 1, nFlags);
    rString.ReleaseBuffer(nLength);
    return nLength;
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd->GetSafeHwnd(), lpRect);
}

// ---------------------------------------------------------------------------------------------
// CWnd members that hand out menus

CMenu* CWnd::GetMenu() const
{
    ASSERT(::IsWindow(m_hWnd));
    return CMenu::FromHandle(::GetMenu(m_hWnd));
}

BOOL CWnd::SetMenu(CMenu* pMenu)
{
    ASSERT(::IsWindow(m_hWnd));
    return ::SetMenu(m_hWnd, pMenu->GetSafeHmenu());
}

CMenu* CWnd::GetSystemMenu(BOOL bRevert) const
{
    ASSERT(::IsWindow(m_hWnd));
    return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert));
}
