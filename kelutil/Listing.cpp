// The listing window: a single-selection list of entries with their own colours.
//
// All state lives in the listing block named by the window's user data. It is fetched afresh at
// every message and never kept between messages, because an extension may replace the block with
// a copy of its own; after a call that lets the parent run (a notification, a focus change) the
// handlers fetch it again or stop.
#include "kelutil/KelUtilPrivate.h"

#include <string.h>

struct KEL_LISTING_ENTRY
{
    COLORREF crText;
    COLORREF crBack;
    LONG nLength;
    char szText[1]; // nLength characters and the terminator
};

namespace
{

// Marks listing windows, so that a handler given some other window never reads its user data.
const char s_szListingProp[] = "KEL_Util.Listing";

const DWORD SEARCH_PAUSE_MS = 1000;
// Doubling beyond it could overflow the slot count or a 32-bit allocation size.
const LONG MAX_CAPACITY = 0x08000000;
const int TEXT_MARGIN = 2;

KEL_LISTING_BLOCK* GetBlock(HWND hWnd)
{
    if (hWnd == NULL || GetPropA(hWnd, s_szListingProp) == NULL)
        return NULL;
    KEL_LISTING_BLOCK* pBlock =
        reinterpret_cast<KEL_LISTING_BLOCK*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    return pBlock != NULL && pBlock->cbSize == KEL_LISTING_BLOCK_SIZE ? pBlock : NULL;
}

bool IsValidIndex(const KEL_LISTING_BLOCK* pBlock, int nIndex)
{
    return nIndex >= 0 && nIndex < pBlock->nCount;
}

bool HasStyle(HWND hWnd, LONG nStyle)
{
    return (GetWindowLongA(hWnd, GWL_STYLE) & nStyle) != 0;
}

// ---- entries --------------------------------------------------------------------------------

KEL_LISTING_ENTRY* NewEntry(LPCSTR lpszText, COLORREF crText, COLORREF crBack)
{
    size_t nLength = strlen(lpszText);
    if (nLength > 0x7FFFFFF0)
        return NULL;
    KEL_LISTING_ENTRY* pEntry = static_cast<KEL_LISTING_ENTRY*>(
        HeapAlloc(GetProcessHeap(), 0, offsetof(KEL_LISTING_ENTRY, szText) + nLength + 1));
    if (pEntry == NULL)
        return NULL;
    pEntry->crText = crText;
    pEntry->crBack = crBack;
    pEntry->nLength = static_cast<LONG>(nLength);
    memcpy(pEntry->szText, lpszText, nLength + 1);
    return pEntry;
}

void FreeEntries(KEL_LISTING_BLOCK* pBlock)
{
    for (LONG i = 0; i < pBlock->nCount; ++i)
        HeapFree(GetProcessHeap(), 0, pBlock->ppEntries[i]);
    pBlock->nCount = 0;
}

bool ReserveSlot(KEL_LISTING_BLOCK* pBlock)
{
    if (pBlock->nCount < pBlock->nCapacity)
        return true;
    if (pBlock->nCapacity >= MAX_CAPACITY)
        return false;
    LONG nCapacity = pBlock->nCapacity > 0 ? pBlock->nCapacity * 2 : 16;
    SIZE_T nBytes = static_cast<SIZE_T>(nCapacity) * sizeof(KEL_LISTING_ENTRY*);
    void* pNew = pBlock->ppEntries != NULL
                     ? HeapReAlloc(GetProcessHeap(), 0, pBlock->ppEntries, nBytes)
                     : HeapAlloc(GetProcessHeap(), 0, nBytes);
    if (pNew == NULL)
        return false;
    pBlock->ppEntries = static_cast<KEL_LISTING_ENTRY**>(pNew);
    pBlock->nCapacity = nCapacity;
    return true;
}

// ---- geometry and scrolling -----------------------------------------------------------------

int GetVisibleRows(HWND hWnd, const KEL_LISTING_BLOCK* pBlock)
{
    RECT rect;
    GetClientRect(hWnd, &rect);
    int nRows = (rect.bottom - rect.top) / pBlock->nItemHeight;
    return nRows > 0 ? nRows : 1;
}

int GetMaxTopIndex(HWND hWnd, const KEL_LISTING_BLOCK* pBlock)
{
    int nMax = pBlock->nCount - GetVisibleRows(hWnd, pBlock);
    return nMax > 0 ? nMax : 0;
}

int MeasureItemHeight(HWND hWnd, HFONT hFont)
{
    HDC hdc = GetDC(hWnd);
    HGDIOBJ hOldFont = hFont != NULL ? SelectObject(hdc, hFont) : NULL;
    TEXTMETRICA tm;
    int nHeight = GetTextMetricsA(hdc, &tm) ? tm.tmHeight : 16;
    if (hOldFont != NULL)
        SelectObject(hdc, hOldFont);
    ReleaseDC(hWnd, hdc);
    return nHeight > 0 ? nHeight : 1;
}

// May re-enter the window procedure (the scroll bar appearing resizes the client area).
void UpdateScrollBar(HWND hWnd)
{
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL || !(pBlock->dwFlags & KEL_LISTING_VSCROLL))
        return;
    SCROLLINFO si;
    si.cbSize = sizeof(si);
    si.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    si.nMin = 0;
    si.nMax = pBlock->nCount > 0 ? pBlock->nCount - 1 : 0;
    si.nPage = static_cast<UINT>(GetVisibleRows(hWnd, pBlock));
    si.nPos = pBlock->nTopIndex;
    SetScrollInfo(hWnd, SB_VERT, &si, TRUE);
}

void SetTopIndex(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nTop)
{
    int nMax = GetMaxTopIndex(hWnd, pBlock);
    if (nTop > nMax)
        nTop = nMax;
    if (nTop < 0)
        nTop = 0;
    if (nTop == pBlock->nTopIndex)
        return;
    pBlock->nTopIndex = nTop;
    InvalidateRect(hWnd, NULL, FALSE);
    UpdateScrollBar(hWnd);
}

// After the entries changed: the top index stays in range, the window and scroll bar follow.
void Refresh(HWND hWnd, KEL_LISTING_BLOCK* pBlock)
{
    int nMax = GetMaxTopIndex(hWnd, pBlock);
    if (pBlock->nTopIndex > nMax)
        pBlock->nTopIndex = nMax;
    InvalidateRect(hWnd, NULL, FALSE);
    UpdateScrollBar(hWnd);
}

void EnsureVisible(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nIndex)
{
    int nRows = GetVisibleRows(hWnd, pBlock);
    if (nIndex < pBlock->nTopIndex)
        SetTopIndex(hWnd, pBlock, nIndex);
    else if (nIndex >= pBlock->nTopIndex + nRows)
        SetTopIndex(hWnd, pBlock, nIndex - nRows + 1);
}

void InvalidateEntry(HWND hWnd, const KEL_LISTING_BLOCK* pBlock, int nIndex)
{
    if (nIndex < pBlock->nTopIndex)
        return;
    RECT rect;
    GetClientRect(hWnd, &rect);
    rect.top = (nIndex - pBlock->nTopIndex) * pBlock->nItemHeight;
    rect.bottom = rect.top + pBlock->nItemHeight;
    InvalidateRect(hWnd, &rect, FALSE);
}

// Selects nIndex (-1 for none) and scrolls it into view; a change made by the user is reported
// to the parent of a window with LBS_NOTIFY. The block must not be used after a notification.
void SetSelection(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nIndex, bool bByUser)
{
    if (nIndex == pBlock->nCurSel)
        return;
    InvalidateEntry(hWnd, pBlock, pBlock->nCurSel);
    pBlock->nCurSel = nIndex;
    InvalidateEntry(hWnd, pBlock, nIndex);
    if (nIndex >= 0)
        EnsureVisible(hWnd, pBlock, nIndex);
    if (bByUser && HasStyle(hWnd, LBS_NOTIFY))
        KelNotifyParent(hWnd, LBN_SELCHANGE);
}

int GetEntryFromPoint(const KEL_LISTING_BLOCK* pBlock, LPARAM lParam)
{
    int y = static_cast<short>(HIWORD(lParam));
    if (y < 0)
        return -1;
    int nIndex = pBlock->nTopIndex + y / pBlock->nItemHeight;
    return IsValidIndex(pBlock, nIndex) ? nIndex : -1;
}

// ---- messages -------------------------------------------------------------------------------

LRESULT OnCreate(HWND hWnd)
{
    HGLOBAL hBlock = GlobalAlloc(GMEM_FIXED | GMEM_ZEROINIT, sizeof(KEL_LISTING_BLOCK));
    KEL_LISTING_BLOCK* pBlock =
        hBlock != NULL ? static_cast<KEL_LISTING_BLOCK*>(GlobalLock(hBlock)) : NULL;
    if (pBlock == NULL || !SetPropA(hWnd, s_szListingProp, reinterpret_cast<HANDLE>(1)))
    {
        if (hBlock != NULL)
            GlobalFree(hBlock);
        return -1;
    }
    pBlock->cbSize = KEL_LISTING_BLOCK_SIZE;
    pBlock->hBlock = hBlock;
    pBlock->hWnd = hWnd;
    pBlock->nItemHeight = MeasureItemHeight(hWnd, NULL);
    pBlock->nCurSel = -1;
    // Taken from the style at creation: hiding the scroll bar clears WS_VSCROLL.
    if (HasStyle(hWnd, WS_VSCROLL))
        pBlock->dwFlags |= KEL_LISTING_VSCROLL;
    pBlock->crDefaultText = GetSysColor(COLOR_WINDOWTEXT);
    pBlock->crDefaultBack = GetSysColor(COLOR_WINDOW);
    pBlock->crSelText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    pBlock->crSelBack = GetSysColor(COLOR_HIGHLIGHT);
    SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pBlock));
    UpdateScrollBar(hWnd);
    return 0;
}

void OnNcDestroy(HWND hWnd)
{
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    RemovePropA(hWnd, s_szListingProp);
    if (pBlock == NULL)
        return;
    FreeEntries(pBlock);
    if (pBlock->ppEntries != NULL)
        HeapFree(GetProcessHeap(), 0, pBlock->ppEntries);
    SetWindowLongPtrA(hWnd, GWLP_USERDATA, 0);
    // The handle in the block may be an extension's copy rather than the block allocated here.
    HGLOBAL hBlock = pBlock->hBlock;
    GlobalUnlock(hBlock);
    GlobalFree(hBlock);
}

void Paint(HWND hWnd, const KEL_LISTING_BLOCK* pBlock, HDC hdc)
{
    RECT rectClient;
    GetClientRect(hWnd, &rectClient);
    HGDIOBJ hOldFont = pBlock->hFont != NULL ? SelectObject(hdc, pBlock->hFont) : NULL;
    bool bFocused = (pBlock->dwFlags & KEL_LISTING_FOCUSED) != 0;
    RECT rect = rectClient;
    for (int i = pBlock->nTopIndex; i < pBlock->nCount && rect.top < rectClient.bottom; ++i)
    {
        rect.bottom = rect.top + pBlock->nItemHeight;
        const KEL_LISTING_ENTRY* pEntry = pBlock->ppEntries[i];
        bool bSelected = i == pBlock->nCurSel;
        SetTextColor(hdc, bSelected ? pBlock->crSelText : pEntry->crText);
        SetBkColor(hdc, bSelected ? pBlock->crSelBack : pEntry->crBack);
        ExtTextOutA(hdc, rect.left + TEXT_MARGIN, rect.top, ETO_OPAQUE | ETO_CLIPPED, &rect,
                    pEntry->szText, static_cast<UINT>(pEntry->nLength), NULL);
        if (bSelected && bFocused)
            DrawFocusRect(hdc, &rect);
        rect.top = rect.bottom;
    }
    if (rect.top < rectClient.bottom)
    {
        rect.bottom = rectClient.bottom;
        KelFillSolidRect(hdc, rect, pBlock->crDefaultBack);
    }
    if (hOldFont != NULL)
        SelectObject(hdc, hOldFont);
}

void OnPaint(HWND hWnd, const KEL_LISTING_BLOCK* pBlock)
{
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hWnd, &ps);
    Paint(hWnd, pBlock, hdc);
    EndPaint(hWnd, &ps);
}

void OnSetFont(HWND hWnd, KEL_LISTING_BLOCK* pBlock, HFONT hFont, BOOL bRedraw)
{
    pBlock->hFont = hFont;
    pBlock->nItemHeight = MeasureItemHeight(hWnd, hFont);
    Refresh(hWnd, pBlock);
    if (bRedraw)
        UpdateWindow(hWnd);
}

void OnFocus(HWND hWnd, KEL_LISTING_BLOCK* pBlock, bool bFocused)
{
    if (bFocused)
        pBlock->dwFlags |= KEL_LISTING_FOCUSED;
    else
        pBlock->dwFlags &= ~KEL_LISTING_FOCUSED;
    InvalidateEntry(hWnd, pBlock, pBlock->nCurSel);
    KelNotifyParent(hWnd, bFocused ? LBN_SETFOCUS : LBN_KILLFOCUS);
}

// Answers false for keys that are not the listing's own.
bool OnKeyDown(HWND hWnd, KEL_LISTING_BLOCK* pBlock, WPARAM nKey)
{
    int nPage = GetVisibleRows(hWnd, pBlock) - 1;
    if (nPage < 1)
        nPage = 1;
    // Without a selection the moving keys start from the first visible entry.
    int nFrom = pBlock->nCurSel >= 0 ? pBlock->nCurSel : pBlock->nTopIndex;
    int nStep = pBlock->nCurSel >= 0 ? 1 : 0;
    int nIndex;
    switch (nKey)
    {
    case VK_UP: nIndex = nFrom - nStep; break;
    case VK_DOWN: nIndex = nFrom + nStep; break;
    case VK_PRIOR: nIndex = nFrom - nStep * nPage; break;
    case VK_NEXT: nIndex = nFrom + nStep * nPage; break;
    case VK_HOME: nIndex = 0; break;
    case VK_END: nIndex = pBlock->nCount - 1; break;
    default: return false;
    }
    if (pBlock->nCount == 0)
        return true;
    if (nIndex >= pBlock->nCount)
        nIndex = pBlock->nCount - 1;
    if (nIndex < 0)
        nIndex = 0;
    SetSelection(hWnd, pBlock, nIndex, true);
    return true;
}

bool StartsWith(const KEL_LISTING_ENTRY* pEntry, const char* pszPrefix, int nPrefix)
{
    return pEntry->nLength >= nPrefix &&
           CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, pEntry->szText, nPrefix,
                          pszPrefix, nPrefix) == CSTR_EQUAL;
}

// Type-ahead: characters typed within a second of each other form one search text.
void OnChar(HWND hWnd, KEL_LISTING_BLOCK* pBlock, char ch)
{
    DWORD dwNow = GetTickCount();
    if (dwNow - pBlock->dwSearchTime > SEARCH_PAUSE_MS ||
        pBlock->nSearchLength >= static_cast<LONG>(sizeof(pBlock->szSearch)))
        pBlock->nSearchLength = 0;
    pBlock->dwSearchTime = dwNow;
    pBlock->szSearch[pBlock->nSearchLength++] = ch;
    if (pBlock->nCount == 0)
        return;
    // A first character moves on from the selection; a longer text may still match it.
    int nStart = pBlock->nCurSel < 0 ? 0 : pBlock->nCurSel + (pBlock->nSearchLength == 1 ? 1 : 0);
    for (int i = 0; i < pBlock->nCount; ++i)
    {
        int nIndex = (nStart + i) % pBlock->nCount;
        if (StartsWith(pBlock->ppEntries[nIndex], pBlock->szSearch, pBlock->nSearchLength))
        {
            SetSelection(hWnd, pBlock, nIndex, true);
            return;
        }
    }
}

void OnVScroll(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nCode)
{
    int nPage = GetVisibleRows(hWnd, pBlock);
    int nTop = pBlock->nTopIndex;
    switch (nCode)
    {
    case SB_LINEUP: --nTop; break;
    case SB_LINEDOWN: ++nTop; break;
    case SB_PAGEUP: nTop -= nPage; break;
    case SB_PAGEDOWN: nTop += nPage; break;
    case SB_TOP: nTop = 0; break;
    case SB_BOTTOM: nTop = pBlock->nCount; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
    {
        // The 32-bit track position: the message's own is only 16 bits.
        SCROLLINFO si;
        si.cbSize = sizeof(si);
        si.fMask = SIF_TRACKPOS;
        if (GetScrollInfo(hWnd, SB_VERT, &si))
            nTop = si.nTrackPos;
        break;
    }
    default: return;
    }
    SetTopIndex(hWnd, pBlock, nTop);
}

void OnMouseWheel(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nDelta)
{
    UINT nLines = 3;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &nLines, 0);
    int nStep = nLines == WHEEL_PAGESCROLL ? GetVisibleRows(hWnd, pBlock)
                                           : static_cast<int>(nLines);
    pBlock->nWheelDelta += nDelta;
    int nNotches = pBlock->nWheelDelta / WHEEL_DELTA;
    pBlock->nWheelDelta %= WHEEL_DELTA;
    if (nNotches != 0)
        SetTopIndex(hWnd, pBlock, pBlock->nTopIndex - nNotches * nStep);
}

void OnLButtonDown(HWND hWnd, LPARAM lParam, bool bDouble)
{
    SetFocus(hWnd);
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd); // the parent ran during the focus change
    if (pBlock == NULL)
        return;
    int nIndex = GetEntryFromPoint(pBlock, lParam);
    if (nIndex < 0)
        return;
    SetSelection(hWnd, pBlock, nIndex, true);
    if (bDouble && HasStyle(hWnd, LBS_NOTIFY))
        KelNotifyParent(hWnd, LBN_DBLCLK);
}

LRESULT OnSetItemColors(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nIndex, LPARAM lParam)
{
    const KEL_LISTING_COLORS* pColors = reinterpret_cast<const KEL_LISTING_COLORS*>(lParam);
    if (!IsValidIndex(pBlock, nIndex) || pColors == NULL)
        return LB_ERR;
    pBlock->ppEntries[nIndex]->crText = pColors->crText;
    pBlock->ppEntries[nIndex]->crBack = pColors->crBack;
    InvalidateEntry(hWnd, pBlock, nIndex);
    return 0;
}

LRESULT OnGetItemColors(const KEL_LISTING_BLOCK* pBlock, int nIndex, LPARAM lParam)
{
    KEL_LISTING_COLORS* pColors = reinterpret_cast<KEL_LISTING_COLORS*>(lParam);
    if (!IsValidIndex(pBlock, nIndex) || pColors == NULL)
        return LB_ERR;
    pColors->crText = pBlock->ppEntries[nIndex]->crText;
    pColors->crBack = pBlock->ppEntries[nIndex]->crBack;
    return 0;
}

LRESULT OnSetDefaultOrSelColors(HWND hWnd, COLORREF& crText, COLORREF& crBack, LPARAM lParam)
{
    const KEL_LISTING_COLORS* pColors = reinterpret_cast<const KEL_LISTING_COLORS*>(lParam);
    if (pColors == NULL)
        return LB_ERR;
    crText = pColors->crText;
    crBack = pColors->crBack;
    InvalidateRect(hWnd, NULL, FALSE);
    return 0;
}

LRESULT OnSetCurSel(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nIndex)
{
    if (nIndex == -1)
    {
        SetSelection(hWnd, pBlock, -1, false);
        return LB_ERR; // as a list box answers when its selection is cleared
    }
    if (!IsValidIndex(pBlock, nIndex))
        return LB_ERR;
    SetSelection(hWnd, pBlock, nIndex, false);
    return nIndex;
}

LRESULT OnSetTopIndex(HWND hWnd, KEL_LISTING_BLOCK* pBlock, int nIndex)
{
    if (!IsValidIndex(pBlock, nIndex))
        return LB_ERR;
    SetTopIndex(hWnd, pBlock, nIndex);
    return 0;
}

} // namespace

LRESULT __cdecl ListingOnInsertString(HWND hWnd, int nIndex, LPCSTR lpszText)
{
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL || lpszText == NULL)
        return LB_ERR;
    if (nIndex == -1)
        nIndex = pBlock->nCount;
    if (nIndex < 0 || nIndex > pBlock->nCount)
        return LB_ERR;
    if (!ReserveSlot(pBlock))
        return LB_ERRSPACE;
    KEL_LISTING_ENTRY* pEntry = NewEntry(lpszText, pBlock->crDefaultText, pBlock->crDefaultBack);
    if (pEntry == NULL)
        return LB_ERRSPACE;
    memmove(pBlock->ppEntries + nIndex + 1, pBlock->ppEntries + nIndex,
            static_cast<size_t>(pBlock->nCount - nIndex) * sizeof(KEL_LISTING_ENTRY*));
    pBlock->ppEntries[nIndex] = pEntry;
    ++pBlock->nCount;
    if (pBlock->nCurSel >= nIndex)
        ++pBlock->nCurSel;
    Refresh(hWnd, pBlock);
    return nIndex;
}

LRESULT __cdecl ListingOnAddString(HWND hWnd, LPCSTR lpszText)
{
    return ListingOnInsertString(hWnd, -1, lpszText);
}

LRESULT __cdecl ListingOnDeleteString(HWND hWnd, int nIndex)
{
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL || !IsValidIndex(pBlock, nIndex))
        return LB_ERR;
    HeapFree(GetProcessHeap(), 0, pBlock->ppEntries[nIndex]);
    --pBlock->nCount;
    memmove(pBlock->ppEntries + nIndex, pBlock->ppEntries + nIndex + 1,
            static_cast<size_t>(pBlock->nCount - nIndex) * sizeof(KEL_LISTING_ENTRY*));
    if (pBlock->nCurSel == nIndex)
        pBlock->nCurSel = -1;
    else if (pBlock->nCurSel > nIndex)
        --pBlock->nCurSel;
    LRESULT nLeft = pBlock->nCount;
    Refresh(hWnd, pBlock);
    return nLeft;
}

LRESULT __cdecl ListingOnResetContent(HWND hWnd)
{
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL)
        return LB_ERR;
    FreeEntries(pBlock);
    pBlock->nTopIndex = 0;
    pBlock->nCurSel = -1;
    Refresh(hWnd, pBlock);
    return 0;
}

LRESULT __cdecl ListingOnGetText(HWND hWnd, int nIndex, LPSTR lpszText)
{
    const KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL || !IsValidIndex(pBlock, nIndex) || lpszText == NULL)
        return LB_ERR;
    const KEL_LISTING_ENTRY* pEntry = pBlock->ppEntries[nIndex];
    memcpy(lpszText, pEntry->szText, static_cast<size_t>(pEntry->nLength) + 1);
    return pEntry->nLength;
}

LRESULT __cdecl ListingOnGetTextAndColors(HWND hWnd, int nIndex, LPSTR lpszText, int nMaxChars,
                                          COLORREF* pcrText, COLORREF* pcrBack)
{
    const KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL || !IsValidIndex(pBlock, nIndex) || lpszText == NULL || nMaxChars < 1)
        return LB_ERR;
    const KEL_LISTING_ENTRY* pEntry = pBlock->ppEntries[nIndex];
    LONG nCopy = pEntry->nLength < nMaxChars ? pEntry->nLength : nMaxChars - 1;
    memcpy(lpszText, pEntry->szText, static_cast<size_t>(nCopy));
    lpszText[nCopy] = '\0';
    if (pcrText != NULL)
        *pcrText = pEntry->crText;
    if (pcrBack != NULL)
        *pcrBack = pEntry->crBack;
    return nCopy;
}

LRESULT CALLBACK WndListingProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    if (nMsg == WM_CREATE)
        return OnCreate(hWnd);
    if (nMsg == WM_NCDESTROY)
        OnNcDestroy(hWnd);
    KEL_LISTING_BLOCK* pBlock = GetBlock(hWnd);
    if (pBlock == NULL)
        return DefWindowProcA(hWnd, nMsg, wParam, lParam);
    int nIndex = static_cast<int>(wParam);
    switch (nMsg)
    {
    case WM_PAINT: OnPaint(hWnd, pBlock); return 0;
    case WM_PRINTCLIENT: Paint(hWnd, pBlock, reinterpret_cast<HDC>(wParam)); return 0;
    case WM_ERASEBKGND: return 1; // every pixel is painted by WM_PAINT
    case WM_SIZE: Refresh(hWnd, pBlock); return 0;
    case WM_SETFONT: OnSetFont(hWnd, pBlock, reinterpret_cast<HFONT>(wParam), LOWORD(lParam)); return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(pBlock->hFont);
    case WM_SETFOCUS: OnFocus(hWnd, pBlock, true); return 0;
    case WM_KILLFOCUS: OnFocus(hWnd, pBlock, false); return 0;
    case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        if (OnKeyDown(hWnd, pBlock, wParam))
            return 0;
        return DefWindowProcA(hWnd, nMsg, wParam, lParam);
    case WM_CHAR:
        if (wParam < ' ')
            return DefWindowProcA(hWnd, nMsg, wParam, lParam);
        OnChar(hWnd, pBlock, static_cast<char>(wParam));
        return 0;
    case WM_VSCROLL: OnVScroll(hWnd, pBlock, LOWORD(wParam)); return 0;
    case WM_MOUSEWHEEL: OnMouseWheel(hWnd, pBlock, GET_WHEEL_DELTA_WPARAM(wParam)); return 0;
    case WM_LBUTTONDOWN: OnLButtonDown(hWnd, lParam, false); return 0;
    case WM_LBUTTONDBLCLK: OnLButtonDown(hWnd, lParam, true); return 0;
    case LB_ADDSTRING: return ListingOnAddString(hWnd, reinterpret_cast<LPCSTR>(lParam));
    case LB_INSERTSTRING: return ListingOnInsertString(hWnd, nIndex, reinterpret_cast<LPCSTR>(lParam));
    case LB_DELETESTRING: return ListingOnDeleteString(hWnd, nIndex);
    case LB_RESETCONTENT: return ListingOnResetContent(hWnd);
    case LB_GETTEXT: return ListingOnGetText(hWnd, nIndex, reinterpret_cast<LPSTR>(lParam));
    case LB_GETTEXTLEN: return IsValidIndex(pBlock, nIndex) ? pBlock->ppEntries[nIndex]->nLength : LB_ERR;
    case LB_GETCOUNT: return pBlock->nCount;
    case LB_GETCURSEL: return pBlock->nCurSel; // none is -1, LB_ERR
    case LB_SETCURSEL: return OnSetCurSel(hWnd, pBlock, nIndex);
    case LB_GETTOPINDEX: return pBlock->nTopIndex;
    case LB_SETTOPINDEX: return OnSetTopIndex(hWnd, pBlock, nIndex);
    case LB_GETITEMHEIGHT: return pBlock->nItemHeight;
    case KLM_SETITEMCOLORS: return OnSetItemColors(hWnd, pBlock, nIndex, lParam);
    case KLM_GETITEMCOLORS: return OnGetItemColors(pBlock, nIndex, lParam);
    case KLM_SETDEFAULTCOLORS:
        return OnSetDefaultOrSelColors(hWnd, pBlock->crDefaultText, pBlock->crDefaultBack, lParam);
    case KLM_SETSELCOLORS:
        return OnSetDefaultOrSelColors(hWnd, pBlock->crSelText, pBlock->crSelBack, lParam);
    default: return DefWindowProcA(hWnd, nMsg, wParam, lParam);
    }
}
