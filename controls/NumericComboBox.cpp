#include "controls/NumericComboBox.h"

#include <float.h>

IMPLEMENT_DYNAMIC(CShortComboBox, CStringComboBox)
IMPLEMENT_DYNAMIC(CUShortComboBox, CStringComboBox)
IMPLEMENT_DYNAMIC(CLongComboBox, CStringComboBox)
IMPLEMENT_DYNAMIC(CULongComboBox, CStringComboBox)
IMPLEMENT_DYNAMIC(CDoubleComboBox, CStringComboBox)

CDoubleComboBox::CDoubleComboBox()
    : m_nDecimalPlaces(2), m_bRound(1), m_dMinValue(DBL_MIN), m_dMaxValue(DBL_MAX), m_bScientificNotation(0)
{
}

CString CDoubleComboBox::FormatValue(double value) const
{
    return CDouble::Format(value, m_nDecimalPlaces, m_bRound, m_bScientificNotation);
}

int CDoubleComboBox::ValidateAndGet(double& value, int nIndex, CDataExchange* pDX)
{
    CString strText;
    if (!GetValidationText(nIndex, pDX, strText))
        return FALSE;
    // The combo has no switch to refuse the undefined value: it is checked against the bounds
    // like any other value, and passes while they are open.
    CString strMessage;
    if (ReadDoubleInRange(strText, m_dMinValue, m_dMaxValue, m_nDecimalPlaces, m_bRound, m_bScientificNotation, TRUE,
                          value, strMessage))
        return TRUE;
    return ReportFailure(strMessage, pDX, FOCUS_ALWAYS);
}

double CDoubleComboBox::GetValue(int nIndex)
{
    double value = DBL_MIN;
    ValidateAndGet(value, nIndex, NULL);
    return value;
}

int CDoubleComboBox::Validate(int nIndex)
{
    double value = DBL_MIN;
    return ValidateAndGet(value, nIndex, NULL);
}

int CDoubleComboBox::AddString(double value)
{
    return CStringComboBox::AddString(FormatValue(value));
}

void CDoubleComboBox::SetWindowText(double value)
{
    CStringComboBox::SetWindowText(FormatValue(value));
}

CStringEdit* CDoubleComboBox::CreateFieldEdit()
{
    CDoubleEdit* pEdit = new CDoubleEdit;
    pEdit->SetDecimalPlaces(m_nDecimalPlaces);
    pEdit->SetRound(m_bRound);
    pEdit->SetScientificNotation(m_bScientificNotation);
    pEdit->SetMinMaxValues(m_dMinValue, m_dMaxValue);
    return pEdit;
}
