// The time-entry fields "TimeClass" (HH:MM:SS) and "MsTimeClass" (HH:MM:SS.mmm).
//
// The whole state is in window words, so the fields need no memory of their own. The value is
// kept in milliseconds for both classes; "TimeClass" only ever holds whole seconds.
#include "kelutil/KelUtilPrivate.h"

namespace
{

// Window words. The current field must stay the LONG at 0: the library's hour-only edit reads
// it to decide whether a digit may be typed.
const int WW_FIELD = 0;
const int WW_VALUE = 4;  // LONG, milliseconds
const int WW_DIGITS = 8; // LONG, digits typed into the current field since it became current
const int WW_FONT = 16;  // LONG_PTR, pointer aligned
const int WINDOW_WORDS = WW_FONT + static_cast<int>(sizeof(LONG_PTR));

struct FieldInfo
{
    LONG nUnitMs;  // milliseconds of one unit of the field
    LONG nMax;     // largest value of the field
    int nDigits;   // digits shown
    int nOffset;   // position of its first digit in the text
};

const FieldInfo s_aFields[4] = {
    {3600000, 99, 2, 0}, // hours
    {60000, 59, 2, 3},   // minutes
    {1000, 59, 2, 6},    // seconds
    {1, 999, 3, 9},      // milliseconds
};

const LONG MAX_VALUE_MS = 99 * 3600000 + 59 * 60000 + 59 * 1000 + 999;
const int TEXT_MARGIN = 2;

int GetFieldCount(bool bWithMs)
{
    return bWithMs ? 4 : 3;
}

LONG GetValue(HWND hWnd)
{
    return GetWindowLongA(hWnd, WW_VALUE);
}

// Window word 0 is open to anyone with the handle: a value out of range reads as the hours.
int GetCurrentField(HWND hWnd, bool bWithMs)
{
    LONG nField = GetWindowLongA(hWnd, WW_FIELD);
    return nField >= 0 && nField < GetFieldCount(bWithMs) ? static_cast<int>(nField) : 0;
}

LONG GetFieldValue(LONG nValueMs, int nField)
{
    const FieldInfo& field = s_aFields[nField];
    return nValueMs / field.nUnitMs % (field.nMax + 1);
}

LONG WithFieldValue(LONG nValueMs, int nField, LONG nFieldValue)
{
    const FieldInfo& field = s_aFields[nField];
    return nValueMs + (nFieldValue - GetFieldValue(nValueMs, nField)) * field.nUnitMs;
}

void SetCurrentField(HWND hWnd, int nField)
{
    SetWindowLongA(hWnd, WW_FIELD, nField);
    SetWindowLongA(hWnd, WW_DIGITS, 0);
    InvalidateRect(hWnd, NULL, FALSE);
}

// A value from the user: kept, shown, and reported to the parent when it changed.
void SetValueByUser(HWND hWnd, LONG nValueMs)
{
    if (nValueMs == GetValue(hWnd))
        return;
    SetWindowLongA(hWnd, WW_VALUE, nValueMs);
    InvalidateRect(hWnd, NULL, FALSE);
    KelNotifyParent(hWnd, EN_CHANGE);
}

// The text and where each field lies on the window, for painting and for hit testing. The
// font must be selected into hdc.
struct Layout
{
    char szText[16];
    int nLength;
    POINT ptText;
    int axStart[4];
    int axEnd[4];
    int nHeight;
};

void MakeLayout(HWND hWnd, HDC hdc, bool bWithMs, Layout& layout)
{
    LONG nValue = GetValue(hWnd);
    layout.nLength = bWithMs
        ? wsprintfA(layout.szText, "%02ld:%02ld:%02ld.%03ld", GetFieldValue(nValue, 0),
                    GetFieldValue(nValue, 1), GetFieldValue(nValue, 2), GetFieldValue(nValue, 3))
        : wsprintfA(layout.szText, "%02ld:%02ld:%02ld", GetFieldValue(nValue, 0),
                    GetFieldValue(nValue, 1), GetFieldValue(nValue, 2));
    SIZE size = {0, 0};
    GetTextExtentPoint32A(hdc, layout.szText, layout.nLength, &size);
    RECT rect;
    GetClientRect(hWnd, &rect);
    layout.ptText.x = (GetWindowLongA(hWnd, GWL_STYLE) & TFS_CENTER) != 0
                          ? (rect.right - size.cx) / 2
                          : TEXT_MARGIN;
    layout.ptText.y = (rect.bottom - size.cy) / 2;
    layout.nHeight = size.cy;
    for (int i = 0; i < GetFieldCount(bWithMs); ++i)
    {
        SIZE sizeBefore = {0, 0}, sizeThrough = {0, 0};
        GetTextExtentPoint32A(hdc, layout.szText, s_aFields[i].nOffset, &sizeBefore);
        GetTextExtentPoint32A(hdc, layout.szText, s_aFields[i].nOffset + s_aFields[i].nDigits,
                              &sizeThrough);
        layout.axStart[i] = layout.ptText.x + sizeBefore.cx;
        layout.axEnd[i] = layout.ptText.x + sizeThrough.cx;
    }
}

HFONT GetFont(HWND hWnd)
{
    return reinterpret_cast<HFONT>(GetWindowLongPtrA(hWnd, WW_FONT));
}

// The field under x, or the nearest one when x lies between or beside the fields.
int GetFieldFromX(HWND hWnd, bool bWithMs, int x)
{
    HDC hdc = GetDC(hWnd);
    HGDIOBJ hOldFont = GetFont(hWnd) != NULL ? SelectObject(hdc, GetFont(hWnd)) : NULL;
    Layout layout;
    MakeLayout(hWnd, hdc, bWithMs, layout);
    if (hOldFont != NULL)
        SelectObject(hdc, hOldFont);
    ReleaseDC(hWnd, hdc);
    int nBest = 0;
    int nBestDistance = 0x7FFFFFFF;
    for (int i = 0; i < GetFieldCount(bWithMs); ++i)
    {
        int nDistance = x < layout.axStart[i] ? layout.axStart[i] - x
                        : x >= layout.axEnd[i] ? x - layout.axEnd[i] + 1
                                               : 0;
        if (nDistance < nBestDistance)
        {
            nBest = i;
            nBestDistance = nDistance;
        }
    }
    return nBest;
}

void OnPaint(HWND hWnd, bool bWithMs)
{
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hWnd, &ps);
    bool bEnabled = IsWindowEnabled(hWnd) != FALSE;
    // Coloured as an edit control: the parent may change the colours and give the brush.
    SetTextColor(hdc, GetSysColor(bEnabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    SetBkColor(hdc, GetSysColor(bEnabled ? COLOR_WINDOW : COLOR_BTNFACE));
    HBRUSH hBrush = reinterpret_cast<HBRUSH>(
        SendMessageA(GetParent(hWnd), bEnabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
                     reinterpret_cast<WPARAM>(hdc), reinterpret_cast<LPARAM>(hWnd)));
    if (hBrush == NULL)
        hBrush = GetSysColorBrush(bEnabled ? COLOR_WINDOW : COLOR_BTNFACE);
    if (!bEnabled)
        SetTextColor(hdc, GetSysColor(COLOR_GRAYTEXT));
    RECT rect;
    GetClientRect(hWnd, &rect);
    FillRect(hdc, &rect, hBrush);

    HGDIOBJ hOldFont = GetFont(hWnd) != NULL ? SelectObject(hdc, GetFont(hWnd)) : NULL;
    Layout layout;
    MakeLayout(hWnd, hdc, bWithMs, layout);
    SetBkMode(hdc, TRANSPARENT);
    TextOutA(hdc, layout.ptText.x, layout.ptText.y, layout.szText, layout.nLength);
    if (bEnabled && GetFocus() == hWnd)
    {
        int nField = GetCurrentField(hWnd, bWithMs);
        RECT rectField = {layout.axStart[nField], layout.ptText.y, layout.axEnd[nField],
                          layout.ptText.y + layout.nHeight};
        SetTextColor(hdc, GetSysColor(COLOR_HIGHLIGHTTEXT));
        SetBkColor(hdc, GetSysColor(COLOR_HIGHLIGHT));
        ExtTextOutA(hdc, rectField.left, rectField.top, ETO_OPAQUE, &rectField,
                    layout.szText + s_aFields[nField].nOffset,
                    static_cast<UINT>(s_aFields[nField].nDigits), NULL);
    }
    if (hOldFont != NULL)
        SelectObject(hdc, hOldFont);
    EndPaint(hWnd, &ps);
}

// Answers false for keys that are not the field's own.
bool OnKeyDown(HWND hWnd, bool bWithMs, WPARAM nKey)
{
    int nField = GetCurrentField(hWnd, bWithMs);
    const FieldInfo& field = s_aFields[nField];
    LONG nFieldValue = GetFieldValue(GetValue(hWnd), nField);
    switch (nKey)
    {
    case VK_LEFT:
        SetCurrentField(hWnd, nField > 0 ? nField - 1 : 0);
        return true;
    case VK_RIGHT:
        SetCurrentField(hWnd, nField + 1 < GetFieldCount(bWithMs) ? nField + 1 : nField);
        return true;
    case VK_UP:
    case VK_DOWN:
        nFieldValue = nKey == VK_UP ? (nFieldValue + 1) % (field.nMax + 1)
                                    : (nFieldValue + field.nMax) % (field.nMax + 1);
        SetWindowLongA(hWnd, WW_DIGITS, 0);
        SetValueByUser(hWnd, WithFieldValue(GetValue(hWnd), nField, nFieldValue));
        return true;
    default:
        return false;
    }
}

void MoveToNextField(HWND hWnd, bool bWithMs)
{
    int nField = GetCurrentField(hWnd, bWithMs);
    if (nField + 1 < GetFieldCount(bWithMs))
        SetCurrentField(hWnd, nField + 1);
    else
        SetWindowLongA(hWnd, WW_DIGITS, 0); // the last field starts over
}

void OnDigit(HWND hWnd, bool bWithMs, int nDigit)
{
    int nField = GetCurrentField(hWnd, bWithMs);
    const FieldInfo& field = s_aFields[nField];
    LONG nTyped = GetWindowLongA(hWnd, WW_DIGITS);
    LONG nFieldValue = nTyped == 0 ? nDigit : GetFieldValue(GetValue(hWnd), nField) * 10 + nDigit;
    ++nTyped;
    SetWindowLongA(hWnd, WW_DIGITS, nTyped);
    SetValueByUser(hWnd, WithFieldValue(GetValue(hWnd), nField, nFieldValue));
    // Full when no further digit could keep the field in range: 6 in the minutes means 06.
    if (nTyped >= field.nDigits || nFieldValue * 10 > field.nMax)
        MoveToNextField(hWnd, bWithMs);
}

LRESULT OnSetValue(HWND hWnd, bool bWithMs, LPARAM lParam)
{
    LONG_PTR nUnitMs = bWithMs ? 1 : 1000;
    LONG_PTR nValue = lParam;
    if (nValue < 0)
        nValue = 0;
    if (nValue > MAX_VALUE_MS / nUnitMs)
        nValue = MAX_VALUE_MS / nUnitMs;
    SetWindowLongA(hWnd, WW_VALUE, static_cast<LONG>(nValue * nUnitMs));
    SetWindowLongA(hWnd, WW_DIGITS, 0);
    InvalidateRect(hWnd, NULL, FALSE);
    return nValue;
}

LRESULT TimeFieldProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam, bool bWithMs)
{
    switch (nMsg)
    {
    case WM_USER: return OnSetValue(hWnd, bWithMs, lParam);
    case WM_USER + 1: return bWithMs ? GetValue(hWnd) : GetValue(hWnd) / 1000;
    case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFONT:
        SetWindowLongPtrA(hWnd, WW_FONT, static_cast<LONG_PTR>(wParam));
        if (LOWORD(lParam))
            InvalidateRect(hWnd, NULL, FALSE);
        return 0;
    case WM_GETFONT: return GetWindowLongPtrA(hWnd, WW_FONT);
    case WM_PAINT: OnPaint(hWnd, bWithMs); return 0;
    case WM_ERASEBKGND: return 1; // WM_PAINT fills the background
    case WM_ENABLE: InvalidateRect(hWnd, NULL, FALSE); return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        SetWindowLongA(hWnd, WW_DIGITS, 0);
        InvalidateRect(hWnd, NULL, FALSE);
        return 0;
    case WM_LBUTTONDOWN:
        SetFocus(hWnd);
        SetCurrentField(hWnd, GetFieldFromX(hWnd, bWithMs, static_cast<short>(LOWORD(lParam))));
        return 0;
    case WM_KEYDOWN:
        if (OnKeyDown(hWnd, bWithMs, wParam))
            return 0;
        break;
    case WM_CHAR:
        if (wParam >= '0' && wParam <= '9')
            OnDigit(hWnd, bWithMs, static_cast<int>(wParam - '0'));
        else if (wParam == ':' || wParam == '.')
            MoveToNextField(hWnd, bWithMs);
        return 0;
    }
    return DefWindowProcA(hWnd, nMsg, wParam, lParam);
}

LRESULT CALLBACK TimeClassProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    return TimeFieldProc(hWnd, nMsg, wParam, lParam, false);
}

LRESULT CALLBACK MsTimeClassProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    return TimeFieldProc(hWnd, nMsg, wParam, lParam, true);
}

BOOL RegisterTimeClass(HINSTANCE hInstance, LPCSTR lpszClass, WNDPROC pfnProc)
{
    WNDCLASSEXA wc;
    wc.cbSize = sizeof(wc);
    if (GetClassInfoExA(hInstance, lpszClass, &wc))
        return TRUE;
    ZeroMemory(&wc, sizeof(wc));
    wc.cbSize = sizeof(wc);
    wc.style = CS_GLOBALCLASS | CS_HREDRAW | CS_VREDRAW;
    wc.lpfnWndProc = pfnProc;
    wc.cbWndExtra = WINDOW_WORDS;
    wc.hInstance = hInstance;
    wc.hCursor = LoadCursor(NULL, IDC_IBEAM);
    wc.lpszClassName = lpszClass;
    return RegisterClassExA(&wc) != 0;
}

} // namespace

BOOL KelRegisterTimeClasses(HINSTANCE hInstance)
{
    BOOL bTime = RegisterTimeClass(hInstance, KEL_TIMECLASS, TimeClassProc);
    BOOL bMsTime = RegisterTimeClass(hInstance, KEL_MSTIMECLASS, MsTimeClassProc);
    return bTime && bMsTime;
}

void KelUnregisterTimeClasses(HINSTANCE hInstance)
{
    UnregisterClassA(KEL_TIMECLASS, hInstance);
    UnregisterClassA(KEL_MSTIMECLASS, hInstance);
}
