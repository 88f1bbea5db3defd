#include "values/KelTime.h"
#include <gtest/gtest.h>

#include <math.h>

#include <limits>

namespace
{
const LONG HOUR = 3600000L;
const LONG MINUTE = 60000L;
const LONG SECOND = 1000L;
} // namespace

TEST(CKelTimeTest, FormatsEveryStyle)
{
    const long sample = 13 * HOUR + 5 * MINUTE + 59 * SECOND + 789; // 13:05:59.789
    struct
    {
        long ms;
        int style;
        const char* expected;
    } cases[] = {
        {sample, CKelTime::TIME_HHMM, "13:05"}, // truncated, not rounded to 13:06
        {sample, CKelTime::TIME_HHMMSS, "13:05:59"},
        {sample, CKelTime::TIME_HHMMSSMS, "13:05:59.789"},
        {sample, CKelTime::TIME_MMSS, "785:59"},
        {sample, CKelTime::TIME_MMSSMS, "785:59.789"},
        {sample, CKelTime::TIME_SSMS, "47159.789"},
        {sample, CKelTime::TIME_HHMM_AMPM, "1:05 PM"},
        {sample, CKelTime::TIME_HHMMSS_AMPM, "1:05:59 PM"},
        {sample, CKelTime::TIME_HHMMSST, "13:05:59.7"},
        {sample, CKelTime::TIME_HHMMSSFF, "13:05:59:23"},
        {120 * HOUR, CKelTime::TIME_HHMM, "120:00"},
        {250, CKelTime::TIME_SSMS, "0.250"},
        {-(90 * SECOND + 61), CKelTime::TIME_HHMMSS, "-00:01:30"},
        {-500, CKelTime::TIME_SSMS, "-0.500"},
        // A negative value that shows as zero loses its sign: "-00:00:00" would read back as 0.
        {-500, CKelTime::TIME_HHMMSS, "00:00:00"},
        {-34, CKelTime::TIME_HHMMSSFF, "-00:00:00:01"},
        {0, CKelTime::TIME_HHMM_AMPM, "12:00 AM"},
        {12 * HOUR, CKelTime::TIME_HHMM_AMPM, "12:00 PM"},
        {-MINUTE, CKelTime::TIME_HHMM_AMPM, "11:59 PM"}, // time of day, modulo 24 hours
        {-2147483647L - 1, CKelTime::TIME_HHMMSSMS, "-596:31:23.648"},
        {sample, -1, ""},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.ms << " style " << c.style);
        EXPECT_STREQ(c.expected, (LPCTSTR)CKelTime(c.ms).Format(c.style));
        CString out("old");
        EXPECT_STREQ(c.expected, (LPCTSTR)CKelTime(c.ms).FormatToCString(out, c.style));
        EXPECT_STREQ(c.expected, (LPCTSTR)out);
    }
}

TEST(CKelTimeTest, ParsesAndRefuses)
{
    struct
    {
        const char* text;
        int style;
        long expected;       // the value read
        const char* message; // NULL when the text is valid
    } cases[] = {
        {"", CKelTime::TIME_HHMMSS, 0, NULL},
        {"1:2", CKelTime::TIME_HHMM, HOUR + 2 * MINUTE, NULL},
        {"-1:30", CKelTime::TIME_MMSS, -(MINUTE + 30 * SECOND), NULL},
        {"0:00", CKelTime::TIME_MMSSMS, 0, NULL},
        {"0:00.5", CKelTime::TIME_MMSSMS, 500, NULL},
        {"0:00.05", CKelTime::TIME_MMSSMS, 50, NULL},
        {"01:00:00.25", CKelTime::TIME_HHMMSST, HOUR + 250, NULL},
        {"1:30 am", CKelTime::TIME_HHMM_AMPM, HOUR + 30 * MINUTE, NULL},
        {"12:00PM", CKelTime::TIME_HHMM_AMPM, 12 * HOUR, NULL},
        {"00:00:00:29", CKelTime::TIME_HHMMSSFF, 968, NULL}, // ceil(29 * 1000 / 29.97)
        {"12:3a", CKelTime::TIME_HHMM, 0, "Invalid character found in time"},
        {"1:00:00.5", CKelTime::TIME_HHMMSS, 0, "Invalid character found in time"},
        {"-1:00 AM", CKelTime::TIME_HHMM_AMPM, 0, "Invalid character found in time"},
        {"12:30", CKelTime::TIME_HHMMSS, 0, "Invalid Time Format"},
        {"12:30:00", CKelTime::TIME_HHMM, 0, "Invalid Time Format"},
        {"12:", CKelTime::TIME_HHMM, 0, "Invalid Time Format"},
        {"1.", CKelTime::TIME_SSMS, 0, "Invalid Time Format"},
        {"1:30", CKelTime::TIME_HHMM_AMPM, 0, "Invalid Time Format"},
        {"1:00", -1, 0, "Invalid Time Format"},
        {"0:30 AM", CKelTime::TIME_HHMM_AMPM, 0, "Invalid Hours"},
        {"13:00 PM", CKelTime::TIME_HHMM_AMPM, 0, "Invalid Hours"},
        {"12:60", CKelTime::TIME_HHMM, 0, "Invalid Minutes"},
        {"1:99999999999999999999:00", CKelTime::TIME_HHMMSS, 0, "Invalid Minutes"},
        {"1:60", CKelTime::TIME_MMSS, 0, "Invalid Seconds"},
        {"1.0001", CKelTime::TIME_SSMS, 0, "Invalid Milliseconds"},
        {"00:00:00:30", CKelTime::TIME_HHMMSSFF, 0, "Invalid Frames"},
        {"596:31:23.648", CKelTime::TIME_HHMMSSMS, 0, "Time value out of range"},
        {"2777777777771:00", CKelTime::TIME_HHMM, 0, "Time value out of range"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "'" << c.text << "' style " << c.style);
        CKelTime time(777L);
        CString message("untouched");
        EXPECT_EQ(c.message == NULL, time.NewTime(c.text, c.style, &message) != FALSE);
        // A refusal leaves the value alone, a success the message.
        EXPECT_EQ(c.message ? 777L : c.expected, (long)time);
        EXPECT_STREQ(c.message ? c.message : "untouched", (LPCTSTR)message);
    }
    CKelTime time(5L);
    CString message;
    EXPECT_FALSE(time.NewTime(NULL, CKelTime::TIME_HHMM, &message));
    EXPECT_STREQ("Invalid Time Format", (LPCTSTR)message);
    EXPECT_FALSE(time.NewTime("x", CKelTime::TIME_HHMM, NULL));
    EXPECT_EQ(5L, (long)time);
}

// The timecode edit accepts a text only when it formats back to itself, so every two-digit
// timecode with a frame of the second must survive the round trip byte for byte.
TEST(CKelTimeTest, TimecodeTextsRoundTripAtCommonRates)
{
    const double rates[] = {29.97002997002997, 23.976, 24, 25, 30, 59.94, 99.5, 0.5};
    for (double rate : rates)
    {
        CKelTime time;
        ASSERT_TRUE(time.SetFramesPerSecond(rate));
        for (int ss = 0; ss < 120; ++ss)
        {
            for (int ff = 0; ff < 100; ++ff)
            {
                CString text;
                text.Format("%02d:59:%02d:%02d", ss < 60 ? 0 : 99, ss % 60, ff);
                BOOL ok = time.NewTime(text, CKelTime::TIME_HHMMSSFF);
                ASSERT_EQ(ff < rate, ok != FALSE) << (LPCTSTR)text << " at " << rate;
                if (!ok)
                    continue;
                ASSERT_STREQ((LPCTSTR)text, (LPCTSTR)time.Format(CKelTime::TIME_HHMMSSFF));
            }
        }
    }
}

TEST(CKelTimeTest, FormattedTextsAreFixedPoints)
{
    const long edges[] = {2147483647L, -2147483647L - 1, -2147483647L, 0, 1, -1, 999, -1000};
    const double rates[] = {29.97002997002997, 25, 1000, 0.5, 7.3};
    unsigned int seed = 12345;
    for (double rate : rates)
    {
        for (int i = 0; i < 1000; ++i)
        {
            seed = seed * 1103515245u + 12345u;
            long ms = (LONG)(seed ^ (seed >> 7));
            if (i < (int)(sizeof(edges) / sizeof(edges[0])))
                ms = edges[i];
            else if (i % 3 == 0)
                ms %= 100000; // short values exercise the sign and the small fields
            for (int style = CKelTime::TIME_HHMM; style <= CKelTime::TIME_HHMMSSFF; ++style)
            {
                CKelTime time(ms);
                time.SetFramesPerSecond(rate);
                CString text = time.Format(style);
                ASSERT_TRUE(time.NewTime(text, style)) << ms << " style " << style;
                ASSERT_STREQ((LPCTSTR)text, (LPCTSTR)time.Format(style))
                    << ms << " style " << style << " at " << rate;
            }
        }
    }
}

TEST(CKelTimeTest, FrameRateIsCheckedAndPerObject)
{
    CKelTime time(0L);
    const double refused[] = {0.0, -25.0, 1000.0001, NAN, INFINITY};
    for (double rate : refused)
    {
        EXPECT_FALSE(time.SetFramesPerSecond(rate)) << rate;
        EXPECT_DOUBLE_EQ(29.97002997002997, time.GetFramesPerSecond());
    }
    // Just above a whole rate the last frame below it would start after the second is over.
    ASSERT_TRUE(time.SetFramesPerSecond(30.0005));
    CString message;
    EXPECT_FALSE(time.NewTime("00:00:00:30", CKelTime::TIME_HHMMSSFF, &message));
    EXPECT_STREQ("Invalid Frames", (LPCTSTR)message);

    EXPECT_TRUE(time.SetFramesPerSecond(1000.0));
    time = 999L;
    EXPECT_STREQ("00:00:00:999", (LPCTSTR)time.Format(CKelTime::TIME_HHMMSSFF));
    EXPECT_TRUE(time.SetFramesPerSecond(25));
    EXPECT_DOUBLE_EQ(25, CKelTime(time).GetFramesPerSecond());
    // Assignment takes the value only; the target keeps its own rate.
    CKelTime other(0L);
    other = time;
    EXPECT_STREQ("00:00:00:24", (LPCTSTR)time.Format(CKelTime::TIME_HHMMSSFF));
    EXPECT_STREQ("00:00:00:29", (LPCTSTR)other.Format(CKelTime::TIME_HHMMSSFF));
}

TEST(CKelTimeTest, ConstructionArithmeticAndComparison)
{
    EXPECT_EQ(0L, (long)CKelTime());
    long now = CKelTime(1);
    EXPECT_GE(now, 0L);
    EXPECT_LT(now, 24 * HOUR + SECOND); // a leap second may add one
    // Where long is 64-bit its extremes are clamped to the 32-bit range.
    EXPECT_EQ(2147483647L, (long)CKelTime(std::numeric_limits<long>::max()));
    EXPECT_EQ(-2147483647L - 1, (long)CKelTime(std::numeric_limits<long>::min()));

    CKelTime a(1500L);
    CKelTime b(-500L);
    EXPECT_EQ(1000L, (long)(a + b));
    EXPECT_EQ(2000L, (long)(a - b));
    EXPECT_EQ(2147483647L, (long)(CKelTime(2147483647L) + a)); // saturates
    EXPECT_EQ(-2147483647L - 1, (long)(CKelTime(-2147483647L) - a));
    a -= b;
    EXPECT_EQ(2000L, (long)a);
    EXPECT_EQ(1, b < a);
}
