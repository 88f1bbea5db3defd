#include "controls/DmxCommandEdit.h"

#include <afxdlg.h>

#include "values/DmxCommand.h"

IMPLEMENT_DYNAMIC(CDmxCommandEdit, CStringEdit)

CDmxCommandEdit::CDmxCommandEdit() : m_lLevel(-1), m_nFlags(0) {}

int CDmxCommandEdit::ValidateAndGet(CString& strText, CUIntArray& aChannels, long* plLevel, long lFlags)
{
    return CDmxCommand::Parse(strText, aChannels, plLevel, lFlags);
}

int CDmxCommandEdit::ValidateAndGet(CUIntArray& aChannels, long* plLevel, CDataExchange* pDX)
{
    CString strText;
    if (pDX != NULL)
        DDX_Text(pDX, GetDlgCtrlID(), strText);
    else
        GetWindowText(strText);
    long lLevel = -1;
    // The parser cuts its text short, so it gets a buffer of its own.
    CString strScan(static_cast<LPCTSTR>(strText));
    if (!ValidateAndGet(strScan, aChannels, &lLevel, m_nFlags))
        return ReportFailure("Invalid Syntax", pDX, FOCUS_SELECT_WHEN_SHOWN);
    if (plLevel != NULL)
        *plLevel = lLevel;
    if (&aChannels != &m_aChannels)
        m_lLevel = lLevel;
    return TRUE;
}

int CDmxCommandEdit::GetValue(CUIntArray& aChannels, long* plLevel)
{
    return ValidateAndGet(aChannels, plLevel, NULL);
}

int CDmxCommandEdit::Validate()
{
    return ValidateAndGet(m_aChannels, &m_lLevel, NULL);
}

int CDmxCommandEdit::DynamicValidate()
{
    CString strText;
    GetWindowText(strText);
    if (!CDmxCommand::IsCommandText(strText))
        return FALSE;
    CString strRecalled;
    int nSelStart = 0, nSelEnd = 0;
    if (CDmxCommand::RecallLevel(strText, CDmxCommand::GetLastValidCommand(), strRecalled, nSelStart, nSelEnd))
    {
        CStringEdit::SetWindowText(strRecalled);
        if (::IsWindow(m_hWnd))
            SetSel(nSelStart, nSelEnd);
    }
    return TRUE;
}

void CDmxCommandEdit::SetWindowText(CString& strText)
{
    CString strBefore;
    GetWindowText(strBefore);
    CStringEdit::SetWindowText(strText);
    CControlQuietScope quiet(m_bDisplayErrMsg);
    if (!DynamicValidate())
        CStringEdit::SetWindowText(strBefore);
}

void CDmxCommandEdit::SetAutoFullValueFlag(bool bAutoFull)
{
    if (bAutoFull)
        m_nFlags |= CDmxCommand::AUTO_FULL;
    else
        m_nFlags &= ~CDmxCommand::AUTO_FULL;
}
