// The process-wide "edit" override inside the library: every edit control created in the
// process gets a tooltip that shows its whole text when the text does not fit.
#pragma once

#include <afxwin.h>

// Registers the global class "edit" under the library's instance, over the system's.
BOOL RegisterEditTipClass(HINSTANCE hInstance);
// Takes the override away again, so that edits created afterwards are the system's. Fails
// while edits created with the override are still alive: the class cannot go before them.
BOOL UnregisterEditTipClass(HINSTANCE hInstance);
LRESULT CALLBACK EditTipWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
