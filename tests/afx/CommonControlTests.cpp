#include <afxwin.h>
#include <afxcmn.h>
#include <gtest/gtest.h>

#include <stdio.h>

#include <set>
#include <vector>

namespace
{
// Answers the owner-data list's questions itself, through the reflected notification.
class COwnerDataList : public CListCtrl
{
protected:
    afx_msg void OnGetDispInfo(NMHDR* pNMHDR, LRESULT* pResult)
    {
        LVITEMA& item = reinterpret_cast<NMLVDISPINFOA*>(pNMHDR)->item;
        if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0)
            snprintf(item.pszText, item.cchTextMax, "Row %d/%d", item.iItem, item.iSubItem);
        *pResult = 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(COwnerDataList, CListCtrl)
ON_NOTIFY_REFLECT(LVN_GETDISPINFO, OnGetDispInfo)
END_MESSAGE_MAP()

class COwnerDrawList : public CListCtrl
{
public:
    std::set<UINT> m_drawn;
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override { m_drawn.insert(lpDrawItemStruct->itemID); }
};

class CControlTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 400, 300, NULL, NULL));
    }
    void TearDown() override { AfxDeleteTempMaps(); }

    // Columns of 100, 60 and 80 pixels, and nItems items.
    BOOL CreateReport(CListCtrl& list, DWORD dwStyle = 0, int nItems = 0)
    {
        if (!list.Create(WS_VISIBLE | LVS_REPORT | dwStyle, CRect(0, 0, 300, 200), &m_parent, 100))
            return FALSE;
        list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, "Size", LVCFMT_RIGHT, 60);
        list.InsertColumn(2, "Type", LVCFMT_LEFT, 80);
        for (int i = 0; i < nItems; ++i)
            list.InsertItem(i, "item");
        return TRUE;
    }

    CWnd m_parent;
};
} // namespace

TEST_F(CControlTest, ColumnsAndTheWrappedHeader)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    EXPECT_EQ(3, list.InsertColumn(7, "Extra")); // appended
    char szText[32] = "";
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = szText;
    column.cchTextMax = sizeof(szText);
    ASSERT_TRUE(list.GetColumn(1, &column));
    EXPECT_STREQ("Size", szText);
    EXPECT_EQ(LVCFMT_RIGHT, column.fmt & LVCFMT_JUSTIFYMASK);

    CHeaderCtrl* pHeader = list.GetHeaderCtrl();
    ASSERT_NE(nullptr, pHeader);
    EXPECT_EQ(pHeader, list.GetHeaderCtrl());
    EXPECT_EQ(4, pHeader->GetItemCount());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(pHeader->m_hWnd)); // wrapped, not attached
    // So the caller may still subclass it, and is then handed its own object.
    CHeaderCtrl own;
    ASSERT_TRUE(own.SubclassWindow(pHeader->m_hWnd));
    EXPECT_EQ(&own, list.GetHeaderCtrl());
    own.UnsubclassWindow();
}

TEST_F(CControlTest, ItemTextsAndData)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    list.InsertItem(0, "alpha");
    EXPECT_TRUE(list.SetItemText(0, 1, "12 KB"));
    EXPECT_STREQ("12 KB", list.GetItemText(0, 1));
    EXPECT_STREQ("", list.GetItemText(9, 0)); // no such item

    char szShort[4];
    EXPECT_EQ(3, list.GetItemText(0, 0, szShort, sizeof(szShort)));
    EXPECT_STREQ("alp", szShort);
    EXPECT_EQ(0, list.GetItemText(0, 0, NULL, 4));
    CString strLong('x', 700); // longer than the first buffer the CString form tries
    EXPECT_TRUE(list.SetItemText(0, 2, strLong));
    EXPECT_EQ(strLong, list.GetItemText(0, 2));

    EXPECT_TRUE(list.SetItemData(0, 0xBEEF));
    EXPECT_EQ(static_cast<DWORD_PTR>(0xBEEF), list.GetItemData(0));
    EXPECT_EQ(static_cast<DWORD_PTR>(0), list.GetItemData(99));
}

TEST_F(CControlTest, SelectedItemsAreWalkedByPosition)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list, 0, 5));
    EXPECT_EQ(nullptr, list.GetFirstSelectedItemPosition());
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED); // item 0 must not read as the end
    list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    std::vector<int> selected;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != NULL;)
        selected.push_back(list.GetNextSelectedItem(pos));
    EXPECT_EQ(std::vector<int>({0, 3}), selected);
    POSITION end = NULL;
    EXPECT_EQ(-1, list.GetNextSelectedItem(end));

    EXPECT_TRUE(list.SetItemState(-1, 0, LVIS_SELECTED)); // every item
    EXPECT_EQ(0u, list.GetSelectedCount());
}

TEST_F(CControlTest, ItemRectanglesAndHitTesting)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list, 0, 3));
    CRect row;
    ASSERT_TRUE(list.GetItemRect(1, &row, LVIR_BOUNDS));
    EXPECT_EQ(240, row.Width());
    CRect label;
    ASSERT_TRUE(list.GetItemRect(1, &label, LVIR_LABEL)); // the code is passed on
    EXPECT_LT(label.Width(), row.Width());
    EXPECT_FALSE(list.GetItemRect(0, NULL, LVIR_BOUNDS));

    CRect sub;
    ASSERT_TRUE(list.GetSubItemRect(1, 2, LVIR_BOUNDS, sub));
    EXPECT_EQ(CRect(row.left + 160, row.top, row.left + 240, row.bottom), sub);
    ASSERT_TRUE(list.GetSubItemRect(1, 0, LVIR_BOUNDS, sub)); // sub-item 0: the whole item
    EXPECT_EQ(row, sub);

    UINT nFlags = 0;
    EXPECT_EQ(1, list.HitTest(CPoint(50, row.CenterPoint().y), &nFlags));
    EXPECT_NE(0u, nFlags & LVHT_ONITEM);
    EXPECT_EQ(-1, list.HitTest(CPoint(50, row.bottom + 3 * row.Height()))); // flags not wanted
}

TEST_F(CControlTest, OwnerDataItemsComeFromTheControl)
{
    COwnerDataList list;
    ASSERT_TRUE(CreateReport(list, LVS_OWNERDATA));
    list.SetItemCountEx(1000);
    EXPECT_EQ(1000, list.GetItemCount());
    EXPECT_STREQ("Row 500/1", list.GetItemText(500, 1));
}

TEST_F(CControlTest, OwnerDrawnItemsAreDrawnByTheControl)
{
    COwnerDrawList list;
    ASSERT_TRUE(CreateReport(list, LVS_OWNERDRAWFIXED, 3));
    m_parent.ShowWindow(SW_SHOWNOACTIVATE);
    list.RedrawWindow();
    MSG msg;
    while (::PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        ::DispatchMessageA(&msg);
    EXPECT_EQ(std::set<UINT>({0, 1, 2}), list.m_drawn);
}

TEST_F(CControlTest, ImageListsOutliveTheListsTheyServe)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 1, 1));
    {
        CListCtrl list;
        ASSERT_TRUE(CreateReport(list));
        EXPECT_EQ(nullptr, list.SetImageList(&images, LVSIL_SMALL));
        EXPECT_EQ(&images, list.GetImageList(LVSIL_SMALL));
    }
    // The list was destroyed without LVS_SHAREIMAGELISTS; the image list is still ours.
    int cx = 0;
    int cy = 0;
    EXPECT_TRUE(ImageList_GetIconSize(images.m_hImageList, &cx, &cy));
}

TEST(CImageListTest, ImageListsAreOwnedByTheirPermanentObjects)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 0, 4));
    EXPECT_FALSE(images.Create(8, 8, ILC_COLOR24, 0, 1)); // already holds one
    EXPECT_EQ(&images, CImageList::FromHandlePermanent(images.m_hImageList));
    CBitmap image;
    ASSERT_TRUE(image.CreateBitmap(16, 16, 1, 32, NULL));
    EXPECT_EQ(0, images.Add(&image, RGB(0, 255, 0)));
    EXPECT_EQ(1, images.Add(&image, static_cast<CBitmap*>(NULL))); // no mask

    EXPECT_TRUE(images.DeleteImageList());
    EXPECT_FALSE(images.DeleteImageList());
    EXPECT_FALSE(images.Create(static_cast<UINT>(4711), 16, 1, CLR_NONE)); // no such bitmap

    // A temporary object leaves its image list alone.
    HIMAGELIST hRaw = ImageList_Create(8, 8, ILC_COLOR, 1, 1);
    CImageList* pTemp = CImageList::FromHandle(hRaw);
    ASSERT_NE(nullptr, pTemp);
    EXPECT_EQ(hRaw, pTemp->m_hImageList);
    EXPECT_EQ(nullptr, CImageList::FromHandlePermanent(hRaw));
    AfxDeleteTempMaps();
    int cx = 0;
    int cy = 0;
    EXPECT_TRUE(ImageList_GetIconSize(hRaw, &cx, &cy));
    ImageList_Destroy(hRaw);
    EXPECT_EQ(nullptr, CImageList::FromHandle(NULL));
}

TEST_F(CControlTest, ProgressRangesAreReadWhole)
{
    CProgressCtrl bar;
    ASSERT_TRUE(bar.Create(WS_VISIBLE, CRect(0, 0, 200, 20), &m_parent, 1));
    int nLower = -1;
    int nUpper = -1;
    bar.GetRange(nLower, nUpper);
    EXPECT_EQ(0, nLower);
    EXPECT_EQ(100, nUpper);
    bar.SetRange32(-5, 100000);
    bar.GetRange(nLower, nUpper);
    EXPECT_EQ(-5, nLower);
    EXPECT_EQ(100000, nUpper);
}

TEST_F(CControlTest, ToolTipsForWindowsAndRectangles)
{
    CWnd child;
    ASSERT_TRUE(child.CreateEx(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 10, 10, 50, 20, m_parent.m_hWnd,
                               reinterpret_cast<HMENU>(5)));
    CToolTipCtrl tip;
    ASSERT_TRUE(tip.Create(&m_parent, TTS_ALWAYSTIP));
    EXPECT_EQ(m_parent.m_hWnd, ::GetWindow(tip.m_hWnd, GW_OWNER));

    EXPECT_TRUE(tip.AddTool(&child, "Child tip"));
    tip.UpdateTipText("Changed", &child);
    CString strText;
    tip.GetText(strText, &child);
    EXPECT_STREQ("Changed", strText);
    // A window tool is named by the window's parent and the window's handle.
    TTTOOLINFOA ti = {};
    ti.cbSize = TTTOOLINFOA_V2_SIZE;
    ti.hwnd = m_parent.m_hWnd;
    ti.uId = reinterpret_cast<UINT_PTR>(child.m_hWnd);
    ASSERT_TRUE(tip.SendMessage(TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&ti)));
    EXPECT_NE(0u, ti.uFlags & TTF_IDISHWND);

    // A rectangle tool is named by its window and its id; texts past the ANSI message's 80
    // characters come back whole.
    CRect area(0, 0, 40, 40);
    CString strLong('t', 600);
    EXPECT_TRUE(tip.AddTool(&m_parent, strLong, &area, 8));
    tip.GetText(strText, &m_parent, 8);
    EXPECT_EQ(strLong, strText);

    tip.DelTool(&child);
    EXPECT_EQ(1, tip.GetToolCount());
    tip.GetText(strText, &child);
    EXPECT_STREQ("", strText);
    EXPECT_FALSE(tip.AddTool(NULL, "nowhere"));
    EXPECT_FALSE(tip.AddTool(&child, static_cast<LPCTSTR>(NULL)));
}
