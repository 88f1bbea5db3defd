// CComboGrid: a combo box whose drop-down is a small grid under a column header: the user picks
// a row of several columns, may sort the rows by clicking a title, and the combo shows one column
// of the chosen row (the text column) as its text.
//
// Toward its parent it is a combo box: CBN_DROPDOWN before opening, and when the drop-down
// closes always in this order: CBN_SELENDOK (a row taken) or CBN_SELENDCANCEL, CBN_CLOSEUP, then
// CBN_SELCHANGE when the chosen row changed, so that a host reading the choice on CBN_SELCHANGE
// sees the closed combo with its new text. The platform combo's own CBN_SELENDOK,
// CBN_SELENDCANCEL and CBN_SELCHANGE (sent whenever it loses the focus) are swallowed when the
// parent reflects them. Its own list never drops down: the combo answers CB_SHOWDROPDOWN,
// CB_GETDROPPEDSTATE and CB_GETDROPPEDCONTROLRECT itself, with the grid's state.
// Three notifications of its own come as WM_NOTIFY with NMCOMBOGRID (see below).
//
// Style: CBS_DROPDOWNLIST (typing finds a row by the key column) or CBS_DROPDOWN (an edit field;
// a typed text must match a row's text-column text when match is required). CBS_SIMPLE, CBS_SORT
// and the owner-drawn styles are refused.
//
// As a typed control it has a name, keeps its choice (row, row data, text) after the window has
// gone, and validates with a message (ValidateAndGet). Rows and columns need the window, as a
// combo's strings do: without it they answer -1 or 0.
#pragma once

#include <afxwin.h>

#include "controls/Control.h"
#include "grid/GridHeader.h"
#include "grid/GridList.h"
#include "grid/KelDropDown.h"

class CComboGridDropDown;
class CComboGridEdit;

// Notifications of the combo grid (WM_NOTIFY to its parent, with NMCOMBOGRID).
// Before the user changes the chosen row: old row, new row, the new row's data. Non-zero refuses.
#define CBGN_SELCHANGING (0U - 2000U)
// Before a newly chosen row's text is shown: row, data, and the text column's text in a buffer
// of 256 characters that the host may rewrite; the buffer as left is shown. The reply is ignored.
#define CBGN_GETDISPTEXT (0U - 2001U)
// A header click is about to sort: column and sort type. Non-zero: no sort.
#define CBGN_SORTING (0U - 2002U)

// Fields a code does not use are -1, 0xFFFFFFFF or null.
struct NMCOMBOGRID
{
    NMHDR hdr;
    int nOldRow;
    int nNewRow;
    DWORD dwData; // the new row's data
    int nCol;
    short nSortType;
    short nReserved;
    char* pszText;
    int cchText;
};
#ifndef _WIN64
static_assert(sizeof(NMCOMBOGRID) == 40, "the combo grid record is 40 bytes on Win32");
#endif

class AFX_EXT_CLASS CComboGrid : public CComboBox, public CControl
{
    DECLARE_DYNAMIC(CComboGrid)
public:
    CComboGrid();
    ~CComboGrid() override;

    // ---- Creation and columns ------------------------------------------------------------------
    // CBS_DROPDOWN or CBS_DROPDOWNLIST only; CBS_HASSTRINGS is added. FALSE when the style is
    // refused or the drop-down cannot be made.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);
    // 1..64 columns of width 80 with empty titles; discards every row and the choice.
    BOOL SetColumnCount(int nCols);
    int GetColumnCount() const;
    // nFormat: 0 left, 1 right, 2 centred; nSortClass: 0 text, 1 numbers, 2 times.
    BOOL SetColumn(int nCol, const char* pszTitle, int nWidth, int nFormat = 0, short nSortClass = 0);
    BOOL SetTextColumn(int nCol);
    int GetTextColumn() const { return m_nTextCol; }
    BOOL SetKeyColumn(int nCol);
    int GetKeyColumn() const { return m_nKeyCol; }
    // Whether the header's dividers can be dragged.
    void SetColumnsSizable(BOOL bSizable);

    // ---- Rows ----------------------------------------------------------------------------------
    int AddRow(const char* pszText0, DWORD dwData = 0xFFFFFFFF);
    // A negative row or one past the end appends.
    int InsertRow(int nRow, const char* pszText0, DWORD dwData);
    BOOL SetItemText(int nRow, int nCol, const char* pszText);
    CString GetItemText(int nRow, int nCol) const;
    BOOL SetRowData(int nRow, DWORD dwData);
    DWORD GetRowData(int nRow) const;
    BOOL SetRowColors(int nRow, COLORREF crText, COLORREF crBack);
    BOOL DeleteRow(int nRow);
    void DeleteAllRows();
    int GetRowCount() const;
    // The first row whose text in nCol (-1: the text column) equals pszText, or begins with it
    // with bPrefix, without regard to case; -1 when none.
    int FindRowText(const char* pszText, int nCol = -1, BOOL bPrefix = FALSE) const;
    int FindRowData(DWORD dwData) const;

    // ---- Choice --------------------------------------------------------------------------------
    int GetCurSel() const { return m_nCurRow; }
    // -1 clears; CB_ERR for a row out of range. No notification.
    int SetCurSel(int nRow);
    int SetCurSelByData(DWORD dwData);
    DWORD GetCurSelData() const { return m_dwCurData; }
    // The field text: from the window, or the cached one without it.
    void GetWindowText(CString& strText) const;
    CString GetWindowText() const;

    // Settles the choice (drop-down style: from the field text) and returns it in nRow; FALSE with
    // the control's message when it is refused.
    BOOL ValidateAndGet(int& nRow, CDataExchange* pDX = NULL);
    BOOL GetValue(int& nRow) { return ValidateAndGet(nRow, NULL); }
    BOOL Validate();
    void SetRequired(int bRequired) { m_bRequired = bRequired; }
    void SetMatchRequired(int bMatch) { m_bMatchRequired = bMatch; }
    void SetAutoComplete(int bAutoComplete) { m_bAutoComplete = bAutoComplete; }
    void EnableHeaderSort(int bEnable);
    void SetTextColor(COLORREF crText);
    void SetBkColor(COLORREF crBack);
    // Replaces the owned font and gives it to the window, when there is one.
    void SetFont(int nPointSize, const char* pszFace, CDC* pDC = NULL);

    // ---- Drop-down -----------------------------------------------------------------------------
    // FALSE closes without taking. The result: non-zero when the state changed.
    BOOL ShowDropDown(BOOL bShow = TRUE);
    void CloseDropDown(BOOL bTake);
    BOOL GetDroppedState() const { return m_bDropped; }
    // 1..50 data rows shown without scrolling.
    BOOL SetDropDownRows(int nRows);
    // Pixels; 0 sizes the drop-down to its columns, at least the combo's width.
    void SetDropDownWidth(int nWidth) { m_nDropDownWidth = nWidth > 0 ? nWidth : 0; }
    // For colours, fonts and images; not for changing the shape. Null without a window.
    CGridList* GetList() const;
    CGridHeader* GetHeader() const;
    // The screen area the drop-down must stay in: the primary screen. Override for a taskbar at
    // the top or left, or for several monitors.
    virtual void GetMonitorRect(CRect& rcMonitor);

protected:
    friend class CComboGridDropDown;
    friend class CComboGridList;
    friend class CComboGridEdit;

    void PreSubclassWindow() override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnClose();
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCancelMode();
    afx_msg LRESULT OnCloseUp(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnShowDropDownMsg(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetDroppedStateMsg(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetDroppedControlRect(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    bool IsDropDownList() const;
    // Makes the drop-down and, in drop-down style, the field edit; FALSE when the style is
    // refused or a window cannot be made.
    BOOL CreateParts();
    // The list's style, flags and keyboard-find column, as SetColumnCount leaves them.
    void ConfigureList();
    // A key of the combo or its field edit; true when it was handled here.
    bool HandleKey(UINT nChar, bool bAlt);
    // The closed combo's move to a row chosen by key or type-ahead (-1 stays).
    void MoveChoiceTo(int nRow);
    // A change of the chosen row by the user: CBGN_SELCHANGING, then the row becomes current and
    // its text shown. FALSE when the host refused.
    bool AskSelChanging(int nRow);
    void MakeCurrent(int nRow);
    // The shown text of a row (after CBGN_GETDISPTEXT), cut to 255 characters.
    CString GetDisplayText(int nRow);
    void ShowFieldText(const CString& strText);
    // The hidden list's caret and selection on a row (nowhere for -1).
    void PutListOn(int nRow, bool bEnsureVisible);
    void SendCommand(UINT nCode);
    LRESULT SendComboNotify(UINT nCode, NMCOMBOGRID& nm);
    // A header click on a column (the drop-down passes it on).
    void SortOnColumn(int nCol);
    // The field edit's text changed by typing (drop-down style).
    void OnEditChange();
    void CacheWindowState();

    COLORREF m_crText;
    COLORREF m_crBack;
    CBrush m_brBack;
    CFont* m_pFont;
    CComboGridDropDown* m_pDropDown;
    CComboGridEdit* m_pFieldEdit;
    int m_nCurRow;
    CString m_strText;
    DWORD m_dwCurData;
    int m_nTextCol;
    int m_nKeyCol;
    int m_nDropDownRows;
    int m_nDropDownWidth;
    int m_bHeaderSort;
    int m_bRequired;
    int m_bMatchRequired;
    int m_bAutoComplete;
    int m_bDropped;
    BOOL m_bColumnsSizable = TRUE;
    bool m_bInCreate = false;
    // The combo sends a CBN_ code itself: its reflection passes.
    bool m_bNotifying = false;
    UINT m_nLastEditKey = 0;
    CKelDropDown m_dropDownHelper;
};
