#include <gtest/gtest.h>

#include "values/IntegerValues.h"

namespace
{
// What ValidateAndGet gives for a text: validity, the value when valid, the message when not.
struct ParseCase
{
    const char* pszText;
    int nValid;
    long long nValue;
    const char* pszMessage;
};

const char s_szNonNumeric[] = "Non Numeric character found!";
const char s_szNegativeSign[] = "The negative sign must be the 1st character in the string!";
const char s_szUntouched[] = "untouched";

// Runs the cases through one type's parser; a failure must leave result and nothing else changed.
template <typename T, size_t N>
void CheckParse(int (*pfnParse)(const CString&, T&, CString*), const ParseCase (&cases)[N])
{
    for (const ParseCase& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        T result = static_cast<T>(77);
        CString error(s_szUntouched);
        ASSERT_EQ(c.nValid, pfnParse(c.pszText, result, &error));
        EXPECT_EQ(c.nValid ? c.nValue : 77, static_cast<long long>(result));
        EXPECT_STREQ(c.nValid ? "" : c.pszMessage, error);
    }
}
} // namespace

TEST(CLongTest, ValidateAndGet)
{
    const ParseCase cases[] = {
        {"   42", 1, 42, NULL},
        {"42 ", 0, 0, s_szNonNumeric},
        {"\t42", 0, 0, s_szNonNumeric},
        {"4-2", 0, 0, s_szNegativeSign},
        // A lone sign is the number 0.
        {"-", 1, 0, NULL},
        {"2147483647", 1, 2147483647LL, NULL},
        {"2147483648", 0, 0, "The value of 2147483648 exceeds the acceptable maximum of 2147483647!"},
        {"-2147483648", 1, -2147483648LL, NULL},
        {"-2147483649", 0, 0, "The value of -2147483649 exceeds the acceptable minimum of -2147483648!"},
        // The range message replaces the fault found first.
        {"99999999999x", 0, 0, "The value of 99999999999x exceeds the acceptable maximum of 2147483647!"},
        // The range is tested on the text: leading zeros count.
        {"00000000001", 0, 0, "The value of 00000000001 exceeds the acceptable maximum of 2147483647!"},
        {"-0000000001", 1, -1, NULL},
        // The message names the number text, without the leading blanks.
        {"  3000000000", 0, 0, "The value of 3000000000 exceeds the acceptable maximum of 2147483647!"},
    };
    CheckParse(&CLong::ValidateAndGet, cases);
}

TEST(CLongTest, EmptyTextIsZeroAndKeepsTheMessage)
{
    LONG nResult = 5;
    CString error(s_szUntouched);
    EXPECT_EQ(1, CLong::ValidateAndGet("", nResult, &error));
    EXPECT_EQ(0, nResult);
    EXPECT_STREQ(s_szUntouched, error);
    EXPECT_EQ(1, CLong::ValidateAndGet("12", nResult));
}

TEST(CULongTest, ValidateAndGet)
{
    const ParseCase cases[] = {
        {"  4294967295", 1, 4294967295LL, NULL},
        {"4294967296", 0, 0, "The value of 4294967296 exceeds the acceptable maximum of 4294967295!"},
        {"-5", 0, 0, "The value of -5 exceeds the acceptable minimum of 0!"},
        {"5-", 0, 0, s_szNonNumeric},
        {"-99999999999", 0, 0, "The value of -99999999999 exceeds the acceptable maximum of 4294967295!"},
    };
    CheckParse(&CULong::ValidateAndGet, cases);
}

TEST(NarrowIntegerTest, RangeMessagesNameTheTextAsGiven)
{
    const ParseCase byteCases[] = {
        {"255", 1, 255, NULL},
        {"256", 0, 0, "The value of 256 exceeds the acceptable maximum of 255!"},
        {"  300", 0, 0, "The value of   300 exceeds the acceptable maximum of 255!"},
        {"-1", 0, 0, "The value of -1 exceeds the acceptable minimum of 0!"},
        {"1x", 0, 0, s_szNonNumeric},
    };
    CheckParse(&CByte::ValidateAndGet, byteCases);

    const ParseCase shortCases[] = {
        {"-32768", 1, -32768, NULL},
        {"32767", 1, 32767, NULL},
        {"32768", 0, 0, "The value of 32768 exceeds the acceptable maximum of 32767!"},
        {"-32769", 0, 0, "The value of -32769 exceeds the acceptable minimum of -32768!"},
    };
    CheckParse(&CShort::ValidateAndGet, shortCases);

    // CUShort's own message lacks "of"; a sign is refused by the unsigned parse with its text.
    const ParseCase ushortCases[] = {
        {"65535", 1, 65535, NULL},
        {"65536", 0, 0, "The value 65536 exceeds the acceptable maximum of 65535!"},
        {"-5", 0, 0, "The value of -5 exceeds the acceptable minimum of 0!"},
    };
    CheckParse(&CUShort::ValidateAndGet, ushortCases);
}

TEST(IntegerFormatTest, PlainDecimalText)
{
    EXPECT_STREQ("255", CByte::Format(255));
    EXPECT_STREQ("-32768", CShort::Format(-32768));
    EXPECT_STREQ("65535", CUShort::Format(65535));
    EXPECT_STREQ("-2147483648", CLong::Format(static_cast<LONG>(-2147483647 - 1)));
    EXPECT_STREQ("4294967295", CULong::Format(4294967295u));

    CString out;
    const char* pszOut = CLong::Format(-7, out);
    EXPECT_EQ(static_cast<const char*>(out), pszOut);
    EXPECT_STREQ("-7", out);
}

TEST(IntegerObjectTest, InvalidTextChangesNothing)
{
    CLong fromBadText(CString("12a"));
    EXPECT_EQ(0, static_cast<LONG>(fromBadText));
    CShort fromText(CString(" -12"));
    EXPECT_EQ(-12, static_cast<short>(fromText));

    CByte value(static_cast<BYTE>(9));
    EXPECT_EQ(9, value = CString("300"));
    CString error;
    EXPECT_EQ(0, value.ValidateAndSet("-1", &error));
    EXPECT_EQ(9, static_cast<BYTE>(value));
    EXPECT_EQ(1, CByte::Validate("12"));
    EXPECT_EQ(9, static_cast<BYTE>(value));

    EXPECT_EQ(1, value.ValidateAndSet("200"));
    CString text = value;
    EXPECT_STREQ("200", text);
}
