#include "controls/TypedStatic.h"

#include <float.h>

IMPLEMENT_DYNAMIC(CShortStatic, CStringStatic)
IMPLEMENT_DYNAMIC(CUShortStatic, CStringStatic)
IMPLEMENT_DYNAMIC(CLongStatic, CStringStatic)
IMPLEMENT_DYNAMIC(CULongStatic, CStringStatic)
IMPLEMENT_DYNAMIC(CDoubleStatic, CStringStatic)
IMPLEMENT_DYNAMIC(CDateStatic, CStringStatic)
IMPLEMENT_DYNAMIC(CTimeStatic, CStringStatic)

CDoubleStatic::CDoubleStatic() : CValueStaticT(0.0), m_nDecimalPlaces(2), m_bRound(1), m_bScientificNotation(0) {}

void CDoubleStatic::SetDecimalPlaces(int nDecimalPlaces)
{
    m_nDecimalPlaces = nDecimalPlaces;
    Reprint();
}

void CDoubleStatic::SetRound(int bRound)
{
    m_bRound = bRound;
    Reprint();
}

void CDoubleStatic::SetScientificNotation(int bScientific)
{
    m_bScientificNotation = bScientific;
    Reprint();
}

BOOL CDoubleStatic::FormatValue(const double& value, CString& strText) const
{
    strText = CDouble::Format(value, m_nDecimalPlaces, m_bRound, m_bScientificNotation);
    return TRUE;
}

BOOL CDoubleStatic::ParseText(const CString& strText, double& value) const
{
    return CDouble::ValidateAndGet(strText, value, NULL, m_nDecimalPlaces, m_bRound, m_bScientificNotation);
}

double CDoubleStatic::NoValue() const
{
    return DBL_MIN;
}

CDateStatic::CDateStatic() : CValueStaticT(CKelDate(0)), m_nDateStyle(CKelDate::DATE_MMDDYYYY), m_chDateSeparator('/') {}

BOOL CDateStatic::SetDateStyle(int nStyle)
{
    if (nStyle < 0 || nStyle > DATE_STYLE_LAST)
        return FALSE;
    m_nDateStyle = nStyle;
    Reprint();
    return TRUE;
}

void CDateStatic::SetDateSeperator(char chSeparator)
{
    m_chDateSeparator = chSeparator;
    Reprint();
}

BOOL CDateStatic::FormatValue(const CKelDate& value, CString& strText) const
{
    // The formatters index their month tables unchecked: only a valid date is printed.
    if (!value.IsValid())
        return FALSE;
    switch (m_nDateStyle)
    {
    case 0: value.FmtMMsDDsYYYY(strText, m_chDateSeparator); break;
    case 1: value.FmtMMsDDsYY(strText, m_chDateSeparator); break;
    case 2: value.FmtMMsYYYY(strText, m_chDateSeparator); break;
    case 3: value.FmtMMsYY(strText, m_chDateSeparator); break;
    case 4: value.FmtMthDDYYYY(strText); break;
    case 5: value.FmtMthYYYY(strText); break;
    case 6: value.FmtMonthDDYYYY(strText); break;
    default: value.FmtMonthYYYY(strText); break;
    }
    return TRUE;
}

BOOL CDateStatic::ParseText(const CString& strText, CKelDate& value) const
{
    return m_nDateStyle <= CKelDate::DATE_MMYY && value.ValidateAndSet(strText, NULL);
}

CKelDate CDateStatic::NoValue() const
{
    return CKelDate(0);
}

CTimeStatic::CTimeStatic() : CValueStaticT(CKelTime(0)), m_nTimeStyle(CKelTime::TIME_HHMMSS) {}

BOOL CTimeStatic::SetTimeStyle(int nStyle)
{
    if (nStyle < CKelTime::TIME_HHMM || nStyle > CKelTime::TIME_HHMMSSFF)
        return FALSE;
    m_nTimeStyle = nStyle;
    Reprint();
    return TRUE;
}

BOOL CTimeStatic::SetFramesPerSecond(double dFramesPerSecond)
{
    if (!m_value.SetFramesPerSecond(dFramesPerSecond))
        return FALSE;
    Reprint();
    return TRUE;
}

BOOL CTimeStatic::FormatValue(const CKelTime& value, CString& strText) const
{
    strText = value.Format(m_nTimeStyle);
    return TRUE;
}

BOOL CTimeStatic::ParseText(const CString& strText, CKelTime& value) const
{
    return value.NewTime(strText, m_nTimeStyle, NULL);
}

CKelTime CTimeStatic::NoValue() const
{
    return CKelTime(0);
}
