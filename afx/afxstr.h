// CString: MFC's reference-counted, copy-on-write string of 8-bit characters.
// The object is one pointer to the characters; a header before them holds the reference
// count and the lengths. Out-of-range character indexes throw CInvalidArgException, as MFC does.
#pragma once

#include <stdarg.h>

#include <afxexcept.h>

struct CStringData;

class AFX_CORE_CLASS CString
{
public:
    CString();
    CString(const CString& stringSrc);
    CString(LPCTSTR lpsz);
    CString(LPCTSTR lpch, int nLength);
    CString(const unsigned char* psz);
    CString(TCHAR ch, int nRepeat = 1);
    ~CString();

    int GetLength() const;
    BOOL IsEmpty() const;
    void Empty();

    TCHAR GetAt(int nIndex) const;
    TCHAR operator[](int nIndex) const;
    void SetAt(int nIndex, TCHAR ch);
    operator LPCTSTR() const { return m_pchData; }

    const CString& operator=(const CString& stringSrc);
    const CString& operator=(LPCTSTR lpsz);
    const CString& operator=(const unsigned char* psz);
    const CString& operator=(TCHAR ch);

    const CString& operator+=(const CString& string);
    const CString& operator+=(LPCTSTR lpsz);
    const CString& operator+=(TCHAR ch);

    friend AFX_CORE_API CString AFXAPI operator+(const CString& string1, const CString& string2);
    friend AFX_CORE_API CString AFXAPI operator+(const CString& string, LPCTSTR lpsz);
    friend AFX_CORE_API CString AFXAPI operator+(LPCTSTR lpsz, const CString& string);
    friend AFX_CORE_API CString AFXAPI operator+(const CString& string, TCHAR ch);
    friend AFX_CORE_API CString AFXAPI operator+(TCHAR ch, const CString& string);

    int Compare(LPCTSTR lpsz) const;
    int CompareNoCase(LPCTSTR lpsz) const;
    int Collate(LPCTSTR lpsz) const;

    CString Mid(int nFirst) const;
    CString Mid(int nFirst, int nCount) const;
    CString Left(int nCount) const;
    CString Right(int nCount) const;
    CString SpanIncluding(LPCTSTR lpszCharSet) const;
    CString SpanExcluding(LPCTSTR lpszCharSet) const;

    void MakeUpper();
    void MakeLower();
    void MakeReverse();

    int Replace(TCHAR chOld, TCHAR chNew);
    int Replace(LPCTSTR lpszOld, LPCTSTR lpszNew);
    int Remove(TCHAR chRemove);
    int Insert(int nIndex, TCHAR ch);
    int Insert(int nIndex, LPCTSTR pstr);
    int Delete(int nIndex, int nCount = 1);

    void TrimRight();
    void TrimRight(TCHAR chTarget);
    void TrimRight(LPCTSTR lpszTargets);
    void TrimLeft();
    void TrimLeft(TCHAR chTarget);
    void TrimLeft(LPCTSTR lpszTargets);

    int Find(TCHAR ch) const;
    int Find(TCHAR ch, int nStart) const;
    int Find(LPCTSTR lpszSub) const;
    int Find(LPCTSTR lpszSub, int nStart) const;
    int ReverseFind(TCHAR ch) const;
    int FindOneOf(LPCTSTR lpszCharSet) const;

    void AFX_PRINTF_FORMAT(2, 3) Format(LPCTSTR lpszFormat, ...);
    void FormatV(LPCTSTR lpszFormat, va_list argList);

    // Loads a string resource through the resource chain; without resources it empties the
    // string and returns FALSE.
    BOOL LoadString(UINT nID);

    LPTSTR GetBuffer(int nMinBufLength);
    void ReleaseBuffer(int nNewLength = -1);
    LPTSTR GetBufferSetLength(int nNewLength);
    void FreeExtra();

private:
    CStringData* GetData() const;
    void Release();
    void AssignCopy(int nLength, LPCTSTR lpsz);
    void AllocBeforeWrite(int nLength);
    void CopyBeforeWrite();
    void ConcatInPlace(int nLength, LPCTSTR lpsz);
    static CString Concat(int nLength1, LPCTSTR lpsz1, int nLength2, LPCTSTR lpsz2);
    CString Extract(int nFirst, int nCount) const;

    LPTSTR m_pchData;
};

// Comparisons compare the characters as strcmp does, a null text counting as empty.
AFX_CORE_API int AFXAPI AfxCompareText(LPCTSTR lpsz1, LPCTSTR lpsz2);

#define AFX_STRING_COMPARISON(op)                                                                  \
    inline bool AFXAPI operator op(const CString& s1, const CString& s2) { return AfxCompareText(s1, s2) op 0; } \
    inline bool AFXAPI operator op(const CString& s1, LPCTSTR s2) { return AfxCompareText(s1, s2) op 0; }        \
    inline bool AFXAPI operator op(LPCTSTR s1, const CString& s2) { return AfxCompareText(s1, s2) op 0; }
AFX_STRING_COMPARISON(==)
AFX_STRING_COMPARISON(!=)
AFX_STRING_COMPARISON(<)
AFX_STRING_COMPARISON(>)
AFX_STRING_COMPARISON(<=)
AFX_STRING_COMPARISON(>=)
#undef AFX_STRING_COMPARISON

// Resolves the module that holds a string resource; the window layer walks the resource chain.
#ifdef _WIN32
AFX_CORE_API HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID);
#endif
