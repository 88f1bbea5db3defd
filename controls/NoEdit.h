// CNoEdit: a window that can hold the focus but takes no text. It passes the navigation keys
// to its parent, which decides where the focus goes (a grid or a listing moving its cell):
// - Tab: WM_APP + 200 with (this window, 1), or 0 instead of 1 while Shift is down;
// - Up and Down: WM_APP + 201 with (this window, 1 for Up, 0 for Down).
// Typed characters are swallowed. In a dialog it asks for Tab, the arrows and the characters
// (WM_GETDLGCODE), so the dialog leaves them to it instead of moving the focus itself; Enter
// and Escape still reach the dialog's default and cancel buttons.
#pragma once

#include <afxwin.h>

class AFX_EXT_CLASS CNoEdit : public CWnd
{
    DECLARE_DYNAMIC(CNoEdit)
public:
    enum
    {
        WM_NOEDIT_TAB = WM_APP + 200,
        WM_NOEDIT_UPDOWN = WM_APP + 201
    };

protected:
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    DECLARE_MESSAGE_MAP()
};
