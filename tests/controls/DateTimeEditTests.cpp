// The date edit, the time edits over KEL_Util's entry windows and the no-edit window.
#include "tests/controls/EditHost.h"

namespace
{
class DateTimeEditTest : public CEditHost
{
};

TEST_F(DateTimeEditTest, DateTypingLetsThroughOnlyDateCharactersAndTheDateJudgesTheRest)
{
    const struct
    {
        const char* pszTyped;
        const char* pszShown;
        size_t nBeeps;
        const char* pszMessage; // from CKelDate when the value is read; NULL when it reads
    } aCases[] = {
        {"12/3a", "12/3", 1, NULL},
        {"12-03-2003", "12-03-2003", 0, NULL},
        {"12\\03\\2003", "12\\03\\2003", 0, "Invalid character found in date"},
        {"13/03/2003", "13/03/2003", 0, "Invalid Month"},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszTyped);
        CDateEdit edit;
        CreateEdit(edit);
        edit.SetControlName("Start");
        CImportRecorder::Get().ClearRecords();
        CInput::TypeText(edit, c.pszTyped);
        EXPECT_EQ(c.pszShown, CInput::GetText(edit));
        EXPECT_EQ(c.nBeeps, Records().m_beeps.size());
        CKelDate date(2001, 1, 1);
        EXPECT_EQ(c.pszMessage == NULL, edit.GetValue(date) != 0);
        if (c.pszMessage == NULL)
            continue;
        ASSERT_EQ(1u, Records().m_messageBoxes.size());
        EXPECT_EQ(c.pszMessage, Records().m_messageBoxes[0].m_strText);
        EXPECT_EQ("Start", Records().m_messageBoxes[0].m_strCaption);
        EXPECT_EQ(m_host.m_hWnd, Records().m_messageBoxes[0].m_hWndOwner);
        EXPECT_EQ(2001, date.GetYear()); // left alone on failure
    }
}

TEST_F(DateTimeEditTest, DateIsWrittenInTheStyleWithTheSeparatorAndOtherStylesLeaveTheText)
{
    const struct
    {
        int nStyle;
        const char* pszShown;
    } aCases[] = {{0, "09-05-2003"}, {1, "09-05-03"}, {2, "09-2003"}, {3, "09-03"}, {4, "old"}, {-1, "old"}};
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.nStyle);
        CDateEdit edit;
        CreateEdit(edit);
        edit.SetWindowText("old");
        edit.SetDateStyle(c.nStyle);
        edit.SetDateSeperator('-');
        CKelDate date(2003, 9, 5);
        edit = date;
        EXPECT_EQ(c.pszShown, CInput::GetText(edit));
    }
    // A month/year form is read only while both of its styles are allowed.
    CDateEdit edit;
    CreateEdit(edit);
    edit.SetDisplayErrMsg(FALSE);
    edit = CKelDate(2003, 9, 5).JulianValue();
    EXPECT_EQ(CKelDate(2003, 9, 5).JulianValue(), static_cast<double>(edit));
    edit.SetWindowText("09/2003");
    EXPECT_TRUE(edit.Validate());
    edit.MakeStyleValid(CKelDate::DATE_MMYY, FALSE);
    EXPECT_FALSE(edit.Validate());
}

// The entry window keeps whole seconds ("TimeClass") or milliseconds ("MsTimeClass").
template <class TEdit>
void CheckTimeExchange(CWnd* pHost, LRESULT lSent, long lReadBack)
{
    TEdit edit;
    ASSERT_TRUE(edit.Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 120, 24), pHost, 71));
    HWND hWndTime = edit.GetTimeWnd();
    ASSERT_TRUE(::IsWindow(hWndTime));
    EXPECT_EQ(::GetDlgItem(edit, CTimeEdit::IDC_TIME_FIELD), hWndTime);
    EXPECT_EQ(0x50008401u, static_cast<DWORD>(::GetWindowLongA(hWndTime, GWL_STYLE)));
    edit = 61500L;
    EXPECT_EQ(lSent, ::SendMessage(hWndTime, WM_USER + 1, 0, 0));
    EXPECT_EQ(lReadBack, static_cast<long>(edit));

    edit.SetFocus();
    EXPECT_EQ(hWndTime, ::GetFocus());
    edit.EnableWindow(FALSE);
    EXPECT_FALSE(::IsWindowEnabled(hWndTime));
    edit.DestroyWindow();
    EXPECT_FALSE(::IsWindow(hWndTime));
    EXPECT_EQ(NULL, edit.GetTimeWnd());
    CKelTime time(5L);
    EXPECT_TRUE(edit.GetValue(time)); // never fails; no entry window reads 0
    EXPECT_EQ(0, static_cast<long>(time));
}

TEST_F(DateTimeEditTest, TimeEditsExchangeSecondsOrMillisecondsWithTheirEntryWindow)
{
    CheckTimeExchange<CTimeEdit>(&m_host, 61, 61000);
    CheckTimeExchange<CMsTimeEdit>(&m_host, 61500, 61500);
}

TEST_F(DateTimeEditTest, HourTimeEditSwallowsDigitKeysPastTheMinutes)
{
    CHourTimeEdit edit;
    ASSERT_TRUE(edit.Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 120, 24), &m_host, 71));
    const struct
    {
        LONG nField;
        WPARAM vk;
        BOOL bSwallowed;
    } aCases[] = {{2, '0', TRUE},      {2, '9', TRUE},        {3, VK_NUMPAD0, TRUE}, {2, VK_NUMPAD9, TRUE},
                  {2, 'A', FALSE},     {2, VK_RIGHT, FALSE},  {1, '5', FALSE},       {0, VK_NUMPAD5, FALSE}};
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.vk);
        ::SetWindowLongA(edit.GetTimeWnd(), 0, c.nField);
        // As the message loop sees a key for the entry window: the host is asked on the way up.
        MSG msg = {edit.GetTimeWnd(), WM_KEYDOWN, c.vk, 0, 0, {0, 0}};
        EXPECT_EQ(c.bSwallowed, CWnd::WalkPreTranslateTree(m_parent.GetSafeHwnd(), &msg));
    }
}

TEST_F(DateTimeEditTest, NoEditSwallowsTextAndPassesNavigationKeysToItsParent)
{
    CNoEdit wnd;
    ASSERT_TRUE(wnd.Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20),
                           CWnd::FromHandle(m_parent.GetSafeHwnd()), 72));
    m_parent.RecordMessage(WM_APP + 200);
    m_parent.RecordMessage(WM_APP + 201);
    EXPECT_EQ(static_cast<LRESULT>(DLGC_WANTTAB | DLGC_WANTARROWS | DLGC_WANTCHARS),
              wnd.SendMessage(WM_GETDLGCODE));
    CInput::TypeText(wnd, "abc");
    CInput::PressKey(wnd, VK_TAB);
    CInput::PressKey(wnd, VK_TAB, CInput::SHIFT);
    CInput::PressKey(wnd, VK_UP);
    CInput::PressKey(wnd, VK_DOWN);
    CInput::PressKey(wnd, VK_LEFT);
    EXPECT_EQ("", CInput::GetText(wnd));
    const CNotifyRecorder::CMessage aExpected[] = {{WM_APP + 200, reinterpret_cast<WPARAM>(wnd.m_hWnd), 1},
                                                   {WM_APP + 200, reinterpret_cast<WPARAM>(wnd.m_hWnd), 0},
                                                   {WM_APP + 201, reinterpret_cast<WPARAM>(wnd.m_hWnd), 1},
                                                   {WM_APP + 201, reinterpret_cast<WPARAM>(wnd.m_hWnd), 0}};
    const auto& messages = m_parent.GetMessages();
    ASSERT_EQ(4u, messages.size());
    for (size_t i = 0; i < messages.size(); ++i)
    {
        EXPECT_EQ(aExpected[i].m_uMsg, messages[i].m_uMsg) << i;
        EXPECT_EQ(aExpected[i].m_wParam, messages[i].m_wParam) << i;
        EXPECT_EQ(aExpected[i].m_lParam, messages[i].m_lParam) << i;
    }
}
} // namespace
