// Small value types of the grid, shared by the cell area and its header.
#pragma once

// A cell address; (-1, -1) is no cell. Cells order row by row.
struct Cell
{
    int row;
    int col;

    Cell() : row(-1), col(-1) {}
    Cell(int nRow, int nCol) : row(nRow), col(nCol) {}

    bool operator==(const Cell& other) const { return row == other.row && col == other.col; }
    bool operator!=(const Cell& other) const { return !(*this == other); }
    bool operator<(const Cell& other) const { return row < other.row || (row == other.row && col < other.col); }
    bool operator>(const Cell& other) const { return other < *this; }
};

// One sort key. Types 0/1 compare texts ascending/descending, 2/3 leading numbers, 4/5 times
// (the text without its colons, read as a number); 0xFFFF is none.
struct GridSortCol
{
    int nCol;
    short nSortType;

    GridSortCol() : nCol(-1), nSortType(static_cast<short>(0xFFFF)) {}
    GridSortCol(int col, short type) : nCol(col), nSortType(type) {}
};
