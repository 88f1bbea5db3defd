#include <afxwin.h>
#include <afxcmn.h>
#include <gtest/gtest.h>

namespace
{
const COLORREF WHITE = RGB(255, 255, 255);
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
        m_dc.SelectObject(&m_bitmap);
        m_dc.FillSolidRect(0, 0, 64, 64, WHITE);
    }
    void TearDown() override { AfxDeleteTempMaps(); }

    CBitmap m_bitmap; // declared first: deleted after the DC it is selected into
    CDC m_dc;
};
} // namespace

TEST(CGdiObjectTest, TemporaryObjectsHaveTheKindOfTheirHandleButOnlyPermanentOnesOwnIt)
{
    CPen pen(PS_SOLID, 1, RED);
    const HGDIOBJ hPen = pen.Detach(); // no object holds it any more
    EXPECT_FALSE(pen.DeleteObject());
    const HGDIOBJ hRgn = ::CreateRectRgn(0, 0, 5, 5);
    const HGDIOBJ hBitmap = ::CreateBitmap(4, 4, 1, 1, NULL);
    const struct { HGDIOBJ h; CRuntimeClass* pClass; } cases[] = {
        {hPen, RUNTIME_CLASS(CPen)}, {::GetStockObject(WHITE_BRUSH), RUNTIME_CLASS(CBrush)},
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
    AfxDeleteTempMaps();
    for (HGDIOBJ h : {hPen, hRgn, hBitmap})
        EXPECT_TRUE(::DeleteObject(h)); // the temporary objects left them alone
    EXPECT_EQ(nullptr, CFont::FromHandle(NULL)->GetSafeHandle()); // callable through a null pointer, as in MFC

    // A permanent object deletes its handle, unless it is a stock object.
    HGDIOBJ hBrush;
    HGDIOBJ hStock = ::GetStockObject(BLACK_PEN);
    {
        CBrush brush(RED);
        hBrush = brush.m_hObject;
        EXPECT_FALSE(brush.CreateSolidBrush(BLUE)); // keeps the first handle
        EXPECT_EQ(hBrush, brush.m_hObject);
        // A stock object may be held twice: the latest holder is the one found.
        CPen first;
        CPen second;
        ASSERT_TRUE(first.CreateStockObject(BLACK_PEN));
        ASSERT_TRUE(second.CreateStockObject(BLACK_PEN));
        EXPECT_EQ(&second, CGdiObject::FromHandle(hStock));
        first.Detach(); // leaves the other holder's entry
        EXPECT_EQ(&second, CGdiObject::FromHandle(hStock));
    }
    EXPECT_EQ(0u, ::GetObjectType(hBrush));
    EXPECT_EQ(static_cast<DWORD>(OBJ_PEN), ::GetObjectType(hStock));
}

TEST_F(CMemoryDCTest, MappingModesScaleFontsAndSizes)
{
    LOGFONT lf;
    CFont inch; // 72 points are an inch; no DC: the screen's
    ASSERT_TRUE(inch.CreatePointFont(720, "A face name far longer than the thirty-one characters"));
    inch.GetLogFont(&lf);
    EXPECT_EQ(-m_dc.GetDeviceCaps(LOGPIXELSY), lf.lfHeight);
    EXPECT_EQ(DEFAULT_CHARSET, lf.lfCharSet);
    EXPECT_EQ(static_cast<size_t>(LF_FACESIZE - 1), strlen(lf.lfFaceName)); // cut to fit
    EXPECT_FALSE(CFont().CreatePointFontIndirect(NULL));

    // In twips (y upwards) 12 points are 240 units, whatever the resolution.
    m_dc.SetMapMode(MM_TWIPS);
    CFont twelve;
    ASSERT_TRUE(twelve.CreatePointFont(120, "Arial", &m_dc));
    twelve.GetLogFont(&lf);
    EXPECT_EQ(-240, lf.lfHeight);

    // Sizes keep their sign whichever way the axes run.
    m_dc.SetMapMode(MM_ANISOTROPIC);
    ::SetWindowExtEx(m_dc.m_hDC, 10, 10, NULL);
    ::SetViewportExtEx(m_dc.m_hDC, 20, -30, NULL);
    CSize size(5, 5);
    m_dc.LPtoDP(&size);
    EXPECT_EQ(CSize(10, 15), size);
    m_dc.DPtoLP(&size);
    EXPECT_EQ(CSize(5, 5), size);
}

TEST_F(CMemoryDCTest, DCsAndTheirSelectedObjectsAreFoundByHandle)
{
    EXPECT_EQ(&m_dc, CDC::FromHandle(m_dc.m_hDC));
    EXPECT_FALSE(m_dc.CreateCompatibleDC(NULL)); // already holds one
    const int nSaved = m_dc.SaveDC(); // one DC, one stack: a real level
    EXPECT_TRUE(nSaved > 0 && m_dc.RestoreDC(nSaved)) << nSaved;

    HDC hRaw = ::CreateCompatibleDC(NULL);
    EXPECT_EQ(hRaw, CDC::FromHandle(hRaw)->m_hAttribDC);
    AfxDeleteTempMaps();
    EXPECT_EQ(static_cast<DWORD>(OBJ_MEMDC), ::GetObjectType(hRaw));
    ::DeleteDC(hRaw);
    EXPECT_EQ(nullptr, CDC::FromHandle(NULL)->GetSafeHdc());
    EXPECT_FALSE(CDC().DeleteDC());

    CPen red(PS_SOLID, 1, RED);
    CPen blue(PS_SOLID, 1, BLUE);
    CPen* pOriginal = m_dc.SelectObject(&red);
    EXPECT_EQ(::GetStockObject(BLACK_PEN), pOriginal->GetSafeHandle());
    EXPECT_EQ(&red, m_dc.SelectObject(&blue));
    EXPECT_EQ(&blue, m_dc.SelectObject(pOriginal));
    EXPECT_EQ(nullptr, m_dc.SelectObject(static_cast<CPen*>(NULL)));
    EXPECT_EQ(::GetStockObject(WHITE_BRUSH), m_dc.SelectStockObject(NULL_BRUSH)->GetSafeHandle());
}

TEST_F(CMemoryDCTest, SolidAnd3dRectangles)
{
    m_dc.SetBkColor(BLUE);
    m_dc.FillSolidRect(CRect(2, 2, 6, 6), GREEN);
    EXPECT_EQ(GREEN, m_dc.GetPixel(5, 5));
    EXPECT_EQ(WHITE, m_dc.GetPixel(6, 6));
    // Kept as MFC does it: callers that draw text next rely on the colour being set.
    EXPECT_EQ(GREEN, m_dc.GetBkColor());

    // The outer corners belong to the bottom right colour.
    m_dc.Draw3dRect(CRect(10, 10, 20, 15), RED, BLUE);
    EXPECT_EQ(RED, m_dc.GetPixel(18, 10));
    EXPECT_EQ(BLUE, m_dc.GetPixel(19, 10)); // top right
    EXPECT_EQ(RED, m_dc.GetPixel(10, 13));
    EXPECT_EQ(BLUE, m_dc.GetPixel(10, 14)); // bottom left
    EXPECT_EQ(WHITE, m_dc.GetPixel(15, 12)); // a frame, not filled
    EXPECT_EQ(WHITE, m_dc.GetPixel(20, 10));
    m_dc.Draw3dRect(30, 30, 0, 5, RED, BLUE); // nothing to draw
    EXPECT_EQ(WHITE, m_dc.GetPixel(30, 31));
}

TEST_F(CMemoryDCTest, NullTextIsRefusedAndStringsAreNeverModified)
{
    CRect rect(0, 0, 30, 16);
    EXPECT_EQ(CSize(0, 0), m_dc.GetTextExtent(NULL, 5));
    EXPECT_FALSE(m_dc.TextOut(0, 0, NULL, 3));
    EXPECT_EQ(0, m_dc.DrawText(NULL, -1, &rect, 0));
    EXPECT_FALSE(m_dc.ExtTextOut(0, 0, 0, NULL, NULL, 2, NULL));

    // The string's characters may be shared with other strings.
    CString original("A text far too long for the rectangle it is drawn into");
    CString shared(original);
    m_dc.DrawText(shared, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    EXPECT_STREQ("A text far too long for the rectangle it is drawn into", shared);
}

TEST_F(CMemoryDCTest, OutputAndAttributeDCsMayDiffer)
{
    CFont big; // declared first: deleted after the DC it is selected into
    ASSERT_TRUE(big.CreatePointFont(360, "Arial"));
    CDC attrib;
    ASSERT_TRUE(attrib.CreateCompatibleDC(&m_dc));
    attrib.SelectObject(&big);
    m_dc.SetAttribDC(attrib.m_hDC); // writes to one DC, reads attributes from the other

    EXPECT_LT(m_dc.GetOutputTextExtent("Wide", 4).cy, m_dc.GetTextExtent("Wide", 4).cy);
    m_dc.SetTextColor(RED);
    EXPECT_EQ(RED, ::GetTextColor(m_dc.m_hDC));
    ::SetTextColor(m_dc.m_hDC, BLUE);
    EXPECT_EQ(RED, m_dc.GetTextColor()); // the attribute DC's
    EXPECT_EQ(CPoint(0, 0), m_dc.MoveTo(2, 3));
    EXPECT_TRUE(m_dc.LineTo(8, 9)); // the attribute DC's position follows the line
    EXPECT_EQ(CPoint(8, 9), m_dc.MoveTo(0, 0));
    // Two save stacks: only the latest state names the same one in both.
    EXPECT_EQ(-1, m_dc.SaveDC());
    EXPECT_TRUE(m_dc.RestoreDC(-1));
    m_dc.SetAttribDC(m_dc.m_hDC);
}

TEST(CBitmapTest, BitmapsLoadFromTheResourceChain)
{
    EXPECT_FALSE(CBitmap().LoadBitmap(4711));
    // The common controls' own toolbar images (resource 120: 16 x 16 images in a strip).
    AfxSetResourceHandle(::GetModuleHandleA("comctl32.dll"));
    CBitmap strip;
    BOOL bLoaded = strip.LoadBitmap(120);
    CImageList images;
    BOOL bCreated = images.Create(120, 16, 1, CLR_NONE);
    AfxSetResourceHandle(NULL);
    ASSERT_TRUE(bLoaded);
    ASSERT_TRUE(bCreated);
    BITMAP bm;
    strip.GetBitmap(&bm);
    EXPECT_EQ(bm.bmWidth / 16, images.GetImageCount());
}
