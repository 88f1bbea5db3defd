// CStringEdit: the edit base of every typed edit. It keeps its text in the object as well as in
// the window, so a value assigned before the dialog creates the control is shown when it is
// subclassed, and the last text can still be read after the window has gone. It owns its font
// and the brush it hands its parent for painting.
//
// Keystrokes, key presses and pastes are filtered: the edit does its normal work with redrawing
// off, then the virtual DynamicValidate judges the new text (with message boxes off); a refused
// change beeps and brings the previous text and selection back. Only typed characters honour
// the dynamic-checking switch: a key press (Delete) or a paste is always checked, and callers
// rely on that asymmetry. An empty text is never checked, so clearing the field always works.
#pragma once

#include <afxwin.h>

#include "controls/Control.h"

class AFX_EXT_CLASS CStringEdit : public CEdit, public CControl
{
    DECLARE_DYNAMIC(CStringEdit)
public:
    CStringEdit();
    virtual ~CStringEdit();

    virtual int Validate();
    virtual int DynamicValidate();

    // From the window if it exists, else the cached text.
    void GetWindowText(CString& strText) const;
    // Refreshes the cache from the window first.
    CString GetWindowText();
    // From the window, caching the result; without a window at most nMaxCount bytes of the cache
    // (terminator included). Returns the length copied.
    int GetWindowText(LPTSTR lpszBuffer, int nMaxCount);
    void SetWindowText(LPCTSTR lpszText);
    CStringEdit& operator=(LPCTSTR lpszText);
    CStringEdit& operator=(const CString& strText);
    operator LPCTSTR();

    void SetTextColor(COLORREF crText) { m_crText = crText; }
    void SetBkColor(COLORREF crBack) { m_crBack = crBack; }
    // Replaces the owned font by CFont::CreatePointFont(nPointSize, lpszFaceName, pDC) and gives
    // it to the window, which must exist for WM_SETFONT to take effect.
    void SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);

protected:
    void PreSubclassWindow() override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnPaste(WPARAM wParam, LPARAM lParam);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    // Lets the edit handle the current message, then judges the change (see above). A character
    // is judged whenever the new text is non-empty; a key press or paste only when it also
    // changed the text.
    enum FILTER_KIND
    {
        FILTER_CHAR,
        FILTER_KEY,
        FILTER_PASTE
    };
    LRESULT FilterChange(FILTER_KIND kind);
    // Puts the text of the window back in the cache (it outlives the window).
    void CacheWindowText();
    // The window's text in one message when it is short, as it nearly always is: a keystroke
    // reads the text three times, and every message to an edit is dear.
    void ReadWindowText(CString& strText) const;

    COLORREF m_crText;
    COLORREF m_crBack;
    CFont* m_pFont;
    CBrush m_brBack;
    CString m_strText;
};
