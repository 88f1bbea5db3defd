// CTimeEdit, CMsTimeEdit and CHourTimeEdit: hosts of KEL_Util's time-entry windows. The host
// creates the entry window ("TimeClass", or "MsTimeClass" for milliseconds) over its whole
// client area and talks to it with two messages: WM_USER sets the value, WM_USER + 1 reads it,
// in whole seconds for "TimeClass" and in milliseconds for "MsTimeClass". Reading never fails.
#pragma once

#include <afxwin.h>

#include "values/KelTime.h"

class CDataExchange;

class AFX_EXT_CLASS CTimeEdit : public CWnd
{
    DECLARE_DYNAMIC(CTimeEdit)
public:
    // The identifier of the entry window inside the host.
    enum { IDC_TIME_FIELD = 1001 };

    CTimeEdit();

    int GetValue(CKelTime& time);
    CKelTime GetValue();
    int Validate();
    // Always TRUE; without an entry window the value is 0.
    int ValidateAndGet(CKelTime& time, CDataExchange* pDX);
    // "TimeClass" keeps whole seconds: the milliseconds are cut off, toward zero.
    void SetWindowText(CKelTime& time);
    // Also becomes the control's own time value.
    void SetWindowText(long lMilliseconds);
    const CKelTime& operator=(const CKelTime& time);
    long operator=(long lMilliseconds);
    operator long();
    operator const CKelTime&();
    // The entry window draws the text, so it is the one that gets the font.
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);

    HWND GetTimeWnd() const { return m_hWndTime; }

protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    CKelTime m_time;
    // Neither is read by the time edits; they keep the layout of the fields that follow.
    int m_nTimeFormat;
    char m_chSeparator;
    BYTE m_bMilliseconds;
    HWND m_hWndTime;
};

class AFX_EXT_CLASS CMsTimeEdit : public CTimeEdit
{
    DECLARE_DYNAMIC(CMsTimeEdit)
public:
    CMsTimeEdit();
    using CTimeEdit::operator=;
};

// Hours only: once the entry window has moved past the hours and minutes (its current field,
// window word 0, is above 1), digit keys are swallowed before they are translated.
class AFX_EXT_CLASS CHourTimeEdit : public CTimeEdit
{
    DECLARE_DYNAMIC(CHourTimeEdit)
public:
    using CTimeEdit::operator=;
    BOOL PreTranslateMessage(MSG* pMsg) override;
};
