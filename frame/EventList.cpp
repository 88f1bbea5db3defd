#include "frame/EventList.h"

#include <stdlib.h>
#include <string.h>

#include "frame/KelControlsFrame.h"

namespace
{
// The shouting capitals are the text hosts' users know; kept as they stand.
const char kWrongVersion[] = "WRONG VERSION OF KEL_UTIL.DLL, CONTACT YOUR SYSTEM ADMIN FOR AN UPDATED VERSION!";

// There is one mouse: the drag in progress, or the last drop, is shared by every event list.
char s_szDragText[1024];
int s_nDragLength = -1;
KEL_LISTING_COLORS s_dragColors;
HWND s_hDragSource = NULL;

EVENT_LIST_BLOCK* GetBlock(HWND hWnd)
{
    EVENT_LIST_BLOCK* pBlock = reinterpret_cast<EVENT_LIST_BLOCK*>(::GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    return pBlock != NULL && pBlock->dwMarker == EVENT_LIST_BLOCK_SIZE ? pBlock : NULL;
}

bool IsEventList(HWND hWnd)
{
    char szClass[32];
    return ::GetClassNameA(hWnd, szClass, sizeof(szClass)) > 0 && lstrcmpiA(szClass, EVENT_LIST_CLASS) == 0;
}

// The entry under a client point, or the count (one past the last) below the entries.
int IndexFromPoint(HWND hWnd, int y)
{
    int nCount = static_cast<int>(::SendMessageA(hWnd, LB_GETCOUNT, 0, 0));
    int nHeight = static_cast<int>(::SendMessageA(hWnd, LB_GETITEMHEIGHT, 0, 0));
    if (y < 0)
        return 0;
    if (nCount <= 0 || nHeight <= 0)
        return nCount;
    int nIndex = static_cast<int>(::SendMessageA(hWnd, LB_GETTOPINDEX, 0, 0)) + y / nHeight;
    return nIndex < nCount ? nIndex : nCount;
}

LRESULT CALLBACK EventListChildProc(HWND hChild, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    HGLOBAL hBlock = reinterpret_cast<HGLOBAL>(::GetWindowLongPtrA(hChild, GWLP_USERDATA));
    EVENT_LIST_BLOCK* pBlock = static_cast<EVENT_LIST_BLOCK*>(::GlobalLock(hBlock));
    WNDPROC pfnPrevious = pBlock != NULL ? pBlock->pfnChildProc : NULL;
    ::GlobalUnlock(hBlock);
    // The list drags its entries even when the mouse is over the child.
    if (nMsg == WM_LBUTTONDOWN || nMsg == WM_MOUSEMOVE || nMsg == WM_LBUTTONUP)
    {
        POINT pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        HWND hParent = ::GetParent(hChild);
        ::MapWindowPoints(hChild, hParent, &pt, 1);
        ::SendMessageA(hParent, nMsg, wParam, MAKELPARAM(pt.x, pt.y));
    }
    return pfnPrevious != NULL ? ::CallWindowProcA(pfnPrevious, hChild, nMsg, wParam, lParam)
                               : ::DefWindowProcA(hChild, nMsg, wParam, lParam);
}

// The companion's block is copied into a larger block of ours, which then replaces it.
LRESULT OnCreate(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    if (WndListingProc(hWnd, WM_CREATE, wParam, lParam) == -1)
        return -1;
    KEL_LISTING_BLOCK* pCompanion = reinterpret_cast<KEL_LISTING_BLOCK*>(::GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    if (pCompanion == NULL)
        return -1;
    HGLOBAL hBlock = ::GlobalAlloc(0, EVENT_LIST_BLOCK_SIZE);
    if (hBlock == NULL)
        return -1;
    EVENT_LIST_BLOCK* pBlock = static_cast<EVENT_LIST_BLOCK*>(::GlobalLock(hBlock));
    if (pBlock == NULL)
    {
        ::GlobalFree(hBlock);
        return -1;
    }
    ::SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pBlock));
    memset(pBlock, 0, EVENT_LIST_BLOCK_SIZE);
    pBlock->dwMarker = EVENT_LIST_BLOCK_SIZE;
    memcpy(&pBlock->listing, pCompanion, KEL_LISTING_BLOCK_SIZE);
    pBlock->listing.hBlock = hBlock;
    pBlock->nDragIndex = -1;

    if (pCompanion->cbSize != KEL_LISTING_BLOCK_SIZE)
    {
        ::MessageBoxA(NULL, kWrongVersion, "ERROR", MB_ICONHAND);
        ::ExitProcess(static_cast<UINT>(-1));
    }
    HGLOBAL hCompanion = pCompanion->hBlock;
    ::GlobalUnlock(hCompanion);
    ::GlobalFree(hCompanion);

    HWND hChild = ::GetDlgItem(hWnd, EVENT_LIST_CHILD_ID);
    if (hChild != NULL)
    {
        pBlock->pfnChildProc = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(hChild, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EventListChildProc)));
        ::SetWindowLongPtrA(hChild, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(hBlock));
    }
    return 0;
}

void CancelDrag(HWND hWnd, EVENT_LIST_BLOCK* pBlock)
{
    pBlock->nDragIndex = -1;
    if (pBlock->bDragging)
    {
        pBlock->bDragging = FALSE;
        if (::GetCapture() == hWnd)
            ::ReleaseCapture();
    }
}

void StartDrag(HWND hWnd, EVENT_LIST_BLOCK* pBlock)
{
    pBlock->bDragging = TRUE;
    s_hDragSource = hWnd;
    s_nDragLength = static_cast<int>(ListingOnGetTextAndColors(hWnd, pBlock->nDragIndex, s_szDragText,
                                                               sizeof(s_szDragText), &s_dragColors.crText,
                                                               &s_dragColors.crBack));
    ::SetCapture(hWnd);
}

// Puts the dragged entry into the target list at the drop index: copied while Ctrl is held,
// otherwise moved (taken out of the source).
void Drop(HWND hSource, EVENT_LIST_BLOCK* pBlock, HWND hTarget, int nTarget, bool bCopy)
{
    int nSource = pBlock->nDragIndex;
    if (!bCopy)
    {
        ListingOnDeleteString(hSource, nSource);
        if (hTarget == hSource && nTarget > nSource)
            --nTarget;
    }
    LRESULT lIndex = ListingOnInsertString(hTarget, nTarget, s_szDragText);
    if (lIndex < 0)
        return;
    ::SendMessageA(hTarget, KLM_SETITEMCOLORS, static_cast<WPARAM>(lIndex), reinterpret_cast<LPARAM>(&s_dragColors));
    ::SendMessageA(hTarget, LB_SETCURSEL, static_cast<WPARAM>(lIndex), 0);
    ::SendMessageA(::GetParent(hTarget), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(hTarget), ELN_DROPPED),
                   reinterpret_cast<LPARAM>(hTarget));
}

void EndDrag(HWND hWnd, EVENT_LIST_BLOCK* pBlock, LPARAM lParam)
{
    POINT pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    bool bCopy = ::GetKeyState(VK_CONTROL) < 0;
    POINT ptScreen = pt;
    ::ClientToScreen(hWnd, &ptScreen);
    HWND hTarget = ::WindowFromPoint(ptScreen);
    while (hTarget != NULL && !IsEventList(hTarget))
        hTarget = ::GetParent(hTarget);
    if (hTarget != NULL)
    {
        POINT ptTarget = ptScreen;
        ::ScreenToClient(hTarget, &ptTarget);
        Drop(hWnd, pBlock, hTarget, IndexFromPoint(hTarget, ptTarget.y), bCopy);
    }
    CancelDrag(hWnd, pBlock);
}

void ShowDragCursor()
{
    HCURSOR hCursor = ::GetKeyState(VK_CONTROL) < 0 ? CKelControlsModule::GetAltDragCursor()
                                                    : CKelControlsModule::GetDragCursor();
    if (hCursor != NULL)
        ::SetCursor(hCursor);
}
} // namespace

LRESULT CALLBACK EventListWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    if (nMsg == WM_CREATE)
        return OnCreate(hWnd, wParam, lParam);
    EVENT_LIST_BLOCK* pBlock = GetBlock(hWnd);
    switch (nMsg)
    {
    case LB_ADDSTRING:
        return ListingOnAddString(hWnd, reinterpret_cast<LPCSTR>(lParam));
    case LB_INSERTSTRING:
        return ListingOnInsertString(hWnd, static_cast<int>(wParam), reinterpret_cast<LPCSTR>(lParam));
    case LB_DELETESTRING:
        return ListingOnDeleteString(hWnd, static_cast<int>(wParam));
    case LB_RESETCONTENT:
        return ListingOnResetContent(hWnd);
    case LB_GETTEXT:
        return ListingOnGetText(hWnd, static_cast<int>(wParam), reinterpret_cast<LPSTR>(lParam));
    case WM_LBUTTONDOWN:
    {
        LRESULT lResult = WndListingProc(hWnd, nMsg, wParam, lParam);
        if (pBlock != NULL)
        {
            int nIndex = IndexFromPoint(hWnd, static_cast<short>(HIWORD(lParam)));
            pBlock->nDragIndex = nIndex < ::SendMessageA(hWnd, LB_GETCOUNT, 0, 0) ? nIndex : -1;
            pBlock->ptDragStart.x = static_cast<short>(LOWORD(lParam));
            pBlock->ptDragStart.y = static_cast<short>(HIWORD(lParam));
        }
        return lResult;
    }
    case WM_MOUSEMOVE:
        if (pBlock != NULL && pBlock->nDragIndex >= 0 && (wParam & MK_LBUTTON))
        {
            int dx = static_cast<short>(LOWORD(lParam)) - pBlock->ptDragStart.x;
            int dy = static_cast<short>(HIWORD(lParam)) - pBlock->ptDragStart.y;
            if (!pBlock->bDragging && (abs(dx) >= ::GetSystemMetrics(SM_CXDRAG) || abs(dy) >= ::GetSystemMetrics(SM_CYDRAG)))
                StartDrag(hWnd, pBlock);
            if (pBlock->bDragging)
            {
                ShowDragCursor();
                return 0;
            }
        }
        break;
    case WM_LBUTTONUP:
        if (pBlock != NULL && pBlock->bDragging)
        {
            EndDrag(hWnd, pBlock, lParam);
            return 0;
        }
        if (pBlock != NULL)
            pBlock->nDragIndex = -1;
        break;
    case WM_SETCURSOR:
        if (pBlock != NULL && pBlock->bDragging)
        {
            ShowDragCursor();
            return TRUE;
        }
        break;
    case WM_CANCELMODE:
    case WM_CAPTURECHANGED:
        if (pBlock != NULL && pBlock->bDragging && (nMsg == WM_CANCELMODE || reinterpret_cast<HWND>(lParam) != hWnd))
            CancelDrag(hWnd, pBlock);
        break;
    default:
        break;
    }
    return WndListingProc(hWnd, nMsg, wParam, lParam);
}

int GetDragDropEntry(char* pszText, int nMaxChars)
{
    if (pszText == NULL || nMaxChars < 1 || s_nDragLength < 0)
        return -1;
    int nLength = s_nDragLength < nMaxChars ? s_nDragLength : nMaxChars - 1;
    memcpy(pszText, s_szDragText, nLength);
    pszText[nLength] = '\0';
    return nLength;
}

HWND GetDragDropSource()
{
    return s_hDragSource;
}
