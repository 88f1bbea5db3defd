#include "controls/ColorStatic.h"

#include "controls/ColorTools.h"

IMPLEMENT_DYNAMIC(CColorStatic, CStringStatic)

BEGIN_MESSAGE_MAP(CColorStatic, CStringStatic)
ON_WM_PAINT()
END_MESSAGE_MAP()

CColorStatic::CColorStatic() : m_crColor(CLR_NONE), m_bBorder(1), m_nTextMode(TEXT_NONE) {}

void CColorStatic::SetColor(COLORREF crColor)
{
    m_crColor = crColor;
    ShowColorText();
    if (::IsWindow(m_hWnd))
        Invalidate();
}

void CColorStatic::SetBorder(BOOL bBorder)
{
    m_bBorder = bBorder;
    if (::IsWindow(m_hWnd))
        Invalidate();
}

BOOL CColorStatic::SetTextMode(int nTextMode)
{
    if (nTextMode < TEXT_NONE || nTextMode > TEXT_HEX)
        return FALSE;
    m_nTextMode = nTextMode;
    ShowColorText();
    if (::IsWindow(m_hWnd))
        Invalidate();
    return TRUE;
}

int CColorStatic::GetValue(COLORREF& crColor) const
{
    if (m_crColor == CLR_NONE)
        return 0;
    crColor = m_crColor;
    return 1;
}

COLORREF CColorStatic::GetContrastColor(COLORREF crColor)
{
    int nLuma = (299 * GetRValue(crColor) + 587 * GetGValue(crColor) + 114 * GetBValue(crColor)) / 1000;
    return nLuma >= 128 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

void CColorStatic::ShowColorText()
{
    if (m_nTextMode == TEXT_NONE)
        return;
    CString strText;
    if (m_crColor != CLR_NONE)
        strText.Format(m_nTextMode == TEXT_RGB ? "RGB(%d,%d,%d)" : "#%02X%02X%02X", GetRValue(m_crColor),
                       GetGValue(m_crColor), GetBValue(m_crColor));
    ShowText(strText);
}

void CColorStatic::OnPaint()
{
    CPaintDC dc(this);
    CRect rc;
    GetClientRect(rc);
    BOOL bEnabled = IsWindowEnabled();
    KelPaintSwatch(&dc, rc, m_crColor, m_bBorder, ::GetSysColor(bEnabled ? COLOR_WINDOWFRAME : COLOR_GRAYTEXT));
    if (m_nTextMode == TEXT_NONE || m_crColor == CLR_NONE)
        return;
    CString strText;
    GetWindowText(strText);
    HFONT hFont = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    HGDIOBJ hOldFont = hFont != NULL ? ::SelectObject(dc.GetSafeHdc(), hFont) : NULL;
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GetContrastColor(m_crColor));
    dc.DrawText(strText, rc, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
    if (hOldFont != NULL)
        ::SelectObject(dc.GetSafeHdc(), hOldFont);
}
