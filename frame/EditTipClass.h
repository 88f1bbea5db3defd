// The process-wide "edit" override inside the library: every edit control created in the
// process gets a tooltip that shows its whole text when the text does not fit.
#pragma once

#include <afxwin.h>

// Registers the global class "edit" under the library's instance, over the system's.
BOOL RegisterEditTipClass(HINSTANCE hInstance);
LRESULT CALLBACK EditTipWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
