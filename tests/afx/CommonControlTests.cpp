#include <afxwin.h>
#include <afxcmn.h>
#include <gtest/gtest.h>

#include <stdio.h>

#include <set>
#include <vector>

namespace
{
const COLORREF WHITE = RGB(255, 255, 255);
const COLORREF RED = RGB(255, 0, 0);
const COLORREF GREEN = RGB(0, 255, 0);
const COLORREF BLUE = RGB(0, 0, 255);
const UINT IDC_LIST = 100;

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

void PumpMessages()
{
    MSG msg;
    while (::PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        ::DispatchMessageA(&msg);
}

class CControlTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 400, 300, NULL, NULL));
    }
    void TearDown() override { AfxDeleteTempMaps(); }

    BOOL CreateReport(CListCtrl& list, DWORD dwStyle = 0)
    {
        if (!list.Create(WS_VISIBLE | LVS_REPORT | dwStyle, CRect(0, 0, 300, 200), &m_parent, IDC_LIST))
            return FALSE;
        list.InsertColumn(0, "Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, "Size", LVCFMT_RIGHT, 60);
        list.InsertColumn(2, "Type", LVCFMT_LEFT, 80);
        return TRUE;
    }
    void AddItems(CListCtrl& list, int nCount)
    {
        for (int i = 0; i < nCount; ++i)
        {
            CString strName;
            strName.Format("item %d", i);
            list.InsertItem(i, strName);
        }
    }

    CWnd m_parent;
};

// A 16 x 16 red square with a green centre.
void PaintImage(CBitmap& bitmap)
{
    CClientDC screen(NULL);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    bitmap.CreateCompatibleBitmap(&screen, 16, 16);
    CBitmap* pOld = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, 16, 16, RED);
    dc.FillSolidRect(4, 4, 8, 8, GREEN);
    dc.SelectObject(pOld); // an image list can take only a bitmap that no DC holds
}
} // namespace

TEST_F(CControlTest, ColumnsOfAReportView)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 200), &m_parent, IDC_LIST));
    EXPECT_EQ(0, list.InsertColumn(0, "Name", LVCFMT_LEFT, 100));
    EXPECT_EQ(1, list.InsertColumn(1, "Size", LVCFMT_RIGHT, 60));
    EXPECT_EQ(2, list.InsertColumn(7, "Type")); // appended
    EXPECT_TRUE(list.SetColumnWidth(2, 80));
    EXPECT_EQ(100, list.GetColumnWidth(0));
    EXPECT_EQ(80, list.GetColumnWidth(2));

    char szText[32] = "";
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
    column.pszText = szText;
    column.cchTextMax = sizeof(szText);
    ASSERT_TRUE(list.GetColumn(1, &column));
    EXPECT_STREQ("Size", szText);
    EXPECT_EQ(LVCFMT_RIGHT, column.fmt & LVCFMT_JUSTIFYMASK);
    EXPECT_EQ(60, column.cx);
    LVCOLUMN rename = {};
    rename.mask = LVCF_TEXT;
    rename.pszText = const_cast<LPSTR>("Bytes");
    EXPECT_TRUE(list.SetColumn(1, &rename));
    list.GetColumn(1, &column);
    EXPECT_STREQ("Bytes", szText);

    CHeaderCtrl* pHeader = list.GetHeaderCtrl();
    ASSERT_NE(nullptr, pHeader);
    EXPECT_EQ(3, pHeader->GetItemCount());
    CRect rect;
    ASSERT_TRUE(pHeader->GetItemRect(1, &rect));
    EXPECT_EQ(100, rect.left);
    EXPECT_EQ(60, rect.Width());

    EXPECT_TRUE(list.DeleteColumn(1));
    EXPECT_FALSE(list.DeleteColumn(7));
    EXPECT_EQ(2, pHeader->GetItemCount());
    EXPECT_EQ(80, list.GetColumnWidth(1));
}

TEST_F(CControlTest, HeaderCtrlWrapsTheListsHeader)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    CHeaderCtrl* pHeader = list.GetHeaderCtrl();
    ASSERT_NE(nullptr, pHeader);
    EXPECT_EQ(pHeader, list.GetHeaderCtrl());
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(pHeader->m_hWnd)); // wrapped, not attached

    char szText[32] = "";
    HDITEM item = {};
    item.mask = HDI_TEXT;
    item.pszText = szText;
    item.cchTextMax = sizeof(szText);
    ASSERT_TRUE(pHeader->GetItem(0, &item));
    EXPECT_STREQ("Name", szText);
    HDITEM first = {};
    first.mask = HDI_TEXT;
    first.pszText = const_cast<LPSTR>("First");
    EXPECT_TRUE(pHeader->SetItem(0, &first));
    EXPECT_STREQ("First", list.GetHeaderCtrl()->GetItem(0, &item) ? szText : "");

    CRect area(0, 0, 300, 200);
    WINDOWPOS pos = {};
    HDLAYOUT layout = {&area, &pos};
    EXPECT_TRUE(pHeader->Layout(&layout));
    EXPECT_GT(pos.cy, 0);
    EXPECT_EQ(pos.cy, area.top); // the rest is left below the header

    // A header that the caller subclassed is handed out as the caller's object.
    CHeaderCtrl own;
    ASSERT_TRUE(own.SubclassWindow(pHeader->m_hWnd));
    EXPECT_EQ(&own, list.GetHeaderCtrl());
    own.UnsubclassWindow();

    CHeaderCtrl header;
    ASSERT_TRUE(header.Create(WS_CHILD | HDS_HORZ, CRect(0, 0, 200, 20), &m_parent, 200));
    HDITEM added = {};
    added.mask = HDI_TEXT | HDI_WIDTH;
    added.pszText = const_cast<LPSTR>("Only");
    added.cxy = 50;
    EXPECT_EQ(0, header.InsertItem(0, &added));
    EXPECT_EQ(1, header.GetItemCount());
    EXPECT_TRUE(header.DeleteItem(0));
    EXPECT_EQ(0, header.GetItemCount());
}

TEST_F(CControlTest, ItemsAndTheirTexts)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    EXPECT_EQ(0, list.InsertItem(0, "alpha"));
    EXPECT_EQ(1, list.InsertItem(1, "beta", 2));
    EXPECT_EQ(0, list.InsertItem(0, "first")); // before the others
    EXPECT_EQ(3, list.GetItemCount());
    EXPECT_TRUE(list.SetItemText(1, 1, "12 KB"));

    struct
    {
        int nItem;
        int nSubItem;
        const char* pszText;
    } texts[] = {{0, 0, "first"}, {1, 0, "alpha"}, {1, 1, "12 KB"}, {1, 2, ""}, {9, 0, ""}, {-1, 0, ""}};
    for (const auto& t : texts)
    {
        SCOPED_TRACE(testing::Message() << t.nItem << "/" << t.nSubItem);
        EXPECT_STREQ(t.pszText, list.GetItemText(t.nItem, t.nSubItem));
    }
    char szShort[4];
    EXPECT_EQ(3, list.GetItemText(1, 0, szShort, sizeof(szShort)));
    EXPECT_STREQ("alp", szShort);
    EXPECT_EQ(0, list.GetItemText(1, 0, NULL, 4));
    EXPECT_EQ(0, list.GetItemText(1, 0, szShort, 0));

    CString strLong('x', 700); // longer than the first buffer the CString form tries
    EXPECT_TRUE(list.SetItemText(2, 2, strLong));
    EXPECT_EQ(strLong, list.GetItemText(2, 2));

    EXPECT_TRUE(list.SetItemData(0, 0xBEEF));
    EXPECT_EQ(static_cast<DWORD_PTR>(0xBEEF), list.GetItemData(0));
    EXPECT_EQ(static_cast<DWORD_PTR>(0), list.GetItemData(99));
    EXPECT_TRUE(list.SetItem(2, 0, LVIF_IMAGE, NULL, 5, 0, 0, 0));
    LVITEM item = {};
    item.mask = LVIF_IMAGE;
    item.iItem = 2;
    ASSERT_TRUE(list.GetItem(&item));
    EXPECT_EQ(5, item.iImage);

    EXPECT_TRUE(list.DeleteItem(0));
    EXPECT_STREQ("alpha", list.GetItemText(0, 0));
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(0, list.GetItemCount());
}

TEST_F(CControlTest, SelectedItemsAreWalkedByPosition)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    AddItems(list, 5);
    EXPECT_EQ(nullptr, list.GetFirstSelectedItemPosition());
    EXPECT_TRUE(list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_TRUE(list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(2u, list.GetSelectedCount());
    EXPECT_EQ(static_cast<UINT>(LVIS_SELECTED), list.GetItemState(3, LVIS_SELECTED));
    EXPECT_EQ(0u, list.GetItemState(2, LVIS_SELECTED));
    EXPECT_EQ(3, list.GetNextItem(1, LVNI_SELECTED));

    std::vector<int> selected;
    for (POSITION pos = list.GetFirstSelectedItemPosition(); pos != NULL;)
        selected.push_back(list.GetNextSelectedItem(pos));
    EXPECT_EQ(std::vector<int>({1, 3}), selected);
    POSITION end = NULL;
    EXPECT_EQ(-1, list.GetNextSelectedItem(end));

    EXPECT_TRUE(list.SetItemState(-1, 0, LVIS_SELECTED)); // every item
    EXPECT_EQ(0u, list.GetSelectedCount());
}

TEST_F(CControlTest, SubItemRectanglesAndHitTesting)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list)); // columns of 100, 60 and 80 pixels
    AddItems(list, 3);
    CRect row;
    ASSERT_TRUE(list.GetItemRect(1, &row, LVIR_BOUNDS));
    EXPECT_EQ(240, row.Width());
    CRect next;
    ASSERT_TRUE(list.GetItemRect(2, &next, LVIR_BOUNDS));
    EXPECT_EQ(row.bottom, next.top);
    EXPECT_FALSE(list.GetItemRect(9, &next, LVIR_BOUNDS));
    EXPECT_FALSE(list.GetItemRect(0, NULL, LVIR_BOUNDS));

    CRect sub;
    ASSERT_TRUE(list.GetSubItemRect(1, 2, LVIR_BOUNDS, sub));
    EXPECT_EQ(CRect(row.left + 160, row.top, row.left + 240, row.bottom), sub);
    ASSERT_TRUE(list.GetSubItemRect(1, 0, LVIR_BOUNDS, sub)); // sub-item 0: the whole item
    EXPECT_EQ(row, sub);

    // HitTest finds an item by its first column only, unless whole rows are selected;
    // SubItemHitTest finds every cell.
    struct
    {
        CPoint pt;
        int nItem;     // HitTest
        int nFullRow;  // HitTest with LVS_EX_FULLROWSELECT
        int nCellItem; // SubItemHitTest
        int nSubItem;
    } hits[] = {
        {CPoint(50, row.CenterPoint().y), 1, 1, 1, 0},
        {CPoint(130, row.CenterPoint().y), -1, 1, 1, 1},
        {CPoint(200, next.CenterPoint().y), -1, 2, 2, 2},
        {CPoint(50, next.bottom + 2 * next.Height()), -1, -1, -1, 0},
    };
    for (const auto& h : hits)
    {
        SCOPED_TRACE(testing::Message() << "(" << h.pt.x << ", " << h.pt.y << ")");
        UINT nFlags = 0;
        EXPECT_EQ(h.nItem, list.HitTest(h.pt, &nFlags));
        EXPECT_EQ(h.nItem >= 0, (nFlags & LVHT_ONITEM) != 0);
        LVHITTESTINFO info = {};
        info.pt = h.pt;
        EXPECT_EQ(h.nCellItem, list.SubItemHitTest(&info));
        if (h.nCellItem >= 0)
        {
            EXPECT_EQ(h.nSubItem, info.iSubItem);
        }
        list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
        EXPECT_EQ(h.nFullRow, list.HitTest(h.pt));
        list.SetExtendedStyle(0);
    }
    LVHITTESTINFO info = {};
    info.pt = CPoint(50, row.CenterPoint().y);
    EXPECT_EQ(1, list.HitTest(&info));
    EXPECT_EQ(1, list.HitTest(CPoint(50, row.CenterPoint().y))); // flags not wanted
}

TEST_F(CControlTest, ScrollingMovesTheTopIndex)
{
    CListCtrl list;
    ASSERT_TRUE(CreateReport(list));
    AddItems(list, 50);
    int nPage = list.GetCountPerPage();
    ASSERT_GT(nPage, 0);
    ASSERT_LT(nPage, 50);
    EXPECT_EQ(0, list.GetTopIndex());

    EXPECT_TRUE(list.EnsureVisible(40, FALSE));
    int nTop = list.GetTopIndex();
    EXPECT_LE(nTop, 40);
    EXPECT_GT(nTop + nPage, 40);

    CRect row;
    list.GetItemRect(0, &row, LVIR_BOUNDS);
    EXPECT_TRUE(list.Scroll(CSize(0, -100 * row.Height())));
    EXPECT_EQ(0, list.GetTopIndex());
    EXPECT_TRUE(list.Scroll(CSize(0, 3 * row.Height())));
    EXPECT_EQ(3, list.GetTopIndex());
}

TEST_F(CControlTest, OwnerDataItemsComeFromTheControl)
{
    COwnerDataList list;
    ASSERT_TRUE(CreateReport(list, LVS_OWNERDATA));
    list.SetItemCountEx(1000);
    EXPECT_EQ(1000, list.GetItemCount());
    EXPECT_STREQ("Row 500/1", list.GetItemText(500, 1));
    EXPECT_STREQ("Row 999/0", list.GetItemText(999, 0));
    list.SetItemCount(20);
    EXPECT_EQ(20, list.GetItemCount());
}

TEST_F(CControlTest, OwnerDrawnItemsAreDrawnByTheControl)
{
    COwnerDrawList list;
    ASSERT_TRUE(CreateReport(list, LVS_OWNERDRAWFIXED));
    AddItems(list, 3);
    m_parent.ShowWindow(SW_SHOWNOACTIVATE);
    list.RedrawWindow();
    PumpMessages();
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
        EXPECT_EQ(nullptr, list.GetImageList(LVSIL_NORMAL));
    }
    // The list was destroyed without LVS_SHAREIMAGELISTS; the image list is still ours.
    int cx = 0;
    int cy = 0;
    EXPECT_TRUE(ImageList_GetIconSize(images.m_hImageList, &cx, &cy));
    EXPECT_EQ(16, cx);
}

TEST(CImageListTest, ImagesAreAddedReplacedAndRemoved)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 0, 4));
    EXPECT_FALSE(images.Create(8, 8, ILC_COLOR24, 0, 1)); // already holds one
    EXPECT_EQ(&images, CImageList::FromHandle(images.m_hImageList));
    EXPECT_EQ(&images, CImageList::FromHandlePermanent(images.m_hImageList));

    CBitmap image;
    PaintImage(image);
    EXPECT_EQ(0, images.Add(&image, GREEN));
    CBitmap second;
    PaintImage(second);
    EXPECT_EQ(1, images.Add(&second, static_cast<CBitmap*>(NULL)));
    EXPECT_EQ(2, images.GetImageCount());
    IMAGEINFO info;
    ASSERT_TRUE(images.GetImageInfo(1, &info));
    EXPECT_EQ(16, CRect(info.rcImage).Width());
    EXPECT_FALSE(images.GetImageInfo(5, &info));

    HICON hIcon = ::LoadIconA(NULL, IDI_APPLICATION);
    EXPECT_EQ(2, images.Add(hIcon));
    EXPECT_EQ(0, images.Replace(0, hIcon));
    EXPECT_TRUE(images.Replace(1, &image, static_cast<CBitmap*>(NULL)));
    EXPECT_EQ(3, images.GetImageCount());
    EXPECT_TRUE(images.Remove(0));
    EXPECT_EQ(2, images.GetImageCount());
    EXPECT_TRUE(images.Remove(-1)); // all of them
    EXPECT_EQ(0, images.GetImageCount());

    EXPECT_EQ(CLR_NONE, images.SetBkColor(BLUE));
    EXPECT_EQ(BLUE, images.GetBkColor());
    EXPECT_TRUE(images.DeleteImageList());
    EXPECT_FALSE(images.DeleteImageList());
    EXPECT_EQ(nullptr, images.GetSafeHandle());
    EXPECT_FALSE(images.Create(static_cast<UINT>(4711), 16, 1, CLR_NONE)); // no such bitmap
}

TEST(CImageListTest, MaskedImagesDrawTransparently)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 1));
    CBitmap image;
    PaintImage(image);
    ASSERT_EQ(0, images.Add(&image, GREEN));

    CClientDC screen(NULL);
    CDC dc;
    CBitmap canvas;
    ASSERT_TRUE(dc.CreateCompatibleDC(&screen));
    ASSERT_TRUE(canvas.CreateCompatibleBitmap(&screen, 24, 24));
    CBitmap* pOld = dc.SelectObject(&canvas);
    dc.FillSolidRect(0, 0, 24, 24, WHITE);
    EXPECT_TRUE(images.Draw(&dc, 0, CPoint(2, 2), ILD_TRANSPARENT));
    EXPECT_EQ(RED, dc.GetPixel(3, 3));
    EXPECT_EQ(WHITE, dc.GetPixel(10, 10)); // the green centre was the mask colour
    EXPECT_EQ(WHITE, dc.GetPixel(20, 20));
    dc.SelectObject(pOld);
    AfxDeleteTempMaps();
}

TEST(CImageListTest, TemporaryObjectsLeaveTheirImageListsAlone)
{
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

TEST_F(CControlTest, ProgressPositionsStayInTheRange)
{
    CProgressCtrl bar;
    ASSERT_TRUE(bar.Create(WS_VISIBLE, CRect(0, 0, 200, 20), &m_parent, 1));
    int nLower = -1;
    int nUpper = -1;
    bar.GetRange(nLower, nUpper);
    EXPECT_EQ(0, nLower);
    EXPECT_EQ(100, nUpper);

    EXPECT_EQ(0, bar.SetPos(40));
    EXPECT_EQ(40, bar.OffsetPos(25));
    EXPECT_EQ(65, bar.GetPos());
    EXPECT_EQ(65, bar.SetPos(500));
    EXPECT_EQ(100, bar.GetPos()); // kept in the range

    bar.SetRange(10, 20);
    bar.GetRange(nLower, nUpper);
    EXPECT_EQ(10, nLower);
    EXPECT_EQ(20, nUpper);
    bar.SetPos(10);
    EXPECT_EQ(10, bar.SetStep(4));
    EXPECT_EQ(10, bar.StepIt());
    EXPECT_EQ(14, bar.StepIt());
    EXPECT_EQ(18, bar.StepIt()); // past 20: starts again from the bottom
    EXPECT_GE(bar.GetPos(), 10);
    EXPECT_LT(bar.GetPos(), 18);

    bar.SetRange32(-5, 100000);
    bar.GetRange(nLower, nUpper);
    EXPECT_EQ(-5, nLower);
    EXPECT_EQ(100000, nUpper);
    bar.SetPos(70000);
    EXPECT_EQ(70000, bar.GetPos());

    EXPECT_EQ(CLR_DEFAULT, bar.SetBarColor(RED));
    EXPECT_EQ(RED, bar.SetBarColor(BLUE));
    EXPECT_EQ(CLR_DEFAULT, bar.SetBkColor(GREEN));
    EXPECT_EQ(GREEN, bar.SetBkColor(WHITE));
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
    EXPECT_EQ(1, tip.GetToolCount());
    CString strText;
    tip.GetText(strText, &child);
    EXPECT_STREQ("Child tip", strText);
    tip.UpdateTipText("Changed", &child);
    tip.GetText(strText, &child);
    EXPECT_STREQ("Changed", strText);
    // A window tool is named by the window's parent and the window's handle.
    TTTOOLINFOA ti = {};
    ti.cbSize = TTTOOLINFOA_V2_SIZE;
    ti.hwnd = m_parent.m_hWnd;
    ti.uId = reinterpret_cast<UINT_PTR>(child.m_hWnd);
    ASSERT_TRUE(tip.SendMessage(TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&ti)));
    EXPECT_NE(0u, ti.uFlags & TTF_IDISHWND);

    CRect area(0, 0, 40, 40);
    EXPECT_TRUE(tip.AddTool(&m_parent, "Area tip", &area, 7));
    EXPECT_EQ(2, tip.GetToolCount());
    tip.GetText(strText, &m_parent, 7);
    EXPECT_STREQ("Area tip", strText);
    CRect moved(50, 50, 60, 60);
    tip.SetToolRect(&m_parent, 7, &moved);
    ti.uId = 7;
    ASSERT_TRUE(tip.SendMessage(TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&ti)));
    EXPECT_EQ(moved, CRect(ti.rect));

    CString strLong('t', 600);
    EXPECT_TRUE(tip.AddTool(&m_parent, strLong, &area, 8));
    tip.GetText(strText, &m_parent, 8);
    EXPECT_EQ(strLong, strText);

    tip.DelTool(&child);
    EXPECT_EQ(2, tip.GetToolCount());
    tip.GetText(strText, &child);
    EXPECT_STREQ("", strText);
    EXPECT_FALSE(tip.AddTool(NULL, "nowhere"));
    EXPECT_FALSE(tip.AddTool(&child, static_cast<LPCTSTR>(NULL)));

    EXPECT_EQ(-1, tip.SetMaxTipWidth(200));
    EXPECT_EQ(200, tip.SetMaxTipWidth(300));
    tip.SetDelayTime(TTDT_INITIAL, 123);
    EXPECT_EQ(123, tip.GetDelayTime(TTDT_INITIAL));
    tip.SetDelayTime(500); // the others follow from it
    EXPECT_EQ(500, tip.GetDelayTime(TTDT_INITIAL));
    EXPECT_EQ(5000, tip.GetDelayTime(TTDT_AUTOPOP));
    EXPECT_EQ(100, tip.GetDelayTime(TTDT_RESHOW));
}
