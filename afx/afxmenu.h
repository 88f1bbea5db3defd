// CMenu: a menu handle with MFC's members. A menu without a permanent object gets a temporary
// one from FromHandle (GetSubMenu, CWnd::GetMenu), deleted by AfxDeleteTempMaps at idle time.
#pragma once

#include <afxgdi.h>

class AFX_CORE_CLASS CMenu : public CObject
{
    DECLARE_DYNCREATE(CMenu)
public:
    CMenu();
    // Destroys the menu it holds: detach a menu that a window owns (SetMenu) before that.
    ~CMenu() override;

    HMENU m_hMenu;
    operator HMENU() const { return m_hMenu; }
    HMENU GetSafeHmenu() const
    {
        const CMenu* pThis = AfxNullableThis(this);
        return pThis == NULL ? NULL : pThis->m_hMenu;
    }

    static CMenu* PASCAL FromHandle(HMENU hMenu);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HMENU hMenu);
    HMENU Detach();

    // Each fails, creating nothing, when the object already holds a menu.
    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // From the resource chain (AfxFindResourceHandle).
    BOOL LoadMenu(LPCTSTR lpszResourceName);
    BOOL LoadMenu(UINT nIDResource) { return LoadMenu(MAKEINTRESOURCEA(nIDResource)); }
    BOOL DestroyMenu();

    // With MF_POPUP, nIDNewItem is the HMENU of the submenu.
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL)
    {
        ASSERT(::IsMenu(m_hMenu));
        return ::AppendMenuA(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
    }
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL)
    {
        ASSERT(::IsMenu(m_hMenu));
        return ::InsertMenuA(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
    }
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = NULL)
    {
        ASSERT(::IsMenu(m_hMenu));
        return ::ModifyMenuA(m_hMenu, nPosition, nFlags, nIDNewItem, lpszNewItem);
    }
    // Takes the item out; a submenu survives RemoveMenu and is destroyed by DeleteMenu.
    BOOL RemoveMenu(UINT nPosition, UINT nFlags) { ASSERT(::IsMenu(m_hMenu)); return ::RemoveMenu(m_hMenu, nPosition, nFlags); }
    BOOL DeleteMenu(UINT nPosition, UINT nFlags) { ASSERT(::IsMenu(m_hMenu)); return ::DeleteMenu(m_hMenu, nPosition, nFlags); }

    // Both return the previous state (MF_ENABLED/MF_GRAYED/MF_DISABLED, MF_CHECKED/MF_UNCHECKED),
    // or 0xFFFFFFFF when there is no such item.
    UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable) { ASSERT(::IsMenu(m_hMenu)); return ::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable); }
    UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck) { ASSERT(::IsMenu(m_hMenu)); return ::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck); }
    BOOL CheckMenuRadioItem(UINT nIDFirst, UINT nIDLast, UINT nIDItem, UINT nFlags)
    {
        ASSERT(::IsMenu(m_hMenu));
        return ::CheckMenuRadioItem(m_hMenu, nIDFirst, nIDLast, nIDItem, nFlags);
    }
    BOOL SetDefaultItem(UINT uItem, BOOL fByPos = FALSE) { ASSERT(::IsMenu(m_hMenu)); return ::SetMenuDefaultItem(m_hMenu, uItem, fByPos); }
    UINT GetDefaultItem(UINT gmdiFlags, BOOL fByPos = FALSE) { ASSERT(::IsMenu(m_hMenu)); return ::GetMenuDefaultItem(m_hMenu, fByPos, gmdiFlags); }

    // 0xFFFFFFFF when the menu is not valid.
    UINT GetMenuItemCount() const { ASSERT(::IsMenu(m_hMenu)); return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
    // 0xFFFFFFFF for a submenu or no item.
    UINT GetMenuItemID(int nPos) const { ASSERT(::IsMenu(m_hMenu)); return ::GetMenuItemID(m_hMenu, nPos); }
    UINT GetMenuState(UINT nID, UINT nFlags) const { ASSERT(::IsMenu(m_hMenu)); return ::GetMenuState(m_hMenu, nID, nFlags); }
    // Copies at most nMaxCount - 1 characters and a terminator; returns the characters copied.
    int GetMenuString(UINT nIDItem, LPTSTR lpString, int nMaxCount, UINT nFlags) const;
    int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
    CMenu* GetSubMenu(int nPos) const { ASSERT(::IsMenu(m_hMenu)); return CMenu::FromHandle(::GetSubMenu(m_hMenu, nPos)); }

    // With TPM_RETURNCMD returns the chosen command (0 for none) instead of sending it.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = NULL);
};
