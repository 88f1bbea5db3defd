// CInput: keyboard and mouse input sent straight to a window, as the system would deliver it,
// and readers of what a control shows.
//
// Every message is sent (SendMessage), so it is handled before the call returns. While a key
// or button is pressed the thread's keyboard state says so (SetKeyboardState), so GetKeyState
// in the window procedure agrees with the message; the state is restored afterwards.
// GetAsyncKeyState and the real cursor position are not affected.
//
// Modifiers (SHIFT, CTRL, ALT) are held around the whole action; on the mouse they also set
// MK_SHIFT and MK_CONTROL. Mouse coordinates are client coordinates of the window.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

class CInput
{
public:
    enum
    {
        SHIFT = 1,
        CTRL = 2,
        ALT = 4,
    };

    // WM_CHAR for each character (ANSI), nothing else: the text as typed after translation.
    static void TypeText(HWND hWnd, const char* pszText);
    // A key pressed and released: WM_KEYDOWN, the WM_CHAR that TranslateMessage would make of
    // it (Ctrl+A gives 1, Backspace 8, arrows none), WM_KEYUP. With ALT the system variants
    // (WM_SYSKEYDOWN, WM_SYSCHAR, WM_SYSKEYUP) with the context bit set.
    static void PressKey(HWND hWnd, UINT uVirtualKey, UINT fModifiers = 0);

    static void Click(HWND hWnd, int x, int y, UINT fModifiers = 0);
    // Down, up, then WM_LBUTTONDBLCLK and up again; a second WM_LBUTTONDOWN instead of the
    // double click when the window's class lacks CS_DBLCLKS, as the system does.
    static void DoubleClick(HWND hWnd, int x, int y, UINT fModifiers = 0);
    static void RightClick(HWND hWnd, int x, int y, UINT fModifiers = 0);
    // Left button down at the start, nSteps moves ending at the end with the button held, up.
    static void Drag(HWND hWnd, POINT ptFrom, POINT ptTo, int nSteps = 4, UINT fModifiers = 0);
    // WM_MOUSEWHEEL at a client point; the message carries it in screen coordinates, as the
    // system sends it. nDelta: WHEEL_DELTA (120) per notch, positive away from the user.
    static void Wheel(HWND hWnd, int x, int y, int nDelta, UINT fModifiers = 0);
    // A left click through the system's input queue (the cursor moved there, SendInput), for
    // what only real input reaches, such as mouse hooks; then pumps messages for 100 ms.
    static void QueuedClick(HWND hWnd, int x, int y);

    static std::string GetText(HWND hWnd);
    static std::pair<DWORD, DWORD> GetSel(HWND hWnd); // EM_GETSEL: start, end
    static int GetCheck(HWND hWnd);                   // BM_GETCHECK
    static DWORD GetStyle(HWND hWnd);

    // Dispatches posted messages and due timers of this thread for dwMilliseconds; returns the
    // number of messages dispatched. A WM_QUIT stops it and is posted again for the caller.
    static int PumpMessages(DWORD dwMilliseconds = 50);
};
