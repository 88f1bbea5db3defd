// Fuzzes the string utilities. Invariants: tokens joined with their delimiter give the text back;
// parsers stay inside the text and return positions that move forward; the numeric test's modes
// nest; grouping only inserts commas; a font text written by FormatFromFont reads back equal.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <string>
#include <vector>

#include "values/DoubleValue.h"
#include "values/StringEx.h"

namespace
{
void Check(bool bHolds)
{
    if (!bHolds)
        __builtin_trap();
}

CString WithoutCommas(CString text)
{
    text.Remove(',');
    return text;
}

void FuzzTokenize(const CString& text, char chDelimiter)
{
    const char szDelimiters[2] = {chDelimiter, '\0'};
    CStringArray tokens;
    int nCount = CStringEx::Tokenize(text, tokens, szDelimiters);
    Check(nCount == tokens.GetSize());
    if (text.IsEmpty())
    {
        Check(nCount == 0);
        return;
    }
    CString joined = tokens[0];
    for (int i = 1; i < nCount; ++i)
        joined += chDelimiter + tokens[i];
    Check(joined == text);
}

void FuzzParsers(const CString& text, const char* pszDelimiters, const char* pszBlanks)
{
    int nLength = text.GetLength();
    // ParseIt: fields fit a buffer as large as the text, and each call moves past the last.
    std::vector<char> field(static_cast<size_t>(nLength) + 1);
    for (int nPosition = 0; nPosition <= nLength;)
    {
        int nNext = CStringEx::ParseIt(text, field.data(), pszDelimiters, nPosition);
        Check(nNext > nPosition && nNext <= nLength + 1);
        Check(strlen(field.data()) <= static_cast<size_t>(nNext - nPosition));
        nPosition = nNext;
    }

    for (int nSkip = 0; nSkip < 2; ++nSkip)
    {
        CString csField;
        for (int nPosition = 0; nPosition < nLength;)
        {
            int nNext = CStringEx::csParseIt(&text, &csField, pszDelimiters, nPosition, nSkip);
            Check(nNext > nPosition && nNext <= nLength);
            Check(csField.GetLength() <= nNext - nPosition);
            Check(csField.FindOneOf(pszDelimiters) < 0);
            nPosition = nNext;
        }
    }

    CString wsField;
    for (int nPosition = 0; nPosition < nLength;)
    {
        int nNext = CStringEx::csWSParseIt(&text, &wsField, pszBlanks, pszDelimiters, nPosition);
        Check(nNext > nPosition && nNext <= nLength);
        Check(wsField.GetLength() <= nNext - nPosition);
        nPosition = nNext;
    }
}

void FuzzNumericTests(const CString& text)
{
    int nWhole = CStringEx::IsNumeric(text, 1);
    int nFraction = CStringEx::IsNumeric(text, 2);
    int nExponent = CStringEx::IsNumeric(text, 3);
    Check(nWhole <= nFraction && nFraction <= nExponent);

    int nError = -1;
    CString grouped = CStringEx::AddCommas(text, nError);
    Check(nError == 0 || nError == 1);
    Check(nError == 1 ? grouped == text : WithoutCommas(grouped) == WithoutCommas(text));
}

void FuzzDoubleCommas(const uint8_t* data, size_t size)
{
    double dValue = 0.0;
    memcpy(&dValue, data, size < sizeof(dValue) ? size : sizeof(dValue));
    int nDecimals = size > sizeof(dValue) ? data[sizeof(dValue)] % 24 - 4 : 2;
    int nError = -1;
    CString grouped = CStringEx::AddCommas(dValue, nError, nDecimals);
    Check(nError == 0);
    CString plain = CDouble::Format(dValue, nDecimals >= 0 ? nDecimals : 0, 1, 0);
    if (nDecimals < 0 && plain.Find('.') >= 0)
        plain = plain.Left(plain.Find('.'));
    Check(WithoutCommas(grouped) == plain);
}

void FuzzFont(const uint8_t* data, size_t size, const CString& text)
{
    LOGFONT font;
    memset(&font, 0, sizeof(font));
    memcpy(&font, data, size < sizeof(font) ? size : sizeof(font));
    // A face name without commas and within the LOGFONT's terminated length.
    for (size_t i = 0; i < sizeof(font.lfFaceName); ++i)
    {
        if (font.lfFaceName[i] == ',')
            font.lfFaceName[i] = '_';
    }
    size_t nFace = strnlen(font.lfFaceName, sizeof(font.lfFaceName) - 1);
    memset(font.lfFaceName + nFace, 0, sizeof(font.lfFaceName) - nFace);

    CString formatted;
    CStringEx::FormatFromFont(font, formatted);
    LOGFONT read;
    memset(&read, 0xA5, sizeof(read));
    Check(CStringEx::FormatToFont(formatted, read));
    Check(memcmp(&font, &read, sizeof(font)) == 0);

    // Any text: the font is either read or left exactly as it was.
    LOGFONT before = read;
    if (!CStringEx::FormatToFont(text, read))
        Check(memcmp(&before, &read, sizeof(read)) == 0);
    else
        Check(memchr(read.lfFaceName, '\0', sizeof(read.lfFaceName)) != NULL);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    // Two leading bytes choose the delimiter and the blank; the rest is the text up to its null.
    char chDelimiter = static_cast<char>(data[0]);
    char chBlank = static_cast<char>(data[1]);
    std::string bytes(reinterpret_cast<const char*>(data + 2), size - 2);
    CString text(bytes.c_str());
    const char szDelimiters[] = {chDelimiter, ';', '\0'};
    const char szBlanks[] = {chBlank, '\0'};

    FuzzTokenize(text, chDelimiter == '\0' ? ',' : chDelimiter);
    FuzzParsers(text, szDelimiters, szBlanks);
    FuzzNumericTests(text);
    FuzzDoubleCommas(data + 2, size - 2);
    FuzzFont(data + 2, size - 2, text);
    return 0;
}
