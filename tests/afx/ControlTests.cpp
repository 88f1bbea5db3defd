// The standard control wrappers, created on a real parent window: what the wrappers decide
// themselves (classes, argument and result conversions, buffers) and owner-draw reflection.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
typedef std::vector<std::string> CEvents;

class CControlTest : public ::testing::Test
{
protected:
    CWnd m_host;
    CEvents m_events;

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

TEST_F(CControlTest, EachControlIsMadeFromItsClassAndConvertsWhatTheSystemAnswers)
{
    CStatic wndStatic;
    CButton button;
    CListBox list;
    CComboBox combo;
    CScrollBar bar;
    CRect rect(0, 0, 100, 120);
    ASSERT_TRUE(wndStatic.Create("label", 0, rect, &m_host)); // MFC's id for statics nobody addresses
    ASSERT_TRUE(button.Create("check", BS_AUTO3STATE | BS_LEFT, rect, &m_host, 2));
    ASSERT_TRUE(list.Create(LBS_EXTENDEDSEL, rect, &m_host, 4));
    ASSERT_TRUE(combo.Create(CBS_DROPDOWN, rect, &m_host, 5));
    ASSERT_TRUE(bar.Create(SBS_HORZ, CRect(0, 0, 200, 16), &m_host, 6));
    struct
    {
        CWnd* pWnd;
        const char* pszClass;
        int nID;
    } const cases[] = {{&wndStatic, "static", 0xffff}, {&button, "button", 2},   {&list, "listbox", 4},
                       {&combo, "combobox", 5},        {&bar, "scrollbar", 6}};
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
    // No such item gives an empty string, no failure.
    for (const char* psz : {"a", "b", "c", "d", "e"})
        list.AddString(psz);
    CString strItem("old");
    combo.GetLBText(-1, strItem);
    EXPECT_TRUE(strItem.IsEmpty());

    EXPECT_NE(LB_ERR, list.SelItemRange(TRUE, 3, 1)); // either order
    EXPECT_EQ(3, list.GetSelCount());
    // One item is deselected too, though the system's range message cannot express it.
    EXPECT_NE(LB_ERR, list.SelItemRange(FALSE, 2, 2));
    EXPECT_EQ(2, list.GetSelCount());
    EXPECT_EQ(0, list.GetSel(2));
    EXPECT_NE(LB_ERR, list.SelItemRange(FALSE, 0, 4));
    EXPECT_EQ(0, list.GetSelCount());

    // Without a page the thumb reaches the maximum; with one, the maximum less the page plus one.
    bar.SetScrollRange(0, 100);
    EXPECT_EQ(100, bar.GetScrollLimit());
    SCROLLINFO info = {}; // no size given: SetScrollInfo fills it in
    info.fMask = SIF_PAGE;
    info.nPage = 10;
    EXPECT_TRUE(bar.SetScrollInfo(&info));
    EXPECT_EQ(91, bar.GetScrollLimit());
}

TEST_F(CControlTest, EditLinesAndPositions)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(ES_MULTILINE, CRect(0, 0, 200, 100), &m_host, 1));
    edit.SetWindowText("first\r\nsecond line\r\nthird");

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
    EXPECT_EQ(CPoint(-1, -1), edit.PosFromChar(1000)); // past the end: the coordinates are signed
}

// Owner-draw controls: the parent's owner messages come back to the control's virtuals.
class COwnerButton : public CButton
{
public:
    CEvents* m_pLog = NULL;
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { m_pLog->push_back("draw " + std::to_string(lpDIS->CtlID)); }
};

// Items are numbers kept as item data, sorted by value.
template <class TList>
class COwnerList : public TList
{
public:
    CEvents* m_pLog = NULL;
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        m_pLog->push_back("measure " + std::to_string((int)lpMIS->itemID));
        lpMIS->itemHeight = 19;
    }
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override { m_pLog->push_back("draw " + std::to_string(lpDIS->itemData)); }
    int CompareItem(LPCOMPAREITEMSTRUCT lpCIS) override { return (int)lpCIS->itemData1 - (int)lpCIS->itemData2; }
    void DeleteItem(LPDELETEITEMSTRUCT lpDI) override { m_pLog->push_back("delete " + std::to_string(lpDI->itemData)); }
};

TEST_F(CControlTest, OwnerDrawControlsMeasureCompareDrawAndDeleteThroughTheirVirtuals)
{
    COwnerButton button;
    COwnerList<CListBox> list;
    COwnerList<CComboBox> combo;
    button.m_pLog = list.m_pLog = combo.m_pLog = &m_events;
    ASSERT_TRUE(button.Create("", WS_VISIBLE | BS_OWNERDRAW, CRect(0, 130, 80, 154), &m_host, 42));
    Repaint(button);
    EXPECT_EQ(CEvents{"draw 42"}, m_events);
    // Measured while being created, before Create returns.
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_SORT, CRect(0, 0, 150, 120), &m_host, 7));
    EXPECT_EQ("measure", m_events.back().substr(0, 7));
    EXPECT_EQ(19, list.GetItemHeight(0));
    m_events.clear();
    ASSERT_TRUE(combo.Create(WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_SORT, CRect(160, 0, 300, 120),
                             &m_host, 8));
    // The combo box's selection field (-1) and its list items are measured separately.
    std::sort(m_events.begin(), m_events.end());
    EXPECT_EQ((CEvents{"measure -1", "measure 0"}), m_events);
    EXPECT_EQ(19, combo.GetItemHeight(0));

    for (LPARAM lData : {30, 10, 20})
    {
        list.AddString(reinterpret_cast<LPCTSTR>(lData));
        combo.AddString(reinterpret_cast<LPCTSTR>(lData));
    }
    // Sorted through CompareItem: drawn in order, and the deleted items are the ones expected.
    m_events.clear();
    Repaint(list);
    EXPECT_EQ((CEvents{"draw 10", "draw 20", "draw 30"}), m_events);
    m_events.clear();
    list.DeleteString(1);
    combo.DeleteString(0);
    EXPECT_EQ((CEvents{"delete 20", "delete 10"}), m_events);
}
} // namespace
