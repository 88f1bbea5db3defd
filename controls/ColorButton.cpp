#include "controls/ColorButton.h"

#include "controls/ColorTools.h"

IMPLEMENT_DYNAMIC(CColorOwnerDrawButton, CKelButton)

CColorOwnerDrawButton::CColorOwnerDrawButton() : m_crColor(CLR_NONE), m_bBorder(1) {}

void CColorOwnerDrawButton::SetColor(COLORREF crColor)
{
    m_crColor = crColor;
    if (::IsWindow(m_hWnd))
        Invalidate();
}

void CColorOwnerDrawButton::SetBorder(BOOL bBorder)
{
    m_bBorder = bBorder;
    if (::IsWindow(m_hWnd))
        Invalidate();
}

BOOL CColorOwnerDrawButton::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style = (cs.style & ~BS_TYPEMASK) | BS_OWNERDRAW;
    return CKelButton::PreCreateWindow(cs);
}

void CColorOwnerDrawButton::PreSubclassWindow()
{
    CKelButton::PreSubclassWindow();
    if ((GetStyle() & BS_TYPEMASK) != BS_OWNERDRAW)
        ModifyStyle(BS_TYPEMASK, BS_OWNERDRAW);
}

void CColorOwnerDrawButton::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    CDC* pDC = CDC::FromHandle(lpDrawItemStruct->hDC);
    CRect rcButton(lpDrawItemStruct->rcItem);
    UINT uState = lpDrawItemStruct->itemState;
    BOOL bPushed = (uState & ODS_SELECTED) != 0;
    pDC->DrawFrameControl(rcButton, DFC_BUTTON, DFCS_BUTTONPUSH | (bPushed ? DFCS_PUSHED : 0));

    CRect rcSwatch(rcButton);
    rcSwatch.DeflateRect(4, 4);
    if (bPushed)
        rcSwatch.OffsetRect(1, 1);
    KelPaintSwatch(pDC, rcSwatch, m_crColor, m_bBorder,
                   (uState & ODS_DISABLED) != 0 ? ::GetSysColor(COLOR_GRAYTEXT) : RGB(0, 0, 0));
    if (uState & ODS_FOCUS)
    {
        rcButton.DeflateRect(3, 3);
        pDC->DrawFocusRect(rcButton);
    }
}

IMPLEMENT_DYNAMIC(CColorButton, CColorOwnerDrawButton)

BEGIN_MESSAGE_MAP(CColorButton, CColorOwnerDrawButton)
ON_CONTROL_REFLECT_EX(BN_CLICKED, OnClicked)
END_MESSAGE_MAP()

int CColorButton::ValidateAndGet(COLORREF& crColor, CDataExchange* pDX)
{
    if (m_crColor == CLR_NONE)
        return ReportFailure(FormatChoiceMessage(), pDX, FOCUS_WHEN_SHOWN);
    crColor = m_crColor;
    return TRUE;
}

BOOL CColorButton::OnClicked()
{
    COLORREF crOld = m_crColor;
    COLORREF crNew = crOld;
    if (KelChooseColor(GetParent(), crNew) && crNew != crOld)
    {
        SetColor(crNew);
        UpdateWindow();
        NMKELCOLOR nm = {};
        nm.hdr.hwndFrom = m_hWnd;
        nm.hdr.idFrom = GetDlgCtrlID();
        nm.hdr.code = CLRN_COLORCHANGED;
        nm.crOldColor = crOld;
        nm.crNewColor = crNew;
        ::SendMessage(::GetParent(m_hWnd), WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
    }
    // The parent gets BN_CLICKED as well.
    return FALSE;
}
