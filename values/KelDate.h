// CKelDate: a calendar date, day, month and year held as 16-bit integers, with its day
// number, parsing of typed text with messages, calendar arithmetic and the display formats.
// The date edits, combos and statics parse and print dates only through it.
//
// Day numbers (JulianValue) are whole numbers of days in a double; consecutive dates differ
// by 1 except where the old calendar differs. Dates up to 15 October 1583 count by the old calendar: the Gregorian correction
// starts on 16 October 1583, so 16..25 October share their day numbers with 6..15 October
// (and read back as those), and 29 February of 1500, 1400, ... has a day number though it is
// no valid date.
//
// Back from a day number (operator=(double), the double constructor, DateValue, the static
// getters), fractions are dropped and:
// - every day number of a date from the year 1 onward gives a date with that same day number;
// - a day number of the old calendar's extra leap day gives 1 March, so the result is always a
//   valid date;
// - a day number below 1 (1 is 2 January of the year -4712), past 31 December 32767 (the
//   last date a 16-bit year holds) or not a number gives the empty date, day, month and
//   year 0, which IsValid rejects (as CKelDate(0) does).
//
// Parsing (ValidateAndSet, NewDate, Validate, ValidateAndGet): month/day/year or month/year,
// '/' and '-' interchangeable. A year below 100 is 2000 + year for 0..45 and 1900 + year for
// 46..99. Month/day/year text needs both style 0 and style 1 allowed, month/year text both
// style 2 and style 3: the flags are tested in pairs, so refusing one style of a pair refuses
// the whole form. A day of 0 parses ("1/0/2003" is day 0) though IsValid rejects it; kept,
// as texts the date fields have always taken must still parse. On failure the date is
// unchanged and the message, when the pointer is not null, is set to one of:
//   "Invalid Date Text Length"         fewer than 4 characters (a null text is empty)
//   "Invalid character found in date"  anything but digits, '/' and '-'
//   "Invalid Date Format"              one number only, a form whose styles are not allowed,
//                                      or a year past 32767
//   "Invalid Month"                    a month outside 1..12
//   "Invalid Day"                      a day past the end of its month
// On success the message is untouched.
//
// Display styles (CKelDate::DATE_STYLE; controls store the style as an int, so the order is
// fixed); each has a flag saying whether ValidateAndSet accepts text in that style:
//   0 DATE_MMDDYYYY  "09/05/2003"  FmtMMsDDsYYYY
//   1 DATE_MMDDYY    "09/05/03"    FmtMMsDDsYY
//   2 DATE_MMYYYY    "09/2003"     FmtMMsYYYY
//   3 DATE_MMYY      "09/03"       FmtMMsYY
//
// Every formatter comes in three forms: into a caller's buffer of at least DATE_BUFFER_SIZE
// characters (a null buffer writes nothing and returns NULL), into a CString, and static from
// a day number. Formatters do not check the date; a month outside 1..12 has an empty name.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CKelDate
{
public:
    // An int underneath, so a style read back from a control's int is always a value of the type.
    enum DATE_STYLE : int
    {
        DATE_MMDDYYYY = 0,
        DATE_MMDDYY = 1,
        DATE_MMYYYY = 2,
        DATE_MMYY = 3
    };

    // Room for the longest text any formatter writes, with its terminating null.
    enum { DATE_BUFFER_SIZE = 32 };

    // 0 gives the empty date (day, month and year 0); any other value gives today, so a day
    // number must be passed as a double. The single-argument constructors are explicit: no
    // number becomes a date and no text is parsed behind the caller's back.
    explicit CKelDate(int today);
    CKelDate(short year, short month, short day);
    CKelDate(const CKelDate& other);
    explicit CKelDate(double dayNumber);
    // A text that does not parse gives the empty date.
    explicit CKelDate(const CString& text);
    virtual ~CKelDate();

    // Copies day, month and year; the style flags stay as they are.
    const CKelDate& operator=(const CKelDate& other);
    const CKelDate& operator=(double dayNumber);
    operator double() const;

    void NewDate(short year, short month, short day);
    int NewDate(const char* pszText);
    int NewDate(const CString& text);
    void SetToToday();
    // Style 4 is accepted for compatibility but has no flag: nothing is stored for it, nor for
    // any other style outside 0..3.
    void MakeStyleValid(DATE_STYLE style, int valid);

    int ValidateAndSet(const CString& text, CString* pMessage = NULL);

    short GetDay() const { return m_nDay; }
    short GetMonth() const { return m_nMonth; }
    short GetYear() const { return m_nYear; }
    int IsValid() const;
    int IsLeap() const;
    int DaysInMonth() const;
    int DayOfYear() const;
    double JulianValue() const;
    // Months from this date's month to pOther's: positive when pOther is later; 0 for NULL.
    int MonthSpan(const CKelDate* pOther) const;

    // The unit is 'D', 'W', 'M', 'Q' or 'Y'; any other character (lower case too) changes
    // nothing and still succeeds. Months, quarters and years keep the last day of a month the
    // last day and cut a later day to the new month's length: 31 January 2003 + 1 month is
    // 28 February, 28 February 2003 + 1 year is 29 February 2004. 1 on success; 0, with the
    // date unchanged, when the date is not valid or the result would leave the dates a day
    // number or a 16-bit year holds.
    int Increment(char unit, int count);
    int Decrement(char unit, int count);
    int AddDays(UINT n);
    int SubDays(UINT n);
    int AddMonths(UINT n);
    int SubMonths(UINT n);
    int AddYears(UINT n);
    int SubYears(UINT n);
    void SetTo1stDayOfCurMonth();
    void SetTo1stDayOfNextMonth();
    void SetTo1stDayOfPrevMonth();
    void SetToLastDayOfCurMonth();

    // Year, then month, then day.
    int operator==(const CKelDate& other) const;
    int operator<(const CKelDate& other) const;
    int operator<=(const CKelDate& other) const;
    int operator>(const CKelDate& other) const;
    int operator>=(const CKelDate& other) const;

    char* FmtMMsDDsYYYY(char* pszBuffer, char sep) const;
    CString& FmtMMsDDsYYYY(CString& out, char sep) const;
    static CString FmtMMsDDsYYYY(double dayNumber, char sep);
    char* FmtMMsDDsYY(char* pszBuffer, char sep) const;
    CString& FmtMMsDDsYY(CString& out, char sep) const;
    static CString FmtMMsDDsYY(double dayNumber, char sep);
    char* FmtMMsYYYY(char* pszBuffer, char sep) const;
    CString& FmtMMsYYYY(CString& out, char sep) const;
    static CString FmtMMsYYYY(double dayNumber, char sep);
    char* FmtMMsYY(char* pszBuffer, char sep) const;
    CString& FmtMMsYY(CString& out, char sep) const;
    static CString FmtMMsYY(double dayNumber, char sep);
    char* FmtMthDDYYYY(char* pszBuffer) const;
    CString& FmtMthDDYYYY(CString& out) const;
    static CString FmtMthDDYYYY(double dayNumber);
    char* FmtMthYYYY(char* pszBuffer) const;
    CString& FmtMthYYYY(CString& out) const;
    static CString FmtMthYYYY(double dayNumber);
    char* FmtMonthDDYYYY(char* pszBuffer) const;
    CString& FmtMonthDDYYYY(CString& out) const;
    static CString FmtMonthDDYYYY(double dayNumber);
    char* FmtMonthYYYY(char* pszBuffer) const;
    CString& FmtMonthYYYY(CString& out) const;
    static CString FmtMonthYYYY(double dayNumber);
    // The year and the fraction of it that has passed: "2003.0027" for 1 January 2003; the
    // last day of a year is the next year's ".0000".
    CString& FmtYYYYFFFF(CString& out, char sep) const;
    static CString FmtYYYYFFFF(double dayNumber, char sep);

    // The static forms. IsLeap and the getters are overloaded on short (a year) and double (a
    // day number): pass exactly one of the two, a plain int is ambiguous.
    static double JulianValue(short year, short month, short day);
    // 1 and the day number (when the pointer is not null) if the text parses, else 0.
    static int JulianValue(const CString& text, double* pDayNumber);
    // 1, or 0 for a day number that gives the empty date. Null pointers are skipped.
    static int DateValue(double dayNumber, short* pYear, short* pMonth, short* pDay);
    static short GetDay(double dayNumber);
    static short GetMonth(double dayNumber);
    static short GetYear(double dayNumber);
    static int GetDayOfYear(double dayNumber);
    static int DaysInMonth(double dayNumber);
    static int DaysInMonth(short month, short year);
    static int IsLeap(short year);
    static int IsLeap(double dayNumber);
    static int IsValid(short year, short month, short day);
    static int MonthSpan(double firstDayNumber, double secondDayNumber);
    // 0 when either pointer is NULL.
    static int MonthSpan(const CKelDate* pFirst, const CKelDate* pSecond);
    // The new day number; the given one unchanged when the move fails.
    static double Increment(double dayNumber, char unit, int count);
    static double Decrement(double dayNumber, char unit, int count);
    // 0 for a null pointer.
    static int Increment(short* pYear, short* pMonth, short* pDay, char unit, int count);
    static int Decrement(short* pYear, short* pMonth, short* pDay, char unit, int count);
    static int Validate(const CString& text, CString* pMessage = NULL);
    static int ValidateAndGet(const CString& text, double& dayNumber, CString* pMessage = NULL);

private:
    enum DATE_FORMAT
    {
        FMT_MMDDYYYY,
        FMT_MMDDYY,
        FMT_MMYYYY,
        FMT_MMYY,
        FMT_MTHDDYYYY,
        FMT_MTHYYYY,
        FMT_MONTHDDYYYY,
        FMT_MONTHYYYY
    };

    void AllowAllStyles();
    CString& Format(CString& out, DATE_FORMAT format, char sep) const;
    char* Format(char* pszBuffer, DATE_FORMAT format, char sep) const;
    static CString Format(double dayNumber, DATE_FORMAT format, char sep);
    static int Move(short* pYear, short* pMonth, short* pDay, char unit, long long count);

    short m_nDay;
    short m_nMonth;
    short m_nYear;
    BOOL m_bStyleValid[4];
};
