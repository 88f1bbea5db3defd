// CCalendarButton: a small button beside a date edit (its buddy) that drops a month calendar
// under itself, right edges aligned, and writes the chosen day into the buddy.
//
// The calendar opens on the buddy's date (a CDateEdit's value, read without a message box, or
// another window's text read as a date), else on the button's own date, else on today's month.
// A day chosen with the mouse, or Enter, gives the button that date, writes it into the buddy
// (a CDateEdit in its own style, another window in the button's style and separator), closes
// the calendar and sends CALN_SELECT (NMKELCALENDAR) to the parent under the button's handle
// and identifier; the calendar's CALN_VIEWCHANGE reaches the parent the same way. Escape, a
// press elsewhere or a second click on the button close it without a change. The parent gets
// BN_CLICKED for each click that reaches the button: a click that closes the calendar is
// swallowed by the drop-down's mouse watch, as a real press on the button.
#pragma once

#include <afxwin.h>

#include "calendar/KelCalendar.h"
#include "controls/DateEdit.h"
#include "controls/KelButton.h"
#include "values/KelDate.h"

class CCalendarDropDown;

class AFX_EXT_CLASS CCalendarButton : public CKelButton
{
    DECLARE_DYNAMIC(CCalendarButton)
public:
    CCalendarButton();
    ~CCalendarButton() override;

    void SetBuddy(CWnd* pBuddy);
    void SetBuddy(CDateEdit* pBuddy);
    void SetDate(const CKelDate& date);
    // 1 when a date was chosen or set.
    int GetDate(CKelDate& date) const;
    // The style (0..3, as CKelDate::DATE_STYLE) and separator for a buddy that is no date edit.
    int SetDateStyle(int nStyle);
    void SetDateSeperator(char chSeparator) { m_chDateSeparator = chSeparator; }
    // The days the calendar offers; the none values (DBL_MIN, DBL_MAX) keep the calendar's.
    int SetRange(double dMin, double dMax);
    void SetCalendarStyle(DWORD dwCalStyle);
    // The popup calendar, created on demand; null without a window.
    CKelCalendar* GetCalendar();
    BOOL ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;
    // The monitor the popup is kept on: the companion's usable screen.
    virtual void GetMonitorRect(CRect& rect) const;

    // While open, takes the drop-down keys (Escape included) before the dialog sees them.
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg BOOL OnClicked();
    afx_msg void OnCancelMode();
    afx_msg void OnDestroy();
    afx_msg LRESULT OnCloseUpMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    BOOL Open();
    void Close(bool bTake);
    // The date the calendar opens on: the buddy's, else the button's own; 0 for none.
    double GetFirstDate();
    void NotifyParent(const NMKELCALENDAR& nm, UINT nCode);

    CWnd* m_pBuddy;
    CDateEdit* m_pDateBuddy;
    CKelDate m_date;
    int m_nDateStyle;
    char m_chDateSeparator;
    double m_dMin;
    double m_dMax;
    CCalendarDropDown* m_pDropDown;
    DWORD m_dwCalStyle;
};
