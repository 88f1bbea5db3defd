#include "tests/controls/ControlHost.h"

#include "tests/harness/MessageSequence.h"

namespace
{
const UINT IDC_FIRST = 20;
const UINT IDC_SECOND = 21;

class CKelListingTest : public CControlHost
{
protected:
    void SetUp() override
    {
        CControlHost::SetUp();
        InitListingLibrary();
    }

    // A listing at x with "cue 1" .. "cue N".
    BOOL CreateListing(CKelListing& listing, int x, UINT nID, int nEntries)
    {
        if (!listing.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(x, 0, x + 150, 200), &m_host, nID))
            return FALSE;
        for (int i = 1; i <= nEntries; ++i)
            listing.AddString(("cue " + std::to_string(i)).c_str());
        return TRUE;
    }

    POINT EntryPoint(HWND hList, int nIndex)
    {
        int nHeight = static_cast<int>(::SendMessageA(hList, LB_GETITEMHEIGHT, 0, 0));
        return POINT{20, nIndex * nHeight + nHeight / 2};
    }
};
} // namespace

TEST_F(CKelListingTest, CreateNeedsTheEventListClass)
{
    ASSERT_TRUE(::UnregisterClassA(EVENT_LIST_CLASS, CKelControlsModule::GetInstanceHandle()));
    CKelListing listing;
    EXPECT_FALSE(listing.Create(WS_CHILD, CRect(0, 0, 100, 100), &m_host, IDC_FIRST));
    EXPECT_EQ(nullptr, listing.GetSafeHwnd());
    InitListingLibrary();
    EXPECT_TRUE(listing.Create(WS_CHILD, CRect(0, 0, 100, 100), &m_host, IDC_FIRST));
    HWND hList = listing.GetListingWnd();
    EXPECT_EQ(listing.m_hWnd, ::GetParent(hList));
    EXPECT_EQ(KEL_LISTING_INNER_ID, ::GetDlgCtrlID(hList));
    // The inner list fills the control, whatever its size.
    listing.MoveWindow(0, 0, 120, 80);
    CRect rect;
    ::GetWindowRect(hList, &rect);
    EXPECT_EQ(CSize(120, 80), rect.Size());
}

TEST_F(CKelListingTest, TheInnerListsNotificationsReachTheParentInTheControlsName)
{
    CKelListing first, second;
    ASSERT_TRUE(CreateListing(first, 0, IDC_FIRST, 3));
    ASSERT_TRUE(CreateListing(second, 170, IDC_SECOND, 0));
    HWND hFirst = first.GetListingWnd();
    HWND hSecond = second.GetListingWnd();
    first.SetFocus();
    ASSERT_EQ(hFirst, ::GetFocus());

    CMessageSequence seq;
    seq.Watch(m_parent, "parent");
    seq.Watch(first, "first");
    seq.Watch(second, "second");
    const UINT ARGS = SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, PARENT = ARGS | SEQ_DEFPROC; // through the host's CWnd
    POINT pt = EntryPoint(hFirst, 1);
    CInput::DoubleClick(hFirst, pt.x, pt.y);
    POINT ptTarget = EntryPoint(hSecond, 0);
    ::MapWindowPoints(hSecond, hFirst, &ptTarget, 1);
    CInput::Drag(hFirst, EntryPoint(hFirst, 2), ptTarget);
    second.SetFocus();
    EXPECT_TRUE(seq.Check({
        {"first", WM_COMMAND, ARGS, MAKEWPARAM(KEL_LISTING_INNER_ID, LBN_SELCHANGE), hFirst},
        {"parent", WM_COMMAND, PARENT, MAKEWPARAM(IDC_FIRST, LBN_SELCHANGE), first.m_hWnd},
        {"first", WM_COMMAND, ARGS, MAKEWPARAM(KEL_LISTING_INNER_ID, LBN_DBLCLK), hFirst},
        {"parent", WM_COMMAND, PARENT, MAKEWPARAM(IDC_FIRST, LBN_DBLCLK), first.m_hWnd},
        {"first", WM_COMMAND, ARGS, MAKEWPARAM(KEL_LISTING_INNER_ID, LBN_SELCHANGE), hFirst},
        {"parent", WM_COMMAND, PARENT, MAKEWPARAM(IDC_FIRST, LBN_SELCHANGE), first.m_hWnd},
        {"second", WM_COMMAND, ARGS, MAKEWPARAM(KEL_LISTING_INNER_ID, ELN_DROPPED), hSecond},
        {"parent", WM_COMMAND, PARENT, MAKEWPARAM(IDC_SECOND, ELN_DROPPED), second.m_hWnd},
        {"first", WM_COMMAND, ARGS, MAKEWPARAM(KEL_LISTING_INNER_ID, LBN_KILLFOCUS), hFirst},
        {"parent", WM_COMMAND, PARENT, MAKEWPARAM(IDC_FIRST, LBN_KILLFOCUS), first.m_hWnd},
        {"second", WM_SETFOCUS, SEQ_SENT},
        {"second", WM_KILLFOCUS, SEQ_SENT | SEQ_DEFPROC},
        {"second", WM_COMMAND, ARGS, MAKEWPARAM(KEL_LISTING_INNER_ID, LBN_SETFOCUS), hSecond},
        {"parent", WM_COMMAND, PARENT, MAKEWPARAM(IDC_SECOND, LBN_SETFOCUS), second.m_hWnd},
    }));
    // The dropped entry, moved and selected.
    char szText[32];
    EXPECT_EQ(5, GetDragDropEntry(szText, sizeof(szText)));
    EXPECT_STREQ("cue 3", szText);
    EXPECT_EQ(hFirst, GetDragDropSource());
    EXPECT_EQ(2, first.GetCount());
    EXPECT_EQ(0, second.GetCurSel());
}

TEST_F(CKelListingTest, EntriesColoursSearchAndTheCachedSelection)
{
    CKelListing listing;
    ASSERT_TRUE(CreateListing(listing, 0, IDC_FIRST, 0));
    EXPECT_EQ(0, listing.AddString("Go", RGB(255, 0, 0)));
    EXPECT_EQ(1, listing.AddString("Fade out"));
    EXPECT_EQ(1, listing.InsertString(1, "fade in", KEL_NO_COLOR, RGB(0, 0, 255)));
    EXPECT_EQ(3, listing.AddString("go back"));
    EXPECT_EQ(LB_ERR, listing.InsertString(9, "nowhere"));
    CString strText;
    COLORREF crText = 0, crBack = 0;
    ASSERT_EQ(1, listing.GetAt(0, strText, &crText, &crBack));
    EXPECT_EQ(CString("Go"), strText);
    EXPECT_EQ(RGB(255, 0, 0), crText);
    EXPECT_EQ(::GetSysColor(COLOR_WINDOW), crBack); // the colour not given stays the default
    EXPECT_EQ(0, listing.GetAt(4, strText));

    // "Go", "fade in", "Fade out", "go back"
    const struct
    {
        int nStart;
        const char* pszText;
        bool bExact;
        int nFound;
    } aSearches[] = {
        {-1, "fa", false, 1}, {1, "FA", false, 2}, {2, "fa", false, 1},   {-1, "x", false, LB_ERR},
        {0, "GO", true, 0},   {-1, "go back", true, 3}, {-1, "fade", true, LB_ERR},
    };
    for (const auto& test : aSearches)
        EXPECT_EQ(test.nFound, test.bExact ? listing.FindStringExact(test.nStart, test.pszText)
                                           : listing.FindString(test.nStart, test.pszText))
            << test.nStart << " " << test.pszText;

    // Validation: nothing selected is reported with the control's name.
    listing.SetControlName("Cue");
    int nIndex = 7;
    EXPECT_FALSE(listing.ValidateAndGet(nIndex));
    ASSERT_EQ(1u, Boxes().size());
    EXPECT_EQ(" A Cue must be selected!", Boxes()[0].m_strText);
    EXPECT_EQ(2, listing.SetCurSel(2));
    EXPECT_TRUE(listing.ValidateAndGet(nIndex));
    EXPECT_EQ(2, nIndex);

    // The selection outlives the window.
    listing.DestroyWindow();
    EXPECT_EQ(nullptr, listing.GetListingWnd());
    EXPECT_EQ(2, listing.GetCurSel());
}

TEST_F(CKelListingTest, SubclassingAnEventListOrAPlaceholder)
{
    HWND hEventList = ::CreateWindowExA(0, EVENT_LIST_CLASS, "", WS_CHILD | WS_VISIBLE | LBS_NOTIFY, 0, 0, 150, 200,
                                        m_parent, reinterpret_cast<HMENU>(IDC_FIRST), CKelControlsModule::GetInstanceHandle(), NULL);
    HWND hFrame = ::CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 170, 0, 150, 200, m_parent,
                                    reinterpret_cast<HMENU>(IDC_SECOND), NULL, NULL);
    CKelListing onList, onFrame;
    ASSERT_TRUE(onList.SubclassWindow(hEventList));
    ASSERT_TRUE(onFrame.SubclassWindow(hFrame));
    EXPECT_EQ(hEventList, onList.GetListingWnd()); // the list itself
    EXPECT_EQ(hFrame, ::GetParent(onFrame.GetListingWnd()));

    for (CKelListing* pListing : {&onList, &onFrame})
    {
        pListing->AddString("one");
        pListing->AddString("two");
        pListing->SetFont(100, "Arial");
        EXPECT_NE(0, pListing->SendMessage(WM_GETFONT)); // passed on to the list window
        POINT pt = EntryPoint(pListing->GetListingWnd(), 1);
        CInput::Click(pListing->GetListingWnd(), pt.x, pt.y);
        EXPECT_EQ(1, pListing->GetCurSel());
        ASSERT_FALSE(m_parent.GetCommands().empty());
        const CNotifyRecorder::CCommand& command = m_parent.GetCommands().back();
        EXPECT_EQ(static_cast<UINT>(LBN_SELCHANGE), command.m_uNotifyCode);
        EXPECT_EQ(pListing->m_hWnd, command.m_hWndControl); // directly from the list, or relayed
        EXPECT_EQ(static_cast<UINT>(pListing->GetDlgCtrlID()), command.m_uId);
    }
}
