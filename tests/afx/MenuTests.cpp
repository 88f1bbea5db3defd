#include <afxwin.h>
#include <gtest/gtest.h>

namespace
{
enum
{
    ID_OPEN = 100,
    ID_SAVE,
    ID_CLOSE,
    ID_LEFT,
    ID_CENTRE,
    ID_RIGHT,
};

const UINT NO_ITEM = 0xFFFFFFFF;

void CALLBACK CloseTheMenu(HWND hWnd, UINT, UINT_PTR nIDEvent, DWORD)
{
    ::KillTimer(hWnd, nIDEvent);
    ::EndMenu();
}

void CALLBACK ChooseTheSecondItem(HWND hWnd, UINT, UINT_PTR nIDEvent, DWORD)
{
    ::KillTimer(hWnd, nIDEvent);
    // The menu's own loop reads the thread's keyboard messages, whichever window they name.
    ::PostMessageA(hWnd, WM_KEYDOWN, VK_DOWN, 0);
    ::PostMessageA(hWnd, WM_KEYDOWN, VK_DOWN, 0);
    ::PostMessageA(hWnd, WM_KEYDOWN, VK_RETURN, 0);
}

class CMenuTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_menu.CreatePopupMenu());
        m_menu.AppendMenu(MF_STRING, ID_OPEN, "&Open");
        m_menu.AppendMenu(MF_STRING, ID_CLOSE, "&Close");
        m_menu.AppendMenu(MF_SEPARATOR);
        m_menu.InsertMenu(1, MF_BYPOSITION | MF_STRING, ID_SAVE, "&Save");
    }
    void TearDown() override { AfxDeleteTempMaps(); }

    CMenu m_menu; // Open, Save, Close, separator
};
} // namespace

TEST_F(CMenuTest, ItemsAreCountedAndNamed)
{
    EXPECT_FALSE(m_menu.CreatePopupMenu()); // already holds one
    EXPECT_EQ(&m_menu, CMenu::FromHandle(m_menu.m_hMenu));
    EXPECT_EQ(4u, m_menu.GetMenuItemCount());
    struct
    {
        int nPos;
        UINT nID;
        const char* pszText;
    } cases[] = {{0, ID_OPEN, "&Open"}, {1, ID_SAVE, "&Save"}, {2, ID_CLOSE, "&Close"}, {3, 0, ""}, {4, NO_ITEM, ""}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.nPos);
        EXPECT_EQ(c.nID, m_menu.GetMenuItemID(c.nPos));
        CString strText("stale");
        EXPECT_EQ(static_cast<int>(strlen(c.pszText)), m_menu.GetMenuString(c.nPos, strText, MF_BYPOSITION));
        EXPECT_STREQ(c.pszText, strText);
    }

    char szShort[4] = "xyz";
    EXPECT_EQ(3, m_menu.GetMenuString(ID_CLOSE, szShort, sizeof(szShort), MF_BYCOMMAND));
    EXPECT_STREQ("&Cl", szShort);
    EXPECT_EQ(0, m_menu.GetMenuString(ID_CLOSE, NULL, 10, MF_BYCOMMAND));
    EXPECT_EQ(0, m_menu.GetMenuString(999, szShort, sizeof(szShort), MF_BYCOMMAND));
    EXPECT_STREQ("", szShort);

    EXPECT_TRUE(m_menu.ModifyMenu(ID_SAVE, MF_BYCOMMAND | MF_STRING, ID_SAVE, "Save &As"));
    CString strText;
    m_menu.GetMenuString(ID_SAVE, strText, MF_BYCOMMAND);
    EXPECT_STREQ("Save &As", strText);
}

TEST_F(CMenuTest, StateChangesReturnThePreviousState)
{
    EXPECT_EQ(static_cast<UINT>(MF_ENABLED), m_menu.EnableMenuItem(ID_OPEN, MF_BYCOMMAND | MF_GRAYED));
    EXPECT_EQ(static_cast<UINT>(MF_GRAYED), m_menu.EnableMenuItem(ID_OPEN, MF_BYCOMMAND | MF_ENABLED));
    EXPECT_EQ(static_cast<UINT>(MF_UNCHECKED), m_menu.CheckMenuItem(ID_SAVE, MF_BYCOMMAND | MF_CHECKED));
    EXPECT_EQ(static_cast<UINT>(MF_CHECKED), m_menu.GetMenuState(ID_SAVE, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_EQ(static_cast<UINT>(MF_CHECKED), m_menu.CheckMenuItem(1, MF_BYPOSITION | MF_UNCHECKED));
    EXPECT_EQ(NO_ITEM, m_menu.EnableMenuItem(999, MF_BYCOMMAND | MF_GRAYED));
    EXPECT_EQ(NO_ITEM, m_menu.GetMenuState(999, MF_BYCOMMAND));

    m_menu.AppendMenu(MF_STRING, ID_LEFT, "Left");
    m_menu.AppendMenu(MF_STRING, ID_CENTRE, "Centre");
    m_menu.AppendMenu(MF_STRING, ID_RIGHT, "Right");
    EXPECT_TRUE(m_menu.CheckMenuRadioItem(ID_LEFT, ID_RIGHT, ID_CENTRE, MF_BYCOMMAND));
    EXPECT_EQ(static_cast<UINT>(MF_CHECKED), m_menu.GetMenuState(ID_CENTRE, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_EQ(0u, m_menu.GetMenuState(ID_LEFT, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_TRUE(m_menu.CheckMenuRadioItem(ID_LEFT, ID_RIGHT, ID_RIGHT, MF_BYCOMMAND));
    EXPECT_EQ(0u, m_menu.GetMenuState(ID_CENTRE, MF_BYCOMMAND) & MF_CHECKED);

    EXPECT_TRUE(m_menu.SetDefaultItem(ID_SAVE));
    EXPECT_EQ(static_cast<UINT>(ID_SAVE), m_menu.GetDefaultItem(0));
    EXPECT_TRUE(m_menu.SetDefaultItem(2, TRUE));
    EXPECT_EQ(2u, m_menu.GetDefaultItem(0, TRUE));
}

TEST_F(CMenuTest, SubmenusAreTemporaryUnlessAttached)
{
    CMenu bar;
    ASSERT_TRUE(bar.CreateMenu());
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(m_menu.m_hMenu), "&File");
    EXPECT_EQ(&m_menu, bar.GetSubMenu(0));
    EXPECT_EQ(NO_ITEM, bar.GetMenuItemID(0)); // a submenu has no command
    EXPECT_EQ(nullptr, bar.GetSubMenu(5));

    HMENU hFile = m_menu.Detach(); // the bar owns it now
    CMenu* pFile = bar.GetSubMenu(0);
    ASSERT_NE(nullptr, pFile);
    EXPECT_EQ(hFile, pFile->m_hMenu);
    EXPECT_EQ(pFile, CMenu::FromHandle(hFile));
    AfxDeleteTempMaps();
    EXPECT_TRUE(::IsMenu(hFile)); // a temporary object leaves its menu alone

    // RemoveMenu lets a submenu live on; DeleteMenu destroys it.
    EXPECT_TRUE(bar.RemoveMenu(0, MF_BYPOSITION));
    EXPECT_EQ(0u, bar.GetMenuItemCount());
    EXPECT_TRUE(::IsMenu(hFile));
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(hFile), "&File");
    EXPECT_TRUE(bar.DeleteMenu(0, MF_BYPOSITION));
    EXPECT_FALSE(::IsMenu(hFile));
}

TEST(CMenuLifeTest, TheObjectDestroysItsMenu)
{
    HMENU hMenu;
    {
        CMenu menu;
        ASSERT_TRUE(menu.CreateMenu());
        hMenu = menu.m_hMenu;
    }
    EXPECT_FALSE(::IsMenu(hMenu));

    CMenu empty;
    EXPECT_FALSE(empty.DestroyMenu());
    EXPECT_FALSE(empty.LoadMenu(4711)); // no such resource
    EXPECT_EQ(nullptr, empty.m_hMenu);
    EXPECT_EQ(nullptr, CMenu::FromHandle(NULL)->GetSafeHmenu());
}

TEST_F(CMenuTest, WindowsShowTheirMenus)
{
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW, 0, 0, 200, 150, NULL, NULL));
    CMenu bar;
    ASSERT_TRUE(bar.CreateMenu());
    bar.AppendMenu(MF_STRING, ID_OPEN, "&Open");
    EXPECT_TRUE(frame.SetMenu(&bar));
    EXPECT_EQ(&bar, frame.GetMenu());
    CMenu* pSystem = frame.GetSystemMenu(FALSE);
    ASSERT_NE(nullptr, pSystem);
    EXPECT_NE(static_cast<UINT>(0), pSystem->GetMenuItemCount());
    EXPECT_NE(NO_ITEM, pSystem->GetMenuState(SC_CLOSE, MF_BYCOMMAND));
    EXPECT_TRUE(frame.SetMenu(NULL)); // the bar is ours to destroy
    EXPECT_EQ(nullptr, frame.GetMenu());
}

TEST_F(CMenuTest, TrackPopupMenuReturnsTheChosenCommand)
{
    CWnd owner;
    ASSERT_TRUE(owner.CreateEx(0, "STATIC", "owner", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, NULL, NULL));
    owner.SetTimer(1, 50, CloseTheMenu);
    EXPECT_EQ(0, m_menu.TrackPopupMenu(TPM_RETURNCMD | TPM_NONOTIFY, 10, 10, &owner));
    owner.SetTimer(2, 50, ChooseTheSecondItem);
    EXPECT_EQ(ID_SAVE, m_menu.TrackPopupMenu(TPM_RETURNCMD | TPM_NONOTIFY, 10, 10, &owner));
    EXPECT_FALSE(m_menu.TrackPopupMenu(TPM_RETURNCMD, 10, 10, NULL)); // no owner
}
