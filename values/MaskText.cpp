#include "values/MaskText.h"
#include "values/KelTime.h"

#include <string.h>

namespace
{
const double TIMECODE_FRAMES_PER_SECOND = 29.97002997002997;

BOOL IsDigit(TCHAR ch)
{
    return ch >= '0' && ch <= '9';
}

BOOL IsLetter(TCHAR ch)
{
    return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z');
}
} // namespace

CMaskText::CMaskText() : m_chBlank('_') {}

void CMaskText::SetMask(LPCTSTR lpszMask, TCHAR chBlank)
{
    m_strMask = lpszMask != NULL ? lpszMask : "";
    m_chBlank = chBlank != '\0' ? chBlank : '_';
    SetText("");
}

void CMaskText::SetText(LPCTSTR lpszText)
{
    if (lpszText == NULL)
        lpszText = "";
    const int nLength = m_strMask.GetLength();
    LPTSTR pszDisplay = m_strDisplay.GetBufferSetLength(nLength);
    for (int i = 0; i < nLength; ++i)
    {
        if (!IsMaskChar(i))
        {
            pszDisplay[i] = m_strMask[i];
            continue;
        }
        TCHAR ch = m_chBlank;
        while (*lpszText != '\0' && !GetReplacementChar(i, *lpszText++, ch))
        {
        }
        pszDisplay[i] = ch;
    }
    m_strDisplay.ReleaseBuffer(nLength);
}

CString CMaskText::GetText() const
{
    CString strText;
    for (int i = 0; i < m_strMask.GetLength(); ++i)
        if (IsMaskChar(i))
            strText += m_strDisplay[i];
    return strText;
}

BOOL CMaskText::IsMaskChar(int nPosition) const
{
    if (nPosition < 0 || nPosition >= m_strMask.GetLength())
        return FALSE;
    TCHAR chMask = m_strMask[nPosition];
    return chMask == '#' || chMask == '?' || chMask == 'A';
}

BOOL CMaskText::GetReplacementChar(int nPosition, TCHAR ch, TCHAR& chResult) const
{
    if (nPosition < 0 || nPosition >= m_strMask.GetLength())
        return FALSE;
    const TCHAR chMask = m_strMask[nPosition];
    BOOL bAccept;
    switch (chMask)
    {
    case '#':
        bAccept = IsDigit(ch) || ch == m_chBlank;
        break;
    case '?':
        bAccept = IsLetter(ch) || ch == m_chBlank;
        break;
    case 'A':
        bAccept = IsLetter(ch) || IsDigit(ch) || ch == m_chBlank;
        break;
    default:
        chResult = chMask;
        return TRUE;
    }
    if (bAccept)
        chResult = ch;
    return bAccept;
}

int CMaskText::GotoNextEntryChar(int nPosition, BOOL bBackward) const
{
    const int nLength = m_strMask.GetLength();
    if (nPosition < 0)
        nPosition = 0;
    if (nPosition > nLength)
        nPosition = nLength;
    if (bBackward)
    {
        while (nPosition > 0 && !IsMaskChar(nPosition - 1))
            --nPosition;
        return nPosition;
    }
    while (nPosition < nLength && !IsMaskChar(nPosition))
        ++nPosition;
    return nPosition;
}

void CMaskText::ResetPosition(int nPosition)
{
    if (nPosition >= 0 && nPosition < m_strMask.GetLength())
        m_strDisplay.SetAt(nPosition, IsMaskChar(nPosition) ? m_chBlank : m_strMask[nPosition]);
}

int CMaskText::ApplyEdit(LPCTSTR lpszEditText, int nCaret, EDIT_KEY key)
{
    if (lpszEditText == NULL)
        lpszEditText = "";
    if (m_strDisplay.Compare(lpszEditText) == 0)
        return nCaret < 0 ? 0 : nCaret > m_strMask.GetLength() ? m_strMask.GetLength() : nCaret;
    switch (key)
    {
    case KEY_BACKSPACE:
        ResetPosition(nCaret);
        return GotoNextEntryChar(nCaret, TRUE);
    case KEY_DELETE:
        ResetPosition(nCaret);
        return GotoNextEntryChar(nCaret + 1);
    default:
        break;
    }
    // The typed character stands just before the caret in the edit's text.
    const int nTyped = nCaret - 1;
    if (nTyped < 0 || nTyped >= (int)strlen(lpszEditText))
        return GotoNextEntryChar(nCaret);
    const int nEntry = GotoNextEntryChar(nTyped);
    TCHAR ch;
    if (!GetReplacementChar(nEntry, lpszEditText[nTyped], ch))
        return nTyped;
    m_strDisplay.SetAt(nEntry, ch);
    return GotoNextEntryChar(nEntry + 1);
}

CString CMaskText::FormatTimecode(long lMilliseconds)
{
    CKelTime time(lMilliseconds);
    time.SetFramesPerSecond(TIMECODE_FRAMES_PER_SECOND);
    return time.Format(CKelTime::TIME_HHMMSSFF);
}

BOOL CMaskText::ReadTimecode(LPCTSTR lpszText, long& lMilliseconds)
{
    if (lpszText == NULL)
        return FALSE;
    CKelTime time;
    time.SetFramesPerSecond(TIMECODE_FRAMES_PER_SECOND);
    // A refused text leaves zero, which prints as "00:00:00:00", so the comparison decides.
    time.NewTime(lpszText, CKelTime::TIME_HHMMSSFF);
    if (time.Format(CKelTime::TIME_HHMMSSFF).Compare(lpszText) != 0)
        return FALSE;
    lMilliseconds = time;
    return TRUE;
}
