// The event list: a companion listing window whose entries can be dragged within the list and
// between event lists (moved, or copied while Ctrl is held), with the companion's list-box
// messages. Its block extends the companion's listing block.
#pragma once

#include <afxwin.h>

#include "kelutil/KEL_Util.h"

#define EVENT_LIST_CLASS "EVENT_LST_WND_CLASS"
// The child that the event list subclasses when the listing has one.
#define EVENT_LIST_CHILD_ID 101
// WM_COMMAND notification to the parent of the list that received a dropped entry; the
// entry's text is available through GetDragDropEntry.
#define ELN_DROPPED 0x0100

// The event list's block: the companion's listing block, the marker by which an extended block
// is recognised, and the drag state. On Win32 it is 1780 bytes with the marker at word 433.
struct EVENT_LIST_BLOCK
{
    KEL_LISTING_BLOCK listing;
    DWORD dwMarker; // EVENT_LIST_BLOCK_SIZE
    LONG nDragIndex; // the entry under the button, -1 for none
    LONG bDragging;
    POINT ptDragStart;
    WNDPROC pfnChildProc; // the previous procedure of child 101
    BYTE reserved[24];
};
#define EVENT_LIST_BLOCK_SIZE ((DWORD)sizeof(EVENT_LIST_BLOCK))
#ifndef _WIN64
static_assert(sizeof(EVENT_LIST_BLOCK) == 1780, "the extended block is 1780 bytes on Win32");
static_assert(offsetof(EVENT_LIST_BLOCK, dwMarker) == 433 * 4, "the marker is word 433");
#endif

AFX_EXT_API LRESULT CALLBACK EventListWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);

extern "C" {
// The text of the entry being dragged, or of the last one dropped, cut to nMaxChars - 1
// characters; its length, or -1 when there has been none (or for a null buffer).
AFX_EXT_API int GetDragDropEntry(char* pszText, int nMaxChars);
// The event list that the entry was dragged from, null when none.
AFX_EXT_API HWND GetDragDropSource();
}
