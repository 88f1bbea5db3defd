// The drop-down helper: where a popup goes on the monitor, and which presses of real mouse input
// (SendInput, since the hook sees only the system's queue) close it and which reach their window.
#include <gtest/gtest.h>

#include "grid/KelDropDown.h"
#include "tests/harness/Input.h"
#include "tests/harness/NotifyRecorder.h"

namespace
{
struct PlaceCase
{
    const char* pszWhat;
    CRect rcHost;
    CSize size;
    CRect rcExpected;
};

TEST(KelDropDownTest, PlacePopupKeepsThePopupOnTheMonitor)
{
    const CRect rcMonitor(0, 0, 800, 600);
    const PlaceCase cases[] = {
        {"fits below", CRect(100, 100, 200, 120), CSize(150, 200), CRect(100, 120, 250, 320)},
        {"more room above: opens upward, cut to it", CRect(100, 500, 200, 520), CSize(150, 900),
         CRect(100, 0, 250, 500)},
        {"less room above: cut to the room below", CRect(100, 200, 200, 220), CSize(150, 500),
         CRect(100, 220, 250, 600)},
        {"at the right edge: shifted left", CRect(700, 100, 790, 120), CSize(200, 50), CRect(600, 120, 800, 170)},
        {"wider than the monitor: its width", CRect(-50, 100, 40, 120), CSize(1000, 50), CRect(0, 120, 800, 170)},
        {"no room at all: one pixel", CRect(0, 580, 100, 600), CSize(100, 0), CRect(0, 600, 100, 601)},
    };
    for (const PlaceCase& c : cases)
        EXPECT_EQ(c.rcExpected, CKelDropDown::PlacePopup(c.rcHost, c.size, rcMonitor)) << c.pszWhat;
}

class CKelDropDownHookTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_host.Create(200, 100, true));
        ASSERT_TRUE(m_other.Create(200, 100, true));
        ::SetWindowPos(m_other, NULL, 300, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        m_hWndPopup = ::CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, "STATIC", "", WS_POPUP | WS_BORDER, 20,
                                        200, 150, 80, m_host, NULL, NULL, NULL);
        ASSERT_TRUE(m_hWndPopup != NULL);
        ::ShowWindow(m_hWndPopup, SW_SHOWNOACTIVATE);
        for (CNotifyRecorder* p : {&m_host, &m_other})
        {
            p->RecordMessage(KDDM_CLOSEUP);
            p->RecordMessage(WM_LBUTTONDOWN);
        }
        CInput::PumpMessages(50);
    }
    void TearDown() override { ::DestroyWindow(m_hWndPopup); }

    int Count(const CNotifyRecorder& r, UINT uMsg) const
    {
        int n = 0;
        for (const CNotifyRecorder::CMessage& m : r.GetMessages())
            n += m.m_uMsg == uMsg;
        return n;
    }

    CNotifyRecorder m_host;
    CNotifyRecorder m_other;
    HWND m_hWndPopup = NULL;
};

TEST_F(CKelDropDownHookTest, PressesCloseOrPassAsTheirTargetWants)
{
    CKelDropDown dropDown;
    ASSERT_TRUE(dropDown.Open(m_host, m_hWndPopup));

    CInput::QueuedClick(m_hWndPopup, 10, 10); // inside the popup: passes, no close
    EXPECT_EQ(0, Count(m_host, KDDM_CLOSEUP));

    CInput::QueuedClick(m_other, 50, 50); // elsewhere: close asked, and the press still arrives
    EXPECT_EQ(1, Count(m_host, KDDM_CLOSEUP));
    EXPECT_EQ(1, Count(m_other, WM_LBUTTONDOWN));

    CInput::QueuedClick(m_host, 50, 50); // on the host: close asked, the press swallowed
    EXPECT_EQ(2, Count(m_host, KDDM_CLOSEUP));
    EXPECT_EQ(0, Count(m_host, WM_LBUTTONDOWN));

    dropDown.Close();
    // Closed: nothing watched any more (away from the last press: no double click).
    CInput::QueuedClick(m_host, 150, 80);
    EXPECT_EQ(2, Count(m_host, KDDM_CLOSEUP));
    EXPECT_EQ(1, Count(m_host, WM_LBUTTONDOWN));
}

// Opening a second helper asks the first one's host to close, and only one stays open.
TEST_F(CKelDropDownHookTest, OpeningASecondClosesTheFirst)
{
    CKelDropDown first, second;
    ASSERT_TRUE(first.Open(m_host, m_hWndPopup));
    ASSERT_TRUE(second.Open(m_other, m_hWndPopup));
    EXPECT_EQ(1, Count(m_host, KDDM_CLOSEUP));
    EXPECT_FALSE(first.IsOpen());
    EXPECT_EQ(&second, CKelDropDown::GetOpenDropDown());
    EXPECT_FALSE(first.Open(NULL, m_hWndPopup));
}
} // namespace
