#include "KelControls.h"
#include "frame/EditTip.h"
#include <gtest/gtest.h>

#include "tests/frame/EditTipProbe.h"
#include "tests/harness/Input.h"

#include <string>

namespace
{
class CEditTipTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_hParent = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 800, 100, NULL, NULL, NULL, NULL);
        m_hEdit = ::CreateWindowExA(0, "edit", "", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, 0, 0, 700, 24,
                                    m_hParent, NULL, NULL, NULL);
        ASSERT_NE(nullptr, m_hEdit);
        m_hTip = CEditTipProbe::FindTip(m_hEdit);
    }
    void TearDown() override { ::DestroyWindow(m_hParent); }

    std::string TipText() { return CEditTipProbe::AskText(m_hEdit); }

    void SetWidth(int cx) { ::SetWindowPos(m_hEdit, NULL, 0, 0, cx, 24, SWP_NOMOVE | SWP_NOZORDER); }

    HWND m_hParent = NULL;
    HWND m_hEdit = NULL;
    HWND m_hTip = NULL;
};
} // namespace

TEST_F(CEditTipTest, EveryEditOfTheProcessIsOverridden)
{
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(CKelControlsModule::GetInstanceHandle()),
              static_cast<LONG_PTR>(::GetClassLongPtrA(m_hEdit, GCLP_HMODULE)));
    EXPECT_TRUE(::GetClassLongPtrA(m_hEdit, GCL_STYLE) & CS_GLOBALCLASS);
    ASSERT_NE(nullptr, m_hTip);
    EXPECT_EQ(static_cast<DWORD>(WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX), CInput::GetStyle(m_hTip) & 0x80000003);
    // The edit still behaves as an edit.
    CInput::TypeText(m_hEdit, "typed");
    EXPECT_EQ("typed", CInput::GetText(m_hEdit));
}

TEST_F(CEditTipTest, EmptyAndShortTextsShowNoTip)
{
    EXPECT_EQ("", TipText());
    ::SetWindowTextA(m_hEdit, "short");
    EXPECT_EQ("", TipText());
}

TEST_F(CEditTipTest, TheFitTestHasATenPixelMargin)
{
    const char* pszText = "A text of some length for the margin";
    ::SetWindowTextA(m_hEdit, pszText);
    int nLength = static_cast<int>(strlen(pszText));
    int xFirst = static_cast<short>(LOWORD(::SendMessageA(m_hEdit, EM_POSFROMCHAR, 0, 0)));
    int xLast = static_cast<short>(LOWORD(::SendMessageA(m_hEdit, EM_POSFROMCHAR, nLength - 1, 0)));
    int nSpan = xLast - xFirst;
    ASSERT_GT(nSpan, 0);
    SetWidth(nSpan + 11); // span + 10 is less than the width: it fits
    ASSERT_EQ(nSpan, static_cast<short>(LOWORD(::SendMessageA(m_hEdit, EM_POSFROMCHAR, nLength - 1, 0))) - xFirst);
    EXPECT_TRUE(EditTextFits(m_hEdit));
    EXPECT_EQ("", TipText());
    SetWidth(nSpan + 10); // one pixel less: the tip shows the whole text
    EXPECT_FALSE(EditTextFits(m_hEdit));
    EXPECT_EQ(pszText, TipText());
}

TEST_F(CEditTipTest, TextScrolledOutOnTheLeftAlwaysShowsTheTip)
{
    SetWidth(60);
    std::string strText(200, 'w');
    ::SetWindowTextA(m_hEdit, strText.c_str());
    ::SendMessageA(m_hEdit, EM_SETSEL, 200, 200);
    ::SendMessageA(m_hEdit, EM_SCROLLCARET, 0, 0);
    EXPECT_FALSE(EditTextFits(m_hEdit));
    EXPECT_EQ(strText, TipText());
    // A text longer than the tip's 260-character buffer is shown cut to it.
    std::string strLong(400, 'x');
    ::SetWindowTextA(m_hEdit, strLong.c_str());
    EXPECT_EQ(259u, TipText().size());
}

TEST_F(CEditTipTest, DestroyingTheEditDestroysItsTip)
{
    ASSERT_TRUE(::IsWindow(m_hTip));
    ::DestroyWindow(m_hEdit);
    EXPECT_FALSE(::IsWindow(m_hTip));
}

TEST_F(CEditTipTest, HoveringALongTextShowsTheTip)
{
    ::ShowWindow(m_hParent, SW_SHOWNOACTIVATE);
    SetWidth(60);
    ::SetWindowTextA(m_hEdit, "A text far longer than the edit is wide");
    POINT pt = {10, 10};
    ::ClientToScreen(m_hEdit, &pt);
    ::SetCursorPos(pt.x, pt.y); // the tip checks that the pointer is still over its tool
    ::SendMessageA(m_hEdit, WM_MOUSEMOVE, 0, MAKELPARAM(10, 10));
    DWORD dwLimit = ::GetTickCount() + 3000;
    while (!::IsWindowVisible(m_hTip) && ::GetTickCount() < dwLimit)
    {
        MSG msg;
        while (::PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
            ::DispatchMessageA(&msg);
        ::Sleep(10);
    }
    EXPECT_TRUE(::IsWindowVisible(m_hTip));
}
