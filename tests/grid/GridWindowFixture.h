// A grid in a grid window, as a host has it: the recorder is the host window, a plain CWnd
// child stands for the grid window (it reflects WM_MEASUREITEM and WM_DRAWITEM back to the
// grid, as every CWnd does), and the grid fills it.
#pragma once

#include <gtest/gtest.h>

#include "grid/GridList.h"
#include "tests/harness/NotifyRecorder.h"
#include "tests/harness/Render.h"

class CGridWindowTest : public ::testing::Test
{
protected:
    enum
    {
        HOST_WIDTH = 320,
        HOST_HEIGHT = 240,
    };

    void SetUp() override
    {
        ASSERT_TRUE(m_host.Create(HOST_WIDTH, HOST_HEIGHT, true));
        ASSERT_TRUE(m_gridWnd.CreateEx(0, "STATIC", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, HOST_WIDTH, HOST_HEIGHT),
                                       CWnd::FromHandle(m_host), 1));
    }

    // nColWidth and nRowHeight in pixels; the grid sits at the grid window's top-left corner.
    void CreateGrid(int nRows, int nCols, int nColWidth, int nRowHeight, const CSize& size = CSize(HOST_WIDTH, HOST_HEIGHT),
                    int bFixedRow = 0, int bFixedCol = 0)
    {
        ASSERT_TRUE(m_grid.Create(nRows, nCols, bFixedRow, bFixedCol, CRect(CPoint(0, 0), size), &m_gridWnd, 1001));
        m_grid.SetAllColsToWidth(nColWidth);
        m_grid.SetRowHeight(nRowHeight);
    }

    // What the grid shows once its painting is done.
    CWindowImage Capture()
    {
        CWindowImage image;
        m_grid.UpdateWindow();
        EXPECT_TRUE(image.Capture(m_grid));
        return image;
    }

    CNotifyRecorder m_host;
    CWnd m_gridWnd;
    CGridList m_grid;
};
