// CGridList: sorting rows by one or more columns, and the heap sort behind it.
//
// ListSort does not call the comparators: it takes each row's keys once (the number, the time
// without its colons, the case-folded text) and sorts by them, so the order, ties included, is
// exactly the one HeapSort with the comparators gives, only faster: with the same heap sort when
// rows tie, with a faster sort when no two rows tie, since then only one order is sorted.
#include "grid/GridList.h"

#include <algorithm>
#include <climits>
#include <string>

namespace
{
// The heap sort of the grid, over any element: a bottom-up sift-down that walks from the node
// to a leaf along the larger children (the right one when it compares greater), climbs back
// until it meets a node that the saved element does not exceed, and shifts that path up by one.
// Rows that compare equal may change their order; which way is part of what a user sees.
template <class T, class C>
void SiftDown(T* a, unsigned i, unsigned n, C& compare)
{
    T saved = a[i];
    unsigned j = i;
    for (unsigned c = 2 * j + 1; c < n; c = 2 * j + 1)
        j = c + 1 < n && compare(a[c + 1], a[c]) > 0 ? c + 1 : c;
    while (j > i && compare(saved, a[j]) > 0)
        j = (j - 1) / 2;
    T moved = a[j];
    a[j] = saved;
    while (j > i)
    {
        j = (j - 1) / 2;
        std::swap(moved, a[j]);
    }
}

template <class T, class C>
void HeapSortOf(T* a, unsigned n, C compare)
{
    if (n < 2)
        return;
    for (unsigned i = n / 2; i-- > 0;)
        SiftDown(a, i, n, compare);
    for (unsigned nEnd = n - 1; nEnd > 0; --nEnd)
    {
        std::swap(a[0], a[nEnd]);
        SiftDown(a, 0, nEnd, compare);
    }
}

int FoldChar(unsigned char c)
{
    return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
}

// Case-insensitive comparison of bytes, ASCII upper case folded to lower case first: so '_'
// sorts before the letters.
int CompareFolded(const char* p1, const char* p2)
{
    for (;; ++p1, ++p2)
    {
        int c1 = FoldChar(static_cast<unsigned char>(*p1));
        int c2 = FoldChar(static_cast<unsigned char>(*p2));
        if (c1 != c2 || c1 == 0)
            return c1 - c2;
    }
}

// The runtime's atoi, as the comparators use it: the text without its colons for times.
int TextNumber(const char* psz, bool bTime)
{
    if (!bTime)
        return atoi(psz);
    std::string strDigits(psz);
    strDigits.erase(std::remove(strDigits.begin(), strDigits.end(), ':'), strDigits.end());
    return atoi(strDigits.c_str());
}

// What atoi gives, computed here for the fast path: leading white space, an optional sign and
// decimal digits, accumulated in 32 bits. On overflow the value wraps modulo 2^32, as msvcrt's
// atoi does (Wine's too: "4294967297" gives 1, "2147483648" gives -2147483648); the equivalence
// test holds the two together. Times skip every colon first.
int ParseNumber(const char* p, bool bTime)
{
    auto next = [&p, bTime]() {
        while (bTime && *p == ':')
            ++p;
        return *p;
    };
    char c = next();
    while (c == ' ' || (c >= '\t' && c <= '\r'))
    {
        ++p;
        c = next();
    }
    bool bMinus = c == '-';
    if (c == '-' || c == '+')
    {
        ++p;
        c = next();
    }
    unsigned nValue = 0;
    for (; c >= '0' && c <= '9'; c = next())
    {
        nValue = nValue * 10 + static_cast<unsigned>(c - '0');
        ++p;
    }
    return static_cast<int>(bMinus ? 0u - nValue : nValue);
}

// The comparators subtract as 32-bit ints do: a difference that overflows wraps around, and so
// may the negation of a descending key (the negative of INT_MIN is itself).
int Difference(int n1, int n2)
{
    return static_cast<int>(static_cast<unsigned>(n1) - static_cast<unsigned>(n2));
}

int Negate(int n)
{
    return static_cast<int>(0u - static_cast<unsigned>(n));
}

bool IsTextType(short nType)
{
    return nType == 0 || nType == 1;
}

bool IsDescending(short nType)
{
    return (nType & 1) != 0;
}

int CompareCells(CGridList::CItemData* p1, CGridList::CItemData* p2, int col, short nType)
{
    if (nType < 0 || nType > 5)
        return -1;
    const char* psz1 = GetRecordText(p1, col);
    const char* psz2 = GetRecordText(p2, col);
    int nResult = IsTextType(nType) ? CompareFolded(psz1, psz2)
                                    : Difference(TextNumber(psz1, nType >= 4), TextNumber(psz2, nType >= 4));
    return IsDescending(nType) ? Negate(nResult) : nResult;
}

int CompareByContext(const void* p1, const void* p2, void* pContext, short nType)
{
    CGridList::CItemData* pFirst = *static_cast<CGridList::CItemData* const*>(p1);
    CGridList::CItemData* pSecond = *static_cast<CGridList::CItemData* const*>(p2);
    const CGridList::CSortContext* pSort = static_cast<const CGridList::CSortContext*>(pContext);
    if (pSort->pKeys == NULL)
        return CompareCells(pFirst, pSecond, static_cast<int>(pSort->nCount), nType);
    int nResult = CompareCells(pFirst, pSecond, pSort->pKeys[0].nCol, nType);
    if (nResult == 0 && pSort->nCount > 1)
        nResult = CGridList::CompareSecondaryCols(pFirst, pSecond, pSort->pKeys, static_cast<int>(pSort->nCount));
    return nResult;
}

// ---- The fast path ----------------------------------------------------------------------------

// A text key: its first 8 bytes, folded, big-endian, zero after the end, so that comparing two
// keys as numbers compares the texts' beginnings. Only when those are equal and the texts go on
// beyond them does the comparison look at the texts again.
unsigned long long TextPrefix(const char* psz)
{
    unsigned long long nKey = 0;
    int i = 0;
    for (; i < 8 && psz[i] != '\0'; ++i)
        nKey = (nKey << 8) | static_cast<unsigned>(FoldChar(static_cast<unsigned char>(psz[i])));
    return nKey << (8 * (8 - i));
}

class CKeyedSort
{
public:
    CKeyedSort(CGridList::CItemData** ppRecords, unsigned nCount, const GridSortCol* pKeys, int nKeys)
        : m_ppRecords(ppRecords), m_pKeys(pKeys), m_nKeys(nKeys), m_arKeys(static_cast<size_t>(nKeys))
    {
        for (int k = 0; k < nKeys; ++k)
        {
            std::vector<unsigned long long>& arKeys = m_arKeys[static_cast<size_t>(k)];
            arKeys.resize(nCount);
            for (unsigned i = 0; i < nCount; ++i)
                arKeys[i] = KeyOf(ppRecords[i], pKeys[k]);
        }
    }

    // Whether comparing by the keys is a consistent order: true unless two values of a number
    // key lie so far apart that their difference wraps around (then a < b < c may come with
    // c < a, and only the heap sort's own steps say where the rows go).
    bool IsConsistent() const
    {
        for (int k = 0; k < m_nKeys; ++k)
        {
            if (IsTextType(m_pKeys[k].nSortType) || m_arKeys[static_cast<size_t>(k)].empty())
                continue;
            const std::vector<unsigned long long>& arKeys = m_arKeys[static_cast<size_t>(k)];
            long long nMin = static_cast<int>(arKeys[0]), nMax = nMin;
            for (unsigned long long nKey : arKeys)
            {
                nMin = std::min<long long>(nMin, static_cast<int>(nKey));
                nMax = std::max<long long>(nMax, static_cast<int>(nKey));
            }
            if (nMax - nMin > INT_MAX)
                return false;
        }
        return true;
    }

    // The key of element i for key k.
    unsigned long long Key(int k, unsigned i) const { return m_arKeys[static_cast<size_t>(k)][i]; }

    static unsigned long long KeyOf(CGridList::CItemData* pData, const GridSortCol& key)
    {
        const char* psz = GetRecordText(pData, key.nCol);
        if (IsTextType(key.nSortType))
            return TextPrefix(psz);
        return static_cast<unsigned>(ParseNumber(psz, key.nSortType >= 4));
    }

    // As the comparator of key k compares the rows of elements i1 and i2, from their keys.
    int CompareKey(int k, unsigned long long n1, unsigned long long n2, unsigned i1, unsigned i2) const
    {
        short nType = m_pKeys[k].nSortType;
        int nResult;
        if (!IsTextType(nType))
            nResult = Difference(static_cast<int>(n1), static_cast<int>(n2));
        else if (n1 != n2)
            nResult = n1 < n2 ? -1 : 1;
        else if ((n1 & 0xFF) == 0)
            nResult = 0; // both texts ended within their first 8 bytes
        else
            nResult = CompareFolded(GetRecordText(m_ppRecords[i1], m_pKeys[k].nCol) + 8,
                                    GetRecordText(m_ppRecords[i2], m_pKeys[k].nCol) + 8);
        return IsDescending(nType) ? Negate(nResult) : nResult;
    }

    int CompareFrom(int k, unsigned i1, unsigned i2) const
    {
        int nResult = 0;
        for (; k < m_nKeys; ++k)
            if ((nResult = CompareKey(k, Key(k, i1), Key(k, i2), i1, i2)) != 0)
                break;
        return nResult;
    }

private:
    CGridList::CItemData** m_ppRecords;
    const GridSortCol* m_pKeys;
    int m_nKeys;
    std::vector<std::vector<unsigned long long>> m_arKeys;
};

// The elements sorted: the first key (and a number second key) beside the row, so that most
// comparisons read nothing else.
struct CKeyed
{
    unsigned long long nKey0;
    unsigned nKey1;
    unsigned nIndex;
};

void SortRecords(CGridList::CItemData** ppRecords, unsigned nCount, const GridSortCol* pKeys, int nKeys)
{
    CKeyedSort keys(ppRecords, nCount, pKeys, nKeys);
    std::vector<CKeyed> arElements(nCount);
    bool bInlineSecond = nKeys > 1 && !IsTextType(pKeys[1].nSortType);
    auto reset = [&]() {
        for (unsigned i = 0; i < nCount; ++i)
            arElements[i] = CKeyed{keys.Key(0, i), bInlineSecond ? static_cast<unsigned>(keys.Key(1, i)) : 0u, i};
    };
    auto compare = [&keys, nKeys, bInlineSecond](const CKeyed& e1, const CKeyed& e2) {
        int nResult = keys.CompareKey(0, e1.nKey0, e2.nKey0, e1.nIndex, e2.nIndex);
        if (nResult != 0 || nKeys == 1)
            return nResult;
        if (!bInlineSecond)
            return keys.CompareFrom(1, e1.nIndex, e2.nIndex);
        nResult = keys.CompareKey(1, e1.nKey1, e2.nKey1, e1.nIndex, e2.nIndex);
        return nResult != 0 || nKeys == 2 ? nResult : keys.CompareFrom(2, e1.nIndex, e2.nIndex);
    };
    reset();
    // When the keys order the rows totally (no two rows equal on every key) every correct sort
    // gives the one order the heap sort gives, so a faster sort may find it. Rows that tie
    // leave the faster sort's order to chance, and the heap sort's order is then the one shown.
    bool bSorted = false;
    if (keys.IsConsistent())
    {
        std::sort(arElements.begin(), arElements.end(),
                  [&compare](const CKeyed& e1, const CKeyed& e2) { return compare(e1, e2) < 0; });
        bSorted = true;
        for (unsigned i = 1; i < nCount && bSorted; ++i)
            bSorted = compare(arElements[i - 1], arElements[i]) != 0;
        if (!bSorted)
            reset();
    }
    if (!bSorted)
        HeapSortOf(arElements.data(), nCount, compare);
    std::vector<CGridList::CItemData*> arSorted(nCount);
    for (unsigned i = 0; i < nCount; ++i)
        arSorted[i] = ppRecords[arElements[i].nIndex];
    std::copy(arSorted.begin(), arSorted.end(), ppRecords);
}
} // namespace

void HeapSort(CGridList::CItemData** ppItems, unsigned nCount, int (*pfnCompare)(const void*, const void*, void*),
              void* pContext)
{
    if (ppItems == NULL || pfnCompare == NULL)
        return;
    HeapSortOf(ppItems, nCount, [pfnCompare, pContext](CGridList::CItemData* const& p1, CGridList::CItemData* const& p2) {
        return pfnCompare(&p1, &p2, pContext);
    });
}

int CGridList::CompareTextAscending(const void* p1, const void* p2, void* pContext)
{
    return CompareByContext(p1, p2, pContext, 0);
}

int CGridList::CompareTextDescending(const void* p1, const void* p2, void* pContext)
{
    return CompareByContext(p1, p2, pContext, 1);
}

int CGridList::CompareNumbersAscending(const void* p1, const void* p2, void* pContext)
{
    return CompareByContext(p1, p2, pContext, 2);
}

int CGridList::CompareNumbersDescending(const void* p1, const void* p2, void* pContext)
{
    return CompareByContext(p1, p2, pContext, 3);
}

int CGridList::CompareTimeAscending(const void* p1, const void* p2, void* pContext)
{
    return CompareByContext(p1, p2, pContext, 4);
}

int CGridList::CompareTimeDescending(const void* p1, const void* p2, void* pContext)
{
    return CompareByContext(p1, p2, pContext, 5);
}

int CGridList::CompareSecondaryCols(CItemData* pFirst, CItemData* pSecond, GridSortCol* pKeys, int nCount)
{
    int nResult = 0;
    for (int k = 1; pKeys != NULL && k < nCount; ++k)
        if ((nResult = CompareCells(pFirst, pSecond, pKeys[k].nCol, pKeys[k].nSortType)) != 0)
            break;
    return nResult;
}

void CGridList::ListSort(int col, short nSortType, bool bKeepEmptyAtEnd)
{
    GridSortCol key(col, nSortType);
    ListSort(&key, 1, bKeepEmptyAtEnd);
}

BOOL CGridList::CheckSelection4ChangeOnSort(CSelectedCells* pSet)
{
    // A set of whole data rows stays where it is whatever the order; any other is rebuilt from
    // the cells' flags after the rows moved.
    if (pSet == NULL)
        return FALSE;
    CRect rc = pSet->GetRect();
    bool bAllRows = pSet->IsExactRect() && rc.top == GetFirstDataRow() && rc.bottom == m_nRows - 1;
    return !bAllRows && pSet->GetCount() != 0;
}

void CGridList::ListSort(GridSortCol* pKeys, int nCount, bool bKeepEmptyAtEnd)
{
    if (pKeys == NULL || nCount < 1 || nCount > m_nCols)
        return;
    for (int k = 0; k < nCount; ++k)
        if (pKeys[k].nCol < 0 || pKeys[k].nCol >= m_nCols || pKeys[k].nSortType < 0 || pKeys[k].nSortType > 5)
            return;
    // Grids with row headers are never sorted.
    int nFirst = GetFirstDataRow();
    if (m_bFixedCol || m_nRows - nFirst < 1)
        return;

    unsigned nSorted = static_cast<unsigned>(m_nRows - nFirst);
    if (bKeepEmptyAtEnd)
        for (; nSorted > 0; --nSorted)
        {
            CItemData* pData = GetItemData(nFirst + static_cast<int>(nSorted) - 1, false);
            int col = 0;
            while (col < m_nCols && *GetRecordText(pData, col) == '\0')
                ++col;
            if (col < m_nCols)
                break;
        }
    std::vector<CItemData*> arRecords(nSorted);
    for (unsigned i = 0; i < nSorted; ++i)
        arRecords[i] = GetItemData(nFirst + static_cast<int>(i), false);
    SortRecords(arRecords.data(), nSorted, pKeys, nCount);

    LockPainting(true);
    bool bRebuildSel = CheckSelection4ChangeOnSort(m_pSelectedCells.get()) != FALSE;
    bool bRebuildCCP = CheckSelection4ChangeOnSort(m_pCCPCells.get()) != FALSE;
    if (bRebuildSel)
        m_pSelectedCells->RemoveAll();
    if (bRebuildCCP)
        m_pCCPCells->RemoveAll();
    Cell oldCaret = m_CaretCell;
    m_CaretCell = Cell();
    m_CCPCell = Cell();
    for (unsigned i = 0; i < nSorted; ++i)
        m_arRows[static_cast<size_t>(nFirst) + i] = reinterpret_cast<DWORD_PTR>(arRecords[i]);

    // The flags travelled with their rows: the sets, the caret and the source follow them.
    int nFirstCol = GetFirstDataCol();
    for (int row = nFirst; row < m_nRows; ++row)
    {
        CItemData* pData = GetItemData(row, false);
        if (pData == NULL || pData->m_pStates == NULL)
            continue;
        for (int col = nFirstCol; col < m_nCols; ++col)
        {
            DWORD& dwState = pData->m_pStates[col];
            // In list style a row is selected through its first data cell alone.
            if ((dwState & CS_SELECTED) != 0 && bRebuildSel && IsStyleList() && col != nFirstCol)
                dwState &= ~static_cast<DWORD>(CS_SELECTED);
            if ((dwState & CS_SELECTED) != 0 && bRebuildSel)
                m_pSelectedCells->AddUnique(Cell(row, col));
            if ((dwState & CS_CUT) != 0 && bRebuildCCP)
                m_pCCPCells->AddUnique(Cell(row, col));
            if ((dwState & CS_CARET) != 0 && m_CaretCell == Cell())
                m_CaretCell = Cell(row, col);
            if ((dwState & CS_CCPINDEX) != 0)
                m_CCPCell = Cell(row, col);
        }
    }
    if (m_EditIconCell == oldCaret && oldCaret != Cell())
        m_EditIconCell = m_CaretCell;
    m_AnchorCell = m_CaretCell;
    LockPainting(false);
    RefreshCaret(m_CaretCell);
    if (GetSafeHwnd() != NULL && IsWindowVisible())
    {
        ShowWindow(SW_HIDE);
        ShowWindow(SW_SHOWNOACTIVATE);
    }
}

void CGridList::MoveRowinSort(int nTo, int nFrom)
{
    if (nTo < 0 || nFrom < 0 || nTo == nFrom || nFrom >= m_nRows)
        return;
    nTo = std::min(nTo, m_nRows);
    DWORD_PTR dwRecord = m_arRows[static_cast<size_t>(nFrom)];
    m_arRows.insert(m_arRows.begin() + nTo, dwRecord);
    m_arRows.erase(m_arRows.begin() + (nFrom >= nTo ? nFrom + 1 : nFrom));
    UpdateItemCount(std::min(nTo, nFrom));
}
