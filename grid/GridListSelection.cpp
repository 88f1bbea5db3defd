// CGridList: cell states, selection, caret, copy/cut/paste marking, the context menu and the
// notifications to the host.
#include "grid/GridList.h"

#include <algorithm>

const char CGridList::m_stszCCPMenuNames[3][7] = {"&Copy", "&Cut", "&Paste"};

// ---- Notifications ----------------------------------------------------------------------------

LRESULT CGridList::SendGridNotify(NMHDR* pHdr, UINT nCode)
{
    HWND hGrid = GetSafeHwnd() == NULL ? NULL : ::GetParent(m_hWnd);
    HWND hTarget = hGrid == NULL ? NULL : ::GetParent(hGrid);
    if (hTarget == NULL)
        return 0;
    memset(pHdr, 0, sizeof(NMHDR));
    pHdr->hwndFrom = hGrid;
    pHdr->idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(hGrid));
    pHdr->code = nCode;
    return ::SendMessageA(hTarget, WM_NOTIFY, pHdr->idFrom, reinterpret_cast<LPARAM>(pHdr));
}

LRESULT CGridList::Send_GN_CCPMENU(int& nCopy, int& nCut, int& nPaste)
{
    NMGRIDCCPMENU nm;
    LRESULT lResult = 0;
    nm.nCopy = nCopy;
    nm.nCut = nCut;
    nm.nPaste = nPaste;
    lResult = SendGridNotify(&nm.hdr, GN_CCPMENU);
    if (lResult != 0)
    {
        nCopy = nm.nCopy;
        nCut = nm.nCut;
        nPaste = nm.nPaste;
    }
    return lResult;
}

LRESULT CGridList::Send_GN_CCP(int nAction, const Cell& source)
{
    NMGRIDCCP nm;
    nm.nAction = nAction;
    nm.source = source;
    return SendGridNotify(&nm.hdr, GN_CCP);
}

LRESULT CGridList::SendCaretChangeNotification(const Cell& oldCell, const Cell& newCell)
{
    NMGRIDCARETCHANGE nm;
    nm.oldCell = oldCell;
    nm.newCell = newCell;
    nm.dwEditIconType = 0xFFFFFFFF;
    nm.nEditIcon = -1;
    nm.dwEditIconFlag = 0;
    LRESULT lResult = SendGridNotify(&nm.hdr, GN_CARETCHANGE);
    if (lResult == 0 || (m_dwEditIconStyle & EIS_ONFOCUS) == 0)
        return lResult;
    // The host offers the new caret cell an edit icon.
    int nIcon = nm.nEditIcon;
    bool bValid = nIcon == EDITICON_NONE || nIcon == EDITICON_DROPDOWN || nIcon == EDITICON_DIALOG ||
                  (nIcon >= 0 && m_pEditIconImageList != NULL && nIcon < m_pEditIconImageList->GetImageCount());
    if (!bValid)
        return lResult;
    RefreshCell(m_EditIconCell);
    m_EditIconCell = nIcon == EDITICON_NONE ? Cell() : newCell;
    m_nEditIcon = static_cast<short>(nIcon);
    m_nEditIconType = static_cast<short>(nm.dwEditIconType);
    m_dwEditIconFlag = nm.dwEditIconFlag;
    return lResult;
}

LRESULT CGridList::SendGridCellChangeNotification()
{
    NMGRIDCELL nm;
    nm.cell = m_CaretCell;
    return SendGridNotify(&nm.hdr, GN_CELLCHANGE);
}

LRESULT CGridList::SendItemActivateNotification(UINT nCode, int row, int col, CPoint point)
{
    NMITEMACTIVATE nm;
    memset(&nm, 0, sizeof(nm));
    nm.iItem = row;
    nm.iSubItem = col;
    HWND hGrid = GetSafeHwnd() == NULL ? NULL : ::GetParent(m_hWnd);
    if (hGrid != NULL)
        ::MapWindowPoints(m_hWnd, hGrid, &point, 1);
    nm.ptAction = point;
    nm.uKeyFlags = (::GetKeyState(VK_MENU) < 0 ? LVKF_ALT : 0) | (::GetKeyState(VK_CONTROL) < 0 ? LVKF_CONTROL : 0) |
                   (::GetKeyState(VK_SHIFT) < 0 ? LVKF_SHIFT : 0);
    return SendGridNotify(&nm.hdr, nCode);
}

// ---- Cell states ------------------------------------------------------------------------------

BOOL CGridList::ChangeCellFlags(int row, int col, DWORD dwSet, DWORD dwClear)
{
    DWORD* pState = NULL;
    if (dwSet != 0)
        pState = GetCellSlot(row, col, &CItemData::EnsureStates);
    else
    {
        CItemData* pData = IsValidCell(row, col) ? GetItemData(row, false) : NULL;
        if (pData == NULL || pData->m_pStates == NULL)
            return IsValidCell(row, col); // nothing flagged, nothing to clear
        pState = pData->m_pStates + col;
    }
    if (pState == NULL)
        return FALSE;
    *pState = (*pState & ~dwClear) | dwSet;
    return TRUE;
}

DWORD CGridList::GetCellState(int row, int col) const
{
    return GetCellValue(row, col, &CItemData::m_pStates, DWORD(0));
}

BOOL CGridList::SetCellState(int row, int col, eCellStateChange change, void* pSet, bool bFlagsOnly)
{
    return SetCellState(Cell(row, col), change, pSet, bFlagsOnly);
}

BOOL CGridList::SetCellState(const Cell& cell, eCellStateChange change, void* pSet, bool bFlagsOnly)
{
    bool bPending = m_nCCPState == 1 || m_nCCPState == 2;
    if (cell == Cell())
    {
        switch (change)
        {
        case CSC_UNSELECT:
            RemoveAllSelection();
            return TRUE;
        case CSC_UNCUT:
            ClearGCCPArray();
            return TRUE;
        case CSC_CLEARCCPINDEX:
            if (!bPending)
                return FALSE;
            ChangeCellFlags(m_CCPCell.row, m_CCPCell.col, 0, CS_CCPINDEX);
            m_CCPCell = Cell();
            return TRUE;
        default:
            return FALSE;
        }
    }
    if (!IsNonHdrCell(cell))
        return FALSE;
    CSelectedCells* pCells = static_cast<CSelectedCells*>(pSet);
    switch (change)
    {
    case CSC_SELECT:
    case CSC_UNSELECT:
        if (!ChangeCellFlags(cell.row, cell.col, change == CSC_SELECT ? CS_SELECTED : 0,
                             change == CSC_SELECT ? 0 : CS_SELECTED))
            return FALSE;
        pCells = pCells != NULL ? pCells : m_pSelectedCells.get();
        break;
    case CSC_CUT:
    case CSC_UNCUT:
        if (m_nCCPState != 2 ||
            !ChangeCellFlags(cell.row, cell.col, change == CSC_CUT ? CS_CUT : 0, change == CSC_CUT ? 0 : CS_CUT))
            return FALSE;
        pCells = pCells != NULL ? pCells : m_pCCPCells.get();
        break;
    case CSC_CCPINDEX:
        if (!bPending || !ChangeCellFlags(cell.row, cell.col, CS_CCPINDEX, 0))
            return FALSE;
        if (m_CCPCell != cell)
            ChangeCellFlags(m_CCPCell.row, m_CCPCell.col, 0, CS_CCPINDEX);
        m_CCPCell = cell;
        return TRUE;
    case CSC_CLEARCCPINDEX:
        if (!bPending || !ChangeCellFlags(cell.row, cell.col, 0, CS_CCPINDEX))
            return FALSE;
        if (m_CCPCell == cell)
            m_CCPCell = Cell();
        return TRUE;
    case CSC_CARET:
        if (!ChangeCellFlags(cell.row, cell.col, CS_CARET, 0))
            return FALSE;
        if (m_CaretCell != cell)
            ChangeCellFlags(m_CaretCell.row, m_CaretCell.col, 0, CS_CARET);
        m_CaretCell = cell;
        return TRUE;
    case CSC_CLEARCARET:
        if (!ChangeCellFlags(cell.row, cell.col, 0, CS_CARET))
            return FALSE;
        if (m_CaretCell == cell)
            m_CaretCell = Cell();
        return TRUE;
    default:
        return FALSE;
    }
    if (!bFlagsOnly)
    {
        if (change == CSC_SELECT || change == CSC_CUT)
            pCells->Add(cell);
        else
            pCells->Remove(cell);
    }
    return TRUE;
}

BOOL CGridList::IsSelectedCell(const Cell& cell, bool bIgnorePrinting) const
{
    return IsSelectedItem(cell.row, cell.col, bIgnorePrinting, NULL);
}

BOOL CGridList::IsSelectedItem(int row, int col, bool bIgnorePrinting, CItemData* pData) const
{
    if ((m_bPrinting && !bIgnorePrinting) || !IsValidCell(row, col))
        return FALSE;
    if (pData == NULL)
        return (GetCellState(row, col) & CS_SELECTED) != 0;
    return pData->m_pStates != NULL && (pData->m_pStates[col] & CS_SELECTED) != 0;
}

// ---- Selection --------------------------------------------------------------------------------

CRect CGridList::GetDragRect(const Cell& anchor, const Cell& current) const
{
    CRect rc(std::min(anchor.col, current.col), std::min(anchor.row, current.row), std::max(anchor.col, current.col),
             std::max(anchor.row, current.row));
    if (IsStyleList())
        rc.left = rc.right = GetFirstDataCol();
    else if (IsFullRowSelectGrid())
    {
        rc.left = GetFirstDataCol();
        rc.right = m_nCols - 1;
    }
    return rc;
}

void CGridList::SelectCellUnit(const Cell& cell, bool bSelect)
{
    eCellStateChange change = bSelect ? CSC_SELECT : CSC_UNSELECT;
    if (IsStyleList())
        SetCellState(cell.row, GetFirstDataCol(), change);
    else if (IsFullRowSelectGrid())
        for (int col = GetFirstDataCol(); col < m_nCols; ++col)
            SetCellState(cell.row, col, change);
    else
        SetCellState(cell, change);
    RefreshCell_FullRow(cell);
}

BOOL CGridList::AddSelectedCell(const Cell& cell, bool bRefresh)
{
    if (IsNoSelection() || !IsNonHdrCell(cell))
        return FALSE;
    if (IsSingleSelection())
        RemoveAllSelection();
    return AddSelectedCell_Impl(cell, bRefresh);
}

BOOL CGridList::AddSelectedCell_Impl(const Cell& cell, bool bRefresh)
{
    return ChangeSelectedCell(cell, CSC_SELECT, bRefresh);
}

BOOL CGridList::RemoveSelectedCell(const Cell& cell, bool bRefresh)
{
    return ChangeSelectedCell(cell, CSC_UNSELECT, bRefresh);
}

BOOL CGridList::ChangeSelectedCell(const Cell& cell, eCellStateChange change, bool bRefresh)
{
    if (!SetCellState(cell, change))
        return FALSE;
    if (bRefresh)
        RefreshCell(cell);
    return TRUE;
}

void CGridList::RemoveCell(CSelectedCells* pSet, Cell cell)
{
    if (pSet != NULL)
        pSet->Remove(cell);
}

void CGridList::AddRectCells(CRect rcCells)
{
    rcCells.left = std::max(rcCells.left, static_cast<LONG>(GetFirstDataCol()));
    rcCells.top = std::max(rcCells.top, static_cast<LONG>(GetFirstDataRow()));
    rcCells.right = std::min(rcCells.right, static_cast<LONG>(m_nCols - 1));
    rcCells.bottom = std::min(rcCells.bottom, static_cast<LONG>(m_nRows - 1));
    if (IsNoSelection() || rcCells.right < rcCells.left || rcCells.bottom < rcCells.top)
        return;
    // A rectangle that holds the whole selection becomes the set's rectangle, so that large
    // selections stay small.
    std::vector<Cell> cells;
    m_pSelectedCells->GetCells(cells);
    bool bWhole = std::all_of(cells.begin(), cells.end(), [&rcCells](const Cell& cell) {
        return cell.col >= rcCells.left && cell.col <= rcCells.right && cell.row >= rcCells.top &&
               cell.row <= rcCells.bottom;
    });
    if (bWhole)
    {
        m_pSelectedCells->RemoveAll();
        m_pSelectedCells->SetRect(rcCells);
    }
    for (int row = rcCells.top; row <= rcCells.bottom; ++row)
        for (int col = rcCells.left; col <= rcCells.right; ++col)
            SetCellState(row, col, CSC_SELECT, NULL, bWhole);
    RefreshRectCells(rcCells);
}

void CGridList::RemoveRectCells(CRect rcCells)
{
    for (int row = std::max(0L, static_cast<long>(rcCells.top)); row <= rcCells.bottom && row < m_nRows; ++row)
        for (int col = std::max(0L, static_cast<long>(rcCells.left)); col <= rcCells.right && col < m_nCols; ++col)
            SetCellState(row, col, CSC_UNSELECT);
    RefreshRectCells(rcCells);
}

void CGridList::RemoveAllSelection()
{
    std::vector<Cell> cells;
    m_pSelectedCells->GetCells(cells);
    for (const Cell& cell : cells)
        ChangeCellFlags(cell.row, cell.col, 0, CS_SELECTED);
    m_pSelectedCells->RemoveAll();
    if (!cells.empty())
        RefreshRectCells(CRect(0, cells.front().row, m_nCols - 1, cells.back().row));
}

void CGridList::RefreshAllSelection()
{
    std::vector<Cell> cells;
    m_pSelectedCells->GetCells(cells);
    if (!cells.empty())
        RefreshRectCells(CRect(0, cells.front().row, m_nCols - 1, cells.back().row));
}

int CGridList::GetSelectedCount() const
{
    return m_pSelectedCells->GetCount();
}

void CGridList::GetSelectionArray(CArray<Cell>& cells) const
{
    m_pSelectedCells->GetCells(cells);
}

int CGridList::GetFirstSelectedCellRow() const
{
    Cell cell;
    return m_pSelectedCells->GetFirst(cell) ? cell.row : -1;
}

int CGridList::GetFirstSelectedCellCol() const
{
    Cell cell;
    return m_pSelectedCells->GetFirst(cell) ? cell.col : -1;
}

BOOL CGridList::SetCurSel(int row, int col, bool bEnsureVisible)
{
    if (!IsNonHdrCell(row, col))
        return FALSE;
    // The old and new caret and selection repaint once each, and not at all when the grid
    // scrolls to the cell.
    BeginRefreshBatch();
    RemoveAllSelectedNAddCell(Cell(row, col));
    if (bEnsureVisible)
        EnsureVisible(row, col);
    EndRefreshBatch();
    return TRUE;
}

BOOL CGridList::SetCurSel(int firstRow, int firstCol, int lastRow, int lastCol)
{
    if (!IsNonHdrCell(firstRow, firstCol) || !IsNonHdrCell(lastRow, lastCol))
        return FALSE;
    // The caret goes to the first cell; only a multiple selection takes the whole range.
    RemoveAllSelectedNAddCell(Cell(firstRow, firstCol));
    if (IsMultiSelection())
        AddRectCells(GetDragRect(Cell(firstRow, firstCol), Cell(lastRow, lastCol)));
    return TRUE;
}

BOOL CGridList::Add2CurSel(int row, int col)
{
    return AddSelectedCell(Cell(row, col), true);
}

BOOL CGridList::RemoveSel(int row, int col)
{
    return RemoveSelectedCell(Cell(row, col), true);
}

BOOL CGridList::IsAdjacentCells(const Cell& first, const Cell& second) const
{
    return abs(first.row - second.row) + abs(first.col - second.col) == 1;
}

// ---- Caret ------------------------------------------------------------------------------------

void CGridList::MoveCaret(const Cell& cell)
{
    if (!IsNonHdrCell(cell))
        return;
    Cell oldCaret = m_CaretCell;
    if (IsNonHdrCell(oldCaret))
        ChangeCellFlags(oldCaret.row, oldCaret.col, 0, CS_CARET);
    ChangeCellFlags(cell.row, cell.col, CS_CARET, 0);
    m_CaretCell = cell;
    if ((m_dwEditIconStyle & EIS_ONFOCUS) != 0 && m_EditIconCell != Cell())
    {
        // An edit icon shown on the focused cell only leaves with the focus.
        RefreshCell(m_EditIconCell);
        m_EditIconCell = Cell();
    }
    SendCaretChangeNotification(oldCaret, m_CaretCell);
    RefreshCell_FullRow(oldCaret);
    RefreshCell_FullRow(m_CaretCell);
    SendGridCellChangeNotification();
}

BOOL CGridList::SetCurCaret(int row, int col)
{
    if (!IsNonHdrCell(row, col))
        return FALSE;
    MoveCaret(Cell(row, col));
    return TRUE;
}

BOOL CGridList::SetTabCaret(int row, int col)
{
    if (!SetCurCaret(row, col))
        return FALSE;
    m_AnchorCell = m_CaretCell;
    EnsureVisible(row, col);
    return TRUE;
}

void CGridList::SetCaretItem(const Cell& cell)
{
    if (!IsNonHdrCell(cell))
        return;
    Cell oldCaret = m_CaretCell;
    SetCellState(cell, CSC_CARET);
    RefreshCell_FullRow(oldCaret);
    RefreshCell_FullRow(cell);
}

void CGridList::RefreshCaret(const Cell& cell, bool bSetAnchor, bool bEnsureVisible)
{
    RefreshCell_FullRow(cell);
    if (bSetAnchor)
        m_AnchorCell = cell;
    if (bEnsureVisible && IsNonHdrCell(cell))
        EnsureVisible(cell.row, cell.col);
}

void CGridList::HideCaret(bool bHide)
{
    m_bHideCaret = bHide;
    RefreshCell_FullRow(m_CaretCell);
}

// ---- Selection steps --------------------------------------------------------------------------

bool CGridList::BeginSelectionStep(const Cell& cell)
{
    if (!IsNonHdrCell(cell))
        return false;
    MoveCaret(cell);
    m_AnchorCell = cell;
    return !IsNoSelection();
}

void CGridList::RemoveAllSelectedNAddCell(Cell cell)
{
    if (!BeginSelectionStep(cell))
        return;
    RemoveAllSelection();
    SelectCellUnit(cell, true);
}

void CGridList::InvertSelection(Cell cell)
{
    if (!BeginSelectionStep(cell))
        return;
    bool bSelect = !IsSelectedCell(IsStyleList() ? Cell(cell.row, GetFirstDataCol()) : cell, true);
    if (bSelect && IsSingleSelection())
        RemoveAllSelection();
    SelectCellUnit(cell, bSelect);
}

void CGridList::SelectDragCells(Cell anchor, Cell current, Cell oldCaret)
{
    if (!IsNonHdrCell(current))
        return;
    if (!IsMultiSelection() || !IsNonHdrCell(anchor))
    {
        RemoveAllSelectedNAddCell(current);
        return;
    }
    MoveCaret(current);
    m_AnchorCell = anchor;
    SetDragSelection(anchor, current, oldCaret);
}

void CGridList::SetDragSelection(Cell anchor, Cell current, Cell oldAnchorEnd)
{
    CRect rcNew = GetDragRect(anchor, current);
    bool bWasOldRect = IsNonHdrCell(oldAnchorEnd) && m_pSelectedCells->IsExactRect() &&
                       m_pSelectedCells->GetRect() == GetDragRect(anchor, oldAnchorEnd);
    std::vector<Cell> oldCells;
    m_pSelectedCells->GetCells(oldCells);
    for (const Cell& cell : oldCells)
        ChangeCellFlags(cell.row, cell.col, 0, CS_SELECTED);
    m_pSelectedCells->RemoveAll();
    m_pSelectedCells->SetRect(rcNew);
    for (int row = rcNew.top; row <= rcNew.bottom; ++row)
        for (int col = rcNew.left; col <= rcNew.right; ++col)
            ChangeCellFlags(row, col, CS_SELECTED, 0);
    if (bWasOldRect)
    {
        bool bRows = false, bCols = false;
        CRect rcRows, rcCols;
        FindIntersectCellRects(anchor, oldAnchorEnd, current, bRows, rcRows, bCols, rcCols);
        if (bRows)
            RefreshRectCells(rcRows);
        if (bCols)
            RefreshRectCells(rcCols);
        return;
    }
    if (!oldCells.empty())
        RefreshRectCells(CRect(0, oldCells.front().row, m_nCols - 1, oldCells.back().row));
    RefreshRectCells(rcNew);
}

namespace
{
// The part of [lo1, hi1] and [lo2, hi2] that only one of them covers, as one interval
// (covering both parts when they lie apart); false when the two are equal.
bool DifferentSpan(long lo1, long hi1, long lo2, long hi2, long& lo, long& hi)
{
    if (lo1 == lo2 && hi1 == hi2)
        return false;
    if (lo1 == lo2)
    {
        lo = std::min(hi1, hi2) + 1;
        hi = std::max(hi1, hi2);
    }
    else if (hi1 == hi2)
    {
        lo = std::min(lo1, lo2);
        hi = std::max(lo1, lo2) - 1;
    }
    else
    {
        lo = std::min(lo1, lo2);
        hi = std::max(hi1, hi2);
    }
    return true;
}
} // namespace

void CGridList::FindIntersectCellRects(Cell anchor, Cell oldEnd, Cell newEnd, bool& bRows, CRect& rcRows, bool& bCols,
                                       CRect& rcCols)
{
    CRect rcOld = GetDragRect(anchor, oldEnd);
    CRect rcNew = GetDragRect(anchor, newEnd);
    CRect rcBoth(std::min(rcOld.left, rcNew.left), std::min(rcOld.top, rcNew.top), std::max(rcOld.right, rcNew.right),
                 std::max(rcOld.bottom, rcNew.bottom));
    long lo = 0, hi = 0;
    bRows = DifferentSpan(rcOld.top, rcOld.bottom, rcNew.top, rcNew.bottom, lo, hi);
    rcRows.SetRect(rcBoth.left, lo, rcBoth.right, hi);
    bCols = DifferentSpan(rcOld.left, rcOld.right, rcNew.left, rcNew.right, lo, hi);
    rcCols.SetRect(lo, rcBoth.top, hi, rcBoth.bottom);
}

// ---- Copy, cut and paste ----------------------------------------------------------------------

void CGridList::EnableCCP(bool bEnable)
{
    m_CCPMenu.DestroyMenu();
    if (!bEnable || !m_CCPMenu.CreatePopupMenu())
        return;
    m_CCPMenu.AppendMenu(MF_STRING, ID_GCCP_COPY, m_stszCCPMenuNames[0]);
    m_CCPMenu.AppendMenu(MF_STRING, ID_GCCP_CUT, m_stszCCPMenuNames[1]);
    m_CCPMenu.AppendMenu(MF_SEPARATOR);
    m_CCPMenu.AppendMenu(MF_STRING, ID_GCCP_PASTE, m_stszCCPMenuNames[2]);
}

void CGridList::ClearGCCPArray()
{
    std::vector<Cell> cells;
    m_pCCPCells->GetCells(cells);
    for (const Cell& cell : cells)
    {
        ChangeCellFlags(cell.row, cell.col, 0, CS_CUT | CS_CCPINDEX);
        RefreshCell(cell);
    }
    m_pCCPCells->RemoveAll();
    ChangeCellFlags(m_CCPCell.row, m_CCPCell.col, 0, CS_CCPINDEX);
    RefreshCell(m_CCPCell);
    m_CCPCell = Cell();
}

BOOL CGridList::Copy2GCCPArray(CSelectedCells* pSet, const Cell& source)
{
    if (pSet == NULL || pSet->GetCount() == 0 || (m_nCCPState != 1 && m_nCCPState != 2))
        return FALSE;
    std::vector<Cell> cells;
    pSet->GetCells(cells);
    if (pSet != m_pCCPCells.get())
        *m_pCCPCells = *pSet;
    for (const Cell& cell : cells)
    {
        if (m_nCCPState == 2)
            SetCellState(cell, CSC_CUT, NULL, true);
        RefreshCell(cell);
    }
    SetCellState(source, CSC_CCPINDEX);
    RefreshCell(source);
    return TRUE;
}

BOOL CGridList::Copy2GCCPArray(const CArray<Cell>& cells, const Cell& source)
{
    CSelectedCells set;
    for (INT_PTR i = 0; i < cells.GetSize(); ++i)
        if (IsNonHdrCell(cells[i]))
            set.Add(cells[i]);
    return Copy2GCCPArray(&set, source);
}

BOOL CGridList::CopyOrCut(int nState)
{
    CSelectedCells savedCells(*m_pCCPCells);
    Cell savedSource = m_CCPCell;
    int nSavedState = m_nCCPState;
    ClearGCCPArray();
    m_nCCPState = nState;
    if (Copy2GCCPArray(m_pSelectedCells.get(), m_CaretCell) && Send_GN_CCP(nState, m_CCPCell) != 0)
        return TRUE;
    // Refused: the earlier copy or cut, if any, stays pending.
    ClearGCCPArray();
    m_nCCPState = nSavedState;
    if (nSavedState == 1 || nSavedState == 2)
        Copy2GCCPArray(&savedCells, savedSource);
    return FALSE;
}

BOOL CGridList::OnGCCP_Copy()
{
    return CopyOrCut(1);
}

BOOL CGridList::OnGCCP_Cut()
{
    return CopyOrCut(2);
}

BOOL CGridList::OnGCCP_Paste()
{
    if (m_nCCPState != 1 && m_nCCPState != 2)
        return FALSE;
    if (Send_GN_CCP(4 | m_nCCPState, m_CCPCell) == 0)
        return FALSE;
    // A cut moves its cells once; a copy may be pasted again.
    if (m_nCCPState == 2)
    {
        ClearGCCPArray();
        m_nCCPState = -1;
    }
    return TRUE;
}

void CGridList::SetCCP(int nState, int row, int col, CArray<Cell>& cells)
{
    ClearGCCPArray();
    m_nCCPState = nState;
    if (nState == 1 || nState == 2)
        Copy2GCCPArray(cells, Cell(row, col));
}

BOOL CGridList::GetCCPCellIndex(Cell& cell) const
{
    cell = m_CCPCell;
    return IsNonHdrCell(cell);
}

void CGridList::GetCCPArray(CArray<Cell>& cells) const
{
    m_pCCPCells->GetCells(cells);
}

int CGridList::GetCCPArraySize() const
{
    return m_pCCPCells->GetCount();
}

BOOL CGridList::PrepareCCPMenu(const Cell& cell)
{
    if (!IsCCPEnabled() || IsNoSelection() || !IsNonHdrCell(cell))
        return FALSE;
    bool bPending = m_nCCPState == 1 || m_nCCPState == 2;
    int nCopy = 1, nCut = 1, nPaste = bPending;
    bool bCopy = true, bCut = true, bPaste = bPending;
    if (Send_GN_CCPMENU(nCopy, nCut, nPaste) != 0)
    {
        bCopy = nCopy != 0;
        bCut = nCut != 0;
        bPaste = nPaste != 0 && bPending;
    }
    m_CCPMenu.EnableMenuItem(ID_GCCP_COPY, MF_BYCOMMAND | (bCopy ? MF_ENABLED : MF_GRAYED));
    m_CCPMenu.EnableMenuItem(ID_GCCP_CUT, MF_BYCOMMAND | (bCut ? MF_ENABLED : MF_GRAYED));
    m_CCPMenu.EnableMenuItem(ID_GCCP_PASTE, MF_BYCOMMAND | (bPaste ? MF_ENABLED : MF_GRAYED));
    return bCopy || bCut || bPaste;
}

BOOL CGridList::TrackCCPMenu(CPoint point)
{
    if (!IsCCPEnabled() || GetSafeHwnd() == NULL)
        return FALSE;
    bool bAny = false;
    for (UINT nID : {ID_GCCP_COPY, ID_GCCP_CUT, ID_GCCP_PASTE})
        bAny |= (m_CCPMenu.GetMenuState(nID, MF_BYCOMMAND) & MF_GRAYED) == 0;
    if (!bAny)
        return FALSE;
    // Outside the caret cell the menu opens at the cell's left edge, half-way down.
    CRect rcCaret;
    if (GetCellRect(m_CaretCell.row, m_CaretCell.col, rcCaret) && !rcCaret.PtInRect(point))
        point = CPoint(rcCaret.left, rcCaret.top + rcCaret.Height() / 2);
    ClientToScreen(&point);
    UINT nCommand = static_cast<UINT>(::TrackPopupMenu(m_CCPMenu.GetSafeHmenu(),
                                                       TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x,
                                                       point.y, 0, m_hWnd, NULL));
    switch (nCommand)
    {
    case ID_GCCP_COPY:
        OnGCCP_Copy();
        break;
    case ID_GCCP_CUT:
        OnGCCP_Cut();
        break;
    case ID_GCCP_PASTE:
        OnGCCP_Paste();
        break;
    }
    return TRUE;
}
