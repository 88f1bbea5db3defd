// CGridFrame: the work of the grid window that does not depend on the classes of its two
// children. The grid window a host creates is CTGrid<TList, THeader> (grid/TGrid.h), which owns
// the children and hands them to this base; everything else is here, in the library.
//
// The grid window holds a CGridHeader strip across its top, as high as the header's font needs,
// and the CGridList below it, filling the rest. It:
//   - feeds the header one item per list column (titles and sort classes set through it) and
//     names the header as the list's horizontal scroll partner, so the titles stay over their
//     columns;
//   - keeps column widths in step both ways: a divider drag in the header sets the list's
//     column width, and a width set on the list (CGridList::SetColumnWidth) resizes the item;
//   - sorts on a header click when the list has GS_SORTONHDR (see SortOnColumn);
//   - passes every WM_NOTIFY of its children on to its own parent, naming itself and its control
//     id as the source, and returns the parent's reply to the child: so a host sees the header's
//     HDN_ codes and may veto a divider drag as it would the header's own. The grid's own codes
//     (GN_) already reach the parent that way from the list.
//   - opens the list's find dialog, with the titles as column names, when the list asks for it
//     (F3 or Ctrl+F: GM_FINDDIALOG), and passes F8 (GM_KEYF8) on to its parent for the host to give a
//     meaning;
//   - prints a paginated rendering of the header and the cells onto a device context;
//   - exports the cells as tab-separated text or CSV, to a file or the clipboard.
#pragma once

#include <afxwin.h>

#include "grid/GridHeader.h"
#include "grid/GridList.h"

#include <string>

class AFX_EXT_CLASS CGridFrame : public CWnd
{
    DECLARE_DYNAMIC(CGridFrame)
public:
    // The children's control ids.
    enum
    {
        IDC_GRIDLIST = 100,
        IDC_GRIDHEADER = 101,
    };

    enum EXPORTFORMAT
    {
        EXPORT_TEXT = 0, // fields separated by tabs
        EXPORT_CSV = 1,  // fields separated by commas
    };

    // ---- Creation and layout ---------------------------------------------------------------
    // Creates the grid window (dwStyle: WS_CHILD and the like; WS_CLIPCHILDREN is added), its
    // list of nRows by nCols as CGridList::Create takes them and the header with an item per
    // column. FALSE when any of the three cannot be made.
    BOOL Create(int nRows, int nCols, int bFixedRow, int bFixedCol, DWORD dwStyle, const RECT& rect, CWnd* pParent,
                UINT nID);
    virtual CGridList* GetGridList() = 0;
    virtual CGridHeader* GetGridHeader() = 0;
    // One header item per list column: items are added or removed at the end, each item's width
    // and height follow the list and the strip. Call after changing the list's column count.
    void UpdateHeaderItems();
    // The strip's height: the header font's line plus the item's margins and padding.
    int GetHeaderHeight();
    // Places the header and the list in the client area.
    void RecalcLayout();
    // The font of the cells and of the titles (each keeps its own copy or reference as it does).
    void SetGridFont(CFont* pFont);

    // ---- Columns ---------------------------------------------------------------------------
    BOOL SetColumnTitle(int col, LPCTSTR lpszTitle);
    CString GetColumnTitle(int col);
    // The column's sort class for header sorting: 0 text, 1 numbers, 2 times.
    BOOL SetColumnSortClass(int col, short nSortClass);

    // ---- Sorting ---------------------------------------------------------------------------
    // What a left click on the header's item does with GS_SORTONHDR. Without bAddKey the column
    // becomes the only key: ascending in its sort class, or the other direction when it already
    // was the only key. With bAddKey (Ctrl held) the column joins the keys as the last one, or
    // flips its direction when it is one; the header then shows priorities 1, 2, 3... Then the
    // list is sorted by the header's keys. FALSE for a bad column or a list with a fixed column,
    // which is never sorted.
    BOOL SortOnColumn(int col, bool bAddKey);
    // Sorts the list by the header's sort state (nothing when it has no keys).
    void SortByHeader();

    // ---- Printing --------------------------------------------------------------------------
    // A page is rcPage of the device context, in device units; the grid is drawn at the scale
    // it has on the screen (by the device's pixels per inch), the header strip at the top of
    // every page, followed by the list's fixed row when it has one and as many further rows as
    // fit. Columns that do not fit beside the first are left out. While it draws, the list and the
    // header are in their printing modes (no selection, no edit icons; the device context's font).
    int GetPrintPageCount(CDC* pDC, const CRect& rcPage);
    // Draws page nPage (0-based); FALSE when there is no such page.
    BOOL PrintPage(CDC* pDC, const CRect& rcPage, int nPage);
    // Prints every page of the printable area of a printer device context as one document (the
    // host opens the print dialog and hands over its device context). FALSE when the device
    // refuses the document or a page.
    BOOL Print(CDC* pDC, LPCTSTR lpszDocName);

    // ---- Export ----------------------------------------------------------------------------
    // The grid as text: the header's titles as the first record, when there are items, then
    // every row of the list, every record ending with CR LF. A field holding its separator, a
    // quote, CR or LF is put in double quotes with its quotes doubled (RFC 4180 style).
    CString GetExportText(EXPORTFORMAT format);
    // FALSE when the file cannot be written, the format is unknown or the grid not created.
    BOOL ExportToFile(LPCTSTR lpszPath, EXPORTFORMAT format);
    // As CF_TEXT; FALSE when the clipboard cannot be opened, the format is unknown or the grid
    // not created.
    BOOL ExportToClipboard(EXPORTFORMAT format);

protected:
    CGridFrame();

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg LRESULT OnColumnWidthChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnFindDialog(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnKeyF8(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    // The header's notifications the grid window acts on; the parent's reply is lResult.
    void OnHeaderNotify(NMHEADER* pHeader, LRESULT& lResult);
    // Sends the notification to the parent in the grid window's name, restoring the header.
    LRESULT ForwardNotify(NMHDR* pHdr);
    static void AppendField(std::string& text, const char* pszField, char cSeparator);
    // A known format of a grid that exists.
    bool CanExport(EXPORTFORMAT format);
    // The rendering of PrintPage, the device context prepared.
    void DrawPrintPage(CDC* pDC, const CSize& sizePage, int nFirstRow, int nLastRow);
    // The print layout in screen pixels: the page, the rows per page (at least one).
    CSize GetPrintPageSize(CDC* pDC, const CRect& rcPage);
    int GetPrintRowsPerPage(const CSize& sizePage);

    bool m_bSyncingWidth; // a width travels between header and list: no echo
};
