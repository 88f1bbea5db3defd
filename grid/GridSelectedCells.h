// CGridList::CSelectedCells: a set of grid cells kept as a rectangle of cells less a list of
// excluded cells, plus a list of single cells outside the rectangle, so that selecting whole
// columns of a large grid stays small.
#pragma once

#include "grid/GridList.h"

class AFX_EXT_CLASS CGridList::CSelectedCells
{
public:
    CSelectedCells();

    // Adds a cell: inside the rectangle it leaves the excluded list, outside it joins the
    // single cells unless it is there already.
    void Add(const Cell& cell);
    // Appends a cell known to be outside the set and outside the rectangle.
    void AddUnique(const Cell& cell) { m_arSingles.push_back(cell); }
    void Remove(const Cell& cell);
    BOOL Contains(const Cell& cell) const;
    void RemoveAll();
    // The rectangle of cells, inclusive (left/right columns, top/bottom rows); an empty one
    // (right < left or bottom < top) clears it. The lists stay as they are.
    void SetRect(const CRect& rcCells);
    CRect GetRect() const { return m_rcCells; }
    BOOL IsRectEmpty() const { return m_rcCells.right < m_rcCells.left || m_rcCells.bottom < m_rcCells.top; }
    // True when the set is exactly its (non-empty) rectangle.
    BOOL IsExactRect() const;

    // A row inserted at nRow moves the cells at or after it down; a row inside the rectangle
    // grows it, its new cells excluded, since they are not in the set.
    void InsertRow(int nRow);
    // Drops the row's cells and moves the cells after it up.
    void DeleteRow(int nRow);

    int GetCount() const;
    // Every cell, row by row.
    void GetCells(std::vector<Cell>& cells) const;
    void GetCells(CArray<Cell>& cells) const;
    BOOL GetFirst(Cell& cell) const;

private:
    static BOOL InRect(const CRect& rc, const Cell& cell)
    {
        return cell.col >= rc.left && cell.col <= rc.right && cell.row >= rc.top && cell.row <= rc.bottom;
    }
    static void EraseCell(std::vector<Cell>& cells, const Cell& cell);

    std::vector<Cell> m_arSingles;
    CRect m_rcCells;
    std::vector<Cell> m_arExcluded;
};
