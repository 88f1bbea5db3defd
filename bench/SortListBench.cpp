#include "bench/ControlsBench.h"

#include "listings/ListFunctions.h"

#include <cstdio>
#include <cstring>

namespace
{
const int ENTRIES = 50000;
const int RUNS = 7;

// "Cue 00017 level 42" and so on, in a scrambled order that every run repeats.
void Fill(HWND hList)
{
    ::SendMessageA(hList, WM_SETREDRAW, FALSE, 0);
    ::SendMessageA(hList, LB_RESETCONTENT, 0, 0);
    ::SendMessageA(hList, LB_INITSTORAGE, ENTRIES, 20 * ENTRIES);
    char szText[32];
    for (int i = 0; i < ENTRIES; ++i)
    {
        unsigned nCue = static_cast<unsigned>(i) * 7919u % ENTRIES;
        snprintf(szText, sizeof(szText), "Cue %05u level %u", nCue, nCue % 101);
        ::SendMessageA(hList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(szText));
    }
    ::SendMessageA(hList, WM_SETREDRAW, TRUE, 0);
}

bool IsSorted(HWND hList)
{
    char szFirst[32], szLast[32];
    ::SendMessageA(hList, LB_GETTEXT, 0, reinterpret_cast<LPARAM>(szFirst));
    ::SendMessageA(hList, LB_GETTEXT, ENTRIES - 1, reinterpret_cast<LPARAM>(szLast));
    return ::SendMessageA(hList, LB_GETCOUNT, 0, 0) == ENTRIES && strcmp(szFirst, "Cue 00000 level 0") == 0 &&
           strcmp(szLast, "Cue 49999 level 4") == 0;
}
} // namespace

double ControlsBench::SortListMs()
{
    HWND hParent = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 20, 20, 300, 300, NULL, NULL, NULL, NULL);
    HWND hList = ::CreateWindowExA(0, "LISTBOX", "", WS_CHILD | WS_VISIBLE | WS_VSCROLL, 0, 0, 300, 300, hParent,
                                   NULL, NULL, NULL);
    ::ShowWindow(hParent, SW_SHOWNOACTIVATE);
    std::vector<double> times;
    for (int nRun = 0; nRun < RUNS && hList != NULL; ++nRun)
    {
        Fill(hList);
        double dStart = NowMs();
        int nResult = SortList(hList, 0);
        times.push_back(NowMs() - dStart);
        if (nResult != 1 || !IsSorted(hList))
        {
            fprintf(stderr, "sortlist: the list was not sorted\n");
            ::DestroyWindow(hParent);
            return -1.0;
        }
    }
    ::DestroyWindow(hParent);
    return Median(times);
}
