// The edit base: the text cached in the object, the colours handed to the parent, and the
// class-wide focus procedures with their guards.
#include "tests/controls/ControlHost.h"

#include <vector>

namespace
{
std::vector<std::string> s_calls;
CWnd* s_pFocusTarget = NULL; // where the set-focus procedure moves the focus, if anywhere

std::string Name(CWnd* pWnd)
{
    return pWnd != NULL ? std::to_string(pWnd->GetDlgCtrlID()) : "none";
}

void OnSetFocusProc(CWnd* pThis, CWnd* pOld)
{
    s_calls.push_back("set " + Name(pThis) + " from " + Name(pOld));
    if (s_pFocusTarget != NULL)
        s_pFocusTarget->SetFocus();
}

void OnKillFocusProc(CWnd* pThis, CWnd* pNew)
{
    s_calls.push_back("kill " + Name(pThis) + " to " + Name(pNew));
}
} // namespace

class CStringEditTest : public CControlHost
{
protected:
    void TearDown() override
    {
        // The procedures are class-wide: leave none behind for other tests.
        m_edit.SetSetFocusProc(NULL);
        m_edit.SetKillFocusProc(NULL);
        s_calls.clear();
        s_pFocusTarget = NULL;
        CControlHost::TearDown();
    }

    CStringEdit m_edit;
};

TEST_F(CStringEditTest, TextIsCachedBeforeAndAfterTheWindow)
{
    m_edit = "abcdef";
    char szBuffer[4];
    EXPECT_EQ(3, m_edit.GetWindowText(szBuffer, sizeof(szBuffer)));
    EXPECT_STREQ("abc", szBuffer);

    // Only a dialog parent gets the cached text written into the new window.
    CLongEdit edit;
    edit = 5L;
    CreateEdit(edit);
    EXPECT_EQ("", Text(edit));
    CInput::TypeText(edit, "42");
    ASSERT_TRUE(edit.DestroyWindow());
    EXPECT_STREQ("42", edit.GetWindowText());
    EXPECT_EQ(42, edit.GetValue());

    // Short texts are read in one go, longer ones whole.
    CreateEdit(m_edit);
    for (size_t nLength : {62, 63, 64, 300})
    {
        const std::string strText(nLength, 'x');
        m_edit = strText.c_str();
        EXPECT_EQ(strText, static_cast<LPCTSTR>(m_edit.GetWindowText()));
    }
}

TEST_F(CStringEditTest, ReflectedColourMessageSetsColoursAndAFreshBrush)
{
    CreateEdit(m_edit);
    m_edit.SetTextColor(RGB(200, 0, 0));
    HDC hDC = ::GetDC(m_edit);
    for (COLORREF crBack : {RGB(0, 0, 100), RGB(0, 120, 0)})
    {
        m_edit.SetBkColor(crBack);
        HBRUSH hBrush = reinterpret_cast<HBRUSH>(
            m_host.SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(hDC), reinterpret_cast<LPARAM>(m_edit.m_hWnd)));
        LOGBRUSH lb = {};
        ASSERT_EQ(static_cast<int>(sizeof(lb)), ::GetObject(hBrush, sizeof(lb), &lb));
        EXPECT_EQ(crBack, lb.lbColor);
        EXPECT_EQ(crBack, ::GetBkColor(hDC));
        EXPECT_EQ(RGB(200, 0, 0), ::GetTextColor(hDC));
    }
    ::ReleaseDC(m_edit, hDC);
}

TEST_F(CStringEditTest, FocusProceduresRunWhenAskedAndNeverIntoThemselves)
{
    // 101 asks by its booleans, 102 by an external switch, 103 not at all.
    CStringEdit edit2, edit3;
    CreateEdit(m_edit);
    CreateEdit(edit2);
    CreateEdit(edit3);
    int bSwitch = 1;
    m_edit.SetCallOnFocusProcs(1);
    edit2.SetCallOnFocusProcs(&bSwitch);
    m_edit.SetSetFocusProc(OnSetFocusProc);
    m_edit.SetKillFocusProc(OnKillFocusProc);

    edit3.SetFocus();
    m_edit.SetFocus();
    edit2.SetFocus();
    edit3.SetFocus();
    EXPECT_EQ((std::vector<std::string>{"set 101 from 103", "kill 101 to 102", "set 102 from 101", "kill 102 to 103"}),
              s_calls);
    // With its switch off 102 no longer asks.
    bSwitch = 0;
    s_calls.clear();
    edit2.SetFocus();
    edit3.SetFocus();
    EXPECT_TRUE(s_calls.empty());

    // The procedure moves the focus on: 102 gains it while the set-focus guard is up, so only
    // the kill-focus procedure of 101 runs inside it.
    bSwitch = 1;
    s_pFocusTarget = &edit2;
    m_edit.SetFocus();
    EXPECT_EQ((std::vector<std::string>{"set 101 from 103", "kill 101 to 102"}), s_calls);
    EXPECT_EQ(edit2.m_hWnd, ::GetFocus());
}
