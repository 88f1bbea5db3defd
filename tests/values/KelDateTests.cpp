#include <gtest/gtest.h>
#include "KelDate.h"

#include <limits.h>
#include <math.h>
#include <string.h>
#include <time.h>

namespace
{
struct Ymd
{
    short year, month, day;
};

void ExpectDate(const CKelDate& date, short year, short month, short day)
{
    EXPECT_EQ(year, date.GetYear());
    EXPECT_EQ(month, date.GetMonth());
    EXPECT_EQ(day, date.GetDay());
}

const double LAST_DAY_NUMBER = CKelDate::JulianValue(32767, 12, 31);
} // namespace

TEST(KelDateParse, TextsAndMessages)
{
    struct Case
    {
        const char* text;
        int ok;
        Ymd date; // expected on success
        const char* message;
    } cases[] = {
        {"1/5", 0, {}, "Invalid Date Text Length"},
        {"", 0, {}, "Invalid Date Text Length"},
        {"12.25.2003", 0, {}, "Invalid character found in date"},
        {"1 /2003", 0, {}, "Invalid character found in date"},
        {"12252003", 0, {}, "Invalid Date Format"},
        {"1234/", 0, {}, "Invalid Date Format"},
        {"13/1/2003", 0, {}, "Invalid Month"},
        {"/1/2003", 0, {}, "Invalid Month"},
        {"99999999999999/1/2003", 0, {}, "Invalid Month"},
        {"2/29/2001", 0, {}, "Invalid Day"},
        {"4/31/2003", 0, {}, "Invalid Day"},
        {"1/99999999999999/2003", 0, {}, "Invalid Day"},
        // A year the 16-bit field cannot hold.
        {"1/1/32768", 0, {}, "Invalid Date Format"},
        {"1/1/32767", 1, {32767, 1, 1}, ""},
        {"2/29/2000", 1, {2000, 2, 29}, ""},
        {"01/5", 1, {2005, 1, 1}, ""},
        {"1/5/", 1, {2005, 1, 1}, ""},
        {"1/50", 1, {1950, 1, 1}, ""},
        {"1/5/45", 1, {2045, 1, 5}, ""},
        {"1/5/46", 1, {1946, 1, 5}, ""},
        {"1/1/0", 1, {2000, 1, 1}, ""},
        {"1/1/100", 1, {100, 1, 1}, ""},
        {"2/29/00", 1, {2000, 2, 29}, ""},
        {"12/2003/", 1, {2003, 12, 1}, ""},
        {"12-25/2003", 1, {2003, 12, 25}, ""},
        {"0012/0005/0002003", 1, {2003, 12, 5}, ""},
        {"1/2/2003/7", 1, {2003, 1, 2}, ""},
        // Day 0 parses although IsValid refuses it (kept).
        {"1/0/2003", 1, {2003, 1, 0}, ""},
        {"1//2003", 1, {2003, 1, 0}, ""},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.text);
        CKelDate date(2001, 7, 4);
        CString message("untouched");
        ASSERT_EQ(c.ok, date.ValidateAndSet(c.text, &message));
        if (c.ok)
        {
            EXPECT_STREQ("untouched", message);
            ExpectDate(date, c.date.year, c.date.month, c.date.day);
        }
        else
        {
            EXPECT_STREQ(c.message, message);
            ExpectDate(date, 2001, 7, 4);
        }
        EXPECT_EQ(c.ok, CKelDate::Validate(c.text));
    }
    CKelDate date(0);
    EXPECT_EQ(1, date.NewDate("1/0/2003"));
    EXPECT_FALSE(date.IsValid());
}

TEST(KelDateParse, StyleFlagsAreTestedInPairs)
{
    CKelDate date(0);
    date.MakeStyleValid(CKelDate::DATE_MMDDYY, 0);
    CString message;
    EXPECT_EQ(0, date.ValidateAndSet("09/05/2003", &message));
    EXPECT_STREQ("Invalid Date Format", message);
    EXPECT_EQ(1, date.NewDate("09/2003"));

    CKelDate monthYear(0);
    monthYear.MakeStyleValid(CKelDate::DATE_MMYYYY, 0);
    EXPECT_EQ(0, monthYear.NewDate("09/03"));
    EXPECT_EQ(1, monthYear.NewDate("09/05/03"));
    monthYear.MakeStyleValid(CKelDate::DATE_MMYYYY, 1);
    EXPECT_EQ(1, monthYear.NewDate("09/03"));

    // Style 4 has no flag: nothing is stored, and nothing beside the flags is touched.
    CKelDate beyond(2003, 9, 5);
    beyond.MakeStyleValid(static_cast<CKelDate::DATE_STYLE>(4), 0);
    beyond.MakeStyleValid(static_cast<CKelDate::DATE_STYLE>(-1), 0);
    EXPECT_EQ(1, beyond.NewDate("09/2003"));
    EXPECT_EQ(1, beyond.NewDate("09/05/2003"));

    // Assignment copies the date, not the flags; a copy starts with every style allowed.
    CKelDate other(0);
    other = date;
    EXPECT_EQ(1, other.NewDate("09/05/2003"));
    EXPECT_EQ(0, date.NewDate("09/05/2003"));
    CKelDate copy(date);
    EXPECT_EQ(1, copy.NewDate("09/05/2003"));
}

TEST(KelDateParse, ConstructionAndStaticForms)
{
    ExpectDate(CKelDate(CString("9/5/2003")), 2003, 9, 5);
    ExpectDate(CKelDate(CString("9/5/2003x")), 0, 0, 0);

    CKelDate date(2001, 7, 4);
    EXPECT_EQ(0, date.NewDate(static_cast<const char*>(NULL)));
    ExpectDate(date, 2001, 7, 4);

    double dayNumber = -1.0;
    EXPECT_EQ(1, CKelDate::ValidateAndGet("1/1/2000", dayNumber));
    EXPECT_EQ(2451545.0, dayNumber);
    EXPECT_EQ(1, CKelDate::JulianValue(CString("1/2/2000"), &dayNumber));
    EXPECT_EQ(2451546.0, dayNumber);
    EXPECT_EQ(1, CKelDate::JulianValue(CString("1/2/2000"), NULL));
    EXPECT_EQ(0, CKelDate::JulianValue(CString("1/32/2000"), &dayNumber));
    EXPECT_EQ(2451546.0, dayNumber);
}

TEST(KelDateDayNumber, KnownValuesAndCorrectionStart)
{
    EXPECT_EQ(2451545.0, CKelDate::JulianValue(2000, 1, 1));
    EXPECT_EQ(2451545.0, static_cast<double>(CKelDate(2000, 1, 1)));
    EXPECT_EQ(1.0, CKelDate::JulianValue(-4712, 1, 2));
    // The correction starts on 16 October 1583: the ten days from there repeat the ten before,
    // and their day numbers read back as the earlier dates.
    EXPECT_EQ(CKelDate::JulianValue(1583, 10, 6), CKelDate::JulianValue(1583, 10, 16));
    EXPECT_EQ(CKelDate::JulianValue(1583, 10, 15) + 1.0, CKelDate::JulianValue(1583, 10, 26));
    ExpectDate(CKelDate(CKelDate::JulianValue(1583, 10, 16)), 1583, 10, 6);
    // 29 February 1500 is no valid date but has a day number; it reads back as 1 March.
    double leap1500 = CKelDate::JulianValue(1500, 2, 28) + 1.0;
    ExpectDate(CKelDate(leap1500), 1500, 3, 1);
}

TEST(KelDateDayNumber, RoundTripOfEveryDateFromYearOne)
{
    int nNotThemselves = 0;
    double previous = CKelDate::JulianValue(1, 1, 1) - 1.0;
    for (short year = 1; year <= 9999; ++year)
    {
        for (short month = 1; month <= 12; ++month)
        {
            for (short day = 1; day <= CKelDate::DaysInMonth(month, year); ++day)
            {
                double number = CKelDate::JulianValue(year, month, day);
                CKelDate back(number);
                if (back.JulianValue() != number || !back.IsValid())
                    FAIL() << year << "-" << month << "-" << day;
                if (back.GetYear() != year || back.GetMonth() != month || back.GetDay() != day)
                    ++nNotThemselves;
                // From 1584 on consecutive dates differ by exactly 1.
                if (year >= 1584 && number != previous + 1.0)
                    FAIL() << year << "-" << month << "-" << day;
                previous = number;
            }
        }
    }
    EXPECT_EQ(10, nNotThemselves);
}

TEST(KelDateDayNumber, EveryDayNumberGivesAValidDate)
{
    // Every fifth number of the whole range: the dates of the years 1..9999 are all tested above.
    for (double number = 1.0; number <= LAST_DAY_NUMBER; number += 5.0)
    {
        short year, month, day;
        ASSERT_EQ(1, CKelDate::DateValue(number, &year, &month, &day)) << number;
        double back = CKelDate::JulianValue(year, month, day);
        // Only the old calendar's extra leap days read back as the day after.
        if (!CKelDate::IsValid(year, month, day) ||
            (back != number && !(back == number + 1.0 && month == 3 && day == 1)))
            FAIL() << number;
    }
}

TEST(KelDateDayNumber, OutOfRangeGivesTheEmptyDate)
{
    const double numbers[] = {0.0, 0.99, -1.0, -1e300, LAST_DAY_NUMBER + 1.0, 1e300, NAN, INFINITY};
    for (double number : numbers)
    {
        SCOPED_TRACE(number);
        short year = 9, month = 9, day = 9;
        EXPECT_EQ(0, CKelDate::DateValue(number, &year, &month, &day));
        EXPECT_EQ(0, year + month + day);
        CKelDate date(2003, 9, 5);
        date = number;
        ExpectDate(date, 0, 0, 0);
    }
    ExpectDate(CKelDate(LAST_DAY_NUMBER + 0.5), 32767, 12, 31);
    ExpectDate(CKelDate(1.0), -4712, 1, 2);
    ExpectDate(CKelDate(2451545.9), 2000, 1, 1);
    EXPECT_EQ(1, CKelDate::DateValue(2451545.0, NULL, NULL, NULL));
    EXPECT_EQ(29, CKelDate::DaysInMonth(CKelDate::JulianValue(2000, 2, 1)));
    EXPECT_EQ(60, CKelDate::GetDayOfYear(CKelDate::JulianValue(2000, 2, 29)));
    EXPECT_EQ(1, CKelDate::IsLeap(CKelDate::JulianValue(2000, 2, 29)));
    EXPECT_EQ(2000, CKelDate::GetYear(2451545.0));
}

TEST(KelDateCalendar, Rules)
{
    EXPECT_EQ(1, CKelDate::IsLeap(static_cast<short>(2000)));
    EXPECT_EQ(0, CKelDate::IsLeap(static_cast<short>(1900)));
    EXPECT_EQ(1, CKelDate::IsLeap(static_cast<short>(2004)));
    EXPECT_EQ(0, CKelDate::IsLeap(static_cast<short>(2003)));
    EXPECT_EQ(0, CKelDate::DaysInMonth(0, 2003));
    EXPECT_EQ(0, CKelDate::DaysInMonth(13, 2003));
    EXPECT_EQ(30, CKelDate::DaysInMonth(9, 2003));
    EXPECT_EQ(0, CKelDate::IsValid(2003, 2, 29));
    EXPECT_EQ(1, CKelDate::IsValid(-5, 2, 28));
    EXPECT_EQ(365, CKelDate(2003, 12, 31).DayOfYear());
    EXPECT_EQ(5, CKelDate(2003, 1, 5).DayOfYear());

    // The member form counts from this date to the argument; the days do not count.
    CKelDate first(2002, 11, 30), second(2004, 2, 1);
    EXPECT_EQ(15, first.MonthSpan(&second));
    EXPECT_EQ(-15, second.MonthSpan(&first));
    EXPECT_EQ(0, first.MonthSpan(NULL));
    EXPECT_EQ(15, CKelDate::MonthSpan(first.JulianValue(), second.JulianValue()));

    CKelDate date(2003, 12, 15);
    date.SetTo1stDayOfNextMonth();
    ExpectDate(date, 2004, 1, 1);
    date.SetTo1stDayOfPrevMonth();
    ExpectDate(date, 2003, 12, 1);
    date.SetToLastDayOfCurMonth();
    ExpectDate(date, 2003, 12, 31);
    date.SetTo1stDayOfCurMonth();
    ExpectDate(date, 2003, 12, 1);
}

TEST(KelDateCalendar, IncrementAndDecrement)
{
    struct Case
    {
        Ymd from;
        char unit;
        int count;
        int ok;
        Ymd to;
    } cases[] = {
        {{2003, 1, 31}, 'M', 1, 1, {2003, 2, 28}},
        {{2003, 4, 30}, 'M', 1, 1, {2003, 5, 31}},
        {{2003, 2, 28}, 'M', 1, 1, {2003, 3, 31}},
        {{2003, 1, 30}, 'M', 1, 1, {2003, 2, 28}},
        {{2003, 1, 29}, 'M', 13, 1, {2004, 2, 29}},
        {{2003, 1, 15}, 'M', -1, 1, {2002, 12, 15}},
        {{2003, 2, 28}, 'Y', 1, 1, {2004, 2, 29}},
        {{2004, 2, 29}, 'Y', 1, 1, {2005, 2, 28}},
        {{2003, 2, 15}, 'Q', -1, 1, {2002, 11, 15}},
        {{2003, 11, 30}, 'Q', 1, 1, {2004, 2, 29}},
        {{2003, 12, 31}, 'D', 1, 1, {2004, 1, 1}},
        {{2003, 3, 1}, 'D', -1, 1, {2003, 2, 28}},
        {{2003, 1, 1}, 'W', 2, 1, {2003, 1, 15}},
        {{2003, 2, 15}, 'x', 5, 1, {2003, 2, 15}},
        {{2003, 2, 15}, 'd', 5, 1, {2003, 2, 15}},
        {{2003, 2, 30}, 'D', 1, 0, {2003, 2, 30}},
        {{2003, 1, 0}, 'M', 1, 0, {2003, 1, 0}},
        // Results past what a day number or a 16-bit year holds fail and change nothing.
        {{32767, 12, 1}, 'M', 1, 0, {32767, 12, 1}},
        {{2003, 1, 1}, 'Y', INT_MAX, 0, {2003, 1, 1}},
        {{2003, 1, 1}, 'Q', INT_MIN, 0, {2003, 1, 1}},
        {{2003, 1, 1}, 'D', INT_MIN, 0, {2003, 1, 1}},
        {{2003, 1, 1}, 'W', INT_MAX, 0, {2003, 1, 1}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.from.year << "-" << c.from.month << "-" << c.from.day
                                        << " " << c.unit << " " << c.count);
        CKelDate date(c.from.year, c.from.month, c.from.day);
        EXPECT_EQ(c.ok, date.Increment(c.unit, c.count));
        ExpectDate(date, c.to.year, c.to.month, c.to.day);
        if (c.ok && c.count != INT_MIN)
        {
            CKelDate back(c.from.year, c.from.month, c.from.day);
            EXPECT_EQ(1, back.Decrement(c.unit, -c.count));
            EXPECT_TRUE(back == date);
            Ymd fields = c.from;
            EXPECT_EQ(1, CKelDate::Increment(&fields.year, &fields.month, &fields.day, c.unit,
                                             c.count));
            ExpectDate(date, fields.year, fields.month, fields.day);
        }
    }
    short year = 2003, month = 1;
    EXPECT_EQ(0, CKelDate::Increment(&year, &month, NULL, 'D', 1));

    CKelDate date(2003, 1, 1);
    EXPECT_EQ(0, date.Decrement('Y', INT_MIN));
    EXPECT_EQ(0, date.AddDays(UINT_MAX));
    EXPECT_EQ(1, date.AddDays(31));
    EXPECT_EQ(1, date.AddMonths(1));
    EXPECT_EQ(1, date.AddYears(1));
    ExpectDate(date, 2004, 3, 1);
    EXPECT_EQ(1, date.SubDays(1));
    EXPECT_EQ(1, date.SubMonths(1));
    EXPECT_EQ(1, date.SubYears(1));
    ExpectDate(date, 2003, 1, 31);

    double number = CKelDate::JulianValue(2003, 1, 31);
    EXPECT_EQ(CKelDate::JulianValue(2003, 2, 28), CKelDate::Increment(number, 'M', 1));
    EXPECT_EQ(CKelDate::JulianValue(2002, 12, 31), CKelDate::Decrement(number, 'M', 1));
    EXPECT_EQ(0.0, CKelDate::Increment(0.0, 'D', 1));
}

namespace
{
// One formatter in its three forms; the ones without a separator ignore it.
struct Formatter
{
    const char* name;
    char* (*toBuffer)(const CKelDate&, char*, char);
    CString& (*toString)(const CKelDate&, CString&, char);
    CString (*fromNumber)(double, char);
};

#define KEL_FORMATTER_WITH_SEP(name)                                                            \
    {#name, [](const CKelDate& d, char* p, char s) { return d.name(p, s); },                     \
     [](const CKelDate& d, CString& o, char s) -> CString& { return d.name(o, s); },            \
     [](double n, char s) { return CKelDate::name(n, s); }}
#define KEL_FORMATTER(name)                                                                     \
    {#name, [](const CKelDate& d, char* p, char) { return d.name(p); },                          \
     [](const CKelDate& d, CString& o, char) -> CString& { return d.name(o); },                 \
     [](double n, char) { return CKelDate::name(n); }}

const Formatter FORMATTERS[] = {
    KEL_FORMATTER_WITH_SEP(FmtMMsDDsYYYY), KEL_FORMATTER_WITH_SEP(FmtMMsDDsYY),
    KEL_FORMATTER_WITH_SEP(FmtMMsYYYY),    KEL_FORMATTER_WITH_SEP(FmtMMsYY),
    KEL_FORMATTER(FmtMthDDYYYY),           KEL_FORMATTER(FmtMthYYYY),
    KEL_FORMATTER(FmtMonthDDYYYY),         KEL_FORMATTER(FmtMonthYYYY),
};
#undef KEL_FORMATTER_WITH_SEP
#undef KEL_FORMATTER
} // namespace

TEST(KelDateFormat, EveryFormatterInEveryForm)
{
    // "Sept" is the short name of September on purpose.
    const char* const expected[] = {"09-05-2003", "09-05-03", "09-2003", "09-03",
                                    "Sept 05, 2003", "Sept, 2003", "September 05, 2003",
                                    "September, 2003"};
    const CKelDate date(2003, 9, 5);
    for (size_t i = 0; i < sizeof(FORMATTERS) / sizeof(FORMATTERS[0]); ++i)
    {
        const Formatter& fmt = FORMATTERS[i];
        SCOPED_TRACE(fmt.name);
        char buffer[CKelDate::DATE_BUFFER_SIZE];
        CString out;
        EXPECT_EQ(buffer, fmt.toBuffer(date, buffer, '-'));
        EXPECT_STREQ(expected[i], buffer);
        EXPECT_STREQ(expected[i], fmt.toString(date, out, '-'));
        EXPECT_STREQ(expected[i], fmt.fromNumber(date.JulianValue(), '-'));
        EXPECT_EQ(NULL, fmt.toBuffer(date, NULL, '-'));

        // The longest texts fit the buffer.
        const CKelDate extreme(-32768, static_cast<short>(i % 2 ? 9 : -32768), -32768);
        char guarded[CKelDate::DATE_BUFFER_SIZE + 8];
        memset(guarded, 'x', sizeof(guarded));
        fmt.toBuffer(extreme, guarded, '/');
        EXPECT_LT(strlen(guarded), static_cast<size_t>(CKelDate::DATE_BUFFER_SIZE));
    }
    CString out;
    EXPECT_STREQ("Aug 01, 2003", CKelDate(2003, 8, 1).FmtMthDDYYYY(out));
    EXPECT_STREQ("01/05/05", CKelDate(5, 1, 5).FmtMMsDDsYY(out, '/'));
    EXPECT_STREQ("01/345", CKelDate(12345, 1, 5).FmtMMsYY(out, '/'));
    // A month outside 1..12 has no name.
    EXPECT_STREQ(" 05, 2003", CKelDate(2003, 13, 5).FmtMonthDDYYYY(out));
    EXPECT_STREQ(", 2003", CKelDate(2003, 0, 5).FmtMthYYYY(out));
}

TEST(KelDateFormat, YearAndFraction)
{
    struct Case
    {
        Ymd date;
        char sep;
        const char* expected;
    } cases[] = {
        {{2003, 12, 31}, '.', "2004.0000"},
        {{2003, 1, 1}, '.', "2003.0027"},
        {{2004, 12, 30}, '.', "2004.9973"},
        {{2004, 12, 31}, ':', "2005:0000"},
        {{2003, 7, 1}, '.', "2003.4986"},
        {{99, 3, 1}, '/', "0099/1644"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.expected);
        CString out;
        const CKelDate date(c.date.year, c.date.month, c.date.day);
        EXPECT_STREQ(c.expected, date.FmtYYYYFFFF(out, c.sep));
        EXPECT_STREQ(c.expected, CKelDate::FmtYYYYFFFF(date.JulianValue(), c.sep));
    }
}

TEST(KelDateCompare, YearThenMonthThenDay)
{
    const CKelDate early(2003, 12, 31), late(2004, 1, 1), same(2004, 1, 1);
    EXPECT_EQ(1, early < late);
    EXPECT_EQ(1, early <= late);
    EXPECT_EQ(0, early > late);
    EXPECT_EQ(0, early >= late);
    EXPECT_EQ(0, early == late);
    EXPECT_EQ(1, late == same);
    EXPECT_EQ(1, late <= same);
    EXPECT_EQ(1, late >= same);
    EXPECT_EQ(0, late < same);
    EXPECT_EQ(1, CKelDate(2003, 2, 1) > CKelDate(2003, 1, 31));
}

TEST(KelDateToday, LocalClock)
{
    ExpectDate(CKelDate(0), 0, 0, 0);
    time_t now = time(NULL);
    CKelDate today(1);
    struct tm local = *localtime(&now);
    EXPECT_TRUE(today.IsValid());
    // Tolerate midnight passing between the two readings.
    EXPECT_LE(fabs(today.JulianValue() -
                   CKelDate::JulianValue(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday)),
              1.0);
}
