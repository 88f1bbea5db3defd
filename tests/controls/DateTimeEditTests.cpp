// The date edit, the time edits over KEL_Util's entry windows and the no-edit window.
#include "tests/controls/ControlHost.h"

namespace
{
typedef CControlHost DateTimeEditTest;

TEST_F(DateTimeEditTest, DateTypingLetsThroughOnlyDateCharactersAndTheDateJudgesTheRest)
{
    const struct
    {
        const char *pszTyped, *pszShown;
        size_t nBeeps;
        const char* pszMessage; // CKelDate's, when the value is read; NULL when it reads
    } aCases[] = {{"12/3a", "12/3", 1, NULL},
                  {"12-03-2003", "12-03-2003", 0, NULL},
                  {"12\\03\\2003", "12\\03\\2003", 0, "Invalid character found in date"}};
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
        EXPECT_EQ(c.pszMessage == NULL ? 2003 : 2001, date.GetYear());
        if (c.pszMessage != NULL)
        {
            ASSERT_EQ(1u, Records().m_messageBoxes.size());
            EXPECT_EQ(c.pszMessage, Records().m_messageBoxes[0].m_strText);
            EXPECT_EQ("Start", Records().m_messageBoxes[0].m_strCaption);
        }
    }
}

TEST_F(DateTimeEditTest, DateIsWrittenInTheStyleWithTheSeparatorAndOtherStylesLeaveTheText)
{
    const char* apszShown[] = {"09-05-2003", "09-05-03", "09-2003", "09-03", "old", "old"};
    for (int nStyle = 0; nStyle < 6; ++nStyle)
    {
        CDateEdit edit;
        CreateEdit(edit);
        edit.SetWindowText("old");
        edit.SetDateStyle(nStyle == 5 ? -1 : nStyle);
        edit.SetDateSeperator('-');
        edit = CKelDate(2003, 9, 5).JulianValue();
        EXPECT_EQ(apszShown[nStyle], CInput::GetText(edit)) << nStyle;
    }
}

// 61.5 s go to a "TimeClass" entry window as 61 s, to a "MsTimeClass" one as 61500 ms.
template <class TEdit>
void CheckTimeEdit(CWnd* pHost, LRESULT lSent, long lReadBack)
{
    TEdit edit;
    ASSERT_TRUE(edit.Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 120, 24), pHost, 71));
    HWND hWndTime = edit.GetTimeWnd();
    ASSERT_EQ(::GetDlgItem(edit, CTimeEdit::IDC_TIME_FIELD), hWndTime);
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
    EXPECT_EQ(0, static_cast<long>(edit)); // no entry window reads 0
}

TEST_F(DateTimeEditTest, TimeEditsExchangeSecondsOrMillisecondsWithTheirEntryWindow)
{
    CheckTimeEdit<CTimeEdit>(&m_host, 61, 61000);
    CheckTimeEdit<CMsTimeEdit>(&m_host, 61500, 61500);
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
    } aCases[] = {{2, '0', TRUE},  {2, '9', TRUE},       {3, VK_NUMPAD0, TRUE}, {2, VK_NUMPAD9, TRUE},
                  {2, 'A', FALSE}, {2, VK_RIGHT, FALSE}, {1, '5', FALSE},       {0, VK_NUMPAD5, FALSE}};
    for (const auto& c : aCases)
    {
        ::SetWindowLongA(edit.GetTimeWnd(), 0, c.nField);
        // As the message loop sees a key for the entry window: the host is asked on the way up.
        MSG msg = {edit.GetTimeWnd(), WM_KEYDOWN, c.vk, 0, 0, {0, 0}};
        EXPECT_EQ(c.bSwallowed, CWnd::WalkPreTranslateTree(m_parent.GetSafeHwnd(), &msg)) << c.vk;
    }
}

TEST_F(DateTimeEditTest, NoEditSwallowsTextAndPassesNavigationKeysToItsParent)
{
    CNoEdit wnd;
    ASSERT_TRUE(wnd.Create(NULL, NULL, WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &m_host, 72));
    m_parent.RecordMessage(WM_APP + 200);
    m_parent.RecordMessage(WM_APP + 201);
    EXPECT_EQ(static_cast<LRESULT>(DLGC_WANTTAB | DLGC_WANTARROWS | DLGC_WANTCHARS), wnd.SendMessage(WM_GETDLGCODE));
    CInput::TypeText(wnd, "abc");
    const struct
    {
        UINT vk, fModifiers, uMsg;
        LPARAM lParam;
    } aKeys[] = {{VK_TAB, 0, WM_APP + 200, 1}, {VK_TAB, CInput::SHIFT, WM_APP + 200, 0}, {VK_UP, 0, WM_APP + 201, 1},
                 {VK_DOWN, 0, WM_APP + 201, 0}, {VK_LEFT, 0, 0, 0}};
    for (const auto& key : aKeys)
        CInput::PressKey(wnd, key.vk, key.fModifiers);
    const auto& messages = m_parent.GetMessages();
    ASSERT_EQ(4u, messages.size());
    for (size_t i = 0; i < messages.size(); ++i)
    {
        EXPECT_EQ(aKeys[i].uMsg, messages[i].m_uMsg) << i;
        EXPECT_EQ(reinterpret_cast<WPARAM>(wnd.m_hWnd), messages[i].m_wParam) << i;
        EXPECT_EQ(aKeys[i].lParam, messages[i].m_lParam) << i;
    }
}
} // namespace
