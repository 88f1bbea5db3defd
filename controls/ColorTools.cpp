#include "controls/ColorTools.h"

#include <commdlg.h>

namespace
{
// The dialog's row of custom colours, one for the whole process.
COLORREF s_acrCustomColors[16] = {
    RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
    RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
    RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
    RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
};
} // namespace

BOOL KelChooseColor(CWnd* pOwner, COLORREF& cr)
{
    CHOOSECOLORA cc = {};
    cc.lStructSize = sizeof(cc);
    cc.hwndOwner = pOwner->GetSafeHwnd();
    cc.rgbResult = cr != CLR_NONE ? cr : RGB(255, 255, 255);
    cc.lpCustColors = s_acrCustomColors;
    cc.Flags = CC_RGBINIT | CC_ANYCOLOR;
    if (!::ChooseColorA(&cc))
        return FALSE;
    cr = cc.rgbResult;
    return TRUE;
}

void KelPaintSwatch(CDC* pDC, CRect& rc, COLORREF crColor, BOOL bBorder, COLORREF crFrame)
{
    if (bBorder)
    {
        CBrush brFrame;
        brFrame.CreateSolidBrush(crFrame);
        pDC->FrameRect(rc, &brFrame);
        rc.DeflateRect(1, 1);
    }
    if (crColor != CLR_NONE)
    {
        pDC->FillSolidRect(rc, crColor);
        return;
    }
    CBrush brHatch;
    brHatch.CreateHatchBrush(HS_BDIAGONAL, ::GetSysColor(COLOR_GRAYTEXT));
    int nOldMode = pDC->SetBkMode(OPAQUE);
    COLORREF crOldBack = pDC->SetBkColor(::GetSysColor(COLOR_BTNFACE));
    pDC->FillRect(rc, &brHatch);
    pDC->SetBkColor(crOldBack);
    pDC->SetBkMode(nOldMode);
}
