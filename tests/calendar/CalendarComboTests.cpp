// The calendar combo and the calendar button: what the calendar opens on, the text written back
// in each style, the closing order of the combo's notifications, the keys taken while open
// through the message loop's pre-translation, and the button's buddies.
#include "grid/KelDropDown.h"
#include "tests/controls/ControlHost.h"
#include "tests/harness/MessageSequence.h"

namespace
{
const int IDC_COMBO = 201, IDC_BUTTON = 202, IDC_BUDDY = 203;
// What the parent below lets through reaches the recorder's own procedure.
const UINT PARENT = SEQ_SENT | SEQ_DEFPROC;

// A key posted to the focus window and run through the loop as an MFC program's would: the
// controls' PreTranslateMessage first.
void PressThroughLoop(HWND hWnd, UINT vk, bool bAlt = false)
{
    ::PostMessage(hWnd, bAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, vk, bAlt ? (1 << 29) | 1 : 1);
    MSG msg;
    while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
    {
        if (!AfxPreTranslateMessage(&msg))
        {
            ::TranslateMessage(&msg);
            ::DispatchMessage(&msg);
        }
    }
}

// A click on a day of an open popup calendar.
void ClickDay(CKelCalendar* pCal, double dDay)
{
    CInput::Click(*pCal, CellOf(*pCal, dDay).CenterPoint().x, CellOf(*pCal, dDay).CenterPoint().y);
}

class CCalendarComboTest : public CControlHost
{
protected:
    CCalendarCombo m_combo;

    void SetUp() override
    {
        CControlHost::SetUp();
        ASSERT_TRUE(m_combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN | CBS_AUTOHSCROLL, CRect(10, 10, 160, 200),
                                   &m_host, IDC_COMBO));
        ASSERT_NE(nullptr, m_combo.GetCalendar());
        m_combo.GetCalendar()->SetToday(Day(2003, 10, 17));
        m_parent.SetPayloadSize(CALN_VIEWCHANGE, sizeof(NMKELCALENDAR));
    }
    HWND Edit() const { return ::GetWindow(m_combo, GW_CHILD); }
};

TEST_F(CCalendarComboTest, InvalidTextOpensOnTodayAndTheChoiceIsWrittenInTheComboStyle)
{
    const struct
    {
        int nStyle;
        const char* pszExpected;
    } cases[] = {{0, "09/05/2003"}, {3, "09/03"}};
    for (const auto& c : cases)
    {
        m_combo.SetDateStyle(c.nStyle);
        m_combo.SetWindowText("13/45/2003");
        m_parent.Clear();
        CMessageSequence seq;
        seq.Watch(m_parent, "parent");
        ASSERT_TRUE(m_combo.ShowDropDown(TRUE));
        CKelCalendar* pCal = m_combo.GetCalendar();
        CKelDate sel(0);
        EXPECT_FALSE(pCal->GetCurSel(sel));
        short nYear, nMonth;
        pCal->GetViewMonth(nYear, nMonth);
        EXPECT_EQ(10, nMonth);
        EXPECT_TRUE(::IsWindowVisible(*pCal));
        EXPECT_EQ(TRUE, m_combo.SendMessage(CB_GETDROPPEDSTATE));
        CRect rcPopup, rcCombo;
        m_combo.SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&rcPopup));
        m_combo.GetWindowRect(rcCombo);
        EXPECT_EQ(rcCombo.bottom, rcPopup.top);

        pCal->SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0); // back to September
        ClickDay(pCal, Day(2003, 9, 5));
        EXPECT_FALSE(::IsWindowVisible(*pCal));
        EXPECT_EQ(c.pszExpected, CInput::GetText(Edit()));
        EXPECT_TRUE(seq.Check({
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(IDC_COMBO, CBN_DROPDOWN)},
            {"parent", WM_NOTIFY, PARENT | SEQ_LPARAM, 0, CALN_VIEWCHANGE}, // opened on October
            {"parent", WM_NOTIFY, PARENT | SEQ_LPARAM, 0, CALN_VIEWCHANGE}, // the wheel
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(IDC_COMBO, CBN_SELENDOK)},
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM | SEQ_OPTIONAL, MAKEWPARAM(IDC_COMBO, CBN_EDITUPDATE)},
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM | SEQ_OPTIONAL, MAKEWPARAM(IDC_COMBO, CBN_EDITCHANGE)},
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(IDC_COMBO, CBN_CLOSEUP)},
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(IDC_COMBO, CBN_SELCHANGE)},
        }));
        EXPECT_EQ(IDC_COMBO, int(m_parent.GetLast<NMKELCALENDAR>(CALN_VIEWCHANGE)->hdr.idFrom));
    }
}

TEST_F(CCalendarComboTest, KeysWhileOpenMoveTheCalendarAndEscapeLeavesTheText)
{
    m_combo.SetWindowText("09/05/2003");
    ::SetFocus(Edit());
    PressThroughLoop(Edit(), VK_DOWN, true); // Alt+Down opens
    ASSERT_TRUE(m_combo.GetDroppedState());
    EXPECT_EQ(::GetFocus(), Edit());
    PressThroughLoop(Edit(), VK_RIGHT);
    PressThroughLoop(Edit(), VK_DOWN);
    CKelDate sel(0);
    ASSERT_TRUE(m_combo.GetCalendar()->GetCurSel(sel));
    EXPECT_EQ(Day(2003, 9, 13), sel.JulianValue());
    EXPECT_EQ("09/05/2003", CInput::GetText(Edit())); // the edit never saw the keys

    CMessageSequence seq;
    seq.Watch(m_parent, "parent");
    PressThroughLoop(Edit(), VK_ESCAPE);
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_EQ("09/05/2003", CInput::GetText(Edit()));
    EXPECT_TRUE(seq.Check({
        {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(IDC_COMBO, CBN_SELENDCANCEL)},
        {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(IDC_COMBO, CBN_CLOSEUP)},
    }));

    PressThroughLoop(Edit(), VK_F4);
    PressThroughLoop(Edit(), VK_NEXT);
    PressThroughLoop(Edit(), VK_RETURN);
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_EQ("10/05/2003", CInput::GetText(Edit()));

    // The drop-down's mouse watch asks the combo to close without taking.
    m_combo.ShowDropDown(TRUE);
    PressThroughLoop(Edit(), VK_RIGHT);
    m_combo.SendMessage(KDDM_CLOSEUP, 0);
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_EQ("10/05/2003", CInput::GetText(Edit()));
}

TEST_F(CCalendarComboTest, BoundsLimitTheCalendarDays)
{
    m_combo.SetMinMaxValues(Day(2003, 9, 10), Day(2003, 9, 20));
    m_combo.SetWindowText("09/15/2003");
    ASSERT_TRUE(m_combo.ShowDropDown(TRUE));
    CKelCalendar* pCal = m_combo.GetCalendar();
    ::SetFocus(Edit());
    ClickDay(pCal, Day(2003, 9, 5));
    EXPECT_TRUE(m_combo.GetDroppedState());
    EXPECT_EQ(Edit(), ::GetFocus()); // the popup calendar never takes the focus
    CKelDate sel(0);
    ASSERT_TRUE(pCal->GetCurSel(sel));
    EXPECT_EQ(Day(2003, 9, 15), sel.JulianValue());
    ClickDay(pCal, Day(2003, 9, 20));
    EXPECT_EQ("09/20/2003", CInput::GetText(Edit()));
}

class CCalendarButtonTest : public CControlHost
{
protected:
    CCalendarButton m_button;

    void SetUp() override
    {
        CControlHost::SetUp();
        ASSERT_TRUE(m_button.Create("...", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(200, 10, 230, 32),
                                    &m_host, IDC_BUTTON));
        m_parent.SetPayloadSize(CALN_SELECT, sizeof(NMKELCALENDAR));
    }
};

TEST_F(CCalendarButtonTest, ChoiceGoesIntoTheBuddyInItsStyleThenToTheParent)
{
    CDateEdit dateEdit;
    dateEdit.SetDateStyle(1);
    ASSERT_TRUE(dateEdit.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(10, 10, 190, 32), &m_host,
                                IDC_BUDDY));
    CEdit plainEdit;
    ASSERT_TRUE(plainEdit.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(10, 40, 190, 62),
                                 &m_host, IDC_BUDDY + 1));
    plainEdit.SetWindowText("09/01/2003");
    const struct
    {
        CWnd* pBuddy;
        bool bDateEdit;
        const char* pszExpected;
    } cases[] = {{&dateEdit, true, "09/05/03"}, {&plainEdit, false, "09/05/2003"}};
    for (const auto& c : cases)
    {
        if (c.bDateEdit)
            m_button.SetBuddy(&dateEdit);
        else
            m_button.SetBuddy(c.pBuddy);
        dateEdit.SetWindowText("09/01/03");
        CInput::Click(m_button, 5, 5);
        ASSERT_TRUE(m_button.GetDroppedState());
        CKelCalendar* pCal = m_button.GetCalendar();
        CKelDate sel(0);
        ASSERT_TRUE(pCal->GetCurSel(sel));
        EXPECT_EQ(Day(2003, 9, 1), sel.JulianValue());
        CRect rcPopup, rcButton;
        pCal->GetWindowRect(rcPopup);
        m_button.GetWindowRect(rcButton);
        EXPECT_EQ(rcButton.right, rcPopup.right);

        m_parent.Clear();
        CMessageSequence seq;
        seq.Watch(m_parent, "parent");
        const int nBuddy = c.pBuddy->GetDlgCtrlID();
        ClickDay(pCal, Day(2003, 9, 5));
        EXPECT_EQ(c.pszExpected, CInput::GetText(*c.pBuddy));
        EXPECT_TRUE(seq.Check({
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM | SEQ_OPTIONAL, MAKEWPARAM(nBuddy, EN_UPDATE)},
            {"parent", WM_COMMAND, PARENT | SEQ_WPARAM, MAKEWPARAM(nBuddy, EN_CHANGE)}, // before the choice
            {"parent", WM_NOTIFY, PARENT | SEQ_WPARAM | SEQ_LPARAM, IDC_BUTTON, CALN_SELECT},
        }));
        EXPECT_EQ(Day(2003, 9, 5), m_parent.GetLast<NMKELCALENDAR>(CALN_SELECT)->dDay);
        EXPECT_FALSE(m_button.GetDroppedState());
    }
    CKelDate date(0);
    EXPECT_TRUE(m_button.GetDate(date));
    EXPECT_EQ(Day(2003, 9, 5), date.JulianValue());

    // A second click closes without a change; the parent hears both clicks.
    m_parent.Clear();
    CInput::Click(m_button, 5, 5);
    PressThroughLoop(m_button, VK_RIGHT);
    CInput::Click(m_button, 5, 5);
    EXPECT_FALSE(m_button.GetDroppedState());
    EXPECT_EQ("09/05/2003", CInput::GetText(plainEdit));
    EXPECT_EQ(0, m_parent.GetCount(CALN_SELECT));
    EXPECT_EQ(2u, m_parent.GetCommands().size());
}
} // namespace
