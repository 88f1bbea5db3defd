// CColorOwnerDrawButton: a push button whose face is a colour swatch (CLR_NONE hatched), framed
// when the border is on; its window text is not drawn. The button is made owner-drawn whether
// it is created or subclassed.
//
// CColorButton: a swatch button that opens the colour dialog when clicked. When the user picks
// another colour it takes it and tells the parent CLRN_COLORCHANGED with the old and the new
// colour (NMKELCOLOR); the parent then receives BN_CLICKED as from any button, after the dialog
// has closed.
#pragma once

#include "controls/KelButton.h"

#define CLRN_COLORCHANGED (0U - 2040U)

struct NMKELCOLOR
{
    NMHDR hdr;
    COLORREF crOldColor;
    COLORREF crNewColor;
};

class AFX_EXT_CLASS CColorOwnerDrawButton : public CKelButton
{
    DECLARE_DYNAMIC(CColorOwnerDrawButton)
public:
    CColorOwnerDrawButton();

    void SetColor(COLORREF crColor);
    COLORREF GetColor() const { return m_crColor; }
    void SetBorder(BOOL bBorder);

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PreSubclassWindow() override;

    COLORREF m_crColor;
    int m_bBorder;
};

class AFX_EXT_CLASS CColorButton : public CColorOwnerDrawButton
{
    DECLARE_DYNAMIC(CColorButton)
public:
    // TRUE with the colour unless it is CLR_NONE; otherwise the failure path of the buttons.
    int ValidateAndGet(COLORREF& crColor, CDataExchange* pDX);

protected:
    afx_msg BOOL OnClicked();
    DECLARE_MESSAGE_MAP()
};
