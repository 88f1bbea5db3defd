// CGridInPlaceEdit: the grid's own in-place edit box. It wants every key, even inside a dialog,
// so that Enter, Escape and Tab end the edit rather than pressing the dialog's buttons or moving
// the focus past the grid: Enter and Tab take the text (Tab then reaches the grid as its own
// key), Escape drops it.
#pragma once

#include <afxwin.h>

class AFX_EXT_CLASS CGridInPlaceEdit : public CEdit
{
    DECLARE_DYNAMIC(CGridInPlaceEdit)
public:
    CGridInPlaceEdit() {}

protected:
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()
};
