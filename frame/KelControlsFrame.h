// The library frame: what a host calls to hook KelControls into its resource chain and to
// register the event-list window class, and the resource-string helpers.
//
// Every function here has C linkage. The library attaches itself when loaded: it joins the
// host's resource chain and registers a process-wide "edit" class that gives every edit
// control a tooltip with its full text when the text does not fit. A host that frees the
// library again (FreeLibrary) gets the system's edit back and loses the event-list class and
// every link to the library; it destroys the edits and event lists it created meanwhile
// first, as for any window whose procedure lives in a library.
#pragma once

#include <afxwin.h>

// The record a host passes to InitKelControlsInterface. On Win32 it is four 32-bit words; the
// cursor handles are pointer-sized on Win64.
struct KelControlsInit
{
    HCURSOR hDragCursor;    // shown by the event list while an entry is dragged
    HCURSOR hAltDragCursor; // shown instead while the entry is copied (Ctrl held)
    DWORD_PTR dwReserved;   // not read by the library
    DWORD_PTR dwDebug;      // nonzero when the calling module is a debug build
};
#ifndef _WIN64
static_assert(sizeof(KelControlsInit) == 16, "four 32-bit words on Win32");
#endif

extern "C" {
// Warns a debug caller, stores the two drag cursors and registers "EVENT_LST_WND_CLASS";
// nonzero when the class is (or already was) registered.
AFX_EXT_API int InitKelControlsInterface(DWORD dwUnused, const KelControlsInit* pInit);
// A new link to the library's resources for a host module's own chain. The caller owns it
// while the library is loaded; freeing the library deletes it with the library's own link.
AFX_EXT_API CDynLinkLibrary* LinkNewDynLinkLibraryToKelControls(int nDebug);
// The string in one shared 1024-character buffer, valid until the next call; empty when the
// resource does not exist.
AFX_EXT_API char* LoadBufferedResourceStringEx(UINT nID, HINSTANCE hModule);
// A copy of the string from the C heap (the caller frees it with free) in *ppszString, and
// its length.
AFX_EXT_API int LoadResourceStringEx(UINT nID, char** ppszString, HINSTANCE hModule);
// A message box with texts from string resources; the box's result.
AFX_EXT_API int StringResourceMessageBoxEx(HWND hWndOwner, UINT nTextID, UINT nCaptionID, UINT nType,
                                           HINSTANCE hModule);
}

// Process-wide state of the library, for the controls and for tests.
class AFX_EXT_CLASS CKelControlsModule
{
public:
    // The library's module handle: the instance of its window classes and inner windows.
    static HINSTANCE GetInstanceHandle();
    // dwPlatformId of the running system, or -1 when the version query failed.
    static LONG GetPlatformId();
    static HCURSOR GetDragCursor();
    static HCURSOR GetAltDragCursor();
};
