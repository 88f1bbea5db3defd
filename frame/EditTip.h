// The tooltip that the library gives every edit control of the process: what a host may ask
// of it. The library installs it when loaded and removes it when unloaded.
#pragma once

#include <afxwin.h>

// Whether the edit's text fits: the test the tooltip applies before it shows.
AFX_EXT_API BOOL EditTextFits(HWND hWndEdit);
