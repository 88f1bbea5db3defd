#include <afxwin.h>
#include <gtest/gtest.h>

namespace
{
enum { ID_OPEN = 100, ID_SAVE, ID_CLOSE };

const UINT NO_ITEM = 0xFFFFFFFF;

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
        m_menu.AppendMenu(MF_STRING, ID_SAVE, "&Save");
        m_menu.AppendMenu(MF_STRING, ID_CLOSE, "&Close");
        m_menu.AppendMenu(MF_SEPARATOR);
    }
    void TearDown() override { AfxDeleteTempMaps(); }

    CMenu m_menu; // Open, Save, Close, separator
};
} // namespace

TEST_F(CMenuTest, MenuStringsAreReadWholeAndCutHere)
{
    EXPECT_FALSE(m_menu.CreatePopupMenu()); // already holds one
    CString strText("stale");
    EXPECT_EQ(5, m_menu.GetMenuString(1, strText, MF_BYPOSITION));
    EXPECT_STREQ("&Save", strText);
    strText = "stale";
    EXPECT_EQ(0, m_menu.GetMenuString(3, strText, MF_BYPOSITION)); // the separator
    EXPECT_STREQ("", strText);

    char szShort[4] = "xyz";
    EXPECT_EQ(3, m_menu.GetMenuString(ID_CLOSE, szShort, sizeof(szShort), MF_BYCOMMAND));
    EXPECT_STREQ("&Cl", szShort);
    EXPECT_EQ(0, m_menu.GetMenuString(ID_CLOSE, NULL, 10, MF_BYCOMMAND));
    EXPECT_EQ(0, m_menu.GetMenuString(999, szShort, sizeof(szShort), MF_BYCOMMAND));
    EXPECT_STREQ("", szShort);
    EXPECT_EQ(NO_ITEM, m_menu.EnableMenuItem(999, MF_BYCOMMAND | MF_GRAYED));
}

TEST_F(CMenuTest, OnlyPermanentObjectsDestroyTheirMenus)
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
    AfxDeleteTempMaps();
    EXPECT_TRUE(::IsMenu(hFile)); // a temporary object leaves its menu alone

    HMENU hBar;
    {
        CMenu owner;
        ASSERT_TRUE(owner.Attach(bar.Detach()));
        hBar = owner.m_hMenu;
    }
    EXPECT_FALSE(::IsMenu(hBar)); // the object destroys its menu, submenus with it
    EXPECT_FALSE(::IsMenu(hFile));
    EXPECT_FALSE(bar.DestroyMenu());
    EXPECT_FALSE(bar.LoadMenu(4711)); // no such resource
    EXPECT_EQ(nullptr, CMenu::FromHandle(NULL)->GetSafeHmenu());
}

TEST_F(CMenuTest, WindowsShowTheirMenusAndTrackPopups)
{
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW, 0, 0, 200, 150, NULL, NULL));
    CMenu bar;
    ASSERT_TRUE(bar.CreateMenu());
    bar.AppendMenu(MF_STRING, ID_OPEN, "&Open");
    EXPECT_TRUE(frame.SetMenu(&bar));
    EXPECT_EQ(&bar, frame.GetMenu());
    EXPECT_TRUE(frame.SetMenu(NULL)); // the bar is ours to destroy
    EXPECT_EQ(nullptr, frame.GetMenu());

    frame.SetTimer(1, 50, ChooseTheSecondItem);
    EXPECT_EQ(ID_SAVE, m_menu.TrackPopupMenu(TPM_RETURNCMD | TPM_NONOTIFY, 10, 10, &frame));
    EXPECT_FALSE(m_menu.TrackPopupMenu(TPM_RETURNCMD, 10, 10, NULL)); // no owner
}
