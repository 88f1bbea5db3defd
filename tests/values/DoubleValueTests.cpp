#include <gtest/gtest.h>

#include <float.h>
#include <string.h>

#include "values/DoubleValue.h"

namespace
{
const char s_szNonNumeric[] = "Non Numeric character found!";
const char s_szNegativeSign[] = "The negative sign must be the 1st character in the string!";
const char s_szTwoPoints[] = "More than 1 decimal point character was found in the string!";

} // namespace

TEST(CDoubleTest, ValidateAndGet)
{
    struct
    {
        const char* pszText;
        int nDecimals;
        int nRound;
        int nExponent;
        int nValid;
        double dValue;
        const char* pszMessage;
    } const cases[] = {
        {"1,234.5", -1, 0, 0, 1, 1234.5, NULL},
        {" ,-1,000", -1, 0, 0, 1, -1000.0, NULL},
        {"1.2.3", -1, 0, 0, 0, 0, s_szTwoPoints},
        {"1e5", -1, 0, 0, 0, 0, s_szNonNumeric},
        {"1e5", -1, 0, 1, 1, 100000.0, NULL},
        {"5-", -1, 0, 0, 0, 0, s_szNegativeSign},
        {"+5", -1, 0, 0, 0, 0, s_szNonNumeric},
        {"+inf", -1, 0, 0, 0, 0, s_szNonNumeric},
        // The scan does not stop: the last fault is reported.
        {"1-2.3.4", -1, 0, 0, 0, 0, s_szTwoPoints},
        {"x1.2.3-", -1, 0, 0, 0, 0, s_szNegativeSign},
        {"1.239", 2, 1, 0, 1, 1.24, NULL},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        double dResult = 77.0;
        CString error("untouched");
        ASSERT_EQ(c.nValid, CDouble::ValidateAndGet(c.pszText, dResult, &error, c.nDecimals, c.nRound, c.nExponent));
        EXPECT_EQ(c.nValid ? c.dValue : 77.0, dResult);
        EXPECT_STREQ(c.nValid ? "" : c.pszMessage, error);
    }
}

TEST(CDoubleTest, SpecialTextsSucceedEarly)
{
    struct
    {
        const char* pszText;
        double dValue;
        const char* pszFormatted;
    } const cases[] = {
        {"", DBL_MIN, "??"},          {"   ", DBL_MIN, "??"},    {"??", DBL_MIN, "??"},
        {"  +INF", DBL_MAX, "+INF"}, {"-INF", -DBL_MAX, "-INF"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        double dResult = 0.0;
        CString error("untouched");
        EXPECT_EQ(1, CDouble::ValidateAndGet(c.pszText, dResult, &error));
        EXPECT_EQ(c.dValue, dResult);
        EXPECT_STREQ("untouched", error);
        EXPECT_STREQ(c.pszFormatted, CDouble::Format(dResult));
    }
}

TEST(CDoubleTest, Format)
{
    struct
    {
        double dValue;
        int nDecimals;
        int nRound;
        int nExponent;
        const char* pszText;
    } const cases[] = {
        {3.5, -1, 0, 0, "3.5"},
        // Trailing zeros are trimmed but the point stays.
        {12.0, -1, 0, 0, "12."},
        {2500000.0, -1, 0, 0, "2500000."},
        {123456.789, -1, 0, 0, "123456.79"},
        {-1234567.5, -1, 0, 0, "-1234567.5"},
        // Truncated, not rounded, without the rounding flag.
        {1.239, 2, 0, 0, "1.23"},
        {1.239, 2, 1, 0, "1.24"},
        {12.75, 0, 0, 0, "12"},
        {12.75, 0, 1, 0, "13"},
        // Decimals below -1 leave the text as printed, which shows the automatic precision: it
        // follows the accumulated table, not a digit count, and a negative one prints six places.
        {12.5, -3, 0, 0, "12.500000000000"},
        {-5e6, -2, 0, 0, "-5000000.000000000000"},
        {100.0, -2, 0, 0, "100.00000000000"},
        {1000.0, -2, 0, 0, "1000.000000000"},
        {10000.0, -2, 0, 0, "10000.000000"},
        {100000.0, -2, 0, 0, "100000.00"},
        {1e6, -2, 0, 0, "1000000.000000"},
        {1e13, -2, 0, 0, "10000000000000.000000"},
        {12345.0, -1, 0, 1, "1.234500e+04"},
        // The special values ignore places, rounding and exponent.
        {DBL_MIN, 2, 1, 1, "??"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        EXPECT_STREQ(c.pszText, CDouble::Format(c.dValue, c.nDecimals, c.nRound, c.nExponent));
    }
}

TEST(CDoubleTest, LongTextsStopAt255Characters)
{
    // 249 integer digits: the point is at 249, the formatter stops at 255 characters.
    EXPECT_EQ(255, CDouble::Format(1e248, -3, 0, 0).GetLength());
    // A cut at 251 or later is not made; one at the point is.
    EXPECT_EQ(255, CDouble::Format(1e248, 1, 0, 0).GetLength());
    EXPECT_EQ(249, CDouble::Format(1e248, 0, 0, 0).GetLength());
    EXPECT_EQ(255, CDouble::Format(-1e300, 100000, 1, 0).GetLength());

    char szBuffer[256];
    EXPECT_EQ(szBuffer, CDouble::Format(-DBL_MAX / 2, szBuffer, 2000000000, 1, 0));
    EXPECT_EQ(255u, strlen(szBuffer));
    EXPECT_EQ(NULL, CDouble::Format(1.0, static_cast<char*>(NULL)));
}

TEST(CDoubleTest, RoundDouble)
{
    EXPECT_DOUBLE_EQ(1.3, CDouble::RoundDouble(1.25, 1));
    // Negative values: the added half rounds toward zero.
    EXPECT_DOUBLE_EQ(-0.2, CDouble::RoundDouble(-0.25, 1));
    EXPECT_DOUBLE_EQ(-0.2, CDouble::RoundDouble(-0.26, 1));
    EXPECT_DOUBLE_EQ(1e300, CDouble::RoundDouble(1e300, 20));
}

TEST(CDoubleTest, ObjectUsesItsOwnPlacesAndRounding)
{
    CDouble value;
    EXPECT_EQ(0.0, value.m_dValue);
    EXPECT_EQ(0, value.m_nRoundFlag);
    EXPECT_EQ(-1, value.m_nDecimalPlaces);

    EXPECT_EQ(0.0, static_cast<double>(CDouble(CString("1.2.3"))));

    value.m_nDecimalPlaces = 1;
    value.m_nRoundFlag = 1;
    EXPECT_EQ(1, value.ValidateAndSet("2.26"));
    EXPECT_DOUBLE_EQ(2.3, value);
    EXPECT_EQ(0, value.ValidateAndSet("1e2"));
    EXPECT_DOUBLE_EQ(2.3, value = CString("x"));
    CString rounded = value;
    EXPECT_STREQ("2.3", rounded);

    // Assignment copies the value; places and rounding stay the owner's.
    CDouble other(1.239);
    value = other;
    EXPECT_EQ(1, value.m_nDecimalPlaces);
    EXPECT_EQ(1.239, static_cast<double>(value));
    value.m_nRoundFlag = 0;
    CString truncated = value;
    EXPECT_STREQ("1.2", truncated);
}
