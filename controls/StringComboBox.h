// CStringComboBox: the combo box base of every typed combo. Like CStringEdit it keeps its text,
// and its selection too, in the object as well as in the window: a selection made before a
// dialog creates the combo is applied when the combo is subclassed, and the last text and
// selection can still be read after the window has gone.
//
// A typed combo puts a typed edit over the combo's own edit field (the field edit, created by
// CreateFieldEdit), so that typing into the combo is filtered as in the matching edit. The
// combo owns that edit object and keeps its colours in step with its own.
#pragma once

#include <afxwin.h>

#include "controls/Control.h"

class CStringEdit;

class AFX_EXT_CLASS CStringComboBox : public CComboBox, public CControl
{
    DECLARE_DYNAMIC(CStringComboBox)
public:
    CStringComboBox();
    virtual ~CStringComboBox();

    // The new index, or -1 without a window. With data, the new item also carries it.
    int AddString(LPCTSTR lpszString);
    int AddString(LPCTSTR lpszString, void* pData);

    // The selection of the window, or the cached one without a window.
    int GetCurSel();
    // Also the text: from the window (caching it), or the cached text without a window.
    int GetCurSel(CString& strText);
    // Also the selected item's data; null without a window or a selection.
    int GetCurSel(void*& pData);
    // Caches the index and, with a window, selects it and caches what the window answers.
    int SetCurSel(int nSelect);
    // Selects the first item (lowest index) carrying the data; -1 when none does.
    int SetCurSel(void* pData);

    // The text of an item; empty for an index outside the list. GetAt(int, CString&) returns
    // FALSE then.
    BOOL GetAt(int nIndex, CString& strText) const;
    CString GetAt(int nIndex) const;

    // From the window if it exists, else the cached text.
    void GetWindowText(CString& strText) const;
    // From the window, caching the result; without a window at most nMaxCount bytes of the cache
    // (terminator included). Returns the length copied.
    int GetWindowText(LPTSTR lpszBuffer, int nMaxCount);
    // Caches the text and, with a window, puts it into the edit field.
    void SetWindowText(LPCTSTR lpszText);

    CStringComboBox& operator=(LPCTSTR lpszText);
    CStringComboBox& operator=(const CString& strText);
    CStringComboBox& operator=(int nSelect);
    operator CString();
    operator int();

    void SetTextColor(COLORREF crText) { m_crText = crText; }
    void SetBkColor(COLORREF crBack) { m_crBack = crBack; }
    // Replaces the owned font by CFont::CreatePointFont(nPointSize, lpszFaceName, pDC) and gives
    // it to the window, which must exist for WM_SETFONT to take effect.
    void SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);

    // The typed edit over the edit field, or NULL (a text combo, or no window yet).
    CStringEdit* GetFieldEdit() const { return m_pFieldEdit; }

protected:
    // The typed edit to put over the edit field, with the combo's bounds and settings; NULL
    // for a text combo.
    virtual CStringEdit* CreateFieldEdit();

    void PreSubclassWindow() override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    // The text a typed combo validates: with index -1 the edit field's (through DDX_CBString
    // while an exchange saves), else item nIndex's, though an exchange runs DDX_CBString first.
    // FALSE, quietly, for a negative index or one past the count: the count itself passes and
    // reads an empty text, which the parser judges.
    BOOL GetValidationText(int nIndex, CDataExchange* pDX, CString& strText);

    // Subclasses the edit field (the combo's first child) with CreateFieldEdit's edit, unless
    // the field edit holds it already.
    void AttachFieldEdit();
    // The text and the selection of the window go into the cache (they outlive the window).
    void CacheWindowState();
    // Colours the edit field: the colours on the device context, a fresh brush, the field
    // edit told the combo's colours. Returns the brush.
    HBRUSH ColorEditField(HDC hDC);

    COLORREF m_crText;
    COLORREF m_crBack;
    CFont* m_pFont;
    CBrush m_brBack;
    CString m_strText;
    int m_nSel;
    CStringEdit* m_pFieldEdit;
};
