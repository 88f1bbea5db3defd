// The standard control wrappers, created on a real parent window.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
const char* HostClass()
{
    static const char* s_name = [] {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = ::DefWindowProcA;
        wc.hInstance = ::GetModuleHandleA(NULL);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        wc.lpszClassName = "KelAfxControlHost";
        ::RegisterClassA(&wc);
        return "KelAfxControlHost";
    }();
    return s_name;
}

std::string ClassOf(HWND hWnd)
{
    char szClass[64] = "";
    ::GetClassNameA(hWnd, szClass, sizeof(szClass));
    return szClass;
}

class CControlTest : public ::testing::Test
{
protected:
    CWnd m_host;
    std::vector<std::string> m_events;

    // Visible for painting, but never activated: under Wine that keeps it out of the window
    // manager's hands, whose absence would cost seconds when the window goes.
    void SetUp() override
    {
        ASSERT_TRUE(m_host.CreateEx(0, HostClass(), "host", WS_POPUP, 0, 0, 400, 300, NULL, NULL));
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
    ASSERT_TRUE(wndStatic.Create("label", WS_VISIBLE, rect, &m_host, 1));
    ASSERT_TRUE(button.Create("push", WS_VISIBLE | BS_PUSHBUTTON, rect, &m_host, 2));
    ASSERT_TRUE(edit.Create(WS_VISIBLE | WS_BORDER, rect, &m_host, 3));
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_NOTIFY, CRect(0, 0, 100, 80), &m_host, 4));
    ASSERT_TRUE(combo.Create(WS_VISIBLE | CBS_DROPDOWN, CRect(0, 0, 100, 120), &m_host, 5));
    ASSERT_TRUE(bar.Create(WS_VISIBLE | SBS_HORZ, rect, &m_host, 6));

    struct
    {
        CWnd* pWnd;
        const char* pszClass;
        int nID;
    } const cases[] = {{&wndStatic, "static", 1}, {&button, "button", 2},   {&edit, "edit", 3},
                       {&list, "listbox", 4},     {&combo, "combobox", 5}, {&bar, "scrollbar", 6}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszClass);
        EXPECT_EQ(0, _stricmp(c.pszClass, ClassOf(c.pWnd->m_hWnd).c_str()));
        EXPECT_EQ(c.pWnd, CWnd::FromHandlePermanent(c.pWnd->m_hWnd));
        EXPECT_TRUE(c.pWnd->GetStyle() & WS_CHILD);
        EXPECT_EQ(c.nID, c.pWnd->GetDlgCtrlID());
    }
    CString strLabel;
    wndStatic.GetWindowText(strLabel);
    EXPECT_STREQ("label", strLabel);
}

TEST_F(CControlTest, EditSelectionReplacementAndUndo)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, CRect(0, 0, 200, 24), &m_host, 1));
    edit.SetWindowText("hello world");
    edit.SetSel(6, 11);
    int nStart = -1, nEnd = -1;
    edit.GetSel(nStart, nEnd);
    EXPECT_EQ(6, nStart);
    EXPECT_EQ(11, nEnd);
    EXPECT_EQ(MAKELONG(6, 11), (LONG)edit.GetSel());

    edit.SetModify(FALSE);
    edit.ReplaceSel("there", TRUE);
    CString strText;
    edit.GetWindowText(strText);
    EXPECT_STREQ("hello there", strText);
    EXPECT_TRUE(edit.GetModify());
    EXPECT_TRUE(edit.CanUndo());
    EXPECT_TRUE(edit.Undo());
    edit.GetWindowText(strText);
    EXPECT_STREQ("hello world", strText);

    // The DWORD form takes the start from the low word, as GetSel gives it.
    edit.SetSel(MAKELONG(0, 5));
    EXPECT_EQ(MAKELONG(0, 5), (LONG)edit.GetSel());
    edit.Cut();
    edit.GetWindowText(strText);
    EXPECT_STREQ(" world", strText);
    edit.SetSel(6, 6);
    edit.Paste();
    edit.GetWindowText(strText);
    EXPECT_STREQ(" worldhello", strText);
    edit.SetSel(0, -1);
    edit.Clear();
    EXPECT_EQ(0, edit.GetWindowTextLength());
}

TEST_F(CControlTest, EditLimitsReadOnlyAndMargins)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE | WS_BORDER, CRect(0, 0, 200, 24), &m_host, 1));
    edit.SetLimitText(5);
    EXPECT_EQ(5u, edit.GetLimitText());
    edit.ReplaceSel("123456789");
    EXPECT_EQ(5, edit.GetWindowTextLength());
    edit.LimitText(7);
    EXPECT_EQ(7u, edit.GetLimitText());

    EXPECT_FALSE(edit.GetStyle() & ES_READONLY);
    EXPECT_TRUE(edit.SetReadOnly());
    EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
    EXPECT_TRUE(edit.SetReadOnly(FALSE));
    EXPECT_FALSE(edit.GetStyle() & ES_READONLY);

    edit.SetMargins(3, 4);
    EXPECT_EQ(MAKELONG(3, 4), (LONG)edit.GetMargins());
    CRect rectFormat;
    edit.GetRect(&rectFormat);
    EXPECT_FALSE(rectFormat.IsRectEmpty());
}

TEST_F(CControlTest, MultiLineEditLinesAndPositions)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE | WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL, CRect(0, 0, 200, 100), &m_host, 1));
    edit.SetWindowText("first\r\nsecond line\r\nthird");
    EXPECT_EQ(3, edit.GetLineCount());
    EXPECT_EQ(7, edit.LineIndex(1));
    EXPECT_EQ(1, edit.LineFromChar(9));
    EXPECT_EQ(11, edit.LineLength(7));

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

TEST_F(CControlTest, ListBoxItemsDataAndSearch)
{
    CListBox list;
    ASSERT_TRUE(list.Create(WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY, CRect(0, 0, 150, 120), &m_host, 1));
    EXPECT_EQ(0, list.AddString("beta"));
    EXPECT_EQ(0, list.InsertString(0, "alpha"));
    EXPECT_EQ(2, list.AddString("alphabet"));
    EXPECT_EQ(3, list.GetCount());
    EXPECT_EQ(8, list.GetTextLen(2));

    CString strItem;
    list.GetText(1, strItem);
    EXPECT_STREQ("beta", strItem);
    char szItem[16];
    EXPECT_EQ(5, list.GetText(0, szItem));
    EXPECT_STREQ("alpha", szItem);
    list.GetText(99, strItem); // no such item: empty, no failure
    EXPECT_TRUE(strItem.IsEmpty());

    int nValue = 7;
    list.SetItemData(1, 1234);
    list.SetItemDataPtr(2, &nValue);
    EXPECT_EQ(1234u, list.GetItemData(1));
    EXPECT_EQ(&nValue, list.GetItemDataPtr(2));

    EXPECT_EQ(0, list.FindString(-1, "alp"));
    EXPECT_EQ(2, list.FindString(0, "alp"));
    EXPECT_EQ(2, list.FindStringExact(-1, "ALPHABET"));
    EXPECT_EQ(LB_ERR, list.FindStringExact(-1, "alph"));
    EXPECT_EQ(1, list.SelectString(-1, "b"));
    EXPECT_EQ(1, list.GetCurSel());
    EXPECT_NE(LB_ERR, list.SetCurSel(0));
    EXPECT_EQ(0, list.GetCurSel());

    CRect rectItem;
    EXPECT_NE(LB_ERR, list.GetItemRect(1, &rectItem));
    EXPECT_EQ(rectItem.Height(), list.GetItemHeight(1));
    BOOL bOutside = TRUE;
    EXPECT_EQ(1u, list.ItemFromPoint(CPoint(rectItem.left + 2, rectItem.top + 1), bOutside));
    EXPECT_FALSE(bOutside);

    EXPECT_EQ(2, list.DeleteString(0));
    list.ResetContent();
    EXPECT_EQ(0, list.GetCount());
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

TEST_F(CControlTest, ComboBoxListEditFieldAndDropDown)
{
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN, CRect(10, 10, 160, 150), &m_host, 1));
    EXPECT_EQ(0, combo.AddString("red"));
    EXPECT_EQ(1, combo.AddString("green"));
    EXPECT_EQ(0, combo.InsertString(0, "blue"));
    EXPECT_EQ(3, combo.GetCount());
    CString strItem;
    combo.GetLBText(2, strItem);
    EXPECT_STREQ("green", strItem);
    EXPECT_EQ(5, combo.GetLBTextLen(2));
    char szItem[16];
    EXPECT_EQ(4, combo.GetLBText(0, szItem));
    EXPECT_STREQ("blue", szItem);
    combo.GetLBText(-1, strItem);
    EXPECT_TRUE(strItem.IsEmpty());

    combo.SetItemData(1, 77);
    EXPECT_EQ(77u, combo.GetItemData(1));
    EXPECT_EQ(2, combo.FindString(-1, "gr"));
    EXPECT_EQ(1, combo.FindStringExact(-1, "RED"));
    EXPECT_EQ(2, combo.SelectString(-1, "g"));
    EXPECT_EQ(2, combo.GetCurSel());
    combo.GetWindowText(strItem);
    EXPECT_STREQ("green", strItem);

    EXPECT_TRUE(combo.SetEditSel(1, 3));
    EXPECT_EQ(MAKELONG(1, 3), (LONG)combo.GetEditSel());
    combo.LimitText(4);
    EXPECT_EQ(4, (int)::SendMessageA(::GetWindow(combo.m_hWnd, GW_CHILD), EM_GETLIMITTEXT, 0, 0));

    EXPECT_NE(CB_ERR, combo.SetDroppedWidth(250));
    EXPECT_EQ(250, combo.GetDroppedWidth());
    CRect rectDropped;
    combo.GetDroppedControlRect(&rectDropped);
    EXPECT_GT(rectDropped.Height(), 30);

    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    combo.ShowDropDown(FALSE);
    EXPECT_FALSE(combo.GetDroppedState());

    EXPECT_EQ(2, combo.DeleteString(0));
    combo.ResetContent();
    EXPECT_EQ(0, combo.GetCount());
}

TEST_F(CControlTest, ButtonCheckStateStyleAndImages)
{
    CButton check;
    ASSERT_TRUE(check.Create("check", WS_VISIBLE | BS_AUTO3STATE, CRect(0, 0, 100, 20), &m_host, 1));
    EXPECT_EQ((UINT)BS_AUTO3STATE, check.GetButtonStyle());
    check.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(BST_INDETERMINATE, check.GetCheck());
    check.SetState(TRUE);
    EXPECT_TRUE(check.GetState() & BST_PUSHED);
    check.SetState(FALSE);
    EXPECT_FALSE(check.GetState() & BST_PUSHED);
    check.SetButtonStyle(BS_AUTOCHECKBOX);
    EXPECT_EQ((UINT)BS_AUTOCHECKBOX, check.GetButtonStyle());

    CButton picture;
    ASSERT_TRUE(picture.Create(NULL, WS_VISIBLE | BS_BITMAP, CRect(0, 30, 40, 70), &m_host, 2));
    HBITMAP hBitmap = ::CreateBitmap(8, 8, 1, 1, NULL);
    EXPECT_EQ(nullptr, picture.SetBitmap(hBitmap));
    EXPECT_EQ(hBitmap, picture.GetBitmap());
    picture.DestroyWindow();
    ::DeleteObject(hBitmap);

    CButton iconButton;
    ASSERT_TRUE(iconButton.Create(NULL, WS_VISIBLE | BS_ICON, CRect(50, 30, 90, 70), &m_host, 3));
    HICON hIcon = ::LoadIconA(NULL, IDI_APPLICATION);
    iconButton.SetIcon(hIcon);
    EXPECT_EQ(hIcon, iconButton.GetIcon());
}

TEST_F(CControlTest, StaticShowsAnIcon)
{
    CStatic wndIcon;
    ASSERT_TRUE(wndIcon.Create(NULL, WS_VISIBLE | SS_ICON, CRect(0, 0, 32, 32), &m_host));
    EXPECT_EQ(0xffff, wndIcon.GetDlgCtrlID()); // MFC's id for statics nobody addresses
    HICON hIcon = ::LoadIconA(NULL, IDI_APPLICATION);
    wndIcon.SetIcon(hIcon);
    EXPECT_EQ(hIcon, wndIcon.GetIcon());
}

TEST_F(CControlTest, ScrollBarRangePositionAndLimit)
{
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_VISIBLE | SBS_HORZ, CRect(0, 0, 200, 16), &m_host, 1));
    bar.SetScrollRange(0, 100);
    int nMin = -1, nMax = -1;
    bar.GetScrollRange(&nMin, &nMax);
    EXPECT_EQ(0, nMin);
    EXPECT_EQ(100, nMax);
    bar.SetScrollPos(40);
    EXPECT_EQ(40, bar.GetScrollPos());
    // Without a page the thumb reaches the maximum; with one, the maximum less the page plus one.
    EXPECT_EQ(100, bar.GetScrollLimit());
    SCROLLINFO info = {};
    info.fMask = SIF_PAGE;
    info.nPage = 10;
    EXPECT_TRUE(bar.SetScrollInfo(&info));
    EXPECT_EQ(91, bar.GetScrollLimit());
    SCROLLINFO read = {};
    EXPECT_TRUE(bar.GetScrollInfo(&read));
    EXPECT_EQ(10u, read.nPage);
    EXPECT_EQ(40, read.nPos);
    EXPECT_TRUE(bar.EnableScrollBar(ESB_DISABLE_BOTH));
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

class COwnerList : public CListBox
{
public:
    std::vector<std::string>* m_pEvents = NULL;
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        m_pEvents->push_back("measure");
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

class COwnerCombo : public CComboBox
{
public:
    std::vector<std::string>* m_pEvents = NULL;
    void MeasureItem(LPMEASUREITEMSTRUCT lpMIS) override
    {
        m_pEvents->push_back("measure " + std::to_string((int)lpMIS->itemID));
        lpMIS->itemHeight = 17;
    }
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

TEST_F(CControlTest, OwnerDrawListBoxMeasuresComparesDrawsAndDeletes)
{
    COwnerList list;
    list.m_pEvents = &m_events;
    ASSERT_TRUE(list.Create(WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_SORT, CRect(0, 0, 150, 120), &m_host, 7));
    ASSERT_FALSE(m_events.empty());
    EXPECT_EQ("measure", m_events.front());
    EXPECT_EQ(19, list.GetItemHeight(0));

    for (LPARAM lData : {30, 10, 20})
        list.AddString(reinterpret_cast<LPCTSTR>(lData));
    ASSERT_EQ(3, list.GetCount());
    EXPECT_EQ(10u, list.GetItemData(0));
    EXPECT_EQ(20u, list.GetItemData(1));
    EXPECT_EQ(30u, list.GetItemData(2));

    m_events.clear();
    Repaint(list);
    EXPECT_EQ((std::vector<std::string>{"draw 10", "draw 20", "draw 30"}), m_events);
    m_events.clear();
    list.DeleteString(1);
    EXPECT_EQ(std::vector<std::string>{"delete 20"}, m_events);
}

TEST_F(CControlTest, OwnerDrawComboBoxMeasuresComparesAndDeletes)
{
    COwnerCombo combo;
    combo.m_pEvents = &m_events;
    ASSERT_TRUE(combo.Create(WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_SORT, CRect(0, 0, 150, 120),
                             &m_host, 8));
    // The selection field (-1) and the list items are measured separately.
    std::sort(m_events.begin(), m_events.end());
    EXPECT_EQ((std::vector<std::string>{"measure -1", "measure 0"}), m_events);
    EXPECT_EQ(17, combo.GetItemHeight(0));
    EXPECT_NE(CB_ERR, combo.SetItemHeight(0, 21));
    EXPECT_EQ(21, combo.GetItemHeight(0));

    for (LPARAM lData : {5, 3, 4})
        combo.AddString(reinterpret_cast<LPCTSTR>(lData));
    EXPECT_EQ(3u, combo.GetItemData(0));
    EXPECT_EQ(5u, combo.GetItemData(2));
    m_events.clear();
    combo.DeleteString(1);
    EXPECT_EQ(std::vector<std::string>{"delete 4"}, m_events);
}
} // namespace
