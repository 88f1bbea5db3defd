#include "values/IntegerValues.h"

#include <string.h>

#include "values/StringEx.h"

namespace
{
const char s_szNonNumeric[] = "Non Numeric character found!";
const char s_szBelowZero[] = "The value of %s exceeds the acceptable minimum of 0!";

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

// The leading digits, accumulated in 32 bits (modulo 2^32), so that the result does not depend
// on the width of the platform's long.
DWORD DigitsValue(const char* psz)
{
    DWORD dwValue = 0;
    for (; IsDigit(*psz); ++psz)
        dwValue = dwValue * 10 + static_cast<DWORD>(*psz - '0');
    return dwValue;
}

// The range test of the 32-bit parsers compares texts, not values: longer than the limit, or as
// long and greater character by character. Kept: callers rely on its consequences, such as
// '00000000001' being refused as too large.
bool ExceedsLimitText(const char* pszNumber, const char* pszLimit)
{
    size_t nNumber = strlen(pszNumber);
    size_t nLimit = strlen(pszLimit);
    return nNumber > nLimit || (nNumber == nLimit && strcmp(pszNumber, pszLimit) > 0);
}

int Fail(CString* pError, const CString& message)
{
    if (pError != NULL)
        *pError = message;
    return 0;
}

int Succeed(CString* pError)
{
    if (pError != NULL)
        pError->Empty();
    return 1;
}

// The narrow types test the value of the wider parse against their own limits. Each message is
// formatted with the caller's text as given and the limit it names (the "minimum of 0" texts
// ignore it). The wording differs between the types and is kept as callers know it.
struct NarrowRange
{
    long long nMin;
    long long nMax;
    const char* pszBelow;
    const char* pszAbove;
};

template <typename Wide, typename Narrow>
int ValidateNarrow(int (*pfnParse)(const CString&, Wide&, CString*), const NarrowRange& range,
                   const CString& text, Narrow& result, CString* pError)
{
    Wide wide = 0;
    if (!pfnParse(text, wide, pError))
        return 0;
    long long nValue = wide;
    if (nValue < range.nMin || nValue > range.nMax)
    {
        bool bBelow = nValue < range.nMin;
        CString message;
        message.Format(bBelow ? range.pszBelow : range.pszAbove, static_cast<LPCTSTR>(text),
                       static_cast<int>(bBelow ? range.nMin : range.nMax));
        return Fail(pError, message);
    }
    result = static_cast<Narrow>(wide);
    return 1;
}

// CByte's maximum is printed with "%hd" although the type is unsigned; the texts are the same.
const NarrowRange s_byteRange = {0, 255, s_szBelowZero,
                                 "The value of %s exceeds the acceptable maximum of %hd!"};
const NarrowRange s_shortRange = {-32768, 32767,
                                  "The value of %s exceeds the acceptable minimum of %hd!",
                                  "The value of %s exceeds the acceptable maximum of %hd!"};
// These two lack the "of" after "value": that is their text. The minimum message is never
// reached, since the unsigned parse refuses a sign before the range is tested.
const NarrowRange s_ushortRange = {0, 65535, "The value %s exceeds the acceptable minimum of 0!",
                                   "The value %s exceeds the acceptable maximum of %hu!"};
} // namespace

// text_type is the type whose CStringEx assignment gives the decimal text.
#define IMPLEMENT_KEL_INTEGER_VALUE(class_name, value_type, text_type)                             \
    class_name::class_name() : m_nValue(0) {}                                                      \
    class_name::class_name(value_type nValue) : m_nValue(nValue) {}                                \
    class_name::class_name(const CString& text) : m_nValue(0) { ValidateAndSet(text, NULL); }      \
    class_name::class_name(const class_name& other) : m_nValue(other.m_nValue) {}                  \
    value_type class_name::operator=(value_type nValue) { return m_nValue = nValue; }              \
    value_type class_name::operator=(const class_name& other) { return m_nValue = other.m_nValue; } \
    value_type class_name::operator=(const CString& text)                                          \
    {                                                                                              \
        ValidateAndSet(text, NULL);                                                                \
        return m_nValue;                                                                           \
    }                                                                                              \
    class_name::operator value_type() const { return m_nValue; }                                   \
    class_name::operator CString() const { return Format(m_nValue); }                              \
    int class_name::Validate(const CString& text, CString* pError)                                 \
    {                                                                                              \
        value_type scratch = 0;                                                                    \
        return ValidateAndGet(text, scratch, pError);                                              \
    }                                                                                              \
    int class_name::ValidateAndSet(const CString& text, CString* pError)                           \
    {                                                                                              \
        value_type scratch = 0;                                                                    \
        if (!ValidateAndGet(text, scratch, pError))                                                \
            return 0;                                                                              \
        m_nValue = scratch;                                                                        \
        return 1;                                                                                  \
    }                                                                                              \
    CString class_name::Format(value_type nValue)                                                  \
    {                                                                                              \
        CString text;                                                                              \
        Format(nValue, text);                                                                      \
        return text;                                                                               \
    }                                                                                              \
    const char* class_name::Format(value_type nValue, CString& out)                                \
    {                                                                                              \
        CStringEx text;                                                                            \
        text = static_cast<text_type>(nValue);                                                     \
        out = text;                                                                                \
        return out;                                                                                \
    }

IMPLEMENT_KEL_INTEGER_VALUE(CByte, BYTE, unsigned char)
IMPLEMENT_KEL_INTEGER_VALUE(CShort, short, short)
IMPLEMENT_KEL_INTEGER_VALUE(CUShort, WORD, unsigned short)
IMPLEMENT_KEL_INTEGER_VALUE(CLong, LONG, long)
IMPLEMENT_KEL_INTEGER_VALUE(CULong, ULONG, unsigned long)

int CByte::ValidateAndGet(const CString& text, BYTE& result, CString* pError)
{
    return ValidateNarrow(&CLong::ValidateAndGet, s_byteRange, text, result, pError);
}

int CShort::ValidateAndGet(const CString& text, short& result, CString* pError)
{
    return ValidateNarrow(&CLong::ValidateAndGet, s_shortRange, text, result, pError);
}

int CUShort::ValidateAndGet(const CString& text, WORD& result, CString* pError)
{
    return ValidateNarrow(&CULong::ValidateAndGet, s_ushortRange, text, result, pError);
}

int CLong::ValidateAndGet(const CString& text, LONG& result, CString* pError)
{
    if (text.IsEmpty())
    {
        result = 0;
        return 1;
    }
    // Only spaces are skipped, and only leading ones: other blanks are faults.
    CString number(text);
    number.TrimLeft(' ');
    const char* pszNumber = number;
    CString message;
    for (const char* p = pszNumber; *p != '\0'; ++p)
    {
        if (*p == '-' && p != pszNumber)
        {
            message = "The negative sign must be the 1st character in the string!";
            break;
        }
        if (*p != '-' && !IsDigit(*p))
        {
            message = s_szNonNumeric;
            break;
        }
    }
    // The range message replaces a fault of the scan: '99999999999x' is reported as too large.
    bool bNegative = *pszNumber == '-';
    if (bNegative && ExceedsLimitText(pszNumber, "-2147483648"))
        message.Format("The value of %s exceeds the acceptable minimum of %s!", pszNumber, "-2147483648");
    else if (!bNegative && ExceedsLimitText(pszNumber, "2147483647"))
        message.Format("The value of %s exceeds the acceptable maximum of %s!", pszNumber, "2147483647");
    if (!message.IsEmpty())
        return Fail(pError, message);

    // A lone '-' reads as 0. Negating in 32 unsigned bits makes -2147483648 come out right.
    DWORD dwMagnitude = DigitsValue(bNegative ? pszNumber + 1 : pszNumber);
    result = static_cast<LONG>(bNegative ? 0u - dwMagnitude : dwMagnitude);
    return Succeed(pError);
}

int CULong::ValidateAndGet(const CString& text, ULONG& result, CString* pError)
{
    if (text.IsEmpty())
    {
        result = 0;
        return 1;
    }
    CString number(text);
    number.TrimLeft(' ');
    const char* pszNumber = number;
    const char* pszStop = pszNumber;
    while (IsDigit(*pszStop))
        ++pszStop;
    CString message;
    if (*pszStop == '-' && pszStop == pszNumber)
        message.Format(s_szBelowZero, pszNumber);
    else if (*pszStop != '\0')
        message = s_szNonNumeric;
    if (ExceedsLimitText(pszNumber, "4294967295"))
        message.Format("The value of %s exceeds the acceptable maximum of %s!", pszNumber, "4294967295");
    if (!message.IsEmpty())
        return Fail(pError, message);

    result = DigitsValue(pszNumber);
    return Succeed(pError);
}
