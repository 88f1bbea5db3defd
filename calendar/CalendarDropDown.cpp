#include "calendar/CalendarDropDown.h"

#include <float.h>

#include <algorithm>

namespace
{
const DWORD kPopupStyle = WS_POPUP | WS_BORDER;
const DWORD kPopupExStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST;
} // namespace

CKelCalendar* CCalendarDropDown::GetCalendar(CWnd* pHost)
{
    if (::IsWindow(m_calendar.m_hWnd))
        return &m_calendar;
    if (pHost == NULL || !::IsWindow(pHost->m_hWnd))
        return NULL;
    // The platform makes a popup's owner a top-level window anyway; the host hears from it.
    if (!m_calendar.CreatePopup(kPopupExStyle, kPopupStyle, pHost->GetTopLevelParent(), m_dwCalStyle))
        return NULL;
    m_calendar.SetFont(pHost->GetFont(), FALSE);
    m_calendar.SetNotifyWindow(pHost);
    return &m_calendar;
}

void CCalendarDropDown::SetCalendarStyle(DWORD dwCalStyle)
{
    m_dwCalStyle = dwCalStyle;
    if (::IsWindow(m_calendar.m_hWnd))
        m_calendar.ModifyCalStyle(0xFFFFFFFF, dwCalStyle);
}

BOOL CCalendarDropDown::Open(CWnd* pHost, const CRect& rcHost, const CRect& rcMonitor, double dMin, double dMax,
                             double dFirst, bool bAlignRight)
{
    CKelCalendar* pCal = GetCalendar(pHost);
    if (pCal == NULL || m_bOpen)
        return FALSE;
    pCal->SetRange(-DBL_MAX, DBL_MAX); // back to the widest, so that any new range is accepted
    pCal->SetRange(dMin, dMax);
    if (!pCal->SetCurSel(dFirst))
    {
        pCal->ClearSel();
        double dRangeMin, dRangeMax;
        pCal->GetRange(dRangeMin, dRangeMax);
        const double dView = std::min(std::max(pCal->GetToday(), dRangeMin), dRangeMax);
        pCal->SetViewMonth(CKelDate::GetYear(dView), CKelDate::GetMonth(dView));
    }

    CRect rcWindow;
    pCal->GetMinReqRect(rcWindow);
    ::AdjustWindowRectEx(rcWindow, kPopupStyle, FALSE, kPopupExStyle);
    CRect rcPopup = CKelDropDown::PlacePopup(rcHost, rcWindow.Size(), rcMonitor);
    if (bAlignRight)
        rcPopup.OffsetRect(std::max(rcHost.right - rcPopup.right, rcMonitor.left - rcPopup.left), 0);
    pCal->SetWindowPos(&CWnd::wndTopMost, rcPopup.left, rcPopup.top, rcPopup.Width(), rcPopup.Height(),
                       SWP_NOACTIVATE | SWP_SHOWWINDOW);
    if (!m_dropDown.Open(pHost->m_hWnd, pCal->m_hWnd))
    {
        pCal->ShowWindow(SW_HIDE);
        return FALSE;
    }
    m_bOpen = true;
    return TRUE;
}

bool CCalendarDropDown::Close()
{
    if (!m_bOpen)
        return false;
    m_bOpen = false;
    m_dropDown.Close();
    if (::IsWindow(m_calendar.m_hWnd))
        m_calendar.ShowWindow(SW_HIDE);
    return true;
}

double CCalendarDropDown::GetChoice() const
{
    double dFirst = 0, dLast = 0;
    return m_calendar.GetSelRange(dFirst, dLast) ? dFirst : 0;
}

void CCalendarDropDown::GetWindowRect(CRect& rect) const
{
    if (::IsWindow(m_calendar.m_hWnd))
        m_calendar.GetWindowRect(rect);
    else
        rect.SetRectEmpty();
}

CCalendarDropDown::KeyAction CCalendarDropDown::TranslateKey(const MSG* pMsg)
{
    const UINT nKey = static_cast<UINT>(pMsg->wParam);
    if (pMsg->message == WM_SYSKEYDOWN && (nKey == VK_DOWN || nKey == VK_UP))
        return m_bOpen ? KEY_TAKE : KEY_OPEN;
    if (pMsg->message != WM_KEYDOWN)
        return KEY_NONE;
    if (nKey == VK_F4)
        return m_bOpen ? KEY_TAKE : KEY_OPEN;
    if (!m_bOpen)
        return KEY_NONE;
    switch (nKey)
    {
    case VK_RETURN:
        return KEY_TAKE;
    case VK_ESCAPE:
        return KEY_CANCEL;
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
        m_calendar.SendMessage(WM_KEYDOWN, pMsg->wParam, pMsg->lParam);
        return KEY_HANDLED;
    default:
        return KEY_NONE;
    }
}

void CCalendarDropDown::Destroy()
{
    Close();
    m_calendar.DestroyWindow();
}

CString CCalendarDropDown::FormatDate(double dDay, int nStyle, char chSeparator)
{
    switch (nStyle)
    {
    case CKelDate::DATE_MMDDYY: return CKelDate::FmtMMsDDsYY(dDay, chSeparator);
    case CKelDate::DATE_MMYYYY: return CKelDate::FmtMMsYYYY(dDay, chSeparator);
    case CKelDate::DATE_MMYY: return CKelDate::FmtMMsYY(dDay, chSeparator);
    default: return CKelDate::FmtMMsDDsYYYY(dDay, chSeparator);
    }
}
