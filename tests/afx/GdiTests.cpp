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

    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_pOldBitmap = NULL;
};
} // namespace

TEST(CGdiObjectTest, TemporaryObjectsHaveTheKindOfTheirHandle)
{
    HRGN hRgn = ::CreateRectRgn(0, 0, 5, 5);
    HBITMAP hBitmap = ::CreateBitmap(4, 4, 1, 1, NULL);
    const struct { HGDIOBJ h; CRuntimeClass* pClass; } cases[] = {
        {::GetStockObject(BLACK_PEN), RUNTIME_CLASS(CPen)}, {::GetStockObject(WHITE_BRUSH), RUNTIME_CLASS(CBrush)},
        {::GetStockObject(DEFAULT_GUI_FONT), RUNTIME_CLASS(CFont)}, {hBitmap, RUNTIME_CLASS(CBitmap)},
        {hRgn, RUNTIME_CLASS(CRgn)}};
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
        // A second Create fails and keeps the first handle.
        EXPECT_FALSE(brush.CreateSolidBrush(BLUE));
        EXPECT_EQ(hBrush, brush.m_hObject);
    }
    EXPECT_EQ(0u, ::GetObjectType(hBrush));

    CPen pen(PS_SOLID, 1, RED);
    HGDIOBJ hPen = pen.Detach();
    EXPECT_NE(static_cast<CGdiObject*>(&pen), CGdiObject::FromHandle(hPen));
    EXPECT_FALSE(pen.DeleteObject());
    ::DeleteObject(hPen);
    AfxDeleteTempMaps();
    CFont* pNoFont = CFont::FromHandle(NULL);
    EXPECT_EQ(nullptr, pNoFont->GetSafeHandle()); // callable through a null pointer, as in MFC

    // A stock object may be held twice: the latest holder is the one found.
    HGDIOBJ hStock = ::GetStockObject(BLACK_PEN);
    {
        CPen first;
        CPen second;
        ASSERT_TRUE(first.CreateStockObject(BLACK_PEN));
        ASSERT_TRUE(second.CreateStockObject(BLACK_PEN));
        EXPECT_EQ(&second, CGdiObject::FromHandle(hStock));
        first.Detach(); // leaves the other holder's entry
        EXPECT_EQ(&second, CGdiObject::FromHandle(hStock));
    }
    EXPECT_EQ(static_cast<DWORD>(OBJ_PEN), ::GetObjectType(hStock));
}

TEST_F(CMemoryDCTest, PointSizesAreTenthsOfAPointInTheDCsUnits)
{
    LOGFONT lf;
    CFont inch; // 72 points are an inch; no DC: the screen's
    ASSERT_TRUE(inch.CreatePointFont(720, "Arial"));
    inch.GetLogFont(&lf);
    EXPECT_EQ(-m_dc.GetDeviceCaps(LOGPIXELSY), lf.lfHeight);
    EXPECT_EQ(DEFAULT_CHARSET, lf.lfCharSet);

    // In twips (y upwards) 12 points are 240 units, whatever the resolution.
    m_dc.SetMapMode(MM_TWIPS);
    CFont twelve;
    ASSERT_TRUE(twelve.CreatePointFont(120, "Arial", &m_dc));
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
    EXPECT_FALSE(m_dc.CreateCompatibleDC(NULL)); // already holds one
    int nSaved = m_dc.SaveDC(); // one DC, one stack: a real level
    EXPECT_GT(nSaved, 0);
    EXPECT_TRUE(m_dc.RestoreDC(nSaved));

    HDC hRaw = ::CreateCompatibleDC(NULL);
    CDC* pTemp = CDC::FromHandle(hRaw);
    ASSERT_NE(nullptr, pTemp);
    EXPECT_EQ(hRaw, pTemp->m_hAttribDC);
    AfxDeleteTempMaps();
    EXPECT_EQ(static_cast<DWORD>(OBJ_MEMDC), ::GetObjectType(hRaw));
    ::DeleteDC(hRaw);
    CDC* pNoDC = CDC::FromHandle(NULL);
    EXPECT_EQ(nullptr, pNoDC->GetSafeHdc());
    EXPECT_FALSE(CDC().DeleteDC());
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
    EXPECT_EQ(&blue, m_dc.SelectObject(pOriginal));
    EXPECT_EQ(nullptr, m_dc.SelectObject(static_cast<CPen*>(NULL)));
    CGdiObject* pOldBrush = m_dc.SelectStockObject(NULL_BRUSH);
    EXPECT_EQ(::GetStockObject(WHITE_BRUSH), pOldBrush->GetSafeHandle());
    m_dc.SelectObject(pOldBrush);
}

TEST_F(CMemoryDCTest, FillSolidRectLeavesTheBackgroundColourSet)
{
    m_dc.SetBkColor(BLUE);
    m_dc.FillSolidRect(CRect(2, 2, 6, 6), GREEN);
    EXPECT_EQ(GREEN, m_dc.GetPixel(5, 5));
    EXPECT_EQ(WHITE, m_dc.GetPixel(6, 6));
    // Kept as MFC does it: callers that draw text next rely on the colour being set.
    EXPECT_EQ(GREEN, m_dc.GetBkColor());
}

TEST_F(CMemoryDCTest, Draw3dRectGivesTheOuterCornersToTheBottomRightColour)
{
    m_dc.Draw3dRect(CRect(10, 10, 20, 15), RED, BLUE);
    EXPECT_EQ(RED, m_dc.GetPixel(18, 10));
    EXPECT_EQ(BLUE, m_dc.GetPixel(19, 10)); // top right
    EXPECT_EQ(RED, m_dc.GetPixel(10, 13));
    EXPECT_EQ(BLUE, m_dc.GetPixel(10, 14)); // bottom left
    EXPECT_EQ(WHITE, m_dc.GetPixel(15, 12));
    EXPECT_EQ(WHITE, m_dc.GetPixel(20, 10));
    m_dc.Draw3dRect(30, 30, 0, 5, RED, BLUE); // nothing to draw
    EXPECT_EQ(WHITE, m_dc.GetPixel(30, 31));
    EXPECT_EQ(WHITE, m_dc.GetPixel(29, 31));
}

TEST_F(CMemoryDCTest, TextIsMeasuredButNullTextRefused)
{
    CSize extent = m_dc.GetTextExtent(CString("Hello"));
    EXPECT_GT(extent.cx, 0);
    EXPECT_EQ(extent, m_dc.GetTextExtent("Hello", 5));
    CRect rect(0, 0, 30, 16);
    EXPECT_EQ(CSize(0, 0), m_dc.GetTextExtent(NULL, 5));
    EXPECT_FALSE(m_dc.TextOut(0, 0, NULL, 3));
    EXPECT_EQ(0, m_dc.DrawText(NULL, -1, &rect, 0));
    EXPECT_FALSE(m_dc.ExtTextOut(0, 0, 0, NULL, NULL, 2, NULL));

    // The string's characters may be shared with other strings.
    CString original("A text far too long for the rectangle it is drawn into");
    CString shared(original);
    m_dc.DrawText(shared, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    EXPECT_STREQ("A text far too long for the rectangle it is drawn into", original);
    EXPECT_STREQ("A text far too long for the rectangle it is drawn into", shared);
}

TEST_F(CMemoryDCTest, OutputAndAttributeDCsMayDiffer)
{
    CDC& output = m_dc;
    CDC attrib;
    ASSERT_TRUE(attrib.CreateCompatibleDC(&output));
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
    EXPECT_EQ(CPoint(0, 0), split.MoveTo(2, 3));
    EXPECT_TRUE(split.LineTo(8, 9)); // the attribute DC's position follows the line
    EXPECT_EQ(CPoint(8, 9), split.MoveTo(0, 0));
    // Two save stacks: only the latest state names the same one in both.
    EXPECT_EQ(-1, split.SaveDC());
    EXPECT_TRUE(split.RestoreDC(-1));
    split.SetOutputDC(NULL);
    split.SetAttribDC(NULL);
    output.SelectObject(pOldFont);
}

TEST_F(CMemoryDCTest, ClipRegionsAreSetAndCleared)
{
    CRect box;
    EXPECT_EQ(SIMPLEREGION, m_dc.IntersectClipRect(CRect(2, 3, 10, 12)));
    m_dc.GetClipBox(&box);
    EXPECT_EQ(CRect(2, 3, 10, 12), box);
    EXPECT_NE(ERROR, m_dc.SelectClipRgn(NULL)); // no clipping
    m_dc.GetClipBox(&box);
    EXPECT_EQ(CRect(0, 0, 64, 64), box);
}

TEST_F(CMemoryDCTest, SizesKeepTheirSignWhateverWayTheAxesRun)
{
    EXPECT_EQ(MM_TEXT, m_dc.SetMapMode(MM_ANISOTROPIC));
    ::SetWindowExtEx(m_dc.m_hDC, 10, 10, NULL);
    ::SetViewportExtEx(m_dc.m_hDC, 20, -30, NULL);
    CSize size(5, 5);
    m_dc.LPtoDP(&size);
    EXPECT_EQ(CSize(10, 15), size);
    m_dc.DPtoLP(&size);
    EXPECT_EQ(CSize(5, 5), size);
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
    CWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 100, 80, NULL, NULL));
    wnd.ShowWindow(SW_SHOWNOACTIVATE);
    ::ValidateRect(wnd.m_hWnd, NULL);
    CRect part(10, 10, 20, 20);
    wnd.InvalidateRect(&part, FALSE);
    {
        CPaintDC dc(&wnd);
        EXPECT_EQ(part, CRect(dc.m_ps.rcPaint));
        EXPECT_EQ(&dc, CDC::FromHandle(dc.m_hDC));
    }
    EXPECT_FALSE(::GetUpdateRect(wnd.m_hWnd, NULL, FALSE)); // EndPaint validated it
    {
        CClientDC client(&wnd);
        EXPECT_EQ(wnd.m_hWnd, ::WindowFromDC(client.m_hDC));
        EXPECT_EQ(&client, CDC::FromHandle(client.m_hDC));
    }
    CDC* pDC = wnd.GetDC();
    ASSERT_NE(nullptr, pDC);
    EXPECT_EQ(1, wnd.ReleaseDC(pDC));
    EXPECT_EQ(0, wnd.ReleaseDC(NULL));
    AfxDeleteTempMaps();
}
