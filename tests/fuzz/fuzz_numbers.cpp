// Fuzzes the number parsers and formatters of the value types. Invariants: a failure leaves the
// result untouched and gives a message, a success empties a given message (empty texts and the
// special double texts excepted), an accepted number formats to a text that reads back as the
// same number, and a formatted double never exceeds 255 characters.
#include <float.h>
#include <math.h>
#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "values/DoubleValue.h"
#include "values/IntegerValues.h"

namespace
{
void Check(bool bHolds)
{
    if (!bHolds)
        __builtin_trap();
}

template <typename T>
void FuzzInteger(int (*pfnParse)(const CString&, T&, CString*), CString (*pfnFormat)(T), const CString& text)
{
    T result = static_cast<T>(123);
    CString error("sentinel");
    if (!pfnParse(text, result, &error))
    {
        Check(result == static_cast<T>(123));
        Check(!error.IsEmpty() && error != "sentinel");
        return;
    }
    Check(text.IsEmpty() ? error == "sentinel" : error.IsEmpty());
    T again = static_cast<T>(0);
    CString formatted = pfnFormat(result);
    Check(pfnParse(formatted, again, NULL) == 1);
    Check(again == result);
}

void FuzzDouble(const CString& text, int nDecimals, int nRound, int nExponent)
{
    double dResult = 123.0;
    CString error("sentinel");
    if (!CDouble::ValidateAndGet(text, dResult, &error, nDecimals, nRound, nExponent))
    {
        Check(dResult == 123.0);
        Check(!error.IsEmpty() && error != "sentinel");
        return;
    }

    char szBuffer[256];
    CDouble::Format(dResult, szBuffer, nDecimals, nRound, nExponent);
    Check(strlen(szBuffer) <= 255);
    Check(CDouble::Format(dResult, nDecimals, nRound, nExponent) == szBuffer);
    if (!isfinite(dResult))
        return;

    // Seventeen significant digits with an exponent always read back exactly; so do the special
    // values, which print as their own texts.
    double dAgain = 0.0;
    Check(CDouble::ValidateAndGet(CDouble::Format(dResult, 16, 1, 1), dAgain, NULL, -1, 0, 1) == 1);
    Check(dAgain == dResult);

    // Whole numbers read back from the default form while it is not cut at 255 characters.
    if (dResult == floor(dResult) && fabs(dResult) < 1e200)
    {
        Check(CDouble::ValidateAndGet(CDouble::Format(dResult), dAgain, NULL) == 1);
        Check(dAgain == dResult);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    // The first byte chooses the double options, the rest is the text up to its first null.
    uint8_t options = data[0];
    std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    CString text(bytes.c_str());

    FuzzInteger<BYTE>(&CByte::ValidateAndGet, &CByte::Format, text);
    FuzzInteger<short>(&CShort::ValidateAndGet, &CShort::Format, text);
    FuzzInteger<WORD>(&CUShort::ValidateAndGet, &CUShort::Format, text);
    FuzzInteger<LONG>(&CLong::ValidateAndGet, &CLong::Format, text);
    FuzzInteger<ULONG>(&CULong::ValidateAndGet, &CULong::Format, text);

    int nDecimals = (options & 0x1F) - 3;
    if (options & 0x80)
        nDecimals *= 100;
    FuzzDouble(text, nDecimals, (options >> 5) & 1, (options >> 6) & 1);
    CDouble::RoundDouble(atof(text), nDecimals);
    return 0;
}
