// CGridList: the cell area of the grid window, a rectangle of text cells with an optional fixed
// header row (row 0) and header column (column 0).
//
// It is an owner-drawn report list view with no header of its own, in owner-data mode: the
// list view knows only how many rows there are, and the rows live in the grid's own vector,
// one slot per row holding the row's record (CItemData), created on the first write to the
// row. A million unwritten rows cost one pointer each. Cell texts live in a text pool per grid.
//
// Notifications are WM_NOTIFY messages to the parent of the grid window (the grid window being
// the CGridList's own parent), naming the grid window and its control id as the source.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>
#include <afxcoll.h>
#include <afxtempl.h>

#include "grid/GridInPlaceEdit.h"
#include "grid/GridTypes.h"

#include <functional>
#include <memory>
#include <vector>

// Notification codes of the grid (WM_NOTIFY to the grid window's parent).
#define GN_CCPMENU (0U - 186U)       // before the copy/cut/paste menu or key: NMGRIDCCPMENU
#define GN_CARETCHANGE (0U - 188U)   // the caret moved: NMGRIDCARETCHANGE
#define GN_EDITEND (0U - 194U)       // an in-place edit ends
#define GN_EDITBEGIN (0U - 195U)     // an in-place edit is about to begin
#define GN_CCP (0U - 196U)           // copy, cut or paste asked for: NMGRIDCCP
#define GN_COMBOSELENDOK (0U - 197U) // the in-place combo box chose an entry
#define GN_CELLCHANGE (0U - 198U)    // the caret cell changed, after GN_CARETCHANGE: NMGRIDCELL

// Sent by the list to its parent, the grid window, after LVM_SETCOLUMNWIDTH changed a column:
// wParam the column, lParam its new width. The grid window keeps its header in step with it.
#define GM_COLUMNWIDTHCHANGED (WM_USER + 21)
// Messages the grid sends its grid window (its parent), both with zero arguments: F3 or Ctrl+F
// asks for the find dialog, F8 is passed on for the grid window to give a meaning.
#define GM_FINDDIALOG (WM_USER + 11) // 1035
#define GM_KEYF8 (WM_USER + 10)      // 1034

// GN_CCPMENU: 1 allows an item, 0 forbids it. A non-zero result makes the grid read the three
// values back as the host left them.
struct NMGRIDCCPMENU
{
    NMHDR hdr;
    int nCopy;
    int nCut;
    int nPaste;
};

// GN_CARETCHANGE: the host may give the new caret cell an edit icon by filling in the last three
// fields and answering non-zero (-1 as icon means none).
struct NMGRIDCARETCHANGE
{
    NMHDR hdr;
    Cell oldCell;
    Cell newCell;
    DWORD dwEditIconType; // sent as 0xFFFFFFFF
    short nEditIcon;      // sent as -1
    DWORD dwEditIconFlag; // sent as 0
};

// GN_CCP: nAction 1 copy, 2 cut, 5 paste of a copy, 6 paste of a cut. A non-zero result accepts.
struct NMGRIDCCP
{
    NMHDR hdr;
    int nAction;
    Cell source;
};

// GN_CELLCHANGE: the caret cell.
struct NMGRIDCELL
{
    NMHDR hdr;
    Cell cell;
};

// ---- In-place editing records
// GN_EDITBEGIN: the host answers non-zero to refuse the edit. The fields marked "in and out" are
// read back: the host may switch the editor, put its own edit window in hWndEdit, change the
// character to start with, or take the filling of the editor's text on itself.
struct NMGRIDEDITBEGIN
{
    NMHDR hdr;
    int nEditType; // in and out: 0 the edit box, 1 the combo box; any other value shows no editor
    int nTrigger;  // the edit trigger bit; 0 when started by GridEdit without one
    int row;
    int col;
    HWND hWndEdit; // in and out: the grid's edit box for type 0, null for type 1
    int nChar;     // in and out: the typed character, -1 for none
    int bInitText; // in and out: 1 for type 0 (the grid fills the edit window's text), 0 for type 1
};

// GN_EDITEND: the text and data the editor holds (the chosen entry's item data for the combo
// box, the cell's item data for an edit window); pszText is valid during the notification only.
// The host answers:
//   0, nAction left at GEE_SETTEXT: the text becomes the cell's text;
//   0, nAction changed: the editor closes and the cell stays as it is (the host took the value);
//   non-zero: the value is refused; the editor closes, unless nAction is GEE_KEEPEDITING: then it
//   is shown again with the focus and the edit goes on.
struct NMGRIDEDITEND
{
    NMHDR hdr;
    int nEditType;
    int row;
    int col;
    LPCTSTR pszText;
    DWORD dwData;
    int nAction; // sent as GEE_SETTEXT
};
#define GEE_SETTEXT 1
#define GEE_KEEPEDITING 2

// GN_COMBOSELENDOK: the in-place combo box's entry the user chose, before the edit ends with it
// (GN_EDITEND follows). pszText is valid during the notification only. The result is not read.
struct NMGRIDCOMBOSEL
{
    NMHDR hdr;
    int row;
    int col;
    int nIndex;
    DWORD dwData;
    LPCTSTR pszText;
};

// Sent (or posted) to the CGridList by a host's own editor that loses the focus: wParam the
// window receiving the focus (or null), lParam non-zero to take the editor's text. The result is
// ProcessCustomEditKillFocus's.
#define GM_CUSTOMEDITKILLFOCUS (WM_USER + 20)

#ifndef _WIN64
static_assert(sizeof(NMGRIDEDITBEGIN) == 40, "seven 32-bit fields after the header on Win32");
static_assert(sizeof(NMGRIDEDITEND) == 36, "six 32-bit fields after the header on Win32");
static_assert(sizeof(NMGRIDCOMBOSEL) == 32, "five 32-bit fields after the header on Win32");
static_assert(sizeof(NMGRIDCCPMENU) == 24, "three values after the header");
static_assert(sizeof(NMGRIDCARETCHANGE) == 40, "the caret-change record is 40 bytes on Win32");
static_assert(sizeof(NMGRIDCCP) == 24, "action and source after the header");
static_assert(sizeof(NMGRIDCELL) == 20, "one cell after the header");
#endif

class CGridFind;

class AFX_EXT_CLASS CGridList : public CListCtrl
{
    DECLARE_DYNAMIC(CGridList)
public:
    class CItemData;
    class CSelectedCells;
    class CTextPool;
    class CBlockPool;

    // Cell state flags.
    enum eCellState
    {
        CS_SELECTED = 1,
        CS_CARET = 2,
        CS_CUT = 4,
        CS_CCPINDEX = 8, // the copy/cut source cell while a copy or cut is pending
    };

    // The changes SetCellState applies.
    enum eCellStateChange
    {
        CSC_SELECT = 1,
        CSC_UNSELECT = 2,
        CSC_CUT = 4,           // only while a cut is pending
        CSC_UNCUT = 8,         // likewise
        CSC_CCPINDEX = 16,     // only while a copy or cut is pending
        CSC_CLEARCCPINDEX = 32, // likewise
        CSC_CARET = 64,
        CSC_CLEARCARET = 128,
    };

    // Where a cell's text format comes from.
    enum CELLFMT
    {
        CELLFMT_CELL = 0,
        CELLFMT_ROW = 1,
        CELLFMT_COL = 2,
    };

    // Grid style bits (GetStyle, ModifyStyle).
    enum
    {
        GS_SINGLESEL = 0x001,
        GS_NOSEL = 0x002,
        GS_LIST = 0x004,
        GS_FULLROWSELECT = 0x008,
        GS_NOGRIDLINES = 0x010,
        GS_GRIDTRACK = 0x020,
        GS_SHOWCARETALWAYS = 0x040,
        GS_SORTONHDR = 0x080,
        GS_KEYBOARDFIND = 0x100,
        GS_FINDONSORTCOLUMN = 0x200,
        GS_GRAYONDISABLE = 0x400,
    };

    // Edit-icon styles.
    enum
    {
        EIS_SHOW = 0x2,    // show edit icons
        EIS_ONFOCUS = 0x4, // only on the focused cell
    };

    // Cell image placement, kept in the draw format's high word.
    enum
    {
        IMAGE_BEFORE_TEXT = 2048,
        IMAGE_AFTER_TEXT = 4096,
    };

    // The predefined edit icons.
    enum
    {
        EDITICON_NONE = -1,
        EDITICON_DROPDOWN = -2,
        EDITICON_DIALOG = -3,
    };

    // The in-place editors' control ids and the edit box's text limit.
    enum
    {
        IDC_GRIDCOMBO = 1005,
        IDC_GRIDEDIT = 1008,
        GRIDEDIT_LIMIT = 255,
    };

    // The context menu's commands.
    enum
    {
        ID_GCCP_COPY = 1,
        ID_GCCP_CUT = 2,
        ID_GCCP_PASTE = 4,
    };

    // The context menu's texts: copy, cut, paste.
    static const char m_stszCCPMenuNames[3][7];

    CGridList();
    ~CGridList() override;

    // ---- Creation and shape --------------------------------------------------------------
    virtual BOOL Create(int nRows, int nCols, int bFixedRow, int bFixedCol, const RECT& rect, CWnd* pParent,
                        UINT nID);
    BOOL SetFixedRowCol(int nRows, int nCols, int bFixedRow, int bFixedCol);
    BOOL InitRowsAndCols();
    // Returns the new row's index, or -1.
    int InsertRow(int nRow, bool bNoRedraw = false);
    BOOL DeleteRow(int nRow, bool bNoRedraw = false);
    void DeleteAllItemData();
    void ClearAllCells(bool bTextOnly);

    int GetRowCount() const { return m_nRows; }
    int GetColCount() const { return m_nCols; }
    BOOL IsFixedRow() const { return m_bFixedRow; }
    BOOL IsFixedCol() const { return m_bFixedCol; }
    UINT GetID() const { return m_nID; }

    DWORD GetStyle() const { return m_dwGridStyle; }
    // Resets the whole style to 0 for the combinations the grid does not allow.
    void ModifyStyle(DWORD dwRemove, DWORD dwAdd);
    BOOL IsSingleSelection() const { return (m_dwGridStyle & (GS_SINGLESEL | GS_NOSEL)) == GS_SINGLESEL; }
    BOOL IsNoSelection() const { return (m_dwGridStyle & (GS_SINGLESEL | GS_NOSEL)) == GS_NOSEL; }
    BOOL IsMultiSelection() const { return (m_dwGridStyle & (GS_SINGLESEL | GS_NOSEL)) == 0; }
    BOOL IsStyleList() const { return (m_dwGridStyle & GS_LIST) != 0; }
    BOOL IsFullRowSelect() const { return (m_dwGridStyle & GS_FULLROWSELECT) != 0; }
    BOOL IsFullRowSelectGrid() const { return IsFullRowSelect() && (IsStyleList() || !IsSingleSelection()); }
    BOOL IsNoGridLines() const { return (m_dwGridStyle & GS_NOGRIDLINES) != 0; }
    BOOL IsGridTrack() const { return (m_dwGridStyle & GS_GRIDTRACK) != 0; }
    BOOL IsShowCaretAlways() const { return (m_dwGridStyle & GS_SHOWCARETALWAYS) != 0; }
    BOOL IsSortOnHdr() const { return (m_dwGridStyle & GS_SORTONHDR) != 0; }
    BOOL IsKeyboardFind() const { return (m_dwGridStyle & GS_KEYBOARDFIND) != 0; }
    BOOL IsFindOnSortColumn() const { return (m_dwGridStyle & GS_FINDONSORTCOLUMN) != 0; }
    BOOL IsGrayOnDisable() const { return (m_dwGridStyle & GS_GRAYONDISABLE) != 0; }

    void SetRowHeight(int nHeight);
    int GetRowHeight() const { return m_nRowHeight; }
    void SetCellPadding(const CRect& rcPadding) { m_rcCellPadding = rcPadding; }
    CRect GetCellPadding() const { return m_rcCellPadding; }
    CSize GetGridSize();

    // ---- Cell kinds ----------------------------------------------------------------------
    BOOL IsValidCell(int row, int col) const { return row >= 0 && row < m_nRows && col >= 0 && col < m_nCols; }
    BOOL IsHdrCell(int row, int col) const;
    BOOL IsNonHdrCell(int row, int col) const { return IsValidCell(row, col) && !IsHdrCell(row, col); }
    BOOL IsNonHdrCell(const Cell& cell) const { return IsNonHdrCell(cell.row, cell.col); }
    // The first row and column that are not headers.
    int GetFirstDataRow() const { return m_bFixedRow ? 1 : 0; }
    int GetFirstDataCol() const { return m_bFixedCol ? 1 : 0; }

    // ---- Row records ---------------------------------------------------------------------
    // The row's record; with bCreate, an empty one is made for a row that has none.
    CItemData* GetItemData(int row, bool bCreate) const;
    // The row's own slot, as it is (normally the row record).
    BOOL SetItemDataPtr(int row, DWORD_PTR dwData);
    DWORD_PTR GetItemDataPtr(int row) const;

    // ---- Cell content --------------------------------------------------------------------
    BOOL SetText(int row, int col, LPCTSTR lpszText, bool bNoRedraw = false);
    // The cell's text, or an empty string; valid until the cell changes.
    LPCTSTR GetText(int row, int col) const;
    // The caret cell's text.
    LPCTSTR GetText() const { return GetText(m_CaretCell.row, m_CaretCell.col); }
    BOOL SetItemData(int row, int col, DWORD dwData);
    // 0xFFFFFFFF for none or an invalid cell.
    DWORD GetItemData(int row, int col) const;

    BOOL SetItemTextColor(int row, int col, COLORREF cr);
    COLORREF GetItemTextColor(int row, int col) const;
    BOOL SetItemTextBkColor(int row, int col, COLORREF cr);
    COLORREF GetItemTextBkColor(int row, int col) const;
    BOOL SetItemBkColor(int row, int col, COLORREF cr);
    COLORREF GetItemBkColor(int row, int col) const;

    void SetTextColor(COLORREF cr);
    COLORREF GetTextColor() const { return m_crText; }
    void SetTextBkColor(COLORREF cr);
    COLORREF GetTextBkColor() const { return m_crTextBk; }
    void SetBkColor(COLORREF cr);
    COLORREF GetBkColor() const { return m_crBk; }
    void SetGridLineColor(COLORREF cr);
    COLORREF GetGridLineColor() const { return m_crGridLine; }
    void SetSelectionColor(COLORREF cr);
    COLORREF GetSelectionColor() const { return m_crSelection; }
    void SetTransperantSelection(BOOL bTransparent);
    BOOL GetTransperantSelection() const { return m_bTransparentSelection; }

    // Cell images come from the list's small image list (SetImageList(pList, LVSIL_SMALL)).
    BOOL SetCellImage(int row, int col, int nImage, long nPlacement = -1);
    int GetCellImage(int row, int col) const;
    // IMAGE_BEFORE_TEXT unless set otherwise.
    long GetCellImagePlacement(int row, int col) const;

    // Edit icons: the image list (not owned) and the styles (EIS_).
    void SetEditIconImageList(CImageList* pImageList) { m_pEditIconImageList = pImageList; }
    CImageList* GetEditIconImageList() const { return m_pEditIconImageList; }
    void SetEditIconStyle(DWORD dwStyle);
    DWORD GetEditIconStyle() const { return m_dwEditIconStyle; }
    BOOL SetCellEditIcon(int row, int col, int nIcon, short nEditType, DWORD dwFlag);
    // -1 for none.
    int GetCellEditIcon(int row, int col) const;
    DWORD GetCellEditIconFlag(int row, int col) const;
    short GetCellEditIconEditType(int row, int col) const;
    // The cell showing its edit icon on the caret (edit icons on the focused cell only).
    Cell GetEditIconCell() const { return m_EditIconCell; }

    // ---- Text formats (LVCFMT_LEFT 0, LVCFMT_RIGHT 1, LVCFMT_CENTER 2) -------------------------
    BOOL SetCellTextFormat(int row, int col, long fmt);
    BOOL SetRowTextFormat(int row, long fmt);
    BOOL SetColumnTextFormat(int col, long fmt);
    long GetCellTextFormat(int row, int col) const;
    long GetRowTextFormat(int row) const;
    long GetColumnTextFormat(int col) const;
    // The effective format: as a public code (0 when none), or as a DrawText alignment
    // (DT_LEFT 0, DT_CENTER 1, DT_RIGHT 2).
    long GetCellTextDrawFormat(int row, int col) const;
    long GetCellTextDrawFormat_DT(int row, int col) const;
    BOOL SetCellTextDrawFormat(int row, int col, long fmt, CELLFMT source, bool bForce = false);
    static BOOL IsValidTextFormat(long fmt) { return fmt >= LVCFMT_LEFT && fmt <= LVCFMT_CENTER; }

    // ---- Cell states and selection -------------------------------------------------------
    BOOL SetCellState(const Cell& cell, eCellStateChange change, void* pSet = NULL, bool bFlagsOnly = false);
    BOOL SetCellState(int row, int col, eCellStateChange change, void* pSet = NULL, bool bFlagsOnly = false);
    // 0 for none.
    DWORD GetCellState(int row, int col) const;
    BOOL IsSelectedCell(const Cell& cell, bool bIgnorePrinting = false) const;
    BOOL IsSelectedItem(int row, int col, bool bIgnorePrinting = false, CItemData* pData = NULL) const;
    BOOL IsCaretItem(int row, int col) const { return (GetCellState(row, col) & CS_CARET) != 0; }
    BOOL IsCutItem(int row, int col) const { return (GetCellState(row, col) & CS_CUT) != 0; }
    BOOL IsCCPIndexItem(int row, int col) const { return (GetCellState(row, col) & CS_CCPINDEX) != 0; }

    BOOL SetCurSel(int row, int col, bool bEnsureVisible = true);
    BOOL SetCurSel(int firstRow, int firstCol, int lastRow, int lastCol);
    BOOL Add2CurSel(int row, int col);
    BOOL RemoveSel(int row, int col);
    void RemoveAllSelection();
    void RefreshAllSelection();
    int GetSelectedCount() const;
    // Every selected cell, row by row.
    void GetSelectionArray(CArray<Cell>& cells) const;
    int GetFirstSelectedCellRow() const;
    int GetFirstSelectedCellCol() const;
    CSelectedCells* GetSelectedCells() const { return m_pSelectedCells.get(); }
    CSelectedCells* GetCCPCells() const { return m_pCCPCells.get(); }
    Cell GetAnchorCell() const { return m_AnchorCell; }

    // ---- Caret ---------------------------------------------------------------------------
    BOOL SetCurCaret(int row, int col);
    BOOL SetTabCaret(int row, int col);
    void SetCaretItem(const Cell& cell);
    int GetRow() const { return m_CaretCell.row; }
    int GetCol() const { return m_CaretCell.col; }
    Cell GetCaretCell() const { return m_CaretCell; }
    // Repaints the caret cell (its row in full-row grids); bSetAnchor makes it the anchor too.
    void RefreshCaret(const Cell& cell, bool bSetAnchor = false, bool bEnsureVisible = false);
    void HideCaret(bool bHide);
    BOOL IsCaretHidden() const { return m_bHideCaret; }
    void SetGraySelectionOnKillFocus(bool bGray) { m_bGraySelection = bGray; }
    BOOL IsGraySelectionOnKillFocus() const { return m_bGraySelection; }
    void SetHideSelectionOnKillFocus(bool bHide) { m_bHideSelection = bHide; }
    BOOL IsHideSelectionOnKillFocus() const { return m_bHideSelection; }

    // ---- Selection steps of the mouse and keyboard handlers -------------------------------
    void RemoveAllSelectedNAddCell(Cell cell);
    void InvertSelection(Cell cell);
    void SelectDragCells(Cell anchor, Cell current, Cell oldCaret);
    void SetDragSelection(Cell anchor, Cell current, Cell oldAnchorEnd);
    // Where the rectangle anchor..oldEnd and the rectangle anchor..newEnd differ, as a band of
    // rows across both and a band of columns across both (cells, inclusive); a flag is false
    // when its band is empty.
    void FindIntersectCellRects(Cell anchor, Cell oldEnd, Cell newEnd, bool& bRows, CRect& rcRows, bool& bCols,
                                CRect& rcCols);
    // Rectangles of cells: left/right are columns, top/bottom rows, inclusive.
    void AddRectCells(CRect rcCells);
    void RemoveRectCells(CRect rcCells);
    BOOL AddSelectedCell(const Cell& cell, bool bRefresh = true);
    BOOL AddSelectedCell_Impl(const Cell& cell, bool bRefresh);
    BOOL RemoveSelectedCell(const Cell& cell, bool bRefresh = true);
    // Selects or unselects the cell (CSC_SELECT, CSC_UNSELECT), repainting it when asked.
    BOOL ChangeSelectedCell(const Cell& cell, eCellStateChange change, bool bRefresh);
    void RemoveCell(CSelectedCells* pSet, Cell cell);
    BOOL IsAdjacentCells(const Cell& first, const Cell& second) const;

    // ---- Copy, cut and paste -------------------------------------------------------------
    void EnableCCP(bool bEnable);
    BOOL IsCCPEnabled() const { return m_CCPMenu.GetSafeHmenu() != NULL; }
    // -1 or 0 none, 1 copy pending, 2 cut pending.
    int GetCCPState() const { return m_nCCPState; }
    BOOL OnGCCP_Copy();
    BOOL OnGCCP_Cut();
    BOOL OnGCCP_Paste();
    void SetCCP(int nState, int row, int col, CArray<Cell>& cells);
    BOOL GetCCPCellIndex(Cell& cell) const;
    void GetCCPArray(CArray<Cell>& cells) const;
    int GetCCPArraySize() const;
    void ClearGCCPArray();
    BOOL Copy2GCCPArray(CSelectedCells* pSet, const Cell& source);
    BOOL Copy2GCCPArray(const CArray<Cell>& cells, const Cell& source);
    // The context menu of the right button: sets the items' states for a press on the cell
    // (asking the host with GN_CCPMENU), then tracks the menu at the release point (client
    // coordinates) and runs the chosen command. Both return 0 when no menu is offered.
    BOOL PrepareCCPMenu(const Cell& cell);
    BOOL TrackCCPMenu(CPoint point);
    CMenu* GetCCPMenu() { return &m_CCPMenu; }

    // ---- Notifications -------------------------------------------------------------------
    LRESULT Send_GN_CCPMENU(int& nCopy, int& nCut, int& nPaste);
    LRESULT Send_GN_CCP(int nAction, const Cell& source);
    LRESULT SendCaretChangeNotification(const Cell& oldCell, const Cell& newCell);
    LRESULT SendGridCellChangeNotification();
    LRESULT SendItemActivateNotification(UINT nCode, int row, int col, CPoint point);

    // ---- Sorting -------------------------------------------------------------------------
    // The comparators: pointers to two CItemData* array elements and a context of
    // (GridSortCol* keys, int count) as two pointer-sized values; with null keys the count is
    // itself the column of a single-key sort.
    struct CSortContext
    {
        GridSortCol* pKeys;
        INT_PTR nCount;
    };
    static int CompareTextAscending(const void* p1, const void* p2, void* pContext);
    static int CompareTextDescending(const void* p1, const void* p2, void* pContext);
    static int CompareNumbersAscending(const void* p1, const void* p2, void* pContext);
    static int CompareNumbersDescending(const void* p1, const void* p2, void* pContext);
    static int CompareTimeAscending(const void* p1, const void* p2, void* pContext);
    static int CompareTimeDescending(const void* p1, const void* p2, void* pContext);
    // Compares by keys 1 to nCount - 1.
    static int CompareSecondaryCols(CItemData* pFirst, CItemData* pSecond, GridSortCol* pKeys, int nCount);
    void ListSort(GridSortCol* pKeys, int nCount, bool bKeepEmptyAtEnd = false);
    void ListSort(int col, short nSortType, bool bKeepEmptyAtEnd = false);
    void MoveRowinSort(int nTo, int nFrom);
    BOOL CheckSelection4ChangeOnSort(CSelectedCells* pSet);

    // ---- Geometry ------------------------------------------------------------------------
    BOOL GetCellRect(int row, int col, CRect& rect);
    int GetColumnWidth(int col) const;
    BOOL SetColumnWidth(int col, int nWidth);
    void SetAllColsToWidth(int nWidth);
    int GetFixedColWidht() const;
    int GetTotalVisibleColumnWidht() const;
    int GetFirstVisibleRow() const;
    int GetLastVisibleRow() const;
    int GetFirstVisibleCol() const;
    int GetLastVisibleCol() const;
    // The first and last columns meeting the client area; FALSE when none does.
    BOOL GetVisibleCols(int& nFirst, int& nLast) const;
    BOOL IsHorzScrollBarVisible() const;
    BOOL IsVertScrollBarVisible() const;
    BOOL EnsureVisible(int row, int col);
    void FitToGrid(int bFit, const CSize& maxSize);
    BOOL IsFitToGrid() const { return m_bFitToGrid; }
    void IgnoreFitToGrid(bool bIgnore) { m_bIgnoreFitToGrid = bIgnore; }
    BOOL IsIgnoreFitToGrid() const { return m_bIgnoreFitToGrid; }
    void UpdateClientSizeToGrid();
    void SetEvenColumnWidthNHeight(int nWidth, int nHeight);
    void FitColHeaders();
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);

    // ---- Drawing -------------------------------------------------------------------------
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;
    virtual void DrawGridCell(int row, int col, HDC hDC);
    virtual void DrawCell(int row, int col, CDC* pDC, const CRect& rcCell, CRect& rcText, int& nIconSide);
    virtual void DrawCellText(int row, int col, CDC* pDC, CRect rcText, long nDTAlign);
    void DrawGrid(int row, int col, const CRect& rcCell, CDC* pDC);
    void DrawGridCellFocus(int row, int col, CDC* pDC, CRect rcCell, CRect rcRow, int nIconSide);
    void DrawFocusRect(CDC* pDC, CRect& rect, const COLORREF& cr, UINT nSides);
    void DrawGridPredefinedEditIcon(int nIcon, CDC* pDC, CRect rect);
    void RedrawFocusRect();
    void UpdateFocusRect(bool bFocus);
    COLORREF GetDrawItemBkColor(int row, int col, bool bSelected, bool bCut, bool bFocus);
    COLORREF Transform2SelColor(COLORREF cr);
    void LockPainting(bool bLock) { m_bPaintLocked = bLock; }
    BOOL IsPaintingLocked() const { return m_bPaintLocked; }
    // While printing the grid shows no selection and no edit icons; with bPrintBkColor the
    // cells keep their background colours.
    void SetPrinting(bool bPrinting) { m_bPrinting = bPrinting; }
    BOOL IsPrinting() const { return m_bPrinting; }
    void SetPrintBkColor(bool bPrintBkColor) { m_bPrintBkColor = bPrintBkColor; }
    BOOL IsPrintBkColor() const { return m_bPrintBkColor; }

    void RefreshCell(int row, int col);
    void RefreshCell(const Cell& cell) { RefreshCell(cell.row, cell.col); }
    void RefreshCellEx(const Cell& cell, CDC* pDC, const CRect* pRect);
    // The cell's whole row in full-row grids, else the cell.
    void RefreshCell_FullRow(const Cell& cell);
    void RefreshCellEx_FullRow(const Cell& cell, CDC* pDC, const CRect* pRect);
    BOOL RedrawWindow(LPCRECT lpRectUpdate = NULL, HRGN hrgnUpdate = NULL,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);

    void FindTextNImageRect(int row, int col, CDC* pDC, const CRect& rcArea, CRect& rcText, CRect& rcImage);
    void FindImageRect(CRect rcArea, int nImage, long nAlign, CRect& rcImage);
    void FindEditIconRect(CRect rcCell, int nIcon, DWORD& dwSide, CRect& rcIcon);
    BOOL GetEditIconRect(int row, int col, CRect& rcIcon, RECT* pCellRect = NULL, long* pIcon = NULL,
                         DWORD* pSide = NULL);
    BOOL GetIconRect(int row, int col, CRect& rcIcon);
    BOOL HitTestEditIcon(int row, int col, CPoint point);
    BOOL HitTestIcon(int row, int col, CPoint point);
    BOOL IsShowEditIconsOnFocus(int row, int col) const;

    // ---- Scroll partners (bar 0 horizontal, 1 vertical, 3 both) ---------------------------
    BOOL AddScrollWnd(HWND hWnd, int nBar);
    BOOL DeleteScrollWnd(HWND hWnd);
    BOOL SendScrollMsg(int nBar, UINT nSBCode, UINT nPos);

    // ---- Input and find ------------------------------------------------------------------
    // What starts an in-place edit (one bit each) and the editor it starts.
    enum
    {
        GET_CLICK = 1,   // a second click on the caret cell, once the double-click time passed
        GET_CHAR = 2,    // a printable character typed
        GET_DBLCLK = 4,  // a double click on the caret cell
        GET_RETURN = 8,  // Enter
        GET_INSERT = 16, // Insert
    };
    enum
    {
        GES_NONE = -1,
        GES_EDIT = 0,
        GES_COMBO = 1,
    };
    // One trigger bit at a time; FALSE for anything else.
    BOOL SetGridEditStyle(DWORD dwTrigger, int nStyle);
    // GES_NONE for a trigger never set; GetGridEditStyles only knows the five GET_ bits.
    int GetGridEditStyle(DWORD dwTrigger) const;
    int GetGridEditStyles(DWORD dwTrigger) const;

    // The cell under a client point; FALSE (and an invalid cell) for none.
    BOOL HitTest(CPoint point, Cell& cell);
    // As the list view answers it, with iSubItem the grid column; -1 for no row.
    int HitTest(LVHITTESTINFO* pInfo);
    // The data cell nearest to a client point, for points outside the cells too.
    BOOL FindClosestCell(const CPoint& point, int& row, int& col);

    // Type-ahead: a character of the search text. Keys more than a second apart start a new
    // search from the row after the caret; the header row is searched like any other.
    void KeyboardFind(UINT nChar);
    // Ignored for columns the grid does not have.
    void SetKeyboardFindColumn(int col);
    int GetKeyboardFindColumn() const { return m_nKeyboardFindCol; }

    // Opens the find dialog over the grid, closing one another grid has open: the process has
    // only one. FALSE when this grid's dialog was already open (it gets the focus).
    BOOL ShowFindDlg(CStringArray& arColumnNames);
    CGridFind* GetFindDlg() const { return m_pFindDlg; }

    // Lines to scroll per wheel notch, as the system is set (3 when it says nothing).
    static int GetNumScrollLines();
    BOOL PreTranslateMessage(MSG* pMsg) override;

    // ---- In-place editing ----------------------------------------------------------------
    // An edit opens on a data cell of a shown grid in the edit box (style 0), a host's own edit
    // window put into the begin-edit record, or the combo box (style 1), which opens with its
    // list dropped down. Enter (or Tab, which then reaches the grid) in the edit box takes the
    // text, Escape drops it; the combo box takes the entry chosen in its list and drops the edit
    // when its list closes without a choice. Losing the focus takes the edit box's text and drops
    // the combo box; scrolling takes the value. Rows inserted, deleted or sorted while an edit is
    // open do not move it.
    //
    // Starts editing the cell with the style (0 or 1) and trigger, ch being the typed character
    // or (UINT)-1; returns 0 when an editor opened, non-zero when none did (the host refused, the
    // grid is hidden, an edit is already open, the style is not 0 or 1, the cell is not a data
    // cell, the combo box is empty, or the host's editor is not a window).
    virtual int OnGridEdit_Begin(int row, int col, int style, int trigger, UINT ch);
    // Sends GN_EDITEND for the open edit of this cell and style and takes the text as the host
    // answers. TRUE when the edit ended, FALSE when it stays open or none matched.
    virtual BOOL OnGridEdit_End(int row, int col, int style, LPCTSTR lpszText, DWORD dwData);
    // Ends the open edit of this cell and style: with bTakeValue through OnGridEdit_End and the
    // editor's value, else silently without GN_EDITEND. nPassKey (a virtual key, 0 for none) is
    // then sent to the grid as a key press, as Tab from the edit box is. TRUE when it ended.
    virtual BOOL OnGridEdit_Close(int row, int col, int style, int bTakeValue, int nPassKey);
    // Starts editing from outside; with bMakeCaret the cell first becomes the caret and the only
    // selection. The result is OnGridEdit_Begin's.
    int GridEdit(int row, int col, int style, int trigger, bool bMakeCaret);
    // Closes an open editor before another action, unless the focus goes to hWndNewFocus inside
    // the editor itself; bTakeValue takes its value. Returns 0 when the editor stays open (the
    // host kept it, or the focus stays in it): the action is then to be abandoned.
    BOOL ProcessCustomEditKillFocus(HWND hWndNewFocus, int bTakeValue);
    // Lays the window over the cell (less its right and bottom grid lines), shows it and gives it
    // the focus; a child window of another parent is moved under the grid first.
    BOOL SetupCustomEditWnd(CWnd* pWnd, int row, int col);
    CEdit* GetDefaultEditWnd() { return &m_wndEdit; }
    BOOL IsAnyEditWindowVisible() const;
    // The combo box's entries become a copy of the combo's (texts and item data); bMatchByData
    // chooses the entry for a cell by the cell's item data rather than by its exact text.
    void SetFixedCombo(CComboBox& combo, bool bMatchByData);
    BOOL IsComboMatchByData() const { return m_bComboByData; }
    // The dropped list's height: up to eight entries and its border.
    int GetComboDropdownHeight() const;
    BOOL IsEditing() const { return m_bEditActive; }
    Cell GetEditCell() const { return m_EditCell; }
    int GetEditStyle() const { return m_nEditStyle; }
    // The open editor window, null when none.
    HWND GetEditWnd() const { return m_bEditActive ? m_hWndEditor : NULL; }
    LRESULT Send_GEdit(NMGRIDEDITBEGIN& nm);
    LRESULT Send_GEdit(NMGRIDEDITEND& nm);

protected:
    // The grid paints its rows itself (through DrawItem), so that only the invalid cells are
    // drawn and the list view never erases what is painted over anyway.
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    // Any column message of the list view: the column edges are read again.
    afx_msg LRESULT OnColumnChange(WPARAM wParam, LPARAM lParam);
    // A width change besides tells the parent (GM_COLUMNWIDTHCHANGED).
    afx_msg LRESULT OnSetColumnWidth(WPARAM wParam, LPARAM lParam);
    // After a column's width changed from nOldWidth at the horizontal scroll position
    // xOldScroll: moves the columns right of it on screen and repaints the column.
    void RepaintResizedColumn(int col, int nOldWidth, int xOldScroll);
    // WM_MEASUREITEM, reflected by the parent, is answered by MeasureItem.
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    // The right edge of every column, measured from the left edge of a row.
    const std::vector<int>& GetColumnEdges() const;
    // The columns whose span meets [xLeft, xRight) of a row starting at xRow; false when none.
    BOOL GetColumnsInSpan(int xRow, int xLeft, int xRight, int& nFirst, int& nLast) const;
    // A scroll request on a bar (SB_HORZ or SB_VERT) as the scroll bar would send it.
    void OnScrollRequest(int nBar, UINT nSBCode, UINT nPos);
    // The vertical scroll position is the grid's own (m_nTopRow): the list view's messages
    // that read or move it are answered by the grid, which moves its cells itself.
    afx_msg LRESULT OnGetTopIndex(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnScrollMsg(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnEnsureVisibleMsg(WPARAM wParam, LPARAM lParam);
    // A row's rectangle in client coordinates (the list view's width, the grid's position).
    BOOL GetRowRect(int row, CRect& rect) const;
    // Makes nTop, within the rows a full page can start at, the top row; bQuiet leaves the
    // rows and the bar to the next paint, otherwise the rows on screen move and the bar is
    // drawn now. Returns whether the top row changed.
    bool ScrollToRow(int nTop, bool bQuiet);
    // Scrolls quietly the least that shows the whole row; whether the top row changed.
    bool ScrollRowIntoView(int row);
    // After the list view set its bar's range (a count or size change), the grid's position
    // goes back on the bar, within the new range.
    void RestoreTopRow();
    // The cell rectangle less the right and bottom grid lines, when they are drawn.
    CRect GetCellInnerRect(const CRect& rcCell) const;
    // The edit icon a cell shows now (its own, or the caret's on the focused cell only), -1 for
    // none; dwFlag 1 puts it at the left.
    int GetShownEditIcon(int row, int col, DWORD& dwFlag) const;
    // Where a cell's text and image go: the cell less its grid lines and edit icon, less a pixel
    // and the padding. nIcon is the edit icon shown (-1 for none), dwSide and rcIcon its place.
    CRect GetCellContentArea(int row, int col, const CRect& rcCell, int& nIcon, DWORD& dwSide, CRect& rcIcon) const;
    // Whether the grid has the focus, read once per row while DrawItem paints it.
    BOOL IsDrawFocused(int row) const;
    // Whether invalidating a cell now is worth it: not while hidden or locked.
    bool IsRefreshNeeded();

    struct CScrollWnd
    {
        HWND hWnd;
        int nBar;
    };

    void InitAllData();
    // SetCellTextDrawFormat without the repaint, for the forms that change many cells.
    BOOL ApplyTextDrawFormat(int row, int col, long fmt, CELLFMT source, bool bForce);
    // The cell's slot of an array of its row, allocating the array; null when it cannot.
    template <class T>
    T* GetCellSlot(int row, int col, T* (CItemData::*pfnEnsure)(int));
    // The cell's value in an array of its row, or the fill when there is none.
    template <class T>
    T GetCellValue(int row, int col, T* CItemData::*pArray, T none) const;
    // One of the grid-wide colours, repainting the grid.
    void SetGridColor(COLORREF& rcrField, COLORREF cr);
    // One of the per-cell colours of a data cell, repainting it.
    BOOL SetCellColor(int row, int col, COLORREF* (CItemData::*pfnEnsure)(int), COLORREF cr);
    // Sends a grid notification to the grid window's parent; 0 when there is none.
    LRESULT SendGridNotify(NMHDR* pHdr, UINT nCode);
    // Clears the caret flag of the old caret, sets it on the new, notifies, takes an edit icon
    // from the reply, repaints both cells and sends GN_CELLCHANGE.
    void MoveCaret(const Cell& cell);
    // The common first step of a click's selection: a data cell becomes caret and anchor; false
    // when it is no data cell or the grid selects nothing.
    bool BeginSelectionStep(const Cell& cell);
    // Selects or unselects the cell as the selection mode wants it (a row in full-row grids,
    // its first data cell in list style).
    void SelectCellUnit(const Cell& cell, bool bSelect);
    // Sets or clears state bits of a cell, creating its state array when needed.
    BOOL ChangeCellFlags(int row, int col, DWORD dwSet, DWORD dwClear);
    // Moves a stored cell when a row is inserted (nDelta 1) or deleted (nDelta -1) at nRow.
    static void ShiftCellRow(Cell& cell, int nRow, int nDelta);
    // Repaints the cells of a rectangle of cells (columns left..right, rows top..bottom), at
    // once or, inside a refresh batch, when the batch ends.
    void RefreshRectCells(const CRect& rcCells);
    // The client area a rectangle of cells covers on screen; FALSE when none.
    BOOL GetCellsArea(const CRect& rcCells, CRect& rcArea);
    // Between these, cell repaints are collected (in cells, so that a scroll in between moves
    // them along) and invalidated when the outermost batch ends, each area once; none after
    // the whole client area was invalidated.
    void BeginRefreshBatch();
    void EndRefreshBatch();
    // Invalidates the whole client area (with bFrame the scroll bars too), which covers the
    // batch's cells as well.
    void RefreshClientArea(bool bFrame = false);
    // The rectangle of cells between two corners; whole rows of data cells in full-row grids.
    CRect GetDragRect(const Cell& anchor, const Cell& current) const;
    // Applies the copy/cut step: 1 copy, 2 cut; restores on rejection.
    BOOL CopyOrCut(int nState);
    // The row vector's count to the list view, without repainting rows that did not move.
    void UpdateItemCount(int nFromRow);
    // Runs change(), a change of the list view's count or columns, without the list view drawing
    // its scroll bars now.
    void ChangeListQuietly(const std::function<void()>& change);
    // The style messages, kept from the list view while ChangeListQuietly hides it.
    afx_msg LRESULT OnStyleChange(WPARAM wParam, LPARAM lParam);
    void FreeAllRows();
    void CreateEditors();
    // Makes the list view measure its rows again (as m_nRowHeight).
    void RemeasureRows();

    afx_msg void OnDestroy();

    // ---- Input and find ------------------------------------------------------------------
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg UINT OnGetDlgCode();
    afx_msg LRESULT OnFindReplaceMessage(WPARAM wParam, LPARAM lParam);

    // The scroll amount, in rows, of a wheel turn (notches of WHEEL_DELTA) for a page of nPage
    // rows and nLines lines per notch.
    static int GetWheelScrollRows(int nNotches, int nLines, int nPage);
    // Starts editing the caret cell for the trigger when its style is an editor; 0 when it started.
    int BeginTriggerEdit(DWORD dwTrigger, UINT nChar);
    void KillClickEditTimer();
    // The platform's simple beep: a refused key, a type-ahead that found nothing.
    static void SimpleBeep();
    // The drag selection's step towards a client point, scrolling when it lies past an edge.
    void DragSelectTo(CPoint point);
    void StopDragTimer();
    // Ctrl+C, Ctrl+X, Ctrl+V: the key's action (1 copy, 2 cut, 3 paste) after the host's say.
    void OnCCPKey(int nAction);
    // Moves the focus to the next (previous) tab stop of the dialog holding the grid window.
    void TabOut(bool bPrevious);
    // The find dialog's search from the caret onwards; FALSE when nothing matched.
    BOOL FindNext(CGridFind* pDlg);
    // Called by the find dialog as its window goes.
    void OnFindDlgGone(CGridFind* pDlg);
    friend class CGridFind;

    // ---- In-place editing
    afx_msg void OnEditKillFocus();
    afx_msg void OnComboSelEndOk();
    afx_msg void OnComboSelEndCancel();
    afx_msg void OnComboKillFocus();
    afx_msg LRESULT OnProcessCustomEditKillFocus(WPARAM wParam, LPARAM lParam);
    BOOL BeginComboEdit(int row, int col, UINT ch);
    BOOL BeginWindowEdit(HWND hWndEdit, int row, int col, UINT ch, BOOL bInitText);
    // The combo box's entry for the cell, -1 for none.
    int FindComboEntry(int row, int col) const;
    // Widens the dropped list to its widest entry when that is wider than nWidth.
    void WidenComboList(int nWidth);
    // The cell less its right and bottom grid lines, in the grid's client coordinates.
    BOOL GetEditorRect(int row, int col, CRect& rect);
    // Hides the editor, giving the grid the focus when the editor had it.
    void HideEditor();
    DECLARE_MESSAGE_MAP()

    // Shape.
    int m_nRows;
    int m_nCols;
    int m_bFixedRow;
    int m_bFixedCol;
    int m_nRowHeight;
    UINT m_nID;

    // Selection and caret.
    std::unique_ptr<CSelectedCells> m_pSelectedCells;
    std::unique_ptr<CSelectedCells> m_pCCPCells;
    Cell m_AnchorCell;
    Cell m_CaretCell;
    CRect m_rcCellPadding;
    BYTE m_bHideCaret;
    BYTE m_bGraySelection;
    BYTE m_bHideSelection;

    std::vector<int> m_arColTextFormats;

    // Edit icons.
    CImageList* m_pEditIconImageList;
    DWORD m_dwEditIconStyle;
    Cell m_EditIconCell;
    short m_nEditIcon;
    DWORD m_dwEditIconFlag;
    short m_nEditIconType;

    // Copy, cut and paste.
    Cell m_CCPCell;
    int m_nCCPState;
    CMenu m_CCPMenu;

    // Colours.
    COLORREF m_crText;
    COLORREF m_crTextBk;
    COLORREF m_crBk;
    COLORREF m_crGridLine;
    COLORREF m_crSelection;
    BOOL m_bTransparentSelection;

    DWORD m_dwGridStyle;

    // The in-place editors and their fonts.
    CComboBox m_wndCombo;
    CGridInPlaceEdit m_wndEdit;
    CFont m_ComboFont;
    CFont m_EditFont;

    BOOL m_bPaintLocked;
    BOOL m_bPrinting;
    BOOL m_bPrintBkColor;

    // Geometry.
    int m_nEvenColumnWidth;
    int m_nEvenRowHeight;
    int m_bFitToGrid;
    int m_nMaxWidth;
    int m_nMaxHeight;
    BOOL m_bResizing;
    BOOL m_bIgnoreFitToGrid;
    UINT m_nDrawAction;
    UINT m_nDrawState;
    std::vector<CScrollWnd> m_arScrollWnds;
    int m_nMeasuredHeight = -1; // the row height the list view last measured, -1 before it did
    mutable std::vector<int> m_arColEdges; // empty until read again after a column change
    // The row DrawItem is painting (-1 outside it), its bounds, and whether the grid had the
    // focus then: read once per row rather than once per cell, and once per paint in OnPaint
    // (m_nPaintFocused, -1 outside it), since asking for the focus is a round trip to the
    // window manager under Wine.
    int m_nDrawRow = -1;
    CRect m_rcDrawRow;
    BOOL m_bDrawFocused = FALSE;
    int m_nPaintFocused = -1;
    BOOL m_bQuietStyle = FALSE;
    int m_nTopRow = 0; // the first row on screen
    // The refresh batch: its depth, its cells and whether the whole client area is invalid
    // since it began (or since the last paint).
    int m_nRefreshBatch = 0;
    std::vector<CRect> m_arBatchCells;
    bool m_bBatchAllInvalid = false;

    // The rows: each slot holds the row's record (or whatever SetItemDataPtr put there).
    std::vector<DWORD_PTR> m_arRows;
    std::unique_ptr<CTextPool> m_pTextPool;

    // ---- Input and find ------------------------------------------------------------------
    Cell m_DownCell;                // where the left button went down
    BOOL m_bDownMovedCaret = FALSE; // that press moved the caret while edit icons show on focus only
    Cell m_CtrlDownCell;            // where a control-click went down
    BYTE m_bCapture = FALSE;
    BYTE m_bCCPMenuArmed = FALSE; // the right-button press prepared the context menu
    Cell m_LastDragCell;
    CPoint m_ptLastDrag = CPoint(-32768, -32768);
    UINT_PTR m_nDragTimer = 0;
    // The click edit waiting for the double-click time to pass.
    UINT_PTR m_nClickEditTimer = 0;
    Cell m_ClickEditCell;
    int m_nClickEditStyle = GES_NONE;
    DWORD m_dwClickEditTrigger = 0;
    UINT m_nClickEditChar = static_cast<UINT>(-1);
    std::vector<int> m_arEditStyles; // by trigger bit position; missing slots are GES_NONE
    char m_szFindBuffer[301] = {};
    int m_nFindBufferLen = 0;
    int m_nKeyboardFindCol = 0;
    CGridFind* m_pFindDlg = NULL;
    CString m_strLastFind;
    // The process-wide type-ahead clock and find dialog.
    static DWORD m_stdwLastFindKey;
    static HWND m_sthFindDlg;

    // The row records, and their text-slot arrays (a slot per column).
    std::unique_ptr<CBlockPool> m_pRecordPool;
    std::unique_ptr<CBlockPool> m_pSlotPool;

    // In-place editing: the open editor, its cell, style, trigger and character, whether an edit
    // is open and whether it is being closed.
    HWND m_hWndEditor = NULL;
    Cell m_EditCell;
    int m_nEditStyle = -1;
    int m_nEditTrigger = 0;
    int m_nEditChar = -1;
    BYTE m_bEditActive = 0;
    BYTE m_bEditClosing = 0;
    BYTE m_bComboByData = 0;
};

// Sorts the row records in place with the grid's heap sort; compare receives pointers to two
// elements of the array and the context. C++ linkage, since its arguments are C++ types.
AFX_EXT_API void HeapSort(CGridList::CItemData** ppItems, unsigned nCount,
                          int (*pfnCompare)(const void*, const void*, void*), void* pContext);

#include "grid/GridItemData.h"
#include "grid/GridSelectedCells.h"
