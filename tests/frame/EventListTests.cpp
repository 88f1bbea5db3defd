#include "KelControls.h"
#include <gtest/gtest.h>

#include "tests/harness/ChildRun.h"
#include "tests/harness/Input.h"
#include "tests/harness/NotifyRecorder.h"

#include <string>
#include <vector>

namespace
{
const char kWrongVersion[] = "WRONG VERSION OF KEL_UTIL.DLL, CONTACT YOUR SYSTEM ADMIN FOR AN UPDATED VERSION!";

void InitLibrary()
{
    KelControlsInit init = {::LoadCursorA(NULL, MAKEINTRESOURCEA(32649)), ::LoadCursorA(NULL, MAKEINTRESOURCEA(32515)),
                            0, 0};
    ASSERT_NE(0, InitKelControlsInterface(0, &init));
}

HWND CreateEventList(HWND hParent, int x, UINT nID)
{
    return ::CreateWindowExA(0, EVENT_LIST_CLASS, "", WS_CHILD | WS_VISIBLE | WS_BORDER, x, 0, 150, 200, hParent,
                             reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), CKelControlsModule::GetInstanceHandle(),
                             NULL);
}

std::vector<std::string> Entries(HWND hList)
{
    std::vector<std::string> entries;
    int nCount = static_cast<int>(::SendMessageA(hList, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < nCount; ++i)
    {
        char szText[256] = "";
        ::SendMessageA(hList, LB_GETTEXT, i, reinterpret_cast<LPARAM>(szText));
        entries.push_back(szText);
    }
    return entries;
}

int DroppedCount(const CNotifyRecorder& parent)
{
    int nCount = 0;
    for (const CNotifyRecorder::CCommand& command : parent.GetCommands())
        nCount += command.m_uNotifyCode == ELN_DROPPED;
    return nCount;
}

class CEventListTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        InitLibrary();
        ASSERT_TRUE(m_parent.Create(340, 220, true));
        m_hFirst = CreateEventList(m_parent.GetSafeHwnd(), 0, 10);
        m_hSecond = CreateEventList(m_parent.GetSafeHwnd(), 170, 11);
        ASSERT_NE(nullptr, m_hFirst);
        ASSERT_NE(nullptr, m_hSecond);
        for (const char* pszText : {"cue 1", "cue 2", "cue 3"})
            ::SendMessageA(m_hFirst, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszText));
        m_nItemHeight = static_cast<int>(::SendMessageA(m_hFirst, LB_GETITEMHEIGHT, 0, 0));
    }

    POINT ItemPoint(int nIndex) { return POINT{20, nIndex * m_nItemHeight + m_nItemHeight / 2}; }

    CNotifyRecorder m_parent;
    HWND m_hFirst = NULL;
    HWND m_hSecond = NULL;
    int m_nItemHeight = 0;
};
} // namespace

TEST_F(CEventListTest, TheCompanionBlockIsReplacedByAnExtendedOne)
{
    EVENT_LIST_BLOCK* pBlock = reinterpret_cast<EVENT_LIST_BLOCK*>(::GetWindowLongPtrA(m_hFirst, GWLP_USERDATA));
    ASSERT_NE(nullptr, pBlock);
    EXPECT_EQ(KEL_LISTING_BLOCK_SIZE, pBlock->listing.cbSize);
    const DWORD* pWords = reinterpret_cast<const DWORD*>(pBlock);
    EXPECT_EQ(EVENT_LIST_BLOCK_SIZE, pWords[KEL_LISTING_BLOCK_SIZE / 4]);
    EXPECT_EQ(pBlock->listing.hBlock, ::GlobalHandle(pBlock)); // its own handle in the second field
    EXPECT_EQ(static_cast<SIZE_T>(EVENT_LIST_BLOCK_SIZE), ::GlobalSize(pBlock->listing.hBlock));
    // The companion keeps working on the copy.
    EXPECT_EQ((std::vector<std::string>{"cue 1", "cue 2", "cue 3"}), Entries(m_hFirst));
    EXPECT_EQ(1, ::SendMessageA(m_hFirst, LB_DELETESTRING, 0, 0) - 1);
    EXPECT_EQ(0, ::SendMessageA(m_hFirst, LB_RESETCONTENT, 0, 0));
    EXPECT_EQ(0, ::SendMessageA(m_hFirst, LB_GETCOUNT, 0, 0));
}

TEST_F(CEventListTest, DraggingMovesAnEntryToAnotherList)
{
    POINT ptTarget = {20, 10}; // in the second list, in the first list's coordinates
    ::MapWindowPoints(m_hSecond, m_hFirst, &ptTarget, 1);
    CInput::Drag(m_hFirst, ItemPoint(1), ptTarget);
    EXPECT_EQ((std::vector<std::string>{"cue 1", "cue 3"}), Entries(m_hFirst));
    EXPECT_EQ((std::vector<std::string>{"cue 2"}), Entries(m_hSecond));
    char szText[32];
    EXPECT_EQ(5, GetDragDropEntry(szText, sizeof(szText)));
    EXPECT_STREQ("cue 2", szText);
    EXPECT_EQ(m_hFirst, GetDragDropSource());
    EXPECT_EQ(2, GetDragDropEntry(szText, 3)); // cut to the buffer
    EXPECT_EQ(-1, GetDragDropEntry(NULL, 10));
    ASSERT_EQ(1, DroppedCount(m_parent));
    EXPECT_EQ(m_hSecond, m_parent.GetCommands().back().m_hWndControl);
}

TEST_F(CEventListTest, CtrlDragCopiesWithinTheList)
{
    CInput::Drag(m_hFirst, ItemPoint(0), ItemPoint(2), 4, CInput::CTRL);
    EXPECT_EQ((std::vector<std::string>{"cue 1", "cue 2", "cue 1", "cue 3"}), Entries(m_hFirst));
    CInput::Drag(m_hFirst, ItemPoint(3), ItemPoint(0));
    EXPECT_EQ((std::vector<std::string>{"cue 3", "cue 1", "cue 2", "cue 1"}), Entries(m_hFirst));
}

TEST_F(CEventListTest, AClickWithoutMovingIsNoDrag)
{
    CInput::Click(m_hFirst, 20, ItemPoint(2).y);
    EXPECT_EQ(2, ::SendMessageA(m_hFirst, LB_GETCURSEL, 0, 0));
    EXPECT_EQ(3, ::SendMessageA(m_hFirst, LB_GETCOUNT, 0, 0));
    EXPECT_EQ(0, DroppedCount(m_parent));
}

namespace
{
// Stands in for the companion's window procedure and reports an older block size.
WNDPROC s_pfnRealListingProc = NULL;

LRESULT CALLBACK OldCompanionProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = s_pfnRealListingProc(hWnd, nMsg, wParam, lParam);
    if (nMsg == WM_CREATE)
        reinterpret_cast<KEL_LISTING_BLOCK*>(::GetWindowLongPtrA(hWnd, GWLP_USERDATA))->cbSize = 1600;
    return lResult;
}
} // namespace

TEST(CEventListCompanionTest, AWrongCompanionEndsTheProcess)
{
    CChildRun::COutcome outcome = CChildRun::Run([] {
        CImportRecorder& recorder = CImportRecorder::Get();
        HMODULE hLibrary = ::GetModuleHandleA("KelControls.dll");
        recorder.Install(hLibrary);
        s_pfnRealListingProc = reinterpret_cast<WNDPROC>(
            recorder.Redirect(hLibrary, "KEL_Util.dll", "WndListingProc", reinterpret_cast<void*>(OldCompanionProc)));
        InitLibrary();
        HWND hParent = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 200, 200, NULL, NULL, NULL, NULL);
        CreateEventList(hParent, 0, 0);
    });
    EXPECT_EQ(0xFFFFFFFFu, outcome.m_dwExitCode);
    ASSERT_EQ(1u, outcome.m_records.m_messageBoxes.size());
    const auto& box = outcome.m_records.m_messageBoxes[0];
    EXPECT_EQ(NULL, box.m_hWndOwner);
    EXPECT_EQ(kWrongVersion, box.m_strText);
    EXPECT_EQ("ERROR", box.m_strCaption);
    EXPECT_EQ(0x10u, box.m_uType);
}
