// CTGrid<TList, THeader>: the grid window a host creates, a header strip over a cell area.
//
// TList is CGridList or a class derived from it, THeader CGridHeader or one derived from it: a
// host that draws cells or titles its own way derives from them and names its classes here. The
// window owns both children as members; what it does with them (layout, widths in step, sorting
// on header clicks, notifications passed on, printing, export) is CGridFrame's, described in
// grid/GridFrame.h.
//
//     CGrid grid;
//     grid.Create(1001, 4, TRUE, FALSE, WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, pDialog, IDC_GRID);
//     grid.SetColumnTitle(0, "Name");
//     grid.GetList().ModifyStyle(0, CGridList::GS_SORTONHDR);
#pragma once

#include "grid/GridFrame.h"

#include <type_traits>

template <class TList, class THeader>
class CTGrid : public CGridFrame
{
    static_assert(std::is_base_of<CGridList, TList>::value, "the cell area is a CGridList");
    static_assert(std::is_base_of<CGridHeader, THeader>::value, "the header is a CGridHeader");

public:
    CTGrid() {}
    // The children go while their objects still exist: they notify the grid window as they go.
    ~CTGrid() override { DestroyWindow(); }

    TList& GetList() { return m_wndList; }
    THeader& GetHeader() { return m_wndHeader; }
    CGridList* GetGridList() override { return &m_wndList; }
    CGridHeader* GetGridHeader() override { return &m_wndHeader; }

protected:
    TList m_wndList;
    THeader m_wndHeader;
};

// The usual grid window.
typedef CTGrid<CGridList, CGridHeader> CGrid;
