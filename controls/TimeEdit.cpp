#include "controls/TimeEdit.h"

#include "frame/KelControlsFrame.h"
#include "kelutil/KEL_Util.h"

namespace
{
// WS_CHILD | WS_VISIBLE and the entry window's own bits, which it ignores but has always had.
const DWORD TIME_FIELD_STYLE = 0x50008401;
} // namespace

IMPLEMENT_DYNAMIC(CTimeEdit, CWnd)
IMPLEMENT_DYNAMIC(CMsTimeEdit, CTimeEdit)
IMPLEMENT_DYNAMIC(CHourTimeEdit, CTimeEdit)

BEGIN_MESSAGE_MAP(CTimeEdit, CWnd)
ON_WM_CREATE()
ON_WM_SETFOCUS()
ON_WM_ENABLE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CTimeEdit::CTimeEdit() : m_time(1), m_nTimeFormat(2), m_chSeparator('/'), m_bMilliseconds(0), m_hWndTime(NULL) {}

CMsTimeEdit::CMsTimeEdit()
{
    m_bMilliseconds = 1;
}

int CTimeEdit::GetValue(CKelTime& time)
{
    return ValidateAndGet(time, NULL);
}

CKelTime CTimeEdit::GetValue()
{
    CKelTime time(0L);
    GetValue(time);
    return time;
}

int CTimeEdit::Validate()
{
    CKelTime time(0L);
    return ValidateAndGet(time, NULL);
}

int CTimeEdit::ValidateAndGet(CKelTime& time, CDataExchange*)
{
    long lValue = m_hWndTime != NULL ? static_cast<long>(::SendMessage(m_hWndTime, WM_USER + 1, 0, 0)) : 0;
    time = m_bMilliseconds ? lValue : lValue * 1000;
    return TRUE;
}

void CTimeEdit::SetWindowText(CKelTime& time)
{
    long lValue = m_bMilliseconds ? static_cast<long>(time) : static_cast<long>(time) / 1000;
    if (m_hWndTime != NULL)
        ::SendMessage(m_hWndTime, WM_USER, 0, lValue);
}

void CTimeEdit::SetWindowText(long lMilliseconds)
{
    m_time = lMilliseconds;
    SetWindowText(m_time);
}

const CKelTime& CTimeEdit::operator=(const CKelTime& time)
{
    CKelTime copy(time);
    SetWindowText(copy);
    return time;
}

long CTimeEdit::operator=(long lMilliseconds)
{
    SetWindowText(lMilliseconds);
    return lMilliseconds;
}

CTimeEdit::operator long()
{
    return GetValue();
}

CTimeEdit::operator const CKelTime&()
{
    ValidateAndGet(m_time, NULL);
    return m_time;
}

void CTimeEdit::SetFont(CFont* pFont, BOOL bRedraw)
{
    if (m_hWndTime != NULL)
        ::SendMessage(m_hWndTime, WM_SETFONT, reinterpret_cast<WPARAM>(pFont != NULL ? pFont->GetSafeHandle() : NULL),
                      bRedraw);
}

int CTimeEdit::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    // Loads the companion (its classes are registered when it starts) before using its class.
    KEL_Util_Running();
    m_hWndTime = ::CreateWindowExA(0, m_bMilliseconds ? KEL_MSTIMECLASS : KEL_TIMECLASS, "", TIME_FIELD_STYLE, 0, 0,
                                   lpCreateStruct->cx, lpCreateStruct->cy, m_hWnd,
                                   reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_TIME_FIELD)),
                                   CKelControlsModule::GetInstanceHandle(), NULL);
    return 0;
}

void CTimeEdit::OnSetFocus(CWnd*)
{
    // A click at the left edge focuses the entry window on its first field.
    if (m_hWndTime != NULL)
        ::SendMessage(m_hWndTime, WM_LBUTTONDOWN, 0, 0);
}

void CTimeEdit::OnEnable(BOOL bEnable)
{
    if (m_hWndTime != NULL)
        ::EnableWindow(m_hWndTime, bEnable);
}

void CTimeEdit::OnDestroy()
{
    if (m_hWndTime != NULL)
        ::DestroyWindow(m_hWndTime);
    m_hWndTime = NULL;
    CWnd::OnDestroy();
}

BOOL CHourTimeEdit::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && m_hWndTime != NULL &&
        ((pMsg->wParam >= 48 && pMsg->wParam <= 57) || (pMsg->wParam >= 96 && pMsg->wParam <= 105)) &&
        ::GetWindowLongA(m_hWndTime, 0) > 1)
        return TRUE;
    return CTimeEdit::PreTranslateMessage(pMsg);
}
