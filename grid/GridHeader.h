// CGridHeader: the header strip of the grid window, a row of column titles above the cell area
// (horizontal style) or a column of row titles beside it (vertical style).
//
// It is a window of its own (class "_GRIDHEADER"), not the common header control, but speaks
// its vocabulary: items are described with HD_ITEM, and clicks and divider drags reach the
// header's owner (its parent when it has none) as WM_NOTIFY with NMHEADER under the ANSI HDN_
// codes:
//   HDN_ITEMCLICK     a button released over the item it was pressed on; iButton 0 left,
//                     1 right, 2 middle (no click after a divider drag)
//   HDN_ITEMDBLCLICK  a double click on an item, iButton as above
//   HDN_BEGINTRACK    a divider drag is about to start; a nonzero reply vetoes it
//   HDN_TRACK         the dragged item's extent changed; pitem holds HDI_WIDTH and the new
//                     extent in cxy; a nonzero reply undoes the change
//   HDN_ENDTRACK      the drag ended (button up, capture or focus lost)
// pitem is null except for HDN_TRACK.
//
// Besides titles it keeps, per item, the sort state the grid shows (the column's sort class,
// its current sort type and its priority in a multi-column sort) and draws an engraved arrow
// with the priority number. It never sorts and never touches cells: the grid window feeds it
// items, listens to it, and passes sort keys between it and CGridList.
//
// It keeps scroll information of its own but never shows a scroll bar, and follows the
// horizontal scrolling of its scroll parent (the list, which names the header as a scroll
// partner) so that its items stay over their columns.
#pragma once

#include <afxwin.h>
#include <afxtempl.h>

#include "grid/GridTypes.h"

#include <vector>

class AFX_EXT_CLASS CGridHeader : public CWnd
{
    DECLARE_DYNAMIC(CGridHeader)
public:
    // Header style bits: exactly one orientation, and optionally no mouse tracking.
    enum
    {
        GHS_VERT = 0x1,         // items stacked top to bottom; an item's extent is its height
        GHS_HORZ = 0x2,         // items left to right; an item's extent is its width
        GHS_NOMOUSETRACK = 0x4, // dividers cannot be dragged, no sizing cursor
    };

    // HD_ITEM mask bits of the header's own, beside HDI_TEXT, HDI_FORMAT and HDI_WIDTH.
    enum
    {
        GHDI_ALIGNMENT = 0x2000,  // fmt's alignment only, keeping the stored format
        GHDI_CROSSEXTENT = 0x1000, // cxy is the other dimension: width of a vertical header's item,
                                   // height of a horizontal one's
    };

    enum GHDR_STATE
    {
        GHDR_NORMAL = 0,
        GHDR_PRESSED = 1,
    };

    // One item. The header owns the text buffer.
    struct HdrItem
    {
        char* pszText;      // zero-terminated, or null
        int nTextSize;      // the buffer's size in bytes as allocated, 0 when none
        WORD wFormat;       // fmt as last given with HDI_FORMAT, 0xFFFF when never set
        WORD wAlign;        // DrawText alignment: 0 left, 1 centre, 2 right; 0xFFFF (drawn centred)
        int nWidth;
        int nHeight;
        short nColSortType; // sort class: 0 text, 1 number, 2 time
        short nCurSortType; // 0..5 as GridSortCol's types, 0xFFFF for none
        int nSortPriority;  // 1-based rank in a multi-column sort, else -1
        int nState;         // a GHDR_STATE

        HdrItem();
    };

    CGridHeader();
    ~CGridHeader() override;

    // ---- Creation and style ----------------------------------------------------------------
    // dwGridHdrStyle: exactly one of GHS_VERT and GHS_HORZ, optionally GHS_NOMOUSETRACK.
    virtual BOOL Create(DWORD dwStyle, const CRect& rect, CWnd* pParent, UINT nID, DWORD dwGridHdrStyle);
    // Starts afresh: validates the style (with its orientation), frees every item and resets
    // everything else to its default.
    BOOL InitAllData(DWORD dwGridHdrStyle);
    // Only GHS_NOMOUSETRACK may change: the orientation is fixed at creation.
    BOOL GridModifyStyle(DWORD dwRemove, DWORD dwAdd);
    // bRequired: the orientation part must be exactly GHS_VERT or GHS_HORZ; otherwise it must
    // be absent. No bit outside the three is valid either way.
    static BOOL IsValidGridHdrStyles(DWORD dwStyle, bool bRequired);
    BOOL IsStyleVert() const { return (m_dwGridHdrStyle & GHS_VERT) != 0; }
    BOOL IsStyleHorz() const { return (m_dwGridHdrStyle & GHS_HORZ) != 0; }
    BOOL IsNoMouseTrack() const { return (m_dwGridHdrStyle & GHS_NOMOUSETRACK) != 0; }
    DWORD GetGetStyle() const { return m_dwGridHdrStyle; }
    int GetItemCount() const { return static_cast<int>(m_arItems.size()); }

    // ---- Items -----------------------------------------------------------------------------
    // The mask bits:
    //   HDI_TEXT          Set: only when cchTextMax > 0, a new zeroed buffer of cchTextMax bytes
    //                     holding at most cchTextMax-1 characters of pszText. Get: copies the
    //                     whole text only when pszText is given and cchTextMax is greater than
    //                     the stored buffer size; always sets cchTextMax to that size + 1.
    //   HDI_FORMAT        Set: fmt, and the alignment from fmt & 3 (3 unsets both). Get: the
    //                     stored fmt, -1 when never set.
    //   GHDI_ALIGNMENT    Set: the alignment only. Get: HDF_LEFT, HDF_CENTER or HDF_RIGHT, -1
    //                     when unset.
    //   HDI_WIDTH         the extent along the orientation; a negative cxy is ignored
    //   GHDI_CROSSEXTENT  the other dimension, handled last: with HDI_WIDTH as well, Set gives
    //                     both the one cxy and Get reports the cross extent
    // Set and Get return TRUE when at least one requested part was handled. bNoUpdate leaves
    // the scroll information and the repainting to the caller.
    // InsertItem inserts before nIndex, or appends when nIndex is not less than the count, and
    // returns the index used, -1 on failure.
    int InsertItem(int nIndex, HD_ITEM* pItem, bool bNoUpdate = false);
    BOOL DeleteItem(int nIndex, bool bNoUpdate = false);
    BOOL SetItem(int nIndex, HD_ITEM* pItem, bool bNoUpdate = false);
    BOOL GetItem(int nIndex, HD_ITEM* pItem) const;
    // nIndex == GetItemCount() names the filler, the strip beyond the last item, when
    // bAllowEnd is set.
    BOOL GetItemRect(int nIndex, RECT* pRect, bool bAllowEnd = false) const;
    // Repaints the item's rectangle at once; nIndex may name the filler.
    void RefreshItem(int nIndex);
    // The item under a client point, GetItemCount() for the filler, -1 outside the window.
    int HitTest(CPoint point) const;
    int GetState(int nIndex) const;
    BOOL SetState(int nIndex, int nState);

    // ---- Sort state (stored and drawn only) -------------------------------------------------
    short GetColSortType(int nCol) const;
    BOOL SetColSortType(int nCol, short nSortClass);
    // The ascending type of the column's class (0, 2 or 4), -1 for a bad column.
    short GetDefaultSortType(int nCol) const;
    // nType when it belongs to the column's class, else -1.
    short IsValidCurSortType(int nCol, short nType) const;
    // 0xFFFF and -1 for a bad column (then FALSE).
    BOOL GetCurSortType(int nCol, short& nType, int& nPriority) const;
    // A single-column sort; nType -1 clears every column's sort.
    BOOL SetCurSortType(int nCol, short nType);
    // A multi-column sort of 2 to GetItemCount() keys, priorities 1, 2, ... in array order; one
    // invalid type refuses the call with nothing changed. All three null/0 clears the sort.
    BOOL SetCurSortTypes(int* pCols, short* pTypes, int nCount);
    // One key is a single-column sort, none (or null) clears.
    BOOL SetCurSortTypes(GridSortCol* pKeys, int nCount);
    // The keys by priority: a single-column sort as one entry with priority -1, a multi-column
    // one as its keys in order. A multi-column state with gaps or repeats in its priorities, or
    // with fewer than two keys, reads as no keys and is cleared.
    void GetCurSortTypes(CArray<int, int>& cols, CArray<short, short>& types, CArray<int, int>& priorities);

    // ---- Fonts, padding, scrolling ----------------------------------------------------------
    // Copies the font (the caller keeps its own); a null font is ignored.
    void SetGridFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetGridFont() { return &m_fontGrid; }
    CRect GetItemPadding() const { return m_rcItemPadding; }
    // Refuses a rectangle whose right is less than its left or bottom less than its top.
    BOOL SetItemPadding(const CRect& rcPadding);
    // The window whose horizontal scrolling the header follows; null means the parent.
    void SetScrollParent(HWND hWnd) { m_hWndScrollParent = hWnd; }
    HWND GetScrollParent() const { return m_hWndScrollParent; }
    // Recomputes the hidden scroll information from the items and the scroll parent's client
    // size; sets nothing when pOld already holds the same range, page and position. Outputs
    // the position, the page and the highest position (range end - page + 1, at least 0).
    BOOL UpdateScrollBars(SCROLLINFO* pOld = NULL, int* pPos = NULL, int* pPage = NULL, int* pMaxPos = NULL);
    // While printing, item texts are drawn in the device context's own font.
    void SetPrinting(bool bPrinting) { m_bPrinting = bPrinting; }
    BOOL IsPrinting() const { return m_bPrinting; }
    // Gives the focus to the owner, or the parent when there is no owner.
    void SetParentFocus();

    // ---- Drawing (a derived header may replace any part) ------------------------------------
    virtual void DrawItem(CDC* pDC, int nIndex);
    // Draws the sort arrow and priority of the item in rect, and narrows rect to leave room for
    // them; FALSE when nothing was drawn.
    virtual BOOL DrawSortIcon(CDC* pDC, int nIndex, CRect& rect, GHDR_STATE state);
    // Draws (or with bMeasure, measures) the item's text; the right edge of the text (when
    // drawing, of the rectangle it was drawn in), -1 for a bad index or a rectangle without
    // height.
    virtual int DrawItemText(CDC* pDC, int nIndex, CRect rect, GHDR_STATE state, bool bMeasure);
    // The sort indicator's size, and its direction (0 none, 1 ascending, 2 descending) and the
    // priority it shows (-1 none).
    CSize GetSortDrawParam(CDC* pDC, int nIndex, int& nDirection, int& nPriority);

    // Sends WM_NOTIFY with an NMHEADER to the owner, or the parent; the reply, 0 when there is
    // neither.
    LRESULT Send_NM_Header(UINT nCode, int iItem, int iButton, HD_ITEM* pItem);

protected:
    // One step of a divider drag: the tracked item's extent changes by nDelta, then HDN_TRACK
    // may undo it. FALSE when nothing changed.
    BOOL SendTrack(int nDelta, int nItem, bool bRedrawAll);
    // Folds the scrolling done while the mouse was past the strip into the drag's start.
    void EndAutoTrack();
    // Re-aligns with the scroll parent when it moved by another distance than the line step.
    void CheckNUpdateScrollCx();

    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnDestroy();
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

private:
    enum
    {
        BUTTON_LEFT = 0,
        BUTTON_RIGHT = 1,
        BUTTON_MIDDLE = 2,
    };

    // The stored item; an index outside the array throws std::out_of_range.
    HdrItem& GetHdrItem(int nIndex);
    const HdrItem& GetHdrItem(int nIndex) const;
    bool IsItem(int nIndex) const { return nIndex >= 0 && nIndex < GetItemCount(); }
    int GetExtent(const HdrItem& item) const { return IsStyleVert() ? item.nHeight : item.nWidth; }
    // Sets the extent along the orientation, keeping the totals.
    void SetExtent(HdrItem& item, int nExtent);
    void SetCrossExtent(HdrItem& item, int nExtent);
    // The item's height or width, keeping the totals of both in step.
    void SetSize(HdrItem& item, bool bHeight, int nSize);
    void FreeAllItems();
    void ClearSortState();
    // A sort type 0..5 with no priority or one within 1..count: what is read back and drawn.
    bool IsShownSort(const HdrItem& item) const;
    int GetAverageHeight() const;
    CWnd* GetNotifyWnd() const;
    CWnd* GetScrollParentWnd() const;
    // Brings the scroll information up to date, setting it only when it changed.
    void UpdateScrollInfo(int* pPage = NULL, int* pMaxPos = NULL);
    // The scroll information's position and highest position along the orientation's bar.
    int GetScrollPosition() const;
    int GetMaxScrollPosition();
    void ScrollTo(int nPos);
    // A scroll request of either bar (nLine pixels a line); FALSE for a code it does not know.
    BOOL ScrollByRequest(UINT nSBCode, UINT nPos, int nLine);
    // Invalidates from the item's leading edge to the end of the strip.
    void InvalidateFrom(int nIndex);

    // The item whose trailing divider is under the point, -1 when none.
    int DividerHitTest(CPoint point) const;
    void UpdateSizingCursor(int nItem);
    void RestoreCursor();
    void BeginTrack(int nItem, CPoint point);
    void TrackTo(CPoint point);
    // Sets the tracked item's extent and repaints only what changed (all with bRedrawAll).
    void ResizeTrackedItem(int nItem, int nExtent, bool bRedrawAll);
    void EndTrack();
    void ReleaseMouse();
    void OnButtonDown(int nButton, CPoint point);
    void OnButtonUp(int nButton, CPoint point);
    void OnButtonDblClk(int nButton, CPoint point);

    DWORD m_dwGridHdrStyle;
    std::vector<HdrItem> m_arItems;
    CFont m_fontGrid;
    int m_nTotalHeight;
    int m_nTotalWidth;
    CPen m_penArrow;
    CFont m_fontSortNumber;
    CRect m_rcItemPadding;
    int m_nPressedItem[3]; // by button: left, right, middle
    bool m_bMouseCaptured;
    HCURSOR m_hSavedCursor;
    bool m_bCursorSaved; // the saved cursor may itself be null
    COLORREF m_clrBackground; // beside and beyond the items
    HWND m_hWndScrollParent;
    int m_nHorzLineStep;
    int m_nLastParentPos;
    // Divider drag. The extent follows the mouse from the start; what the strip scrolled while
    // the dragged edge was past it counts too, so that the item keeps following the mouse.
    int m_nTrackItem;
    CPoint m_ptTrackStart;
    int m_nTrackStartExtent;
    bool m_bAutoTrack;
    int m_nAutoTrackOffset; // scrolled while past the strip, not yet folded into the start
    int m_nTrackEdgeOffset; // from the mouse to the item's trailing edge at the start
    bool m_bPrinting;
};

#ifndef _WIN64
static_assert(sizeof(CGridHeader::HdrItem) == 32, "the item record is 32 bytes on Win32");
#endif
