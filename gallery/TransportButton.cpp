#include "gallery/TransportButton.h"

#include <string.h>

#include "kelutil/KEL_Util.h"

CTransportButton::CTransportButton() : m_dwGlyph(KEL_GLYPH_TEXT), m_crFace(CLR_NONE), m_nFixedState(0) {}

BOOL CTransportButton::Create(LPCTSTR lpszCaption, DWORD dwGlyph, COLORREF crFace, const RECT& rect,
                              CWnd* pParentWnd, UINT nID)
{
    m_dwGlyph = dwGlyph;
    m_crFace = crFace;
    return CButton::Create(lpszCaption, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, rect, pParentWnd, nID);
}

void CTransportButton::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    KEL_BUTTON_PARAMS params;
    memset(&params, 0, sizeof(params));
    params.cbSize = sizeof(params);
    params.wItemState = static_cast<WORD>(lpDrawItemStruct->itemState | m_nFixedState);
    params.crText = ::GetSysColor(COLOR_WINDOWTEXT);
    params.crSysFace = ::GetSysColor(COLOR_BTNFACE);
    params.crFace = m_crFace != CLR_NONE ? m_crFace : params.crSysFace;
    params.dwGlyph = m_dwGlyph;
    PaintButtonEx2(m_hWnd, lpDrawItemStruct->hDC, &params);
}
