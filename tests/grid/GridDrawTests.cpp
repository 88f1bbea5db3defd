// Painting of the grid, read back from the window's pixels.
#include "tests/grid/GridHost.h"

#include <string.h>

#include <vector>

namespace
{
const COLORREF CR_GRIDLINE = RGB(0, 200, 0);
const COLORREF CR_CELL = RGB(100, 150, 200);
const COLORREF CR_RED = RGB(255, 0, 0);

// A 32-bit bitmap in a memory DC, to compare drawings pixel by pixel.
struct CMemorySurface
{
    CMemorySurface(int cx, int cy) : m_cx(cx), m_cy(cy)
    {
        BITMAPINFO bi = {};
        bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
        bi.bmiHeader.biWidth = cx;
        bi.bmiHeader.biHeight = -cy;
        bi.bmiHeader.biPlanes = 1;
        bi.bmiHeader.biBitCount = 32;
        m_dc.CreateCompatibleDC(NULL);
        m_hBitmap = ::CreateDIBSection(m_dc, &bi, DIB_RGB_COLORS, reinterpret_cast<void**>(&m_pBits), NULL, 0);
        m_hOld = ::SelectObject(m_dc, m_hBitmap);
    }
    ~CMemorySurface()
    {
        ::SelectObject(m_dc, m_hOld);
        ::DeleteObject(m_hBitmap);
    }
    void Clear() { m_dc.FillSolidRect(0, 0, m_cx, m_cy, RGB(10, 200, 30)); }
    std::vector<DWORD> Pixels() const
    {
        ::GdiFlush();
        return std::vector<DWORD>(m_pBits, m_pBits + m_cx * m_cy);
    }

    int m_cx;
    int m_cy;
    CDC m_dc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hOld;
    DWORD* m_pBits = NULL;
};

COLORREF Blend(COLORREF c, COLORREF s)
{
    return RGB(abs(GetRValue(c) + GetRValue(s) - 255), abs(GetGValue(c) + GetGValue(s) - 255),
               abs(GetBValue(c) + GetBValue(s) - 255));
}
} // namespace

TEST_F(CGridWindowTest, GridLinesAreBlackOnTheOutsideAndTheBackgroundFillsTheRest)
{
    CreateGrid(3, 3, 40, 20);
    m_grid.SetGridLineColor(CR_GRIDLINE);
    const COLORREF crBk = ::GetSysColor(COLOR_WINDOW);
    const struct
    {
        int x, y;
        COLORREF cr;
    } cases[] = {
        {10, 19, CR_GRIDLINE},  {39, 5, CR_GRIDLINE}, // inner bottom and right lines
        {10, 59, RGB(0, 0, 0)}, {119, 5, RGB(0, 0, 0)}, {119, 59, RGB(0, 0, 0)}, // last row, last column
        {39, 59, RGB(0, 0, 0)}, {39, 58, CR_GRIDLINE}, // in the last row the right line stops short
        {10, 10, crBk},         {200, 10, crBk},      {10, 100, crBk}, // a cell, beside and below the grid
    };
    const CWindowImage& image = Capture();
    for (const auto& c : cases)
        EXPECT_EQ(c.cr, image.GetPixel(c.x, c.y)) << c.x << "," << c.y;
}

TEST_F(CGridWindowTest, SelectionIsHighlightedGrayedOrBlended)
{
    CreateGrid(3, 3, 40, 20);
    m_grid.SetItemBkColor(1, 1, CR_CELL);
    const COLORREF crSelection = m_grid.GetSelectionColor();
    const struct
    {
        bool bTransparent;
        int nLastCol; // the selection is (1, 1) to (1, nLastCol)
        bool bFocused;
        COLORREF cr;
    } cases[] = {
        {false, 1, true, ::GetSysColor(COLOR_HIGHLIGHT)},
        {false, 1, false, ::GetSysColor(COLOR_BTNFACE)},
        {true, 2, true, Blend(CR_CELL, crSelection)},
        {true, 2, false, Blend(CR_CELL, ::GetSysColor(COLOR_BTNFACE))},
        {true, 1, true, CR_CELL}, // one cell is shown by the caret alone
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.bTransparent << " " << c.nLastCol << " " << c.bFocused);
        m_grid.SetTransperantSelection(c.bTransparent);
        m_grid.SetCurSel(1, 1, 1, c.nLastCol);
        ::SetFocus(c.bFocused ? m_grid.GetSafeHwnd() : m_host.m_wndGrid.GetSafeHwnd());
        m_grid.Invalidate();
        EXPECT_EQ(c.cr, Capture().GetPixel(60, 30));
    }
}

// The dots alternate with their inverse, start with the colour on an even left edge and run on
// around the corners: a pixel has the colour when x + y - top is even.
TEST_F(CGridWindowTest, FocusRectangleDotsFollowTheirPlaceAndHideWhileScrolling)
{
    const COLORREF crInverse = CR_CELL ^ 0xFFFFFF;
    for (int nWidth : {40, 41})
    {
        SCOPED_TRACE(nWidth);
        if (m_grid.GetSafeHwnd() != NULL)
            m_grid.DestroyWindow();
        CreateGrid(3, 3, nWidth, 20);
        m_grid.SetItemBkColor(1, 1, CR_CELL);
        m_grid.ModifyStyle(0, CGridList::GS_SHOWCARETALWAYS);
        m_grid.SetCurCaret(1, 1);
        // The cell less its right and bottom grid lines.
        const CRect rc(nWidth, 20, 2 * nWidth - 1, 39);
        auto expectOutline = [&](bool bDotted) {
            const CWindowImage& image = Capture();
            for (int x = rc.left; x < rc.right; ++x)
                for (int y : {static_cast<int>(rc.top), static_cast<int>(rc.bottom) - 1})
                    EXPECT_EQ(!bDotted || (x + y - rc.top) % 2 == 0 ? CR_CELL : crInverse, image.GetPixel(x, y))
                        << x << "," << y;
            for (int y = rc.top; y < rc.bottom; ++y)
                for (int x : {static_cast<int>(rc.left), static_cast<int>(rc.right) - 1})
                    EXPECT_EQ(!bDotted || (x + y - rc.top) % 2 == 0 ? CR_CELL : crInverse, image.GetPixel(x, y))
                        << x << "," << y;
        };
        expectOutline(true);
        m_grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 0));
        expectOutline(false);
        m_grid.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_ENDSCROLL, 0));
        expectOutline(true);
    }
}

TEST_F(CGridWindowTest, ImageBeforeTextStaysAndImageAfterTextGoesWhenTheTextDoesNotFit)
{
    CreateGrid(2, 2, 60, 20);
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR24, 1, 1));
    {
        CClientDC screen(NULL);
        CBitmap red;
        red.CreateCompatibleBitmap(&screen, 16, 16);
        CDC dc;
        dc.CreateCompatibleDC(&screen);
        CBitmap* pOld = dc.SelectObject(&red);
        dc.FillSolidRect(0, 0, 16, 16, CR_RED);
        dc.SelectObject(pOld);
        ASSERT_EQ(0, images.Add(&red, static_cast<CBitmap*>(NULL)));
    }
    m_grid.SetImageList(&images, LVSIL_SMALL);
    m_grid.SetText(0, 0, "WWWWWWWWWWWWWWWWWWWW");
    const CRect rcCell(0, 0, 59, 19);
    // The text area is the cell less its lines, 1 pixel and the padding: x 2 to 57, y 1 to 18.
    ASSERT_TRUE(m_grid.SetCellImage(0, 0, 0, CGridList::IMAGE_BEFORE_TEXT));
    const CWindowImage& image = Capture();
    EXPECT_EQ(16 * 16, image.CountPixels(CR_RED, rcCell));
    EXPECT_EQ(CR_RED, image.GetPixel(2, 1));
    EXPECT_EQ(CR_RED, image.GetPixel(17, 16));
    const COLORREF crBk = ::GetSysColor(COLOR_WINDOW);
    EXPECT_EQ(2 * 17, image.CountPixels(crBk, CRect(18, 1, 20, 18))) << "the text starts 2 pixels after the image";
    EXPECT_LT(image.CountPixels(crBk, CRect(20, 1, 57, 18)), 37 * 17) << "the cut text is drawn";

    ASSERT_TRUE(m_grid.SetCellImage(0, 0, 0, CGridList::IMAGE_AFTER_TEXT));
    m_grid.Invalidate();
    Capture();
    EXPECT_EQ(0, image.CountPixels(CR_RED, rcCell));
    EXPECT_LT(image.CountPixels(crBk, CRect(2, 1, 20, 18)), 18 * 17) << "the text takes the image's place";
    m_grid.SetImageList(NULL, LVSIL_SMALL);
}

// Texts that fit go out through ExtTextOut: the pixels must be those DrawText gives.
TEST_F(CGridWindowTest, CellTextIsDrawnAsDrawTextDrawsIt)
{
    CreateGrid(1, 1, 60, 20);
    CMemorySurface grid(160, 40);
    CMemorySurface reference(160, 40);
    for (CMemorySurface* pSurface : {&grid, &reference})
    {
        pSurface->m_dc.SelectObject(m_grid.GetFont());
        pSurface->m_dc.SetTextColor(RGB(0, 0, 160));
        pSurface->m_dc.SetBkColor(RGB(250, 240, 100));
    }
    const char* texts[] = {"Hello", "x&y", "Wide text that will not fit"};
    for (const char* pszText : texts)
        for (long nAlign : {DT_LEFT, DT_CENTER, DT_RIGHT})
            for (const CRect& rc : {CRect(3, 2, 150, 22), CRect(4, 3, 70, 16), CRect(5, 1, 37, 36)})
            {
                SCOPED_TRACE(testing::Message() << pszText << " " << nAlign << " " << rc.Width() << "x" << rc.Height());
                m_grid.SetText(0, 0, pszText);
                grid.Clear();
                reference.Clear();
                m_grid.DrawCellText(0, 0, &grid.m_dc, rc, nAlign);
                CRect rcReference(rc);
                reference.m_dc.DrawText(pszText, -1, &rcReference,
                                        DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | nAlign);
                EXPECT_TRUE(grid.Pixels() == reference.Pixels());
            }
}

// Inserts and deletes leave the scroll bar to the next paint: it must then show what a fresh
// paint of the whole frame shows, also where the bar appears or goes. The grid window's capture
// holds the list's frame.
TEST_F(CGridWindowTest, TheScrollBarFollowsInsertsAndDeletes)
{
    CreateGrid(3, 2, 60, 16, CSize(200, 120));
    CWindowImage& image = m_host.m_image;
    const CRect rcGrid(0, 0, 200, 120);
    const struct
    {
        int nInserts, nDeletes;
    } steps[] = {{10, 0}, {40, 0}, {0, 50}};
    for (const auto& step : steps)
    {
        image.Capture(m_host.m_wndGrid);
        for (int i = 0; i < step.nInserts; ++i)
            m_grid.InsertRow(0, true);
        for (int i = 0; i < step.nDeletes; ++i)
            m_grid.DeleteRow(0, true);
        ASSERT_TRUE(image.Capture(m_host.m_wndGrid));
        std::vector<COLORREF> after;
        for (int y = rcGrid.top; y < rcGrid.bottom; ++y)
            for (int x = rcGrid.left; x < rcGrid.right; ++x)
                after.push_back(image.GetPixel(x, y));
        m_grid.RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
        ASSERT_TRUE(image.Capture(m_host.m_wndGrid));
        int nDiffering = 0;
        for (int y = rcGrid.top; y < rcGrid.bottom; ++y)
            for (int x = rcGrid.left; x < rcGrid.right; ++x)
                nDiffering += after[static_cast<size_t>(y * rcGrid.Width() + x)] != image.GetPixel(x, y);
        EXPECT_EQ(0, nDiffering) << step.nInserts << " inserted, " << step.nDeletes << " deleted";
    }
}
