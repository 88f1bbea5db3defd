#include "controls/Control.h"

#include <afxdlg.h>
#include <float.h>

#include "values/DoubleValue.h"
#include <string.h>

CControl::PFNFOCUSPROC CControl::s_pfnSetFocusProc = NULL;
CControl::PFNFOCUSPROC CControl::s_pfnKillFocusProc = NULL;
BOOL CControl::s_bInSetFocusProc = FALSE;
BOOL CControl::s_bInKillFocusProc = FALSE;

CControl::CControl()
    : m_bDisplayErrMsg(1), m_bDynamicErrChecking(1), m_bCallSetFocusProc(0), m_bCallKillFocusProc(0),
      m_pbCallSetFocusProc(NULL), m_pbCallKillFocusProc(NULL)
{
}

CControl::CControl(const CControl& other) = default;
CControl& CControl::operator=(const CControl& other) = default;
CControl::~CControl() = default;

CWnd* CControl::GetControlWnd() const
{
    const CWnd* pWnd = dynamic_cast<const CWnd*>(this);
    return pWnd != NULL && ::IsWindow(pWnd->m_hWnd) ? const_cast<CWnd*>(pWnd) : NULL;
}

void CControl::SetControlName()
{
    CWnd* pWnd = GetControlWnd();
    if (pWnd == NULL)
        return;
    HWND hWndLabel = ::GetWindow(pWnd->m_hWnd, GW_HWNDPREV);
    if (hWndLabel != NULL)
        AfxGetWindowText(hWndLabel, m_strControlName);
}

void CControl::SetSetFocusProc(PFNFOCUSPROC pfnProc) const
{
    s_pfnSetFocusProc = pfnProc;
}

void CControl::SetKillFocusProc(PFNFOCUSPROC pfnProc) const
{
    s_pfnKillFocusProc = pfnProc;
}

void CControl::CallSetFocusProc(CWnd* pOldWnd)
{
    BOOL bAsked = (m_pbCallSetFocusProc != NULL && *m_pbCallSetFocusProc != 0) || m_bCallSetFocusProc != 0;
    if (s_pfnSetFocusProc == NULL || !bAsked || s_bInSetFocusProc)
        return;
    s_bInSetFocusProc = TRUE;
    s_pfnSetFocusProc(GetControlWnd(), pOldWnd);
    s_bInSetFocusProc = FALSE;
}

void CControl::CallKillFocusProc(CWnd* pNewWnd)
{
    BOOL bAsked = (m_pbCallKillFocusProc != NULL && *m_pbCallKillFocusProc != 0) || m_bCallKillFocusProc != 0;
    if (s_pfnKillFocusProc == NULL || !bAsked || s_bInKillFocusProc)
        return;
    s_bInKillFocusProc = TRUE;
    s_pfnKillFocusProc(GetControlWnd(), pNewWnd);
    s_bInKillFocusProc = FALSE;
}

int CControl::ReportFailure(const CString& strMessage, CDataExchange* pDX, FAILURE_FOCUS focus)
{
    CWnd* pWnd = GetControlWnd();
    if (pWnd != NULL && (focus == FOCUS_ALWAYS || m_bDisplayErrMsg))
    {
        pWnd->SetFocus();
        if (focus == FOCUS_SELECT_WHEN_SHOWN)
        {
            pWnd->SendMessage(EM_SETSEL, 0, -1);
            pWnd->SendMessage(EM_SCROLLCARET);
        }
    }
    if (m_bDisplayErrMsg)
    {
        HWND hWndOwner = pWnd != NULL ? ::GetParent(pWnd->m_hWnd) : NULL;
        ::MessageBoxA(hWndOwner, strMessage, m_strControlName, MB_ICONEXCLAMATION);
    }
    if (pDX != NULL)
        pDX->Fail();
    return FALSE;
}

CString CControl::FormatRangeMessage(LPCTSTR lpszLower, LPCTSTR lpszUpper, LPCTSTR lpszNoBounds) const
{
    CString strMessage = m_strControlName.IsEmpty() ? CString("The value entered") : m_strControlName;
    // Line feed before carriage return: kept, hosts compare the whole message.
    strMessage += " is out of range!\n\r";
    if (lpszLower != NULL)
        strMessage += lpszUpper != NULL ? "Please enter a value between "
                                        : "Please enter a value greater than or equal to ";
    else if (lpszUpper != NULL)
        strMessage += "Please enter a value less than or equal to ";
    else if (lpszNoBounds != NULL)
        strMessage += lpszNoBounds;
    if (lpszLower != NULL)
        strMessage += lpszLower;
    if (lpszLower != NULL && lpszUpper != NULL)
        strMessage += " and ";
    if (lpszUpper != NULL)
        strMessage += lpszUpper;
    strMessage += "!";
    return strMessage;
}

CString CControl::FormatChoiceMessage() const
{
    // The leading blank is part of the message hosts know.
    CString strMessage;
    strMessage.Format(" A %s must be selected!", static_cast<LPCTSTR>(m_strControlName));
    return strMessage;
}

int CControl::GetCachedText(HWND hWnd, CString& strCache, LPTSTR lpszBuffer, int nMaxCount)
{
    if (lpszBuffer == NULL || nMaxCount <= 0)
        return 0;
    if (::IsWindow(hWnd))
    {
        int nLength = ::GetWindowTextA(hWnd, lpszBuffer, nMaxCount);
        strCache = lpszBuffer;
        return nLength;
    }
    int nLength = strCache.GetLength() < nMaxCount - 1 ? strCache.GetLength() : nMaxCount - 1;
    memcpy(lpszBuffer, static_cast<LPCTSTR>(strCache), nLength);
    lpszBuffer[nLength] = '\0';
    return nLength;
}

void CControl::SetCachedText(HWND hWnd, CString& strCache, LPCTSTR lpszText)
{
    strCache = lpszText != NULL ? lpszText : "";
    if (::IsWindow(hWnd))
        ::SetWindowTextA(hWnd, strCache);
}

BOOL CControl::IsDoubleBoundSet(double dBound, double dNone)
{
    return memcmp(&dBound, &dNone, sizeof(double)) != 0;
}

int CControl::ReadDoubleInRange(const CString& strText, double dMin, double dMax, int nDecimals, int nRound,
                                int nScientific, BOOL bAcceptUndefined, double& value, CString& strMessage) const
{
    double dRead = DBL_MIN;
    if (!CDouble::ValidateAndGet(strText, dRead, &strMessage, nDecimals, nRound, nScientific))
        return FALSE;
    BOOL bLowerSet = IsDoubleBoundSet(dMin, DBL_MIN);
    BOOL bUpperSet = IsDoubleBoundSet(dMax, DBL_MAX);
    if (!((!bLowerSet || dRead >= dMin) && (!bUpperSet || dRead <= dMax) && (dRead != DBL_MIN || bAcceptUndefined)))
    {
        strMessage = FormatRangeMessage(bLowerSet ? static_cast<LPCTSTR>(CDouble::Format(dMin, -1, 0, 0)) : NULL,
                                        bUpperSet ? static_cast<LPCTSTR>(CDouble::Format(dMax, -1, 0, 0)) : NULL,
                                        "Please enter a valid value");
        return FALSE;
    }
    value = dRead;
    return TRUE;
}
