// The common controls, as in MFC: CImageList, CListCtrl with its CHeaderCtrl, CProgressCtrl
// and CToolTipCtrl, thin wrappers over the system's "SysListView32", "SysHeader32",
// "msctls_progress32" and "tooltips_class32" messages. An image list without a permanent
// object gets a temporary one from FromHandle, deleted by AfxDeleteTempMaps at idle time.
#pragma once

#include <afxgdi.h>

class AFX_CORE_CLASS CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)
public:
    CImageList();
    // Destroys the image list it holds.
    ~CImageList() override;

    HIMAGELIST m_hImageList;
    operator HIMAGELIST() const { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const
    {
        const CImageList* pThis = AfxNullableThis(this);
        return pThis == NULL ? NULL : pThis->m_hImageList;
    }

    static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
    static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();

    // Each Create fails, creating nothing, when the object already holds an image list.
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    // Images cx pixels wide cut from a bitmap resource of the resource chain; crMask is the
    // transparent colour (CLR_NONE for none).
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL DeleteImageList();

    int GetImageCount() const { ASSERT(m_hImageList != NULL); return ImageList_GetImageCount(m_hImageList); }
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
    {
        ASSERT(m_hImageList != NULL);
        return ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
    }
    COLORREF SetBkColor(COLORREF cr) { ASSERT(m_hImageList != NULL); return ImageList_SetBkColor(m_hImageList, cr); }
    COLORREF GetBkColor() const { ASSERT(m_hImageList != NULL); return ImageList_GetBkColor(m_hImageList); }

    // Each Add returns the index of the first new image, or -1.
    int Add(CBitmap* pbmImage, CBitmap* pbmMask);
    int Add(CBitmap* pbmImage, COLORREF crMask);
    int Add(HICON hIcon) { ASSERT(m_hImageList != NULL); return ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }
    BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask);
    // Returns the index of the image, or -1.
    int Replace(int nImage, HICON hIcon) { ASSERT(m_hImageList != NULL); return ImageList_ReplaceIcon(m_hImageList, nImage, hIcon); }
    // nImage -1 removes every image.
    BOOL Remove(int nImage) { ASSERT(m_hImageList != NULL); return ImageList_Remove(m_hImageList, nImage); }
    // nStyle: the ILD_ flags.
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
};

class AFX_CORE_CLASS CHeaderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHeaderCtrl)
public:
    CHeaderCtrl() {}
    ~CHeaderCtrl() override { DestroyWindow(); }

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(HDM_GETITEMRECT, nIndex, reinterpret_cast<LPARAM>(lpRect)));
    }
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(HDM_GETITEMA, nPos, reinterpret_cast<LPARAM>(pHeaderItem)));
    }
    BOOL SetItem(int nPos, HDITEM* pHeaderItem)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(HDM_SETITEMA, nPos, reinterpret_cast<LPARAM>(pHeaderItem)));
    }
    // Returns the index of the new item, or -1.
    int InsertItem(int nPos, HDITEM* phdi)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<int>(SendMessage(HDM_INSERTITEMA, nPos, reinterpret_cast<LPARAM>(phdi)));
    }
    BOOL DeleteItem(int nPos) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(HDM_DELETEITEM, nPos)); }
    BOOL Layout(HDLAYOUT* pHeaderLayout)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(pHeaderLayout)));
    }
};

class AFX_CORE_CLASS CListCtrl : public CWnd
{
    DECLARE_DYNAMIC(CListCtrl)
public:
    CListCtrl() {}
    // Destroys the window here, where the control's own handlers still run (OnNcDestroy).
    ~CListCtrl() override;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Columns (report view). InsertColumn returns the index of the new column, or -1.
    int InsertColumn(int nCol, const LVCOLUMN* pColumn)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<int>(SendMessage(LVM_INSERTCOLUMNA, nCol, reinterpret_cast<LPARAM>(pColumn)));
    }
    // nWidth -1 leaves the width unset; nSubItem -1 leaves the column's sub-item unset.
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_DELETECOLUMN, nCol)); }
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_GETCOLUMNA, nCol, reinterpret_cast<LPARAM>(pColumn)));
    }
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNA, nCol, reinterpret_cast<LPARAM>(pColumn)));
    }
    int GetColumnWidth(int nCol) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, nCol)); }
    BOOL SetColumnWidth(int nCol, int cx)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNWIDTH, nCol, MAKELPARAM(cx, 0)));
    }

    // Items. InsertItem returns the index of the new item, or -1.
    int InsertItem(const LVITEM* pItem)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<int>(SendMessage(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    int InsertItem(int nItem, LPCTSTR lpszItem) { return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0); }
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
    {
        return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
    }
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage, LPARAM lParam);
    BOOL DeleteItem(int nItem) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_DELETEITEM, nItem)); }
    BOOL DeleteAllItems() { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_DELETEALLITEMS)); }
    BOOL GetItem(LVITEM* pItem) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    BOOL SetItem(const LVITEM* pItem)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam);
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    // Copies at most nLen - 1 characters and a terminator; returns the characters copied.
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    // The whole text, however long.
    CString GetItemText(int nItem, int nSubItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData) { return SetItem(nItem, 0, LVIF_PARAM, NULL, 0, 0, 0, dwData); }
    // 0 when there is no such item.
    DWORD_PTR GetItemData(int nItem) const;
    // nItem -1 sets the state of every item.
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    BOOL SetItemState(int nItem, LVITEM* pItem)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_SETITEMSTATE, nItem, reinterpret_cast<LPARAM>(pItem)));
    }
    UINT GetItemState(int nItem, UINT nMask) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, nItem, nMask)); }
    int GetItemCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }
    // For an owner-data list (LVS_OWNERDATA) this is the number of items it shows; other lists
    // only reserve room.
    void SetItemCount(int nItems) { ASSERT(::IsWindow(m_hWnd)); SendMessage(LVM_SETITEMCOUNT, nItems); }
    void SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL)
    {
        ASSERT(::IsWindow(m_hWnd));
        SendMessage(LVM_SETITEMCOUNT, iCount, dwFlags);
    }

    // Selection. nFlags: LVNI_ flags; returns -1 when no item follows nItem.
    int GetNextItem(int nItem, int nFlags) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<int>(SendMessage(LVM_GETNEXTITEM, nItem, MAKELPARAM(nFlags, 0)));
    }
    // Walks the selected items: NULL when none (is left).
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    UINT GetSelectedCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT)); }

    // Geometry. nCode/nArea: LVIR_BOUNDS, LVIR_ICON, LVIR_LABEL, LVIR_SELECTBOUNDS.
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    // Sub-item 0 gives the bounds of the whole item.
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
    BOOL GetViewRect(LPRECT lpRect) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_GETVIEWRECT, 0, reinterpret_cast<LPARAM>(lpRect)));
    }
    int GetTopIndex() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LVM_GETTOPINDEX)); }
    int GetCountPerPage() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE)); }
    BOOL EnsureVisible(int nItem, BOOL bPartialOK)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<BOOL>(SendMessage(LVM_ENSUREVISIBLE, nItem, MAKELPARAM(bPartialOK, 0)));
    }
    // In report view size.cx is in pixels and size.cy rounds to whole lines.
    BOOL Scroll(CSize size) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_SCROLL, size.cx, size.cy)); }
    BOOL RedrawItems(int nFirst, int nLast) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_REDRAWITEMS, nFirst, nLast)); }
    BOOL Update(int nItem) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_UPDATE, nItem)); }

    // Hit testing: the item under the point (client coordinates), or -1.
    int HitTest(CPoint pt, UINT* pFlags = NULL) const;
    int HitTest(LVHITTESTINFO* pHitTestInfo) const
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
    }
    // Fills in iItem and iSubItem too.
    int SubItemHitTest(LPLVHITTESTINFO pInfo)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(pInfo)));
    }

    // Appearance. nImageList: LVSIL_NORMAL, LVSIL_SMALL or LVSIL_STATE. SetImageList returns
    // the image list set before.
    CImageList* SetImageList(CImageList* pImageList, int nImageList);
    CImageList* GetImageList(int nImageList) const;
    // Returns the extended style set before.
    DWORD SetExtendedStyle(DWORD dwNewStyle)
    {
        ASSERT(::IsWindow(m_hWnd));
        return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, dwNewStyle));
    }
    DWORD GetExtendedStyle() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE)); }
    COLORREF GetBkColor() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR)); }
    BOOL SetBkColor(COLORREF cr) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_SETBKCOLOR, 0, cr)); }
    COLORREF GetTextColor() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR)); }
    BOOL SetTextColor(COLORREF cr) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_SETTEXTCOLOR, 0, cr)); }
    COLORREF GetTextBkColor() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<COLORREF>(SendMessage(LVM_GETTEXTBKCOLOR)); }
    BOOL SetTextBkColor(COLORREF cr) { ASSERT(::IsWindow(m_hWnd)); return static_cast<BOOL>(SendMessage(LVM_SETTEXTBKCOLOR, 0, cr)); }

    // The list's own header (report view), or NULL. The object stays valid while the list
    // object lives; a header subclassed by a CHeaderCtrl of the caller is returned as that.
    CHeaderCtrl* GetHeaderCtrl();

    // Owner-draw report views (LVS_OWNERDRAWFIXED) draw each item here; the parent's
    // WM_DRAWITEM comes back to the control through OnChildNotify.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    afx_msg void OnNcDestroy();
    DECLARE_MESSAGE_MAP()

private:
    // Takes an image list that a CImageList owns out of the control, so that the control,
    // destroyed, does not destroy it too.
    void RemoveImageList(int nImageList);

    CHeaderCtrl m_wndHeader; // wraps the header's handle without attaching to it
};

class AFX_CORE_CLASS CProgressCtrl : public CWnd
{
    DECLARE_DYNAMIC(CProgressCtrl)
public:
    CProgressCtrl() {}
    ~CProgressCtrl() override { DestroyWindow(); }

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // The range is 0 to 100 until set; SetRange takes 16-bit limits, SetRange32 32-bit ones.
    void SetRange(short nLower, short nUpper) { ASSERT(::IsWindow(m_hWnd)); SendMessage(PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper)); }
    void SetRange32(int nLower, int nUpper) { ASSERT(::IsWindow(m_hWnd)); SendMessage(PBM_SETRANGE32, nLower, nUpper); }
    void GetRange(int& nLower, int& nUpper) const;
    // SetPos, OffsetPos and StepIt return the previous position; positions are kept in the range.
    int SetPos(int nPos) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(PBM_SETPOS, nPos)); }
    int GetPos() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(PBM_GETPOS)); }
    int OffsetPos(int nPos) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(PBM_DELTAPOS, nPos)); }
    // Returns the previous step (10 until set).
    int SetStep(int nStep) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(PBM_SETSTEP, nStep)); }
    // A step past the upper limit starts again from the lower one.
    int StepIt() { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(PBM_STEPIT)); }
    // Both return the previous colour (CLR_DEFAULT for the system's).
    COLORREF SetBarColor(COLORREF clrBar) { ASSERT(::IsWindow(m_hWnd)); return static_cast<COLORREF>(SendMessage(PBM_SETBARCOLOR, 0, clrBar)); }
    COLORREF SetBkColor(COLORREF clrNew) { ASSERT(::IsWindow(m_hWnd)); return static_cast<COLORREF>(SendMessage(PBM_SETBKCOLOR, 0, clrNew)); }
};

// Tooltips for windows (nIDTool 0: the tool is the window pWnd itself) or for rectangles of a
// window (nIDTool non-zero, with the rectangle in pWnd's client coordinates). The owner feeds
// it the mouse messages of the tools through RelayEvent, typically from PreTranslateMessage.
class AFX_CORE_CLASS CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)
public:
    CToolTipCtrl() {}
    ~CToolTipCtrl() override { DestroyWindow(); }

    // A popup owned by pParentWnd; dwStyle adds TTS_ styles such as TTS_ALWAYSTIP.
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    // lpszText LPSTR_TEXTCALLBACK asks the owner for the text (TTN_GETDISPINFO); nIDText names a
    // string resource of the resource chain.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACKA, LPCRECT lpRectTool = NULL, UINT_PTR nIDTool = 0);
    BOOL AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool = NULL, UINT_PTR nIDTool = 0);
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    void Activate(BOOL bActivate) { ASSERT(::IsWindow(m_hWnd)); SendMessage(TTM_ACTIVATE, bActivate); }
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect);
    // Returns the previous maximum width (-1 for none): wider texts break into lines.
    int SetMaxTipWidth(int iWidth) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, iWidth)); }
    // The automatic delays, derived from one time in milliseconds, or one delay (TTDT_INITIAL,
    // TTDT_AUTOPOP, TTDT_RESHOW).
    void SetDelayTime(UINT nDelay) { ASSERT(::IsWindow(m_hWnd)); SendMessage(TTM_SETDELAYTIME, TTDT_AUTOMATIC, nDelay); }
    void SetDelayTime(DWORD dwDuration, int iTime) { ASSERT(::IsWindow(m_hWnd)); SendMessage(TTM_SETDELAYTIME, dwDuration, MAKELPARAM(iTime, 0)); }
    int GetDelayTime(DWORD dwDuration) const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(TTM_GETDELAYTIME, dwDuration)); }
    int GetToolCount() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT)); }
    void RelayEvent(LPMSG lpMsg) { ASSERT(::IsWindow(m_hWnd)); SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(lpMsg)); }
    // The tool's text (up to INFOTIPSIZE characters); empty for no such tool.
    void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;

private:
    // The record that names a tool, sized for every version of the control.
    void FillInToolInfo(TTTOOLINFOA& ti, CWnd* pWnd, UINT_PTR nIDTool) const;
    // Adds a tool or updates its text: lpszText itself, or with hInstText the string resource
    // MAKEINTRESOURCE(id) of that module, which the control loads.
    BOOL SendToolText(UINT nMsg, CWnd* pWnd, UINT_PTR nIDTool, HINSTANCE hInstText, LPCTSTR lpszText,
                      LPCRECT lpRectTool);
};
