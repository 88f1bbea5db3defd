// Date parsing, day numbers, arithmetic and formatting on arbitrary input.
// Layout: byte 0 the style flags (bits 0..4), byte 1 a unit, bytes 2..5 a count, bytes 6..7 a
// separator and a second unit, bytes 8..15 a day number, bytes 2..7 also raw date fields; the
// whole input is the date text too.
#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include "values/KelDate.h"

namespace
{
void Check(bool bHolds)
{
    if (!bHolds)
        abort();
}

bool IsKnownMessage(const CString& message)
{
    static const char* const messages[] = {"Invalid Date Text Length",
                                           "Invalid character found in date",
                                           "Invalid Date Format", "Invalid Month", "Invalid Day"};
    for (const char* psz : messages)
    {
        if (message == psz)
            return true;
    }
    return false;
}

bool SameDate(const CKelDate& first, const CKelDate& second)
{
    return first.GetYear() == second.GetYear() && first.GetMonth() == second.GetMonth() &&
           first.GetDay() == second.GetDay();
}

typedef char* (CKelDate::*FmtWithSep)(char*, char) const;
typedef CString& (CKelDate::*FmtWithSepTo)(CString&, char) const;
typedef CString (*FmtWithSepFrom)(double, char);
typedef char* (CKelDate::*FmtNoSep)(char*) const;
typedef CString& (CKelDate::*FmtNoSepTo)(CString&) const;
typedef CString (*FmtNoSepFrom)(double);

// The buffer form writes what the CString form does, within DATE_BUFFER_SIZE.
void CheckBuffer(const char* pszBuffer, const char* pszReturned, const CString& text)
{
    Check(pszReturned == pszBuffer && strcmp(pszBuffer, text) == 0 &&
          text.GetLength() < CKelDate::DATE_BUFFER_SIZE);
}

void FormatAll(const CKelDate& date, char sep)
{
    static const FmtWithSep withSep[] = {&CKelDate::FmtMMsDDsYYYY, &CKelDate::FmtMMsDDsYY,
                                         &CKelDate::FmtMMsYYYY, &CKelDate::FmtMMsYY};
    static const FmtWithSepTo withSepTo[] = {&CKelDate::FmtMMsDDsYYYY, &CKelDate::FmtMMsDDsYY,
                                             &CKelDate::FmtMMsYYYY, &CKelDate::FmtMMsYY};
    static const FmtWithSepFrom withSepFrom[] = {&CKelDate::FmtMMsDDsYYYY, &CKelDate::FmtMMsDDsYY,
                                                 &CKelDate::FmtMMsYYYY, &CKelDate::FmtMMsYY};
    static const FmtNoSep noSep[] = {&CKelDate::FmtMthDDYYYY, &CKelDate::FmtMthYYYY,
                                     &CKelDate::FmtMonthDDYYYY, &CKelDate::FmtMonthYYYY};
    static const FmtNoSepTo noSepTo[] = {&CKelDate::FmtMthDDYYYY, &CKelDate::FmtMthYYYY,
                                         &CKelDate::FmtMonthDDYYYY, &CKelDate::FmtMonthYYYY};
    static const FmtNoSepFrom noSepFrom[] = {&CKelDate::FmtMthDDYYYY, &CKelDate::FmtMthYYYY,
                                             &CKelDate::FmtMonthDDYYYY, &CKelDate::FmtMonthYYYY};
    char buffer[CKelDate::DATE_BUFFER_SIZE];
    CString text;
    double number = date.JulianValue();
    for (int i = 0; i < 4; ++i)
    {
        const char* pszReturned = (date.*withSep[i])(buffer, sep);
        CheckBuffer(buffer, pszReturned, (date.*withSepTo[i])(text, sep));
        withSepFrom[i](number, sep);
        pszReturned = (date.*noSep[i])(buffer);
        CheckBuffer(buffer, pszReturned, (date.*noSepTo[i])(text));
        noSepFrom[i](number);
    }
    date.FmtYYYYFFFF(text, sep);
    CKelDate::FmtYYYYFFFF(number, sep);
}

// A valid date stays valid and a failed move changes nothing; the day-number form agrees.
void MoveAndCheck(const CKelDate& start, char unit, int count, bool bForward)
{
    CKelDate date(start);
    int ok = bForward ? date.Increment(unit, count) : date.Decrement(unit, count);
    Check(ok ? date.IsValid() != 0 : SameDate(date, start));
    double startNumber = start.JulianValue();
    double number = bForward ? CKelDate::Increment(startNumber, unit, count)
                             : CKelDate::Decrement(startNumber, unit, count);
    if (SameDate(CKelDate(startNumber), start))
        Check(number == (ok ? date.JulianValue() : startNumber));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    uint8_t head[16] = {};
    memcpy(head, data, size < sizeof(head) ? size : sizeof(head));
    int count;
    memcpy(&count, head + 2, sizeof(count));
    double dayNumber;
    memcpy(&dayNumber, head + 8, sizeof(dayNumber));
    const char units[] = {'D', 'W', 'M', 'Q', 'Y', 'x'};
    char unit = (head[1] & 0x80) ? (char)head[1] : units[head[1] % sizeof(units)];
    char otherUnit = units[head[7] % sizeof(units)];
    char sep = (char)head[6];

    CKelDate date(0);
    for (int style = 0; style <= 4; ++style)
        date.MakeStyleValid((CKelDate::DATE_STYLE)style, (head[0] >> style) & 1);
    CString text((const char*)data, (int)size);
    CString message("untouched");
    if (!date.ValidateAndSet(text, &message))
    {
        Check(IsKnownMessage(message) && SameDate(date, CKelDate(0)));
    }
    else
    {
        Check(message == "untouched" && date.GetMonth() >= 1 && date.GetMonth() <= 12 &&
              date.GetDay() >= 0);
        FormatAll(date, sep);
        if (date.IsValid())
        {
            double number = date.JulianValue();
            CKelDate back(number);
            Check(back.IsValid() && back.JulianValue() == number);
            MoveAndCheck(date, unit, count, true);
            MoveAndCheck(date, otherUnit, count, false);
        }
    }

    // Any day number gives a valid date or the empty one.
    CKelDate fromNumber(dayNumber);
    Check(fromNumber.IsValid() || SameDate(fromNumber, CKelDate(0)));
    FormatAll(fromNumber, sep);
    if (fromNumber.IsValid())
    {
        MoveAndCheck(fromNumber, unit, count, true);
        MoveAndCheck(fromNumber, otherUnit, count, false);
    }

    // Raw fields, valid or not, format without reading or writing out of bounds.
    short fields[3];
    memcpy(fields, head + 2, sizeof(fields));
    FormatAll(CKelDate(fields[0], fields[1], fields[2]), sep);
    return 0;
}
