// CKelTime: reading any text in any style never crashes; a refused text leaves the value
// alone; every formatted text is a fixed point (it reads back to a value that formats to the
// same text); and a two-digit timecode with a frame below the rate comes back byte for byte.
#include "values/KelTime.h"

#include <stddef.h>
#include <stdint.h>
#include <string.h>

namespace
{
// The last rate lies just above a whole number, where the highest frame below the rate never
// starts within a second and is refused; it is left out of the timecode check.
const double RATES[] = {29.97002997002997, 25.0, 24.0, 23.976, 59.94, 1000.0, 0.5, 30.0005};
const int CHECKED_RATES = 7;

void CheckFixedPoint(CKelTime& time, int style)
{
    CString text = time.Format(style);
    if (!time.NewTime(text, style) || time.Format(style) != text)
        __builtin_trap();
}

int TwoDigits(const CString& text, int index)
{
    char high = text[index];
    char low = text[index + 1];
    if (high < '0' || high > '9' || low < '0' || low > '9')
        return -1;
    return (high - '0') * 10 + (low - '0');
}

// True for "HH:MM:SS:FF" with two-digit fields, minutes and seconds below 60 and FF < rate.
bool IsPlainTimecode(const CString& text, double rate)
{
    if (text.GetLength() != 11 || text[2] != ':' || text[5] != ':' || text[8] != ':')
        return false;
    int minutes = TwoDigits(text, 3);
    int seconds = TwoDigits(text, 6);
    int frame = TwoDigits(text, 9);
    return TwoDigits(text, 0) >= 0 && minutes >= 0 && minutes < 60 && seconds >= 0 && seconds < 60 &&
           frame >= 0 && frame < rate;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 6)
        return 0;
    int style = data[0] % 12 - 1; // -1 and 10 probe styles that do not exist
    int rateIndex = data[1] % (sizeof(RATES) / sizeof(RATES[0]));
    CKelTime time(0L);
    time.SetFramesPerSecond(RATES[rateIndex]);
    LONG value;
    memcpy(&value, data + 2, sizeof(value));
    time = (long)value;

    CString text((const char*)data + 6, (int)strnlen((const char*)data + 6, size - 6));
    CString message;
    BOOL ok = time.NewTime(text, style, &message);
    bool known = style >= CKelTime::TIME_HHMM && style <= CKelTime::TIME_HHMMSSFF;
    if (!ok && ((LONG)time != value || message.IsEmpty()))
        __builtin_trap();
    if (!ok && known)
    {
        // A refused text is never the text of a value, so not of this one either.
        if (time.Format(style) == text)
            __builtin_trap();
    }
    if (style == CKelTime::TIME_HHMMSSFF && rateIndex < CHECKED_RATES &&
        IsPlainTimecode(text, RATES[rateIndex]))
    {
        if (!ok || time.Format(style) != text)
            __builtin_trap();
    }
    if (known)
    {
        CheckFixedPoint(time, style);
        time = (long)value;
        CheckFixedPoint(time, style);
    }
    else if (!time.Format(style).IsEmpty())
        __builtin_trap();
    return 0;
}
