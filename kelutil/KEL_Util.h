// KEL_Util: the companion library of KelControls (KEL_Util.dll), plain Win32.
//
// What it offers:
// - the listing window: a scrolling list whose entries carry a text and their own colours,
//   driven by the list-box messages (WndListingProc, the ListingOn* handlers, KLM_* messages);
// - PaintButtonEx2, which paints an owner-drawn button face, plain or as a transport button;
// - the time-entry window classes "TimeClass" and "MsTimeClass";
// - the usable screen size and yes/no values in profile (INI) files;
// - KEL_Util_Running, which an importer calls to make sure the library is loaded.
//
// Every function has C linkage. The listing window procedure is stdcall (CALLBACK), so on
// Win32 its exported name is "_WndListingProc@16"; on Win64 it is "WndListingProc". Every
// other function is cdecl and exported under its plain name. Texts are ANSI.
#pragma once

#include <windows.h>
#include <stddef.h>

#ifdef KEL_UTIL_BUILD
#define KEL_UTIL_API
#else
#define KEL_UTIL_API __declspec(dllimport)
#endif

#ifdef __cplusplus
#define KEL_UTIL_STATIC_ASSERT(cond, text) static_assert(cond, text)
extern "C" {
#else
#define KEL_UTIL_STATIC_ASSERT(cond, text) _Static_assert(cond, text)
#endif

// ---------------------------------------------------------------------------------------------
// Listing window
//
// A class whose window procedure is WndListingProc (or a procedure that passes it every message
// it does not handle itself) behaves as a single-selection list box:
// - LB_ADDSTRING, LB_INSERTSTRING (index -1 appends), LB_DELETESTRING, LB_RESETCONTENT,
//   LB_GETTEXT, LB_GETTEXTLEN, LB_GETCOUNT, LB_GETCURSEL, LB_SETCURSEL, LB_GETTOPINDEX,
//   LB_SETTOPINDEX, LB_GETITEMHEIGHT, WM_SETFONT and WM_GETFONT answer as a list box does;
//   entries keep the order in which they were added (there is no sorting).
// - LB_SETCURSEL with -1 clears the selection and, as a list box does, answers LB_ERR; an index
//   out of range leaves the selection alone and answers LB_ERR. The selection is scrolled into
//   view. LB_SETTOPINDEX scrolls as far as the last full page allows.
// - The mouse and the keys Up, Down, Page Up, Page Down, Home and End select an entry; typed
//   characters select the next entry whose text begins with them (pauses of a second start a
//   new search). A window with LBS_NOTIFY sends its parent LBN_SELCHANGE when the user changes
//   the selection and LBN_DBLCLK on a double click (the class needs CS_DBLCLKS); LBN_SETFOCUS
//   and LBN_KILLFOCUS are sent always. A window with WS_VSCROLL keeps its scroll bar up to date;
//   the mouse wheel scrolls.
// - Each entry is painted in its own text and background colours, the selected one in the
//   selection colours, with a focus rectangle while the window has the focus. An entry takes
//   the default colours in force when it is added. WM_PRINTCLIENT paints into the given DC.
//
// Out-of-range indexes answer LB_ERR; memory exhaustion answers LB_ERRSPACE.

// The colours of an entry: the lParam of the KLM_* messages.
typedef struct KEL_LISTING_COLORS
{
    COLORREF crText;
    COLORREF crBack;
} KEL_LISTING_COLORS;

// wParam = entry index, lParam = const KEL_LISTING_COLORS*: sets the colours of that entry.
// Answers 0, or LB_ERR for an index out of range or a null pointer.
#define KLM_SETITEMCOLORS (WM_USER + 0x300)
// wParam = entry index, lParam = KEL_LISTING_COLORS* to fill. Answers 0 or LB_ERR.
#define KLM_GETITEMCOLORS (WM_USER + 0x301)
// wParam unused, lParam = const KEL_LISTING_COLORS*: the colours of entries added from now on
// (and of the empty area below the last entry). Answers 0, or LB_ERR for a null pointer.
// The defaults at creation are the system window text and window colours.
#define KLM_SETDEFAULTCOLORS (WM_USER + 0x302)
// wParam unused, lParam = const KEL_LISTING_COLORS*: the colours of the selected entry.
// Answers 0 or LB_ERR. The defaults are the system highlight colours.
#define KLM_SETSELCOLORS (WM_USER + 0x303)

// KEL_LISTING_BLOCK.dwFlags
#define KEL_LISTING_FOCUSED 0x00000001UL // the window has the focus
#define KEL_LISTING_VSCROLL 0x00000002UL // created with WS_VSCROLL: keeps a scroll bar

struct KEL_LISTING_ENTRY; // private to the library

// The listing block. WM_CREATE allocates it as fixed global memory and stores its address as
// the window's user data (GWLP_USERDATA). The block is found through the user data at every
// message and holds no pointer into itself, so an extension may copy its first
// KEL_LISTING_BLOCK_SIZE bytes into a larger block of its own, put that block's handle into
// hBlock, replace the user data with it and free the original (GlobalUnlock and GlobalFree of
// the original hBlock). WM_NCDESTROY frees the entries and then the block named by hBlock, and
// clears the user data.
//
// On Win32 the block is 1732 bytes: its size is the version mark that extensions check.
typedef struct KEL_LISTING_BLOCK
{
    DWORD cbSize;                        // KEL_LISTING_BLOCK_SIZE
    HGLOBAL hBlock;                      // the global handle of the block that holds this copy
    HWND hWnd;                           // the listing window
    HFONT hFont;                         // WM_SETFONT's font, null for the system font
    struct KEL_LISTING_ENTRY** ppEntries; // entry array on the process heap, nCapacity long
    LONG nItemHeight;                    // pixel height of one entry
    LONG nCount;                         // number of entries
    LONG nCapacity;                      // number of slots in ppEntries
    LONG nTopIndex;                      // first visible entry
    LONG nCurSel;                        // selected entry, -1 for none
    COLORREF crDefaultText;              // colours given to entries when they are added
    COLORREF crDefaultBack;
    COLORREF crSelText;                  // colours of the selected entry
    COLORREF crSelBack;
    DWORD dwFlags;                       // KEL_LISTING_* flags
    LONG nWheelDelta;                    // mouse-wheel movement not yet turned into lines
    DWORD dwSearchTime;                  // tick count of the last typed search character
    LONG nSearchLength;                  // characters in szSearch
    char szSearch[256];                  // typed search text (scratch, not terminated)
    BYTE byReserved[1404];               // zero; keeps the Win32 size at 1732
} KEL_LISTING_BLOCK;

#define KEL_LISTING_BLOCK_SIZE ((DWORD)sizeof(KEL_LISTING_BLOCK))

#ifndef _WIN64
KEL_UTIL_STATIC_ASSERT(sizeof(KEL_LISTING_BLOCK) == 1732, "listing block is 1732 bytes on Win32");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_LISTING_BLOCK, cbSize) == 0, "size comes first");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_LISTING_BLOCK, hBlock) == 4, "handle is the second word");
#endif
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_LISTING_BLOCK, hBlock) == sizeof(void*),
                       "handle follows the size, pointer aligned");

KEL_UTIL_API LRESULT CALLBACK WndListingProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);

// The handlers of the list messages, for code that holds a listing's window handle (an
// extension of the window procedure, print and save utilities). A window that is not a
// listing answers LB_ERR.
//
// LB_ADDSTRING: appends the text; answers its index. A null text answers LB_ERR.
KEL_UTIL_API LRESULT __cdecl ListingOnAddString(HWND hWnd, LPCSTR lpszText);
// LB_INSERTSTRING: inserts before nIndex (-1 appends); answers the new entry's index.
KEL_UTIL_API LRESULT __cdecl ListingOnInsertString(HWND hWnd, int nIndex, LPCSTR lpszText);
// LB_DELETESTRING: answers the number of entries left.
KEL_UTIL_API LRESULT __cdecl ListingOnDeleteString(HWND hWnd, int nIndex);
// LB_RESETCONTENT: removes every entry; answers 0.
KEL_UTIL_API LRESULT __cdecl ListingOnResetContent(HWND hWnd);
// LB_GETTEXT: copies the entry's text with its terminator into lpszText, which must hold
// LB_GETTEXTLEN + 1 characters; answers the length. A null buffer answers LB_ERR.
KEL_UTIL_API LRESULT __cdecl ListingOnGetText(HWND hWnd, int nIndex, LPSTR lpszText);
// The entry's text, cut to nMaxChars - 1 characters and terminated, and its colours (either
// colour pointer may be null). Answers the number of characters copied; LB_ERR for an index
// out of range, a null buffer or nMaxChars below 1.
KEL_UTIL_API LRESULT __cdecl ListingOnGetTextAndColors(HWND hWnd, int nIndex, LPSTR lpszText,
                                                      int nMaxChars, COLORREF* pcrText,
                                                      COLORREF* pcrBack);

// ---------------------------------------------------------------------------------------------
// Button faces

// Glyph codes of KEL_BUTTON_PARAMS.dwGlyph. Any code without a glyph draws the text.
#define KEL_GLYPH_PLAY 9
#define KEL_GLYPH_STOP 10
#define KEL_GLYPH_FFORWARD 13
#define KEL_GLYPH_REWIND 14
#define KEL_GLYPH_RECORD 15
#define KEL_GLYPH_TEXT 16

// The parameter block of PaintButtonEx2: 124 bytes on every platform, every reserved byte zero.
typedef struct KEL_BUTTON_PARAMS
{
    DWORD cbSize;          // 124
    DWORD dwReserved1[2];
    WORD wItemState;       // the draw request's item state: ODS_SELECTED, ODS_FOCUS, ODS_DISABLED
    WORD wReserved2;
    DWORD dwReserved3[3];
    COLORREF crText;       // text and glyph colour
    COLORREF crFace;       // face colour
    DWORD dwGlyph;         // KEL_GLYPH_*
    COLORREF crSysFace;    // the system button-face colour when the request was made
    DWORD dwReserved4[20];
} KEL_BUTTON_PARAMS;

KEL_UTIL_STATIC_ASSERT(sizeof(KEL_BUTTON_PARAMS) == 124, "button block is 124 bytes");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_BUTTON_PARAMS, wItemState) == 12, "item state at 12");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_BUTTON_PARAMS, crText) == 28, "text colour at 28");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_BUTTON_PARAMS, crFace) == 32, "face colour at 32");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_BUTTON_PARAMS, dwGlyph) == 36, "glyph code at 36");
KEL_UTIL_STATIC_ASSERT(offsetof(KEL_BUTTON_PARAMS, crSysFace) == 40, "system face at 40");

// Paints the face of hButton (its client rectangle) into hdc: the face colour, a raised edge
// (sunken and the content moved by a pixel when ODS_SELECTED), then the button's window text or
// the glyph, centred and scaled to the face, in the text colour (the record glyph is a red disc
// outlined in the text colour); with ODS_DISABLED text and glyph are grey (COLOR_GRAYTEXT);
// with ODS_FOCUS a focus rectangle is drawn inside the edge. Answers FALSE, painting nothing,
// when hButton is not a window, hdc or params is null, or params->cbSize is not 124.
KEL_UTIL_API BOOL __cdecl PaintButtonEx2(HWND hButton, HDC hdc, const KEL_BUTTON_PARAMS* params);

// ---------------------------------------------------------------------------------------------
// Time fields: the global window classes "TimeClass" (hours, minutes, seconds) and
// "MsTimeClass" (and milliseconds), registered under this library's instance when it is loaded.
//
// - WM_USER sets the value from lParam: seconds for "TimeClass", milliseconds for
//   "MsTimeClass", limited to 0 .. 99:59:59(.999); answers the value kept. WM_USER + 1 answers
//   the value in the same unit.
// - Window word 0 (GetWindowLong(hWnd, 0)) is the current field: 0 hours, 1 minutes,
//   2 seconds, 3 milliseconds.
// - WM_LBUTTONDOWN takes the focus and makes the field under the mouse current (the field
//   nearest to it when between fields).
// - Left and Right move between fields; Up and Down step the current field, wrapping within it
//   (59 minutes up is 0 minutes, the hours stay). Digits type into the current field (the
//   first digit replaces it) and move to the next field once it is full or no further digit
//   could keep it in range; ':' and '.' move to the next field.
// - The text reads "HH:MM:SS" or "HH:MM:SS.mmm" in the WM_SETFONT font, coloured as an edit
//   control (WM_CTLCOLOREDIT to the parent, WM_CTLCOLORSTATIC while disabled); the current
//   field is highlighted while the window has the focus.
// - A change made by the user sends the parent WM_COMMAND with EN_CHANGE.
// - WM_GETDLGCODE answers DLGC_WANTARROWS | DLGC_WANTCHARS.
#define KEL_TIMECLASS "TimeClass"
#define KEL_MSTIMECLASS "MsTimeClass"

// Style bits of the time fields: TFS_CENTER centres the text (without it the text starts at
// the left edge). The other low bits (the library's time edits set 0x0400 and 0x8000) have no
// meaning and are ignored.
#define TFS_CENTER 0x0001L

// ---------------------------------------------------------------------------------------------
// Screen, profile and start-up

// The usable screen size in pixels: the work area of the primary monitor (the taskbar left
// out), or the whole screen when the work area cannot be read.
KEL_UTIL_API int __cdecl GetScreenWidth(void);
KEL_UTIL_API int __cdecl GetScreenHeight(void);

// A yes/no value in a profile file. Reading accepts "1", "yes", "true" and "on" as TRUE and
// "0", "no", "false" and "off" as FALSE, in any letter case; a missing key, any other text or a
// null section or key gives bDefault (as TRUE or FALSE). Writing stores "1" or "0" and answers
// the result of WritePrivateProfileString; a null section or key answers FALSE and writes
// nothing. A null file name means WIN.INI, as for the system's profile functions.
KEL_UTIL_API BOOL __cdecl GetPrivateProfileBool(LPCSTR lpszSection, LPCSTR lpszKey, BOOL bDefault,
                                                LPCSTR lpszFile);
KEL_UTIL_API BOOL __cdecl WritePrivateProfileBool(LPCSTR lpszSection, LPCSTR lpszKey, BOOL bValue,
                                                  LPCSTR lpszFile);

// Answers nonzero. Calling it makes sure the library is loaded and its window classes are
// registered (they are registered again if they were not).
KEL_UTIL_API int __cdecl KEL_Util_Running(void);

#ifdef __cplusplus
}
#endif
