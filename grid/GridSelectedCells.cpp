#include "grid/GridList.h"

#include <algorithm>

CGridList::CSelectedCells::CSelectedCells() : m_rcCells(0, 0, -1, -1)
{
    m_arSingles.reserve(10);
    m_arExcluded.reserve(10);
}

void CGridList::CSelectedCells::EraseCell(std::vector<Cell>& cells, const Cell& cell)
{
    std::vector<Cell>::iterator it = std::find(cells.begin(), cells.end(), cell);
    if (it != cells.end())
        cells.erase(it);
}

void CGridList::CSelectedCells::Add(const Cell& cell)
{
    if (InRect(m_rcCells, cell))
        EraseCell(m_arExcluded, cell);
    else if (std::find(m_arSingles.begin(), m_arSingles.end(), cell) == m_arSingles.end())
        m_arSingles.push_back(cell);
}

void CGridList::CSelectedCells::Remove(const Cell& cell)
{
    if (!InRect(m_rcCells, cell))
        EraseCell(m_arSingles, cell);
    else if (std::find(m_arExcluded.begin(), m_arExcluded.end(), cell) == m_arExcluded.end())
        m_arExcluded.push_back(cell);
}

BOOL CGridList::CSelectedCells::Contains(const Cell& cell) const
{
    if (InRect(m_rcCells, cell))
        return std::find(m_arExcluded.begin(), m_arExcluded.end(), cell) == m_arExcluded.end();
    return std::find(m_arSingles.begin(), m_arSingles.end(), cell) != m_arSingles.end();
}

void CGridList::CSelectedCells::RemoveAll()
{
    m_arSingles.clear();
    m_arExcluded.clear();
    m_rcCells.SetRect(0, 0, -1, -1);
}

void CGridList::CSelectedCells::SetRect(const CRect& rcCells)
{
    m_rcCells = rcCells;
    if (IsRectEmpty())
        m_rcCells.SetRect(0, 0, -1, -1);
}

BOOL CGridList::CSelectedCells::IsExactRect() const
{
    return !IsRectEmpty() && m_arExcluded.empty() && m_arSingles.empty();
}

void CGridList::CSelectedCells::InsertRow(int nRow)
{
    for (Cell& cell : m_arSingles)
        cell.row += cell.row >= nRow;
    for (Cell& cell : m_arExcluded)
        cell.row += cell.row >= nRow;
    if (IsRectEmpty() || nRow > m_rcCells.bottom)
        return;
    if (nRow <= m_rcCells.top)
    {
        m_rcCells.OffsetRect(0, 1);
        return;
    }
    ++m_rcCells.bottom;
    for (int col = m_rcCells.left; col <= m_rcCells.right; ++col)
        m_arExcluded.push_back(Cell(nRow, col));
}

void CGridList::CSelectedCells::DeleteRow(int nRow)
{
    for (std::vector<Cell>* pCells : {&m_arSingles, &m_arExcluded})
    {
        std::vector<Cell>& cells = *pCells;
        cells.erase(std::remove_if(cells.begin(), cells.end(), [nRow](const Cell& cell) { return cell.row == nRow; }),
                    cells.end());
        for (Cell& cell : cells)
            cell.row -= cell.row > nRow;
    }
    if (IsRectEmpty() || nRow > m_rcCells.bottom)
        return;
    if (nRow < m_rcCells.top)
        m_rcCells.OffsetRect(0, -1);
    else if (--m_rcCells.bottom < m_rcCells.top)
        SetRect(CRect(0, 0, -1, -1));
}

int CGridList::CSelectedCells::GetCount() const
{
    int nArea = IsRectEmpty() ? 0 : m_rcCells.Width() + 1;
    if (nArea != 0)
        nArea *= m_rcCells.Height() + 1;
    return nArea - static_cast<int>(m_arExcluded.size()) + static_cast<int>(m_arSingles.size());
}

void CGridList::CSelectedCells::GetCells(std::vector<Cell>& cells) const
{
    cells.assign(m_arSingles.begin(), m_arSingles.end());
    if (!IsRectEmpty())
    {
        std::vector<Cell> excluded(m_arExcluded);
        std::sort(excluded.begin(), excluded.end());
        for (int row = m_rcCells.top; row <= m_rcCells.bottom; ++row)
            for (int col = m_rcCells.left; col <= m_rcCells.right; ++col)
                if (!std::binary_search(excluded.begin(), excluded.end(), Cell(row, col)))
                    cells.push_back(Cell(row, col));
    }
    std::sort(cells.begin(), cells.end());
}

void CGridList::CSelectedCells::GetCells(CArray<Cell>& cells) const
{
    std::vector<Cell> all;
    GetCells(all);
    cells.SetSize(static_cast<INT_PTR>(all.size()));
    for (size_t i = 0; i < all.size(); ++i)
        cells[static_cast<INT_PTR>(i)] = all[i];
}

BOOL CGridList::CSelectedCells::GetFirst(Cell& cell) const
{
    std::vector<Cell> all;
    GetCells(all);
    if (all.empty())
        return FALSE;
    cell = all.front();
    return TRUE;
}
