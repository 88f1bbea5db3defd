#include <afxwin.h>
#include <gtest/gtest.h>

namespace
{
const UINT ID_OPEN = 100;

class CMenuTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_menu.CreatePopupMenu());
        m_menu.AppendMenu(MF_STRING, ID_OPEN, "&Open");
        m_menu.AppendMenu(MF_SEPARATOR);
    }
    void TearDown() override { AfxDeleteTempMaps(); }

    CMenu m_menu; // Open, separator
};
} // namespace

TEST_F(CMenuTest, MenuStringsAreReadWholeAndCutHere)
{
    EXPECT_FALSE(m_menu.CreatePopupMenu()); // already holds one
    CString strText;
    EXPECT_EQ(5, m_menu.GetMenuString(0, strText, MF_BYPOSITION));
    EXPECT_STREQ("&Open", strText);
    EXPECT_EQ(0, m_menu.GetMenuString(1, strText, MF_BYPOSITION)); // the separator
    EXPECT_STREQ("", strText);

    char szShort[4] = "xyz";
    EXPECT_EQ(3, m_menu.GetMenuString(ID_OPEN, szShort, sizeof(szShort), MF_BYCOMMAND));
    EXPECT_STREQ("&Op", szShort);
    EXPECT_EQ(0, m_menu.GetMenuString(ID_OPEN, NULL, 10, MF_BYCOMMAND));
    EXPECT_EQ(0, m_menu.GetMenuString(999, szShort, sizeof(szShort), MF_BYCOMMAND));
    EXPECT_STREQ("", szShort);
    EXPECT_FALSE(m_menu.TrackPopupMenu(TPM_RETURNCMD, 10, 10, NULL)); // no owner
}

TEST_F(CMenuTest, OnlyPermanentObjectsDestroyTheirMenus)
{
    CMenu bar;
    ASSERT_TRUE(bar.CreateMenu());
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(m_menu.m_hMenu), "&File");
    EXPECT_EQ(&m_menu, bar.GetSubMenu(0));
    HMENU hFile = m_menu.Detach(); // the bar owns it now
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
}
