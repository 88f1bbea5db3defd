// CStringEx: the library's string class. A CString with text conversions of numbers, a
// tokenizer, field parsers for delimited text, a numeric-text test, grouping of thousands and a
// one-line text form of a LOGFONT. It adds no fields and is copied by value like its base.
#pragma once

#include <afx.h>
#include <afxcoll.h>

class AFX_EXT_CLASS CStringEx : public CString
{
public:
    CStringEx();
    CStringEx(const CStringEx& other) = default;
    CStringEx(const char* psz);
    CStringEx(const char* pch, int nLength);
    CStringEx(char ch, int nRepeat);

    CStringEx& operator=(const CStringEx& other) = default;
    CStringEx& operator=(const CString& other);
    CStringEx& operator=(char ch);
    CStringEx& operator=(const char* psz);
    CStringEx& operator+=(const CString& other);
    CStringEx& operator+=(char ch);
    CStringEx& operator+=(const char* psz);

    // Decimal texts: "%u", "%hd", "%hu", "%d", "%u", "%ld", "%lu" and "%f" (six places).
    CStringEx& operator=(unsigned char n);
    CStringEx& operator=(short n);
    CStringEx& operator=(unsigned short n);
    CStringEx& operator=(int n);
    CStringEx& operator=(unsigned int n);
    CStringEx& operator=(long n);
    CStringEx& operator=(unsigned long n);
    CStringEx& operator=(double d);
    // Append the text that the matching assignment gives.
    CStringEx& operator+=(unsigned char n);
    CStringEx& operator+=(short n);
    CStringEx& operator+=(unsigned short n);
    CStringEx& operator+=(int n);
    CStringEx& operator+=(unsigned int n);
    CStringEx& operator+=(long n);
    CStringEx& operator+=(unsigned long n);
    CStringEx& operator+=(double d);

    // Throws CInvalidArgException* for an index out of range, as CString does.
    char operator[](int nIndex) const;
    operator const char*() const;

    // Without a string resource of that id the text is empty.
    static const CStringEx LoadStringS(unsigned int nID);
    static const CStringEx FormatS(const char* pszFormat, ...) AFX_PRINTF_FORMAT(1, 2);

    // Every delimiter ends a token, so empty tokens are kept: 'a,,b,' gives a, "", b, "". An
    // empty text gives no token; a NULL or empty delimiter set gives the whole text.
    static int Tokenize(CString text, CStringArray& tokens, const char* pszDelimiters);
    int Tokenize(CStringArray& tokens, const char* pszDelimiters) const;

    // Copies the next field of a C string into pszField, which the caller makes large enough
    // (strlen(pszText) - nPosition + 1 always is). Leading delimiters are skipped; the end of the
    // text ends a field. Returns the position after the character that ended the field, one past
    // the terminator at the end, so a caller loops while the result is at most the length. A NULL
    // text reads as empty, NULL delimiters as none; a NULL field discards the field; a position
    // outside the text gives an empty field and the length plus one.
    static int ParseIt(const char* pszText, char* pszField, const char* pszDelimiters, int nPosition);
    // The next field from nPosition; two adjacent delimiters give an empty field unless
    // nSkipLeading is nonzero. Returns the position after the delimiter that ended the field, or
    // the length. A position outside the text gives an empty field and the length.
    static int csParseIt(const CString* pText, CString* pField, const char* pszDelimiters, int nPosition,
                         int nSkipLeading);
    // Skips the characters of pszBlanks, then takes the field up to a character of
    // pszDelimiters (blanks before it stay in the field). Returns the position after that
    // delimiter, or the length; a position at or past the end is returned as it is, a negative
    // one gives the length.
    static int csWSParseIt(const CString* pText, CString* pField, const char* pszBlanks, const char* pszDelimiters,
                           int nPosition);

    // nMode 1: whole numbers; 3: also an exponent; otherwise decimal fractions. Blanks are not
    // numeric. A sign may stand anywhere in the exponent, so '1e5-' passes.
    static int IsNumeric(const char* pszText, unsigned short nMode);
    int IsNumeric(unsigned short nMode) const;

    // Group the integer part in thousands. error is 1 (and the text is left as it was) for a
    // second decimal point or when memory runs out, else 0. Doubles are printed by CDouble::Format
    // with nDecimals places and rounding; a negative nDecimals gives no decimals.
    static CString AddCommas(double dValue, int& error, int nDecimals);
    CStringEx& FormatWithCommas(double dValue, int& error, int nDecimals);
    static CString AddCommas(const char* pszText, int& error);
    CStringEx& FormatWithCommas(int& error);

    // The font as "height,width,escapement,orientation,weight,italic,underline,strikeout,
    // charset,outprecision,clipprecision,quality,pitchandfamily,facename".
    static CString& FormatFromFont(const LOGFONT& font, CString& text);
    void FormatFromFont(const LOGFONT& font);
    // Reads the form above; on any fault returns false and leaves the font unchanged (a face name
    // with a comma is such a fault). A face name longer than a LOGFONT holds is cut to its first
    // LF_FACESIZE - 1 characters; the rest of lfFaceName is zero-filled.
    static bool FormatToFont(const CString& text, LOGFONT& font);
    bool FormatToFont(LOGFONT& font) const;
};
