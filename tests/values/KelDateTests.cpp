#include <gtest/gtest.h>
#include "values/KelDate.h"

#include <limits.h>
#include <math.h>
#include <string.h>
#include <time.h>

namespace
{
// The date as MM/DD/YYYY, so that one comparison checks all three fields.
CString Shown(const CKelDate& date)
{
    CString text;
    return date.FmtMMsDDsYYYY(text, '/');
}

const double LAST_DAY_NUMBER = CKelDate::JulianValue(32767, 12, 31);
} // namespace

TEST(KelDateParse, TextsAndMessages)
{
    struct Case
    {
        const char* text;
        const char* expected; // the date read, or the message
    } cases[] = {
        {"1/1", "Invalid Date Text Length"},
        {"12.25.2003", "Invalid character found in date"},
        {"12252003", "Invalid Date Format"},
        {"13/1/2003", "Invalid Month"},
        // A text beginning with a separator reads its month as 0.
        {"/1/2003", "Invalid Month"},
        {"99999999999999/1/2003", "Invalid Month"},
        {"2/29/2001", "Invalid Day"},
        {"1/1/32768", "Invalid Date Format"},
        {"1/1/32767", "01/01/32767"},
        {"2/29/2000", "02/29/2000"},
        {"01/5", "01/01/2005"},
        {"1/50", "01/01/1950"},
        {"1/5/45", "01/05/2045"},
        {"1/5/46", "01/05/1946"},
        {"1/1/100", "01/01/100"},
        {"12/2003/", "12/01/2003"},
        {"12-25/2003/7", "12/25/2003"},
        // Day 0 parses although IsValid refuses it (kept).
        {"1/0/2003", "01/00/2003"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.text);
        CKelDate date(2001, 7, 4);
        CString message("untouched");
        int ok = date.ValidateAndSet(c.text, &message);
        EXPECT_EQ(ok, CKelDate::Validate(c.text));
        EXPECT_STREQ(c.expected, ok ? Shown(date) : message);
        // A failure leaves the date, a success the message, as it was.
        EXPECT_STREQ(ok ? "untouched" : "07/04/2001", ok ? message : Shown(date));
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
    date.MakeStyleValid(CKelDate::DATE_MMYYYY, 0);
    EXPECT_EQ(0, date.NewDate("09/03"));

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
    CKelDate copy(date);
    EXPECT_EQ(1, copy.NewDate("09/05/2003"));
}

TEST(KelDateParse, ConstructionAndStaticForms)
{
    EXPECT_STREQ("09/05/2003", Shown(CKelDate(CString("9/5/2003"))));
    EXPECT_STREQ("00/00/0", Shown(CKelDate(CString("9/5/2003x"))));
    EXPECT_STREQ("00/00/0", Shown(CKelDate(0)));
    CKelDate date(2001, 7, 4);
    EXPECT_EQ(0, date.NewDate(static_cast<const char*>(NULL)));
    EXPECT_STREQ("07/04/2001", Shown(date));

    double dayNumber = -1.0;
    EXPECT_EQ(1, CKelDate::ValidateAndGet("1/1/2000", dayNumber));
    EXPECT_EQ(2451545.0, dayNumber);
    EXPECT_EQ(1, CKelDate::JulianValue(CString("1/2/2000"), NULL));
    EXPECT_EQ(0, CKelDate::JulianValue(CString("1/32/2000"), &dayNumber));
    EXPECT_EQ(2451545.0, dayNumber);
}

TEST(KelDateDayNumber, KnownValuesAndLimits)
{
    EXPECT_EQ(2451545.0, static_cast<double>(CKelDate(2000, 1, 1)));
    EXPECT_STREQ("01/02/-4712", Shown(CKelDate(1.0)));
    EXPECT_STREQ("12/31/32767", Shown(CKelDate(LAST_DAY_NUMBER + 0.5)));
    EXPECT_STREQ("01/01/2000", Shown(CKelDate(2451545.9)));
    EXPECT_EQ(1, CKelDate::DateValue(2451545.0, NULL, NULL, NULL));
    // The correction starts on 16 October 1583: the ten days from there repeat the ten before,
    // and their day numbers read back as the earlier dates.
    EXPECT_EQ(CKelDate::JulianValue(1583, 10, 6), CKelDate::JulianValue(1583, 10, 16));
    EXPECT_EQ(CKelDate::JulianValue(1583, 10, 15) + 1.0, CKelDate::JulianValue(1583, 10, 26));
    EXPECT_STREQ("10/06/1583", Shown(CKelDate(CKelDate::JulianValue(1583, 10, 16))));
    // 29 February 1500 is no valid date but has a day number; it reads back as 1 March.
    EXPECT_STREQ("03/01/1500", Shown(CKelDate(CKelDate::JulianValue(1500, 2, 28) + 1.0)));
    // Before 1 March of the year 0 the inverse's divisions must round down.
    EXPECT_STREQ("02/29/-4", Shown(CKelDate(CKelDate::JulianValue(-4, 2, 29))));

    const double outside[] = {0.99, -1e300, LAST_DAY_NUMBER + 1.0, NAN, INFINITY};
    for (double number : outside)
    {
        CKelDate date(2003, 9, 5);
        date = number;
        EXPECT_STREQ("00/00/0", Shown(date)) << number;
    }
    short year = 9, month = 9, day = 9;
    EXPECT_EQ(0, CKelDate::DateValue(NAN, &year, &month, &day));
    EXPECT_EQ(0, year + month + day);
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
                // Only the ten days of October 1583 that repeat earlier ones read back otherwise.
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

TEST(KelDateCalendar, Rules)
{
    EXPECT_EQ(1, CKelDate::IsLeap(static_cast<short>(2000)));
    EXPECT_EQ(0, CKelDate::IsLeap(static_cast<short>(1900)));
    EXPECT_EQ(0, CKelDate::DaysInMonth(13, 2003));
    EXPECT_EQ(30, CKelDate::DaysInMonth(9, 2003));
    // The year is not checked.
    EXPECT_EQ(1, CKelDate::IsValid(-5, 2, 28));
    EXPECT_EQ(365, CKelDate(2003, 12, 31).DayOfYear());

    // The member form counts from this date to the argument; the days do not count.
    CKelDate first(2002, 11, 30), second(2004, 2, 1);
    EXPECT_EQ(15, first.MonthSpan(&second));
    EXPECT_EQ(-15, second.MonthSpan(&first));
    EXPECT_EQ(0, first.MonthSpan(NULL));

    CKelDate date(2003, 12, 15);
    date.SetTo1stDayOfNextMonth();
    EXPECT_STREQ("01/01/2004", Shown(date));
    date.SetTo1stDayOfPrevMonth();
    EXPECT_STREQ("12/01/2003", Shown(date));
    date.SetToLastDayOfCurMonth();
    EXPECT_STREQ("12/31/2003", Shown(date));

    // Year, then month, then day.
    const CKelDate late(2004, 1, 1);
    EXPECT_EQ(1, date < late);
    EXPECT_EQ(0, date >= late);
    EXPECT_EQ(0, date == late);
    EXPECT_EQ(1, late == CKelDate(2004, 1, 1));
    EXPECT_EQ(1, CKelDate(2003, 2, 1) > CKelDate(2003, 1, 31));
}

TEST(KelDateCalendar, IncrementAndDecrement)
{
    struct Case
    {
        const char* from;
        char unit;
        int count;
        const char* to; // NULL: refused, the date unchanged
    } cases[] = {
        {"01/31/2003", 'M', 1, "02/28/2003"},
        {"04/30/2003", 'M', 1, "05/31/2003"},
        {"01/30/2003", 'M', 1, "02/28/2003"},
        {"01/15/2003", 'M', -1, "12/15/2002"},
        {"02/28/2003", 'Y', 1, "02/29/2004"},
        {"02/29/2004", 'Y', 1, "02/28/2005"},
        {"02/15/2003", 'Q', -1, "11/15/2002"},
        {"11/30/2003", 'Q', 1, "02/29/2004"},
        {"12/31/2003", 'D', 1, "01/01/2004"},
        {"01/01/2003", 'W', 2, "01/15/2003"},
        {"02/15/2003", 'd', 5, "02/15/2003"},
        {"01/00/2003", 'M', 1, NULL},
        // Results past what a day number or a 16-bit year holds.
        {"12/01/32767", 'M', 1, NULL},
        {"01/01/2003", 'Y', INT_MAX, NULL},
        {"01/01/2003", 'Q', INT_MIN, NULL},
        {"01/01/2003", 'D', INT_MIN, NULL},
        {"01/01/2003", 'W', INT_MAX, NULL},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.from << " " << c.unit << " " << c.count);
        CKelDate date((CString(c.from)));
        EXPECT_EQ(c.to != NULL, date.Increment(c.unit, c.count));
        EXPECT_STREQ(c.to ? c.to : c.from, Shown(date));
        if (c.to)
        {
            CKelDate back((CString(c.from)));
            EXPECT_EQ(1, back.Decrement(c.unit, -c.count));
            EXPECT_TRUE(back == date);
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
    EXPECT_STREQ("03/01/2004", Shown(date));
    EXPECT_EQ(1, date.SubDays(1));
    EXPECT_EQ(1, date.SubMonths(1));
    EXPECT_EQ(1, date.SubYears(1));
    EXPECT_STREQ("01/31/2003", Shown(date));

    double number = CKelDate::JulianValue(2003, 1, 31);
    EXPECT_EQ(CKelDate::JulianValue(2002, 12, 31), CKelDate::Decrement(number, 'M', 1));
    EXPECT_EQ(0.0, CKelDate::Increment(0.0, 'D', 1));
}

TEST(KelDateFormat, EveryFormatter)
{
    const CKelDate date(2003, 9, 5);
    CString out;
    EXPECT_STREQ("09-05-03", date.FmtMMsDDsYY(out, '-'));
    EXPECT_STREQ("09-2003", date.FmtMMsYYYY(out, '-'));
    EXPECT_STREQ("09-03", date.FmtMMsYY(out, '-'));
    // "Sept" is the short name of September on purpose.
    EXPECT_STREQ("Sept 05, 2003", date.FmtMthDDYYYY(out));
    EXPECT_STREQ("Sept, 2003", date.FmtMthYYYY(out));
    EXPECT_STREQ("September 05, 2003", date.FmtMonthDDYYYY(out));
    EXPECT_STREQ("September, 2003", date.FmtMonthYYYY(out));

    // The two-digit year is the four-digit text from its third character on.
    EXPECT_STREQ("01/05/05", CKelDate(5, 1, 5).FmtMMsDDsYY(out, '/'));
    EXPECT_STREQ("01/345", CKelDate(12345, 1, 5).FmtMMsYY(out, '/'));
    // A month outside 1..12 has no name.
    EXPECT_STREQ(" 05, 2003", CKelDate(2003, 13, 5).FmtMonthDDYYYY(out));
    EXPECT_STREQ(", 2003", CKelDate(2003, 0, 5).FmtMthYYYY(out));

    // The last day of a year is the next year's start.
    EXPECT_STREQ("2004.0000", CKelDate(2003, 12, 31).FmtYYYYFFFF(out, '.'));
    EXPECT_STREQ("2003.0027", CKelDate(2003, 1, 1).FmtYYYYFFFF(out, '.'));
    EXPECT_STREQ("2005:0000", CKelDate::FmtYYYYFFFF(CKelDate::JulianValue(2004, 12, 31), ':'));
    EXPECT_STREQ("0099/1644", CKelDate(99, 3, 1).FmtYYYYFFFF(out, '/'));
}

TEST(KelDateFormat, BufferAndStaticForms)
{
    const CKelDate date(2003, 9, 5);
    char buffer[CKelDate::DATE_BUFFER_SIZE];
    EXPECT_EQ(buffer, date.FmtMMsYY(buffer, '.'));
    EXPECT_STREQ("09.03", buffer);
    EXPECT_EQ(NULL, date.FmtMthYYYY(static_cast<char*>(NULL)));
    EXPECT_STREQ("Sept 05, 2003", CKelDate::FmtMthDDYYYY(date.JulianValue()));

    // The longest text of all fits the buffer.
    char guarded[CKelDate::DATE_BUFFER_SIZE + 8];
    memset(guarded, 'x', sizeof(guarded));
    CKelDate(-32768, 9, -32768).FmtMonthDDYYYY(guarded);
    EXPECT_LT(strlen(guarded), static_cast<size_t>(CKelDate::DATE_BUFFER_SIZE));
}

TEST(KelDateToday, LocalClock)
{
    time_t now = time(NULL);
    CKelDate today(1);
    struct tm local = *localtime(&now);
    EXPECT_TRUE(today.IsValid());
    // Tolerate midnight passing between the two readings.
    EXPECT_LE(fabs(today.JulianValue() -
                   CKelDate::JulianValue(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday)),
              1.0);
}
