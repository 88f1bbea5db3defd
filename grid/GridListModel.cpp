// CGridList: creation, shape, rows, cell content and text formats.
#include "grid/GridList.h"

#include "grid/GridFind.h"

#include <algorithm>
#include <new>

IMPLEMENT_DYNAMIC(CGridList, CListCtrl)

BEGIN_MESSAGE_MAP(CGridList, CListCtrl)
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_VSCROLL()
ON_WM_HSCROLL()
ON_MESSAGE(LVM_INSERTCOLUMNA, OnColumnChange)
ON_MESSAGE(LVM_INSERTCOLUMNW, OnColumnChange)
ON_MESSAGE(LVM_DELETECOLUMN, OnColumnChange)
ON_MESSAGE(LVM_SETCOLUMNA, OnColumnChange)
ON_MESSAGE(LVM_SETCOLUMNW, OnColumnChange)
ON_MESSAGE(LVM_SETCOLUMNWIDTH, OnSetColumnWidth)
ON_MESSAGE(LVM_GETTOPINDEX, OnGetTopIndex)
ON_MESSAGE(LVM_SCROLL, OnScrollMsg)
ON_MESSAGE(LVM_ENSUREVISIBLE, OnEnsureVisibleMsg)
ON_MESSAGE(WM_STYLECHANGING, OnStyleChange)
ON_MESSAGE(WM_STYLECHANGED, OnStyleChange)
// In-place editing.
ON_EN_KILLFOCUS(IDC_GRIDEDIT, OnEditKillFocus)
ON_CBN_SELENDOK(IDC_GRIDCOMBO, OnComboSelEndOk)
ON_CBN_SELENDCANCEL(IDC_GRIDCOMBO, OnComboSelEndCancel)
ON_CBN_KILLFOCUS(IDC_GRIDCOMBO, OnComboKillFocus)
ON_MESSAGE(GM_CUSTOMEDITKILLFOCUS, OnProcessCustomEditKillFocus)
// Input and find
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_MBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_CHAR()
ON_WM_TIMER()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_CAPTURECHANGED()
ON_WM_GETDLGCODE()
ON_REGISTERED_MESSAGE(CFindReplaceDialog::m_nFindReplaceMsg, OnFindReplaceMessage)
END_MESSAGE_MAP()

namespace
{
const DWORD_PTR kNoRecord = ~DWORD_PTR(0);

// Text formats are list-view column codes (left 0, right 1, centre 2); the draw format holds
// the DrawText alignment (left 0, centre 1, right 2): the two swap right and centre.
WORD SwapRightCentre(long fmt)
{
    return static_cast<WORD>(fmt == 1 ? 2 : fmt == 2 ? 1 : fmt);
}

const WORD kPlacementBits = 0x1800;
} // namespace

CGridList::CGridList()
    : m_pSelectedCells(new CSelectedCells), m_pCCPCells(new CSelectedCells), m_pEditIconImageList(NULL),
      m_dwEditIconStyle(0), m_pTextPool(new CTextPool),
      m_pRecordPool(new CBlockPool(sizeof(CItemData))), m_pSlotPool(new CBlockPool(0))
{
    InitAllData();
}

CGridList::~CGridList()
{
    DestroyWindow();
    FreeAllRows();
}

void CGridList::InitAllData()
{
    FreeAllRows();
    m_arRows.clear();
    m_nRows = 0;
    m_nCols = 0;
    m_bFixedRow = 0;
    m_bFixedCol = 0;
    m_nRowHeight = 16;
    m_nID = 1001;
    m_pSelectedCells->RemoveAll();
    m_pCCPCells->RemoveAll();
    m_AnchorCell = Cell();
    m_CaretCell = Cell();
    m_rcCellPadding.SetRect(1, 0, 1, 0);
    m_bHideCaret = 1;
    m_bGraySelection = 1;
    m_bHideSelection = 0;
    m_arColTextFormats.clear();
    m_EditIconCell = Cell();
    m_nEditIcon = -1;
    m_dwEditIconFlag = 0;
    m_nEditIconType = -1;
    m_CCPCell = Cell();
    m_nCCPState = -1;
    m_crText = ::GetSysColor(COLOR_WINDOWTEXT);
    m_crTextBk = ::GetSysColor(COLOR_WINDOW);
    m_crBk = ::GetSysColor(COLOR_WINDOW);
    m_crGridLine = RGB(200, 200, 200);
    m_crSelection = RGB(165, 165, 210);
    m_bTransparentSelection = FALSE;
    m_dwGridStyle = 0;
    m_bPaintLocked = FALSE;
    m_bPrinting = FALSE;
    m_bPrintBkColor = FALSE;
    m_nEvenColumnWidth = 0;
    m_nEvenRowHeight = 0;
    m_bFitToGrid = 0;
    m_nMaxWidth = 0;
    m_nMaxHeight = 0;
    m_bResizing = FALSE;
    m_bIgnoreFitToGrid = FALSE;
    m_nDrawAction = ODA_DRAWENTIRE;
    m_nDrawState = ODS_FOCUS;
}

void CGridList::FreeAllRows()
{
    // The records, their text slots and texts go with their pools; only the other arrays are
    // the heap's.
    for (DWORD_PTR& slot : m_arRows)
    {
        if (slot != 0 && slot != kNoRecord)
            reinterpret_cast<CItemData*>(slot)->FreeArrays();
        slot = 0;
    }
    m_pTextPool->FreeAll();
    m_pRecordPool->FreeAll();
    m_pSlotPool->Reset(sizeof(CItemData::CTextSlot) * static_cast<size_t>(m_nCols));
}

void CGridList::OnDestroy()
{
    // The editors are children: their objects must not keep the destroyed handles.
    m_wndCombo.DestroyWindow();
    m_wndEdit.DestroyWindow();
    // The find dialog belongs to the top-level window, which outlives the grid.
    if (m_pFindDlg != NULL)
        m_pFindDlg->DestroyWindow();
    KillClickEditTimer();
    StopDragTimer();
    CListCtrl::OnDestroy();
}

BOOL CGridList::Create(int nRows, int nCols, int bFixedRow, int bFixedCol, const RECT& rect, CWnd* pParent, UINT nID)
{
    if (nRows < 0 || nCols < 0 || (bFixedRow && nRows < 1) || (bFixedCol && nCols < 1))
        return FALSE;
    m_nID = nID;
    m_dwGridStyle = 0;
    // Owner data: the list view holds only the row count, the rows are the grid's.
    DWORD dwStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_NOCOLUMNHEADER | LVS_OWNERDATA;
    if (!CListCtrl::Create(dwStyle, rect, pParent, nID))
        return FALSE;
    return SetFixedRowCol(nRows, nCols, bFixedRow, bFixedCol);
}

BOOL CGridList::SetFixedRowCol(int nRows, int nCols, int bFixedRow, int bFixedCol)
{
    if (nRows < 0 || nCols < 0 || (bFixedRow && nRows < 1) || (bFixedCol && nCols < 1) || GetSafeHwnd() == NULL)
        return FALSE;
    // The control id is the one Create was given, not the default, whatever the rebuild resets.
    UINT nID = m_nID;
    InitAllData();
    m_nID = nID;
    m_nRows = nRows;
    m_nCols = nCols;
    m_bFixedRow = bFixedRow != 0;
    m_bFixedCol = bFixedCol != 0;
    m_dwGridStyle = 0;
    if (!InitRowsAndCols())
        return FALSE;
    CreateEditors();
    CListCtrl::SetBkColor(GetBkColor());
    // The rebuild brought the default row height back: the list view must measure it.
    if (m_nMeasuredHeight != -1 && m_nMeasuredHeight != m_nRowHeight)
        RemeasureRows();
    return TRUE;
}

void CGridList::CreateEditors()
{
    CFont* pListFont = GetFont();
    LOGFONT lf;
    if (pListFont == NULL || pListFont->GetLogFont(&lf) == 0)
        ::GetObjectA(::GetStockObject(DEFAULT_GUI_FONT), sizeof(lf), &lf);
    if (m_wndCombo.GetSafeHwnd() == NULL)
    {
        m_wndCombo.Create(WS_CHILD | WS_VSCROLL | CBS_DROPDOWNLIST, CRect(0, 0, 0, 0), this, IDC_GRIDCOMBO);
        m_ComboFont.DeleteObject();
        m_ComboFont.CreateFontIndirect(&lf);
        m_wndCombo.SetFont(&m_ComboFont, FALSE);
    }
    if (m_wndEdit.GetSafeHwnd() == NULL)
    {
        m_wndEdit.Create(WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, CRect(0, 0, 0, 0), this, IDC_GRIDEDIT);
        m_wndEdit.LimitText(GRIDEDIT_LIMIT);
        // The same point size as the list's font, in tenths of a point.
        CClientDC dc(this);
        lf.lfHeight = abs(static_cast<int>(static_cast<LONGLONG>(lf.lfHeight) * 720 / dc.GetDeviceCaps(LOGPIXELSY)));
        m_EditFont.DeleteObject();
        m_EditFont.CreatePointFontIndirect(&lf, &dc);
        m_wndEdit.SetFont(&m_EditFont, FALSE);
    }
}

void CGridList::ChangeListQuietly(const std::function<void()>& change)
{
    // The list view redraws its scroll bars at once whenever its count or columns change,
    // which costs more than anything else an insert, a delete or a column drag step does.
    // While the window is marked invisible the scroll bars take their new ranges without
    // drawing; the list view is kept from hearing of the style change, which would make it lay
    // itself out and repaint afresh. A bar whose thumb moved is invalidated instead, and
    // repaints with the next paint.
    const LONG_PTR nStyle = ::GetWindowLongPtr(m_hWnd, GWL_STYLE);
    const LONG anBars[2] = {OBJID_VSCROLL, OBJID_HSCROLL};
    SCROLLBARINFO before[2], after[2];
    bool bRead = (nStyle & WS_VISIBLE) != 0;
    for (int i = 0; i < 2 && bRead; ++i)
    {
        before[i].cbSize = after[i].cbSize = sizeof(SCROLLBARINFO);
        bRead = ::GetScrollBarInfo(m_hWnd, anBars[i], &before[i]) != FALSE;
    }
    if (!bRead)
    {
        change();
        return;
    }
    m_bQuietStyle = TRUE;
    ::SetWindowLongPtr(m_hWnd, GWL_STYLE, nStyle & ~static_cast<LONG_PTR>(WS_VISIBLE));
    change();
    // The list view may have shown or hidden a scroll bar meanwhile.
    const LONG_PTR nNewStyle = ::GetWindowLongPtr(m_hWnd, GWL_STYLE) | WS_VISIBLE;
    ::SetWindowLongPtr(m_hWnd, GWL_STYLE, nNewStyle);
    m_bQuietStyle = FALSE;
    bRead = ((nNewStyle ^ nStyle) & (WS_VSCROLL | WS_HSCROLL)) == 0;
    for (int i = 0; i < 2 && bRead; ++i)
        bRead = ::GetScrollBarInfo(m_hWnd, anBars[i], &after[i]) != FALSE;
    if (!bRead)
    {
        RefreshClientArea(true);
        return;
    }
    for (int i = 0; i < 2; ++i)
    {
        if (after[i].xyThumbTop != before[i].xyThumbTop || after[i].xyThumbBottom != before[i].xyThumbBottom ||
            after[i].rgstate[0] != before[i].rgstate[0])
        {
            CRect rcBar(after[i].rcScrollBar);
            ScreenToClient(&rcBar);
            ::RedrawWindow(m_hWnd, &rcBar, NULL, RDW_INVALIDATE | RDW_FRAME);
        }
    }
}

BOOL CGridList::InitRowsAndCols()
{
    if (GetSafeHwnd() == NULL)
        return FALSE;
    FreeAllRows();
    m_arRows.assign(static_cast<size_t>(m_nRows), 0);
    m_nTopRow = 0; // the list view starts again at its first row
    BOOL bBuilt = TRUE;
    ChangeListQuietly([this, &bBuilt]() {
        SetItemCountEx(0, 0);
        while (DeleteColumn(0))
            ;
        for (int col = 0; col < m_nCols && bBuilt; ++col)
            bBuilt = InsertColumn(col, "", LVCFMT_LEFT, 100) == col;
        if (bBuilt)
            SetItemCountEx(m_nRows, LVSICF_NOSCROLL);
    });
    if (!bBuilt || GetItemCount() != m_nRows)
        return FALSE;
    m_arColTextFormats.assign(static_cast<size_t>(m_nCols), -1);
    m_crText = ::GetSysColor(COLOR_WINDOWTEXT);
    m_crTextBk = ::GetSysColor(COLOR_WINDOW);
    m_crBk = ::GetSysColor(COLOR_WINDOW);
    m_crGridLine = RGB(200, 200, 200);
    m_crSelection = RGB(165, 165, 210);
    Invalidate();
    return TRUE;
}

LRESULT CGridList::OnStyleChange(WPARAM, LPARAM)
{
    return m_bQuietStyle ? 0 : Default();
}

void CGridList::UpdateItemCount(int nFromRow)
{
    if (GetSafeHwnd() == NULL)
        return;
    ChangeListQuietly([this]() { SetItemCountEx(m_nRows, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL); });
    RestoreTopRow();
    if (!IsWindowVisible())
        return;
    // Only the visible rows from the changed one down show something else now.
    CRect rcClient;
    GetClientRect(&rcClient);
    int nTop = m_nTopRow;
    CRect rcTop;
    if (!GetRowRect(nTop, rcTop))
    {
        Invalidate(FALSE);
        return;
    }
    int nFirst = std::max(nFromRow, nTop);
    rcClient.top = std::max(rcClient.top, rcTop.top + (nFirst - nTop) * rcTop.Height());
    if (!rcClient.IsRectEmpty())
        InvalidateRect(&rcClient, FALSE);
}

void CGridList::ShiftCellRow(Cell& cell, int nRow, int nDelta)
{
    if (cell.row >= nRow && cell.row != -1)
        cell.row += nDelta;
}

int CGridList::InsertRow(int nRow, bool bNoRedraw)
{
    if (nRow < 0 || nRow > m_nRows)
        nRow = m_nRows;
    m_arRows.insert(m_arRows.begin() + nRow, DWORD_PTR(0));
    ++m_nRows;
    if (nRow < m_nRows - 1)
    {
        m_pSelectedCells->InsertRow(nRow);
        m_pCCPCells->InsertRow(nRow);
        if (m_CaretCell.row >= nRow)
        {
            ShiftCellRow(m_CaretCell, nRow, 1);
            m_AnchorCell = m_CaretCell;
        }
        else
            ShiftCellRow(m_AnchorCell, nRow, 1);
        ShiftCellRow(m_CCPCell, nRow, 1);
        ShiftCellRow(m_EditIconCell, nRow, 1);
        UpdateItemCount(nRow);
    }
    else
    {
        UpdateItemCount(m_nRows);
        // The row that was last loses its black bottom line.
        int nFormerLast = nRow - 1;
        CRect rcRow;
        if (GetSafeHwnd() == NULL)
            ;
        else if (nFormerLast < 0 || (nFormerLast == 0 && m_bFixedRow) || m_nCols == (m_bFixedCol ? 1 : 0) ||
                 !GetRowRect(nFormerLast, rcRow))
            Invalidate(FALSE);
        else
        {
            CRect rcClient;
            GetClientRect(&rcClient);
            rcRow.left = rcClient.left;
            rcRow.right = rcClient.right;
            InvalidateRect(&rcRow, FALSE);
        }
    }
    if (!bNoRedraw)
        UpdateClientSizeToGrid();
    return nRow;
}

BOOL CGridList::DeleteRow(int nRow, bool bNoRedraw)
{
    if (nRow < 0 || nRow >= m_nRows)
        return FALSE;
    if (nRow == 0)
        m_bFixedRow = 0; // the header row goes with it
    m_pSelectedCells->DeleteRow(nRow);
    m_pCCPCells->DeleteRow(nRow);
    if (m_CaretCell.row >= nRow)
    {
        m_CaretCell = m_CaretCell.row == nRow ? Cell() : Cell(m_CaretCell.row - 1, m_CaretCell.col);
        m_AnchorCell = m_CaretCell;
    }
    else if (m_AnchorCell.row == nRow)
        m_AnchorCell = m_CaretCell; // an anchor on the deleted row falls back to the caret
    else
        ShiftCellRow(m_AnchorCell, nRow, -1);
    if (m_CCPCell.row == nRow)
        m_CCPCell = Cell();
    else
        ShiftCellRow(m_CCPCell, nRow, -1);
    if (m_EditIconCell.row == nRow)
        m_EditIconCell = Cell();
    else
        ShiftCellRow(m_EditIconCell, nRow, -1);
    CItemData* pData = GetItemData(nRow, false);
    if (pData != NULL)
    {
        pData->Free(*m_pTextPool, *m_pSlotPool, m_nCols);
        m_pRecordPool->Free(pData);
    }
    m_arRows.erase(m_arRows.begin() + nRow);
    --m_nRows;
    UpdateItemCount(nRow == m_nRows ? nRow - 1 : nRow);
    if (!bNoRedraw)
        UpdateClientSizeToGrid();
    return TRUE;
}

void CGridList::DeleteAllItemData()
{
    ClearGCCPArray();
    RemoveAllSelection();
    Cell oldCaret = m_CaretCell;
    m_AnchorCell = Cell();
    m_CaretCell = Cell();
    SendCaretChangeNotification(oldCaret, m_CaretCell);
    FreeAllRows();
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
}

void CGridList::ClearAllCells(bool bTextOnly)
{
    if (!bTextOnly)
    {
        // The cell states go with the records, so the sets, the caret and the pending copy or
        // cut that they flagged go too.
        FreeAllRows();
        m_pSelectedCells->RemoveAll();
        m_pCCPCells->RemoveAll();
        m_AnchorCell = m_CaretCell = m_CCPCell = m_EditIconCell = Cell();
        m_nCCPState = -1;
        m_crText = ::GetSysColor(COLOR_WINDOWTEXT);
        m_crTextBk = ::GetSysColor(COLOR_WINDOW);
        m_crBk = ::GetSysColor(COLOR_WINDOW);
        m_crGridLine = RGB(200, 200, 200);
        m_crSelection = RGB(165, 165, 210);
    }
    else
    {
        for (int row = 0; row < m_nRows; ++row)
        {
            CItemData* pData = GetItemData(row, false);
            if (pData == NULL || pData->m_pTexts == NULL)
                continue;
            for (int col = 0; col < m_nCols; ++col)
                if (!IsHdrCell(row, col) && pData->m_pTexts[col].nCapacity != 0)
                    CTextPool::GetAt(pData->m_pTexts[col].nOffset)[0] = '\0';
        }
    }
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
}

void CGridList::ModifyStyle(DWORD dwRemove, DWORD dwAdd)
{
    DWORD dwStyle = (m_dwGridStyle & ~dwRemove) | dwAdd;
    // Single full-row selection is only allowed in list style.
    bool bBothModes = (dwStyle & (GS_SINGLESEL | GS_NOSEL)) == (GS_SINGLESEL | GS_NOSEL);
    bool bSingleFullRow = (dwStyle & (GS_SINGLESEL | GS_FULLROWSELECT)) == (GS_SINGLESEL | GS_FULLROWSELECT) &&
                          (dwStyle & (GS_NOSEL | GS_LIST)) == 0;
    m_dwGridStyle = bBothModes || bSingleFullRow ? 0 : dwStyle;
    HideCaret(!(IsShowCaretAlways() || (GetSafeHwnd() != NULL && ::GetFocus() == m_hWnd)));
}

BOOL CGridList::IsHdrCell(int row, int col) const
{
    return (m_bFixedRow && row == 0 && col >= 0 && col < m_nCols) ||
           (m_bFixedCol && col == 0 && row >= 0 && row < m_nRows);
}

// ---- Row records ------------------------------------------------------------------------------

CGridList::CItemData* CGridList::GetItemData(int row, bool bCreate) const
{
    if (row < 0 || row >= m_nRows)
        return NULL;
    DWORD_PTR& slot = const_cast<DWORD_PTR&>(m_arRows[static_cast<size_t>(row)]);
    if ((slot == 0 || slot == kNoRecord) && bCreate)
    {
        void* pBlock = m_pRecordPool->Alloc();
        slot = pBlock == NULL ? slot : reinterpret_cast<DWORD_PTR>(new (pBlock) CItemData);
    }
    return slot == kNoRecord ? NULL : reinterpret_cast<CItemData*>(slot);
}

BOOL CGridList::SetItemDataPtr(int row, DWORD_PTR dwData)
{
    if (row < 0 || row >= m_nRows)
        return FALSE;
    m_arRows[static_cast<size_t>(row)] = dwData;
    return TRUE;
}

DWORD_PTR CGridList::GetItemDataPtr(int row) const
{
    return row < 0 || row >= m_nRows ? 0 : m_arRows[static_cast<size_t>(row)];
}

// ---- Cell content -----------------------------------------------------------------------------

BOOL CGridList::SetText(int row, int col, LPCTSTR lpszText, bool bNoRedraw)
{
    CItemData* pData = IsValidCell(row, col) ? GetItemData(row, true) : NULL;
    CItemData::CTextSlot* pSlots = pData == NULL ? NULL : pData->EnsureTexts(*m_pSlotPool, m_nCols);
    if (pSlots == NULL)
        return FALSE;
    CItemData::CTextSlot* pSlot = pSlots + col;
    size_t nLen = lpszText == NULL ? 0 : strlen(lpszText);
    if (nLen >= 65535)
        nLen = 0;
    if (nLen >= pSlot->nCapacity)
    {
        UINT nOffset = 0;
        if (!m_pTextPool->Alloc(static_cast<UINT>(nLen + 1), nOffset))
            return FALSE;
        if (pSlot->nCapacity != 0)
            m_pTextPool->Free(pSlot->nOffset, pSlot->nCapacity);
        pSlot->nCapacity = static_cast<UINT>(nLen + 1);
        pSlot->nOffset = nOffset;
    }
    char* pBuffer = CTextPool::GetAt(pSlot->nOffset);
    memmove(pBuffer, nLen == 0 ? "" : lpszText, nLen);
    pBuffer[nLen] = '\0';
    if (!bNoRedraw)
        RefreshCell(row, col);
    return TRUE;
}

LPCTSTR CGridList::GetText(int row, int col) const
{
    return GetRecordText(IsValidCell(row, col) ? GetItemData(row, false) : NULL, col);
}

BOOL CGridList::SetItemData(int row, int col, DWORD dwData)
{
    DWORD* pValue = IsHdrCell(row, col) ? NULL : GetCellSlot(row, col, &CItemData::EnsureItemData);
    if (pValue == NULL)
        return FALSE;
    *pValue = dwData;
    return TRUE;
}

DWORD CGridList::GetItemData(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pItemData, DWORD(0xFFFFFFFF));
}

BOOL CGridList::SetCellColor(int row, int col, COLORREF* (CItemData::*pfnEnsure)(int), COLORREF cr)
{
    COLORREF* pValue = IsHdrCell(row, col) ? NULL : GetCellSlot(row, col, pfnEnsure);
    if (pValue == NULL)
        return FALSE;
    *pValue = cr;
    RefreshCell(row, col);
    return TRUE;
}

BOOL CGridList::SetItemTextColor(int row, int col, COLORREF cr)
{
    return SetCellColor(row, col, &CItemData::EnsureTextColors, cr);
}

COLORREF CGridList::GetItemTextColor(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pTextColors, COLORREF(0xFFFFFFFF));
}

BOOL CGridList::SetItemTextBkColor(int row, int col, COLORREF cr)
{
    return SetCellColor(row, col, &CItemData::EnsureTextBkColors, cr);
}

COLORREF CGridList::GetItemTextBkColor(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pTextBkColors, COLORREF(0xFFFFFFFF));
}

BOOL CGridList::SetItemBkColor(int row, int col, COLORREF cr)
{
    return SetCellColor(row, col, &CItemData::EnsureBkColors, cr);
}

COLORREF CGridList::GetItemBkColor(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pBkColors, COLORREF(0xFFFFFFFF));
}

void CGridList::SetGridColor(COLORREF& rcrField, COLORREF cr)
{
    rcrField = cr;
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
}

void CGridList::SetTextColor(COLORREF cr)
{
    SetGridColor(m_crText, cr);
}

void CGridList::SetTextBkColor(COLORREF cr)
{
    SetGridColor(m_crTextBk, cr);
}

void CGridList::SetBkColor(COLORREF cr)
{
    m_crBk = cr;
    if (GetSafeHwnd() != NULL)
    {
        CListCtrl::SetBkColor(cr);
        Invalidate(FALSE);
    }
}

void CGridList::SetGridLineColor(COLORREF cr)
{
    SetGridColor(m_crGridLine, cr);
}

void CGridList::SetSelectionColor(COLORREF cr)
{
    SetGridColor(m_crSelection, cr);
}

void CGridList::SetTransperantSelection(BOOL bTransparent)
{
    m_bTransparentSelection = bTransparent != FALSE;
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
}

// ---- Images and edit icons --------------------------------------------------------------------

BOOL CGridList::SetCellImage(int row, int col, int nImage, long nPlacement)
{
    if (!IsNonHdrCell(row, col) || nImage < -1 ||
        (nPlacement != IMAGE_BEFORE_TEXT && nPlacement != IMAGE_AFTER_TEXT && nPlacement != -1))
        return FALSE;
    if (nImage != -1)
    {
        CImageList* pImages = GetSafeHwnd() == NULL ? NULL : CListCtrl::GetImageList(LVSIL_SMALL);
        if (pImages == NULL || pImages->GetSafeHandle() == NULL || nImage >= pImages->GetImageCount())
            return FALSE;
    }
    int* pImage = GetCellSlot(row, col, &CItemData::EnsureImages);
    DWORD* pFormat = nPlacement == -1 ? NULL : GetCellSlot(row, col, &CItemData::EnsureFormats);
    if (pImage == NULL || (nPlacement != -1 && pFormat == NULL))
        return FALSE;
    *pImage = nImage;
    if (pFormat != NULL)
    {
        WORD wDraw = HIWORD(*pFormat);
        wDraw = static_cast<WORD>((wDraw == 0xFFFF ? 0 : wDraw & ~kPlacementBits) | nPlacement);
        *pFormat = MAKELONG(LOWORD(*pFormat), wDraw);
    }
    RefreshCell(row, col);
    return TRUE;
}

int CGridList::GetCellImage(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pImages, -1);
}

long CGridList::GetCellImagePlacement(int row, int col) const
{
    WORD wDraw = HIWORD(GetCellValue(row, col, &CItemData::m_pFormats, DWORD(0xFFFFFFFF)));
    return wDraw == 0xFFFF || (wDraw & kPlacementBits) == 0 ? IMAGE_BEFORE_TEXT : (wDraw & kPlacementBits);
}

void CGridList::SetEditIconStyle(DWORD dwStyle)
{
    m_dwEditIconStyle = dwStyle;
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
}

BOOL CGridList::SetCellEditIcon(int row, int col, int nIcon, short nEditType, DWORD dwFlag)
{
    bool bIconOk = nIcon == EDITICON_NONE || nIcon == EDITICON_DROPDOWN || nIcon == EDITICON_DIALOG ||
                   (nIcon >= 0 && m_pEditIconImageList != NULL && nIcon < m_pEditIconImageList->GetImageCount());
    if (!IsNonHdrCell(row, col) || !bIconOk || dwFlag > 1)
        return FALSE;
    DWORD* pIcon = GetCellSlot(row, col, &CItemData::EnsureEditIcons);
    short* pType = GetCellSlot(row, col, &CItemData::EnsureEditIconTypes);
    if (pIcon == NULL || pType == NULL)
        return FALSE;
    *pIcon = MAKELONG(static_cast<WORD>(nIcon), nIcon == EDITICON_NONE ? 0 : dwFlag);
    *pType = nEditType;
    RefreshCell(row, col);
    return TRUE;
}

int CGridList::GetCellEditIcon(int row, int col) const
{
    return static_cast<short>(LOWORD(GetCellValue(row, col, &CItemData::m_pEditIcons, DWORD(0xFFFF))));
}

DWORD CGridList::GetCellEditIconFlag(int row, int col) const
{
    return HIWORD(GetCellValue(row, col, &CItemData::m_pEditIcons, DWORD(0xFFFF)));
}

short CGridList::GetCellEditIconEditType(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pEditIconTypes, short(-1));
}

// ---- Text formats -----------------------------------------------------------------------------

BOOL CGridList::SetCellTextFormat(int row, int col, long fmt)
{
    return SetCellTextDrawFormat(row, col, fmt, CELLFMT_CELL, false);
}

BOOL CGridList::SetCellTextDrawFormat(int row, int col, long fmt, CELLFMT source, bool bForce)
{
    if (!ApplyTextDrawFormat(row, col, fmt, source, bForce))
        return FALSE;
    RefreshCell(row, col);
    return TRUE;
}

BOOL CGridList::ApplyTextDrawFormat(int row, int col, long fmt, CELLFMT source, bool bForce)
{
    if (!IsValidTextFormat(fmt) || !IsValidCell(row, col))
        return FALSE;
    DWORD* pFormat = GetCellSlot(row, col, &CItemData::EnsureFormats);
    if (pFormat == NULL)
        return FALSE;
    WORD wOwn = LOWORD(*pFormat);
    bool bApply = bForce || source == CELLFMT_CELL;
    if (!bApply && wOwn == 0xFFFF)
    {
        // With column headers only, column formats outrank row formats; elsewhere rows outrank
        // columns. A cell's own format outranks both.
        bool bColumnsFirst = m_bFixedRow && !m_bFixedCol;
        if (source == CELLFMT_ROW)
            bApply = !bColumnsFirst || m_arColTextFormats[static_cast<size_t>(col)] == -1;
        else
            bApply = bColumnsFirst || GetRowTextFormat(row) == -1;
    }
    if (!bApply)
        return TRUE;
    if (source == CELLFMT_CELL && !bForce)
        wOwn = static_cast<WORD>(fmt);
    WORD wDraw = HIWORD(*pFormat);
    wDraw = static_cast<WORD>((wDraw == 0xFFFF ? 0 : wDraw & kPlacementBits) | SwapRightCentre(fmt));
    *pFormat = MAKELONG(wOwn, wDraw);
    return TRUE;
}

BOOL CGridList::SetRowTextFormat(int row, long fmt)
{
    if (!IsValidTextFormat(fmt) || row < -1 || row >= m_nRows)
        return FALSE;
    int nFirst = row == -1 ? 0 : row;
    int nLast = row == -1 ? m_nRows - 1 : row;
    for (int r = nFirst; r <= nLast; ++r)
    {
        CItemData* pData = GetItemData(r, true);
        if (pData == NULL)
            return FALSE;
        pData->m_nRowTextFormat = fmt;
        for (int col = 0; col < m_nCols; ++col)
            if (!ApplyTextDrawFormat(r, col, fmt, CELLFMT_ROW, false))
                return FALSE;
    }
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
    return TRUE;
}

BOOL CGridList::SetColumnTextFormat(int col, long fmt)
{
    if (!IsValidTextFormat(fmt) || col < -1 || col >= m_nCols)
        return FALSE;
    int nFirst = col == -1 ? 0 : col;
    int nLast = col == -1 ? m_nCols - 1 : col;
    for (int c = nFirst; c <= nLast; ++c)
    {
        m_arColTextFormats[static_cast<size_t>(c)] = fmt;
        for (int row = 0; row < m_nRows; ++row)
            if (!ApplyTextDrawFormat(row, c, fmt, CELLFMT_COL, false))
                return FALSE;
    }
    if (GetSafeHwnd() != NULL)
        Invalidate(FALSE);
    return TRUE;
}

long CGridList::GetCellTextFormat(int row, int col) const
{
    WORD wOwn = LOWORD(GetCellValue(row, col, &CItemData::m_pFormats, DWORD(0xFFFFFFFF)));
    return wOwn == 0xFFFF ? -1 : (wOwn & 3);
}

long CGridList::GetRowTextFormat(int row) const
{
    CItemData* pData = GetItemData(row, false);
    return pData == NULL || pData->m_nRowTextFormat == -1 ? -1 : (pData->m_nRowTextFormat & 3);
}

long CGridList::GetColumnTextFormat(int col) const
{
    if (col < 0 || col >= m_nCols)
        return -1;
    int fmt = m_arColTextFormats[static_cast<size_t>(col)];
    return fmt == -1 ? -1 : (fmt & 3);
}

long CGridList::GetCellTextDrawFormat_DT(int row, int col) const
{
    WORD wDraw = HIWORD(GetCellValue(row, col, &CItemData::m_pFormats, DWORD(0xFFFFFFFF)));
    return wDraw == 0xFFFF ? 0 : (wDraw & 3);
}

long CGridList::GetCellTextDrawFormat(int row, int col) const
{
    return SwapRightCentre(GetCellTextDrawFormat_DT(row, col));
}
