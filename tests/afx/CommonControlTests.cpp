#include <afxwin.h>
#include <afxcmn.h>
#include <gtest/gtest.h>

#include <stdio.h>

#include <vector>

namespace
{
// Answers the owner-data list's questions itself, through the reflected notification. (Drawing
// an owner-data list is the grid's daily work, tested there.)
class CVirtualList : public CListCtrl
{
protected:
    afx_msg void OnGetDispInfo(NMHDR* pNMHDR, LRESULT*)
    {
        LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(pNMHDR)->item;
        if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0)
            snprintf(item.pszText, item.cchTextMax, "Row %d/%d", item.iItem, item.iSubItem);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CVirtualList, CListCtrl)
ON_NOTIFY_REFLECT(LVN_GETDISPINFO, OnGetDispInfo)
END_MESSAGE_MAP()

class CControlTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_parent.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 400, 300, NULL, NULL)); }
    void TearDown() override { AfxDeleteTempMaps(); }

    // Columns of 100, 60 and 80 pixels.
    bool CreateReport(CListCtrl& list, DWORD dwStyle = 0)
    {
        return list.Create(WS_VISIBLE | LVS_REPORT | dwStyle, CRect(0, 0, 300, 200), &m_parent, 100) &&
               list.InsertColumn(0, "A", LVCFMT_LEFT, 100) == 0 && list.InsertColumn(1, "B", LVCFMT_RIGHT, 60) == 1 &&
               list.InsertColumn(2, "C", LVCFMT_LEFT, 80) == 2;
    }

    CWnd m_parent;
};
} // namespace

TEST_F(CControlTest, ColumnsAndTheWrappedHeader)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    CHeaderCtrl* pHeader = list.GetHeaderCtrl();
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(pHeader->m_hWnd)); // wrapped, not attached
    // So the caller may still subclass it, and is then handed its own object.
    CHeaderCtrl own;
    ASSERT_TRUE(own.SubclassWindow(pHeader->m_hWnd));
    EXPECT_EQ(&own, list.GetHeaderCtrl());
    own.UnsubclassWindow();
}

TEST_F(CControlTest, ItemTextsSelectionAndSubItemGeometry)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    for (int i = 0; i < 5; ++i)
        list.InsertItem(i, "item");
    EXPECT_STREQ("", list.GetItemText(9, 0)); // no such item
    EXPECT_EQ(0, list.GetItemText(0, 1, NULL, 4));
    CString strLong('x', 700); // longer than the first buffer the CString form tries
    EXPECT_TRUE(list.SetItemText(0, 2, strLong));
    EXPECT_EQ(strLong, list.GetItemText(0, 2));

    EXPECT_EQ(nullptr, list.GetFirstSelectedItemPosition());
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED); // item 0 must not read as the end
    list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    std::vector<int> selected;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != NULL;)
        selected.push_back(list.GetNextSelectedItem(pos));
    EXPECT_EQ(std::vector<int>({0, 3}), selected);
    POSITION end = NULL;
    EXPECT_EQ(-1, list.GetNextSelectedItem(end));

    // The codes travel in the rectangle itself.
    CRect row;
    ASSERT_TRUE(list.GetItemRect(1, &row, LVIR_BOUNDS));
    CRect label;
    ASSERT_TRUE(list.GetItemRect(1, &label, LVIR_LABEL));
    EXPECT_LT(label.Width(), row.Width());
    CRect sub;
    ASSERT_TRUE(list.GetSubItemRect(1, 2, LVIR_BOUNDS, sub));
    EXPECT_EQ(CRect(row.left + 160, row.top, row.left + 240, row.bottom), sub);
}

TEST_F(CControlTest, VirtualListsAnswerThroughTheControl)
{
    CVirtualList list;
    ASSERT_TRUE(CreateReport(list, LVS_OWNERDATA));
    list.SetItemCountEx(1000);
    EXPECT_STREQ("Row 500/1", list.GetItemText(500, 1));
}

TEST_F(CControlTest, ImageListsAreOwnedByTheirPermanentObjectsAlone)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 0, 4));
    EXPECT_FALSE(images.Create(8, 8, ILC_COLOR24, 0, 1)); // already holds one
    EXPECT_EQ(&images, CImageList::FromHandlePermanent(images.m_hImageList));
    CBitmap image;
    ASSERT_TRUE(image.CreateBitmap(16, 16, 1, 32, NULL));
    EXPECT_EQ(0, images.Add(&image, static_cast<CBitmap*>(NULL))); // no mask
    {
        CListCtrl list;
        ASSERT_TRUE(CreateReport(list));
        EXPECT_EQ(nullptr, list.SetImageList(&images, LVSIL_SMALL));
        EXPECT_EQ(&images, list.GetImageList(LVSIL_SMALL));
    }
    // The list was destroyed without LVS_SHAREIMAGELISTS; the image list is still ours.
    EXPECT_EQ(1, images.GetImageCount());
    EXPECT_TRUE(images.DeleteImageList());
    EXPECT_FALSE(images.DeleteImageList());

    // A temporary object leaves its image list alone.
    HIMAGELIST hRaw = ImageList_Create(8, 8, ILC_COLOR, 1, 1);
    EXPECT_EQ(hRaw, CImageList::FromHandle(hRaw)->m_hImageList);
    EXPECT_EQ(nullptr, CImageList::FromHandlePermanent(hRaw));
    AfxDeleteTempMaps();
    EXPECT_TRUE(ImageList_Destroy(hRaw));
    EXPECT_EQ(nullptr, CImageList::FromHandle(NULL));
}

TEST_F(CControlTest, ToolTipsForWindowsAndRectangles)
{
    CStatic child;
    ASSERT_TRUE(child.Create("", WS_CHILD | WS_VISIBLE, CRect(10, 10, 60, 30), &m_parent, 5));
    CToolTipCtrl tip;
    ASSERT_TRUE(tip.Create(&m_parent, TTS_ALWAYSTIP));
    EXPECT_TRUE(tip.AddTool(&child, "Child tip"));
    CString strText;
    // A window tool is named by the window's parent and the window's handle.
    TTTOOLINFOA ti = {};
    ti.cbSize = TTTOOLINFOA_V2_SIZE;
    ti.hwnd = m_parent.m_hWnd;
    ti.uId = reinterpret_cast<UINT_PTR>(child.m_hWnd);
    ASSERT_TRUE(tip.SendMessage(TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&ti)));
    EXPECT_NE(0u, ti.uFlags & TTF_IDISHWND);

    // A rectangle tool is named by its window and its id; texts past the ANSI message's 80
    // characters come back whole.
    CString strLong('t', 600);
    EXPECT_TRUE(tip.AddTool(&m_parent, strLong, CRect(0, 0, 40, 40), 8));
    tip.GetText(strText, &m_parent, 8);
    EXPECT_EQ(strLong, strText);

    tip.DelTool(&child);
    tip.GetText(strText, &child);
    EXPECT_STREQ("", strText);
    EXPECT_FALSE(tip.AddTool(NULL, "nowhere"));
    EXPECT_FALSE(tip.AddTool(&child, static_cast<LPCTSTR>(NULL)));
}
