// CCalendarCombo: a date combo whose drop-down is a month calendar. Its edit field is the date
// combo's date edit, and it reads, validates and ranges its text as the date combo does; the
// calendar opens on the date in the field and writes the chosen day back in the combo's style.
//
// It opens on F4, Alt+Down, Alt+Up, a click on its button or ShowDropDown(TRUE). While open the
// focus stays in the edit field; the arrow, page, Home and End keys move the calendar's focus
// day, Enter (or F4, Alt+Down, Alt+Up, or a day chosen with the mouse) closes taking the
// calendar's selection, Escape or a press elsewhere closes without. The parent hears, in this
// order, CBN_DROPDOWN at opening, then CBN_SELENDOK or CBN_SELENDCANCEL, CBN_CLOSEUP and, when
// the text changed, CBN_SELCHANGE; the platform combo's own are swallowed in the reflection.
// The calendar's CALN_VIEWCHANGE reaches the parent under the combo's handle and identifier.
#pragma once

#include <afxwin.h>

#include "calendar/KelCalendar.h"
#include "controls/DateComboBox.h"

class CCalendarDropDown;

class AFX_EXT_CLASS CCalendarCombo : public CDateComboBox
{
    DECLARE_DYNAMIC(CCalendarCombo)
public:
    CCalendarCombo();
    ~CCalendarCombo() override;

    // The popup calendar, created on demand so that a host can set its day items before the
    // first opening; null without a window.
    CKelCalendar* GetCalendar();
    void SetCalendarStyle(DWORD dwCalStyle);
    // FALSE closes without taking. Returns whether the calendar is open afterwards.
    BOOL ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;
    // The monitor the popup is kept on: the companion's usable screen.
    virtual void GetMonitorRect(CRect& rect) const;

    // Takes the drop-down keys from the edit field before the edit and the dialog see them.
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnCancelMode();
    afx_msg void OnDestroy();
    afx_msg LRESULT OnShowDropDownMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetDroppedStateMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetDroppedControlRect(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCloseUpMessage(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    BOOL Open();
    void Close(bool bTake);
    void SendCommand(UINT nCode);

    CCalendarDropDown* m_pDropDown;
    DWORD m_dwCalStyle;
    int m_bDropped;
    bool m_bSending; // the combo's own notification is on its way to the parent
};
