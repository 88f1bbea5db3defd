// CProgressWnd: its layout, the position kept in the application's profile, the bar and text,
// cancelling by Escape and by a click in modal mode, and the quit message. One window serves
// most tests: under Wine every progress window that goes costs time.
#include <gtest/gtest.h>

#include <string>

#include "indicators/ProgressWnd.h"

namespace
{
const char* const PROFILE = "C:\\windows\\temp\\kel_progress_tests.ini";

class CProgressWndTest : public ::testing::Test
{
protected:
    static CWinApp* s_pApp;
    static CProgressWnd* s_pWnd;

    static void SetUpTestSuite()
    {
        ::DeleteFileA(PROFILE);
        s_pApp = new CWinApp("ProgressHost");
        s_pApp->m_pszProfileName = PROFILE;
        s_pWnd = new CProgressWnd(NULL, "Copying");
    }
    static void TearDownTestSuite()
    {
        delete s_pWnd;
        delete s_pApp;
        ::DeleteFileA(PROFILE);
    }

    static void WriteProfile(const char* pszX, const char* pszY)
    {
        ::WritePrivateProfileStringA("Settings", "X", pszX, PROFILE);
        ::WritePrivateProfileStringA("Settings", "Y", pszY, PROFILE);
    }
    static CRect ChildRect(int nID)
    {
        CRect rect;
        s_pWnd->GetDlgItem(nID)->GetWindowRect(&rect);
        s_pWnd->ScreenToClient(&rect);
        return rect;
    }
    static std::string ChildText(int nID)
    {
        CString str;
        s_pWnd->GetDlgItemText(nID, str);
        return static_cast<LPCTSTR>(str);
    }
};
CWinApp* CProgressWndTest::s_pApp = NULL;
CProgressWnd* CProgressWndTest::s_pWnd = NULL;

TEST_F(CProgressWndTest, WithoutAWindowNothingMoves)
{
    CProgressWnd wnd;
    EXPECT_EQ(0, wnd.SetPos(40));
    EXPECT_EQ(0, wnd.GetPos());
    EXPECT_EQ(0, wnd.StepIt());
    EXPECT_EQ(1, wnd.SetStep(5));
    wnd.SetText("%d", 1);
}

TEST_F(CProgressWndTest, TextAndBarStandInRowsUnderTheTextLines)
{
    EXPECT_EQ(" Cancel ", ChildText(CProgressWnd::IDC_CANCEL));

    int nOneLine = 0;
    for (int nLines : {1, 4})
    {
        SCOPED_TRACE(nLines);
        s_pWnd->SetWindowSize(nLines, 390);
        CRect text = ChildRect(CProgressWnd::IDC_TEXT);
        CRect bar = ChildRect(CProgressWnd::IDC_PROGRESS);
        CRect cancel = ChildRect(CProgressWnd::IDC_CANCEL);
        CRect client;
        s_pWnd->GetClientRect(&client);
        if (nLines == 1)
            nOneLine = text.Height();
        EXPECT_EQ(CRect(10, 10, 370, 10 + nLines * nOneLine), text);
        EXPECT_EQ(text.bottom + 10, cancel.top);
        EXPECT_EQ(text.right, cancel.right);
        EXPECT_EQ(CRect(10, cancel.top, cancel.left - 10, cancel.bottom), bar);
        EXPECT_EQ(CRect(0, 0, text.right + 10, cancel.bottom + 10), client);
    }
    EXPECT_GT(nOneLine, 0);
}

TEST_F(CProgressWndTest, PositionComesFromTheProfileWhenItIsOnTheScreen)
{
    CRect work, window;
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    s_pWnd->GetWindowRect(&window);
    const CPoint centred((work.left + work.right - window.Width()) / 2, (work.top + work.bottom - window.Height()) / 2);
    const std::string strOffRight = std::to_string(::GetSystemMetrics(SM_CXSCREEN));
    const struct
    {
        const char* pszX;
        const char* pszY;
        CPoint expected;
    } aCases[] = {
        {"30", "40", CPoint(30, 40)}, {"-1", "-1", centred}, {strOffRight.c_str(), "40", centred},
        {"30", "-5", centred},        {NULL, NULL, centred},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(std::string(c.pszX != NULL ? c.pszX : "none") + "," + (c.pszY != NULL ? c.pszY : "none"));
        s_pWnd->SetWindowPos(NULL, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        WriteProfile(c.pszX, c.pszY);
        s_pWnd->GetPreviousSettings();
        s_pWnd->GetWindowRect(&window);
        EXPECT_EQ(c.expected, window.TopLeft());
    }

    s_pWnd->SetWindowPos(NULL, 50, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    s_pWnd->SaveCurrentSettings();
    EXPECT_EQ(50, static_cast<int>(::GetPrivateProfileIntA("Settings", "X", -1, PROFILE)));
    EXPECT_EQ(60, static_cast<int>(::GetPrivateProfileIntA("Settings", "Y", -1, PROFILE)));
}

TEST_F(CProgressWndTest, PositionTextAndCaption)
{
    s_pWnd->SetRange(0, 50, 10);
    s_pWnd->Clear();
    s_pWnd->SetWindowText("Copying 3 files");
    EXPECT_EQ(0, s_pWnd->SetPos(20));
    CString strCaption;
    s_pWnd->GetWindowText(strCaption);
    EXPECT_STREQ("Copying", strCaption);
    EXPECT_EQ(20, s_pWnd->StepIt());
    EXPECT_EQ(30, s_pWnd->OffsetPos(-5));
    EXPECT_EQ(25, s_pWnd->GetPos());

    s_pWnd->SetText("%d of %s", 3, "ten");
    EXPECT_EQ("3 of ten", ChildText(CProgressWnd::IDC_TEXT));
    s_pWnd->SetText("%s", std::string(600, 'x').c_str());
    EXPECT_EQ(std::string(511, 'x'), ChildText(CProgressWnd::IDC_TEXT));
}

TEST_F(CProgressWndTest, EscapeCancelsOnlyWhenAskedAndClearForgetsIt)
{
    s_pWnd->SetText("busy");
    for (BOOL bCancelOnEscape : {FALSE, TRUE})
    {
        SCOPED_TRACE(bCancelOnEscape);
        s_pWnd->PostMessage(WM_CHAR, VK_ESCAPE);
        EXPECT_EQ(!bCancelOnEscape, s_pWnd->PeekAndPump(bCancelOnEscape));
        EXPECT_EQ(bCancelOnEscape, s_pWnd->Cancelled());
        EXPECT_EQ(!bCancelOnEscape, s_pWnd->IsWindowVisible());
        MSG msg;
        EXPECT_FALSE(::PeekMessage(&msg, NULL, WM_CHAR, WM_CHAR, PM_NOREMOVE)); // handled, not left behind
    }
    EXPECT_FALSE(s_pWnd->PeekAndPump());
    s_pWnd->Clear();
    EXPECT_FALSE(s_pWnd->Cancelled());
    EXPECT_EQ(0, s_pWnd->GetPos());
    EXPECT_EQ("", ChildText(CProgressWnd::IDC_TEXT));
    s_pWnd->SetPos(5);
    EXPECT_TRUE(s_pWnd->IsWindowVisible()); // the cancel hid it, a move shows it again
    EXPECT_TRUE(s_pWnd->PeekAndPump());
}

TEST_F(CProgressWndTest, TheQuitMessageEndsThePumpAndStaysForTheCallersLoop)
{
    ::PostQuitMessage(7);
    EXPECT_FALSE(s_pWnd->PeekAndPump());
    EXPECT_FALSE(s_pWnd->Cancelled());
    MSG msg;
    ASSERT_TRUE(::PeekMessage(&msg, NULL, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(7u, msg.wParam);
}

TEST_F(CProgressWndTest, ModalModeDisablesTheMainWindowUntilACancelClickClosesAndSavesThePosition)
{
    CWnd main;
    ASSERT_TRUE(main.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 640, 480, NULL, NULL));
    main.ShowWindow(SW_SHOWNOACTIVATE);
    s_pApp->m_pMainWnd = &main;
    WriteProfile(NULL, NULL);
    CProgressWnd wnd;
    ASSERT_TRUE(wnd.GoModal("Saving"));
    CRect window;
    wnd.GetWindowRect(&window);
    EXPECT_EQ(main.m_hWnd, ::GetWindow(wnd.m_hWnd, GW_OWNER));
    EXPECT_FALSE(main.IsWindowEnabled());
    EXPECT_TRUE(wnd.PeekAndPump());

    // A click released over Cancel reaches the disabled main window, not the button.
    CRect cancel;
    wnd.GetDlgItem(CProgressWnd::IDC_CANCEL)->GetWindowRect(&cancel);
    CPoint point = cancel.CenterPoint();
    main.ScreenToClient(&point);
    main.PostMessage(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    EXPECT_FALSE(wnd.PeekAndPump());
    EXPECT_TRUE(wnd.Cancelled());
    EXPECT_EQ(nullptr, wnd.m_hWnd); // closed
    EXPECT_TRUE(main.IsWindowEnabled());
    // The position it had is kept for the next window.
    EXPECT_EQ(window.left, static_cast<int>(::GetPrivateProfileIntA("Settings", "X", -1, PROFILE)));
    EXPECT_EQ(window.top, static_cast<int>(::GetPrivateProfileIntA("Settings", "Y", -1, PROFILE)));
    s_pApp->m_pMainWnd = NULL;
    main.DestroyWindow();
}
} // namespace
