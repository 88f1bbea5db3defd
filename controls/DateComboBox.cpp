#include "controls/DateComboBox.h"

#include <float.h>
#include <string.h>

IMPLEMENT_DYNAMIC(CDateComboBox, CStringComboBox)

CDateComboBox::CDateComboBox()
    : m_date(1), m_dMinValue(DBL_MIN), m_dMaxValue(DBL_MAX), m_nDateStyle(CKelDate::DATE_MMDDYYYY),
      m_chDateSeparator('/')
{
}

void CDateComboBox::SetMinMaxValues(double dMinDayNumber, double dMaxDayNumber)
{
    m_dMinValue = dMinDayNumber;
    m_dMaxValue = dMaxDayNumber;
}

void CDateComboBox::SetMinMaxValues(const CKelDate& minDate, const CKelDate& maxDate)
{
    SetMinMaxValues(minDate.JulianValue(), maxDate.JulianValue());
}

// Bit for bit, as the double bounds of the numeric controls.
BOOL CDateComboBox::IsLowerSet() const
{
    const double dNone = DBL_MIN;
    return memcmp(&m_dMinValue, &dNone, sizeof(double)) != 0;
}

BOOL CDateComboBox::IsUpperSet() const
{
    const double dNone = DBL_MAX;
    return memcmp(&m_dMaxValue, &dNone, sizeof(double)) != 0;
}

CString CDateComboBox::Format(double dDayNumber) const
{
    switch (m_nDateStyle)
    {
    case CKelDate::DATE_MMDDYY: return CKelDate::FmtMMsDDsYY(dDayNumber, m_chDateSeparator);
    case CKelDate::DATE_MMYYYY: return CKelDate::FmtMMsYYYY(dDayNumber, m_chDateSeparator);
    case CKelDate::DATE_MMYY: return CKelDate::FmtMMsYY(dDayNumber, m_chDateSeparator);
    default: return CKelDate::FmtMMsDDsYYYY(dDayNumber, m_chDateSeparator);
    }
}

int CDateComboBox::ValidateAndGet(CKelDate& date, int nIndex, CDataExchange* pDX)
{
    CString strText;
    if (!GetValidationText(nIndex, pDX, strText))
        return FALSE;
    CString strMessage;
    if (m_date.ValidateAndSet(strText, &strMessage))
    {
        double dDayNumber = m_date.JulianValue();
        if ((!IsLowerSet() || dDayNumber >= m_dMinValue) && (!IsUpperSet() || dDayNumber <= m_dMaxValue))
        {
            date = m_date;
            return TRUE;
        }
        strMessage = FormatRangeMessage(IsLowerSet() ? (LPCTSTR)Format(m_dMinValue) : NULL,
                                        IsUpperSet() ? (LPCTSTR)Format(m_dMaxValue) : NULL);
    }
    return ReportFailure(strMessage, pDX, FOCUS_ALWAYS);
}

CKelDate CDateComboBox::GetValue(int nIndex)
{
    CKelDate date(0);
    ValidateAndGet(date, nIndex, NULL);
    return date;
}

int CDateComboBox::Validate(int nIndex)
{
    CKelDate date(0);
    return ValidateAndGet(date, nIndex, NULL);
}

int CDateComboBox::AddString(const CKelDate& date)
{
    return CStringComboBox::AddString(Format(date.JulianValue()));
}

void CDateComboBox::SetWindowText(const CKelDate& date)
{
    CStringComboBox::SetWindowText(Format(date.JulianValue()));
}

CStringEdit* CDateComboBox::CreateFieldEdit()
{
    CDateEdit* pEdit = new CDateEdit;
    pEdit->SetDateSeperator(m_chDateSeparator);
    pEdit->SetDateStyle(m_nDateStyle);
    pEdit->MakeStyleValid(static_cast<CKelDate::DATE_STYLE>(m_nDateStyle), TRUE);
    return pEdit;
}
