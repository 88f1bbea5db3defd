// A grid as a host has it: the recorder window as the host, a plain child as the grid window,
// and the CGridList inside it, whose notifications reach the recorder naming the grid window.
#pragma once

#include "KelControls.h"
#include "tests/harness/NotifyRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class CGridHost
{
public:
    enum
    {
        GRID_WINDOW_ID = 77,
        LIST_ID = 1001,
    };

    // A hidden host unless bVisible; rows 16 pixels high as the list view measures them.
    bool Create(int nRows, int nCols, int bFixedRow, int bFixedCol, bool bVisible = false)
    {
        if (!m_parent.Create(400, 300, bVisible))
            return false;
        m_parent.SetPayloadSize(GN_CCPMENU, sizeof(NMGRIDCCPMENU));
        m_parent.SetPayloadSize(GN_CARETCHANGE, sizeof(NMGRIDCARETCHANGE));
        m_parent.SetPayloadSize(GN_CCP, sizeof(NMGRIDCCP));
        m_parent.SetPayloadSize(GN_CELLCHANGE, sizeof(NMGRIDCELL));
        if (!m_wndGrid.Create("STATIC", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300),
                              CWnd::FromHandle(m_parent.GetSafeHwnd()), GRID_WINDOW_ID))
            return false;
        return m_grid.Create(nRows, nCols, bFixedRow, bFixedCol, CRect(0, 0, 400, 300), &m_wndGrid, LIST_ID) != FALSE;
    }

    // Sets the texts of a column from the first data row down.
    void SetColumn(int col, const std::vector<std::string>& texts)
    {
        for (size_t i = 0; i < texts.size(); ++i)
            m_grid.SetText(m_grid.GetFirstDataRow() + static_cast<int>(i), col, texts[i].c_str(), true);
    }

    std::vector<std::string> Column(int col)
    {
        std::vector<std::string> texts;
        for (int row = m_grid.GetFirstDataRow(); row < m_grid.GetRowCount(); ++row)
            texts.push_back(m_grid.GetText(row, col));
        return texts;
    }

    // The notification codes received, in order.
    std::vector<UINT> Codes() const
    {
        std::vector<UINT> codes;
        for (const CNotifyRecorder::CNotify& notify : m_parent.GetNotifies())
            codes.push_back(notify.m_uCode);
        return codes;
    }

    // Cells whose state has all the bits of dwFlags.
    std::vector<Cell> Flagged(DWORD dwFlags)
    {
        std::vector<Cell> cells;
        for (int row = 0; row < m_grid.GetRowCount(); ++row)
            for (int col = 0; col < m_grid.GetColCount(); ++col)
                if ((m_grid.GetCellState(row, col) & dwFlags) == dwFlags)
                    cells.push_back(Cell(row, col));
        return cells;
    }

    CNotifyRecorder m_parent;
    CWnd m_wndGrid;
    CGridList m_grid;
};
