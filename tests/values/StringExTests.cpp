#include <gtest/gtest.h>

#include <float.h>
#include <string.h>

#include "values/StringEx.h"

namespace
{
CString Joined(const CStringArray& tokens)
{
    CString joined;
    for (INT_PTR i = 0; i < tokens.GetSize(); ++i)
        joined += "[" + tokens[i] + "]";
    return joined;
}

const LOGFONT SAMPLE_FONT = {-12, 0, 0, 0, 700, 1, 0, 0, 255, 3, 0, 0, 34, "Arial"};
} // namespace

TEST(CStringExTest, NumberTexts)
{
    CStringEx text;
    EXPECT_STREQ("255", text = static_cast<unsigned char>(255));
    EXPECT_STREQ("-5", text = static_cast<short>(-5));
    EXPECT_STREQ("65535", text = static_cast<unsigned short>(65535));
    EXPECT_STREQ("-2147483648", text = -2147483647L - 1);
    EXPECT_STREQ("4294967295", text = 4294967295UL);
    EXPECT_STREQ("1.500000", text = 1.5);
    text = "x";
    text += 'y';
    text += static_cast<short>(-1);
    text += 2.25;
    EXPECT_STREQ("xy-12.250000", text);
    EXPECT_STREQ("3-a", CStringEx::FormatS("%d-%s", 3, "a"));
    EXPECT_STREQ("", CStringEx::LoadStringS(54321));
}

TEST(CStringExTest, TokenizeKeepsEmptyTokens)
{
    const struct
    {
        const char* pszText;
        const char* pszDelimiters;
        int nCount;
        const char* pszTokens;
    } cases[] = {
        {"", ",", 0, ""},
        {",", ",", 2, "[][]"},
        {"a,,b,", ",", 4, "[a][][b][]"},
        {"a;b,c", ";,", 3, "[a][b][c]"},
        {"a,b", "", 1, "[a,b]"},
        {"a,b", NULL, 1, "[a,b]"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        CStringArray tokens;
        tokens.Add("stale");
        EXPECT_EQ(c.nCount, CStringEx(c.pszText).Tokenize(tokens, c.pszDelimiters));
        EXPECT_STREQ(c.pszTokens, Joined(tokens));
    }
}

TEST(CStringExTest, ParseItFields)
{
    // A caller loops while the position is at most the length; a trailing delimiter yields a
    // last, empty field.
    const char szText[] = ",ab,,cd,";
    char szField[sizeof(szText)];
    CString fields;
    for (int nPosition = 0; nPosition <= static_cast<int>(strlen(szText));)
    {
        nPosition = CStringEx::ParseIt(szText, szField, ",", nPosition);
        fields += CString("[") + szField + "]";
    }
    EXPECT_STREQ("[ab][cd][]", fields);
    EXPECT_EQ(5, CStringEx::ParseIt("ab,c", szField, ",", 3));
    EXPECT_STREQ("c", szField);

    // Positions outside the text, NULL texts and buffers.
    EXPECT_EQ(5, CStringEx::ParseIt("ab,c", szField, ",", 9));
    EXPECT_STREQ("", szField);
    EXPECT_EQ(1, CStringEx::ParseIt(NULL, szField, NULL, 0));
    EXPECT_EQ(3, CStringEx::ParseIt("ab,c", NULL, ",", 0));
}

TEST(CStringExTest, CStringParsers)
{
    // Each call as "returned position:field".
    const CString text("a,,b"), blanks("  ab ;c");
    auto cs = [&text](int nPosition, int nSkipLeading) {
        CString field("stale");
        int nNext = CStringEx::csParseIt(&text, &field, ",", nPosition, nSkipLeading);
        return CStringEx::FormatS("%d:%s", nNext, (LPCTSTR)field);
    };
    auto ws = [&blanks](int nPosition, const char* pszDelimiters) {
        CString field("stale");
        int nNext = CStringEx::csWSParseIt(&blanks, &field, " ", pszDelimiters, nPosition);
        return CStringEx::FormatS("%d:%s", nNext, (LPCTSTR)field);
    };
    EXPECT_STREQ("2:a", cs(0, 0));
    EXPECT_STREQ("3:", cs(2, 0));
    EXPECT_STREQ("4:b", cs(3, 0));
    EXPECT_STREQ("4:b", cs(2, 1));
    EXPECT_STREQ("4:", cs(7, 0));
    CString field;
    EXPECT_EQ(0, CStringEx::csParseIt(NULL, &field, ",", 0, 0));

    EXPECT_STREQ("6:ab ", ws(0, ";"));
    EXPECT_STREQ("7:c", ws(6, ";"));
    EXPECT_STREQ("7:ab ;c", ws(1, ""));
    EXPECT_STREQ("9:", ws(9, ";"));
    EXPECT_STREQ("7:", ws(-3, ";"));
}

TEST(CStringExTest, IsNumeric)
{
    const struct
    {
        const char* pszText;
        unsigned short nMode;
        int nNumeric;
    } cases[] = {
        {"-12", 1, 1},   {"1.5", 1, 0},  {"1.5", 2, 1},   {"1e5", 2, 0},   {"1e5", 3, 1},   {" 1", 2, 0},
        {"12.", 2, 1},   {".5", 2, 1},   {"1e", 3, 0},    {"-", 2, 0},     {"", 2, 0},      {"+-1", 2, 0},
        {"1-", 2, 0},    {"e5", 3, 0},   {"1e5e5", 3, 0}, {"1e5.0", 3, 0}, {"1.2.3", 2, 0}, {"-1.5e-3", 3, 1},
        // A sign after the exponent's digits passes; kept as callers have always seen it.
        {"1e5-", 3, 1},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        EXPECT_EQ(c.nNumeric, CStringEx(c.pszText).IsNumeric(c.nMode));
    }
    EXPECT_EQ(0, CStringEx::IsNumeric(NULL, 2));
}

TEST(CStringExTest, CommasGroupTheIntegerPart)
{
    const struct
    {
        const char* pszText;
        int nError;
        const char* pszGrouped;
    } cases[] = {
        {"123", 0, "123"},
        {"-123456", 0, "-123,456"},
        {" +1234", 0, " +1,234"},
        {"1234567.891", 0, "1,234,567.891"},
        {"abcd", 0, "a,bcd"},
        // The count restarts only with a comma, so a group before a blank ends the grouping.
        {"1234 567", 0, "1234 567"},
        {"1234.5.6", 1, "1234.5.6"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        int nError = -1;
        CStringEx text(c.pszText);
        EXPECT_STREQ(c.pszGrouped, text.FormatWithCommas(nError));
        EXPECT_EQ(c.nError, nError);
    }

    int nError = -1;
    EXPECT_STREQ("1,234,567.89", CStringEx::AddCommas(1234567.891, nError, 2));
    EXPECT_EQ(0, nError);
    EXPECT_STREQ("-1,234", CStringEx::AddCommas(-1234.0, nError, 0));
    EXPECT_STREQ("1,235", CStringEx::AddCommas(1234.7, nError, -1));
    EXPECT_STREQ("??", CStringEx::AddCommas(DBL_MIN, nError, -1));
}

TEST(CStringExTest, FontTextRoundTrip)
{
    LOGFONT font = SAMPLE_FONT;
    CStringEx text;
    text.FormatFromFont(font);
    EXPECT_STREQ("-12,0,0,0,700,1,0,0,255,3,0,0,34,Arial", text);
    LOGFONT read;
    memset(&read, 0x55, sizeof(read));
    ASSERT_TRUE(text.FormatToFont(read));
    EXPECT_EQ(0, memcmp(&font, &read, sizeof(font)));

    // Leading blanks and empty numeric fields are read as CLong and CByte read them.
    ASSERT_TRUE(CStringEx::FormatToFont(" -3,,0,0,400,0,0,0,0,0,0,0,0, Courier New", read));
    EXPECT_EQ(-3, read.lfHeight);
    EXPECT_STREQ(" Courier New", read.lfFaceName);

    // A face name without its terminator is written whole and read back cut.
    memset(font.lfFaceName, 'F', sizeof(font.lfFaceName));
    CStringEx::FormatFromFont(font, text);
    EXPECT_EQ(CString("-12,0,0,0,700,1,0,0,255,3,0,0,34,") + CString('F', LF_FACESIZE), text);
    ASSERT_TRUE(text.FormatToFont(read));
    EXPECT_EQ(CString('F', LF_FACESIZE - 1), CString(read.lfFaceName));
}

TEST(CStringExTest, FontTextFaults)
{
    const char* const texts[] = {
        "-12,0,0,0,700,1,0,0,0,3,0,0,34,Arial,Bold", // a comma in the face name
        "-12,0,0,0,700,1,0,0,0,3,0,0,Arial",         // 13 fields
        "-12,0,0,0,700,1,0,0,256,3,0,0,34,Arial",    // a byte above 255
        "-12,0,0,0,700 ,1,0,0,0,3,0,0,34,Arial",     // a trailing blank
    };
    for (const char* pszText : texts)
    {
        SCOPED_TRACE(pszText);
        LOGFONT font = SAMPLE_FONT;
        EXPECT_FALSE(CStringEx::FormatToFont(pszText, font));
        EXPECT_EQ(0, memcmp(&SAMPLE_FONT, &font, sizeof(font)));
    }
}
