#include "values/DmxCommand.h"

#include <string.h>

namespace
{
CString& LastValidCommand()
{
    static CString s_strLast;
    return s_strLast;
}

BOOL IsLevelOperator(TCHAR ch)
{
    return ch == '*' || ch == '@';
}

// The digits from lpsz up to the first non-digit. Saturates instead of overflowing: every
// number the grammar accepts is far below the cap.
long ReadNumber(LPCTSTR lpsz)
{
    const long CAP = 1000000000L;
    long n = 0;
    for (; *lpsz >= '0' && *lpsz <= '9'; ++lpsz)
        n = n >= CAP / 10 ? CAP : n * 10 + (*lpsz - '0');
    return n;
}

// Appends first..last in one growth step, so long ranges and many terms stay linear.
void AppendRange(CUIntArray& aChannels, long nFirst, long nLast)
{
    if (nFirst > nLast)
        return;
    INT_PTR nOld = aChannels.GetSize();
    aChannels.SetSize(nOld + (nLast - nFirst + 1));
    UINT* pChannel = aChannels.GetData() + nOld;
    for (long n = nFirst; n <= nLast; ++n)
        *pChannel++ = (UINT)n;
}
} // namespace

BOOL CDmxCommand::Parse(CString& strText, CUIntArray& aChannels, long* plLevel, long lFlags)
{
    long lLevel = -1;
    aChannels.RemoveAll();
    if (plLevel != NULL)
        *plLevel = -1;

    const CString strCommand = strText;
    const int nLength = strText.GetLength();
    LPTSTR pszScan = strText.GetBuffer(nLength);
    int nDigits = -1; // start of the open run of digits
    long nRangeStart = -1;
    BOOL bLevelMode = FALSE;
    BOOL bSuccess = FALSE;

    for (int i = 0; i <= nLength; ++i)
    {
        const TCHAR ch = pszScan[i];
        if (ch >= '0' && ch <= '9')
        {
            if (nDigits < 0)
                nDigits = i;
            continue;
        }
        if (ch == '-')
        {
            if (nDigits < 0 || nRangeStart >= 0)
                break;
            pszScan[i] = '\0';
            long n = ReadNumber(pszScan + nDigits);
            if (n < MIN_CHANNEL || n > MAX_CHANNEL)
                break;
            nRangeStart = n;
            nDigits = -1;
            continue;
        }
        if (ch != '+' && ch != '\0' && !IsLevelOperator(ch))
            break;
        if (nDigits < 0)
            break;
        pszScan[i] = '\0';
        long n = ReadNumber(pszScan + nDigits);
        if (!bLevelMode && (n < MIN_CHANNEL || n > MAX_CHANNEL))
            break;
        if (bLevelMode && nRangeStart >= 0)
            break;
        long nFirst = nRangeStart >= 0 ? nRangeStart : n;
        if (i == nLength)
        {
            if (bLevelMode)
            {
                if (n <= MAX_LEVEL)
                {
                    lLevel = n;
                    bSuccess = TRUE;
                }
                break;
            }
            if (!(lFlags & AUTO_FULL))
                break;
            lLevel = MAX_LEVEL;
        }
        if (IsLevelOperator(ch))
            bLevelMode = TRUE;
        AppendRange(aChannels, nFirst, n);
        if (lLevel == MAX_LEVEL)
        {
            bSuccess = TRUE;
            break;
        }
        nDigits = -1;
        nRangeStart = -1;
    }
    // The string ends at the first terminator written over an operator.
    strText.ReleaseBuffer(-1);

    if (!bSuccess)
        return FALSE;
    if (plLevel != NULL)
        *plLevel = lLevel;
    LastValidCommand() = strCommand;
    return TRUE;
}

const CString& CDmxCommand::GetLastValidCommand()
{
    return LastValidCommand();
}

BOOL CDmxCommand::IsCommandText(LPCTSTR lpszText)
{
    if (lpszText == NULL)
        return FALSE;
    return lpszText[strspn(lpszText, "0123456789-+*@")] == '\0';
}

BOOL CDmxCommand::RecallLevel(LPCTSTR lpszText, const CString& strLastValid,
                              CString& strNewText, int& nSelStart, int& nSelEnd)
{
    if (lpszText == NULL || !IsLevelOperator(lpszText[0]) || lpszText[1] != '\0' ||
        strLastValid.IsEmpty())
        return FALSE;
    strNewText = strLastValid;
    nSelStart = strNewText.FindOneOf("*@") + 1; // 0 for an auto-full command without one
    nSelEnd = strNewText.GetLength();
    return TRUE;
}
