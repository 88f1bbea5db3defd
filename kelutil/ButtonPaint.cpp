// Button faces for owner-drawn buttons: the text, or a media-transport glyph.
#include "kelutil/KelUtilPrivate.h"

namespace
{

// The record glyph is red whatever the text colour, as on any recorder.
const COLORREF RECORD_COLOR = RGB(255, 0, 0);

bool IsGlyph(DWORD dwGlyph)
{
    switch (dwGlyph)
    {
    case KEL_GLYPH_PLAY:
    case KEL_GLYPH_STOP:
    case KEL_GLYPH_FFORWARD:
    case KEL_GLYPH_REWIND:
    case KEL_GLYPH_RECORD:
        return true;
    default:
        return false;
    }
}

// A triangle with its upright side at xBase and its point at xPoint.
void DrawTriangle(HDC hdc, int xBase, int xPoint, int yCentre, int nHalf)
{
    POINT apt[3] = {{xBase, yCentre - nHalf}, {xBase, yCentre + nHalf}, {xPoint, yCentre}};
    Polygon(hdc, apt, 3);
}

// Draws the glyph in a square of half the face's smaller side, centred on the face.
void DrawGlyph(HDC hdc, const RECT& rect, DWORD dwGlyph, COLORREF crGlyph, bool bDisabled)
{
    int nSide = rect.right - rect.left;
    if (rect.bottom - rect.top < nSide)
        nSide = rect.bottom - rect.top;
    int nHalf = nSide / 4;
    if (nHalf < 1)
        return;
    int x = (rect.left + rect.right) / 2;
    int y = (rect.top + rect.bottom) / 2;
    COLORREF crFill = dwGlyph == KEL_GLYPH_RECORD && !bDisabled ? RECORD_COLOR : crGlyph;
    HPEN hPen = CreatePen(PS_SOLID, 1, crGlyph);
    HBRUSH hBrush = CreateSolidBrush(crFill);
    HGDIOBJ hOldPen = SelectObject(hdc, hPen);
    HGDIOBJ hOldBrush = SelectObject(hdc, hBrush);
    switch (dwGlyph)
    {
    case KEL_GLYPH_PLAY:
        DrawTriangle(hdc, x - nHalf, x + nHalf, y, nHalf);
        break;
    case KEL_GLYPH_STOP:
    {
        // A little smaller than the triangles, which look smaller than a square of their size.
        int n = nHalf * 4 / 5 > 0 ? nHalf * 4 / 5 : 1;
        POINT apt[4] = {{x - n, y - n}, {x + n, y - n}, {x + n, y + n}, {x - n, y + n}};
        Polygon(hdc, apt, 4);
        break;
    }
    case KEL_GLYPH_FFORWARD:
        DrawTriangle(hdc, x - nHalf, x, y, nHalf);
        DrawTriangle(hdc, x, x + nHalf, y, nHalf);
        break;
    case KEL_GLYPH_REWIND:
        DrawTriangle(hdc, x + nHalf, x, y, nHalf);
        DrawTriangle(hdc, x, x - nHalf, y, nHalf);
        break;
    case KEL_GLYPH_RECORD:
        Ellipse(hdc, x - nHalf, y - nHalf, x + nHalf + 1, y + nHalf + 1);
        break;
    }
    SelectObject(hdc, hOldBrush);
    SelectObject(hdc, hOldPen);
    DeleteObject(hBrush);
    DeleteObject(hPen);
}

void DrawButtonText(HWND hButton, HDC hdc, RECT rect, COLORREF crText)
{
    char szText[512];
    int nLength = GetWindowTextA(hButton, szText, sizeof(szText));
    HFONT hFont = reinterpret_cast<HFONT>(SendMessageA(hButton, WM_GETFONT, 0, 0));
    if (hFont != NULL)
        SelectObject(hdc, hFont); // the caller restores the DC
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, crText);
    DrawTextA(hdc, szText, nLength, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

} // namespace

BOOL __cdecl PaintButtonEx2(HWND hButton, HDC hdc, const KEL_BUTTON_PARAMS* params)
{
    if (!IsWindow(hButton) || hdc == NULL || params == NULL ||
        params->cbSize != sizeof(KEL_BUTTON_PARAMS))
        return FALSE;
    bool bPressed = (params->wItemState & ODS_SELECTED) != 0;
    bool bDisabled = (params->wItemState & ODS_DISABLED) != 0;
    RECT rect;
    GetClientRect(hButton, &rect);
    int nSavedDC = SaveDC(hdc);

    KelFillSolidRect(hdc, rect, params->crFace);
    DrawEdge(hdc, &rect, bPressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_ADJUST);
    RECT rectContent = rect;
    if (bPressed)
        OffsetRect(&rectContent, 1, 1);
    COLORREF crContent = bDisabled ? GetSysColor(COLOR_GRAYTEXT) : params->crText;
    if (IsGlyph(params->dwGlyph))
        DrawGlyph(hdc, rectContent, params->dwGlyph, crContent, bDisabled);
    else
        DrawButtonText(hButton, hdc, rectContent, crContent);
    if (params->wItemState & ODS_FOCUS)
    {
        InflateRect(&rect, -2, -2);
        DrawFocusRect(hdc, &rect);
    }

    RestoreDC(hdc, nSavedDC);
    return TRUE;
}
