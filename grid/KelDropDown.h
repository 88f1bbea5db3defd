// CKelDropDown: what every drop-down popup of the library shares with its host control (the
// combo grid, the calendar combo): where the popup goes on the monitor, and a thread mouse hook
// that tells the host to close the popup when the user presses a button elsewhere.
//
// While a helper is open, a press (left, right or middle, client or non-client area):
//   - on the popup or one of its descendants, or on a popup menu ("#32768"): passes on;
//   - on the host or one of its children (a combo's edit field): posts KDDM_CLOSEUP (wParam 0)
//     to the host and is swallowed, so that the click closes the popup without opening it again;
//   - anywhere else: posts KDDM_CLOSEUP (0) to the host and passes on to its window.
// The hook sees input from the system's queue only, not messages sent to a window.
//
// One helper is open in the process at a time: opening one asks the host of the open one to
// close first (KDDM_CLOSEUP 0, sent). The host answers KDDM_CLOSEUP by closing its popup and
// calling Close; wParam 1 asks it to close taking the highlighted choice.
//
// Internal to the library; not exported.
#pragma once

#include <afxwin.h>

// To the host of a drop-down: close it; wParam non-zero takes the popup's choice.
#define KDDM_CLOSEUP (WM_USER + 0x501)

class CKelDropDown
{
public:
    CKelDropDown() = default;
    // Closes the helper when it is still open.
    ~CKelDropDown();
    CKelDropDown(const CKelDropDown&) = delete;
    CKelDropDown& operator=(const CKelDropDown&) = delete;

    // The popup's screen rectangle for a host's window rectangle, the popup's wanted size and the
    // monitor's rectangle: under the host when it fits, else above when there is more room
    // there (cut to that room), else under it cut to the room below; never wider than the
    // monitor, shifted to stay on it, at least one pixel high.
    static CRect PlacePopup(const CRect& rcHost, CSize size, const CRect& rcMonitor);

    // Asks the host of the open helper, if any, to close it without taking (KDDM_CLOSEUP 0).
    static void CloseOpenDropDown();
    // Starts watching the mouse for a shown popup of a host; closes another open helper first.
    // FALSE for a missing window or when the hook cannot be installed.
    BOOL Open(HWND hWndHost, HWND hWndPopup);
    // Stops watching; nothing when not open.
    void Close();
    BOOL IsOpen() const { return m_stpOpen == this; }
    static CKelDropDown* GetOpenDropDown() { return m_stpOpen; }
    HWND GetHost() const { return m_hWndHost; }
    HWND GetPopup() const { return m_hWndPopup; }

private:
    static LRESULT CALLBACK OnMouseHook(int nCode, WPARAM wParam, LPARAM lParam);
    // Whether hWnd is hWndRoot or lies inside it (owned popups do not count).
    static bool IsWithin(HWND hWnd, HWND hWndRoot);

    HWND m_hWndHost = NULL;
    HWND m_hWndPopup = NULL;

    static CKelDropDown* m_stpOpen;
    static HHOOK m_sthHook;
};
