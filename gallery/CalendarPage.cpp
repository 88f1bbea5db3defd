#include "gallery/CalendarPage.h"

namespace
{
enum
{
    IDC_CALENDAR = 1001,
    IDC_COMBO,
    IDC_DATE,
    IDC_BUTTON
};

const int INTRO_LINES = 2;
const int CALENDAR_WIDTH = 380;
const int CALENDAR_HEIGHT = 330;
const int FORM_WIDTH = 230;
const COLORREF SHOW_BACK = RGB(255, 214, 196);
const COLORREF SHOW_TEXT = RGB(150, 20, 0);
const COLORREF REHEARSAL_TEXT = RGB(0, 70, 160);
const COLORREF DARK_BACK = RGB(214, 214, 214);

double Day(int nDay)
{
    return CKelDate::JulianValue(static_cast<short>(2026), static_cast<short>(11), static_cast<short>(nDay));
}
} // namespace

IMPLEMENT_DYNCREATE(CCalendarPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CCalendarPage, CGalleryPage)
ON_WM_CREATE()
END_MESSAGE_MAP()

void CCalendarPage::MarkProduction(CKelCalendar& calendar)
{
    // A fixed today, so that every snapshot is the same picture.
    calendar.SetToday(Day(25));
    for (int nDay : {2, 3, 4, 5, 9, 10, 11})
    {
        calendar.SetDayColors(Day(nDay), REHEARSAL_TEXT, 0xFFFFFFFF);
        calendar.SetDayMarkers(Day(nDay), KCM_FRAME);
        calendar.SetDayText(Day(nDay), nDay < 9 ? "Rehearsal" : "Tech rehearsal");
    }
    calendar.SetDayMarkers(Day(12), KCM_FRAME | KCM_UNDERLINE | KCM_BOLD);
    calendar.SetDayColors(Day(12), REHEARSAL_TEXT, 0xFFFFFFFF);
    calendar.SetDayText(Day(12), "Dress rehearsal with the full crew and the orchestra");
    for (int nDay = 13; nDay <= 29; ++nDay)
    {
        const double dDay = Day(nDay);
        if ((static_cast<long long>(dDay) + 1) % 7 == 1) // Mondays are dark
        {
            calendar.SetDayColors(dDay, 0xFFFFFFFF, DARK_BACK);
            calendar.SetDayMarkers(dDay, KCM_CROSS);
            calendar.SetDayText(dDay, "Dark");
            continue;
        }
        calendar.SetDayColors(dDay, SHOW_TEXT, SHOW_BACK);
        calendar.SetDayMarkers(dDay, KCM_DOT | (nDay == 13 ? KCM_BOLD : 0));
        calendar.SetDayText(dDay, nDay == 13 ? "Opening night" : "Show 8 pm");
    }
    calendar.SetViewMonth(2026, 11);
}

int CCalendarPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    m_wndCombo.SetMinMaxValues(CKelDate(2026, 1, 1), CKelDate(2027, 12, 31));
    m_wndDate.SetDateStyle(CKelDate::DATE_MMDDYY);
    if (!CreateLabel(m_wndIntro, _T("The month calendar draws each day's own colours, markers and text (in a ")
                                 _T("tooltip when the cell is small). Pick a date from the calendar combo, or ")
                                 _T("from the button beside the date edit.")) ||
        !m_wndCalendar.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP, CRect(0, 0, 0, 0), this, IDC_CALENDAR) ||
        !CreateLabel(m_wndComboCaption, _T("Opening night (CCalendarCombo):")) ||
        !m_wndCombo.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | CBS_DROPDOWN | CBS_AUTOHSCROLL, CRect(0, 0, 0, 0),
                           this, IDC_COMBO) ||
        !CreateLabel(m_wndButtonCaption, _T("Load-in (CDateEdit + CCalendarButton):")) ||
        !m_wndDate.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, CRect(0, 0, 0, 0), this,
                          IDC_DATE) ||
        !m_wndButton.Create(_T("..."), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, CRect(0, 0, 0, 0), this,
                            IDC_BUTTON) ||
        !CreateLabel(m_wndLegend, _T("Framed blue: rehearsals. Dotted on rose: shows. Crossed grey: dark days. ")
                                  _T("The red frame is today.")) ||
        !CreateLabel(m_wndStatus, NULL))
        return -1;
    for (CWnd* pWnd : {static_cast<CWnd*>(&m_wndCalendar), static_cast<CWnd*>(&m_wndCombo),
                       static_cast<CWnd*>(&m_wndDate), static_cast<CWnd*>(&m_wndButton)})
        UseFont(*pWnd);
    MarkProduction(m_wndCalendar);
    m_wndCalendar.SetCurSel(Day(13));
    if (m_wndCombo.GetCalendar() != NULL)
        MarkProduction(*m_wndCombo.GetCalendar());
    m_wndCombo.SetWindowText(_T("11/13/2026"));
    m_wndDate.SetWindowText(_T("11/02/26"));
    m_wndButton.SetBuddy(&m_wndDate);
    return 0;
}

void CCalendarPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    m_wndCalendar.MoveWindow(MARGIN, y, CALENDAR_WIDTH, CALENDAR_HEIGHT);
    m_wndLegend.MoveWindow(MARGIN, y + CALENDAR_HEIGHT + GAP, CALENDAR_WIDTH, 2 * LINE_HEIGHT);
    m_wndStatus.MoveWindow(MARGIN, y + CALENDAR_HEIGHT + GAP + 2 * LINE_HEIGHT + GAP, cx - 2 * MARGIN, LINE_HEIGHT);
    const int x = MARGIN + CALENDAR_WIDTH + 2 * GAP;
    m_wndComboCaption.MoveWindow(x, y, FORM_WIDTH + 40, LINE_HEIGHT);
    y += LINE_HEIGHT + 2;
    m_wndCombo.MoveWindow(x, y, FORM_WIDTH, 200);
    y += EDIT_HEIGHT + 3 * GAP + 260; // room for the combo's calendar in the snapshot
    m_wndButtonCaption.MoveWindow(x, y, FORM_WIDTH + 40, LINE_HEIGHT);
    y += LINE_HEIGHT + 2;
    m_wndDate.MoveWindow(x, y, FORM_WIDTH - EDIT_HEIGHT - 4, EDIT_HEIGHT);
    m_wndButton.MoveWindow(x + FORM_WIDTH - EDIT_HEIGHT, y, EDIT_HEIGHT, EDIT_HEIGHT);
}

BOOL CCalendarPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const NMKELCALENDAR* pNm = reinterpret_cast<const NMKELCALENDAR*>(lParam);
    const UINT nCode = pNm->hdr.code;
    if (nCode == CALN_SELECT || nCode == CALN_SELCHANGE || nCode == CALN_VIEWCHANGE)
    {
        CString strStatus;
        auto text = [](double dDay) { return dDay != 0 ? CKelDate::FmtMMsDDsYYYY(dDay, '/') : CString(_T("-")); };
        const LPCTSTR lpszCode = nCode == CALN_SELECT      ? _T("CALN_SELECT")
                                 : nCode == CALN_SELCHANGE ? _T("CALN_SELCHANGE")
                                                           : _T("CALN_VIEWCHANGE");
        strStatus.Format(_T("%s from control %d: day %s, selection %s .. %s, showing %02d/%d"), lpszCode,
                         static_cast<int>(pNm->hdr.idFrom), static_cast<LPCTSTR>(text(pNm->dDay)),
                         static_cast<LPCTSTR>(text(pNm->dSelStart)), static_cast<LPCTSTR>(text(pNm->dSelEnd)),
                         pNm->nViewMonth, pNm->nViewYear);
        m_wndStatus.SetWindowText(strStatus);
    }
    return CGalleryPage::OnNotify(wParam, lParam, pResult);
}

LPCTSTR CCalendarPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    m_wndCombo.ShowDropDown(FALSE);
    if (nState != 1 || !m_wndCombo.ShowDropDown(TRUE))
        return NULL;
    // The combo's calendar dropped down on the date in its field.
    *phWndPopup = m_wndCombo.GetCalendar()->GetSafeHwnd();
    return _T("dropped");
}
