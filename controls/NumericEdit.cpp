#include "controls/NumericEdit.h"

#include <afxdlg.h>
#include <float.h>
#include <string.h>

IMPLEMENT_DYNAMIC(CNumericEdit, CStringEdit)
IMPLEMENT_DYNAMIC(CShortEdit, CNumericEdit)
IMPLEMENT_DYNAMIC(CUShortEdit, CNumericEdit)
IMPLEMENT_DYNAMIC(CLongEdit, CNumericEdit)
IMPLEMENT_DYNAMIC(CULongEdit, CNumericEdit)
IMPLEMENT_DYNAMIC(CDoubleEdit, CNumericEdit)

CString CNumericEdit::GetExchangeText(CDataExchange* pDX)
{
    CString strText;
    GetWindowText(strText);
    if (pDX != NULL)
        DDX_Text(pDX, GetDlgCtrlID(), strText);
    return strText;
}

namespace
{
const double NO_LOWER_BOUND = DBL_MIN; // also CDouble's undefined value
const double NO_UPPER_BOUND = DBL_MAX;

// A text that CDouble cannot read yet but will once it is complete: the beginnings of "??",
// "+INF" and "-INF", the complete spellings included.
BOOL IsSpecialSpellingPrefix(const CString& strText)
{
    static const char* const s_apszSpellings[] = {"??", "+INF", "-INF"};
    int nLength = strText.GetLength();
    for (const char* pszSpelling : s_apszSpellings)
        if (nLength <= static_cast<int>(strlen(pszSpelling)) && strncmp(strText, pszSpelling, nLength) == 0)
            return TRUE;
    return FALSE;
}
} // namespace

CDoubleEdit::CDoubleEdit()
    : m_nDecimalPlaces(2), m_bRound(1), m_bAcceptUndefined(1), m_dMinValue(NO_LOWER_BOUND),
      m_dMaxValue(NO_UPPER_BOUND), m_bScientificNotation(0)
{
}

BOOL CDoubleEdit::IsLowerSet() const
{
    return IsDoubleBoundSet(m_dMinValue, NO_LOWER_BOUND);
}

BOOL CDoubleEdit::IsUpperSet() const
{
    return IsDoubleBoundSet(m_dMaxValue, NO_UPPER_BOUND);
}

int CDoubleEdit::ValidateAndGet(double& value, CDataExchange* pDX)
{
    CString strMessage;
    if (ReadDoubleInRange(GetExchangeText(pDX), m_dMinValue, m_dMaxValue, m_nDecimalPlaces, m_bRound,
                          m_bScientificNotation, m_bAcceptUndefined, value, strMessage))
        return TRUE;
    return ReportFailure(strMessage, pDX, FOCUS_SELECT_WHEN_SHOWN);
}

double CDoubleEdit::GetValue()
{
    double value = DBL_MIN;
    ValidateAndGet(value, NULL);
    return value;
}

int CDoubleEdit::Validate()
{
    double value = DBL_MIN;
    return ValidateAndGet(value, NULL);
}

int CDoubleEdit::DynamicValidate()
{
    double dSavedMin = m_dMinValue;
    if (IsLowerSet() && m_dMinValue > 0.0)
        m_dMinValue = 0.0;
    int bValid = Validate();
    m_dMinValue = dSavedMin;
    CString strText;
    GetWindowText(strText);
    return bValid || IsSpecialSpellingPrefix(strText);
}

void CDoubleEdit::SetWindowText(double value)
{
    CStringEdit::SetWindowText(CDouble::Format(value, m_nDecimalPlaces, m_bRound, m_bScientificNotation));
}
