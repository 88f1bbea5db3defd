#include "bench/GridWorkload.h"

#include <cstring>

namespace
{
// Each word zero-padded to 8 bytes, so that it is copied in one go, with its length.
const struct CWord
{
    char sz[8];
    int nLen;
} s_aWords[16] = {{"red", 3},    {"green", 5},  {"blue", 4},  {"cyan", 4},  {"magenta", 7}, {"yellow", 6},
                  {"black", 5},  {"white", 5},  {"orange", 6}, {"purple", 6}, {"brown", 5},   {"pink", 4},
                  {"gray", 4},   {"olive", 5},  {"navy", 4},  {"teal", 4}};
// Multipliers of the word columns 5 to 9.
const int s_anWordFactor[5] = {3, 5, 7, 11, 13};
// Days before the first of each month in a common year.
const uint32_t s_anMonthStart[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

// Decimal digits of n, no padding; returns the end. The digits are written from the last.
char* PutUnsigned(char* p, uint32_t n)
{
    int nDigits = 1;
    for (uint64_t nLimit = 10; nDigits < 10 && n >= nLimit; nLimit *= 10)
        ++nDigits;
    char* pEnd = p + nDigits;
    do
    {
        *--pEnd = static_cast<char>('0' + n % 10);
        n /= 10;
    } while (n != 0);
    return p + nDigits;
}

char* PutTwoDigits(char* p, uint32_t n)
{
    *p++ = static_cast<char>('0' + n / 10);
    *p++ = static_cast<char>('0' + n % 10);
    return p;
}

// Day nDays after 1 Jan 1950 as "MM/DD/YYYY". Counting from 1 Jan 1948, a leap year, every
// four years form one cycle of 1461 days with the leap year first; that holds for every year
// from 1901 to 2099, which covers the workload's century.
char* PutDate(char* p, uint32_t nDays)
{
    const uint32_t nFrom1948 = nDays + 366 + 365;
    const uint32_t nRest = nFrom1948 % 1461;
    uint32_t nYear = 1948 + 4 * (nFrom1948 / 1461);
    uint32_t nDayOfYear = nRest;
    bool bLeap = true;
    if (nRest >= 366)
    {
        nYear += 1 + (nRest - 366) / 365;
        nDayOfYear = (nRest - 366) % 365;
        bLeap = false;
    }
    auto monthStart = [bLeap](int nIndex) { return s_anMonthStart[nIndex] + (bLeap && nIndex >= 2 ? 1 : 0); };
    // No month is longer than 32 days, so the month is at least the day of the year / 32, and a
    // step or two up finds it.
    int nMonth = static_cast<int>(nDayOfYear / 32);
    while (nMonth < 11 && nDayOfYear >= monthStart(nMonth + 1))
        ++nMonth;
    const uint32_t nDay = nDayOfYear - monthStart(nMonth) + 1;
    p = PutTwoDigits(p, nMonth + 1);
    *p++ = '/';
    p = PutTwoDigits(p, nDay);
    *p++ = '/';
    return PutUnsigned(p, nYear);
}
} // namespace

int CGridWorkload::FormatCell(int nRow, int nCol, char* pszBuf)
{
    if (pszBuf == nullptr)
        return -1;
    *pszBuf = '\0';
    if (nRow < 0 || nRow >= ROWS || nCol < 0 || nCol >= COLS)
        return -1;
    const uint64_t r = static_cast<uint64_t>(nRow);
    char* p = pszBuf;
    switch (nCol)
    {
    case 0:
        for (const char* pszItem = "Item "; *pszItem != '\0'; ++pszItem)
            *p++ = *pszItem;
        p = PutUnsigned(p, static_cast<uint32_t>(r));
        break;
    case 1:
        p = PutUnsigned(p, static_cast<uint32_t>(r * 7919 % 1000003));
        break;
    case 2:
    {
        const uint32_t v = static_cast<uint32_t>(r * 104729 % 1000000);
        p = PutUnsigned(p, v / 100);
        *p++ = '.';
        p = PutTwoDigits(p, v % 100);
        break;
    }
    case 3:
    {
        const uint32_t s = static_cast<uint32_t>(r * 37 % 86400);
        p = PutTwoDigits(p, s / 3600);
        *p++ = ':';
        p = PutTwoDigits(p, s / 60 % 60);
        *p++ = ':';
        p = PutTwoDigits(p, s % 60);
        break;
    }
    case 4:
        p = PutDate(p, static_cast<uint32_t>(r * 13 % 36500));
        break;
    default:
    {
        const CWord& word = s_aWords[r * s_anWordFactor[nCol - 5] % 16];
        memcpy(p, word.sz, sizeof(word.sz));
        p += word.nLen;
        break;
    }
    }
    *p = '\0';
    return static_cast<int>(p - pszBuf);
}

const char CGridWorkload::SHA256_WHOLE_TABLE[65] =
    "03b613070c79eb72831f942dc8d08afb8fa1eb46de004bad714e54e2115697b6";

uint64_t CGridWorkload::WriteTsv(int nRows, PFNTSVSINK pfnSink, void* pContext)
{
    if (pfnSink == nullptr)
        return 0;
    if (nRows > ROWS)
        nRows = ROWS;
    // Whole rows go into the buffer while one more fits.
    const size_t BUFFER_SIZE = 65536;
    const size_t ROW_MAX = COLS * (MAX_CELL_LEN + 1);
    char buffer[BUFFER_SIZE];
    size_t nUsed = 0;
    uint64_t nTotal = 0;
    for (int nRow = 0; nRow < nRows; ++nRow)
    {
        if (nUsed + ROW_MAX > BUFFER_SIZE)
        {
            pfnSink(buffer, nUsed, pContext);
            nTotal += nUsed;
            nUsed = 0;
        }
        for (int nCol = 0; nCol < COLS; ++nCol)
        {
            // FormatCell's terminating zero is overwritten by the separator after the cell.
            nUsed += static_cast<size_t>(FormatCell(nRow, nCol, buffer + nUsed));
            buffer[nUsed++] = nCol + 1 < COLS ? '\t' : '\n';
        }
    }
    if (nUsed != 0)
        pfnSink(buffer, nUsed, pContext);
    return nTotal + nUsed;
}
