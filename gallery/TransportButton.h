// An owner-drawn button whose face KEL_Util paints (PaintButtonEx2), with the parameter block
// filled in as KelControls' own button fills it: a text face or a transport glyph on its face
// colour. A state can be fixed so that the face always shows it, pressed or focused.
#pragma once

#include <afxwin.h>

class CTransportButton : public CButton
{
public:
    CTransportButton();

    // dwGlyph: a KEL_GLYPH_* code (KEL_GLYPH_TEXT for the caption); crFace CLR_NONE for the
    // system's button face.
    BOOL Create(LPCTSTR lpszCaption, DWORD dwGlyph, COLORREF crFace, const RECT& rect, CWnd* pParentWnd,
                UINT nID);
    // ODS_* flags drawn whatever the button's real state.
    void SetFixedState(UINT nState) { m_nFixedState = nState; }

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

private:
    DWORD m_dwGlyph;
    COLORREF m_crFace;
    UINT m_nFixedState;
};
