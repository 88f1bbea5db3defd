// CDouble: a double with the library's text form of it. Three values have a text of their own,
// read and written alike: DBL_MIN is "??" (no value, also what an empty text reads as), DBL_MAX is
// "+INF" and -DBL_MAX is "-INF".
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CDouble
{
public:
    CDouble();
    CDouble(double dValue);
    // Parses with the default rounding flag and decimal places; an invalid text leaves 0.0.
    CDouble(const CString& text);
    CDouble(const CDouble& other);

    double operator=(double dValue);
    double operator=(const CDouble& other);
    // An invalid text leaves the value unchanged.
    double operator=(const CString& text);
    operator double() const;
    // Format with the object's decimal places and rounding flag.
    operator CString() const;

    static int Validate(const CString& text, CString* pError = NULL, int nDecimals = -1, int nRound = 0,
                        int nExponent = 0);
    // Parses with the object's decimal places and rounding flag, without exponent.
    int ValidateAndSet(const CString& text, CString* pError = NULL);
    // 1 with result set, or 0 with result untouched and the message in *pError. Commas are
    // ignored; signs and 'E'/'e' are accepted anywhere when nExponent is nonzero. With nRound
    // nonzero and nDecimals >= 0 the result is rounded to nDecimals places.
    static int ValidateAndGet(const CString& text, double& result, CString* pError = NULL, int nDecimals = -1,
                              int nRound = 0, int nExponent = 0);

    // nDecimals -1 prints as many places as the magnitude allows and trims trailing zeros (the
    // point stays: 12.0 is "12."); nDecimals >= 0 rounds to that many places when nRound is
    // nonzero and otherwise cuts the digits after them. The text has at most 255 characters.
    static CString Format(double dValue, int nDecimals = -1, int nRound = 0, int nExponent = 0);
    static const char* Format(double dValue, CString& out, int nDecimals = -1, int nRound = 0, int nExponent = 0);
    // Copies the text into the caller's buffer, which must hold 256 characters; returns the
    // buffer (NULL for a NULL buffer).
    static char* Format(double dValue, char* pszBuffer, int nDecimals = -1, int nRound = 0, int nExponent = 0);

    // Rounds half up for positive values; for negative ones the added half rounds toward zero
    // (-0.25 and -0.26 both give -0.2 with one place).
    static double RoundDouble(double dValue, double dPlaces);

    double m_dValue;
    // Set by the owner; steer the object's own text conversions.
    int m_nRoundFlag;
    int m_nDecimalPlaces;
};
