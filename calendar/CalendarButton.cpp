#include "calendar/CalendarButton.h"

#include "calendar/CalendarDropDown.h"
#include "kelutil/KEL_Util.h"

#include <float.h>

IMPLEMENT_DYNAMIC(CCalendarButton, CKelButton)

BEGIN_MESSAGE_MAP(CCalendarButton, CKelButton)
ON_CONTROL_REFLECT_EX(BN_CLICKED, OnClicked)
ON_WM_CANCELMODE()
ON_WM_DESTROY()
ON_MESSAGE(KDDM_CLOSEUP, OnCloseUpMessage)
END_MESSAGE_MAP()

CCalendarButton::CCalendarButton()
    : m_pBuddy(NULL), m_pDateBuddy(NULL), m_date(0), m_nDateStyle(0), m_chDateSeparator('/'), m_dMin(DBL_MIN),
      m_dMax(DBL_MAX), m_pDropDown(new CCalendarDropDown), m_dwCalStyle(0)
{
}

CCalendarButton::~CCalendarButton()
{
    m_pDropDown->Destroy();
    DestroyWindow();
    delete m_pDropDown;
}

void CCalendarButton::SetBuddy(CWnd* pBuddy)
{
    m_pBuddy = pBuddy;
    m_pDateBuddy = NULL;
}

void CCalendarButton::SetBuddy(CDateEdit* pBuddy)
{
    m_pBuddy = pBuddy;
    m_pDateBuddy = pBuddy;
}

void CCalendarButton::SetDate(const CKelDate& date)
{
    m_date = date;
}

int CCalendarButton::GetDate(CKelDate& date) const
{
    if (!m_date.IsValid())
        return 0;
    date = m_date;
    return 1;
}

int CCalendarButton::SetDateStyle(int nStyle)
{
    if (nStyle < CKelDate::DATE_MMDDYYYY || nStyle > CKelDate::DATE_MMYY)
        return 0;
    m_nDateStyle = nStyle;
    return 1;
}

int CCalendarButton::SetRange(double dMin, double dMax)
{
    if (!(dMin <= dMax))
        return 0;
    m_dMin = dMin;
    m_dMax = dMax;
    return 1;
}

void CCalendarButton::SetCalendarStyle(DWORD dwCalStyle)
{
    m_dwCalStyle = dwCalStyle;
    m_pDropDown->SetCalendarStyle(dwCalStyle);
}

CKelCalendar* CCalendarButton::GetCalendar()
{
    return ::IsWindow(m_hWnd) ? m_pDropDown->GetCalendar(this) : NULL;
}

BOOL CCalendarButton::ShowDropDown(BOOL bShowIt)
{
    if (bShowIt)
        Open();
    else
        Close(false);
    return m_pDropDown->IsOpen();
}

BOOL CCalendarButton::GetDroppedState() const
{
    return m_pDropDown->IsOpen();
}

void CCalendarButton::GetMonitorRect(CRect& rect) const
{
    rect.SetRect(0, 0, GetScreenWidth(), GetScreenHeight());
}

double CCalendarButton::GetFirstDate()
{
    CKelDate date(0);
    if (m_pDateBuddy != NULL && ::IsWindow(m_pDateBuddy->m_hWnd))
    {
        // Read quietly: a half-typed date is no reason for a message box here.
        const int bDisplay = m_pDateBuddy->GetDisplayErrMsg();
        m_pDateBuddy->SetDisplayErrMsg(0);
        m_pDateBuddy->GetValue(date);
        m_pDateBuddy->SetDisplayErrMsg(bDisplay);
    }
    else if (m_pBuddy != NULL && ::IsWindow(m_pBuddy->m_hWnd))
    {
        CString strText;
        m_pBuddy->GetWindowText(strText);
        date.ValidateAndSet(strText);
    }
    if (!date.IsValid())
        date = m_date;
    return date.IsValid() ? date.JulianValue() : 0;
}

BOOL CCalendarButton::Open()
{
    if (!::IsWindow(m_hWnd) || m_pDropDown->IsOpen())
        return FALSE;
    CRect rcHost, rcMonitor;
    GetWindowRect(rcHost);
    GetMonitorRect(rcMonitor);
    const double dMin = m_dMin == DBL_MIN ? -DBL_MAX : m_dMin;
    m_pDropDown->SetCalendarStyle(m_dwCalStyle);
    return m_pDropDown->Open(this, rcHost, rcMonitor, dMin, m_dMax, GetFirstDate(), true);
}

void CCalendarButton::Close(bool bTake)
{
    if (!m_pDropDown->Close() || !bTake)
        return;
    const double dDay = m_pDropDown->GetChoice();
    if (dDay == 0)
        return;
    m_date = dDay;
    if (m_pDateBuddy != NULL && ::IsWindow(m_pDateBuddy->m_hWnd))
        m_pDateBuddy->SetWindowText(m_date);
    else if (m_pBuddy != NULL && ::IsWindow(m_pBuddy->m_hWnd))
        m_pBuddy->SetWindowText(CCalendarDropDown::FormatDate(dDay, m_nDateStyle, m_chDateSeparator));
    if (!::IsWindow(m_hWnd))
        return;
    NMKELCALENDAR nm;
    memset(&nm, 0, sizeof(nm));
    nm.dDay = nm.dSelStart = nm.dSelEnd = dDay;
    nm.nViewYear = CKelDate::GetYear(dDay);
    nm.nViewMonth = CKelDate::GetMonth(dDay);
    NotifyParent(nm, CALN_SELECT);
}

void CCalendarButton::NotifyParent(const NMKELCALENDAR& nmFrom, UINT nCode)
{
    CWnd* pParent = GetParent();
    if (pParent == NULL)
        return;
    NMKELCALENDAR nm = nmFrom;
    nm.hdr.hwndFrom = m_hWnd;
    nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    nm.hdr.code = nCode;
    pParent->SendMessage(WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
}

BOOL CCalendarButton::PreTranslateMessage(MSG* pMsg)
{
    if (m_pDropDown->IsOpen())
    {
        switch (m_pDropDown->TranslateKey(pMsg))
        {
        case CCalendarDropDown::KEY_TAKE:
            Close(true);
            return TRUE;
        case CCalendarDropDown::KEY_CANCEL:
            Close(false);
            return TRUE;
        case CCalendarDropDown::KEY_HANDLED:
            return TRUE;
        default:
            break;
        }
    }
    return CKelButton::PreTranslateMessage(pMsg);
}

BOOL CCalendarButton::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* pHdr = reinterpret_cast<NMHDR*>(lParam);
    CKelCalendar* pCal = m_pDropDown->GetCalendar(NULL);
    if (pHdr == NULL || pCal == NULL || pHdr->hwndFrom != pCal->m_hWnd)
        return CKelButton::OnNotify(wParam, lParam, pResult);
    *pResult = 0;
    if (pHdr->code == CALN_SELECT)
        Close(true);
    else if (pHdr->code == CALN_VIEWCHANGE)
        NotifyParent(*reinterpret_cast<NMKELCALENDAR*>(lParam), CALN_VIEWCHANGE);
    return TRUE;
}

BOOL CCalendarButton::OnClicked()
{
    if (m_pDropDown->IsOpen())
        Close(false);
    else
        Open();
    return FALSE; // the parent hears of the click too
}

void CCalendarButton::OnCancelMode()
{
    Close(false);
    CKelButton::OnCancelMode();
}

void CCalendarButton::OnDestroy()
{
    m_pDropDown->Destroy();
    CKelButton::OnDestroy();
}

LRESULT CCalendarButton::OnCloseUpMessage(WPARAM wParam, LPARAM)
{
    Close(wParam != 0);
    return 0;
}
