#include "bench/ControlsBench.h"

#include "KelControls.h"

#include <cstdio>

namespace
{
const int WARMUPS = 20;
const int PAINTS = 300;
const COLORREF SHOW_BACK = RGB(255, 220, 200);
} // namespace

double ControlsBench::CalendarPaintMs()
{
    // A captionless popup shown without activation (no window manager wait under Wine), large
    // enough for the item texts to be drawn in their cells.
    CKelCalendar calendar;
    if (!calendar.CreatePopup(0, WS_BORDER, NULL))
    {
        fprintf(stderr, "controls_bench: the calendar could not be created\n");
        return -1;
    }
    calendar.SetWindowPos(NULL, 0, 0, 480, 420, SWP_NOZORDER | SWP_NOACTIVATE);
    calendar.SetViewMonth(2003, 9);
    const double dFirst = calendar.GetFirstShownDay();
    for (int nDay = 0; nDay < 42; ++nDay)
    {
        const double dDay = dFirst + nDay;
        calendar.SetDayColors(dDay, RGB(0, 0, 128), SHOW_BACK);
        const DWORD dwOddEven = nDay % 2 ? KCM_FRAME : KCM_UNDERLINE;
        calendar.SetDayMarkers(dDay, KCM_DOT | KCM_BOLD | dwOddEven | (nDay % 5 ? 0 : KCM_CROSS));
        calendar.SetDayText(dDay, nDay % 3 ? "Show, 8 pm, main stage" : "Rehearsal with the full crew");
    }
    calendar.ShowWindow(SW_SHOWNOACTIVATE);
    std::vector<double> samples;
    for (int i = 0; i < WARMUPS + PAINTS; ++i)
    {
        const double dStart = NowMs();
        calendar.RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_UPDATENOW);
        const double dTime = NowMs() - dStart;
        if (i >= WARMUPS)
            samples.push_back(dTime);
    }
    // The check: a day's own background reached the screen.
    // A corner of a day without a cross or a frame, away from its number.
    const CRect rcCell = calendar.GetCellRect(16);
    const CPoint pt(rcCell.right - 3, rcCell.top + 2);
    CClientDC dc(&calendar);
    const COLORREF cr = dc.GetPixel(pt);
    if (cr != SHOW_BACK)
    {
        fprintf(stderr, "controls_bench: the calendar's day shows %06lx, not its own background\n",
                static_cast<unsigned long>(cr));
        return -1;
    }
    return Median(samples);
}
