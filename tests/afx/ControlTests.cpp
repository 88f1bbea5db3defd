// The standard control wrappers, created on a real parent window.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
class CControlTest : public ::testing::Test
{
protected:
    CWnd m_host;
    std::vector<std::string> m_events;

    // A popup of a system class, visible for painting, but never activated: under Wine that
    // keeps it out of the window manager's hands, whose absence would cost seconds when it goes.
    void SetUp() override
    {
        ASSERT_TRUE(m_host.CreateEx(0, "STATIC", "host", WS_POPUP, 0, 0, 400, 300, NULL, NULL));
        m_host.ShowWindow(SW_SHOWNOACTIVATE);
    }
    void TearDown() override { m_host.DestroyWindow(); }

    void Repaint(CWnd& wnd) { wnd.RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE); }
};

TEST_F(CControlTest, EachControlIsMadeFromItsSystemClassAndAttached)
{
    CStatic wndStatic;
    CButton button;
    CEdit edit;
    CListBox list;
    CComboBox combo;
    CScrollBar bar;
    CRect rect(0, 0, 100, 20);
    ASSERT_TRUE(wndStatic.Create("label", WS_VISIBLE, rect, &m_host)); // MFC's id for statics nobody addresses
    ASSERT_TRUE(button.Create("check", WS_VISIBLE | BS_AUTO3STATE | BS_LEFT, rect, &m_host, 2));
    ASSERT_TRUE(edit.Create(WS_VISIBLE | WS_BORDER, rect, &m_host, 3));
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_NOTIFY, CRect(0, 0, 100, 80), &m_host, 4));
    ASSERT_TRUE(combo.Create(WS_VISIBLE | CBS_DROPDOWN, CRect(0, 0, 100, 120), &m_host, 5));
    ASSERT_TRUE(bar.Create(WS_VISIBLE | SBS_HORZ, rect, &m_host, 6));

    struct
    {
        CWnd* pWnd;
        const char* pszClass;
        int nID;
    } const cases[] = {{&wndStatic, "static", 0xffff}, {&button, "button", 2},   {&edit, "edit", 3},
                       {&list, "listbox", 4},          {&combo, "combobox", 5}, {&bar, "scrollbar", 6}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszClass);
        char szClass[64] = "";
        ::GetClassNameA(c.pWnd->m_hWnd, szClass, sizeof(szClass));
        EXPECT_EQ(0, _stricmp(c.pszClass, szClass));
        EXPECT_EQ(c.pWnd, CWnd::FromHandlePermanent(c.pWnd->m_hWnd));
        EXPECT_TRUE(c.pWnd->GetStyle() & WS_CHILD);
        EXPECT_EQ(c.nID, c.pWnd->GetDlgCtrlID());
    }
    CString strLabel;
    wndStatic.GetWindowText(strLabel);
    EXPECT_STREQ("label", strLabel);
    // The button style is the type in the low byte, without the alignment and other bits.
    EXPECT_EQ((UINT)BS_AUTO3STATE, button.GetButtonStyle());
    button.SetButtonStyle(BS_AUTOCHECKBOX);
    EXPECT_EQ((UINT)BS_AUTOCHECKBOX, button.GetButtonStyle());
}

TEST_F(CControlTest, EditSelectionLinesAndPositions)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL, CRect(0, 0, 200, 100), &m_host, 1));
    edit.SetWindowText("first\r\nsecond line\r\nthird");
    edit.SetSel(7, 13);
    int nStart = -1, nEnd = -1;
    edit.GetSel(nStart, nEnd);
    EXPECT_EQ(7, nStart);
    EXPECT_EQ(13, nEnd);
    // The DWORD form takes the start from the low word, as GetSel gives it.
    edit.SetSel(MAKELONG(0, 5));
    EXPECT_EQ(MAKELONG(0, 5), (LONG)edit.GetSel());
    edit.ReplaceSel("1st", TRUE);
    EXPECT_EQ(3, edit.LineLength(0));
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(5, edit.LineLength(0));

    char szLine[32];
    memset(szLine, '#', sizeof(szLine));
    EXPECT_EQ(6, edit.GetLine(1, szLine, 6));
    EXPECT_EQ(0, memcmp("second#", szLine, 7)); // not terminated, nothing past the 6 characters
    // A one-character buffer cannot hold the size word that EM_GETLINE reads: still one character.
    memset(szLine, '#', sizeof(szLine));
    EXPECT_EQ(1, edit.GetLine(2, szLine, 1));
    EXPECT_EQ(0, memcmp("t#", szLine, 2));
    EXPECT_EQ(0, edit.GetLine(0, szLine, 0));
    EXPECT_EQ(0, edit.GetLine(0, NULL, 10));

    CPoint pt = edit.PosFromChar(8);
    int nHit = edit.CharFromPos(CPoint(pt.x + 1, pt.y + 1));
    EXPECT_EQ(8, LOWORD(nHit));
    EXPECT_EQ(1, HIWORD(nHit));
    EXPECT_EQ(CPoint(-1, -1), edit.PosFromChar(1000)); // past the end
}

TEST_F(CControlTest, ListBoxTextDataSearchAndHitTest)
{
    CListBox list;
    ASSERT_TRUE(list.Create(WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY, CRect(0, 0, 150, 120), &m_host, 1));
    for (const char* psz : {"alpha", "beta", "alphabet"})
        list.AddString(psz);
    CString strItem;
    list.GetText(1, strItem);
    EXPECT_STREQ("beta", strItem);
    list.GetText(99, strItem); // no such item: empty, no failure
    EXPECT_TRUE(strItem.IsEmpty());

    int nValue = 7;
    list.SetItemDataPtr(2, &nValue);
    EXPECT_EQ(&nValue, list.GetItemDataPtr(2));

    CRect rectItem;
    EXPECT_NE(LB_ERR, list.GetItemRect(1, &rectItem));
    BOOL bOutside = TRUE;
    EXPECT_EQ(1u, list.ItemFromPoint(CPoint(rectItem.left + 2, rectItem.top + 1), bOutside));
    EXPECT_FALSE(bOutside);
    // Below the last item: that item, but outside it.
    EXPECT_EQ(2u, list.ItemFromPoint(CPoint(rectItem.left + 2, 110), bOutside));
    EXPECT_TRUE(bOutside);
}

TEST_F(CControlTest, MultipleSelectionListBoxSelectsAndDeselectsRanges)
{
    CListBox list;
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_EXTENDEDSEL, CRect(0, 0, 150, 120), &m_host, 1));
    for (const char* psz : {"a", "b", "c", "d", "e"})
        list.AddString(psz);
    EXPECT_NE(LB_ERR, list.SelItemRange(TRUE, 3, 1)); // either order
    EXPECT_EQ(3, list.GetSelCount());
    // One item is deselected too, though the system's range message cannot express it.
    EXPECT_NE(LB_ERR, list.SelItemRange(FALSE, 2, 2));
    int anSel[5] = {};
    ASSERT_EQ(2, list.GetSelItems(5, anSel));
    EXPECT_EQ(1, anSel[0]);
    EXPECT_EQ(3, anSel[1]);
    EXPECT_TRUE(list.GetSel(3) > 0);
    EXPECT_NE(LB_ERR, list.SelItemRange(FALSE, 0, 4));
    EXPECT_EQ(0, list.GetSelCount());
}

TEST_F(CControlTest, ComboBoxItemTextAndEditSelection)
{
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN, CRect(10, 10, 160, 150), &m_host, 1));
    combo.AddString("red");
    combo.AddString("green");
    CString strItem;
    combo.GetLBText(1, strItem);
    EXPECT_STREQ("green", strItem);
    combo.GetLBText(-1, strItem);
    EXPECT_TRUE(strItem.IsEmpty());
    EXPECT_EQ(1, combo.SelectString(-1, "g"));
    EXPECT_TRUE(combo.SetEditSel(1, 3));
    EXPECT_EQ(MAKELONG(1, 3), (LONG)combo.GetEditSel());
}

TEST_F(CControlTest, ScrollBarLimitLeavesRoomForThePage)
{
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_VISIBLE | SBS_HORZ, CRect(0, 0, 200, 16), &m_host, 1));
    bar.SetScrollRange(0, 100);
    // Without a page the thumb reaches the maximum; with one, the maximum less the page plus one.
    EXPECT_EQ(100, bar.GetScrollLimit());
    SCROLLINFO info = {}; // no size given: SetScrollInfo fills it in
    info.fMask = SIF_PAGE;
    info.nPage = 10;
    EXPECT_TRUE(bar.SetScrollInfo(&info));
    EXPECT_EQ(91, bar.GetScrollLimit());
}

// Owner-draw controls: the parent's owner messages come back to the control's virtuals.
class COwnerButton : public CButton
{
public:
    std::vector<std::string>* m_pEvents = NULL;
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override
    {
        m_pEvents->push_back("draw " + std::to_string(lpDIS->CtlID) +
                             ((lpDIS->itemState & ODS_SELECTED) ? " selected" : ""));
    }
};

// Items are numbers kept as item data, sorted by value.
template <class TList>
class COwnerList : public TList
{
public:
    std::vector<std::string>* m_pEvents = NULL;
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        m_pEvents->push_back("measure " + std::to_string((int)lpMIS->itemID));
        lpMIS->itemHeight = 19;
    }
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { m_pEvents->push_back("draw " + std::to_string(lpDIS->itemData)); }
    int CompareItem(LPCOMPAREITEMSTRUCT lpCIS) override
    {
        return lpCIS->itemData1 < lpCIS->itemData2 ? -1 : lpCIS->itemData1 > lpCIS->itemData2 ? 1 : 0;
    }
    void DeleteItem(LPDELETEITEMSTRUCT lpDIS) override
    {
        m_pEvents->push_back("delete " + std::to_string(lpDIS->itemData));
    }
};

TEST_F(CControlTest, OwnerDrawButtonDrawsThroughItsDrawItem)
{
    COwnerButton button;
    button.m_pEvents = &m_events;
    ASSERT_TRUE(button.Create("", WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, 80, 24), &m_host, 42));
    Repaint(button);
    ASSERT_FALSE(m_events.empty());
    EXPECT_EQ("draw 42", m_events.back());
    button.SetState(TRUE);
    Repaint(button);
    EXPECT_EQ("draw 42 selected", m_events.back());
}

TEST_F(CControlTest, OwnerDrawListsMeasureCompareDrawAndDelete)
{
    COwnerList<CListBox> list;
    COwnerList<CComboBox> combo;
    list.m_pEvents = combo.m_pEvents = &m_events;
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_SORT, CRect(0, 0, 150, 120), &m_host, 7));
    ASSERT_FALSE(m_events.empty());
    EXPECT_EQ("measure", m_events.front().substr(0, 7));
    EXPECT_EQ(19, list.GetItemHeight(0));
    m_events.clear();
    ASSERT_TRUE(combo.Create(WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_SORT, CRect(160, 0, 300, 120),
                             &m_host, 8));
    // The selection field (-1) and the list items are measured separately.
    std::sort(m_events.begin(), m_events.end());
    EXPECT_EQ((std::vector<std::string>{"measure -1", "measure 0"}), m_events);
    EXPECT_EQ(19, combo.GetItemHeight(0));

    for (LPARAM lData : {30, 10, 20})
    {
        list.AddString(reinterpret_cast<LPCTSTR>(lData));
        combo.AddString(reinterpret_cast<LPCTSTR>(lData));
    }
    // Sorted through CompareItem: drawn in order, and the deleted items are the ones expected.
    m_events.clear();
    Repaint(list);
    EXPECT_EQ((std::vector<std::string>{"draw 10", "draw 20", "draw 30"}), m_events);
    m_events.clear();
    list.DeleteString(1);
    combo.DeleteString(0);
    EXPECT_EQ((std::vector<std::string>{"delete 20", "delete 10"}), m_events);
}
} // namespace
