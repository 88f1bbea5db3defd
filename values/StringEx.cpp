#include "values/StringEx.h"

#include <stdarg.h>
#include <string.h>

#include "values/DoubleValue.h"
#include "values/IntegerValues.h"

namespace
{
// The terminator is never taken for a member of a character set.
bool IsOneOf(char ch, const char* pszSet)
{
    return pszSet != NULL && ch != '\0' && strchr(pszSet, ch) != NULL;
}

// The characters that are not digits when thousands are grouped.
bool IsBlankOrSign(char ch)
{
    return ch == ' ' || ch == '-' || ch == '+';
}

// The text of a number as the matching assignment operator writes it.
template <typename T>
CStringEx NumberText(T value)
{
    CStringEx text;
    text = value;
    return text;
}

// Groups the integer part of the text in thousands; false for a second decimal point. The text
// is walked from its end, so the fraction (if there is a point) comes before the integer part.
bool GroupThousands(const char* pszText, CString& grouped)
{
    CString reversed(pszText);
    reversed.MakeReverse();
    int nLength = reversed.GetLength();
    const char* pszIn = reversed;
    bool bInteger = reversed.Find('.') < 0;

    CString result;
    char* pszOut = result.GetBuffer(nLength + nLength / 3);
    int nOut = 0;
    int nDigits = 0;
    for (int i = 0; i < nLength; ++i)
    {
        char ch = pszIn[i];
        if (ch == '.')
        {
            if (bInteger)
                return false;
            bInteger = true;
        }
        pszOut[nOut++] = ch;
        if (!bInteger || ch == '.' || IsBlankOrSign(ch))
            continue;
        // Letters count as digits too. The count restarts only with a comma, so no comma follows
        // a group that ended before a blank or a sign.
        if (++nDigits == 3 && i + 1 < nLength && !IsBlankOrSign(pszIn[i + 1]))
        {
            pszOut[nOut++] = ',';
            nDigits = 0;
        }
    }
    result.ReleaseBuffer(nOut);
    result.MakeReverse();
    grouped = result;
    return true;
}
} // namespace

CStringEx::CStringEx() {}

CStringEx::CStringEx(const char* psz) : CString(psz) {}

CStringEx::CStringEx(const char* pch, int nLength) : CString(pch, nLength) {}

CStringEx::CStringEx(char ch, int nRepeat) : CString(ch, nRepeat) {}

CStringEx& CStringEx::operator=(const CString& other)
{
    CString::operator=(other);
    return *this;
}

CStringEx& CStringEx::operator=(char ch)
{
    CString::operator=(ch);
    return *this;
}

CStringEx& CStringEx::operator=(const char* psz)
{
    CString::operator=(psz);
    return *this;
}

CStringEx& CStringEx::operator+=(const CString& other)
{
    CString::operator+=(other);
    return *this;
}

CStringEx& CStringEx::operator+=(char ch)
{
    CString::operator+=(ch);
    return *this;
}

CStringEx& CStringEx::operator+=(const char* psz)
{
    CString::operator+=(psz);
    return *this;
}

CStringEx& CStringEx::operator=(unsigned char n)
{
    Format("%u", static_cast<unsigned int>(n));
    return *this;
}

CStringEx& CStringEx::operator=(short n)
{
    Format("%hd", n);
    return *this;
}

CStringEx& CStringEx::operator=(unsigned short n)
{
    Format("%hu", n);
    return *this;
}

CStringEx& CStringEx::operator=(int n)
{
    Format("%d", n);
    return *this;
}

CStringEx& CStringEx::operator=(unsigned int n)
{
    Format("%u", n);
    return *this;
}

CStringEx& CStringEx::operator=(long n)
{
    Format("%ld", n);
    return *this;
}

CStringEx& CStringEx::operator=(unsigned long n)
{
    Format("%lu", n);
    return *this;
}

CStringEx& CStringEx::operator=(double d)
{
    Format("%f", d);
    return *this;
}

CStringEx& CStringEx::operator+=(unsigned char n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(short n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(unsigned short n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(int n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(unsigned int n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(long n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(unsigned long n)
{
    return *this += NumberText(n);
}

CStringEx& CStringEx::operator+=(double d)
{
    return *this += NumberText(d);
}

char CStringEx::operator[](int nIndex) const
{
    return GetAt(nIndex);
}

CStringEx::operator const char*() const
{
    return CString::operator LPCTSTR();
}

const CStringEx CStringEx::LoadStringS(unsigned int nID)
{
    CStringEx text;
    text.LoadString(nID);
    return text;
}

const CStringEx CStringEx::FormatS(const char* pszFormat, ...)
{
    CStringEx text;
    va_list args;
    va_start(args, pszFormat);
    text.FormatV(pszFormat, args);
    va_end(args);
    return text;
}

int CStringEx::Tokenize(CString text, CStringArray& tokens, const char* pszDelimiters)
{
    tokens.RemoveAll();
    int nLength = text.GetLength();
    if (nLength == 0)
        return 0;
    const char* psz = text;
    int nStart = 0;
    for (int i = 0; i < nLength; ++i)
    {
        if (IsOneOf(psz[i], pszDelimiters))
        {
            tokens.Add(text.Mid(nStart, i - nStart));
            nStart = i + 1;
        }
    }
    tokens.Add(text.Mid(nStart));
    return static_cast<int>(tokens.GetSize());
}

int CStringEx::Tokenize(CStringArray& tokens, const char* pszDelimiters) const
{
    return Tokenize(*this, tokens, pszDelimiters);
}

int CStringEx::ParseIt(const char* pszText, char* pszField, const char* pszDelimiters, int nPosition)
{
    if (pszText == NULL)
        pszText = "";
    if (pszDelimiters == NULL)
        pszDelimiters = "";
    size_t nLength = strlen(pszText);
    if (nPosition < 0 || static_cast<size_t>(nPosition) > nLength)
    {
        if (pszField != NULL)
            *pszField = '\0';
        return static_cast<int>(nLength) + 1;
    }

    int nCopied = 0;
    for (;; ++nPosition)
    {
        char ch = pszText[nPosition];
        // The terminator belongs to the delimiters: the end of the text ends any field, even an
        // empty one, where other delimiters before the first character are skipped.
        if (ch != '\0' && strchr(pszDelimiters, ch) == NULL)
        {
            if (pszField != NULL)
                pszField[nCopied] = ch;
            ++nCopied;
        }
        else if (nCopied > 0 || ch == '\0')
        {
            break;
        }
    }
    if (pszField != NULL)
        pszField[nCopied] = '\0';
    return nPosition + 1;
}

int CStringEx::csParseIt(const CString* pText, CString* pField, const char* pszDelimiters, int nPosition,
                         int nSkipLeading)
{
    CString scratch;
    CString& field = pField != NULL ? *pField : scratch;
    field.Empty();
    if (pText == NULL)
        return 0;
    int nLength = pText->GetLength();
    if (nPosition < 0 || nPosition > nLength)
        return nLength;

    const char* psz = *pText;
    if (nSkipLeading != 0)
    {
        while (nPosition < nLength && IsOneOf(psz[nPosition], pszDelimiters))
            ++nPosition;
    }
    int nEnd = nPosition;
    while (nEnd < nLength && !IsOneOf(psz[nEnd], pszDelimiters))
        ++nEnd;
    field = pText->Mid(nPosition, nEnd - nPosition);
    return nEnd < nLength ? nEnd + 1 : nLength;
}

int CStringEx::csWSParseIt(const CString* pText, CString* pField, const char* pszBlanks, const char* pszDelimiters,
                           int nPosition)
{
    CString scratch;
    CString& field = pField != NULL ? *pField : scratch;
    field.Empty();
    int nLength = pText != NULL ? pText->GetLength() : 0;
    if (nPosition >= nLength)
        return nPosition;
    if (nPosition < 0)
        return nLength;

    const char* psz = *pText;
    while (nPosition < nLength && IsOneOf(psz[nPosition], pszBlanks))
        ++nPosition;
    int nEnd = nPosition;
    while (nEnd < nLength && !IsOneOf(psz[nEnd], pszDelimiters))
        ++nEnd;
    field = pText->Mid(nPosition, nEnd - nPosition);
    return nEnd < nLength ? nEnd + 1 : nLength;
}

int CStringEx::IsNumeric(const char* pszText, unsigned short nMode)
{
    if (pszText == NULL || *pszText == '\0')
        return 0;
    // The marks of the current part: the mantissa, or after 'E' the exponent.
    bool bDigit = false;
    bool bSign = false;
    bool bPoint = false;
    bool bExponent = false;
    for (const char* p = pszText; *p != '\0'; ++p)
    {
        char ch = *p;
        if (ch >= '0' && ch <= '9')
        {
            bDigit = true;
        }
        else if (ch == '+' || ch == '-')
        {
            // In the exponent a sign may follow its digits ('1e5-' passes); kept as it always was.
            if (bSign || (bDigit && !bExponent))
                return 0;
            bSign = true;
        }
        else if (ch == '.')
        {
            if (bPoint || bExponent || nMode == 1)
                return 0;
            bPoint = true;
        }
        else if (ch == 'E' || ch == 'e')
        {
            if (nMode != 3 || bExponent || !bDigit)
                return 0;
            bExponent = true;
            bDigit = false;
            bSign = false;
        }
        else
        {
            return 0;
        }
    }
    return bDigit ? 1 : 0;
}

int CStringEx::IsNumeric(unsigned short nMode) const
{
    return IsNumeric(*this, nMode);
}

CString CStringEx::AddCommas(double dValue, int& error, int nDecimals)
{
    CString text = CDouble::Format(dValue, nDecimals >= 0 ? nDecimals : 0, 1, 0);
    if (nDecimals < 0)
    {
        int nPoint = text.Find('.');
        if (nPoint >= 0)
            text = text.Left(nPoint);
    }
    return AddCommas(text, error);
}

CStringEx& CStringEx::FormatWithCommas(double dValue, int& error, int nDecimals)
{
    CString grouped = AddCommas(dValue, error, nDecimals);
    if (error == 0)
        CString::operator=(grouped);
    return *this;
}

CString CStringEx::AddCommas(const char* pszText, int& error)
{
    error = 0;
    try
    {
        CString grouped;
        if (GroupThousands(pszText, grouped))
            return grouped;
        error = 1;
        return CString(pszText);
    }
    catch (CMemoryException* pException)
    {
        // Without memory there is no text to give back, not even the original.
        pException->Delete();
        error = 1;
        return CString();
    }
}

CStringEx& CStringEx::FormatWithCommas(int& error)
{
    CString grouped = AddCommas(*this, error);
    if (error == 0)
        CString::operator=(grouped);
    return *this;
}

CString& CStringEx::FormatFromFont(const LOGFONT& font, CString& text)
{
    // A face name may fill its array without a terminator.
    const void* pTerminator = memchr(font.lfFaceName, '\0', sizeof(font.lfFaceName));
    int nFaceLength = pTerminator != NULL ? static_cast<int>(static_cast<const char*>(pTerminator) - font.lfFaceName)
                                          : static_cast<int>(sizeof(font.lfFaceName));
    CString faceName(font.lfFaceName, nFaceLength);
    text.Format("%ld,%ld,%ld,%ld,%ld,%d,%d,%d,%d,%d,%d,%d,%d,%s", static_cast<long>(font.lfHeight),
                static_cast<long>(font.lfWidth), static_cast<long>(font.lfEscapement),
                static_cast<long>(font.lfOrientation), static_cast<long>(font.lfWeight), font.lfItalic,
                font.lfUnderline, font.lfStrikeOut, font.lfCharSet, font.lfOutPrecision, font.lfClipPrecision,
                font.lfQuality, font.lfPitchAndFamily, static_cast<LPCTSTR>(faceName));
    return text;
}

void CStringEx::FormatFromFont(const LOGFONT& font)
{
    FormatFromFont(font, *this);
}

bool CStringEx::FormatToFont(const CString& text, LOGFONT& font)
{
    CStringArray fields;
    if (Tokenize(text, fields, ",") != 14)
        return false;

    LOGFONT result = font;
    LONG* const pLongs[] = {&result.lfHeight, &result.lfWidth, &result.lfEscapement, &result.lfOrientation,
                            &result.lfWeight};
    BYTE* const pBytes[] = {&result.lfItalic,        &result.lfUnderline,     &result.lfStrikeOut,
                            &result.lfCharSet,       &result.lfOutPrecision,  &result.lfClipPrecision,
                            &result.lfQuality,       &result.lfPitchAndFamily};
    int nField = 0;
    for (LONG* pLong : pLongs)
    {
        if (!CLong::ValidateAndGet(fields[nField++], *pLong, NULL))
            return false;
    }
    for (BYTE* pByte : pBytes)
    {
        if (!CByte::ValidateAndGet(fields[nField++], *pByte, NULL))
            return false;
    }
    const CString& faceName = fields[nField];
    int nFaceLength = faceName.GetLength() < LF_FACESIZE ? faceName.GetLength() : LF_FACESIZE - 1;
    memset(result.lfFaceName, 0, sizeof(result.lfFaceName));
    memcpy(result.lfFaceName, static_cast<LPCTSTR>(faceName), nFaceLength);
    font = result;
    return true;
}

bool CStringEx::FormatToFont(LOGFONT& font) const
{
    return FormatToFont(*this, font);
}
