#include <afxwin.h>
#include <afxcmn.h>
#include <gtest/gtest.h>

namespace
{
const COLORREF WHITE = RGB(255, 255, 255);
const COLORREF BLACK = RGB(0, 0, 0);
const COLORREF RED = RGB(255, 0, 0);
const COLORREF GREEN = RGB(0, 255, 0);
const COLORREF BLUE = RGB(0, 0, 255);

// A 64 x 64 white bitmap selected into a memory DC compatible with the screen.
class CMemoryDCTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CClientDC screen(NULL);
        ASSERT_TRUE(m_dc.CreateCompatibleDC(&screen));
        ASSERT_TRUE(m_bitmap.CreateCompatibleBitmap(&screen, 64, 64));
        m_pOldBitmap = m_dc.SelectObject(&m_bitmap);
        m_dc.FillSolidRect(0, 0, 64, 64, WHITE);
    }
    void TearDown() override
    {
        m_dc.SelectObject(m_pOldBitmap);
        AfxDeleteTempMaps();
    }

    int CountPixels(COLORREF clr, const CRect& rect)
    {
        int nCount = 0;
        for (int y = rect.top; y < rect.bottom; ++y)
            for (int x = rect.left; x < rect.right; ++x)
                nCount += m_dc.GetPixel(x, y) == clr;
        return nCount;
    }

    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_pOldBitmap = NULL;
};

struct CPixelCase
{
    int x;
    int y;
    COLORREF clr;
};

class CPaintWnd : public CWnd
{
public:
    HDC m_hPaintDC = NULL;
    CRect m_rcPaint;
    bool m_bPaintDCFound = false;

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        m_hPaintDC = dc.m_hDC;
        m_rcPaint = dc.m_ps.rcPaint;
        m_bPaintDCFound = CDC::FromHandle(dc.m_hDC) == &dc;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPaintWnd, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()
} // namespace

TEST(CGdiObjectTest, TemporaryObjectsHaveTheKindOfTheirHandle)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(4, 4, 1, 1, NULL));
    HRGN hRgn = ::CreateRectRgn(0, 0, 5, 5);
    HBITMAP hBitmap = static_cast<HBITMAP>(bitmap.Detach());
    struct
    {
        HGDIOBJ h;
        CRuntimeClass* pClass;
    } cases[] = {
        {::GetStockObject(BLACK_PEN), RUNTIME_CLASS(CPen)},   {::GetStockObject(WHITE_BRUSH), RUNTIME_CLASS(CBrush)},
        {::GetStockObject(DEFAULT_GUI_FONT), RUNTIME_CLASS(CFont)}, {hBitmap, RUNTIME_CLASS(CBitmap)},
        {hRgn, RUNTIME_CLASS(CRgn)},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pClass->m_lpszClassName);
        CGdiObject* pObject = CGdiObject::FromHandle(c.h);
        ASSERT_NE(nullptr, pObject);
        EXPECT_TRUE(pObject->IsKindOf(c.pClass));
        EXPECT_EQ(c.h, pObject->m_hObject);
        EXPECT_EQ(pObject, CGdiObject::FromHandle(c.h)); // one temporary object per handle
    }
    // Deleting the temporary objects leaves their handles alone.
    AfxDeleteTempMaps();
    EXPECT_EQ(static_cast<DWORD>(OBJ_REGION), ::GetObjectType(hRgn));
    EXPECT_EQ(static_cast<DWORD>(OBJ_BITMAP), ::GetObjectType(hBitmap));
    ::DeleteObject(hRgn);
    ::DeleteObject(hBitmap);
    EXPECT_EQ(nullptr, CGdiObject::FromHandle(NULL));
}

TEST(CGdiObjectTest, PermanentObjectsOwnTheirHandles)
{
    HGDIOBJ hBrush;
    {
        CBrush brush(RED);
        hBrush = brush.m_hObject;
        EXPECT_EQ(&brush, CBrush::FromHandle(static_cast<HBRUSH>(hBrush)));
        LOGBRUSH lb;
        ASSERT_EQ(static_cast<int>(sizeof(lb)), brush.GetLogBrush(&lb));
        EXPECT_EQ(RED, lb.lbColor);
        // A second Create fails and keeps the first handle.
        EXPECT_FALSE(brush.CreateSolidBrush(BLUE));
        EXPECT_EQ(hBrush, brush.m_hObject);
    }
    EXPECT_EQ(0u, ::GetObjectType(hBrush));

    CPen pen(PS_SOLID, 1, RED);
    HGDIOBJ hPen = pen.Detach();
    EXPECT_EQ(nullptr, pen.GetSafeHandle());
    EXPECT_NE(static_cast<CGdiObject*>(&pen), CGdiObject::FromHandle(hPen));
    EXPECT_FALSE(pen.DeleteObject());
    ::DeleteObject(hPen);
    AfxDeleteTempMaps();

    CFont* pNoFont = CFont::FromHandle(NULL);
    EXPECT_EQ(nullptr, pNoFont->GetSafeHandle()); // callable through a null pointer, as in MFC
}

TEST(CGdiObjectTest, StockObjectsMayBeHeldTwice)
{
    HGDIOBJ hStock = ::GetStockObject(BLACK_PEN);
    {
        CPen first;
        CPen second;
        ASSERT_TRUE(first.CreateStockObject(BLACK_PEN));
        ASSERT_TRUE(second.CreateStockObject(BLACK_PEN));
        EXPECT_EQ(&second, CGdiObject::FromHandle(hStock));
        first.Detach(); // leaves the entry of the other holder
        EXPECT_EQ(&second, CGdiObject::FromHandle(hStock));
    }
    EXPECT_EQ(static_cast<DWORD>(OBJ_PEN), ::GetObjectType(hStock));
    CBrush sysBrush;
    ASSERT_TRUE(sysBrush.CreateSysColorBrush(COLOR_BTNFACE));
    LOGBRUSH lb;
    sysBrush.GetLogBrush(&lb);
    EXPECT_EQ(::GetSysColor(COLOR_BTNFACE), lb.lbColor);
}

TEST(CFontTest, PointSizesAreTenthsOfAPointInTheDCsUnits)
{
    CClientDC screen(NULL);
    int nDpi = screen.GetDeviceCaps(LOGPIXELSY);
    LOGFONT lf;

    CFont inch; // 72 points are an inch
    ASSERT_TRUE(inch.CreatePointFont(720, "Arial"));
    ASSERT_EQ(static_cast<int>(sizeof(lf)), inch.GetLogFont(&lf));
    EXPECT_EQ(-nDpi, lf.lfHeight);
    EXPECT_STREQ("Arial", lf.lfFaceName);
    EXPECT_EQ(DEFAULT_CHARSET, lf.lfCharSet);

    CFont small; // the grid header's sort-number font
    ASSERT_TRUE(small.CreatePointFont(55, "Small Fonts", &screen));
    small.GetLogFont(&lf);
    EXPECT_EQ(-::MulDiv(nDpi, 55, 720), lf.lfHeight);

    // In twips (y upwards) 12 points are 240 units, whatever the resolution.
    CDC twips;
    ASSERT_TRUE(twips.CreateCompatibleDC(&screen));
    twips.SetMapMode(MM_TWIPS);
    CFont twelve;
    ASSERT_TRUE(twelve.CreatePointFont(120, "Arial", &twips));
    twelve.GetLogFont(&lf);
    EXPECT_EQ(-240, lf.lfHeight);

    CFont longName;
    ASSERT_TRUE(longName.CreatePointFont(100, "A face name far longer than the thirty-one characters"));
    longName.GetLogFont(&lf);
    EXPECT_EQ(static_cast<size_t>(LF_FACESIZE - 1), strlen(lf.lfFaceName));
    EXPECT_FALSE(CFont().CreatePointFontIndirect(NULL));
}

TEST_F(CMemoryDCTest, HandleMapFindsTheObjectOfADC)
{
    EXPECT_EQ(&m_dc, CDC::FromHandle(m_dc.m_hDC));
    EXPECT_EQ(m_dc.m_hDC, m_dc.m_hAttribDC);
    EXPECT_FALSE(m_dc.CreateCompatibleDC(NULL)); // already holds one

    HDC hRaw = ::CreateCompatibleDC(NULL);
    CDC* pTemp = CDC::FromHandle(hRaw);
    ASSERT_NE(nullptr, pTemp);
    EXPECT_EQ(hRaw, pTemp->m_hDC);
    EXPECT_EQ(hRaw, pTemp->m_hAttribDC);
    AfxDeleteTempMaps();
    EXPECT_EQ(static_cast<DWORD>(OBJ_MEMDC), ::GetObjectType(hRaw));
    ::DeleteDC(hRaw);

    CDC* pNoDC = CDC::FromHandle(NULL);
    EXPECT_EQ(nullptr, pNoDC->GetSafeHdc());
    CDC empty;
    EXPECT_FALSE(empty.DeleteDC());
}

TEST_F(CMemoryDCTest, SelectObjectReturnsWhatWasSelected)
{
    CPen red(PS_SOLID, 1, RED);
    CPen blue(PS_SOLID, 1, BLUE);
    CPen* pOriginal = m_dc.SelectObject(&red);
    ASSERT_NE(nullptr, pOriginal);
    EXPECT_TRUE(pOriginal->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_EQ(::GetStockObject(BLACK_PEN), pOriginal->m_hObject);
    EXPECT_EQ(&red, m_dc.SelectObject(&blue));
    EXPECT_EQ(&blue, m_dc.GetCurrentPen());
    EXPECT_EQ(&blue, m_dc.SelectObject(pOriginal));
    EXPECT_EQ(nullptr, m_dc.SelectObject(static_cast<CPen*>(NULL)));

    CFont font;
    ASSERT_TRUE(font.CreatePointFont(100, "Arial"));
    CFont* pOldFont = m_dc.SelectObject(&font);
    EXPECT_EQ(&font, m_dc.GetCurrentFont());
    m_dc.SelectObject(pOldFont);

    CGdiObject* pOldBrush = m_dc.SelectStockObject(NULL_BRUSH);
    ASSERT_NE(nullptr, pOldBrush);
    EXPECT_EQ(::GetStockObject(WHITE_BRUSH), pOldBrush->m_hObject);
    EXPECT_EQ(::GetStockObject(NULL_BRUSH), m_dc.GetCurrentBrush()->m_hObject);
    m_dc.SelectObject(pOldBrush);
    EXPECT_EQ(&m_bitmap, m_dc.GetCurrentBitmap());
}

TEST_F(CMemoryDCTest, FillSolidRectLeavesTheBackgroundColourSet)
{
    m_dc.SetBkColor(BLUE);
    m_dc.FillSolidRect(CRect(2, 2, 6, 6), GREEN);
    EXPECT_EQ(GREEN, m_dc.GetPixel(2, 2));
    EXPECT_EQ(GREEN, m_dc.GetPixel(5, 5));
    EXPECT_EQ(WHITE, m_dc.GetPixel(6, 6));
    // Kept as MFC does it: callers that draw text next rely on the colour being set.
    EXPECT_EQ(GREEN, m_dc.GetBkColor());
}

TEST_F(CMemoryDCTest, Draw3dRectGivesTheOuterCornersToTheBottomRightColour)
{
    m_dc.Draw3dRect(CRect(10, 10, 20, 15), RED, BLUE);
    const CPixelCase cases[] = {
        {10, 10, RED},  {18, 10, RED},  {19, 10, BLUE},  {10, 13, RED},  {10, 14, BLUE},
        {19, 14, BLUE}, {15, 14, BLUE}, {15, 12, WHITE}, {20, 10, WHITE}, {10, 15, WHITE},
    };
    for (const CPixelCase& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "(" << c.x << ", " << c.y << ")");
        EXPECT_EQ(c.clr, m_dc.GetPixel(c.x, c.y));
    }
    m_dc.Draw3dRect(30, 30, 0, 5, RED, BLUE); // nothing to draw
    EXPECT_EQ(0, CountPixels(RED, CRect(28, 28, 36, 36)) + CountPixels(BLUE, CRect(28, 28, 36, 36)));
}

TEST_F(CMemoryDCTest, ShapesUseTheSelectedPenAndBrush)
{
    CPen pen(PS_SOLID, 1, RED);
    CBrush brush(BLUE);
    CPen* pOldPen = m_dc.SelectObject(&pen);
    CBrush* pOldBrush = m_dc.SelectObject(&brush);
    EXPECT_TRUE(m_dc.Rectangle(10, 10, 20, 20));
    const POINT triangle[] = {{30, 30}, {50, 30}, {30, 50}};
    EXPECT_TRUE(m_dc.Polygon(triangle, 3));
    EXPECT_TRUE(m_dc.Ellipse(CRect(40, 2, 60, 22)));
    EXPECT_TRUE(m_dc.RoundRect(CRect(2, 40, 22, 60), CPoint(8, 8)));
    m_dc.SelectObject(pOldPen);
    m_dc.SelectObject(pOldBrush);
    const CPixelCase cases[] = {
        {10, 10, RED},   {19, 19, RED},  {15, 15, BLUE},   {20, 20, WHITE}, {30, 30, RED},  {34, 34, BLUE},
        {49, 49, WHITE}, {50, 12, BLUE}, {40, 2, WHITE},   {50, 2, RED},    {12, 50, BLUE}, {2, 40, WHITE},
        {12, 40, RED},
    };
    for (const CPixelCase& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "(" << c.x << ", " << c.y << ")");
        EXPECT_EQ(c.clr, m_dc.GetPixel(c.x, c.y));
    }
}

TEST_F(CMemoryDCTest, LinesStartAtTheCurrentPosition)
{
    EXPECT_EQ(CPoint(0, 0), m_dc.MoveTo(2, 30));
    EXPECT_TRUE(m_dc.LineTo(12, 30));
    EXPECT_EQ(BLACK, m_dc.GetPixel(2, 30));
    EXPECT_EQ(BLACK, m_dc.GetPixel(11, 30));
    EXPECT_EQ(WHITE, m_dc.GetPixel(12, 30)); // the end point is not drawn
    EXPECT_EQ(CPoint(12, 30), m_dc.MoveTo(CPoint(0, 40)));

    EXPECT_EQ(R2_COPYPEN, m_dc.SetROP2(R2_NOT));
    m_dc.LineTo(10, 40);
    EXPECT_EQ(BLACK, m_dc.GetPixel(5, 40));
    m_dc.MoveTo(0, 40);
    m_dc.LineTo(10, 40); // inverting twice restores
    EXPECT_EQ(WHITE, m_dc.GetPixel(5, 40));
    EXPECT_EQ(R2_NOT, m_dc.GetROP2());

    m_dc.SetROP2(R2_COPYPEN);
    const POINT line[] = {{0, 50}, {6, 50}};
    EXPECT_TRUE(m_dc.Polyline(line, 2));
    EXPECT_EQ(BLACK, m_dc.GetPixel(5, 50));
    EXPECT_EQ(RED, m_dc.SetPixel(60, 60, RED)); // the colour set, not the one before
    EXPECT_EQ(RED, m_dc.GetPixel(CPoint(60, 60)));
}

TEST_F(CMemoryDCTest, TextIsMeasuredAndDrawn)
{
    CSize extent = m_dc.GetTextExtent("Hello", 5);
    EXPECT_GT(extent.cx, 0);
    EXPECT_EQ(extent, m_dc.GetTextExtent(CString("Hello")));
    EXPECT_EQ(extent, m_dc.GetOutputTextExtent("Hello", 5));
    TEXTMETRIC tm;
    ASSERT_TRUE(m_dc.GetTextMetrics(&tm));
    EXPECT_EQ(tm.tmHeight, extent.cy);

    CRect rect(0, 0, 0, 0);
    EXPECT_EQ(extent.cy, m_dc.DrawText(CString("Hello"), &rect, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX));
    EXPECT_EQ(extent.cx, rect.Width());

    EXPECT_TRUE(m_dc.TextOut(2, 2, CString("W")));
    EXPECT_GT(CountPixels(BLACK, CRect(0, 0, 20, 20)), 0);

    // A null text is refused, not read.
    EXPECT_EQ(CSize(0, 0), m_dc.GetTextExtent(NULL, 5));
    EXPECT_FALSE(m_dc.TextOut(0, 0, NULL, 3));
    EXPECT_EQ(0, m_dc.DrawText(NULL, -1, &rect, 0));
    EXPECT_FALSE(m_dc.ExtTextOut(0, 0, 0, NULL, NULL, 2, NULL));
}

TEST_F(CMemoryDCTest, DrawTextNeverWritesIntoAString)
{
    CString original("A text far too long for the rectangle it is drawn into");
    CString shared(original);
    CRect rect(0, 0, 30, 16);
    m_dc.DrawText(shared, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    EXPECT_STREQ("A text far too long for the rectangle it is drawn into", original);
    EXPECT_STREQ("A text far too long for the rectangle it is drawn into", shared);
}

TEST_F(CMemoryDCTest, SettingsFollowSaveAndRestore)
{
    EXPECT_EQ(BLACK, m_dc.SetTextColor(RED));
    EXPECT_EQ(OPAQUE, m_dc.SetBkMode(TRANSPARENT));
    EXPECT_EQ(static_cast<UINT>(TA_TOP | TA_LEFT), m_dc.SetTextAlign(TA_RIGHT));
    int nSaved = m_dc.SaveDC();
    ASSERT_NE(0, nSaved);
    m_dc.SetTextColor(BLUE);
    m_dc.SetBkMode(OPAQUE);
    m_dc.SetTextAlign(TA_CENTER);
    EXPECT_TRUE(m_dc.RestoreDC(nSaved));
    EXPECT_EQ(RED, m_dc.GetTextColor());
    EXPECT_EQ(TRANSPARENT, m_dc.GetBkMode());
    EXPECT_EQ(static_cast<UINT>(TA_RIGHT), m_dc.GetTextAlign());
    EXPECT_GT(m_dc.GetDeviceCaps(BITSPIXEL), 0);
}

TEST(CDCTest, OutputAndAttributeDCsMayDiffer)
{
    CClientDC screen(NULL);
    CDC output;
    CDC attrib;
    ASSERT_TRUE(output.CreateCompatibleDC(&screen));
    ASSERT_TRUE(attrib.CreateCompatibleDC(&screen));
    CFont big;
    ASSERT_TRUE(big.CreatePointFont(360, "Arial"));
    CFont* pOldFont = output.SelectObject(&big);

    CDC split; // writes to one DC, reads attributes from the other
    split.SetOutputDC(output.m_hDC);
    split.SetAttribDC(attrib.m_hDC);
    EXPECT_GT(split.GetOutputTextExtent("Wide", 4).cy, split.GetTextExtent("Wide", 4).cy);
    split.SetTextColor(RED);
    EXPECT_EQ(RED, ::GetTextColor(output.m_hDC));
    EXPECT_EQ(RED, ::GetTextColor(attrib.m_hDC));
    ::SetTextColor(output.m_hDC, BLUE);
    EXPECT_EQ(RED, split.GetTextColor());
    // Two save stacks: only the latest state names the same one in both.
    EXPECT_EQ(-1, split.SaveDC());
    EXPECT_TRUE(split.RestoreDC(-1));
    split.SetOutputDC(NULL);
    split.SetAttribDC(NULL);
    output.SelectObject(pOldFont);
}

TEST_F(CMemoryDCTest, ClippingLimitsOutput)
{
    EXPECT_NE(ERROR, m_dc.IntersectClipRect(CRect(10, 10, 20, 20)));
    CRect box;
    EXPECT_EQ(SIMPLEREGION, m_dc.GetClipBox(&box));
    EXPECT_EQ(CRect(10, 10, 20, 20), box);
    EXPECT_EQ(COMPLEXREGION, m_dc.ExcludeClipRect(12, 12, 14, 14));
    m_dc.FillSolidRect(0, 0, 64, 64, RED);
    EXPECT_EQ(WHITE, m_dc.GetPixel(5, 5));
    EXPECT_EQ(RED, m_dc.GetPixel(15, 15));
    EXPECT_EQ(WHITE, m_dc.GetPixel(13, 13));

    EXPECT_NE(ERROR, m_dc.SelectClipRgn(NULL)); // no clipping
    m_dc.GetClipBox(&box);
    EXPECT_EQ(CRect(0, 0, 64, 64), box);

    CRgn a;
    CRgn b;
    CRgn both;
    ASSERT_TRUE(a.CreateRectRgn(0, 0, 10, 10));
    ASSERT_TRUE(b.CreateRectRgnIndirect(CRect(5, 5, 15, 15)));
    ASSERT_TRUE(both.CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(COMPLEXREGION, both.CombineRgn(&a, &b, RGN_OR));
    EXPECT_TRUE(both.PtInRegion(12, 12));
    EXPECT_FALSE(both.PtInRegion(CPoint(12, 2)));
    EXPECT_EQ(SIMPLEREGION, both.CombineRgn(&a, &b, RGN_AND));
    EXPECT_TRUE(both.PtInRegion(7, 7));
    EXPECT_FALSE(both.PtInRegion(2, 2));
    EXPECT_EQ(SIMPLEREGION, m_dc.SelectClipRgn(&a));
    m_dc.GetClipBox(&box);
    EXPECT_EQ(CRect(0, 0, 10, 10), box);
    EXPECT_NE(ERROR, m_dc.SelectClipRgn(&b, RGN_OR));
    m_dc.GetClipBox(&box);
    EXPECT_EQ(CRect(0, 0, 15, 15), box);
}

TEST_F(CMemoryDCTest, MappingConvertsPointsAndSizes)
{
    EXPECT_EQ(MM_TEXT, m_dc.SetMapMode(MM_ANISOTROPIC));
    EXPECT_EQ(MM_ANISOTROPIC, m_dc.GetMapMode());
    ::SetWindowExtEx(m_dc.m_hDC, 10, 10, NULL);
    ::SetViewportExtEx(m_dc.m_hDC, 20, -30, NULL);

    CPoint point(5, 5);
    m_dc.LPtoDP(&point);
    EXPECT_EQ(CPoint(10, -15), point);
    CSize size(5, 5);
    m_dc.LPtoDP(&size); // a size keeps its sign though the y axis runs up
    EXPECT_EQ(CSize(10, 15), size);
    m_dc.DPtoLP(&size);
    EXPECT_EQ(CSize(5, 5), size);
    CRect rect(0, 0, 10, 10);
    m_dc.LPtoDP(&rect);
    EXPECT_EQ(CRect(0, 0, 20, -30), rect);
    m_dc.DPtoLP(&rect);
    EXPECT_EQ(CRect(0, 0, 10, 10), rect);

    EXPECT_EQ(CPoint(0, 0), m_dc.SetViewportOrg(5, 7));
    EXPECT_EQ(CPoint(5, 7), m_dc.SetViewportOrg(CPoint(1, 2)));
    EXPECT_EQ(CPoint(1, 2), m_dc.GetViewportOrg());
    EXPECT_EQ(CPoint(0, 0), m_dc.SetWindowOrg(3, 4));
    EXPECT_EQ(CPoint(3, 4), m_dc.GetWindowOrg());
    m_dc.SetMapMode(MM_TEXT);
}

TEST_F(CMemoryDCTest, BlocksAreCopiedBetweenDCs)
{
    CClientDC screen(NULL);
    CDC source;
    CBitmap sourceBitmap;
    ASSERT_TRUE(source.CreateCompatibleDC(&screen));
    ASSERT_TRUE(sourceBitmap.CreateCompatibleBitmap(&screen, 4, 4));
    CBitmap* pOld = source.SelectObject(&sourceBitmap);
    source.FillSolidRect(0, 0, 4, 4, RED);
    BITMAP bm;
    ASSERT_EQ(static_cast<int>(sizeof(bm)), sourceBitmap.GetBitmap(&bm));
    EXPECT_EQ(4, bm.bmWidth);

    EXPECT_TRUE(m_dc.BitBlt(0, 0, 4, 4, &source, 0, 0, SRCCOPY));
    EXPECT_TRUE(m_dc.StretchBlt(10, 10, 8, 8, &source, 0, 0, 4, 4, SRCCOPY));
    EXPECT_TRUE(m_dc.PatBlt(30, 30, 4, 4, BLACKNESS));
    m_dc.InvertRect(CRect(40, 40, 42, 42));
    source.SelectObject(pOld);

    EXPECT_EQ(16, CountPixels(RED, CRect(0, 0, 64, 8)));
    EXPECT_EQ(64, CountPixels(RED, CRect(8, 8, 20, 20)));
    EXPECT_EQ(16, CountPixels(BLACK, CRect(28, 28, 36, 36)));
    EXPECT_EQ(4, CountPixels(BLACK, CRect(38, 38, 44, 44)));
}

TEST_F(CMemoryDCTest, FramesAndRectanglesWithBrushes)
{
    CBrush brush(BLUE);
    m_dc.FillRect(CRect(0, 0, 10, 10), &brush);
    EXPECT_EQ(100, CountPixels(BLUE, CRect(0, 0, 64, 64)));
    m_dc.FrameRect(CRect(20, 20, 30, 30), &brush);
    EXPECT_EQ(36, CountPixels(BLUE, CRect(20, 20, 30, 30)));
    EXPECT_EQ(WHITE, m_dc.GetPixel(25, 25));

    CRect button(40, 40, 60, 60);
    EXPECT_TRUE(m_dc.DrawFrameControl(&button, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_EQ(::GetSysColor(COLOR_BTNFACE), m_dc.GetPixel(50, 50));
    CRect sunken(40, 2, 60, 22);
    EXPECT_TRUE(m_dc.DrawEdge(&sunken, EDGE_SUNKEN, BF_RECT));
    EXPECT_EQ(::GetSysColor(COLOR_BTNSHADOW), m_dc.GetPixel(40, 2));
    EXPECT_EQ(::GetSysColor(COLOR_BTNHIGHLIGHT), m_dc.GetPixel(59, 21));

    m_dc.FillSolidRect(0, 0, 64, 64, WHITE);
    EXPECT_TRUE(m_dc.DrawIcon(CPoint(0, 0), ::LoadIconA(NULL, IDI_APPLICATION)));
    EXPECT_GT(64 * 64 - CountPixels(WHITE, CRect(0, 0, 64, 64)), 0);
}

TEST(CBitmapTest, BitmapsLoadFromTheResourceChain)
{
    CBitmap missing;
    EXPECT_FALSE(missing.LoadBitmap(4711));
    EXPECT_EQ(nullptr, missing.m_hObject);

    // The common controls' own toolbar images (resource 120: 16 x 16 images in a strip).
    HMODULE hComCtl = ::GetModuleHandleA("comctl32.dll");
    ASSERT_NE(nullptr, hComCtl);
    AfxSetResourceHandle(hComCtl);
    CBitmap strip;
    BOOL bLoaded = strip.LoadBitmap(120);
    CImageList images;
    BOOL bCreated = images.Create(120, 16, 1, CLR_NONE);
    AfxSetResourceHandle(NULL);
    ASSERT_TRUE(bLoaded);
    ASSERT_TRUE(bCreated);
    BITMAP bm;
    strip.GetBitmap(&bm);
    EXPECT_EQ(16, bm.bmHeight);
    EXPECT_EQ(bm.bmWidth / 16, images.GetImageCount());
}

TEST(CWndDCTest, WindowDCsBelongToTheirWindow)
{
    CPaintWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 100, 80, NULL, NULL));
    wnd.ShowWindow(SW_SHOWNOACTIVATE);
    wnd.UpdateWindow();
    MSG msg;
    while (::PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        ::DispatchMessageA(&msg);
    CRect part(10, 10, 20, 20);
    wnd.InvalidateRect(&part, FALSE);
    wnd.UpdateWindow();
    EXPECT_NE(nullptr, wnd.m_hPaintDC);
    EXPECT_TRUE(wnd.m_bPaintDCFound);
    EXPECT_EQ(part, wnd.m_rcPaint);
    EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, NULL, FALSE)); // EndPaint validated it

    {
        CClientDC client(&wnd);
        EXPECT_EQ(wnd.m_hWnd, ::WindowFromDC(client.m_hDC));
        EXPECT_EQ(&client, CDC::FromHandle(client.m_hDC));
        CWindowDC whole(&wnd);
        EXPECT_EQ(wnd.m_hWnd, ::WindowFromDC(whole.m_hDC));
    }
    CDC* pDC = wnd.GetDC();
    ASSERT_NE(nullptr, pDC);
    EXPECT_EQ(wnd.m_hWnd, ::WindowFromDC(pDC->m_hDC));
    EXPECT_EQ(1, wnd.ReleaseDC(pDC));
    EXPECT_EQ(0, wnd.ReleaseDC(NULL));
    pDC = wnd.GetWindowDC();
    ASSERT_NE(nullptr, pDC);
    EXPECT_EQ(1, wnd.ReleaseDC(pDC));
    AfxDeleteTempMaps();
}

TEST(CWndDCTest, FontsGoToTheWindow)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(100, "Arial"));
    {
        CWnd label;
        ASSERT_TRUE(label.CreateEx(0, "STATIC", "text", WS_POPUP, 0, 0, 50, 20, NULL, NULL));
        label.SetFont(&font, FALSE);
        EXPECT_EQ(&font, label.GetFont());
        label.SetFont(NULL, FALSE); // back to the system font
        EXPECT_EQ(nullptr, label.GetFont());
    }
    EXPECT_EQ(static_cast<DWORD>(OBJ_FONT), ::GetObjectType(font.m_hObject));
}
