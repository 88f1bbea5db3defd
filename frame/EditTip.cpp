#include "frame/EditTip.h"

BOOL EditTextFits(HWND hWndEdit)
{
    char szText[260];
    int nLength = ::GetWindowTextA(hWndEdit, szText, sizeof(szText));
    if (nLength <= 0)
        return TRUE;
    LRESULT lFirst = ::SendMessageA(hWndEdit, EM_POSFROMCHAR, 0, 0);
    LRESULT lLast = ::SendMessageA(hWndEdit, EM_POSFROMCHAR, nLength - 1, 0);
    int xFirst = static_cast<short>(LOWORD(lFirst));
    int xLast = static_cast<short>(LOWORD(lLast));
    // Scrolled out to the left, or no position: the text cannot be all in view.
    if (xFirst < 0 || xLast < 0)
        return FALSE;
    RECT rect;
    ::GetWindowRect(hWndEdit, &rect);
    // The 10 pixels stand for the width of the last character and the borders.
    return xLast - xFirst + 10 < rect.right - rect.left;
}
