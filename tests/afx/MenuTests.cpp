#include <afxwin.h>
#include <gtest/gtest.h>

TEST(CMenuTest, OnlyPermanentObjectsDestroyTheirMenus)
{
    CMenu file;
    ASSERT_TRUE(file.CreatePopupMenu());
    EXPECT_FALSE(file.CreatePopupMenu()); // already holds one
    CMenu bar;
    ASSERT_TRUE(bar.CreateMenu());
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(file.m_hMenu), "&File");
    EXPECT_EQ(&file, bar.GetSubMenu(0));
    HMENU hFile = file.Detach(); // the bar owns it now
    EXPECT_EQ(hFile, bar.GetSubMenu(0)->GetSafeHmenu());
    AfxDeleteTempMaps();
    EXPECT_TRUE(::IsMenu(hFile)); // a temporary object leaves its menu alone

    // A window hands out the object that holds its menu.
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW, 0, 0, 200, 150, NULL, NULL));
    EXPECT_TRUE(frame.SetMenu(&bar));
    EXPECT_EQ(&bar, frame.GetMenu());
    EXPECT_TRUE(frame.SetMenu(NULL)); // the bar is ours to destroy
    EXPECT_EQ(nullptr, frame.GetMenu());

    HMENU hBar = bar.Detach();
    EXPECT_TRUE(CMenu().Attach(hBar)); // the object destroys its menu, submenus with it
    EXPECT_FALSE(::IsMenu(hBar));
    EXPECT_FALSE(::IsMenu(hFile));
    EXPECT_FALSE(bar.DestroyMenu());
    EXPECT_FALSE(bar.LoadMenu(4711)); // no such resource
    EXPECT_EQ(nullptr, CMenu::FromHandle(NULL)->GetSafeHmenu());
    AfxDeleteTempMaps();
}
