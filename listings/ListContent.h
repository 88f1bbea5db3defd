// CListContent: a copy of what a list window holds, read in the one way every list function
// shares, and the sort that writes the entries back in a new order. Private to the library.
#pragma once

#include <afxwin.h>

#include "kelutil/KEL_Util.h"

#include <vector>

class CListContent
{
public:
    struct CEntry
    {
        CString m_strText;
        KEL_LISTING_COLORS m_colors; // 0xFFFFFFFF for a colour the entry does not have
        DWORD_PTR m_dwData;          // a list box's item data
        bool m_bSelected;
    };

    // FALSE for no window, or one whose count answers LB_ERR.
    BOOL Read(HWND hList);
    // The entries to print or save: all, or the selected ones.
    std::vector<const CEntry*> GetEntries(bool bSelectedOnly) const;

    // Sorts the list's entries (the sort type of SortList) and puts them back in the new order
    // with their colours, item data and selection, keeping the top index. FALSE when refused:
    // a sorted list box would sort them again, and an owner-drawn one without strings has no
    // texts to sort by.
    static BOOL Sort(HWND hList, int nType);

    // The event list's class, compared without regard to case.
    static bool IsListing(HWND hWnd);

private:
    bool IsMultipleSel() const;
    void WriteBack(const std::vector<size_t>& order) const;

    HWND m_hList = NULL;
    bool m_bListing = false;
    std::vector<CEntry> m_entries;
};
