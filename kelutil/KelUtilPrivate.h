// Helpers shared by the sources of KEL_Util; not part of its interface.
#pragma once

#include "kelutil/KEL_Util.h"

// The library's module handle, set at process attach.
extern HINSTANCE g_hKelUtilInstance;

// Registers "TimeClass" and "MsTimeClass" under hInstance unless they already are; TRUE when
// both are registered afterwards.
BOOL KelRegisterTimeClasses(HINSTANCE hInstance);
void KelUnregisterTimeClasses(HINSTANCE hInstance);

// Fills the rectangle with a solid colour without creating a brush.
inline void KelFillSolidRect(HDC hdc, const RECT& rect, COLORREF color)
{
    SetBkColor(hdc, color);
    ExtTextOutA(hdc, 0, 0, ETO_OPAQUE, &rect, NULL, 0, NULL);
}

// Sends the parent the WM_COMMAND notification nCode from hWnd.
inline void KelNotifyParent(HWND hWnd, UINT nCode)
{
    SendMessageA(GetParent(hWnd), WM_COMMAND,
                 MAKEWPARAM(GetDlgCtrlID(hWnd), nCode), reinterpret_cast<LPARAM>(hWnd));
}
