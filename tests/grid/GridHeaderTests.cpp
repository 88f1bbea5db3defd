// The grid header: item masks, divider zones and cursors, drags and clicks as the host hears of
// them, sort state rules, the sort arrow's pixels and the hidden scroll information.
#include "frame/KelControlsRes.h"
#include "tests/grid/GridHost.h"
#include "tests/harness/Input.h"

#include <string.h>

#include <vector>

namespace
{
const UINT HEADER_ID = 12;

class CGridHeaderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_host.Create(300, 100, true));
        m_host.SetPayloadSize(HDN_ITEMCLICKA, sizeof(NMHEADERA));
        m_host.SetPayloadSize(HDN_ITEMDBLCLICKA, sizeof(NMHEADERA));
        m_host.SetPayloadSize(HDN_BEGINTRACKA, sizeof(NMHEADERA));
        m_host.SetPayloadSize(HDN_ENDTRACKA, sizeof(NMHEADERA));
    }

    // A header across the top of the host with items of the given widths, 20 pixels high.
    void CreateHeader(const std::vector<int>& widths, DWORD dwStyle = CGridHeader::GHS_HORZ)
    {
        ASSERT_TRUE(m_header.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 20), CWnd::FromHandle(m_host),
                                    HEADER_ID, dwStyle));
        for (int nWidth : widths)
        {
            HD_ITEM item = {};
            item.mask = HDI_WIDTH;
            item.cxy = nWidth;
            const int nItem = m_header.InsertItem(m_header.GetItemCount(), &item);
            ASSERT_EQ(m_header.GetItemCount() - 1, nItem);
            item.mask = CGridHeader::GHDI_CROSSEXTENT;
            item.cxy = 20;
            m_header.SetItem(nItem, &item);
        }
    }

    static HCURSOR LibraryCursor(UINT nID)
    {
        return ::LoadCursorA(CKelControlsModule::GetInstanceHandle(), MAKEINTRESOURCEA(nID));
    }

    int Extent(int nItem)
    {
        HD_ITEM item = {};
        item.mask = HDI_WIDTH;
        m_header.GetItem(nItem, &item);
        return item.cxy;
    }

    CNotifyRecorder m_host;
    CGridHeader m_header;
};
} // namespace

TEST_F(CGridHeaderTest, StylesAndItemMasks)
{
    for (DWORD dwBad : {0UL, 3UL, 0x9UL})
        EXPECT_FALSE(CGridHeader().Create(WS_CHILD, CRect(0, 0, 10, 10), CWnd::FromHandle(m_host), 1, dwBad)) << dwBad;
    CreateHeader({});
    EXPECT_FALSE(m_header.GridModifyStyle(0, CGridHeader::GHS_VERT));
    EXPECT_TRUE(m_header.GridModifyStyle(0, CGridHeader::GHS_NOMOUSETRACK));
    EXPECT_EQ(DWORD(CGridHeader::GHS_HORZ | CGridHeader::GHS_NOMOUSETRACK), m_header.GetGetStyle());

    // No items: the filler is the whole strip.
    CRect rc;
    EXPECT_EQ(0, m_header.HitTest(CPoint(5, 5)));
    EXPECT_TRUE(m_header.GetItemRect(0, &rc, true));
    EXPECT_EQ(CRect(0, 0, 300, 20), rc);
    EXPECT_FALSE(m_header.GetItemRect(0, &rc, false));

    HD_ITEM item = {};
    item.mask = HDI_TEXT;
    item.pszText = const_cast<char*>("Channel");
    item.cchTextMax = 5;
    ASSERT_EQ(0, m_header.InsertItem(0, &item));

    struct Case
    {
        UINT mask;
        int fmt;
        int cxy;
        UINT getMask;
        int expectedFmt;
        int expectedCxy;
    };
    // Set with the first mask, read back with the second.
    const Case cases[] = {
        {HDI_FORMAT, HDF_CENTER, 0, CGridHeader::GHDI_ALIGNMENT, HDF_CENTER, 0},
        {HDI_FORMAT, HDF_RIGHT | HDF_BITMAP, 0, HDI_FORMAT, HDF_RIGHT | HDF_BITMAP, 0},
        {HDI_FORMAT, 3, 0, HDI_FORMAT, -1, 0},
        {HDI_FORMAT, 3, 0, CGridHeader::GHDI_ALIGNMENT, -1, 0},
        {HDI_FORMAT, HDF_LEFT, 0, HDI_FORMAT, HDF_LEFT, 0},
        {CGridHeader::GHDI_ALIGNMENT, HDF_RIGHT, 0, HDI_FORMAT, HDF_LEFT, 0}, // keeps the format
        {CGridHeader::GHDI_ALIGNMENT, HDF_RIGHT, 0, CGridHeader::GHDI_ALIGNMENT, HDF_RIGHT, 0},
        {HDI_WIDTH, 0, 40, HDI_WIDTH, 0, 40},
        {HDI_WIDTH, 0, -1, HDI_WIDTH, 0, 40}, // ignored
        {CGridHeader::GHDI_CROSSEXTENT, 0, 17, CGridHeader::GHDI_CROSSEXTENT, 0, 17},
        {CGridHeader::GHDI_CROSSEXTENT, 0, 17, HDI_WIDTH, 0, 40},
        {HDI_WIDTH | CGridHeader::GHDI_CROSSEXTENT, 0, 25, HDI_WIDTH, 0, 25},
        {HDI_WIDTH | CGridHeader::GHDI_CROSSEXTENT, 0, 25, CGridHeader::GHDI_CROSSEXTENT, 0, 25},
        {HDI_WIDTH, 0, 30, HDI_WIDTH | CGridHeader::GHDI_CROSSEXTENT, 0, 25}, // the cross extent is read last
    };
    for (const Case& c : cases)
    {
        HD_ITEM set = {};
        set.mask = c.mask;
        set.fmt = c.fmt;
        set.cxy = c.cxy;
        EXPECT_EQ(c.cxy >= 0 || c.mask != HDI_WIDTH, m_header.SetItem(0, &set) != FALSE);
        HD_ITEM get = {};
        get.mask = c.getMask;
        EXPECT_TRUE(m_header.GetItem(0, &get));
        EXPECT_EQ(c.expectedFmt, c.getMask & (HDI_FORMAT | CGridHeader::GHDI_ALIGNMENT) ? get.fmt : 0)
            << c.mask << " then " << c.getMask;
        EXPECT_EQ(c.expectedCxy, c.getMask & (HDI_WIDTH | CGridHeader::GHDI_CROSSEXTENT) ? get.cxy : 0)
            << c.mask << " then " << c.getMask;
    }

    // The text: at most cchTextMax-1 characters kept in a buffer of cchTextMax bytes; read back
    // only into a larger buffer, the size + 1 reported either way.
    char szText[16];
    memset(szText, 'x', sizeof(szText));
    HD_ITEM get = {};
    get.mask = HDI_TEXT;
    get.pszText = szText;
    get.cchTextMax = 5;
    EXPECT_TRUE(m_header.GetItem(0, &get));
    EXPECT_EQ(6, get.cchTextMax);
    EXPECT_EQ('x', szText[0]);
    get.cchTextMax = 6;
    EXPECT_TRUE(m_header.GetItem(0, &get));
    EXPECT_STREQ("Chan", szText);

    // A vertical header swaps the extents; bad indexes and null records fail.
    CGridHeader vert;
    ASSERT_TRUE(vert.Create(WS_CHILD, CRect(0, 0, 50, 200), CWnd::FromHandle(m_host), 2, CGridHeader::GHS_VERT));
    HD_ITEM both = {};
    both.mask = HDI_WIDTH;
    both.cxy = 18;
    ASSERT_EQ(0, vert.InsertItem(5, &both));
    both.mask = CGridHeader::GHDI_CROSSEXTENT;
    both.cxy = 44;
    EXPECT_TRUE(vert.SetItem(0, &both));
    EXPECT_TRUE(vert.GetItemRect(0, &rc));
    EXPECT_EQ(CRect(0, 0, 44, 18), rc);
    EXPECT_FALSE(vert.SetItem(1, &both));
    EXPECT_FALSE(vert.GetItem(-1, &both));
    EXPECT_EQ(-1, vert.InsertItem(-1, &both));
    EXPECT_EQ(-1, vert.InsertItem(0, NULL));
    EXPECT_EQ(1, vert.GetItemCount());
}

// Items of widths 5, 0, 5, 4 and 30: an item of more than 4 pixels has 2-pixel zones at its
// ends (item 0 only at its trailing end), the hidden item is reached from its right neighbour's
// leading zone, and the filler has a leading zone.
TEST_F(CGridHeaderTest, DividerZonesAndCursors)
{
    CreateHeader({5, 0, 5, 4, 30});
    m_host.SetReply(HDN_BEGINTRACKA, 1); // vetoed: each press only asks
    EXPECT_EQ(CKelControlsModule::GetInstanceHandle(),
              AfxFindResourceHandle(MAKEINTRESOURCEA(IDC_GRIDHDR_REVEALHORZ), RT_GROUP_CURSOR));
    const HCURSOR hArrow = ::LoadCursorA(NULL, IDC_ARROW);
    struct Case
    {
        int x;
        int nItem; // to be resized, -1 none
        UINT nCursor;
    };
    const Case cases[] = {
        {2, -1, 0}, {3, 0, IDC_GRIDHDR_SIZEHORZ}, {4, 0, IDC_GRIDHDR_SIZEHORZ},
        {5, 1, IDC_GRIDHDR_REVEALHORZ}, {6, 1, IDC_GRIDHDR_REVEALHORZ}, {7, -1, 0},
        {8, 2, IDC_GRIDHDR_SIZEHORZ}, {9, 2, IDC_GRIDHDR_SIZEHORZ}, {10, -1, 0}, {13, -1, 0},
        {14, 3, IDC_GRIDHDR_SIZEHORZ}, {15, 3, IDC_GRIDHDR_SIZEHORZ}, {16, -1, 0},
        {42, 4, IDC_GRIDHDR_SIZEHORZ}, {45, 4, IDC_GRIDHDR_SIZEHORZ}, {46, -1, 0},
    };
    for (const Case& c : cases)
    {
        ::SetCursor(hArrow);
        ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(c.x, 10));
        EXPECT_EQ(c.nCursor != 0 ? LibraryCursor(c.nCursor) : hArrow, ::GetCursor()) << c.x;
        ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(c.x, 10));
        m_host.Clear();
        CInput::Click(m_header, c.x, 10);
        const NMHEADERA* pBegin = m_host.GetLast<NMHEADERA>(HDN_BEGINTRACKA);
        EXPECT_EQ(c.nItem, pBegin != NULL ? pBegin->iItem : -1) << c.x;
    }
    // A cursor shown over a divider stands until the mouse leaves the zones.
    ::SetCursor(hArrow);
    ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(3, 10));
    ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(5, 10));
    ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(20, 10));
    EXPECT_EQ(hArrow, ::GetCursor());

    m_header.GridModifyStyle(0, CGridHeader::GHS_NOMOUSETRACK);
    ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(3, 10));
    EXPECT_EQ(hArrow, ::GetCursor());
}

TEST_F(CGridHeaderTest, DividerDragWithVetoes)
{
    CreateHeader({50, 50, 50});
    std::vector<int> tracked;
    m_host.SetHandler(HDN_TRACKA, [&](NMHDR* pHdr) -> LRESULT {
        const NMHEADERA* pNM = reinterpret_cast<NMHEADERA*>(pHdr);
        EXPECT_EQ(UINT(HDI_WIDTH), pNM->pitem->mask);
        tracked.push_back(pNM->pitem->cxy);
        return pNM->pitem->cxy > 60; // the host allows up to 60 pixels
    });
    CMessageSequence seq;
    seq.Watch(m_host, "host");
    // The divider between items 0 and 1, dragged right by 10 and then by 20.
    CInput::Drag(m_header, CPoint(49, 10), CPoint(69, 10), 2);
    EXPECT_TRUE(seq.Check({
        {"host", WM_NOTIFY, SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, HEADER_ID, HDN_BEGINTRACKA},
        {"host", WM_NOTIFY, SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, HEADER_ID, HDN_TRACKA},
        {"host", WM_NOTIFY, SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, HEADER_ID, HDN_TRACKA},
        {"host", WM_NOTIFY, SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, HEADER_ID, HDN_ENDTRACKA},
    }));
    EXPECT_EQ((std::vector<int>{60, 70}), tracked);
    EXPECT_EQ(60, Extent(0)); // the vetoed step was undone
    const NMHEADERA* pEnd = m_host.GetLast<NMHEADERA>(HDN_ENDTRACKA);
    ASSERT_TRUE(pEnd != NULL);
    EXPECT_EQ(m_header.GetSafeHwnd(), pEnd->hdr.hwndFrom);
    EXPECT_EQ(0, pEnd->iItem);
    EXPECT_EQ(0, pEnd->iButton);
    EXPECT_TRUE(pEnd->pitem == NULL);
    EXPECT_EQ(0, m_host.GetCount(HDN_ITEMCLICKA)); // a drag is no click
    EXPECT_TRUE(::GetCapture() == NULL);
    CRect rc;
    m_header.GetItemRect(2, &rc);
    EXPECT_EQ(110, rc.left);

    // Vetoed at the start: nothing tracks, nothing is captured.
    m_host.SetReply(HDN_BEGINTRACKA, 1);
    tracked.clear();
    CInput::Drag(m_header, CPoint(108, 10), CPoint(130, 10), 2);
    EXPECT_TRUE(seq.Check({{"host", WM_NOTIFY, SEQ_SENT | SEQ_LPARAM, 0, HDN_BEGINTRACKA}}));
    EXPECT_TRUE(tracked.empty());
    EXPECT_EQ(50, Extent(1));
}

TEST_F(CGridHeaderTest, ClicksOfThreeButtons)
{
    CreateHeader({50, 50});
    const UINT downs[] = {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};
    const UINT ups[] = {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP};
    const UINT dblclks[] = {WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK};
    for (int nButton = 0; nButton < 3; ++nButton)
    {
        m_host.Clear();
        // Released over another item: no click. Released where pressed: a click.
        ::SendMessageA(m_header, downs[nButton], 0, MAKELPARAM(20, 10));
        EXPECT_EQ(nButton == 0 ? 1 : 0, m_header.GetState(0)) << nButton;
        ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(70, 10));
        EXPECT_EQ(0, m_header.GetState(0));
        ::SendMessageA(m_header, WM_MOUSEMOVE, 0, MAKELPARAM(20, 10));
        EXPECT_EQ(nButton == 0 ? 1 : 0, m_header.GetState(0)) << nButton;
        ::SendMessageA(m_header, ups[nButton], 0, MAKELPARAM(70, 10));
        EXPECT_EQ(0, m_header.GetState(0));
        EXPECT_EQ(0, m_host.GetCount(HDN_ITEMCLICKA)) << nButton;
        ::SendMessageA(m_header, downs[nButton], 0, MAKELPARAM(70, 10));
        ::SendMessageA(m_header, ups[nButton], 0, MAKELPARAM(60, 10));
        ::SendMessageA(m_header, dblclks[nButton], 0, MAKELPARAM(30, 10));
        const NMHEADERA* pClick = m_host.GetLast<NMHEADERA>(HDN_ITEMCLICKA);
        const NMHEADERA* pDouble = m_host.GetLast<NMHEADERA>(HDN_ITEMDBLCLICKA);
        ASSERT_TRUE(pClick != NULL && pDouble != NULL) << nButton;
        EXPECT_EQ(1, pClick->iItem);
        EXPECT_EQ(nButton, pClick->iButton);
        EXPECT_EQ(0, pDouble->iItem);
        EXPECT_EQ(nButton, pDouble->iButton);
        EXPECT_TRUE(::GetCapture() == NULL);
    }
}

TEST_F(CGridHeaderTest, SortStateRules)
{
    CreateHeader({40, 40, 40, 40});
    ASSERT_TRUE(m_header.SetColSortType(1, 1));
    ASSERT_TRUE(m_header.SetColSortType(2, 2));
    EXPECT_FALSE(m_header.SetColSortType(0, 3));
    EXPECT_EQ(2, m_header.GetDefaultSortType(1));
    EXPECT_EQ(-1, m_header.IsValidCurSortType(0, 3));

    // The keys read back (column, type, priority), or none, after each way of setting them.
    struct Case
    {
        std::vector<GridSortCol> keys;
        BOOL bAccepted;
        std::vector<int> expected; // triples
    };
    const Case cases[] = {
        {{GridSortCol(1, 3)}, TRUE, {1, 3, -1}},
        {{GridSortCol(0, 3)}, FALSE, {1, 3, -1}}, // not a type of text columns: nothing changes
        {{GridSortCol(2, 5), GridSortCol(0, 0), GridSortCol(1, 2)}, TRUE, {2, 5, 1, 0, 0, 2, 1, 2, 3}},
        {{GridSortCol(2, 5), GridSortCol(0, 2)}, FALSE, {2, 5, 1, 0, 0, 2, 1, 2, 3}},
        {{GridSortCol(0, 1)}, TRUE, {0, 1, -1}},
        {{}, TRUE, {}},
    };
    for (const Case& c : cases)
    {
        std::vector<GridSortCol> keys(c.keys);
        EXPECT_EQ(c.bAccepted, m_header.SetCurSortTypes(keys.data(), static_cast<int>(keys.size())));
        EXPECT_EQ(c.expected, SortKeys(m_header)) << c.keys.size() << " keys";
    }
    int cols[] = {0, 1};
    short types[] = {0, 2};
    EXPECT_FALSE(m_header.SetCurSortTypes(cols, types, 1)); // one key is not a multi-column sort
    EXPECT_FALSE(m_header.SetCurSortTypes(cols, NULL, 2));
    EXPECT_FALSE(m_header.SetCurSortTypes(cols, types, 5));

    // Deleting a key's column leaves a gap (priorities 1 and 3), or a lone priority 1: either
    // reads as no sort and is cleared.
    for (int nDeleted : {1, 0})
    {
        int threeCols[] = {0, 1, 2};
        short threeTypes[] = {1, 2, 4};
        ASSERT_TRUE(m_header.SetCurSortTypes(threeCols, threeTypes, nDeleted == 1 ? 3 : 2));
        ASSERT_TRUE(m_header.DeleteItem(nDeleted));
        EXPECT_TRUE(SortKeys(m_header).empty());
        for (int i = 0; i < m_header.GetItemCount(); ++i)
        {
            short nType = 0;
            int nPriority = 0;
            EXPECT_TRUE(m_header.GetCurSortType(i, nType, nPriority));
            EXPECT_EQ(short(0xFFFF), nType);
            EXPECT_EQ(-1, nPriority);
        }
        HD_ITEM item = {};
        item.mask = HDI_WIDTH;
        item.cxy = 40;
        m_header.InsertItem(nDeleted, &item);
        m_header.SetColSortType(1, 1);
        m_header.SetColSortType(2, 2);
    }
    EXPECT_TRUE(m_header.SetCurSortType(1, 2));
    EXPECT_TRUE(m_header.SetCurSortType(3, -1));
    short nType = 0;
    int nPriority = 0;
    m_header.GetCurSortType(1, nType, nPriority);
    EXPECT_EQ(short(0xFFFF), nType);
    EXPECT_FALSE(m_header.GetCurSortType(9, nType, nPriority));
}

// A left-aligned item without text, 100 by 20 at the origin: the arrow's box starts 10 pixels
// after the text's end (x 3), so L = 13, R = 21, T = 6, B = 13, and the middle columns are 16
// and 17. The priority number follows at L + 8.
TEST_F(CGridHeaderTest, EngravedArrowsAndPriorityNumbers)
{
    CreateHeader({100, 100});
    HD_ITEM item = {};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_LEFT;
    m_header.SetItem(0, &item);
    m_header.SetItem(1, &item);
    const COLORREF clrShadow = ::GetSysColor(COLOR_BTNSHADOW) & 0xFFFFFF;
    const COLORREF clrWhite = RGB(255, 255, 255);
    const COLORREF clrFace = ::GetSysColor(COLOR_BTNFACE) & 0xFFFFFF;
    CWindowImage image;

    ASSERT_TRUE(m_header.SetCurSortType(0, 0));
    ASSERT_TRUE(image.Capture(m_header));
    // Ascending: the shadow edge from (16, 6) down to (13, 13), the white one from (17, 6) to
    // (21, 13), and the white base along y 12.
    // One pixel a row on each slope; the base covers the slopes' last row.
    EXPECT_EQ(clrShadow, image.GetPixel(16, 6));
    EXPECT_EQ(6, image.CountPixels(clrShadow, CRect(13, 6, 17, 12)));
    EXPECT_EQ(clrWhite, image.GetPixel(17, 6));
    EXPECT_EQ(6, image.CountPixels(clrWhite, CRect(17, 6, 22, 12)));
    EXPECT_EQ(8, image.CountPixels(clrWhite, CRect(13, 12, 21, 13)));
    EXPECT_EQ(clrFace, image.GetPixel(12, 12));
    EXPECT_EQ(clrFace, image.GetPixel(16, 5));
    EXPECT_EQ(0, image.CountPixels(clrShadow, CRect(113, 5, 122, 14))); // item 1 is not sorted
    EXPECT_EQ(0, image.CountPixels(RGB(0, 0, 0), CRect(21, 2, 40, 18)));

    // Descending with priorities: a shadow top edge from (13, 6) to (20, 6), the shadow left
    // edge down to the middle, the white right edge from (20, 6); a number after each arrow.
    int cols[] = {1, 0};
    short types[] = {1, 0};
    ASSERT_TRUE(m_header.SetCurSortTypes(cols, types, 2));
    ASSERT_TRUE(image.Capture(m_header));
    EXPECT_EQ(7, image.CountPixels(clrShadow, CRect(113, 6, 120, 7)));
    EXPECT_EQ(clrWhite, image.GetPixel(120, 6));
    EXPECT_EQ(6, image.CountPixels(clrShadow, CRect(113, 7, 117, 13)));
    EXPECT_EQ(6, image.CountPixels(clrWhite, CRect(117, 7, 121, 13)));
    EXPECT_EQ(clrFace, image.GetPixel(121, 6));
    EXPECT_EQ(clrShadow, image.GetPixel(16, 6)); // still ascending
    EXPECT_LT(0, image.CountPixels(RGB(0, 0, 0), CRect(121, 2, 140, 18)));
    EXPECT_LT(0, image.CountPixels(RGB(0, 0, 0), CRect(21, 2, 40, 18)));
    EXPECT_EQ(0, image.CountPixels(RGB(0, 0, 0), CRect(40, 2, 98, 18)));
}

// The list scrolls by its own step; the header, its scroll partner, starts with its own step
// and is back over the columns after the second line.
TEST_F(CGridHeaderTest, HiddenScrollInformationFollowsTheList)
{
    CGridList list;
    ASSERT_TRUE(list.Create(10, 5, 0, 0, CRect(0, 20, 200, 100), CWnd::FromHandle(m_host), 1001));
    list.SetAllColsToWidth(100);
    CreateHeader({100, 100, 100, 100, 100});
    m_header.MoveWindow(0, 0, 200, 20);
    m_header.SetScrollParent(list);
    list.AddScrollWnd(m_header, 0);
    int nPos = -1;
    int nPage = -1;
    int nMaxPos = -1;
    EXPECT_TRUE(m_header.UpdateScrollBars(NULL, &nPos, &nPage, &nMaxPos));
    CRect rcList;
    list.GetClientRect(&rcList);
    EXPECT_EQ(0, nPos);
    EXPECT_EQ(rcList.Width(), nPage);
    EXPECT_EQ(500 - rcList.Width(), nMaxPos);

    for (int nLine = 0; nLine < 3; ++nLine)
    {
        list.SendMessage(WM_HSCROLL, SB_LINERIGHT);
        list.SendMessage(WM_HSCROLL, SB_ENDSCROLL);
    }
    const int nListPos = list.GetScrollPos(SB_HORZ);
    ASSERT_LT(0, nListPos);
    CRect rc;
    m_header.GetItemRect(1, &rc);
    EXPECT_EQ(100 - nListPos, rc.left);
    // A jump, as the list makes one to show a cell, and tells its partners where it went.
    list.Scroll(CSize(150, 0));
    list.SendScrollMsg(0, SB_THUMBPOSITION, static_cast<UINT>(list.GetScrollPos(SB_HORZ)));
    m_header.GetItemRect(1, &rc);
    EXPECT_EQ(list.GetScrollPos(SB_HORZ), 100 - rc.left);

    // Dragged past the strip's end, the divider scrolls the list along and keeps growing by
    // what the strip scrolled.
    const int nStart = list.GetScrollPos(SB_HORZ);
    m_header.GetItemRect(2, &rc);
    CInput::Drag(m_header, CPoint(rc.right - 1, 10), CPoint(230, 10), 2);
    const int nScrolled = list.GetScrollPos(SB_HORZ) - nStart;
    EXPECT_LT(0, nScrolled);
    EXPECT_EQ(100 + 230 - (rc.right - 1) + nScrolled, Extent(2));
    m_header.GetItemRect(2, &rc);
    EXPECT_EQ(list.GetScrollPos(SB_HORZ), 200 - rc.left);
    EXPECT_EQ(0UL, m_header.GetStyle() & (WS_HSCROLL | WS_VSCROLL));
}
