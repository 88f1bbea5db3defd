// Hidden dialogs from templates in memory, so that tests reach the subclassing and data exchange
// paths of a real dialog.
#pragma once

#include <afxwin.h>

#include <initializer_list>
#include <vector>

struct CDialogItem
{
    WORD wClass; // 0x80 button, 0x81 edit, 0x82 static, 0x85 combo box
    WORD nID;
    DWORD dwStyle; // WS_CHILD | WS_VISIBLE are added
    WORD y, cy;
    const char* pszText;
};

// A 200 by 150 dialog of the items, each 80 wide at x 10.
inline std::vector<WORD> DialogTemplate(std::initializer_list<CDialogItem> items)
{
    const DWORD dwDlgStyle = WS_POPUP | DS_MODALFRAME;
    std::vector<WORD> words = {LOWORD(dwDlgStyle), HIWORD(dwDlgStyle), 0, 0, static_cast<WORD>(items.size()),
                               0, 0, 200, 150, 0, 0, 0};
    for (const CDialogItem& item : items)
    {
        if (words.size() % 2 != 0) // items start on a DWORD
            words.push_back(0);
        const DWORD dwStyle = item.dwStyle | WS_CHILD | WS_VISIBLE;
        // Style, extended style, x, y, cx, cy, id, the class, the text, no creation data.
        words.insert(words.end(), {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 10, item.y, 80, item.cy, item.nID, 0xFFFF,
                                   item.wClass});
        for (const char* p = item.pszText; *p != '\0'; ++p)
            words.push_back(static_cast<BYTE>(*p));
        words.insert(words.end(), {0, 0});
    }
    return words;
}
