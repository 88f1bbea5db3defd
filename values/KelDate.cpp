#include "values/KelDate.h"

#include <limits.h>
#include <math.h>
#include <string.h>
#include <time.h>

namespace
{
// An uncorrected day number above this one gets the century correction.
const double CORRECTION_START = 2299536.0;

// Day numbers of 1 March of the year 0, counted by the old and by the corrected calendar.
const long long OLD_MARCH_EPOCH = 1721118;
const long long NEW_MARCH_EPOCH = 1721120;

const int DAYS_IN_4_YEARS = 4 * 365 + 1;
const int DAYS_IN_100_YEARS = 25 * DAYS_IN_4_YEARS - 1;
const int DAYS_IN_400_YEARS = 4 * DAYS_IN_100_YEARS + 1;

// Numbers in a date text have no digit limit; past this cap they only need to stay too large.
const LONG NUMBER_CAP = 100000000;

// September is deliberately "Sept": the short dates have always shown it that way.
const char* const SHORT_MONTH_NAMES[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                           "Jul", "Aug", "Sept", "Oct", "Nov", "Dec"};
const char* const LONG_MONTH_NAMES[12] = {"January", "February", "March",     "April",
                                          "May",     "June",     "July",      "August",
                                          "September", "October", "November", "December"};

// An invalid month has no name rather than a read outside the table.
const char* MonthName(const char* const* names, int month)
{
    return month >= 1 && month <= 12 ? names[month - 1] : "";
}

long long FloorDiv(long long a, long long b)
{
    long long q = a / b;
    return q * b > a ? q - 1 : q;
}

// Splits the days of a four-year group starting on 1 March (the leap day comes last) into
// the year within the group and the day within that year, both from 0.
void SplitYears(int days, long long& year, int& dayOfYear)
{
    int years = days / 365 < 3 ? days / 365 : 3;
    year += years;
    dayOfYear = days - years * 365;
}

// The date of a day counted from 1 March: the year moves on with January.
void SetMonthAndDay(int dayOfYear, long long& year, int& month, int& day)
{
    int fromMarch = (5 * dayOfYear + 2) / 153;
    day = dayOfYear - (153 * fromMarch + 2) / 5 + 1;
    month = fromMarch < 10 ? fromMarch + 3 : fromMarch - 9;
    if (month <= 2)
        ++year;
}

int IsSeparator(char ch)
{
    return ch == '/' || ch == '-';
}

// The decimal value of the digits at nPos (0 when there are none), leaving nPos after them.
LONG ReadNumber(LPCTSTR pszText, int nLength, int& nPos)
{
    LONG nValue = 0;
    for (; nPos < nLength && pszText[nPos] >= '0' && pszText[nPos] <= '9'; ++nPos)
    {
        if (nValue < NUMBER_CAP)
            nValue = nValue * 10 + (pszText[nPos] - '0');
    }
    return nValue;
}

int CompareDates(const CKelDate& first, const CKelDate& second)
{
    if (first.GetYear() != second.GetYear())
        return first.GetYear() < second.GetYear() ? -1 : 1;
    if (first.GetMonth() != second.GetMonth())
        return first.GetMonth() < second.GetMonth() ? -1 : 1;
    if (first.GetDay() != second.GetDay())
        return first.GetDay() < second.GetDay() ? -1 : 1;
    return 0;
}
} // namespace

CKelDate::CKelDate(int today) : m_nDay(0), m_nMonth(0), m_nYear(0)
{
    AllowAllStyles();
    if (today != 0)
        SetToToday();
}

CKelDate::CKelDate(short year, short month, short day) : m_nDay(day), m_nMonth(month), m_nYear(year)
{
    AllowAllStyles();
}

CKelDate::CKelDate(const CKelDate& other)
    : m_nDay(other.m_nDay), m_nMonth(other.m_nMonth), m_nYear(other.m_nYear)
{
    AllowAllStyles();
}

CKelDate::CKelDate(double dayNumber)
{
    AllowAllStyles();
    DateValue(dayNumber, &m_nYear, &m_nMonth, &m_nDay);
}

CKelDate::CKelDate(const CString& text) : m_nDay(0), m_nMonth(0), m_nYear(0)
{
    AllowAllStyles();
    NewDate(text);
}

CKelDate::~CKelDate()
{
}

void CKelDate::AllowAllStyles()
{
    for (int i = 0; i < 4; ++i)
        m_bStyleValid[i] = TRUE;
}

const CKelDate& CKelDate::operator=(const CKelDate& other)
{
    NewDate(other.m_nYear, other.m_nMonth, other.m_nDay);
    return *this;
}

const CKelDate& CKelDate::operator=(double dayNumber)
{
    DateValue(dayNumber, &m_nYear, &m_nMonth, &m_nDay);
    return *this;
}

CKelDate::operator double() const
{
    return JulianValue();
}

void CKelDate::NewDate(short year, short month, short day)
{
    m_nYear = year;
    m_nMonth = month;
    m_nDay = day;
}

int CKelDate::NewDate(const char* pszText)
{
    return ValidateAndSet(CString(pszText), NULL);
}

int CKelDate::NewDate(const CString& text)
{
    return ValidateAndSet(text, NULL);
}

void CKelDate::SetToToday()
{
    time_t now = time(NULL);
    struct tm local;
#ifdef _WIN32
    BOOL bKnown = localtime_s(&local, &now) == 0;
#else
    BOOL bKnown = localtime_r(&now, &local) != NULL;
#endif
    if (bKnown)
        NewDate((short)(local.tm_year + 1900), (short)(local.tm_mon + 1), (short)local.tm_mday);
    else
        NewDate(0, 0, 0);
}

void CKelDate::MakeStyleValid(DATE_STYLE style, int valid)
{
    // Style 4 passes the range test callers were written against but has no flag of its own,
    // so like any other style outside 0..3 it stores nothing.
    if (style >= DATE_MMDDYYYY && style <= DATE_MMYY)
        m_bStyleValid[style] = valid;
}

int CKelDate::ValidateAndSet(const CString& text, CString* pMessage)
{
    LPCTSTR pszFailure = NULL;
    LPCTSTR pszText = text;
    int nLength = text.GetLength();
    LONG nNumbers[3] = {0, 0, 0};
    int nCount = 0;
    LONG nYear = 0, nMonth = 0, nDay = 1;

    if (nLength < 4)
        pszFailure = "Invalid Date Text Length";
    for (int i = 0; pszFailure == NULL && i < nLength; ++i)
    {
        if (!IsSeparator(pszText[i]) && (pszText[i] < '0' || pszText[i] > '9'))
            pszFailure = "Invalid character found in date";
    }
    if (pszFailure == NULL)
    {
        // A separator with nothing after it ends the reading, so "12/2003/" has two numbers.
        int nPos = 0;
        for (;;)
        {
            nNumbers[nCount++] = ReadNumber(pszText, nLength, nPos);
            if (nCount == 3 || nPos + 1 >= nLength || !IsSeparator(pszText[nPos]))
                break;
            ++nPos;
        }
        // The flags are tested in pairs, so refusing one style of a pair refuses the whole
        // form: the controls only ever allow or refuse a form as a whole.
        if (nCount == 2 && m_bStyleValid[DATE_MMYYYY] && m_bStyleValid[DATE_MMYY])
        {
            nMonth = nNumbers[0];
            nYear = nNumbers[1];
        }
        else if (nCount == 3 && m_bStyleValid[DATE_MMDDYYYY] && m_bStyleValid[DATE_MMDDYY])
        {
            nMonth = nNumbers[0];
            nDay = nNumbers[1];
            nYear = nNumbers[2];
        }
        else
            pszFailure = "Invalid Date Format";
    }
    if (pszFailure == NULL)
    {
        if (nYear < 100)
            nYear += nYear <= 45 ? 2000 : 1900;
        // A year the 16-bit field cannot hold is no date at all.
        if (nYear > SHRT_MAX)
            pszFailure = "Invalid Date Format";
        else if (nMonth < 1 || nMonth > 12)
            pszFailure = "Invalid Month";
        // Day 0 is let through although IsValid refuses it: texts the date fields have always
        // taken must keep parsing.
        else if (nDay < 0 || nDay > DaysInMonth((short)nMonth, (short)nYear))
            pszFailure = "Invalid Day";
    }
    if (pszFailure != NULL)
    {
        if (pMessage != NULL)
            *pMessage = pszFailure;
        return 0;
    }
    NewDate((short)nYear, (short)nMonth, (short)nDay);
    return 1;
}

int CKelDate::Validate(const CString& text, CString* pMessage)
{
    // Only the outcome is wanted: the scratch date's own value never shows.
    CKelDate scratch(0);
    return scratch.ValidateAndSet(text, pMessage);
}

int CKelDate::ValidateAndGet(const CString& text, double& dayNumber, CString* pMessage)
{
    CKelDate scratch(0);
    if (!scratch.ValidateAndSet(text, pMessage))
        return 0;
    dayNumber = scratch.JulianValue();
    return 1;
}

int CKelDate::JulianValue(const CString& text, double* pDayNumber)
{
    double dayNumber = 0.0;
    if (!ValidateAndGet(text, dayNumber, NULL))
        return 0;
    if (pDayNumber != NULL)
        *pDayNumber = dayNumber;
    return 1;
}

double CKelDate::JulianValue(short year, short month, short day)
{
    double m, y;
    if (month < 3)
    {
        m = month + 9;
        y = year - 1;
    }
    else
    {
        m = month - 3;
        y = year;
    }
    double j = floor(m * 30.6 + 0.5) + floor(y * 365.25) + day + 1721117.0;
    if (j > CORRECTION_START)
        j -= floor(floor(y * 0.01 + 1.0) * 0.75) - 2.0;
    return j;
}

double CKelDate::JulianValue() const
{
    return JulianValue(m_nYear, m_nMonth, m_nDay);
}

int CKelDate::DateValue(double dayNumber, short* pYear, short* pMonth, short* pDay)
{
    long long year = 0;
    int month = 0, day = 0;
    // Written so that a NaN fails too.
    int bInRange = dayNumber >= 1.0 && dayNumber < JulianValue(SHRT_MAX, 12, 31) + 1.0;
    if (bInRange)
    {
        long long number = (long long)dayNumber;
        int dayOfYear;
        if (number <= (long long)CORRECTION_START)
        {
            // The old calendar: a leap year in every four.
            long long days = number - OLD_MARCH_EPOCH;
            long long groups = FloorDiv(days, DAYS_IN_4_YEARS);
            year = groups * 4;
            SplitYears((int)(days - groups * DAYS_IN_4_YEARS), year, dayOfYear);
            SetMonthAndDay(dayOfYear, year, month, day);
            // Its extra leap days (1500, 1400, ...) are no valid dates; the day after is.
            if (month == 2 && day == 29 && !IsLeap((short)year))
            {
                month = 3;
                day = 1;
            }
        }
        else
        {
            // Corrected day numbers count by the Gregorian calendar from 1 March of the year 0.
            long long days = number - NEW_MARCH_EPOCH;
            long long eras = FloorDiv(days, DAYS_IN_400_YEARS);
            int inEra = (int)(days - eras * DAYS_IN_400_YEARS);
            int centuries = inEra / DAYS_IN_100_YEARS < 3 ? inEra / DAYS_IN_100_YEARS : 3;
            int inCentury = inEra - centuries * DAYS_IN_100_YEARS;
            int groups = inCentury / DAYS_IN_4_YEARS;
            year = eras * 400 + centuries * 100 + groups * 4;
            SplitYears(inCentury - groups * DAYS_IN_4_YEARS, year, dayOfYear);
            SetMonthAndDay(dayOfYear, year, month, day);
        }
    }
    if (pYear != NULL)
        *pYear = (short)year;
    if (pMonth != NULL)
        *pMonth = (short)month;
    if (pDay != NULL)
        *pDay = (short)day;
    return bInRange;
}

short CKelDate::GetDay(double dayNumber)
{
    return CKelDate(dayNumber).GetDay();
}

short CKelDate::GetMonth(double dayNumber)
{
    return CKelDate(dayNumber).GetMonth();
}

short CKelDate::GetYear(double dayNumber)
{
    return CKelDate(dayNumber).GetYear();
}

int CKelDate::GetDayOfYear(double dayNumber)
{
    return CKelDate(dayNumber).DayOfYear();
}

int CKelDate::DaysInMonth(double dayNumber)
{
    return CKelDate(dayNumber).DaysInMonth();
}

int CKelDate::IsLeap(double dayNumber)
{
    return CKelDate(dayNumber).IsLeap();
}

int CKelDate::IsLeap(short year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int CKelDate::IsLeap() const
{
    return IsLeap(m_nYear);
}

int CKelDate::DaysInMonth(short month, short year)
{
    static const int s_nDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && IsLeap(year) ? 29 : s_nDays[month - 1];
}

int CKelDate::DaysInMonth() const
{
    return DaysInMonth(m_nMonth, m_nYear);
}

int CKelDate::IsValid(short year, short month, short day)
{
    return month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(month, year);
}

int CKelDate::IsValid() const
{
    return IsValid(m_nYear, m_nMonth, m_nDay);
}

int CKelDate::DayOfYear() const
{
    int nDay = m_nDay;
    for (short month = 1; month < m_nMonth && month <= 12; ++month)
        nDay += DaysInMonth(month, m_nYear);
    return nDay;
}

int CKelDate::MonthSpan(const CKelDate* pFirst, const CKelDate* pSecond)
{
    if (pFirst == NULL || pSecond == NULL)
        return 0;
    return 12 * (pSecond->m_nYear - pFirst->m_nYear) + (pSecond->m_nMonth - pFirst->m_nMonth);
}

int CKelDate::MonthSpan(double firstDayNumber, double secondDayNumber)
{
    CKelDate first(firstDayNumber), second(secondDayNumber);
    return MonthSpan(&first, &second);
}

int CKelDate::MonthSpan(const CKelDate* pOther) const
{
    return MonthSpan(this, pOther);
}

int CKelDate::Move(short* pYear, short* pMonth, short* pDay, char unit, long long count)
{
    if (pYear == NULL || pMonth == NULL || pDay == NULL || !IsValid(*pYear, *pMonth, *pDay))
        return 0;
    long long year = *pYear;
    short month = *pMonth, day = *pDay;
    if (unit == 'D' || unit == 'W')
    {
        long long days = unit == 'W' ? 7 * count : count;
        double dayNumber = JulianValue(*pYear, *pMonth, *pDay) + (double)days;
        short newYear;
        if (!DateValue(dayNumber, &newYear, &month, &day))
            return 0;
        year = newYear;
    }
    else
    {
        if (unit == 'M' || unit == 'Q')
        {
            long long months = year * 12 + (month - 1) + (unit == 'Q' ? 3 * count : count);
            year = FloorDiv(months, 12);
            month = (short)(months - year * 12 + 1);
        }
        else if (unit == 'Y')
            year += count;
        if (year < SHRT_MIN || year > SHRT_MAX)
            return 0;
        // The end of a month stays the end of a month; another late day is cut to the new length.
        if (day > 27)
        {
            int nLength = DaysInMonth(month, (short)year);
            if (day == DaysInMonth(*pMonth, *pYear) || day >= nLength)
                day = (short)nLength;
        }
    }
    *pYear = (short)year;
    *pMonth = month;
    *pDay = day;
    return 1;
}

int CKelDate::Increment(short* pYear, short* pMonth, short* pDay, char unit, int count)
{
    return Move(pYear, pMonth, pDay, unit, count);
}

int CKelDate::Decrement(short* pYear, short* pMonth, short* pDay, char unit, int count)
{
    return Move(pYear, pMonth, pDay, unit, -(long long)count);
}

double CKelDate::Increment(double dayNumber, char unit, int count)
{
    CKelDate date(dayNumber);
    return date.Increment(unit, count) ? date.JulianValue() : dayNumber;
}

double CKelDate::Decrement(double dayNumber, char unit, int count)
{
    CKelDate date(dayNumber);
    return date.Decrement(unit, count) ? date.JulianValue() : dayNumber;
}

int CKelDate::Increment(char unit, int count)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, unit, count);
}

int CKelDate::Decrement(char unit, int count)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, unit, -(long long)count);
}

int CKelDate::AddDays(UINT n)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, 'D', n);
}

int CKelDate::SubDays(UINT n)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, 'D', -(long long)n);
}

int CKelDate::AddMonths(UINT n)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, 'M', n);
}

int CKelDate::SubMonths(UINT n)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, 'M', -(long long)n);
}

int CKelDate::AddYears(UINT n)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, 'Y', n);
}

int CKelDate::SubYears(UINT n)
{
    return Move(&m_nYear, &m_nMonth, &m_nDay, 'Y', -(long long)n);
}

void CKelDate::SetTo1stDayOfCurMonth()
{
    m_nDay = 1;
}

void CKelDate::SetTo1stDayOfNextMonth()
{
    m_nDay = 1;
    if (++m_nMonth > 12)
    {
        m_nMonth = 1;
        ++m_nYear;
    }
}

void CKelDate::SetTo1stDayOfPrevMonth()
{
    m_nDay = 1;
    if (--m_nMonth < 1)
    {
        m_nMonth = 12;
        --m_nYear;
    }
}

void CKelDate::SetToLastDayOfCurMonth()
{
    m_nDay = (short)DaysInMonth();
}

int CKelDate::operator==(const CKelDate& other) const
{
    return CompareDates(*this, other) == 0;
}

int CKelDate::operator<(const CKelDate& other) const
{
    return CompareDates(*this, other) < 0;
}

int CKelDate::operator<=(const CKelDate& other) const
{
    return CompareDates(*this, other) <= 0;
}

int CKelDate::operator>(const CKelDate& other) const
{
    return CompareDates(*this, other) > 0;
}

int CKelDate::operator>=(const CKelDate& other) const
{
    return CompareDates(*this, other) >= 0;
}

CString& CKelDate::Format(CString& out, DATE_FORMAT format, char sep) const
{
    // The two-digit year is a year printed with at least four digits, from its third on.
    CString year;
    year.Format("%04d", m_nYear);
    LPCTSTR pszShortYear = (LPCTSTR)year + 2;
    switch (format)
    {
    case FMT_MMDDYYYY:
        out.Format("%02d%c%02d%c%d", m_nMonth, sep, m_nDay, sep, m_nYear);
        break;
    case FMT_MMDDYY:
        out.Format("%02d%c%02d%c%s", m_nMonth, sep, m_nDay, sep, pszShortYear);
        break;
    case FMT_MMYYYY:
        out.Format("%02d%c%d", m_nMonth, sep, m_nYear);
        break;
    case FMT_MMYY:
        out.Format("%02d%c%s", m_nMonth, sep, pszShortYear);
        break;
    case FMT_MTHDDYYYY:
        out.Format("%s %02d, %d", MonthName(SHORT_MONTH_NAMES, m_nMonth), m_nDay, m_nYear);
        break;
    case FMT_MTHYYYY:
        out.Format("%s, %d", MonthName(SHORT_MONTH_NAMES, m_nMonth), m_nYear);
        break;
    case FMT_MONTHDDYYYY:
        out.Format("%s %02d, %d", MonthName(LONG_MONTH_NAMES, m_nMonth), m_nDay, m_nYear);
        break;
    case FMT_MONTHYYYY:
        out.Format("%s, %d", MonthName(LONG_MONTH_NAMES, m_nMonth), m_nYear);
        break;
    }
    return out;
}

char* CKelDate::Format(char* pszBuffer, DATE_FORMAT format, char sep) const
{
    if (pszBuffer == NULL)
        return NULL;
    CString text;
    Format(text, format, sep);
    memcpy(pszBuffer, (LPCTSTR)text, text.GetLength() + 1);
    return pszBuffer;
}

CString CKelDate::Format(double dayNumber, DATE_FORMAT format, char sep)
{
    CString text;
    return CKelDate(dayNumber).Format(text, format, sep);
}

char* CKelDate::FmtMMsDDsYYYY(char* pszBuffer, char sep) const
{
    return Format(pszBuffer, FMT_MMDDYYYY, sep);
}

CString& CKelDate::FmtMMsDDsYYYY(CString& out, char sep) const
{
    return Format(out, FMT_MMDDYYYY, sep);
}

CString CKelDate::FmtMMsDDsYYYY(double dayNumber, char sep)
{
    return Format(dayNumber, FMT_MMDDYYYY, sep);
}

char* CKelDate::FmtMMsDDsYY(char* pszBuffer, char sep) const
{
    return Format(pszBuffer, FMT_MMDDYY, sep);
}

CString& CKelDate::FmtMMsDDsYY(CString& out, char sep) const
{
    return Format(out, FMT_MMDDYY, sep);
}

CString CKelDate::FmtMMsDDsYY(double dayNumber, char sep)
{
    return Format(dayNumber, FMT_MMDDYY, sep);
}

char* CKelDate::FmtMMsYYYY(char* pszBuffer, char sep) const
{
    return Format(pszBuffer, FMT_MMYYYY, sep);
}

CString& CKelDate::FmtMMsYYYY(CString& out, char sep) const
{
    return Format(out, FMT_MMYYYY, sep);
}

CString CKelDate::FmtMMsYYYY(double dayNumber, char sep)
{
    return Format(dayNumber, FMT_MMYYYY, sep);
}

char* CKelDate::FmtMMsYY(char* pszBuffer, char sep) const
{
    return Format(pszBuffer, FMT_MMYY, sep);
}

CString& CKelDate::FmtMMsYY(CString& out, char sep) const
{
    return Format(out, FMT_MMYY, sep);
}

CString CKelDate::FmtMMsYY(double dayNumber, char sep)
{
    return Format(dayNumber, FMT_MMYY, sep);
}

char* CKelDate::FmtMthDDYYYY(char* pszBuffer) const
{
    return Format(pszBuffer, FMT_MTHDDYYYY, 0);
}

CString& CKelDate::FmtMthDDYYYY(CString& out) const
{
    return Format(out, FMT_MTHDDYYYY, 0);
}

CString CKelDate::FmtMthDDYYYY(double dayNumber)
{
    return Format(dayNumber, FMT_MTHDDYYYY, 0);
}

char* CKelDate::FmtMthYYYY(char* pszBuffer) const
{
    return Format(pszBuffer, FMT_MTHYYYY, 0);
}

CString& CKelDate::FmtMthYYYY(CString& out) const
{
    return Format(out, FMT_MTHYYYY, 0);
}

CString CKelDate::FmtMthYYYY(double dayNumber)
{
    return Format(dayNumber, FMT_MTHYYYY, 0);
}

char* CKelDate::FmtMonthDDYYYY(char* pszBuffer) const
{
    return Format(pszBuffer, FMT_MONTHDDYYYY, 0);
}

CString& CKelDate::FmtMonthDDYYYY(CString& out) const
{
    return Format(out, FMT_MONTHDDYYYY, 0);
}

CString CKelDate::FmtMonthDDYYYY(double dayNumber)
{
    return Format(dayNumber, FMT_MONTHDDYYYY, 0);
}

char* CKelDate::FmtMonthYYYY(char* pszBuffer) const
{
    return Format(pszBuffer, FMT_MONTHYYYY, 0);
}

CString& CKelDate::FmtMonthYYYY(CString& out) const
{
    return Format(out, FMT_MONTHYYYY, 0);
}

CString CKelDate::FmtMonthYYYY(double dayNumber)
{
    return Format(dayNumber, FMT_MONTHYYYY, 0);
}

CString& CKelDate::FmtYYYYFFFF(CString& out, char sep) const
{
    int nDay = DayOfYear();
    int nDaysInYear = IsLeap() ? 366 : 365;
    int nYear = m_nYear;
    // The last day of a year has all of it behind: it is the start of the next.
    if (nDay == nDaysInYear)
    {
        nDay = 0;
        ++nYear;
    }
    CString fraction;
    fraction.Format("%0.4f", (double)nDay / nDaysInYear);
    out.Format("%04u%c%s", (UINT)nYear, sep, (LPCTSTR)fraction.Right(4));
    return out;
}

CString CKelDate::FmtYYYYFFFF(double dayNumber, char sep)
{
    CString text;
    return CKelDate(dayNumber).FmtYYYYFFFF(text, sep);
}
