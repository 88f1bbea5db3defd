#include "frame/EditTipClass.h"

#include "frame/EditTip.h"
#include "frame/KelControlsFrame.h"

#include <string.h>

namespace
{
WNDCLASSEXA s_standardEdit; // the system's class that the override replaced; cbSize 0 while none
WNDPROC s_pfnStandardEdit = NULL;
int s_nTipOffset = 0; // the system edit's extra bytes; the tooltip handle follows them
char s_szTipText[260];

#ifndef _WIN64
static_assert(sizeof(HWND) == 4, "the tooltip handle takes four extra bytes on Win32");
#endif

HWND GetTip(HWND hWnd)
{
    return reinterpret_cast<HWND>(::GetWindowLongPtrA(hWnd, s_nTipOffset));
}

HWND CreateTip(HWND hWndEdit)
{
    HINSTANCE hInstance = CKelControlsModule::GetInstanceHandle();
    RECT rect;
    ::GetWindowRect(hWndEdit, &rect);
    HWND hTip = ::CreateWindowExA(0, TOOLTIPS_CLASSA, NULL, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, rect.left,
                                  rect.top, rect.right - rect.left, rect.bottom - rect.top, hWndEdit, NULL,
                                  hInstance, NULL);
    if (hTip == NULL)
        return NULL;
    TOOLINFOA info;
    memset(&info, 0, sizeof(info));
    info.cbSize = TTTOOLINFOA_V2_SIZE;
    // The edit relays its mouse messages itself: letting the tooltip subclass it puts a dear
    // detour (tens of microseconds under Wine) in front of every message the edit receives.
    info.uFlags = TTF_IDISHWND | TTF_CENTERTIP;
    info.hwnd = hWndEdit;
    info.uId = reinterpret_cast<UINT_PTR>(hWndEdit);
    info.rect = rect;
    info.hinst = hInstance;
    info.lpszText = LPSTR_TEXTCALLBACKA;
    ::SendMessageA(hTip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&info));
    ::SendMessageA(hTip, TTM_ACTIVATE, TRUE, 0);
    return hTip;
}

void AnswerDispInfo(HWND hWndEdit, NMTTDISPINFOA* pInfo)
{
    if (EditTextFits(hWndEdit))
        s_szTipText[0] = '\0'; // nothing to show
    else
        ::GetWindowTextA(hWndEdit, s_szTipText, sizeof(s_szTipText));
    pInfo->hinst = NULL;
    pInfo->lpszText = s_szTipText;
}
} // namespace

LRESULT CALLBACK EditTipWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    switch (nMsg)
    {
    case WM_CREATE:
        ::SetWindowLongPtrA(hWnd, s_nTipOffset, reinterpret_cast<LONG_PTR>(CreateTip(hWnd)));
        break;
    case WM_DESTROY:
    {
        HWND hTip = GetTip(hWnd);
        if (::IsWindow(hTip))
            ::DestroyWindow(hTip);
        break;
    }
    case WM_NOTIFY:
    {
        NMHDR* pHdr = reinterpret_cast<NMHDR*>(lParam);
        if (pHdr != NULL && pHdr->hwndFrom == GetTip(hWnd) && pHdr->code == TTN_GETDISPINFOA)
            AnswerDispInfo(hWnd, reinterpret_cast<NMTTDISPINFOA*>(lParam));
        break;
    }
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    {
        MSG msg = {hWnd, nMsg, wParam, lParam, static_cast<DWORD>(::GetMessageTime()), {0, 0}};
        ::GetCursorPos(&msg.pt);
        ::SendMessageA(GetTip(hWnd), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&msg));
        break;
    }
    default:
        break;
    }
    return ::CallWindowProcA(s_pfnStandardEdit, hWnd, nMsg, wParam, lParam);
}

BOOL RegisterEditTipClass(HINSTANCE hInstance)
{
    WNDCLASSEXA wc;
    memset(&wc, 0, sizeof(wc));
    wc.cbSize = sizeof(wc);
    if (!::GetClassInfoExA(NULL, "edit", &wc))
        return FALSE;
    s_pfnStandardEdit = wc.lpfnWndProc;
    s_nTipOffset = wc.cbWndExtra;
    // Where the system's "edit" is itself a global class of the process (as under Wine), no
    // second one can be registered: the override takes its place instead of standing before it.
    ::UnregisterClassA("edit", hInstance);
    WNDCLASSEXA standard = wc;
    wc.lpfnWndProc = EditTipWndProc;
    wc.cbWndExtra += sizeof(HWND);
    wc.style |= CS_GLOBALCLASS;
    wc.hInstance = hInstance;
    wc.lpszClassName = "edit";
    if (!::RegisterClassExA(&wc))
        return FALSE;
    s_standardEdit = standard;
    return TRUE;
}

BOOL UnregisterEditTipClass(HINSTANCE hInstance)
{
    if (s_standardEdit.cbSize == 0 || !::UnregisterClassA("edit", hInstance))
        return FALSE;
    WNDCLASSEXA wc;
    memset(&wc, 0, sizeof(wc));
    wc.cbSize = sizeof(wc);
    if (::GetClassInfoExA(NULL, "edit", &wc))
        return TRUE; // the system's class stood behind the override all along
    // The override had taken the system's place: put the system's class back, under the
    // program's instance, which outlives this library.
    s_standardEdit.style |= CS_GLOBALCLASS;
    s_standardEdit.hInstance = ::GetModuleHandleA(NULL);
    s_standardEdit.lpszClassName = "edit";
    return ::RegisterClassExA(&s_standardEdit) != 0;
}
