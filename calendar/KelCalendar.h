// CKelCalendar: a month calendar drawn by the library itself, so that each day can carry its own
// item: text and background colours, markers (dot, bold, frame, underline, cross), a short text
// shown in the cell when it is tall enough and in a tooltip otherwise, and a number for the host.
//
// Days are CKelDate day numbers held as doubles; 0 means "no day". The user moves between months
// (arrow buttons, which repeat while held, the month menu of the title, the wheel, the keyboard),
// selects a day, or in multi-select a range of at most the maximum selection count, and the
// calendar tells its notify window (the parent unless SetNotifyWindow named another) through
// WM_NOTIFY with an NMKELCALENDAR. Member calls never send CALN_SELCHANGE; a member call that
// moves the shown month sends CALN_VIEWCHANGE, so that a host can fill the items of the new month
// wherever the move came from.
//
// Refused calls return 0 and change nothing; no message is ever shown.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <vector>

#include "values/KelDate.h"

// Notification codes (WM_NOTIFY with NMKELCALENDAR).
#define CALN_SELCHANGE (0U - 2020U)  // the user changed the selection
#define CALN_SELECT (0U - 2021U)     // the user finished a choice
#define CALN_VIEWCHANGE (0U - 2022U) // the shown month changed
#define CALN_DAYDBLCLK (0U - 2023U)  // double click on a selectable day
#define CALN_DAYRCLICK (0U - 2024U)  // right button released on a day

// Calendar styles.
#define KCS_MULTISELECT 0x01
#define KCS_NOTODAY 0x02
#define KCS_NOTODAYFRAME 0x04
#define KCS_NOTRAILINGDAYS 0x08

// Day markers.
#define KCM_DOT 0x01
#define KCM_BOLD 0x02
#define KCM_FRAME 0x04
#define KCM_UNDERLINE 0x08
#define KCM_CROSS 0x10

// Colour indexes for SetColor and GetColor.
#define KCC_BACK 0
#define KCC_TEXT 1
#define KCC_TITLEBACK 2
#define KCC_TITLETEXT 3
#define KCC_TRAILINGTEXT 4
#define KCC_SELBACK 5
#define KCC_SELTEXT 6
#define KCC_TODAY 7

struct NMKELCALENDAR
{
    NMHDR hdr;
    double dDay; // the day acted on, 0 when none
    double dSelStart;
    double dSelEnd;
    short nViewYear;
    short nViewMonth;
    POINT ptScreen; // the mouse in screen coordinates, (0, 0) for keys
};

class AFX_EXT_CLASS CKelCalendar : public CWnd
{
    DECLARE_DYNAMIC(CKelCalendar)
public:
    struct CDayItem
    {
        CDayItem(double day = 0) : dDay(day) {}
        double dDay;
        COLORREF crText = 0xFFFFFFFF;
        COLORREF crBack = 0xFFFFFFFF;
        DWORD dwMarkers = 0;
        CString strText;
        DWORD dwData = 0xFFFFFFFF;

        // Every field but the day at its default: such an item is not kept.
        bool IsEmpty() const;
    };

    // What HitTest finds under a point.
    enum HitPart
    {
        HT_NOWHERE = 0,
        HT_TITLE = 1,
        HT_PREVBUTTON = 2,
        HT_NEXTBUTTON = 3,
        HT_WEEKDAYS = 4,
        HT_DAY = 5,
        HT_TRAILINGDAY = 6,
        HT_TODAYFOOTER = 7
    };

    enum
    {
        COLOR_COUNT = 8,
        REPEAT_TIMER = 1,
        REPEAT_FIRST_MS = 400,
        REPEAT_NEXT_MS = 150
    };

    CKelCalendar();
    ~CKelCalendar() override;

    // Registers "_KELCALENDAR" as a global class of the library, for dialog templates that name
    // it as a custom control. Create calls it too.
    static BOOL RegisterWndClass();
    static const char* GetClassName() { return "_KELCALENDAR"; }

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, DWORD dwCalStyle = 0);
    // A popup calendar (the drop-downs): created with the given extended style and owner.
    BOOL CreatePopup(DWORD dwExStyle, DWORD dwStyle, CWnd* pOwner, DWORD dwCalStyle = 0);

    DWORD GetCalStyle() const { return m_dwCalStyle; }
    // Switching KCS_MULTISELECT off shrinks the selection to its start.
    BOOL ModifyCalStyle(DWORD dwRemove, DWORD dwAdd);

    // One day selected and shown; refused (0) outside the range or for an invalid date.
    int SetCurSel(double dDay);
    int SetCurSel(const CKelDate& date);
    int GetCurSel(CKelDate& date) const;
    // Multi-select only; a reversed range is swapped; refused when longer than the maximum
    // selection count or outside the range.
    int SetSelRange(double dFirst, double dLast);
    int GetSelRange(double& dFirst, double& dLast) const;
    void ClearSel();

    // Refused when min > max; the ends are held to 1 January 1601 .. 31 December 9999. A
    // selection outside the new range is cleared and a view outside it moves to its nearer end.
    int SetRange(double dMin, double dMax);
    void GetRange(double& dMin, double& dMax) const;
    int SetMaxSelCount(int nMax); // 1..366
    int GetMaxSelCount() const { return m_nMaxSelCount; }
    int SetFirstDayOfWeek(int nDay); // 0 Sunday .. 6 Saturday
    int GetFirstDayOfWeek() const { return m_nFirstDayOfWeek; }
    // 0 follows the clock.
    int SetToday(double dDay);
    double GetToday() const;
    int SetViewMonth(short nYear, short nMonth);
    void GetViewMonth(short& nYear, short& nMonth) const;
    // A colour of 0xFFFFFFFF goes back to the default; GetColor gives the colour in effect.
    int SetColor(int nIndex, COLORREF cr);
    COLORREF GetColor(int nIndex) const;
    // Null: the parent.
    void SetNotifyWindow(CWnd* pWnd) { m_pNotifyWnd = pWnd; }

    // Day items. A write creates the day's item; an item whose fields are all back at their
    // defaults is removed.
    int SetDayItem(const CDayItem& item);
    int GetDayItem(double dDay, CDayItem& item) const;
    int SetDayColors(double dDay, COLORREF crText, COLORREF crBack);
    int SetDayMarkers(double dDay, DWORD dwMarkers);
    int SetDayText(double dDay, const char* pszText);
    int SetDayData(double dDay, DWORD dwData);
    DWORD GetDayData(double dDay) const;
    int DeleteDayItem(double dDay);
    void DeleteAllDayItems();
    int GetDayItemCount() const { return static_cast<int>(m_items.size()); }

    // The part under a client point; dDay is filled for HT_DAY and HT_TRAILINGDAY.
    int HitTest(CPoint point, double& dDay) const;
    // The smallest client rectangle that shows everything.
    void GetMinReqRect(CRect& rect) const;
    // The cell of a shown day (0..41 from the first shown day), in client coordinates.
    CRect GetCellRect(int nCell) const;
    double GetFirstShownDay() const;

protected:
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnDestroy();
    afx_msg LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetFont(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    void PreSubclassWindow() override;
    // Feeds the mouse messages to the tooltip.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    // Answers the tooltip's request for the text of the day under the mouse.
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    // The whole calendar into pDC (the paint handler draws into a memory bitmap and copies it).
    void Draw(CDC* pDC);

private:
    struct CLayout
    {
        int nTextHeight;
        int nTitleHeight;
        int nWeekdayHeight;
        int nFooterHeight;
        CRect rcClient;
        CRect rcDays; // the six week rows
    };

    void InitWindow();
    void MeasureFont();
    CFont* GetNormalFont() const;
    CFont* GetBoldFont() const;
    void GetLayout(CLayout& layout) const;
    static CRect CellRect(const CLayout& layout, int nCell);
    CString GetTitleText() const;
    CRect GetTitleTextRect(const CLayout& layout);
    void DrawTitle(CDC* pDC, const CLayout& layout);
    void DrawWeekdays(CDC* pDC, const CLayout& layout);
    void DrawDay(CDC* pDC, const CLayout& layout, int nCell, double dDay, double dToday);
    void DrawFooter(CDC* pDC, const CLayout& layout, double dToday);
    bool IsTextShownInCell(const CLayout& layout) const;

    const CDayItem* FindItem(double dDay) const;
    // The item of the day, created when missing; null for an invalid day.
    CDayItem* WriteItem(double dDay);
    // Drops the day's item when it is empty, and repaints the day.
    void ItemChanged(double dDay);
    void InvalidateDay(double dDay);

    bool IsSelectable(double dDay) const;
    bool IsSelected(double dDay) const;
    double ClampDay(double dDay) const;
    double FirstOfMonth(short nYear, short nMonth) const;
    bool IsMonthInRange(short nYear, short nMonth) const;
    // Moves the view (clamped to the range's months); returns true and notifies when it moved.
    bool MoveView(short nYear, short nMonth, bool bNotify = true);
    bool MoveViewBy(int nMonths);
    bool ShowDay(double dDay);
    // The selection from the anchor to dDay (single selection: dDay alone); true when it changed.
    bool SelectTo(double dDay, bool bExtend);
    void Notify(UINT nCode, double dDay, CPoint ptScreen = CPoint(0, 0));
    void PressButton(int nPart);
    void StopRepeat();
    void ShowMonthMenu();
    void UpdateTip(double dDay);
    // The item text of a day when the cell does not show all of it, else empty.
    CString GetTipText(double dDay);

    DWORD m_dwCalStyle;
    short m_nViewYear;
    short m_nViewMonth;
    int m_nFirstDayOfWeek;
    double m_dSelStart;
    double m_dSelEnd;
    double m_dAnchor;
    double m_dFocus;
    double m_dMin;
    double m_dMax;
    int m_nMaxSelCount;
    double m_dToday;
    COLORREF m_colors[COLOR_COUNT];
    std::vector<CDayItem> m_items; // sorted by day
    HFONT m_hFont;                 // WM_SETFONT's, not owned
    mutable CFont m_fontBold;     // made from the font in use when first needed
    mutable HFONT m_hBoldSource; // the font the bold copy was made from
    int m_nTextHeight;
    CToolTipCtrl m_tip;
    double m_dTipDay;
    CString m_strTip;
    double m_dPressDay; // the day the left button chose, for CALN_SELECT at its release
    int m_nPressedPart;
    bool m_bSelecting; // the left button went down on a day
    bool m_bPopup;
    CWnd* m_pNotifyWnd;
};
