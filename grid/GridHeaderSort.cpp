// CGridHeader: the sort state it keeps and shows for the grid (the grid sorts).
#include "grid/GridHeader.h"

#include <algorithm>

namespace
{
const short kNoSort = static_cast<short>(0xFFFF);
} // namespace

short CGridHeader::GetColSortType(int nCol) const
{
    return IsItem(nCol) ? GetHdrItem(nCol).nColSortType : -1;
}

BOOL CGridHeader::SetColSortType(int nCol, short nSortClass)
{
    if (!IsItem(nCol) || nSortClass < 0 || nSortClass > 2)
        return FALSE;
    GetHdrItem(nCol).nColSortType = nSortClass;
    return TRUE;
}

short CGridHeader::GetDefaultSortType(int nCol) const
{
    short nClass = GetColSortType(nCol);
    return nClass < 0 ? -1 : static_cast<short>(nClass * 2);
}

short CGridHeader::IsValidCurSortType(int nCol, short nType) const
{
    short nAscending = GetDefaultSortType(nCol);
    return nAscending >= 0 && (nType == nAscending || nType == nAscending + 1) ? nType : -1;
}

BOOL CGridHeader::GetCurSortType(int nCol, short& nType, int& nPriority) const
{
    nType = kNoSort;
    nPriority = -1;
    if (!IsItem(nCol))
        return FALSE;
    nType = GetHdrItem(nCol).nCurSortType;
    nPriority = GetHdrItem(nCol).nSortPriority;
    return TRUE;
}

BOOL CGridHeader::SetCurSortType(int nCol, short nType)
{
    if (nType != kNoSort && IsValidCurSortType(nCol, nType) < 0)
        return FALSE;
    for (int i = 0; i < GetItemCount(); ++i)
    {
        HdrItem& item = m_arItems[static_cast<size_t>(i)];
        item.nSortPriority = -1;
        if ((i != nCol || nType == kNoSort) && item.nCurSortType != kNoSort)
        {
            item.nCurSortType = kNoSort;
            RefreshItem(i);
        }
    }
    if (nType != kNoSort)
    {
        GetHdrItem(nCol).nCurSortType = nType;
        RefreshItem(nCol);
    }
    return TRUE;
}

bool CGridHeader::IsShownSort(const HdrItem& item) const
{
    return item.nCurSortType >= 0 && item.nCurSortType <= 5 &&
           (item.nSortPriority == -1 || (item.nSortPriority >= 1 && item.nSortPriority <= GetItemCount()));
}

void CGridHeader::ClearSortState()
{
    for (HdrItem& item : m_arItems)
    {
        item.nCurSortType = kNoSort;
        item.nSortPriority = -1;
    }
}

BOOL CGridHeader::SetCurSortTypes(int* pCols, short* pTypes, int nCount)
{
    if (pCols == NULL)
    {
        if (pTypes != NULL || nCount != 0)
            return FALSE;
        ClearSortState();
    }
    else
    {
        if (pTypes == NULL || nCount < 2 || nCount > GetItemCount())
            return FALSE;
        for (int i = 0; i < nCount; ++i)
            if (IsValidCurSortType(pCols[i], pTypes[i]) < 0)
                return FALSE;
        ClearSortState();
        for (int i = 0; i < nCount; ++i)
        {
            HdrItem& item = GetHdrItem(pCols[i]);
            item.nCurSortType = pTypes[i];
            item.nSortPriority = i + 1;
        }
    }
    if (m_hWnd != NULL)
        RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    return TRUE;
}

BOOL CGridHeader::SetCurSortTypes(GridSortCol* pKeys, int nCount)
{
    if (pKeys == NULL || nCount <= 0)
        return SetCurSortTypes(static_cast<int*>(NULL), NULL, 0);
    if (nCount == 1)
        return SetCurSortType(pKeys[0].nCol, pKeys[0].nSortType);
    std::vector<int> cols(static_cast<size_t>(nCount));
    std::vector<short> types(static_cast<size_t>(nCount));
    for (size_t i = 0; i < cols.size(); ++i)
    {
        cols[i] = pKeys[i].nCol;
        types[i] = pKeys[i].nSortType;
    }
    return SetCurSortTypes(cols.data(), types.data(), nCount);
}

void CGridHeader::GetCurSortTypes(CArray<int, int>& cols, CArray<short, short>& types, CArray<int, int>& priorities)
{
    cols.RemoveAll();
    types.RemoveAll();
    priorities.RemoveAll();
    const int nCount = GetItemCount();
    int nCollected = 0;
    int nHighest = 0;
    for (int i = 0; i < nCount; ++i)
    {
        const HdrItem& item = m_arItems[static_cast<size_t>(i)];
        const int nPriority = item.nSortPriority;
        if (!IsShownSort(item))
            continue;
        if (nPriority == -1)
        {
            // A single-column sort: it stands alone, or the keys found so far stand without it.
            if (nCollected == 0)
            {
                cols.Add(i);
                types.Add(item.nCurSortType);
                priorities.Add(-1);
            }
            return;
        }
        cols.SetAtGrow(nPriority - 1, i);
        types.SetAtGrow(nPriority - 1, item.nCurSortType);
        priorities.SetAtGrow(nPriority - 1, nPriority);
        ++nCollected;
        nHighest = std::max(nHighest, nPriority);
    }
    if (nCollected == 0)
        return;
    bool bConsistent = nHighest >= 2 && nHighest <= nCount && nCollected == nHighest && cols.GetSize() == nHighest;
    for (INT_PTR i = 0; bConsistent && i < priorities.GetSize(); ++i)
        bConsistent = priorities[i] >= 1 && priorities[i] <= nHighest;
    if (!bConsistent)
    {
        cols.RemoveAll();
        types.RemoveAll();
        priorities.RemoveAll();
        SetCurSortTypes(static_cast<int*>(NULL), NULL, 0);
    }
}
