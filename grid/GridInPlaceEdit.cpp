#include "grid/GridInPlaceEdit.h"

#include "grid/GridList.h"

IMPLEMENT_DYNAMIC(CGridInPlaceEdit, CEdit)

BEGIN_MESSAGE_MAP(CGridInPlaceEdit, CEdit)
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
ON_WM_CHAR()
END_MESSAGE_MAP()

UINT CGridInPlaceEdit::OnGetDlgCode()
{
    return CEdit::OnGetDlgCode() | DLGC_WANTALLKEYS;
}

void CGridInPlaceEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    CGridList* pGrid = DYNAMIC_DOWNCAST(CGridList, GetParent());
    if (pGrid == NULL || !pGrid->IsEditing() || pGrid->GetEditWnd() != m_hWnd ||
        (nChar != VK_RETURN && nChar != VK_ESCAPE && nChar != VK_TAB))
    {
        CEdit::OnKeyDown(nChar, nRepCnt, nFlags);
        return;
    }
    Cell cell = pGrid->GetEditCell();
    pGrid->OnGridEdit_Close(cell.row, cell.col, 0, nChar != VK_ESCAPE, nChar == VK_TAB ? VK_TAB : 0);
}

void CGridInPlaceEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    // The keys that end the edit would only make the edit box beep.
    if (nChar == '\r' || nChar == '\x1b' || nChar == '\t')
        return;
    CEdit::OnChar(nChar, nRepCnt, nFlags);
}
