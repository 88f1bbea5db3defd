// Page "Calendar": a month of a production with its show days, rehearsals and dark days marked
// on the month calendar, and the two ways to pick a date in a form: the calendar combo and a
// date edit with its calendar button. The status line tells what the controls last reported.
#pragma once

#include "gallery/GalleryPage.h"

#include "KelControls.h"

class CCalendarPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CCalendarPage)
public:
    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    DECLARE_MESSAGE_MAP()

private:
    // The production's days on a calendar: the month shown here and the combo's drop-down.
    static void MarkProduction(CKelCalendar& calendar);

    CStatic m_wndIntro;
    CKelCalendar m_wndCalendar;
    CStatic m_wndComboCaption;
    CCalendarCombo m_wndCombo;
    CStatic m_wndButtonCaption;
    CDateEdit m_wndDate;
    CCalendarButton m_wndButton;
    CStatic m_wndLegend;
    CStatic m_wndStatus;
};
