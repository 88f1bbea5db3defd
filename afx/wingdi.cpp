#include <afxwin.h>

#include <stdlib.h>
#include <string.h>

namespace
{
// A temporary object of the handle's own kind: a CPen for a pen, a CFont for a font, ...
CGdiObject* NewGdiObject(HGDIOBJ h)
{
    switch (::GetObjectType(h))
    {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return new CPen;
    case OBJ_BRUSH:
        return new CBrush;
    case OBJ_FONT:
        return new CFont;
    case OBJ_BITMAP:
        return new CBitmap;
    case OBJ_REGION:
        return new CRgn;
    default:
        return new CGdiObject;
    }
}

typedef CHandleMap<CGdiObject, HGDIOBJ, &CGdiObject::m_hObject, &NewGdiObject> CGdiObjectMap;

// A temporary device context reads its attributes from itself.
CDC* NewDC(HDC h)
{
    CDC* pDC = new CDC;
    pDC->m_hAttribDC = h;
    return pDC;
}

typedef CHandleMap<CDC, HDC, &CDC::m_hDC, &NewDC> CDCMap;

// Applies a setting to the output DC and, when it is another one, to the attribute DC; the
// result is the attribute DC's.
template <class TResult, class TFn>
TResult SetInBoth(const CDC* pDC, TResult failure, TFn fn)
{
    TResult result = failure;
    if (pDC->m_hDC != NULL && pDC->m_hDC != pDC->m_hAttribDC)
        result = fn(pDC->m_hDC);
    if (pDC->m_hAttribDC != NULL)
        result = fn(pDC->m_hAttribDC);
    return result;
}

// A null text with characters to read is refused rather than read.
bool IsBadText(LPCTSTR lpszString, int nCount)
{
    return lpszString == NULL && nCount != 0;
}

CSize TextExtent(HDC hDC, LPCTSTR lpszString, int nCount)
{
    SIZE size = {0, 0};
    if (!IsBadText(lpszString, nCount))
        ::GetTextExtentPoint32A(hDC, lpszString, nCount, &size);
    return size;
}

// Scales a size between logical and device units by the magnitudes of the extents.
void ScaleSize(HDC hDC, LPSIZE lpSize, bool bToDevice)
{
    SIZE window;
    SIZE viewport;
    if (lpSize == NULL || !::GetWindowExtEx(hDC, &window) || !::GetViewportExtEx(hDC, &viewport) ||
        window.cx == 0 || window.cy == 0 || viewport.cx == 0 || viewport.cy == 0)
        return;
    SIZE from = bToDevice ? window : viewport;
    SIZE to = bToDevice ? viewport : window;
    lpSize->cx = ::MulDiv(lpSize->cx, abs(to.cx), abs(from.cx));
    lpSize->cy = ::MulDiv(lpSize->cy, abs(to.cy), abs(from.cy));
}
} // namespace

// ---------------------------------------------------------------------------------------------
// CGdiObject and its kinds

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

CGdiObject::CGdiObject() : m_hObject(NULL) {}

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject)
{
    return CGdiObjectMap::FromHandle(hObject);
}

void PASCAL CGdiObject::DeleteTempMap()
{
    CGdiObjectMap::DeleteTempMap();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    // Several objects may hold one stock object; the latest is the one FromHandle finds.
    return CGdiObjectMap::Attach(this, hObject);
}

HGDIOBJ CGdiObject::Detach()
{
    return CGdiObjectMap::Detach(this);
}

BOOL CGdiObject::DeleteObject()
{
    if (m_hObject == NULL)
        return FALSE;
    return ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const
{
    ASSERT(m_hObject != NULL);
    return ::GetObjectA(m_hObject, nCount, lpObject);
}

BOOL CGdiObject::CreateStockObject(int nIndex)
{
    return m_hObject == NULL && Attach(::GetStockObject(nIndex));
}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    CreatePen(nPenStyle, nWidth, crColor);
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor)
{
    return m_hObject == NULL && Attach(::CreatePen(nPenStyle, nWidth, crColor));
}

CBrush::CBrush(COLORREF crColor)
{
    CreateSolidBrush(crColor);
}

BOOL CBrush::CreateSolidBrush(COLORREF crColor)
{
    return m_hObject == NULL && Attach(::CreateSolidBrush(crColor));
}

BOOL CBrush::CreateSysColorBrush(int nIndex)
{
    return m_hObject == NULL && Attach(::GetSysColorBrush(nIndex));
}

BOOL CBrush::CreateHatchBrush(int nIndex, COLORREF crColor)
{
    return m_hObject == NULL && Attach(::CreateHatchBrush(nIndex, crColor));
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    HBITMAP hBitmap = static_cast<HBITMAP>(pBitmap->GetSafeHandle());
    return m_hObject == NULL && hBitmap != NULL && Attach(::CreatePatternBrush(hBitmap));
}

BOOL CFont::CreateFontIndirect(const LOGFONT* lpLogFont)
{
    return m_hObject == NULL && lpLogFont != NULL && Attach(::CreateFontIndirectA(lpLogFont));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                       BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename)
{
    return m_hObject == NULL &&
           Attach(::CreateFontA(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline, cStrikeOut,
                                nCharSet, nOutPrecision, nClipPrecision, nQuality, nPitchAndFamily, lpszFacename));
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    LOGFONT logFont;
    memset(&logFont, 0, sizeof(logFont));
    logFont.lfCharSet = DEFAULT_CHARSET;
    logFont.lfHeight = nPointSize;
    if (lpszFaceName != NULL)
        ::lstrcpynA(logFont.lfFaceName, lpszFaceName, LF_FACESIZE);
    return CreatePointFontIndirect(&logFont, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC)
{
    if (lpLogFont == NULL)
        return FALSE;
    HDC hDC = pDC != NULL ? pDC->m_hAttribDC : ::GetDC(NULL);
    // 720 tenths of a point to the inch give device pixels; the DC's mapping turns them into
    // logical units, measured from the mapped origin so that the direction of the y axis does
    // not matter. The negative height asks for the character height rather than the cell's.
    POINT pt[2] = {{0, ::MulDiv(::GetDeviceCaps(hDC, LOGPIXELSY), lpLogFont->lfHeight, 720)}, {0, 0}};
    ::DPtoLP(hDC, pt, 2);
    if (pDC == NULL)
        ::ReleaseDC(NULL, hDC);
    LOGFONT logFont = *lpLogFont;
    logFont.lfHeight = -abs(pt[0].y - pt[1].y);
    return CreateFontIndirect(&logFont);
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits)
{
    return m_hObject == NULL && Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    HDC hDC = pDC->GetSafeHdc();
    return m_hObject == NULL && hDC != NULL && Attach(::CreateCompatibleBitmap(hDC, nWidth, nHeight));
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    return m_hObject == NULL && lpszResourceName != NULL &&
           Attach(::LoadBitmapA(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2)
{
    return m_hObject == NULL && Attach(::CreateRectRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateRectRgnIndirect(LPCRECT lpRect)
{
    return m_hObject == NULL && lpRect != NULL && Attach(::CreateRectRgnIndirect(lpRect));
}

int CRgn::CombineRgn(CRgn* pRgn1, CRgn* pRgn2, int nCombineMode)
{
    ASSERT(m_hObject != NULL);
    return ::CombineRgn(static_cast<HRGN>(m_hObject), static_cast<HRGN>(pRgn1->GetSafeHandle()),
                        static_cast<HRGN>(pRgn2->GetSafeHandle()), nCombineMode);
}

// ---------------------------------------------------------------------------------------------
// CDC

IMPLEMENT_DYNCREATE(CDC, CObject)

CDC::CDC() : m_hDC(NULL), m_hAttribDC(NULL), m_bPrinting(FALSE) {}

CDC::~CDC()
{
    if (m_hDC != NULL)
        ::DeleteDC(Detach());
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    return CDCMap::FromHandle(hDC);
}

void PASCAL CDC::DeleteTempMap()
{
    CDCMap::DeleteTempMap();
}

BOOL CDC::Attach(HDC hDC)
{
    if (!CDCMap::Attach(this, hDC))
        return FALSE;
    m_hAttribDC = hDC;
    return TRUE;
}

HDC CDC::Detach()
{
    m_hAttribDC = NULL;
    return CDCMap::Detach(this);
}

BOOL CDC::CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return m_hDC == NULL &&
           Attach(::CreateDCA(lpszDriverName, lpszDeviceName, lpszOutput, static_cast<const DEVMODEA*>(lpInitData)));
}

BOOL CDC::CreateCompatibleDC(CDC* pDC)
{
    return m_hDC == NULL && Attach(::CreateCompatibleDC(pDC->GetSafeHdc()));
}

BOOL CDC::DeleteDC()
{
    if (m_hDC == NULL)
        return FALSE;
    return ::DeleteDC(Detach());
}

int CDC::SaveDC()
{
    int nSaved = 0;
    if (m_hAttribDC != NULL)
        nSaved = ::SaveDC(m_hAttribDC);
    // Two DCs keep two stacks: only -1, the latest state, names the same state in both.
    if (m_hDC != NULL && m_hDC != m_hAttribDC && ::SaveDC(m_hDC) != 0)
        nSaved = -1;
    return nSaved;
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    if (m_hDC == NULL && m_hAttribDC == NULL)
        return FALSE;
    BOOL bResult = TRUE;
    if (m_hDC != NULL && m_hDC != m_hAttribDC)
        bResult = ::RestoreDC(m_hDC, nSavedDC);
    if (m_hAttribDC != NULL && !::RestoreDC(m_hAttribDC, nSavedDC))
        bResult = FALSE;
    return bResult;
}

HGDIOBJ CDC::SelectHandle(HGDIOBJ hObject)
{
    if (hObject == NULL)
        return NULL;
    return SetInBoth(this, static_cast<HGDIOBJ>(NULL), [=](HDC hDC) { return ::SelectObject(hDC, hObject); });
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    ASSERT(m_hDC != NULL);
    return CGdiObject::FromHandle(SelectHandle(::GetStockObject(nIndex)));
}

CPen* CDC::SelectObject(CPen* pPen)
{
    return CPen::FromHandle(static_cast<HPEN>(SelectHandle(pPen->GetSafeHandle())));
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle(static_cast<HBRUSH>(SelectHandle(pBrush->GetSafeHandle())));
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return CFont::FromHandle(static_cast<HFONT>(SelectHandle(pFont->GetSafeHandle())));
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(SelectHandle(pBitmap->GetSafeHandle())));
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject)
{
    return CGdiObject::FromHandle(SelectHandle(pObject->GetSafeHandle()));
}

CPen* CDC::GetCurrentPen() const
{
    ASSERT(m_hDC != NULL);
    return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hDC, OBJ_PEN)));
}

CBrush* CDC::GetCurrentBrush() const
{
    ASSERT(m_hDC != NULL);
    return CBrush::FromHandle(static_cast<HBRUSH>(::GetCurrentObject(m_hDC, OBJ_BRUSH)));
}

CFont* CDC::GetCurrentFont() const
{
    ASSERT(m_hDC != NULL);
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hDC, OBJ_FONT)));
}

CBitmap* CDC::GetCurrentBitmap() const
{
    ASSERT(m_hDC != NULL);
    return CBitmap::FromHandle(static_cast<HBITMAP>(::GetCurrentObject(m_hDC, OBJ_BITMAP)));
}

COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return SetInBoth(this, CLR_INVALID, [=](HDC hDC) { return ::SetTextColor(hDC, crColor); });
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return SetInBoth(this, CLR_INVALID, [=](HDC hDC) { return ::SetBkColor(hDC, crColor); });
}

int CDC::SetBkMode(int nBkMode)
{
    return SetInBoth(this, 0, [=](HDC hDC) { return ::SetBkMode(hDC, nBkMode); });
}

UINT CDC::SetTextAlign(UINT nFlags)
{
    return SetInBoth(this, static_cast<UINT>(GDI_ERROR), [=](HDC hDC) { return ::SetTextAlign(hDC, nFlags); });
}

int CDC::SetROP2(int nDrawMode)
{
    return SetInBoth(this, 0, [=](HDC hDC) { return ::SetROP2(hDC, nDrawMode); });
}

int CDC::SetMapMode(int nMapMode)
{
    return SetInBoth(this, 0, [=](HDC hDC) { return ::SetMapMode(hDC, nMapMode); });
}

CPoint CDC::GetViewportOrg() const
{
    ASSERT(m_hAttribDC != NULL);
    POINT point = {0, 0};
    ::GetViewportOrgEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    return SetInBoth(this, CPoint(), [=](HDC hDC) {
        POINT point = {0, 0};
        ::SetViewportOrgEx(hDC, x, y, &point);
        return CPoint(point);
    });
}

CPoint CDC::GetWindowOrg() const
{
    ASSERT(m_hAttribDC != NULL);
    POINT point = {0, 0};
    ::GetWindowOrgEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    return SetInBoth(this, CPoint(), [=](HDC hDC) {
        POINT point = {0, 0};
        ::SetWindowOrgEx(hDC, x, y, &point);
        return CPoint(point);
    });
}

void CDC::LPtoDP(LPSIZE lpSize) const
{
    ASSERT(m_hAttribDC != NULL);
    ScaleSize(m_hAttribDC, lpSize, true);
}

void CDC::DPtoLP(LPSIZE lpSize) const
{
    ASSERT(m_hAttribDC != NULL);
    ScaleSize(m_hAttribDC, lpSize, false);
}

int CDC::SelectClipRgn(CRgn* pRgn)
{
    HRGN hRgn = static_cast<HRGN>(pRgn->GetSafeHandle());
    return SetInBoth(this, ERROR, [=](HDC hDC) { return ::SelectClipRgn(hDC, hRgn); });
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode)
{
    HRGN hRgn = static_cast<HRGN>(pRgn->GetSafeHandle());
    return SetInBoth(this, ERROR, [=](HDC hDC) { return ::ExtSelectClipRgn(hDC, hRgn, nMode); });
}

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    return SetInBoth(this, ERROR, [=](HDC hDC) { return ::IntersectClipRect(hDC, x1, y1, x2, y2); });
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    return SetInBoth(this, ERROR, [=](HDC hDC) { return ::ExcludeClipRect(hDC, x1, y1, x2, y2); });
}

BOOL CDC::TextOut(int x, int y, LPCTSTR lpszString, int nCount)
{
    ASSERT(m_hDC != NULL);
    return !IsBadText(lpszString, nCount) && ::TextOutA(m_hDC, x, y, lpszString, nCount);
}

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                     LPINT lpDxWidths)
{
    ASSERT(m_hDC != NULL);
    return !IsBadText(lpszString, static_cast<int>(nCount)) &&
           ::ExtTextOutA(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
}

int CDC::DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
{
    ASSERT(m_hDC != NULL);
    if (IsBadText(lpszString, nCount) || lpRect == NULL)
        return 0;
    return ::DrawTextA(m_hDC, lpszString, nCount, lpRect, nFormat);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
{
    return DrawText(static_cast<LPCTSTR>(str), str.GetLength(), lpRect, nFormat & ~DT_MODIFYSTRING);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    ASSERT(m_hAttribDC != NULL);
    return TextExtent(m_hAttribDC, lpszString, nCount);
}

CSize CDC::GetOutputTextExtent(LPCTSTR lpszString, int nCount) const
{
    ASSERT(m_hDC != NULL);
    return TextExtent(m_hDC, lpszString, nCount);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF crColor)
{
    ASSERT(m_hDC != NULL);
    ::SetBkColor(m_hDC, crColor);
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, lpRect, NULL, 0, NULL);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF crColor)
{
    RECT rect = {x, y, x + cx, y + cy};
    FillSolidRect(&rect, crColor);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, clrTopLeft,
               clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    if (cx <= 0 || cy <= 0)
        return;
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx - 1, y, 1, cy, clrBottomRight);
    FillSolidRect(x, y + cy - 1, cx, 1, clrBottomRight);
}

CPoint CDC::MoveTo(int x, int y)
{
    ASSERT(m_hDC != NULL);
    return SetInBoth(this, CPoint(), [=](HDC hDC) {
        POINT point = {0, 0};
        ::MoveToEx(hDC, x, y, &point);
        return CPoint(point);
    });
}

BOOL CDC::LineTo(int x, int y)
{
    ASSERT(m_hDC != NULL);
    // The attribute DC's current position follows the line's end.
    if (m_hAttribDC != NULL && m_hAttribDC != m_hDC)
        ::MoveToEx(m_hAttribDC, x, y, NULL);
    return ::LineTo(m_hDC, x, y);
}

// ---------------------------------------------------------------------------------------------
// CPaintDC, CClientDC, CWindowDC

IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps(), m_hWnd(pWnd->GetSafeHwnd())
{
    if (m_hWnd != NULL)
        Attach(::BeginPaint(m_hWnd, &m_ps));
}

CPaintDC::~CPaintDC()
{
    if (m_hDC != NULL)
        ::EndPaint(m_hWnd, &m_ps);
    Detach();
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    Attach(::GetDC(m_hWnd));
}

CClientDC::~CClientDC()
{
    HDC hDC = Detach();
    if (hDC != NULL)
        ::ReleaseDC(m_hWnd, hDC);
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    Attach(::GetWindowDC(m_hWnd));
}

CWindowDC::~CWindowDC()
{
    HDC hDC = Detach();
    if (hDC != NULL)
        ::ReleaseDC(m_hWnd, hDC);
}

// ---------------------------------------------------------------------------------------------
// CWnd members that hand out device contexts and fonts

CDC* CWnd::GetDC()
{
    ASSERT(::IsWindow(m_hWnd));
    return CDC::FromHandle(::GetDC(m_hWnd));
}

CDC* CWnd::GetWindowDC()
{
    ASSERT(::IsWindow(m_hWnd));
    return CDC::FromHandle(::GetWindowDC(m_hWnd));
}

int CWnd::ReleaseDC(CDC* pDC)
{
    ASSERT(::IsWindow(m_hWnd));
    HDC hDC = pDC->GetSafeHdc();
    return hDC != NULL ? ::ReleaseDC(m_hWnd, hDC) : 0;
}

CDC* CWnd::BeginPaint(LPPAINTSTRUCT lpPaint)
{
    ASSERT(::IsWindow(m_hWnd));
    return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint));
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    ASSERT(::IsWindow(m_hWnd));
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont->GetSafeHandle()), bRedraw);
}

CFont* CWnd::GetFont() const
{
    ASSERT(::IsWindow(m_hWnd));
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}
