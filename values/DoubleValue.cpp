#include "values/DoubleValue.h"

#include <float.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

namespace
{
// The formatted text has at most 255 characters; longer ones are cut there.
const int s_nTextSize = 256;

// The exact decimal expansion of a double has at most 1074 places, so a larger precision only
// adds zeros: capping it there changes no digit and keeps the C formatter's work bounded.
const int s_nMaxPrecision = 1100;

const char s_szNoValue[] = "??";
const char s_szPlusInf[] = "+INF";
const char s_szMinusInf[] = "-INF";

int CappedPrecision(int nDecimals)
{
    return nDecimals < s_nMaxPrecision ? nDecimals : s_nMaxPrecision;
}

// Without rounding to given places the precision comes from the magnitude. The subtractions
// accumulate, so the precision falls faster than the digit count grows and turns negative from
// 1,000,000 on, which the C formatter reads as its default of six places. Kept as it is: stored
// texts and the controls' displays depend on exactly these digits. Negative values keep 12.
int AutomaticPrecision(double dValue)
{
    int nPrecision = dValue >= 100.0 ? 11 : 12;
    double dThreshold = 1000.0;
    for (int nPower = 3; nPower <= 13; ++nPower, dThreshold *= 10.0)
    {
        if (dValue >= dThreshold)
            nPrecision -= nPower - 1;
    }
    return nPrecision;
}

void FormatText(double dValue, int nDecimals, int nRound, int nExponent, char (&szText)[s_nTextSize])
{
    const char* pszSpecial = dValue == DBL_MIN ? s_szNoValue
                             : dValue == DBL_MAX ? s_szPlusInf
                             : dValue == -DBL_MAX ? s_szMinusInf
                                                  : NULL;
    if (pszSpecial != NULL)
    {
        strcpy(szText, pszSpecial);
        return;
    }

    int nPrecision = (nRound != 0 && nDecimals >= 0) ? CappedPrecision(nDecimals) : AutomaticPrecision(dValue);
    snprintf(szText, sizeof(szText), nExponent != 0 ? "%0.*e" : "%0.*f", nPrecision, dValue);
    if (nExponent != 0)
        return;

    if (nDecimals == -1)
    {
        // Trailing zeros go, the point stays: 12.0 prints "12.".
        size_t nLength = strlen(szText);
        while (nLength > 1 && szText[nLength - 1] == '0')
            szText[--nLength] = '\0';
    }
    else if (nRound == 0 && nDecimals >= 0)
    {
        // Truncates without rounding: the automatic precision supplies the digits that are cut.
        // The cut is made only within the first 251 characters, as it always was, so a text cut
        // at 255 characters by the formatter keeps its tail.
        const char* pszPoint = strchr(szText, '.');
        if (pszPoint != NULL)
        {
            long long nCut = (pszPoint - szText) + (nDecimals == 0 ? 0 : 1LL + nDecimals);
            if (nCut < 251)
                szText[nCut] = '\0';
        }
    }
}
} // namespace

CDouble::CDouble() : m_dValue(0.0), m_nRoundFlag(0), m_nDecimalPlaces(-1) {}

CDouble::CDouble(double dValue) : m_dValue(dValue), m_nRoundFlag(0), m_nDecimalPlaces(-1) {}

CDouble::CDouble(const CString& text) : m_dValue(0.0), m_nRoundFlag(0), m_nDecimalPlaces(-1)
{
    ValidateAndSet(text, NULL);
}

CDouble::CDouble(const CDouble& other)
    : m_dValue(other.m_dValue), m_nRoundFlag(other.m_nRoundFlag), m_nDecimalPlaces(other.m_nDecimalPlaces)
{
}

double CDouble::operator=(double dValue)
{
    return m_dValue = dValue;
}

// Copies the value only: the rounding flag and decimal places belong to the owner of this object.
double CDouble::operator=(const CDouble& other)
{
    return m_dValue = other.m_dValue;
}

double CDouble::operator=(const CString& text)
{
    ValidateAndSet(text, NULL);
    return m_dValue;
}

CDouble::operator double() const
{
    return m_dValue;
}

CDouble::operator CString() const
{
    return Format(m_dValue, m_nDecimalPlaces, m_nRoundFlag, 0);
}

int CDouble::Validate(const CString& text, CString* pError, int nDecimals, int nRound, int nExponent)
{
    double dScratch = 0.0;
    return ValidateAndGet(text, dScratch, pError, nDecimals, nRound, nExponent);
}

int CDouble::ValidateAndSet(const CString& text, CString* pError)
{
    double dScratch = 0.0;
    if (!ValidateAndGet(text, dScratch, pError, m_nDecimalPlaces, m_nRoundFlag, 0))
        return 0;
    m_dValue = dScratch;
    return 1;
}

int CDouble::ValidateAndGet(const CString& text, double& result, CString* pError, int nDecimals, int nRound,
                            int nExponent)
{
    CString number(text);
    number.TrimLeft(' ');
    if (number.IsEmpty() || number == s_szNoValue)
    {
        result = DBL_MIN;
        return 1;
    }
    if (number == s_szPlusInf || number == s_szMinusInf)
    {
        result = number == s_szPlusInf ? DBL_MAX : -DBL_MAX;
        return 1;
    }

    number.Remove(',');
    // The scan goes on after a fault, so the last fault found is the one reported.
    const char* pszMessage = NULL;
    bool bPoint = false;
    for (const char* p = number; *p != '\0'; ++p)
    {
        if (*p >= '0' && *p <= '9')
            continue;
        if (*p == '+' || *p == 'E' || *p == 'e')
        {
            if (nExponent == 0)
                pszMessage = "Non Numeric character found!";
        }
        else if (*p == '-')
        {
            if (nExponent == 0 && p != static_cast<const char*>(number))
                pszMessage = "The negative sign must be the 1st character in the string!";
        }
        else if (*p == '.')
        {
            if (bPoint)
                pszMessage = "More than 1 decimal point character was found in the string!";
            bPoint = true;
        }
        else
        {
            pszMessage = "Non Numeric character found!";
        }
    }
    if (pszMessage != NULL)
    {
        if (pError != NULL)
            *pError = pszMessage;
        return 0;
    }

    double dValue = atof(number);
    if (nRound != 0 && nDecimals >= 0)
    {
        CString rounded;
        rounded.Format("%0.*f", CappedPrecision(nDecimals), dValue);
        dValue = atof(rounded);
    }
    result = dValue;
    if (pError != NULL)
        pError->Empty();
    return 1;
}

CString CDouble::Format(double dValue, int nDecimals, int nRound, int nExponent)
{
    char szText[s_nTextSize];
    FormatText(dValue, nDecimals, nRound, nExponent, szText);
    return CString(szText);
}

const char* CDouble::Format(double dValue, CString& out, int nDecimals, int nRound, int nExponent)
{
    out = Format(dValue, nDecimals, nRound, nExponent);
    return out;
}

char* CDouble::Format(double dValue, char* pszBuffer, int nDecimals, int nRound, int nExponent)
{
    if (pszBuffer == NULL)
        return NULL;
    char szText[s_nTextSize];
    FormatText(dValue, nDecimals, nRound, nExponent, szText);
    strcpy(pszBuffer, szText);
    return pszBuffer;
}

double CDouble::RoundDouble(double dValue, double dPlaces)
{
    double dScale = pow(10.0, dPlaces);
    double dInteger = 0.0;
    double dFraction = modf(dValue, &dInteger);
    // trunc rather than a cast to an integer type: no overflow for large scales.
    return trunc(dFraction * dScale + 0.5) / dScale + dInteger;
}
