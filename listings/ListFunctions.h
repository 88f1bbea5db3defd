// Sorting, printing and saving any list window: the event list and the companion's listing
// windows, CKelListBox and plain list boxes alike. Each function takes the list's window handle
// and reads it in the way its kind asks for (the companion's handlers for listings, the list-box
// messages for the rest); a window whose count answers LB_ERR is refused.
#pragma once

#include <afxwin.h>

// Sent by SortList to the list first, wParam = the sort type: a list that sorts itself
// (CKelListBox) does so and answers 1; any other answers 0 and is sorted from outside.
#define KLBM_SORT (WM_USER + 0x500)

// A colour an entry does not have: the list's default is used.
#define KEL_NO_COLOR ((COLORREF)0xFFFFFFFF)

// Flags of PrintListBoxEx and DrawListBoxPageEx.
#define KLP_SELECTEDONLY 0x0001 // only the selected entries
#define KLP_COLORS 0x0002       // each entry in its own text colour, else black
// Flags of SaveListBoxEntryInTextEx.
#define KLS_APPEND 0x0001 // append to the file instead of writing it anew
#define KLS_SELECTEDONLY 0x0002

extern "C" {
// Sorts the entries by their texts with one of the grid's sort types: 0/1 text (case
// insensitive), 2/3 numbers, 4/5 times (the number with its colons removed); even types
// ascending, odd descending. Entries that compare equal keep their order; colours, item data
// and the selection travel with their entries, and the top index stays. 1 on success; 0 for
// a bad window or type, and for a list box with LBS_SORT or owner-drawn without LBS_HASSTRINGS.
AFX_EXT_API int SortList(HWND hList, int nType);

// Prints the entries, one per line, in pages laid out as DrawListBoxPageEx lays them out on the
// printer's printable area. Without a printer context it asks with the print dialog (owned by
// the list's parent) and deletes the context it got. The number of pages printed; 0 when
// there is nothing to print (no dialog is shown); -1 when the dialog was cancelled; -2 when
// printing or the dialog failed, or the list was refused.
AFX_EXT_API int PrintListBoxEx(HWND hList, HDC hPrinterDC, const char* pszTitle, DWORD dwFlags);

// Draws page nPage (from 1) of the printed layout into prcPage of any device context: half-inch
// margins, the title in bold 12-point Courier New over a rule (only for a non-empty title), the
// entries in 10-point Courier New, one per line, cut with three dots, and "Page n of m" centred
// on the last line. The number of entries drawn, 0 past the last page, -1 for a bad argument.
AFX_EXT_API int DrawListBoxPageEx(HWND hList, HDC hDC, const RECT* prcPage, int nPage, const char* pszTitle,
                                  DWORD dwFlags);

// Writes the entries as lines of text ending in carriage return and line feed. A null or empty
// file name asks with the save dialog. The number of entries written; -1 when the dialog was
// cancelled; -2 when the file cannot be opened or written, the dialog failed or the list was
// refused. An empty list leaves an empty file (or an appended one as it was).
AFX_EXT_API int SaveListBoxEntryInTextEx(HWND hList, const char* pszFile, DWORD dwFlags);
}
