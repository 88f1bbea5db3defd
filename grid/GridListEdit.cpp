// CGridList: in-place editing. Until the editors come, an edit asks the host as designed and
// shows nothing, and no editor is ever open.
#include "grid/GridList.h"

int CGridList::OnGridEdit_Begin(int row, int col, int style, int trigger, UINT ch)
{
    if (!IsNonHdrCell(row, col) || (style != GES_EDIT && style != GES_COMBO))
        return 1;
    struct
    {
        NMHDR hdr;
        int nEditType;
        int nTrigger;
        int row;
        int col;
        HWND hEditWnd;
        int nChar;
        int bInit;
    } nm;
    nm.nEditType = style;
    nm.nTrigger = trigger;
    nm.row = row;
    nm.col = col;
    nm.hEditWnd = style == GES_EDIT ? m_wndEdit.GetSafeHwnd() : NULL;
    nm.nChar = static_cast<int>(ch);
    nm.bInit = style == GES_EDIT;
    SendGridNotify(&nm.hdr, GN_EDITBEGIN);
    return 1;
}

int CGridList::ProcessCustomEditKillFocus(HWND, int)
{
    return 1;
}
