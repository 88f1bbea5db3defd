// CStringStatic: a label with its own colours and font that keeps its text in the object as
// well as in the window, like the typed edits: a text given before a dialog creates the label
// is shown when the label is subclassed, and the last text can still be read after the window
// has gone. A fixed prefix and suffix (a "%" after a level) frame the values the typed statics
// print. A label never validates and never shows a message.
#pragma once

#include <afxwin.h>

#include "controls/Control.h"

class AFX_EXT_CLASS CStringStatic : public CStatic, public CControl
{
    DECLARE_DYNAMIC(CStringStatic)
public:
    CStringStatic();
    virtual ~CStringStatic();

    // Caches the text, remembers that the object was given one and shows it when the window
    // exists. A typed static also reads it back as a value.
    virtual void SetWindowText(LPCTSTR lpszText);
    // From the window if it exists, else the cached text.
    void GetWindowText(CString& strText) const;
    CString GetWindowText() const;
    CStringStatic& operator=(LPCTSTR lpszText);
    CStringStatic& operator=(const CString& strText);
    operator LPCTSTR();

    void SetTextColor(COLORREF crText);
    // CLR_NONE (the default) paints the dialog face behind the text.
    void SetBkColor(COLORREF crBack);
    // Replaces the owned font by CFont::CreatePointFont(nPointSize, lpszFaceName, pDC) and gives
    // it to the window, which must exist for WM_SETFONT to take effect.
    void SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);
    // Written before and after every value a typed static prints; NULL counts as empty.
    void SetAffixes(LPCTSTR lpszPrefix, LPCTSTR lpszSuffix);

protected:
    // Shows a text without reading it back (a value's own text).
    void ShowText(const CString& strText);
    // A typed static reads a text given from outside as a value; the label itself does nothing.
    virtual void ReadBackText(const CString& strText);
    // The text between the prefix and the suffix, trimmed: what a typed static parses.
    CString StripAffixes(const CString& strText) const;
    // A window that is being attached shows the text the object was given, or, when it was
    // given none, lends the object its own (read back as a value by a typed static).
    void AdoptWindowText();
    // Puts the text of the window back in the cache (it outlives the window).
    void CacheWindowText();

    void PreSubclassWindow() override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    COLORREF m_crText;
    COLORREF m_crBack;
    CBrush m_brBack;
    CFont* m_pFont;
    CString m_strText;
    int m_bTextSet;
    CString m_strPrefix;
    CString m_strSuffix;
};
