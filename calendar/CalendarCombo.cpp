#include "calendar/CalendarCombo.h"

#include "calendar/CalendarDropDown.h"
#include "kelutil/KEL_Util.h"

#include <float.h>

IMPLEMENT_DYNAMIC(CCalendarCombo, CDateComboBox)

BEGIN_MESSAGE_MAP(CCalendarCombo, CDateComboBox)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_CANCELMODE()
ON_WM_DESTROY()
ON_MESSAGE(CB_SHOWDROPDOWN, OnShowDropDownMessage)
ON_MESSAGE(CB_GETDROPPEDSTATE, OnGetDroppedStateMessage)
ON_MESSAGE(CB_GETDROPPEDCONTROLRECT, OnGetDroppedControlRect)
ON_MESSAGE(KDDM_CLOSEUP, OnCloseUpMessage)
END_MESSAGE_MAP()

CCalendarCombo::CCalendarCombo()
    : m_pDropDown(new CCalendarDropDown), m_dwCalStyle(0), m_bDropped(0), m_bSending(false)
{
}

CCalendarCombo::~CCalendarCombo()
{
    m_pDropDown->Destroy();
    DestroyWindow();
    delete m_pDropDown;
}

CKelCalendar* CCalendarCombo::GetCalendar()
{
    return ::IsWindow(m_hWnd) ? m_pDropDown->GetCalendar(this) : NULL;
}

void CCalendarCombo::SetCalendarStyle(DWORD dwCalStyle)
{
    m_dwCalStyle = dwCalStyle;
    m_pDropDown->SetCalendarStyle(dwCalStyle);
}

BOOL CCalendarCombo::ShowDropDown(BOOL bShowIt)
{
    if (bShowIt)
        Open();
    else
        Close(false);
    return m_bDropped;
}

BOOL CCalendarCombo::GetDroppedState() const
{
    return m_bDropped;
}

void CCalendarCombo::GetMonitorRect(CRect& rect) const
{
    rect.SetRect(0, 0, GetScreenWidth(), GetScreenHeight());
}

BOOL CCalendarCombo::Open()
{
    if (!::IsWindow(m_hWnd) || !IsWindowEnabled() || m_bDropped)
        return FALSE;
    SendCommand(CBN_DROPDOWN);
    CKelDropDown::CloseOpenDropDown();
    if (!::IsWindow(m_hWnd))
        return FALSE;

    CString strText;
    CComboBox::GetWindowText(strText);
    CKelDate date(m_date);
    const double dFirst = date.ValidateAndSet(strText) ? date.JulianValue() : 0;
    const double dMin = IsLowerSet() ? m_dMinValue : -DBL_MAX, dMax = IsUpperSet() ? m_dMaxValue : DBL_MAX;
    CRect rcHost, rcMonitor;
    GetWindowRect(rcHost);
    GetMonitorRect(rcMonitor);
    m_pDropDown->SetCalendarStyle(m_dwCalStyle);
    if (!m_pDropDown->Open(this, rcHost, rcMonitor, dMin, dMax, dFirst, false))
        return FALSE;
    m_bDropped = 1;
    return TRUE;
}

void CCalendarCombo::Close(bool bTake)
{
    if (!m_bDropped)
        return;
    m_bDropped = 0;
    m_pDropDown->Close();
    const double dDay = bTake ? m_pDropDown->GetChoice() : 0;
    if (dDay == 0)
    {
        SendCommand(CBN_SELENDCANCEL);
        SendCommand(CBN_CLOSEUP);
        return;
    }
    SendCommand(CBN_SELENDOK);
    if (!::IsWindow(m_hWnd))
        return;
    CString strOld;
    CComboBox::GetWindowText(strOld);
    const CString strNew = Format(dDay);
    SetWindowText(strNew);
    SendCommand(CBN_CLOSEUP);
    if (strNew != strOld)
        SendCommand(CBN_SELCHANGE);
}

void CCalendarCombo::SendCommand(UINT nCode)
{
    CWnd* pParent = ::IsWindow(m_hWnd) ? GetParent() : NULL;
    if (pParent == NULL)
        return;
    m_bSending = true;
    pParent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), nCode), reinterpret_cast<LPARAM>(m_hWnd));
    m_bSending = false;
}

BOOL CCalendarCombo::PreTranslateMessage(MSG* pMsg)
{
    if (::IsWindow(m_hWnd) && (pMsg->hwnd == m_hWnd || ::IsChild(m_hWnd, pMsg->hwnd)))
    {
        switch (m_pDropDown->TranslateKey(pMsg))
        {
        case CCalendarDropDown::KEY_OPEN:
            Open();
            return TRUE;
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
    return CDateComboBox::PreTranslateMessage(pMsg);
}

BOOL CCalendarCombo::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_COMMAND && !m_bSending)
    {
        switch (HIWORD(wParam))
        {
        case CBN_SELENDOK:
        case CBN_SELENDCANCEL:
        case CBN_SELCHANGE:
        case CBN_DROPDOWN:
        case CBN_CLOSEUP:
            return TRUE; // the platform combo's own: the combo tells of its calendar itself
        case CBN_KILLFOCUS:
            Close(false);
            break;
        default:
            break;
        }
    }
    return CDateComboBox::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CCalendarCombo::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* pHdr = reinterpret_cast<NMHDR*>(lParam);
    CKelCalendar* pCal = m_pDropDown->GetCalendar(NULL);
    if (pHdr == NULL || pCal == NULL || pHdr->hwndFrom != pCal->m_hWnd)
        return CDateComboBox::OnNotify(wParam, lParam, pResult);
    *pResult = 0;
    if (pHdr->code == CALN_SELECT)
        Close(true);
    else if (pHdr->code == CALN_VIEWCHANGE && GetParent() != NULL)
    {
        NMKELCALENDAR nm = *reinterpret_cast<NMKELCALENDAR*>(lParam);
        nm.hdr.hwndFrom = m_hWnd;
        nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
        GetParent()->SendMessage(WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
    }
    return TRUE;
}

void CCalendarCombo::OnLButtonDown(UINT, CPoint)
{
    // The combo's own area outside its edit field is its button: the calendar opens or closes
    // instead of the platform's list, which the combo never lets open.
    CWnd* pEdit = GetWindow(GW_CHILD);
    if (pEdit != NULL && ::GetFocus() != pEdit->m_hWnd)
        pEdit->SetFocus();
    if (m_bDropped)
        Close(false);
    else
        Open();
}

void CCalendarCombo::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    OnLButtonDown(nFlags, point);
}

void CCalendarCombo::OnCancelMode()
{
    Close(false);
    CDateComboBox::OnCancelMode();
}

void CCalendarCombo::OnDestroy()
{
    // Closed quietly: the parent may be going too.
    m_bDropped = 0;
    m_pDropDown->Destroy();
    CDateComboBox::OnDestroy();
}

LRESULT CCalendarCombo::OnShowDropDownMessage(WPARAM wParam, LPARAM)
{
    ShowDropDown(wParam != 0);
    return TRUE;
}

LRESULT CCalendarCombo::OnGetDroppedStateMessage(WPARAM, LPARAM)
{
    return m_bDropped;
}

LRESULT CCalendarCombo::OnGetDroppedControlRect(WPARAM, LPARAM lParam)
{
    if (lParam == 0)
        return CB_ERR;
    CRect rect;
    m_pDropDown->GetWindowRect(rect);
    *reinterpret_cast<RECT*>(lParam) = rect;
    return TRUE;
}

LRESULT CCalendarCombo::OnCloseUpMessage(WPARAM wParam, LPARAM)
{
    Close(wParam != 0);
    return 0;
}
