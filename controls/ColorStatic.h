// CColorStatic: a swatch label. It fills its client area with its colour (CLR_NONE hatched),
// framed when the border is on, and in a text mode shows the colour's text, "RGB(r,g,b)" (1)
// or "#RRGGBB" (2), centred in black or white, whichever stands out from the colour. The text
// is the label's own window text, so it is read as any label's; text mode 0 draws none.
// With SS_NOTIFY a click reaches the parent as STN_CLICKED.
#pragma once

#include "controls/StringStatic.h"

class AFX_EXT_CLASS CColorStatic : public CStringStatic
{
    DECLARE_DYNAMIC(CColorStatic)
public:
    enum TEXT_MODE
    {
        TEXT_NONE = 0,
        TEXT_RGB = 1,
        TEXT_HEX = 2
    };

    CColorStatic();

    void SetColor(COLORREF crColor);
    COLORREF GetColor() const { return m_crColor; }
    void SetBorder(BOOL bBorder);
    // FALSE, with the mode kept, for a mode outside 0..2.
    BOOL SetTextMode(int nTextMode);
    // 1 with the colour when it is not CLR_NONE.
    int GetValue(COLORREF& crColor) const;

    // Black on a light colour, white on a dark one (by the colour's luma).
    static COLORREF GetContrastColor(COLORREF crColor);

protected:
    // The text of the colour in the current mode becomes the window text.
    void ShowColorText();

    afx_msg void OnPaint();
    DECLARE_MESSAGE_MAP()

    COLORREF m_crColor;
    int m_bBorder;
    int m_nTextMode;
};
