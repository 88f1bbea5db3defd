// CCalendarDropDown: the calendar popup that the calendar combo and the calendar button drop
// under themselves. It owns the popup calendar (created on first use, owned by the host's
// top-level window, notifying the host) and the drop-down helper that watches the mouse while
// it is open, and it reads the keys a host takes from the focus window while open.
//
// Internal to the library; not exported.
#pragma once

#include <afxwin.h>

#include "calendar/KelCalendar.h"
#include "grid/KelDropDown.h"

class CCalendarDropDown
{
public:
    // What a key means to the host (TranslateKey).
    enum KeyAction
    {
        KEY_NONE,     // not a drop-down key: let it go on
        KEY_HANDLED,  // given to the calendar
        KEY_OPEN,     // F4, Alt+Down or Alt+Up while closed
        KEY_TAKE,     // Enter, F4, Alt+Down or Alt+Up while open
        KEY_CANCEL    // Escape while open
    };

    CCalendarDropDown() = default;
    CCalendarDropDown(const CCalendarDropDown&) = delete;
    CCalendarDropDown& operator=(const CCalendarDropDown&) = delete;

    // The popup, created when missing; null when it cannot be.
    CKelCalendar* GetCalendar(CWnd* pHost);
    void SetCalendarStyle(DWORD dwCalStyle);

    // Shows the calendar under rcHost (screen), on the range dMin..dMax (clamped to the
    // calendar's own), with dFirst selected when it lies inside, else on today's month (or the
    // range's nearer end) with no selection. bAlignRight moves the popup left so that its right
    // edge meets the host's, where the monitor allows.
    BOOL Open(CWnd* pHost, const CRect& rcHost, const CRect& rcMonitor, double dMin, double dMax, double dFirst,
              bool bAlignRight);
    // Stops watching the mouse and hides the popup (kept for the next opening); false when it
    // was not open.
    bool Close();
    bool IsOpen() const { return m_bOpen; }
    // The calendar's selection start, 0 for none.
    double GetChoice() const;
    void GetWindowRect(CRect& rect) const;
    // A key message taken from the focus window; the navigation keys go to the calendar.
    KeyAction TranslateKey(const MSG* pMsg);
    // Closes quietly and destroys the popup, for a host that goes.
    void Destroy();

    // A date in one of the four numeric styles (any other: month/day/year) with a separator.
    static CString FormatDate(double dDay, int nStyle, char chSeparator);

private:
    CKelCalendar m_calendar;
    CKelDropDown m_dropDown;
    DWORD m_dwCalStyle = 0;
    bool m_bOpen = false;
};
