#include "values/KelTime.h"

#include <math.h>
#ifndef _WIN32
#include <time.h>
#endif

namespace
{
const double DEFAULT_FRAMES_PER_SECOND = 29.97002997002997;
const int64_t MS_PER_DAY = 86400000;
// Larger fields are out of range anyway; capping them keeps the total from overflowing.
const int64_t FIELD_CAP = 1000000000000LL;
// Guards the frame of a millisecond against a product that should be whole landing just below.
const double FRAME_EPSILON = 1e-9;

const TCHAR MSG_CHARACTER[] = "Invalid character found in time";
const TCHAR MSG_FORMAT[] = "Invalid Time Format";
const TCHAR MSG_HOURS[] = "Invalid Hours";
const TCHAR MSG_MINUTES[] = "Invalid Minutes";
const TCHAR MSG_SECONDS[] = "Invalid Seconds";
const TCHAR MSG_MILLISECONDS[] = "Invalid Milliseconds";
const TCHAR MSG_FRAMES[] = "Invalid Frames";
const TCHAR MSG_RANGE[] = "Time value out of range";

enum FRACTION
{
    FRACTION_NONE,
    FRACTION_MS,
    FRACTION_TENTHS,
    FRACTION_FRAMES
};

struct STYLE_INFO
{
    int64_t nLeadUnit; // milliseconds in one unit of the leading field
    int nFields;       // clock fields separated by ':', the leading one included, the frame not
    LPCTSTR lpszLead;  // format of the leading field
    FRACTION eFraction;
    bool bAmPm;
};

// Indexed by CKelTime::TIME_STYLE.
const STYLE_INFO s_aStyles[] = {
    {3600000, 2, "%02u", FRACTION_NONE, false},   // HH:MM
    {3600000, 3, "%02u", FRACTION_NONE, false},   // HH:MM:SS
    {3600000, 3, "%02u", FRACTION_MS, false},     // HH:MM:SS.mmm
    {60000, 2, "%02u", FRACTION_NONE, false},     // MM:SS
    {60000, 2, "%02u", FRACTION_MS, false},       // MM:SS.mmm
    {1000, 1, "%u", FRACTION_MS, false},          // S.mmm
    {3600000, 2, "%u", FRACTION_NONE, true},      // h:MM AM
    {3600000, 3, "%u", FRACTION_NONE, true},      // h:MM:SS PM
    {3600000, 3, "%02u", FRACTION_TENTHS, false}, // HH:MM:SS.t
    {3600000, 3, "%02u", FRACTION_FRAMES, false}, // HH:MM:SS:FF
};
const int MAX_CLOCK_FIELDS = 4; // three clock fields and the frame

const STYLE_INFO* GetStyleInfo(int nStyle)
{
    if (nStyle < 0 || nStyle >= static_cast<int>(sizeof(s_aStyles) / sizeof(s_aStyles[0])))
        return NULL;
    return &s_aStyles[nStyle];
}

int64_t LastFieldUnit(const STYLE_INFO& style)
{
    int64_t nUnit = style.nLeadUnit;
    for (int i = 1; i < style.nFields; ++i)
        nUnit /= 60;
    return nUnit;
}

bool IsDigit(TCHAR ch)
{
    return ch >= '0' && ch <= '9';
}

TCHAR FoldUpper(TCHAR ch)
{
    return ch >= 'a' && ch <= 'z' ? static_cast<TCHAR>(ch - 'a' + 'A') : ch;
}

bool IsAllowed(TCHAR ch, const STYLE_INFO& style)
{
    if (IsDigit(ch) || ch == ':')
        return true;
    if (style.bAmPm)
    {
        TCHAR chUpper = FoldUpper(ch);
        return ch == ' ' || chUpper == 'A' || chUpper == 'P' || chUpper == 'M';
    }
    if (ch == '-')
        return true;
    return ch == '.' && (style.eFraction == FRACTION_MS || style.eFraction == FRACTION_TENTHS);
}

// Reads the digits at p into nValue (capped); false when there are none.
bool ReadField(LPCTSTR& p, int64_t& nValue)
{
    if (!IsDigit(*p))
        return false;
    nValue = 0;
    for (; IsDigit(*p); ++p)
    {
        nValue = nValue * 10 + (*p - '0');
        if (nValue > FIELD_CAP)
            nValue = FIELD_CAP;
    }
    return true;
}

LONG ClampToLong(int64_t nValue)
{
    if (nValue > INT32_MAX)
        return INT32_MAX;
    if (nValue < INT32_MIN)
        return INT32_MIN;
    return static_cast<LONG>(nValue);
}

void AppendNumber(CString& strOut, LPCTSTR lpszFormat, int64_t nValue)
{
    CString strPart;
    strPart.Format(lpszFormat, static_cast<unsigned int>(nValue));
    strOut += strPart;
}
} // namespace

CKelTime::CKelTime(int now) : m_lTime(0), m_dFramesPerSecond(DEFAULT_FRAMES_PER_SECOND)
{
    if (now != 0)
        SetToNow();
}

CKelTime::CKelTime(long milliseconds)
    : m_lTime(ClampToLong(milliseconds)), m_dFramesPerSecond(DEFAULT_FRAMES_PER_SECOND)
{
}

CKelTime::CKelTime(const CKelTime& other)
    : m_lTime(other.m_lTime), m_dFramesPerSecond(other.m_dFramesPerSecond)
{
}

CKelTime& CKelTime::operator=(const CKelTime& other)
{
    m_lTime = other.m_lTime;
    return *this;
}

CKelTime& CKelTime::operator=(long milliseconds)
{
    m_lTime = ClampToLong(milliseconds);
    return *this;
}

void CKelTime::SetToNow()
{
#ifdef _WIN32
    SYSTEMTIME now;
    GetLocalTime(&now);
    m_lTime = ((now.wHour * 60 + now.wMinute) * 60 + now.wSecond) * 1000 + now.wMilliseconds;
#else
    struct timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    time_t seconds = now.tv_sec;
    struct tm local;
    localtime_r(&seconds, &local);
    m_lTime = ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) * 1000 +
              static_cast<LONG>(now.tv_nsec / 1000000);
#endif
}

CKelTime CKelTime::operator+(const CKelTime& other) const
{
    CKelTime result(*this);
    return result += other;
}

CKelTime CKelTime::operator-(const CKelTime& other) const
{
    CKelTime result(*this);
    return result -= other;
}

CKelTime& CKelTime::operator+=(const CKelTime& other)
{
    m_lTime = ClampToLong(static_cast<int64_t>(m_lTime) + other.m_lTime);
    return *this;
}

CKelTime& CKelTime::operator-=(const CKelTime& other)
{
    m_lTime = ClampToLong(static_cast<int64_t>(m_lTime) - other.m_lTime);
    return *this;
}

BOOL CKelTime::SetFramesPerSecond(double dFramesPerSecond)
{
    // Written so that NaN fails the test as well.
    if (!(dFramesPerSecond > 0.0 && dFramesPerSecond <= 1000.0))
        return FALSE;
    m_dFramesPerSecond = dFramesPerSecond;
    return TRUE;
}

int CKelTime::FrameOf(int nMsInSecond) const
{
    return static_cast<int>(floor(nMsInSecond * m_dFramesPerSecond / 1000.0 + FRAME_EPSILON));
}

// The first millisecond of the frame within a second, or -1 when no millisecond of a second
// falls in that frame. The closed form is only a first guess: the answer is adjusted against
// FrameOf itself so that reading and printing agree whatever the rounding of the rate.
int CKelTime::FirstMsOfFrame(int64_t nFrame) const
{
    if (static_cast<double>(nFrame) >= m_dFramesPerSecond)
        return -1;
    int nMs = static_cast<int>(ceil(static_cast<double>(nFrame) * 1000.0 / m_dFramesPerSecond));
    while (nMs > 0 && FrameOf(nMs - 1) >= nFrame)
        --nMs;
    while (nMs < 1000 && FrameOf(nMs) < nFrame)
        ++nMs;
    return nMs < 1000 && FrameOf(nMs) == nFrame ? nMs : -1;
}

BOOL CKelTime::NewTime(LPCTSTR lpszText, int nStyle, CString* pMessage)
{
    LONG lValue = 0;
    LPCTSTR lpszError = ReadTime(lpszText, nStyle, lValue);
    if (lpszError != NULL)
    {
        if (pMessage != NULL)
            *pMessage = lpszError;
        return FALSE;
    }
    m_lTime = lValue;
    return TRUE;
}

LPCTSTR CKelTime::ReadTime(LPCTSTR lpszText, int nStyle, LONG& lValue) const
{
    const STYLE_INFO* pStyle = GetStyleInfo(nStyle);
    if (pStyle == NULL || lpszText == NULL)
        return MSG_FORMAT;
    for (LPCTSTR p = lpszText; *p != '\0'; ++p)
    {
        if (!IsAllowed(*p, *pStyle))
            return MSG_CHARACTER;
    }
    if (*lpszText == '\0')
    {
        lValue = 0;
        return NULL;
    }

    LPCTSTR p = lpszText;
    bool bNegative = *p == '-';
    if (bNegative)
        ++p;
    int64_t aFields[MAX_CLOCK_FIELDS];
    int nFields = pStyle->nFields + (pStyle->eFraction == FRACTION_FRAMES ? 1 : 0);
    for (int i = 0; i < nFields; ++i)
    {
        if (i > 0 && *p++ != ':')
            return MSG_FORMAT;
        if (!ReadField(p, aFields[i]))
            return MSG_FORMAT;
    }
    int64_t nFraction = 0;
    if ((pStyle->eFraction == FRACTION_MS || pStyle->eFraction == FRACTION_TENTHS) && *p == '.')
    {
        ++p;
        int nDigits = 0;
        for (; IsDigit(*p); ++p, ++nDigits)
        {
            if (nDigits < 3)
                nFraction = nFraction * 10 + (*p - '0');
        }
        if (nDigits == 0)
            return MSG_FORMAT;
        if (nDigits > 3)
            return MSG_MILLISECONDS;
        for (; nDigits < 3; ++nDigits)
            nFraction *= 10;
    }
    bool bPm = false;
    if (pStyle->bAmPm)
    {
        while (*p == ' ')
            ++p;
        TCHAR chFirst = FoldUpper(*p);
        if ((chFirst != 'A' && chFirst != 'P') || FoldUpper(p[1]) != 'M')
            return MSG_FORMAT;
        bPm = chFirst == 'P';
        p += 2;
    }
    if (*p != '\0')
        return MSG_FORMAT;

    int64_t nUnit = pStyle->nLeadUnit;
    int64_t nTotal;
    if (pStyle->bAmPm)
    {
        if (aFields[0] < 1 || aFields[0] > 12)
            return MSG_HOURS;
        nTotal = (aFields[0] % 12 + (bPm ? 12 : 0)) * nUnit;
    }
    else
        nTotal = aFields[0] * nUnit;
    for (int i = 1; i < pStyle->nFields; ++i)
    {
        nUnit /= 60;
        if (aFields[i] > 59)
            return nUnit == 60000 ? MSG_MINUTES : MSG_SECONDS;
        nTotal += aFields[i] * nUnit;
    }
    if (pStyle->eFraction == FRACTION_FRAMES)
    {
        int nFrameMs = FirstMsOfFrame(aFields[pStyle->nFields]);
        if (nFrameMs < 0)
            return MSG_FRAMES;
        nTotal += nFrameMs;
    }
    nTotal += nFraction;
    if (bNegative)
        nTotal = -nTotal;
    if (nTotal < INT32_MIN || nTotal > INT32_MAX)
        return MSG_RANGE;
    lValue = static_cast<LONG>(nTotal);
    return NULL;
}

CString CKelTime::Format(int nStyle) const
{
    CString strOut;
    return FormatToCString(strOut, nStyle);
}

CString& CKelTime::FormatToCString(CString& strOut, int nStyle) const
{
    strOut.Empty();
    const STYLE_INFO* pStyle = GetStyleInfo(nStyle);
    if (pStyle == NULL)
        return strOut;

    int64_t nValue = m_lTime;
    bool bNegative = !pStyle->bAmPm && nValue < 0;
    int64_t nShown;
    if (pStyle->bAmPm)
        nShown = (nValue % MS_PER_DAY + MS_PER_DAY) % MS_PER_DAY;
    else
        nShown = bNegative ? -nValue : nValue;

    int nFrame = 0;
    switch (pStyle->eFraction)
    {
    case FRACTION_NONE:
        nShown -= nShown % LastFieldUnit(*pStyle);
        break;
    case FRACTION_MS:
        break;
    case FRACTION_TENTHS:
        nShown -= nShown % 100;
        break;
    case FRACTION_FRAMES:
        nFrame = FrameOf(static_cast<int>(nShown % 1000));
        nShown -= nShown % 1000;
        break;
    }
    // "-00:00" would read back as zero and so print differently; a value that shows as zero
    // prints without its sign.
    if (bNegative && (nShown != 0 || nFrame != 0))
        strOut = '-';

    int64_t nUnit = pStyle->nLeadUnit;
    int64_t nLead = nShown / nUnit;
    bool bPm = pStyle->bAmPm && nLead >= 12;
    if (pStyle->bAmPm)
        nLead = nLead % 12 == 0 ? 12 : nLead % 12;
    AppendNumber(strOut, pStyle->lpszLead, nLead);
    for (int i = 1; i < pStyle->nFields; ++i)
    {
        nShown %= nUnit;
        nUnit /= 60;
        AppendNumber(strOut, ":%02u", nShown / nUnit);
    }
    nShown %= nUnit;
    switch (pStyle->eFraction)
    {
    case FRACTION_NONE:
        break;
    case FRACTION_MS:
        AppendNumber(strOut, ".%03u", nShown);
        break;
    case FRACTION_TENTHS:
        AppendNumber(strOut, ".%u", nShown / 100);
        break;
    case FRACTION_FRAMES:
        AppendNumber(strOut, ":%02u", nFrame);
        break;
    }
    if (pStyle->bAmPm)
        strOut += bPm ? " PM" : " AM";
    return strOut;
}
