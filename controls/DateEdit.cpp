#include "controls/DateEdit.h"

#include <afxdlg.h>
#include <string.h>

IMPLEMENT_DYNAMIC(CDateEdit, CStringEdit)

CDateEdit::CDateEdit() : m_date(1), m_nDateStyle(CKelDate::DATE_MMDDYYYY), m_chDateSeparator('/') {}

int CDateEdit::GetValue(CKelDate& date)
{
    return ValidateAndGet(date, NULL);
}

CKelDate CDateEdit::GetValue()
{
    CKelDate date(0);
    GetValue(date);
    return date;
}

int CDateEdit::Validate()
{
    CKelDate date(0);
    return ValidateAndGet(date, NULL);
}

int CDateEdit::ValidateAndGet(CKelDate& date, CDataExchange* pDX)
{
    CString strText;
    if (pDX != NULL)
        DDX_Text(pDX, GetDlgCtrlID(), strText);
    else
        GetWindowText(strText);
    CString strMessage;
    if (!m_date.ValidateAndSet(strText, &strMessage))
        return ReportFailure(strMessage, pDX, FOCUS_SELECT_WHEN_SHOWN);
    date = m_date;
    return TRUE;
}

int CDateEdit::DynamicValidate()
{
    CString strText;
    GetWindowText(strText);
    return strspn(strText, "0123456789-\\/") == static_cast<size_t>(strText.GetLength());
}

void CDateEdit::SetWindowText(CKelDate& date)
{
    CString strText;
    switch (m_nDateStyle)
    {
    case CKelDate::DATE_MMDDYYYY: date.FmtMMsDDsYYYY(strText, m_chDateSeparator); break;
    case CKelDate::DATE_MMDDYY: date.FmtMMsDDsYY(strText, m_chDateSeparator); break;
    case CKelDate::DATE_MMYYYY: date.FmtMMsYYYY(strText, m_chDateSeparator); break;
    case CKelDate::DATE_MMYY: date.FmtMMsYY(strText, m_chDateSeparator); break;
    default: return;
    }
    CStringEdit::SetWindowText(strText);
}

void CDateEdit::SetWindowText(double dDayNumber)
{
    CKelDate date(dDayNumber);
    SetWindowText(date);
}

void CDateEdit::MakeStyleValid(CKelDate::DATE_STYLE style, int valid)
{
    m_date.MakeStyleValid(style, valid);
}

const CKelDate& CDateEdit::operator=(const CKelDate& date)
{
    CKelDate copy(date);
    SetWindowText(copy);
    return date;
}

double CDateEdit::operator=(double dDayNumber)
{
    SetWindowText(dDayNumber);
    return dDayNumber;
}

CDateEdit::operator double()
{
    return GetValue();
}

CDateEdit::operator const CKelDate&()
{
    Validate();
    return m_date;
}
