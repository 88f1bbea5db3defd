// CKelCalendar in real windows: the month's layout and hit tests, the pixels of the colours and
// markers, mouse and keyboard navigation with the notifications in their order, the repeat
// timer of the arrow buttons, and the refusals of the member calls.
#include "capture/WindowImage.h"
#include "tests/controls/ControlHost.h"
#include "tests/harness/MessageSequence.h"

#include <commctrl.h>

#include <utility>

namespace
{
const int IDC_CAL = 101;

// SetTimer and KillTimer as the library calls them: the repeat's delays without waiting.
struct CTimerCall
{
    bool bSet;
    UINT_PTR nID;
    UINT nElapse;
};
std::vector<CTimerCall> s_timerCalls;

UINT_PTR WINAPI RecordSetTimer(HWND, UINT_PTR nID, UINT nElapse, TIMERPROC)
{
    s_timerCalls.push_back({true, nID, nElapse});
    return nID;
}

BOOL WINAPI RecordKillTimer(HWND, UINT_PTR nID)
{
    s_timerCalls.push_back({false, nID, 0});
    return TRUE;
}

class CCalendarTest : public CControlHost
{
protected:
    CKelCalendar m_cal;
    CImportRecorder& m_recorder = CImportRecorder::Get();

    void SetUp() override
    {
        CControlHost::SetUp();
        for (UINT uCode : {CALN_SELCHANGE, CALN_SELECT, CALN_VIEWCHANGE, CALN_DAYRCLICK})
            m_parent.SetPayloadSize(uCode, sizeof(NMKELCALENDAR));
        ASSERT_TRUE(m_cal.SetToday(Day(2003, 9, 17)));
        ASSERT_TRUE(m_cal.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 280, 210), &m_host, IDC_CAL,
                                 KCS_MULTISELECT));
        ASSERT_TRUE(m_cal.SetViewMonth(2003, 9));
        m_parent.Clear();
    }

    CPoint CentreOf(double dDay) const { return CellOf(m_cal, dDay).CenterPoint(); }
    std::vector<UINT> Codes() const
    {
        std::vector<UINT> codes;
        for (const auto& notify : m_parent.GetNotifies())
            codes.push_back(notify.m_uCode);
        return codes;
    }
};

TEST_F(CCalendarTest, FirstShownDayFollowsTheFirstDayOfTheWeek)
{
    struct
    {
        short nYear, nMonth;
        int nFirstDay;
        double dFirstCell;
    } const cases[] = {
        {2003, 9, 0, Day(2003, 8, 31)}, // 1 September 2003 was a Monday
        {2003, 9, 1, Day(2003, 9, 1)},  // a month that begins on the first day starts in row 0
        {2003, 6, 0, Day(2003, 6, 1)},
        {2000, 1, 6, Day(2000, 1, 1)}, // day 2451545 is a Saturday
        {2000, 1, 0, Day(1999, 12, 26)},
    };
    for (const auto& c : cases)
    {
        ASSERT_TRUE(m_cal.SetFirstDayOfWeek(c.nFirstDay));
        ASSERT_TRUE(m_cal.SetViewMonth(c.nYear, c.nMonth));
        EXPECT_EQ(c.dFirstCell, m_cal.GetFirstShownDay()) << c.nYear << "/" << c.nMonth << " first " << c.nFirstDay;
    }
    EXPECT_FALSE(m_cal.SetFirstDayOfWeek(7));
}

TEST_F(CCalendarTest, CellsTileTheClientAndHitTestNamesEveryPart)
{
    CRect rcClient;
    m_cal.GetClientRect(rcClient);
    for (int nCell = 0; nCell < 42; ++nCell)
    {
        const CRect rc = m_cal.GetCellRect(nCell);
        if (nCell % 7 < 6)
        {
            EXPECT_EQ(rc.right, m_cal.GetCellRect(nCell + 1).left) << nCell;
        }
        if (nCell < 35)
        {
            EXPECT_EQ(rc.bottom, m_cal.GetCellRect(nCell + 7).top) << nCell;
        }
        double dDay = 0;
        EXPECT_EQ(nCell == 0 || nCell >= 31 ? CKelCalendar::HT_TRAILINGDAY : CKelCalendar::HT_DAY,
                  m_cal.HitTest(rc.TopLeft(), dDay));
        EXPECT_EQ(m_cal.GetFirstShownDay() + nCell, dDay);
        EXPECT_EQ(m_cal.GetFirstShownDay() + nCell, (m_cal.HitTest(rc.BottomRight() - CSize(1, 1), dDay), dDay));
    }
    EXPECT_EQ(rcClient.right, m_cal.GetCellRect(6).right);
    const CRect rcLast = m_cal.GetCellRect(41);
    double dDay = 0;
    struct
    {
        CPoint pt;
        int nPart;
    } const parts[] = {
        {{2, 2}, CKelCalendar::HT_PREVBUTTON},
        {{rcClient.right - 2, 2}, CKelCalendar::HT_NEXTBUTTON},
        {{rcClient.CenterPoint().x, 2}, CKelCalendar::HT_TITLE},
        {{rcClient.CenterPoint().x, m_cal.GetCellRect(0).top - 1}, CKelCalendar::HT_WEEKDAYS},
        {{5, rcLast.bottom}, CKelCalendar::HT_TODAYFOOTER},
        {{5, rcClient.bottom}, CKelCalendar::HT_NOWHERE},
    };
    for (const auto& p : parts)
        EXPECT_EQ(p.nPart, m_cal.HitTest(p.pt, dDay)) << p.pt.x << "," << p.pt.y;

    CRect rcMin;
    m_cal.GetMinReqRect(rcMin);
    m_cal.ModifyCalStyle(0, KCS_NOTODAY);
    CRect rcNoToday;
    m_cal.GetMinReqRect(rcNoToday);
    EXPECT_LT(rcNoToday.Height(), rcMin.Height());
    EXPECT_EQ(rcClient.bottom, m_cal.GetCellRect(41).bottom);
}

TEST_F(CCalendarTest, MemberCallsAreCheckedAndOnlyViewMovesNotify)
{
    EXPECT_TRUE(m_cal.SetRange(Day(1583, 3, 1), Day(2003, 9, 30)));
    double dMin, dMax;
    m_cal.GetRange(dMin, dMax);
    EXPECT_EQ(Day(1601, 1, 1), dMin);
    EXPECT_FALSE(m_cal.SetRange(Day(2003, 9, 2), Day(2003, 9, 1)));
    EXPECT_FALSE(m_cal.SetCurSel(Day(2003, 10, 1)));
    EXPECT_FALSE(m_cal.SetCurSel(CKelDate(0)));
    EXPECT_FALSE(m_cal.SetViewMonth(2003, 10));
    EXPECT_TRUE(m_cal.SetCurSel(Day(2003, 9, 5)));
    EXPECT_TRUE(m_cal.SetSelRange(Day(2003, 9, 11), Day(2003, 9, 5)));
    EXPECT_FALSE(m_cal.SetSelRange(Day(2003, 9, 1), Day(2003, 9, 8))); // 8 days, the maximum is 7
    double dFirst, dLast;
    m_cal.GetSelRange(dFirst, dLast);
    EXPECT_EQ(Day(2003, 9, 5), dFirst);
    EXPECT_EQ(Day(2003, 9, 11), dLast);
    m_cal.ModifyCalStyle(KCS_MULTISELECT, 0);
    m_cal.GetSelRange(dFirst, dLast);
    EXPECT_EQ(dFirst, dLast);
    EXPECT_TRUE(m_cal.SetRange(Day(2003, 9, 20), Day(2004, 1, 1))); // the selection falls outside
    CKelDate sel(0);
    EXPECT_FALSE(m_cal.GetCurSel(sel));
    EXPECT_TRUE(m_cal.SetCurSel(Day(2003, 12, 24)));
    EXPECT_EQ(std::vector<UINT>({CALN_VIEWCHANGE}), Codes()); // the move to December only
    EXPECT_EQ(12, m_parent.GetLast<NMKELCALENDAR>(CALN_VIEWCHANGE)->nViewMonth);

    // Items: created by the first write, gone when every field is back at its default.
    EXPECT_TRUE(m_cal.SetDayText(Day(2003, 9, 3), "Show"));
    EXPECT_TRUE(m_cal.SetDayData(Day(2003, 9, 4), 42));
    EXPECT_EQ(2, m_cal.GetDayItemCount());
    EXPECT_EQ(42u, m_cal.GetDayData(Day(2003, 9, 4)));
    EXPECT_TRUE(m_cal.SetDayText(Day(2003, 9, 3), ""));
    EXPECT_EQ(1, m_cal.GetDayItemCount());
    CKelCalendar::CDayItem item;
    EXPECT_FALSE(m_cal.GetDayItem(Day(2003, 9, 3), item));
    EXPECT_FALSE(m_cal.SetDayMarkers(0.5, KCM_DOT));
    EXPECT_EQ(0xFFFFFFFFu, m_cal.GetDayData(Day(2003, 9, 3)));
    EXPECT_FALSE(m_cal.SetColor(8, 0));
}

TEST_F(CCalendarTest, ShiftClickIsCutAtTheMaximumAndTheNotificationsCarryTheChoice)
{
    CInput::Click(m_cal, CentreOf(Day(2003, 9, 2)).x, CentreOf(Day(2003, 9, 2)).y);
    m_parent.Clear();
    CMessageSequence seq;
    seq.Watch(m_parent, "parent");
    const CPoint pt = CentreOf(Day(2003, 9, 22));
    CInput::Click(m_cal, pt.x, pt.y, CInput::SHIFT);
    EXPECT_TRUE(seq.Check({
        {"parent", WM_NOTIFY, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM | SEQ_LPARAM, IDC_CAL, CALN_SELCHANGE},
        {"parent", WM_NOTIFY, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM | SEQ_LPARAM, IDC_CAL, CALN_SELECT},
    }));
    const NMKELCALENDAR* pNm = m_parent.GetLast<NMKELCALENDAR>(CALN_SELECT);
    ASSERT_NE(nullptr, pNm);
    EXPECT_EQ(Day(2003, 9, 22), pNm->dDay);
    EXPECT_EQ(Day(2003, 9, 2), pNm->dSelStart);
    EXPECT_EQ(Day(2003, 9, 8), pNm->dSelEnd);
    EXPECT_EQ(2003, pNm->nViewYear);
    CPoint ptScreen = pt;
    m_cal.ClientToScreen(&ptScreen);
    EXPECT_EQ(ptScreen.x, pNm->ptScreen.x);

    // A trailing day moves the view first; a right click on a day outside the selection selects it.
    const CPoint ptOct = CentreOf(Day(2003, 10, 2));
    CInput::Click(m_cal, ptOct.x, ptOct.y);
    EXPECT_EQ(std::vector<UINT>({CALN_SELCHANGE, CALN_SELECT, CALN_VIEWCHANGE, CALN_SELCHANGE, CALN_SELECT}), Codes());
    m_parent.Clear();
    const CPoint ptR = CentreOf(Day(2003, 10, 9));
    CInput::RightClick(m_cal, ptR.x, ptR.y);
    EXPECT_EQ(std::vector<UINT>({CALN_SELCHANGE, CALN_DAYRCLICK}), Codes());
    EXPECT_EQ(Day(2003, 10, 9), m_parent.GetLast<NMKELCALENDAR>(CALN_DAYRCLICK)->dSelStart);
}

TEST_F(CCalendarTest, KeysMoveTheFocusDayAndTheViewFollows)
{
    ASSERT_TRUE(m_cal.SetRange(Day(2003, 1, 1), Day(2004, 12, 31)));
    ASSERT_TRUE(m_cal.SetCurSel(Day(2004, 1, 31)));
    m_cal.SetFocus();
    m_parent.Clear();
    struct
    {
        UINT vk;
        UINT fMods;
        double dExpected;
    } const keys[] = {
        {VK_NEXT, 0, Day(2004, 2, 29)}, {VK_HOME, 0, Day(2004, 2, 1)}, {VK_LEFT, 0, Day(2004, 1, 31)},
        {VK_END, 0, Day(2004, 1, 31)},  {VK_DOWN, 0, Day(2004, 2, 7)}, {VK_NEXT, CInput::CTRL, Day(2004, 12, 31)},
        {VK_PRIOR, CInput::CTRL, Day(2003, 12, 31)},                   {VK_PRIOR, CInput::CTRL, Day(2003, 1, 1)},
    };
    for (const auto& k : keys)
    {
        CInput::PressKey(m_cal, k.vk, k.fMods);
        CKelDate sel(0);
        ASSERT_TRUE(m_cal.GetCurSel(sel));
        EXPECT_EQ(k.dExpected, sel.JulianValue()) << k.vk;
        short nYear, nMonth;
        m_cal.GetViewMonth(nYear, nMonth);
        EXPECT_EQ(CKelDate::GetMonth(k.dExpected), nMonth) << k.vk;
    }
    // The view moves before the selection is told; Shift extends from the anchor, cut at 7 days.
    ASSERT_TRUE(m_cal.SetCurSel(Day(2003, 2, 3)));
    m_parent.Clear();
    CInput::PressKey(m_cal, VK_UP);
    CInput::PressKey(m_cal, VK_DOWN, CInput::SHIFT);
    CInput::PressKey(m_cal, VK_RETURN);
    EXPECT_EQ(std::vector<UINT>({CALN_VIEWCHANGE, CALN_SELCHANGE, CALN_VIEWCHANGE, CALN_SELCHANGE, CALN_SELECT}),
              Codes());
    double dFirst, dLast;
    m_cal.GetSelRange(dFirst, dLast);
    EXPECT_EQ(Day(2003, 1, 27), dFirst);
    EXPECT_EQ(Day(2003, 2, 2), dLast);
    EXPECT_EQ(UINT(DLGC_WANTARROWS | DLGC_WANTCHARS), UINT(m_cal.SendMessage(WM_GETDLGCODE)));
}

TEST_F(CCalendarTest, HeldArrowRepeatsOnTheTimerUntilReleasedOrLeft)
{
    HMODULE hLibrary = ::GetModuleHandleA("KelControls.dll");
    m_recorder.Redirect(hLibrary, "user32.dll", "SetTimer", reinterpret_cast<void*>(RecordSetTimer));
    m_recorder.Redirect(hLibrary, "user32.dll", "KillTimer", reinterpret_cast<void*>(RecordKillTimer));
    s_timerCalls.clear();
    m_cal.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    m_cal.SendMessage(WM_TIMER, CKelCalendar::REPEAT_TIMER);
    m_cal.SendMessage(WM_TIMER, CKelCalendar::REPEAT_TIMER);
    short nYear, nMonth;
    m_cal.GetViewMonth(nYear, nMonth);
    EXPECT_EQ(6, nMonth);
    EXPECT_EQ(3, m_parent.GetCount(CALN_VIEWCHANGE));
    m_cal.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(100, 100)); // leaving the button ends it
    m_cal.SendMessage(WM_TIMER, CKelCalendar::REPEAT_TIMER);
    m_cal.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(100, 100));
    m_cal.GetViewMonth(nYear, nMonth);
    EXPECT_EQ(6, nMonth);
    ASSERT_GE(s_timerCalls.size(), 4u);
    EXPECT_TRUE(s_timerCalls[0].bSet && s_timerCalls[0].nElapse == 400);
    EXPECT_TRUE(s_timerCalls[1].bSet && s_timerCalls[1].nElapse == 150);
    EXPECT_TRUE(s_timerCalls[2].bSet && s_timerCalls[2].nElapse == 150);
    EXPECT_FALSE(s_timerCalls[3].bSet);

    // The wheel moves a month a notch, back for positive deltas; the range stops the buttons.
    CInput::Wheel(m_cal, 100, 100, -2 * WHEEL_DELTA);
    m_cal.GetViewMonth(nYear, nMonth);
    EXPECT_EQ(8, nMonth);
    ASSERT_TRUE(m_cal.SetRange(Day(2003, 8, 1), Day(2003, 8, 31)));
    m_parent.Clear();
    CInput::Click(m_cal, 3, 3);
    EXPECT_EQ(0, m_parent.GetCount(CALN_VIEWCHANGE));
}

TEST_F(CCalendarTest, TitleMenuPicksTheMonthAndTheFooterSelectsToday)
{
    m_recorder.Install(::GetModuleHandleA("KelAfx.dll"));
    m_recorder.PushMenuCommand(2);
    CRect rcClient;
    m_cal.GetClientRect(rcClient);
    CInput::Click(m_cal, rcClient.CenterPoint().x, 5);
    ASSERT_EQ(1u, m_recorder.GetRecords().m_popupMenus.size());
    short nYear, nMonth;
    m_cal.GetViewMonth(nYear, nMonth);
    EXPECT_EQ(2, nMonth);
    m_parent.Clear();
    CInput::Click(m_cal, 5, rcClient.bottom - 3);
    EXPECT_EQ(std::vector<UINT>({CALN_VIEWCHANGE, CALN_SELCHANGE, CALN_SELECT}), Codes());
    EXPECT_EQ(Day(2003, 9, 17), m_parent.GetLast<NMKELCALENDAR>(CALN_SELECT)->dSelStart);
}

// Finds the thread's tooltip that has a tool of the window in pSearch->second.
BOOL CALLBACK FindTip(HWND hWnd, LPARAM lParam)
{
    auto* pSearch = reinterpret_cast<std::pair<HWND, HWND>*>(lParam);
    char szClass[32];
    TTTOOLINFOA ti = {};
    ti.cbSize = TTTOOLINFOA_V2_SIZE;
    ::GetClassNameA(hWnd, szClass, sizeof(szClass));
    if (_stricmp(szClass, TOOLTIPS_CLASSA) == 0 && ::SendMessageA(hWnd, TTM_ENUMTOOLSA, 0, (LPARAM)&ti) &&
        ti.hwnd == pSearch->second)
        pSearch->first = hWnd;
    return TRUE;
}

// What the calendar answers its tooltip for the day under the mouse.
std::string TipTextAt(CKelCalendar& cal, CPoint pt)
{
    std::pair<HWND, HWND> search(NULL, cal.m_hWnd);
    ::EnumThreadWindows(::GetCurrentThreadId(), FindTip, reinterpret_cast<LPARAM>(&search));
    const HWND hTip = search.first;
    cal.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(pt.x, pt.y));
    NMTTDISPINFOA info = {};
    info.hdr.hwndFrom = hTip;
    info.hdr.code = TTN_GETDISPINFOA;
    cal.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&info));
    return info.lpszText != NULL ? info.lpszText : "";
}

TEST_F(CCalendarTest, TooltipShowsTheItemTextThatTheCellCannotShow)
{
    const double dShow = Day(2003, 9, 10), dLong = Day(2003, 9, 11);
    m_cal.SetDayText(dShow, "Show");
    m_cal.SetDayText(dLong, "Dress rehearsal with the full crew and the orchestra");
    EXPECT_EQ("Show", TipTextAt(m_cal, CentreOf(dShow))); // cells too small for any text
    EXPECT_EQ("", TipTextAt(m_cal, CentreOf(Day(2003, 9, 12))));
    m_cal.MoveWindow(0, 0, 420, 400); // now the cells show a short text themselves
    EXPECT_EQ("", TipTextAt(m_cal, CentreOf(dShow)));
    EXPECT_EQ("Dress rehearsal with the full crew and the orchestra", TipTextAt(m_cal, CentreOf(dLong)));

    // A double click on a day selects it, then tells of the double click.
    m_parent.Clear();
    CInput::DoubleClick(m_cal, CentreOf(dShow).x, CentreOf(dShow).y);
    std::vector<UINT> codes = Codes();
    ASSERT_GE(codes.size(), 2u);
    EXPECT_EQ(CALN_SELCHANGE, codes.front());
    EXPECT_EQ(1, m_parent.GetCount(CALN_DAYDBLCLK));
    MSG msg = {m_cal.m_hWnd, WM_KEYDOWN, VK_RETURN, 0, 0, {0, 0}};
    EXPECT_TRUE(m_cal.SendMessage(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&msg)) & DLGC_WANTMESSAGE);
}

TEST_F(CCalendarTest, DaysShowTheirColoursAndMarkers)
{
    const COLORREF RED = RGB(255, 0, 0), BLUE = RGB(0, 0, 255), GREEN = RGB(0, 160, 0);
    m_cal.SetColor(KCC_BACK, RGB(255, 255, 255));
    m_cal.SetColor(KCC_TEXT, RGB(0, 0, 0));
    m_cal.SetColor(KCC_SELBACK, GREEN);
    m_cal.SetColor(KCC_TRAILINGTEXT, RGB(128, 128, 128));
    const double dFrame = Day(2003, 9, 9), dDot = Day(2003, 9, 10), dCross = Day(2003, 9, 11),
                 dBack = Day(2003, 9, 12), dUnder = Day(2003, 9, 15);
    m_cal.SetDayMarkers(dFrame, KCM_FRAME);
    m_cal.SetDayMarkers(dDot, KCM_DOT);
    m_cal.SetDayMarkers(dCross, KCM_CROSS);
    m_cal.SetDayColors(dBack, BLUE, RED);
    m_cal.SetDayColors(dUnder, BLUE, 0xFFFFFFFF);
    m_cal.SetDayMarkers(dUnder, KCM_UNDERLINE);
    m_cal.SetCurSel(Day(2003, 9, 16));
    m_cal.SetToday(Day(2003, 9, 18));
    m_cal.SetRange(Day(2003, 9, 1), Day(2003, 9, 29));
    CWindowImage image;
    ASSERT_TRUE(image.Capture(m_cal));
    auto cell = [&](double d) { return CellOf(m_cal, d); };
    const CRect rcFrame = cell(dFrame), rcDot = cell(dDot), rcCross = cell(dCross);
    EXPECT_EQ(RGB(0, 0, 0), image.GetPixel(rcFrame.left, rcFrame.CenterPoint().y));
    EXPECT_EQ(RGB(0, 0, 0), image.GetPixel(rcFrame.right - 1, rcFrame.top));
    EXPECT_EQ(RGB(0, 0, 0), image.GetPixel(rcDot.right - 5, rcDot.bottom - 5));
    EXPECT_EQ(RGB(255, 255, 255), image.GetPixel(rcDot.left + 1, rcDot.bottom - 5));
    const CRect rcCrossTopLeft(rcCross.left + 1, rcCross.top + 1, rcCross.left + 6, rcCross.top + 6);
    const CRect rcCrossTopRight(rcCross.right - 6, rcCross.top + 1, rcCross.right - 1, rcCross.top + 6);
    EXPECT_GT(image.CountPixels(RGB(0, 0, 0), rcCrossTopLeft), 1);
    EXPECT_GT(image.CountPixels(RGB(0, 0, 0), rcCrossTopRight), 1);
    EXPECT_EQ(0, image.CountPixels(RGB(0, 0, 0), CRect(rcDot.left + 1, rcDot.top + 1, rcDot.left + 6, rcDot.top + 6)));
    EXPECT_EQ(RED, image.GetPixel(cell(dBack).left + 1, cell(dBack).top + 1));
    EXPECT_GT(image.CountPixels(BLUE, cell(dBack)), 3);
    const CRect rcUnder = cell(dUnder);
    EXPECT_GT(image.CountPixels(BLUE, CRect(rcUnder.left, rcUnder.CenterPoint().y + 6, rcUnder.right,
                                           rcUnder.bottom)), 3); // the line under the number
    EXPECT_EQ(GREEN, image.GetPixel(cell(Day(2003, 9, 16)).left + 1, cell(Day(2003, 9, 16)).top + 1));
    EXPECT_EQ(RED, image.GetPixel(cell(Day(2003, 9, 18)).left + 1, cell(Day(2003, 9, 18)).top + 3)); // today
    EXPECT_GT(image.CountPixels(RGB(128, 128, 128), cell(Day(2003, 9, 30))), 3); // outside the range
    EXPECT_EQ(0, image.CountPixels(RGB(0, 0, 0), cell(Day(2003, 9, 30))));
}
} // namespace
