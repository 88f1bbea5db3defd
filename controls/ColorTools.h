// What the colour controls share: the colour dialog with the process-wide custom colours, so
// that a colour mixed in one control is offered by the next, and the painting of a swatch.
// Internal to the library.
#pragma once

#include <afxwin.h>

// Opens the system's colour dialog owned by pOwner, starting at cr (white when cr is CLR_NONE).
// TRUE with the chosen colour in cr on OK; FALSE, cr unchanged, on Cancel or failure.
BOOL KelChooseColor(CWnd* pOwner, COLORREF& cr);

// Fills rc with the colour, framed one pixel in crFrame when bBorder is set (rc then shrinks by
// that pixel). CLR_NONE paints the button face hatched in the grey-text colour.
void KelPaintSwatch(CDC* pDC, CRect& rc, COLORREF crColor, BOOL bBorder, COLORREF crFrame);
