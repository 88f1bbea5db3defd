#include <afxstr.h>

#include <limits.h>
#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

struct CStringData
{
    long nRefs; // -1 for the shared empty string, which is never written or freed
    int nDataLength;
    int nAllocLength;
    TCHAR* data() { return reinterpret_cast<TCHAR*>(this + 1); }
};

namespace
{
struct EmptyStringData
{
    CStringData header;
    TCHAR terminator;
};
EmptyStringData s_emptyData = {{-1, 0, 0}, '\0'};

TCHAR* EmptyChars()
{
    return s_emptyData.header.data();
}

int SafeLength(LPCTSTR lpsz)
{
    if (lpsz == NULL)
        return 0;
    size_t n = strlen(lpsz);
    if (n > INT_MAX / 2)
        AfxThrowMemoryException();
    return static_cast<int>(n);
}

CStringData* AllocData(int nLength)
{
    if (nLength < 0 || nLength > INT_MAX - static_cast<int>(sizeof(CStringData)) - 1)
        AfxThrowMemoryException();
    CStringData* pData = static_cast<CStringData*>(malloc(sizeof(CStringData) + nLength + 1));
    if (pData == NULL)
        AfxThrowMemoryException();
    pData->nRefs = 1;
    pData->nDataLength = nLength;
    pData->nAllocLength = nLength;
    pData->data()[nLength] = '\0';
    return pData;
}

// ASCII-only case mapping, so that results do not depend on the process locale.
TCHAR ToUpper(TCHAR ch)
{
    return (ch >= 'a' && ch <= 'z') ? static_cast<TCHAR>(ch - 'a' + 'A') : ch;
}

TCHAR ToLower(TCHAR ch)
{
    return (ch >= 'A' && ch <= 'Z') ? static_cast<TCHAR>(ch - 'A' + 'a') : ch;
}

bool IsSpace(TCHAR ch)
{
    return ch == ' ' || (ch >= '\t' && ch <= '\r');
}

bool InSet(TCHAR ch, LPCTSTR lpszSet)
{
    return lpszSet != NULL && ch != '\0' && strchr(lpszSet, ch) != NULL;
}
} // namespace

int AFXAPI AfxCompareText(LPCTSTR lpsz1, LPCTSTR lpsz2)
{
    return strcmp(lpsz1 != NULL ? lpsz1 : "", lpsz2 != NULL ? lpsz2 : "");
}

CStringData* CString::GetData() const
{
    return reinterpret_cast<CStringData*>(m_pchData) - 1;
}

CString::CString() : m_pchData(EmptyChars()) {}

CString::CString(const CString& stringSrc)
{
    CStringData* pData = stringSrc.GetData();
    if (pData->nRefs >= 0)
    {
        __atomic_add_fetch(&pData->nRefs, 1, __ATOMIC_RELAXED);
        m_pchData = stringSrc.m_pchData;
    }
    else
    {
        m_pchData = EmptyChars();
    }
}

CString::CString(LPCTSTR lpsz) : m_pchData(EmptyChars())
{
    AssignCopy(SafeLength(lpsz), lpsz);
}

CString::CString(LPCTSTR lpch, int nLength) : m_pchData(EmptyChars())
{
    if (lpch != NULL && nLength > 0)
        AssignCopy(nLength, lpch);
}

CString::CString(const unsigned char* psz) : CString(reinterpret_cast<LPCTSTR>(psz)) {}

CString::CString(TCHAR ch, int nRepeat) : m_pchData(EmptyChars())
{
    if (nRepeat > 0)
    {
        AllocBeforeWrite(nRepeat);
        memset(m_pchData, ch, nRepeat);
    }
}

CString::~CString()
{
    Release();
}

void CString::Release()
{
    CStringData* pData = GetData();
    if (pData->nRefs >= 0 && __atomic_sub_fetch(&pData->nRefs, 1, __ATOMIC_ACQ_REL) == 0)
        free(pData);
    m_pchData = EmptyChars();
}

int CString::GetLength() const
{
    return GetData()->nDataLength;
}

BOOL CString::IsEmpty() const
{
    return GetData()->nDataLength == 0;
}

void CString::Empty()
{
    Release();
}

TCHAR CString::GetAt(int nIndex) const
{
    // The terminator may be read, as in MFC.
    if (nIndex < 0 || nIndex > GetLength())
        AfxThrowInvalidArgException();
    return m_pchData[nIndex];
}

TCHAR CString::operator[](int nIndex) const
{
    return GetAt(nIndex);
}

void CString::SetAt(int nIndex, TCHAR ch)
{
    if (nIndex < 0 || nIndex >= GetLength())
        AfxThrowInvalidArgException();
    CopyBeforeWrite();
    m_pchData[nIndex] = ch;
}

// Makes the buffer private and at least nLength long; the old characters are not kept.
void CString::AllocBeforeWrite(int nLength)
{
    CStringData* pData = GetData();
    if (pData->nRefs > 1 || pData->nRefs < 0 || nLength > pData->nAllocLength)
    {
        CStringData* pNew = AllocData(nLength);
        Release();
        m_pchData = pNew->data();
    }
    GetData()->nDataLength = nLength;
    m_pchData[nLength] = '\0';
}

void CString::CopyBeforeWrite()
{
    CStringData* pData = GetData();
    if (pData->nRefs > 1)
    {
        CStringData* pNew = AllocData(pData->nDataLength);
        memcpy(pNew->data(), m_pchData, pData->nDataLength + 1);
        Release();
        m_pchData = pNew->data();
    }
}

void CString::AssignCopy(int nLength, LPCTSTR lpsz)
{
    if (nLength == 0)
    {
        Release();
        return;
    }
    // The source may be part of this string's own buffer.
    if (lpsz >= m_pchData && lpsz <= m_pchData + GetLength())
    {
        CString copy(lpsz, nLength);
        *this = copy;
        return;
    }
    AllocBeforeWrite(nLength);
    memcpy(m_pchData, lpsz, nLength);
}

const CString& CString::operator=(const CString& stringSrc)
{
    if (m_pchData != stringSrc.m_pchData)
    {
        CString copy(stringSrc);
        LPTSTR p = copy.m_pchData;
        copy.m_pchData = m_pchData;
        m_pchData = p;
    }
    return *this;
}

const CString& CString::operator=(LPCTSTR lpsz)
{
    AssignCopy(SafeLength(lpsz), lpsz);
    return *this;
}

const CString& CString::operator=(const unsigned char* psz)
{
    return *this = reinterpret_cast<LPCTSTR>(psz);
}

const CString& CString::operator=(TCHAR ch)
{
    AssignCopy(1, &ch);
    return *this;
}

CString CString::Concat(int nLength1, LPCTSTR lpsz1, int nLength2, LPCTSTR lpsz2)
{
    CString result;
    if (nLength2 > INT_MAX / 2 - nLength1)
        AfxThrowMemoryException();
    int nLength = nLength1 + nLength2;
    if (nLength > 0)
    {
        result.AllocBeforeWrite(nLength);
        memcpy(result.m_pchData, lpsz1, nLength1);
        memcpy(result.m_pchData + nLength1, lpsz2, nLength2);
    }
    return result;
}

void CString::ConcatInPlace(int nLength, LPCTSTR lpsz)
{
    if (nLength == 0)
        return;
    CStringData* pData = GetData();
    if (pData->nRefs == 1 && pData->nDataLength + nLength <= pData->nAllocLength)
    {
        memmove(m_pchData + pData->nDataLength, lpsz, nLength);
        pData->nDataLength += nLength;
        m_pchData[pData->nDataLength] = '\0';
        return;
    }
    // Grow geometrically so that repeated appends stay linear.
    int nOld = pData->nDataLength;
    if (nLength > INT_MAX / 2 - nOld)
        AfxThrowMemoryException();
    int nAlloc = nOld + nLength;
    if (nAlloc < nOld + nOld / 2 && nOld < INT_MAX / 4)
        nAlloc = nOld + nOld / 2;
    CStringData* pNew = AllocData(nAlloc);
    memcpy(pNew->data(), m_pchData, nOld);
    memcpy(pNew->data() + nOld, lpsz, nLength);
    pNew->nDataLength = nOld + nLength;
    pNew->data()[pNew->nDataLength] = '\0';
    Release();
    m_pchData = pNew->data();
}

const CString& CString::operator+=(const CString& string)
{
    if (string.m_pchData == m_pchData)
    {
        CString copy(string);
        ConcatInPlace(copy.GetLength(), copy.m_pchData);
    }
    else
    {
        ConcatInPlace(string.GetLength(), string.m_pchData);
    }
    return *this;
}

const CString& CString::operator+=(LPCTSTR lpsz)
{
    if (lpsz >= m_pchData && lpsz <= m_pchData + GetLength())
        return *this += CString(lpsz);
    ConcatInPlace(SafeLength(lpsz), lpsz);
    return *this;
}

const CString& CString::operator+=(TCHAR ch)
{
    ConcatInPlace(1, &ch);
    return *this;
}

CString AFXAPI operator+(const CString& string1, const CString& string2)
{
    return CString::Concat(string1.GetLength(), string1.m_pchData, string2.GetLength(), string2.m_pchData);
}

CString AFXAPI operator+(const CString& string, LPCTSTR lpsz)
{
    return CString::Concat(string.GetLength(), string.m_pchData, SafeLength(lpsz), lpsz);
}

CString AFXAPI operator+(LPCTSTR lpsz, const CString& string)
{
    return CString::Concat(SafeLength(lpsz), lpsz, string.GetLength(), string.m_pchData);
}

CString AFXAPI operator+(const CString& string, TCHAR ch)
{
    return CString::Concat(string.GetLength(), string.m_pchData, 1, &ch);
}

CString AFXAPI operator+(TCHAR ch, const CString& string)
{
    return CString::Concat(1, &ch, string.GetLength(), string.m_pchData);
}

int CString::Compare(LPCTSTR lpsz) const
{
    return AfxCompareText(m_pchData, lpsz);
}

int CString::CompareNoCase(LPCTSTR lpsz) const
{
    const unsigned char* p1 = reinterpret_cast<const unsigned char*>(m_pchData);
    const unsigned char* p2 = reinterpret_cast<const unsigned char*>(lpsz != NULL ? lpsz : "");
    for (;; ++p1, ++p2)
    {
        int c1 = static_cast<unsigned char>(ToLower(static_cast<TCHAR>(*p1)));
        int c2 = static_cast<unsigned char>(ToLower(static_cast<TCHAR>(*p2)));
        if (c1 != c2 || c1 == 0)
            return c1 - c2;
    }
}

int CString::Collate(LPCTSTR lpsz) const
{
    return strcoll(m_pchData, lpsz != NULL ? lpsz : "");
}

CString CString::Extract(int nFirst, int nCount) const
{
    int nLength = GetLength();
    if (nFirst < 0)
        nFirst = 0;
    if (nCount < 0)
        nCount = 0;
    if (nFirst > nLength)
        nFirst = nLength;
    if (nCount > nLength - nFirst)
        nCount = nLength - nFirst;
    if (nFirst == 0 && nCount == nLength)
        return *this;
    return CString(m_pchData + nFirst, nCount);
}

CString CString::Mid(int nFirst) const
{
    return Extract(nFirst, INT_MAX);
}

CString CString::Mid(int nFirst, int nCount) const
{
    return Extract(nFirst, nCount);
}

CString CString::Left(int nCount) const
{
    return Extract(0, nCount);
}

CString CString::Right(int nCount) const
{
    if (nCount < 0)
        nCount = 0;
    int nLength = GetLength();
    return nCount >= nLength ? *this : Extract(nLength - nCount, nCount);
}

CString CString::SpanIncluding(LPCTSTR lpszCharSet) const
{
    return Left(lpszCharSet != NULL ? static_cast<int>(strspn(m_pchData, lpszCharSet)) : 0);
}

CString CString::SpanExcluding(LPCTSTR lpszCharSet) const
{
    return Left(lpszCharSet != NULL ? static_cast<int>(strcspn(m_pchData, lpszCharSet)) : GetLength());
}

void CString::MakeUpper()
{
    CopyBeforeWrite();
    for (TCHAR* p = m_pchData; *p != '\0'; ++p)
        *p = ToUpper(*p);
}

void CString::MakeLower()
{
    CopyBeforeWrite();
    for (TCHAR* p = m_pchData; *p != '\0'; ++p)
        *p = ToLower(*p);
}

void CString::MakeReverse()
{
    CopyBeforeWrite();
    int nLength = GetLength();
    for (int i = 0, j = nLength - 1; i < j; ++i, --j)
    {
        TCHAR ch = m_pchData[i];
        m_pchData[i] = m_pchData[j];
        m_pchData[j] = ch;
    }
}

int CString::Replace(TCHAR chOld, TCHAR chNew)
{
    int nCount = 0;
    if (chOld == chNew)
        return 0;
    int nLength = GetLength();
    for (int i = 0; i < nLength; ++i)
    {
        if (m_pchData[i] == chOld)
        {
            if (nCount++ == 0)
                CopyBeforeWrite();
            m_pchData[i] = chNew;
        }
    }
    return nCount;
}

int CString::Replace(LPCTSTR lpszOld, LPCTSTR lpszNew)
{
    int nOldLength = SafeLength(lpszOld);
    if (nOldLength == 0)
        return 0;
    CString result;
    int nCount = 0;
    LPCTSTR pStart = m_pchData;
    LPCTSTR pEnd = m_pchData + GetLength();
    LPCTSTR pFound;
    while (pStart < pEnd && (pFound = strstr(pStart, lpszOld)) != NULL)
    {
        result.ConcatInPlace(static_cast<int>(pFound - pStart), pStart);
        result += lpszNew;
        pStart = pFound + nOldLength;
        ++nCount;
    }
    if (nCount > 0)
    {
        result.ConcatInPlace(static_cast<int>(pEnd - pStart), pStart);
        *this = result;
    }
    return nCount;
}

int CString::Remove(TCHAR chRemove)
{
    int nLength = GetLength();
    if (memchr(m_pchData, chRemove, nLength) == NULL)
        return 0;
    CopyBeforeWrite();
    int nKept = 0;
    for (int i = 0; i < nLength; ++i)
        if (m_pchData[i] != chRemove)
            m_pchData[nKept++] = m_pchData[i];
    m_pchData[nKept] = '\0';
    GetData()->nDataLength = nKept;
    return nLength - nKept;
}

int CString::Insert(int nIndex, TCHAR ch)
{
    return Insert(nIndex, CString(ch));
}

int CString::Insert(int nIndex, LPCTSTR pstr)
{
    int nLength = GetLength();
    if (nIndex < 0)
        nIndex = 0;
    if (nIndex > nLength)
        nIndex = nLength;
    CString tail = Mid(nIndex);
    CString result = Left(nIndex) + pstr;
    result += tail;
    *this = result;
    return GetLength();
}

int CString::Delete(int nIndex, int nCount)
{
    int nLength = GetLength();
    if (nIndex < 0)
        nIndex = 0;
    if (nCount > nLength - nIndex)
        nCount = nLength - nIndex;
    if (nCount > 0)
    {
        CopyBeforeWrite();
        memmove(m_pchData + nIndex, m_pchData + nIndex + nCount, nLength - nIndex - nCount + 1);
        GetData()->nDataLength = nLength - nCount;
    }
    return GetLength();
}

void CString::TrimRight()
{
    int nLength = GetLength();
    int nKeep = nLength;
    while (nKeep > 0 && IsSpace(m_pchData[nKeep - 1]))
        --nKeep;
    if (nKeep < nLength)
        *this = Left(nKeep);
}

void CString::TrimRight(TCHAR chTarget)
{
    TCHAR set[2] = {chTarget, '\0'};
    TrimRight(set);
}

void CString::TrimRight(LPCTSTR lpszTargets)
{
    int nLength = GetLength();
    int nKeep = nLength;
    while (nKeep > 0 && InSet(m_pchData[nKeep - 1], lpszTargets))
        --nKeep;
    if (nKeep < nLength)
        *this = Left(nKeep);
}

void CString::TrimLeft()
{
    int nSkip = 0;
    while (IsSpace(m_pchData[nSkip]))
        ++nSkip;
    if (nSkip > 0)
        *this = Mid(nSkip);
}

void CString::TrimLeft(TCHAR chTarget)
{
    TCHAR set[2] = {chTarget, '\0'};
    TrimLeft(set);
}

void CString::TrimLeft(LPCTSTR lpszTargets)
{
    int nSkip = 0;
    while (InSet(m_pchData[nSkip], lpszTargets))
        ++nSkip;
    if (nSkip > 0)
        *this = Mid(nSkip);
}

int CString::Find(TCHAR ch) const
{
    return Find(ch, 0);
}

int CString::Find(TCHAR ch, int nStart) const
{
    int nLength = GetLength();
    if (nStart < 0)
        nStart = 0;
    if (nStart >= nLength)
        return -1;
    const void* p = memchr(m_pchData + nStart, ch, nLength - nStart);
    return p == NULL ? -1 : static_cast<int>(static_cast<LPCTSTR>(p) - m_pchData);
}

int CString::Find(LPCTSTR lpszSub) const
{
    return Find(lpszSub, 0);
}

int CString::Find(LPCTSTR lpszSub, int nStart) const
{
    if (lpszSub == NULL)
        return -1;
    if (nStart < 0)
        nStart = 0;
    if (nStart > GetLength())
        return -1;
    LPCTSTR p = strstr(m_pchData + nStart, lpszSub);
    return p == NULL ? -1 : static_cast<int>(p - m_pchData);
}

int CString::ReverseFind(TCHAR ch) const
{
    LPCTSTR p = strrchr(m_pchData, ch);
    return p == NULL ? -1 : static_cast<int>(p - m_pchData);
}

int CString::FindOneOf(LPCTSTR lpszCharSet) const
{
    if (lpszCharSet == NULL)
        return -1;
    LPCTSTR p = strpbrk(m_pchData, lpszCharSet);
    return p == NULL ? -1 : static_cast<int>(p - m_pchData);
}

void CString::Format(LPCTSTR lpszFormat, ...)
{
    va_list argList;
    va_start(argList, lpszFormat);
    FormatV(lpszFormat, argList);
    va_end(argList);
}

void CString::FormatV(LPCTSTR lpszFormat, va_list argList)
{
    if (lpszFormat == NULL)
    {
        Empty();
        return;
    }
    va_list argCopy;
    va_copy(argCopy, argList);
    int nLength = vsnprintf(NULL, 0, lpszFormat, argCopy);
    va_end(argCopy);
    if (nLength < 0)
    {
        Empty();
        return;
    }
    // Formatted into a fresh buffer: the arguments may point into this string.
    CString result;
    result.AllocBeforeWrite(nLength);
    vsnprintf(result.m_pchData, nLength + 1, lpszFormat, argList);
    *this = result;
}

LPTSTR CString::GetBuffer(int nMinBufLength)
{
    if (nMinBufLength < 0)
        nMinBufLength = 0;
    CStringData* pData = GetData();
    if (pData->nRefs != 1 || nMinBufLength > pData->nAllocLength)
    {
        int nOld = pData->nDataLength;
        CStringData* pNew = AllocData(nMinBufLength > nOld ? nMinBufLength : nOld);
        memcpy(pNew->data(), m_pchData, nOld + 1);
        pNew->nDataLength = nOld;
        Release();
        m_pchData = pNew->data();
    }
    return m_pchData;
}

void CString::ReleaseBuffer(int nNewLength)
{
    CopyBeforeWrite();
    CStringData* pData = GetData();
    if (pData->nRefs < 0)
        return;
    if (nNewLength < 0)
    {
        const void* p = memchr(m_pchData, '\0', pData->nAllocLength);
        nNewLength = p == NULL ? pData->nAllocLength : static_cast<int>(static_cast<LPCTSTR>(p) - m_pchData);
    }
    if (nNewLength > pData->nAllocLength)
        nNewLength = pData->nAllocLength;
    pData->nDataLength = nNewLength;
    m_pchData[nNewLength] = '\0';
}

LPTSTR CString::GetBufferSetLength(int nNewLength)
{
    if (nNewLength < 0)
        nNewLength = 0;
    GetBuffer(nNewLength);
    if (GetData()->nRefs >= 0)
    {
        GetData()->nDataLength = nNewLength;
        m_pchData[nNewLength] = '\0';
    }
    return m_pchData;
}

void CString::FreeExtra()
{
    CStringData* pData = GetData();
    if (pData->nDataLength != pData->nAllocLength)
    {
        CString copy(m_pchData, pData->nDataLength);
        *this = copy;
    }
}

#ifdef _WIN32
BOOL CString::LoadString(UINT nID)
{
    // A string resource holds at most 4097 characters including its terminator.
    TCHAR buffer[4097];
    int nLength = ::LoadStringA(AfxFindStringResourceHandle(nID), nID, buffer, sizeof(buffer));
    if (nLength <= 0)
    {
        Empty();
        return FALSE;
    }
    AssignCopy(nLength, buffer);
    return TRUE;
}
#else
BOOL CString::LoadString(UINT)
{
    Empty();
    return FALSE;
}
#endif
