#include "tests/frame/EditTipProbe.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace
{
struct CTipSearch
{
    HWND hWndEdit;
    HWND hTip;
};

BOOL CALLBACK FindTipProc(HWND hWnd, LPARAM lParam)
{
    CTipSearch* pSearch = reinterpret_cast<CTipSearch*>(lParam);
    char szClass[64];
    ::GetClassNameA(hWnd, szClass, sizeof(szClass));
    TOOLINFOA info = {};
    info.cbSize = TTTOOLINFOA_V2_SIZE;
    if (lstrcmpiA(szClass, TOOLTIPS_CLASSA) == 0 &&
        ::SendMessageA(hWnd, TTM_ENUMTOOLSA, 0, reinterpret_cast<LPARAM>(&info)) && info.hwnd == pSearch->hWndEdit)
        pSearch->hTip = hWnd;
    return pSearch->hTip == NULL;
}
} // namespace

HWND CEditTipProbe::FindTip(HWND hWndEdit)
{
    CTipSearch search = {hWndEdit, NULL};
    ::EnumThreadWindows(::GetCurrentThreadId(), FindTipProc, reinterpret_cast<LPARAM>(&search));
    return search.hTip;
}

std::string CEditTipProbe::AskText(HWND hWndEdit)
{
    NMTTDISPINFOA info = {};
    info.hdr.hwndFrom = FindTip(hWndEdit);
    if (info.hdr.hwndFrom == NULL)
        return "(no tip)";
    info.hdr.code = TTN_GETDISPINFOA;
    info.hinst = reinterpret_cast<HINSTANCE>(1);
    ::SendMessageA(hWndEdit, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(nullptr, info.hinst); // the text is the library's buffer, not a resource
    return info.lpszText != NULL ? info.lpszText : "(null)";
}
