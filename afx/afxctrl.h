// The standard controls: CStatic, CButton, CEdit, CListBox, CComboBox and CScrollBar, thin
// wrappers over the system classes "STATIC", "BUTTON", "EDIT", "LISTBOX", "COMBOBOX" and
// "SCROLLBAR", as in MFC. Owner-draw buttons, list boxes and combo boxes get the parent's
// WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM and WM_DELETEITEM back through OnChildNotify,
// as calls of their virtual DrawItem, MeasureItem, CompareItem and DeleteItem.
#pragma once

#include <afxwnd.h>

class AFX_CORE_CLASS CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)
public:
    CStatic() {}

    BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);

    HICON SetIcon(HICON hIcon) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon))); }
    HICON GetIcon() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HICON>(SendMessage(STM_GETICON)); }
    HBITMAP SetBitmap(HBITMAP hBitmap) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap))); }
    HBITMAP GetBitmap() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP)); }
    HCURSOR SetCursor(HCURSOR hCursor) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HCURSOR>(SendMessage(STM_SETIMAGE, IMAGE_CURSOR, reinterpret_cast<LPARAM>(hCursor))); }
    HCURSOR GetCursor() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HCURSOR>(SendMessage(STM_GETIMAGE, IMAGE_CURSOR)); }
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HENHMETAFILE>(SendMessage(STM_SETIMAGE, IMAGE_ENHMETAFILE, reinterpret_cast<LPARAM>(hMetaFile))); }
    HENHMETAFILE GetEnhMetaFile() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HENHMETAFILE>(SendMessage(STM_GETIMAGE, IMAGE_ENHMETAFILE)); }
};

class AFX_CORE_CLASS CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)
public:
    CButton() {}

    BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    UINT GetState() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    void SetState(BOOL bHighlight) { ASSERT(::IsWindow(m_hWnd)); SendMessage(BM_SETSTATE, bHighlight); }
    int GetCheck() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int nCheck) { ASSERT(::IsWindow(m_hWnd)); SendMessage(BM_SETCHECK, nCheck); }
    // The BS_ type in the low byte of the style, as the system keeps it.
    UINT GetButtonStyle() const { return static_cast<UINT>(GetStyle()) & 0xff; }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { ASSERT(::IsWindow(m_hWnd)); SendMessage(BM_SETSTYLE, nStyle, bRedraw); }
    HICON SetIcon(HICON hIcon) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon))); }
    HICON GetIcon() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON)); }
    HBITMAP SetBitmap(HBITMAP hBitmap) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap))); }
    HBITMAP GetBitmap() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HBITMAP>(SendMessage(BM_GETIMAGE, IMAGE_BITMAP)); }
    HCURSOR SetCursor(HCURSOR hCursor) { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HCURSOR>(SendMessage(BM_SETIMAGE, IMAGE_CURSOR, reinterpret_cast<LPARAM>(hCursor))); }
    HCURSOR GetCursor() const { ASSERT(::IsWindow(m_hWnd)); return reinterpret_cast<HCURSOR>(SendMessage(BM_GETIMAGE, IMAGE_CURSOR)); }

    // Owner-draw buttons (BS_OWNERDRAW) override this; the default draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_CORE_CLASS CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)
public:
    CEdit() {}

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Selection: start in the low word, end in the high word.
    DWORD GetSel() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(SendMessage(EM_GETSEL)); }
    void GetSel(int& nStartChar, int& nEndChar) const;
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_REPLACESEL, bCanUndo, reinterpret_cast<LPARAM>(lpszNewText)); }

    void LimitText(int nChars = 0) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_LIMITTEXT, nChars); }
    void SetLimitText(UINT nMax) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETLIMITTEXT, nMax); }
    UINT GetLimitText() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT)); }

    // The character index in the low word and the line in the high word, as the system answers.
    int CharFromPos(CPoint pt) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y))); }
    CPoint PosFromChar(UINT nChar) const;
    int LineFromChar(int nIndex = -1) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_LINEFROMCHAR, nIndex)); }
    int LineIndex(int nLine = -1) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_LINEINDEX, nLine)); }
    int LineLength(int nLine = -1) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_LINELENGTH, nLine)); }
    int GetLineCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
    int GetFirstVisibleLine() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE)); }
    void LineScroll(int nLines, int nChars = 0) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_LINESCROLL, nChars, nLines); }
    // The caller's buffer holds its own size in its first word, as EM_GETLINE expects; the
    // text is not terminated.
    int GetLine(int nIndex, LPTSTR lpszBuffer) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(EM_GETLINE, nIndex, reinterpret_cast<LPARAM>(lpszBuffer))); }
    int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;

    BOOL CanUndo() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
    BOOL Undo() { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_UNDO)); }
    void EmptyUndoBuffer() { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_EMPTYUNDOBUFFER); }
    void Cut() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_CUT); }
    void Copy() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_COPY); }
    void Paste() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_PASTE); }
    void Clear() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_CLEAR); }

    BOOL SetReadOnly(BOOL bReadOnly = TRUE) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_SETREADONLY, bReadOnly)); }
    BOOL GetModify() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
    void SetModify(BOOL bModified = TRUE) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETMODIFY, bModified); }
    void SetPasswordChar(TCHAR ch) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETPASSWORDCHAR, static_cast<BYTE>(ch)); }
    TCHAR GetPasswordChar() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<TCHAR>(SendMessage(EM_GETPASSWORDCHAR)); }
    BOOL FmtLines(BOOL bAddEOL) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_FMTLINES, bAddEOL)); }
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_SETTABSTOPS, nTabStops, reinterpret_cast<LPARAM>(rgTabStops))); }
    BOOL SetTabStops(const int& cxEachStop) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&cxEachStop))); }
    void SetTabStops() { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETTABSTOPS); }

    void SetMargins(UINT nLeft, UINT nRight) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(nLeft, nRight)); }
    DWORD GetMargins() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(SendMessage(EM_GETMARGINS)); }
    void GetRect(LPRECT lpRect) const { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
    void SetRect(LPCRECT lpRect) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
    void SetRectNP(LPCRECT lpRect) { ASSERT(::IsWindow(m_hWnd)); SendMessage(EM_SETRECTNP, 0, reinterpret_cast<LPARAM>(lpRect)); }
};

// What list boxes and combo boxes share: the owner-draw messages their parent reflects come
// back as calls of these. Owner-draw lists override them; the defaults draw and measure
// nothing, keep the system's order (0) and need nothing on deletion.
class AFX_CORE_CLASS CAfxOwnerDrawList : public CWnd
{
public:
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_CORE_CLASS CListBox : public CAfxOwnerDrawList
{
    DECLARE_DYNAMIC(CListBox)
public:
    CListBox() {}

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items
    int GetCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETCOUNT)); }
    int AddString(LPCTSTR lpszItem) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszItem))); }
    int InsertString(int nIndex, LPCTSTR lpszItem) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_INSERTSTRING, nIndex, reinterpret_cast<LPARAM>(lpszItem))); }
    int DeleteString(UINT nIndex) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_DELETESTRING, nIndex)); }
    void ResetContent() { ASSERT(::IsWindow(m_hWnd)); SendMessage(LB_RESETCONTENT); }
    int Dir(UINT attr, LPCTSTR lpszWildCard) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_DIR, attr, reinterpret_cast<LPARAM>(lpszWildCard))); }
    int InitStorage(int nItems, UINT nBytes) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_INITSTORAGE, nItems, nBytes)); }
    // The caller's buffer must hold GetTextLen + 1 characters.
    int GetText(int nIndex, LPTSTR lpszBuffer) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETTEXT, nIndex, reinterpret_cast<LPARAM>(lpszBuffer))); }
    void GetText(int nIndex, CString& rString) const;
    int GetTextLen(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETTEXTLEN, nIndex)); }
    DWORD_PTR GetItemData(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, nIndex)); }
    int SetItemData(int nIndex, DWORD_PTR dwItemData) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData))); }
    void* GetItemDataPtr(int nIndex) const { return reinterpret_cast<void*>(GetItemData(nIndex)); }
    int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }
    int FindString(int nStartAfter, LPCTSTR lpszItem) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_FINDSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszItem))); }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_FINDSTRINGEXACT, nIndexStart, reinterpret_cast<LPARAM>(lpszFind))); }
    int SelectString(int nStartAfter, LPCTSTR lpszItem) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SELECTSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszItem))); }

    // Single selection
    int GetCurSel() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETCURSEL)); }
    int SetCurSel(int nSelect) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SETCURSEL, nSelect)); }

    // Multiple selection
    int GetSel(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETSEL, nIndex)); }
    int SetSel(int nIndex, BOOL bSelect = TRUE) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SETSEL, bSelect, nIndex)); }
    int GetSelCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETSELCOUNT)); }
    int GetSelItems(int nMaxItems, LPINT rgIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETSELITEMS, nMaxItems, reinterpret_cast<LPARAM>(rgIndex))); }
    int SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem);
    void SetAnchorIndex(int nIndex) { ASSERT(::IsWindow(m_hWnd)); SendMessage(LB_SETANCHORINDEX, nIndex); }
    int GetAnchorIndex() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETANCHORINDEX)); }
    int GetCaretIndex() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETCARETINDEX)); }
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SETCARETINDEX, nIndex, MAKELPARAM(bScroll, 0))); }

    // Geometry
    int GetTopIndex() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETTOPINDEX)); }
    int SetTopIndex(int nIndex) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SETTOPINDEX, nIndex)); }
    int GetItemRect(int nIndex, LPRECT lpRect) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETITEMRECT, nIndex, reinterpret_cast<LPARAM>(lpRect))); }
    int GetItemHeight(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETITEMHEIGHT, nIndex)); }
    int SetItemHeight(int nIndex, UINT cyItemHeight) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_SETITEMHEIGHT, nIndex, MAKELPARAM(cyItemHeight, 0))); }
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    int GetHorizontalExtent() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LB_GETHORIZONTALEXTENT)); }
    void SetHorizontalExtent(int cxExtent) { ASSERT(::IsWindow(m_hWnd)); SendMessage(LB_SETHORIZONTALEXTENT, cxExtent); }
    void SetColumnWidth(int cxWidth) { ASSERT(::IsWindow(m_hWnd)); SendMessage(LB_SETCOLUMNWIDTH, cxWidth); }
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LB_SETTABSTOPS, nTabStops, reinterpret_cast<LPARAM>(rgTabStops))); }
    BOOL SetTabStops(const int& cxEachStop) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&cxEachStop))); }
    void SetTabStops() { ASSERT(::IsWindow(m_hWnd)); SendMessage(LB_SETTABSTOPS); }
    LCID GetLocale() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<LCID>(SendMessage(LB_GETLOCALE)); }
    LCID SetLocale(LCID nNewLocale) { ASSERT(::IsWindow(m_hWnd)); return static_cast<LCID>(SendMessage(LB_SETLOCALE, static_cast<WPARAM>(nNewLocale))); }
};

class AFX_CORE_CLASS CComboBox : public CAfxOwnerDrawList
{
    DECLARE_DYNAMIC(CComboBox)
public:
    CComboBox() {}

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items of the list
    int GetCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    int AddString(LPCTSTR lpszString) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString))); }
    int InsertString(int nIndex, LPCTSTR lpszString) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_INSERTSTRING, nIndex, reinterpret_cast<LPARAM>(lpszString))); }
    int DeleteString(UINT nIndex) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_DELETESTRING, nIndex)); }
    void ResetContent() { ASSERT(::IsWindow(m_hWnd)); SendMessage(CB_RESETCONTENT); }
    int Dir(UINT attr, LPCTSTR lpszWildCard) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_DIR, attr, reinterpret_cast<LPARAM>(lpszWildCard))); }
    int InitStorage(int nItems, UINT nBytes) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_INITSTORAGE, nItems, nBytes)); }
    // The caller's buffer must hold GetLBTextLen + 1 characters.
    int GetLBText(int nIndex, LPTSTR lpszText) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETLBTEXT, nIndex, reinterpret_cast<LPARAM>(lpszText))); }
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, nIndex)); }
    DWORD_PTR GetItemData(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, nIndex)); }
    int SetItemData(int nIndex, DWORD_PTR dwItemData) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SETITEMDATA, nIndex, static_cast<LPARAM>(dwItemData))); }
    void* GetItemDataPtr(int nIndex) const { return reinterpret_cast<void*>(GetItemData(nIndex)); }
    int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_FINDSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszString))); }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_FINDSTRINGEXACT, nIndexStart, reinterpret_cast<LPARAM>(lpszFind))); }
    int SelectString(int nStartAfter, LPCTSTR lpszString) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SELECTSTRING, nStartAfter, reinterpret_cast<LPARAM>(lpszString))); }
    int GetCurSel() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    int SetCurSel(int nSelect) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SETCURSEL, nSelect)); }
    int GetTopIndex() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETTOPINDEX)); }
    int SetTopIndex(int nIndex) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SETTOPINDEX, nIndex)); }
    LCID GetLocale() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<LCID>(SendMessage(CB_GETLOCALE)); }
    LCID SetLocale(LCID nNewLocale) { ASSERT(::IsWindow(m_hWnd)); return static_cast<LCID>(SendMessage(CB_SETLOCALE, static_cast<WPARAM>(nNewLocale))); }

    // The edit field: selection start in the low word, end in the high word.
    DWORD GetEditSel() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(SendMessage(CB_GETEDITSEL)); }
    BOOL SetEditSel(int nStartChar, int nEndChar) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar))); }
    BOOL LimitText(int nMaxChars) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(CB_LIMITTEXT, nMaxChars)); }
    void Clear() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_CLEAR); }
    void Copy() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_COPY); }
    void Cut() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_CUT); }
    void Paste() { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_PASTE); }

    // The drop-down list
    void ShowDropDown(BOOL bShowIt = TRUE) { ASSERT(::IsWindow(m_hWnd)); SendMessage(CB_SHOWDROPDOWN, bShowIt); }
    BOOL GetDroppedState() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(CB_GETDROPPEDSTATE)); }
    void GetDroppedControlRect(LPRECT lprect) const { ASSERT(::IsWindow(m_hWnd)); SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect)); }
    int GetDroppedWidth() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETDROPPEDWIDTH)); }
    int SetDroppedWidth(UINT nWidth) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, nWidth)); }
    int GetExtendedUI() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETEXTENDEDUI)); }
    int SetExtendedUI(BOOL bExtended = TRUE) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SETEXTENDEDUI, bExtended)); }
    // nIndex -1 is the selection field, else an item of an owner-draw variable list.
    int GetItemHeight(int nIndex) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, nIndex)); }
    int SetItemHeight(int nIndex, UINT cyItemHeight) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(CB_SETITEMHEIGHT, nIndex, MAKELPARAM(cyItemHeight, 0))); }
    UINT GetHorizontalExtent() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<UINT>(SendMessage(CB_GETHORIZONTALEXTENT)); }
    void SetHorizontalExtent(UINT nExtent) { ASSERT(::IsWindow(m_hWnd)); SendMessage(CB_SETHORIZONTALEXTENT, nExtent); }
};

class AFX_CORE_CLASS CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)
public:
    CScrollBar() {}

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetScrollPos() const { ASSERT(::IsWindow(m_hWnd)); return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE) { ASSERT(::IsWindow(m_hWnd)); return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
    void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const { ASSERT(::IsWindow(m_hWnd)); ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos); }
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw); }
    void ShowScrollBar(BOOL bShow = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::ShowScrollBar(m_hWnd, SB_CTL, bShow); }
    BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH) { ASSERT(::IsWindow(m_hWnd)); return ::EnableScrollBar(m_hWnd, SB_CTL, nArrowFlags); }
    BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    // The highest position the thumb can reach: the range maximum less the page size plus one.
    int GetScrollLimit();
};
