// CEditTipProbe: finds the tooltip that the library gives an edit and asks what it would show,
// for the tests of the tooltip and of the library's loading and unloading.
#pragma once

#include <windows.h>

#include <string>

class CEditTipProbe
{
public:
    // The tooltip of this thread that carries the edit as its tool; null when there is none.
    static HWND FindTip(HWND hWndEdit);
    // What the edit's tooltip would show, asked the way the tooltip asks; "(no tip)" when the
    // edit has none.
    static std::string AskText(HWND hWndEdit);
};
