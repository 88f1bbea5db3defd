// CKelTime: a time of day or a duration, held as a signed 32-bit count of milliseconds.
//
// The time edits parse and print through it. A value may be negative (a duration) and is
// limited to what a LONG holds, about +/-596 hours.
//
// Display styles (CKelTime::TIME_STYLE; controls store the style as an int, so the order is
// fixed):
//   0 TIME_HHMM         "HH:MM"          hours:minutes
//   1 TIME_HHMMSS       "HH:MM:SS"
//   2 TIME_HHMMSSMS     "HH:MM:SS.mmm"   with milliseconds
//   3 TIME_MMSS         "MM:SS"          total minutes, may exceed 59
//   4 TIME_MMSSMS       "MM:SS.mmm"
//   5 TIME_SSMS         "S.mmm"          total seconds, not padded
//   6 TIME_HHMM_AMPM    "h:MM AM"        time of day on a 12-hour clock
//   7 TIME_HHMMSS_AMPM  "h:MM:SS PM"
//   8 TIME_HHMMSST      "HH:MM:SS.t"     with tenths of a second
//   9 TIME_HHMMSSFF     "HH:MM:SS:FF"    timecode: frame within the second
//
// Formatting rules:
// - The leading field holds everything above it: hours print with at least two digits and
//   grow as needed (120 hours is "120:00"), minutes in MM:SS may exceed 59, seconds in S.mmm
//   are the total seconds.
// - Lower-precision styles truncate, as a clock does: 13:05:59 shows as "13:05" in HH:MM.
// - A negative duration prints with a leading '-', but only when the truncated value shown is
//   not zero (-500 ms in HH:MM:SS is "00:00:00", which is what "-00:00:00" would read back as).
// - The AM/PM styles show the time of day: the value modulo 24 hours, never negative; midnight
//   is "12:00 AM" and noon "12:00 PM".
// - Timecode is clock based: HH:MM:SS is real time and FF is the frame within the current
//   second, floor(milliseconds within the second * rate / 1000), at the object's frame rate
//   (default 29.97002997002997 frames per second, so 00..29). A frame field that reaches 100
//   (rates above 100) prints with three digits.
//
// Parsing rules (NewTime):
// - The text must have exactly the style's fields, separated by ':'. A field has one or more
//   digits. Minutes and seconds must be 0..59 except in the leading field, which is unbounded;
//   AM/PM hours must be 1..12.
// - The styles with milliseconds or tenths take an optional fraction of at most three digits:
//   ".5" is 500 ms, ".05" is 50 ms (tenths styles read milliseconds too: ".25" is 250 ms).
// - The timecode frame must be a frame that starts within a second at the object's rate:
//   FF below the rate (00..29 at 29.97) and its first millisecond below 1000. The value is the
//   first millisecond of that frame, ceil(FF * 1000 / rate), so every "HH:MM:SS:FF" text with
//   two-digit fields and a valid frame formats back byte for byte.
// - A leading '-' makes a negative duration (not in the AM/PM styles). The AM/PM styles need
//   "AM" or "PM" (any letter case) after the time, optionally after blanks.
// - An empty text is zero, as an empty numeric field is.
// - On success the value is set and the message is untouched; on failure the value is
//   unchanged and the message, when the pointer is not null, is set to one of:
//     "Invalid character found in time"  a character the style never uses
//     "Invalid Time Format"              wrong fields or separators, a missing AM/PM, a null
//                                        text or a style outside 0..9
//     "Invalid Hours"                    AM/PM hours outside 1..12
//     "Invalid Minutes"                  minutes above 59 where they are not the leading field
//     "Invalid Seconds"                  seconds above 59 where they are not the leading field
//     "Invalid Milliseconds"             a fraction of more than three digits
//     "Invalid Frames"                   a frame that does not start within the second
//     "Time value out of range"          the total does not fit in a signed 32-bit LONG
// Every text Format gives reads back to a value that formats to the same text, so a text
// NewTime refuses is never the text of any value.
//
// Mind the two constructors: CKelTime(int) asks for "now", CKelTime(long) holds milliseconds.
// Where LONG is an int (natively on Linux) pass a long to get milliseconds.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CKelTime
{
public:
    enum TIME_STYLE
    {
        TIME_HHMM = 0,
        TIME_HHMMSS = 1,
        TIME_HHMMSSMS = 2,
        TIME_MMSS = 3,
        TIME_MMSSMS = 4,
        TIME_SSMS = 5,
        TIME_HHMM_AMPM = 6,
        TIME_HHMMSS_AMPM = 7,
        TIME_HHMMSST = 8,
        TIME_HHMMSSFF = 9
    };

    // 0 gives zero; any other value the local time now (milliseconds since local midnight).
    explicit CKelTime(int now = 0);
    // A long outside the 32-bit range (possible where long is 64-bit) is clamped to it.
    explicit CKelTime(long milliseconds);
    CKelTime(const CKelTime& other);

    // Assignment copies the value only: the frame rate is a display setting of this object.
    CKelTime& operator=(const CKelTime& other);
    CKelTime& operator=(long milliseconds);
    operator long() const { return m_lTime; }

    void SetToNow();

    // Comparisons of the millisecond counts, 1 or 0.
    int operator==(const CKelTime& other) const { return m_lTime == other.m_lTime; }
    int operator!=(const CKelTime& other) const { return m_lTime != other.m_lTime; }
    int operator<(const CKelTime& other) const { return m_lTime < other.m_lTime; }
    int operator<=(const CKelTime& other) const { return m_lTime <= other.m_lTime; }
    int operator>(const CKelTime& other) const { return m_lTime > other.m_lTime; }
    int operator>=(const CKelTime& other) const { return m_lTime >= other.m_lTime; }

    // Sums and differences saturate at the ends of the 32-bit range; the result keeps this
    // object's frame rate.
    CKelTime operator+(const CKelTime& other) const;
    CKelTime operator-(const CKelTime& other) const;
    CKelTime& operator+=(const CKelTime& other);
    CKelTime& operator-=(const CKelTime& other);

    // Refuses (FALSE, rate kept) a rate that is not a finite number in (0, 1000]: a frame
    // must last at least a millisecond for timecode texts to read back.
    BOOL SetFramesPerSecond(double dFramesPerSecond);
    double GetFramesPerSecond() const { return m_dFramesPerSecond; }

    BOOL NewTime(LPCTSTR lpszText, int nStyle, CString* pMessage = NULL);
    // A style outside 0..9 gives an empty text.
    CString Format(int nStyle) const;
    CString& FormatToCString(CString& strOut, int nStyle) const;

private:
    // NULL on success, else the message of the first fault found.
    LPCTSTR ReadTime(LPCTSTR lpszText, int nStyle, LONG& lValue) const;
    int FrameOf(int nMsInSecond) const;
    int FirstMsOfFrame(int64_t nFrame) const;

    LONG m_lTime;
    double m_dFramesPerSecond;
};
