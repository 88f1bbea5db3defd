#include "listings/ListContent.h"

#include "frame/EventList.h"
#include "grid/GridItemData.h"
#include "listings/ListFunctions.h"

#include <algorithm>
#include <numeric>

namespace
{

typedef int (*PFNCOMPARE)(const void*, const void*, void*);
// The grid's comparators by sort type.
const PFNCOMPARE s_apfnCompare[] = {
    CGridList::CompareTextAscending,    CGridList::CompareTextDescending, CGridList::CompareNumbersAscending,
    CGridList::CompareNumbersDescending, CGridList::CompareTimeAscending, CGridList::CompareTimeDescending,
};

// The grid's comparators see nothing but row records: each entry's text becomes the only cell
// of a record of its own, its text in a text pool as the grid keeps it.
class CSortRecords
{
public:
    // FALSE when out of memory.
    BOOL Fill(const std::vector<CListContent::CEntry>& entries)
    {
        size_t nCount = entries.size();
        m_slots.resize(nCount);
        m_records.resize(nCount);
        m_pointers.resize(nCount);
        for (size_t i = 0; i < nCount; ++i)
        {
            // A cell holds at most 65,535 characters; a longer text is sorted by its beginning.
            UINT nLength = static_cast<UINT>(std::min(entries[i].m_strText.GetLength(), 65535));
            UINT nOffset = 0;
            if (!m_pool.Alloc(nLength + 1, nOffset))
                return FALSE;
            char* pText = CGridList::CTextPool::GetAt(nOffset);
            memcpy(pText, static_cast<LPCTSTR>(entries[i].m_strText), nLength);
            pText[nLength] = '\0';
            m_slots[i] = CGridList::CItemData::CTextSlot{nLength + 1, nOffset};
            m_records[i].m_pTexts = &m_slots[i];
            m_pointers[i] = &m_records[i];
        }
        return TRUE;
    }

    // The entries' indices in their new order; equal entries keep theirs.
    std::vector<size_t> Sort(int nType)
    {
        std::vector<size_t> order(m_pointers.size());
        std::iota(order.begin(), order.end(), size_t(0));
        PFNCOMPARE pfnCompare = s_apfnCompare[nType];
        CGridList::CSortContext context = {NULL, 0}; // column 0 alone
        std::stable_sort(order.begin(), order.end(), [&](size_t i1, size_t i2) {
            return pfnCompare(&m_pointers[i1], &m_pointers[i2], &context) < 0;
        });
        return order;
    }

private:
    CGridList::CTextPool m_pool;
    std::vector<CGridList::CItemData::CTextSlot> m_slots;
    std::vector<CGridList::CItemData> m_records;
    std::vector<CGridList::CItemData*> m_pointers;
};

int SendInt(HWND hWnd, UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return static_cast<int>(::SendMessageA(hWnd, nMsg, wParam, lParam));
}
} // namespace

bool CListContent::IsListing(HWND hWnd)
{
    char szClass[32];
    return ::GetClassNameA(hWnd, szClass, sizeof(szClass)) > 0 && lstrcmpiA(szClass, EVENT_LIST_CLASS) == 0;
}

bool CListContent::IsMultipleSel() const
{
    return !m_bListing && (::GetWindowLongA(m_hList, GWL_STYLE) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

BOOL CListContent::Read(HWND hList)
{
    m_entries.clear();
    if (!::IsWindow(hList))
        return FALSE;
    m_hList = hList;
    m_bListing = IsListing(hList);
    int nCount = SendInt(hList, LB_GETCOUNT);
    if (nCount < 0)
        return FALSE;
    m_entries.resize(static_cast<size_t>(nCount));
    for (int i = 0; i < nCount; ++i)
    {
        CEntry& entry = m_entries[static_cast<size_t>(i)];
        int nLength = SendInt(hList, LB_GETTEXTLEN, i);
        if (nLength > 0)
        {
            LPTSTR pBuffer = entry.m_strText.GetBuffer(nLength + 1);
            pBuffer[0] = '\0';
            if (m_bListing)
                ListingOnGetText(hList, i, pBuffer);
            else
                ::SendMessageA(hList, LB_GETTEXT, i, reinterpret_cast<LPARAM>(pBuffer));
            entry.m_strText.ReleaseBuffer();
        }
        // A list that does not know the message leaves the colours as they were: none.
        entry.m_colors = KEL_LISTING_COLORS{KEL_NO_COLOR, KEL_NO_COLOR};
        ::SendMessageA(hList, KLM_GETITEMCOLORS, i, reinterpret_cast<LPARAM>(&entry.m_colors));
        entry.m_dwData = m_bListing ? 0 : static_cast<DWORD_PTR>(::SendMessageA(hList, LB_GETITEMDATA, i, 0));
        entry.m_bSelected = false;
    }
    if (IsMultipleSel())
    {
        std::vector<int> selected(m_entries.size());
        int nSelected = selected.empty() ? 0
                                         : SendInt(hList, LB_GETSELITEMS, selected.size(),
                                                   reinterpret_cast<LPARAM>(selected.data()));
        for (int i = 0; i < nSelected; ++i)
            if (selected[static_cast<size_t>(i)] >= 0 && selected[static_cast<size_t>(i)] < nCount)
                m_entries[static_cast<size_t>(selected[static_cast<size_t>(i)])].m_bSelected = true;
    }
    else
    {
        int nSel = SendInt(hList, LB_GETCURSEL);
        if (nSel >= 0 && nSel < nCount)
            m_entries[static_cast<size_t>(nSel)].m_bSelected = true;
    }
    return TRUE;
}

std::vector<const CListContent::CEntry*> CListContent::GetEntries(bool bSelectedOnly) const
{
    std::vector<const CEntry*> entries;
    for (const CEntry& entry : m_entries)
        if (!bSelectedOnly || entry.m_bSelected)
            entries.push_back(&entry);
    return entries;
}

BOOL CListContent::Sort(HWND hList, int nType)
{
    if (nType < 0 || nType > 5 || !::IsWindow(hList))
        return FALSE;
    if (!IsListing(hList))
    {
        LONG nStyle = ::GetWindowLongA(hList, GWL_STYLE);
        if ((nStyle & LBS_SORT) != 0 ||
            ((nStyle & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE)) != 0 && (nStyle & LBS_HASSTRINGS) == 0))
            return FALSE;
    }
    CListContent content;
    CSortRecords records;
    if (!content.Read(hList) || !records.Fill(content.m_entries))
        return FALSE;
    content.WriteBack(records.Sort(nType));
    return TRUE;
}

void CListContent::WriteBack(const std::vector<size_t>& order) const
{
    int nTop = SendInt(m_hList, LB_GETTOPINDEX);
    ::SendMessageA(m_hList, WM_SETREDRAW, FALSE, 0);
    if (m_bListing)
    {
        ListingOnResetContent(m_hList);
    }
    else
    {
        // A list box tells its owner of every removed entry with data, and an owner may free
        // what the data points to: the data is taken away first and given back below.
        for (size_t i = 0; i < m_entries.size(); ++i)
            ::SendMessageA(m_hList, LB_SETITEMDATA, i, 0);
        ::SendMessageA(m_hList, LB_RESETCONTENT, 0, 0);
        size_t nBytes = 0;
        for (const CEntry& entry : m_entries)
            nBytes += static_cast<size_t>(entry.m_strText.GetLength()) + 1;
        ::SendMessageA(m_hList, LB_INITSTORAGE, m_entries.size(), static_cast<LPARAM>(nBytes));
    }
    bool bMultipleSel = IsMultipleSel();
    for (size_t i : order)
    {
        const CEntry& entry = m_entries[i];
        int nIndex;
        if (m_bListing)
        {
            nIndex = static_cast<int>(ListingOnAddString(m_hList, entry.m_strText));
            if (nIndex >= 0)
                ::SendMessageA(m_hList, KLM_SETITEMCOLORS, nIndex, reinterpret_cast<LPARAM>(&entry.m_colors));
        }
        else
        {
            nIndex = SendInt(m_hList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(static_cast<LPCTSTR>(entry.m_strText)));
            if (nIndex >= 0)
                ::SendMessageA(m_hList, LB_SETITEMDATA, nIndex, static_cast<LPARAM>(entry.m_dwData));
        }
        if (nIndex >= 0 && entry.m_bSelected)
        {
            if (bMultipleSel)
                ::SendMessageA(m_hList, LB_SETSEL, TRUE, nIndex);
            else
                ::SendMessageA(m_hList, LB_SETCURSEL, nIndex, 0);
        }
    }
    int nCount = SendInt(m_hList, LB_GETCOUNT);
    if (nCount > 0)
        ::SendMessageA(m_hList, LB_SETTOPINDEX, std::min(std::max(nTop, 0), nCount - 1), 0);
    ::SendMessageA(m_hList, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(m_hList, NULL, TRUE);
}
