// Device contexts and GDI objects, as in MFC: CDC and its window forms (CPaintDC, CClientDC,
// CWindowDC), CGdiObject and CPen, CBrush, CFont, CBitmap, CRgn.
//
// Handles without a permanent object get a temporary one from FromHandle, deleted by
// AfxDeleteTempMaps at idle time; so a pointer returned by SelectObject or GetCurrentFont is
// valid only until then. A CDC writes output to m_hDC and queries attributes from m_hAttribDC;
// setting an attribute sets it in both when they differ.
#pragma once

#include <afxwnd.h>

class CGdiObject;
class CPen;
class CBrush;
class CFont;
class CBitmap;
class CRgn;

class AFX_CORE_CLASS CGdiObject : public CObject
{
    DECLARE_DYNCREATE(CGdiObject)
public:
    CGdiObject();
    // Deletes the object it holds; a stock object is left alone by the system.
    ~CGdiObject() override;

    HGDIOBJ m_hObject;
    operator HGDIOBJ() const { return m_hObject; }
    HGDIOBJ GetSafeHandle() const
    {
        const CGdiObject* pThis = AfxNullableThis(this);
        return pThis == NULL ? NULL : pThis->m_hObject;
    }

    // The object of a handle: the permanent one, else a temporary one of the handle's kind
    // (a CPen for a pen, a CFont for a font, ...).
    static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();

    BOOL DeleteObject();
    int GetObject(int nCount, LPVOID lpObject) const;
    UINT GetObjectType() const { return ::GetObjectType(m_hObject); }
    // The Create functions fail, creating nothing, when the object already holds a handle.
    BOOL CreateStockObject(int nIndex);
};

class AFX_CORE_CLASS CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)
public:
    CPen() {}
    // Leaves the object empty when the pen cannot be made.
    CPen(int nPenStyle, int nWidth, COLORREF crColor);

    static CPen* PASCAL FromHandle(HPEN hPen) { return static_cast<CPen*>(CGdiObject::FromHandle(hPen)); }
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }

    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
    int GetLogPen(LOGPEN* pLogPen) const { return GetObject(sizeof(LOGPEN), pLogPen); }
};

class AFX_CORE_CLASS CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)
public:
    CBrush() {}
    // A solid brush; the object stays empty when it cannot be made.
    explicit CBrush(COLORREF crColor);

    static CBrush* PASCAL FromHandle(HBRUSH hBrush) { return static_cast<CBrush*>(CGdiObject::FromHandle(hBrush)); }
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }

    BOOL CreateSolidBrush(COLORREF crColor);
    // The system's brush of a system colour, shared and never really deleted.
    BOOL CreateSysColorBrush(int nIndex);
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor);
    BOOL CreatePatternBrush(CBitmap* pBitmap);
    int GetLogBrush(LOGBRUSH* pLogBrush) const { return GetObject(sizeof(LOGBRUSH), pLogBrush); }
};

class CDC;

class AFX_CORE_CLASS CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)
public:
    static CFont* PASCAL FromHandle(HFONT hFont) { return static_cast<CFont*>(CGdiObject::FromHandle(hFont)); }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }

    BOOL CreateFontIndirect(const LOGFONT* lpLogFont);
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    // nPointSize in tenths of a point, converted to logical units of pDC (of the screen when
    // pDC is null).
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);
    // As CreateFontIndirect, with lfHeight in tenths of a point.
    BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = NULL);
    int GetLogFont(LOGFONT* pLogFont) const { return GetObject(sizeof(LOGFONT), pLogFont); }
};

class AFX_CORE_CLASS CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)
public:
    static CBitmap* PASCAL FromHandle(HBITMAP hBitmap)
    {
        return static_cast<CBitmap*>(CGdiObject::FromHandle(hBitmap));
    }
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }

    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits);
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    // From the resource chain (AfxFindResourceHandle).
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCEA(nIDResource)); }
    int GetBitmap(BITMAP* pBitMap) const { return GetObject(sizeof(BITMAP), pBitMap); }
};

class AFX_CORE_CLASS CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)
public:
    static CRgn* PASCAL FromHandle(HRGN hRgn) { return static_cast<CRgn*>(CGdiObject::FromHandle(hRgn)); }
    operator HRGN() const { return static_cast<HRGN>(m_hObject); }

    BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
    BOOL CreateRectRgnIndirect(LPCRECT lpRect);
    // Sets this (existing) region to the combination of the two; returns the region type.
    int CombineRgn(CRgn* pRgn1, CRgn* pRgn2, int nCombineMode);
    BOOL PtInRegion(int x, int y) const { ASSERT(m_hObject != NULL); return ::PtInRegion(static_cast<HRGN>(m_hObject), x, y); }
    BOOL PtInRegion(POINT point) const { return PtInRegion(point.x, point.y); }
};

class AFX_CORE_CLASS CDC : public CObject
{
    DECLARE_DYNCREATE(CDC)
public:
    CDC();
    // Deletes a device context it created or attached; the window forms release theirs.
    ~CDC() override;

    HDC m_hDC;       // where output goes
    HDC m_hAttribDC; // what attribute queries read
    BOOL m_bPrinting;

    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const
    {
        const CDC* pThis = AfxNullableThis(this);
        return pThis == NULL ? NULL : pThis->m_hDC;
    }
    BOOL IsPrinting() const { return m_bPrinting; }

    static CDC* PASCAL FromHandle(HDC hDC);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HDC hDC);
    HDC Detach();
    void SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }
    void SetOutputDC(HDC hDC) { m_hDC = hDC; }

    BOOL CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData);
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL DeleteDC();
    int SaveDC();
    BOOL RestoreDC(int nSavedDC);
    int GetDeviceCaps(int nIndex) const { ASSERT(m_hAttribDC != NULL); return ::GetDeviceCaps(m_hAttribDC, nIndex); }

    // Selection: each returns the object selected before (possibly temporary), or NULL.
    CGdiObject* SelectStockObject(int nIndex);
    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    CGdiObject* SelectObject(CGdiObject* pObject);
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;

    // Attributes
    COLORREF GetTextColor() const { ASSERT(m_hAttribDC != NULL); return ::GetTextColor(m_hAttribDC); }
    COLORREF SetTextColor(COLORREF crColor);
    COLORREF GetBkColor() const { ASSERT(m_hAttribDC != NULL); return ::GetBkColor(m_hAttribDC); }
    COLORREF SetBkColor(COLORREF crColor);
    int GetBkMode() const { ASSERT(m_hAttribDC != NULL); return ::GetBkMode(m_hAttribDC); }
    int SetBkMode(int nBkMode);
    UINT GetTextAlign() const { ASSERT(m_hAttribDC != NULL); return ::GetTextAlign(m_hAttribDC); }
    UINT SetTextAlign(UINT nFlags);
    int GetROP2() const { ASSERT(m_hAttribDC != NULL); return ::GetROP2(m_hAttribDC); }
    int SetROP2(int nDrawMode);

    // Mapping
    int GetMapMode() const { ASSERT(m_hAttribDC != NULL); return ::GetMapMode(m_hAttribDC); }
    int SetMapMode(int nMapMode);
    CPoint GetViewportOrg() const;
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    CPoint GetWindowOrg() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    void LPtoDP(LPPOINT lpPoints, int nCount = 1) const { ASSERT(m_hAttribDC != NULL); ::LPtoDP(m_hAttribDC, lpPoints, nCount); }
    void LPtoDP(LPRECT lpRect) const { LPtoDP(reinterpret_cast<LPPOINT>(lpRect), 2); }
    // A size is scaled by the magnitudes of the extents, so it keeps its sign whichever way
    // the axes run.
    void LPtoDP(LPSIZE lpSize) const;
    void DPtoLP(LPPOINT lpPoints, int nCount = 1) const { ASSERT(m_hAttribDC != NULL); ::DPtoLP(m_hAttribDC, lpPoints, nCount); }
    void DPtoLP(LPRECT lpRect) const { DPtoLP(reinterpret_cast<LPPOINT>(lpRect), 2); }
    void DPtoLP(LPSIZE lpSize) const;

    // Clipping
    int GetClipBox(LPRECT lpRect) const { ASSERT(m_hDC != NULL); return ::GetClipBox(m_hDC, lpRect); }
    int SelectClipRgn(CRgn* pRgn);
    int SelectClipRgn(CRgn* pRgn, int nMode);
    int IntersectClipRect(int x1, int y1, int x2, int y2);
    int IntersectClipRect(LPCRECT lpRect) { return IntersectClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    int ExcludeClipRect(int x1, int y1, int x2, int y2);
    int ExcludeClipRect(LPCRECT lpRect) { return ExcludeClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }

    // Text
    BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount);
    BOOL TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount, LPINT lpDxWidths);
    BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, const CString& str, LPINT lpDxWidths)
    {
        return ExtTextOut(x, y, nOptions, lpRect, str, static_cast<UINT>(str.GetLength()), lpDxWidths);
    }
    // nCount -1: the text up to its terminator.
    int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat);
    // DT_MODIFYSTRING is ignored here: the string's characters may be shared with other strings.
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
    // Measured in the attribute DC; GetOutputTextExtent measures in the output DC.
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }
    CSize GetOutputTextExtent(LPCTSTR lpszString, int nCount) const;
    CSize GetOutputTextExtent(const CString& str) const { return GetOutputTextExtent(str, str.GetLength()); }
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const { ASSERT(m_hAttribDC != NULL); return ::GetTextMetricsA(m_hAttribDC, lpMetrics); }
    BOOL GetCharWidth(UINT nFirstChar, UINT nLastChar, LPINT lpBuffer) const
    {
        ASSERT(m_hAttribDC != NULL);
        return ::GetCharWidthA(m_hAttribDC, nFirstChar, nLastChar, lpBuffer);
    }

    // Rectangles and frames
    void FillRect(LPCRECT lpRect, CBrush* pBrush) { ASSERT(m_hDC != NULL); ::FillRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle())); }
    // Paints through ExtTextOut with ETO_OPAQUE, so the output DC keeps crColor as its
    // background colour afterwards; callers rely on that.
    void FillSolidRect(LPCRECT lpRect, COLORREF crColor);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF crColor);
    void FrameRect(LPCRECT lpRect, CBrush* pBrush) { ASSERT(m_hDC != NULL); ::FrameRect(m_hDC, lpRect, static_cast<HBRUSH>(pBrush->GetSafeHandle())); }
    void InvertRect(LPCRECT lpRect) { ASSERT(m_hDC != NULL); ::InvertRect(m_hDC, lpRect); }
    // Top and left edges in clrTopLeft, right and bottom edges in clrBottomRight; the top-right
    // and bottom-left corner pixels belong to the right and bottom edges.
    void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
    void Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight);
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { ASSERT(m_hDC != NULL); return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }
    BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState) { ASSERT(m_hDC != NULL); return ::DrawFrameControl(m_hDC, lpRect, nType, nState); }
    void DrawFocusRect(LPCRECT lpRect) { ASSERT(m_hDC != NULL); ::DrawFocusRect(m_hDC, lpRect); }
    BOOL DrawIcon(int x, int y, HICON hIcon) { ASSERT(m_hDC != NULL); return ::DrawIcon(m_hDC, x, y, hIcon); }
    BOOL DrawIcon(POINT point, HICON hIcon) { return DrawIcon(point.x, point.y, hIcon); }

    // Shapes and lines
    BOOL Rectangle(int x1, int y1, int x2, int y2) { ASSERT(m_hDC != NULL); return ::Rectangle(m_hDC, x1, y1, x2, y2); }
    BOOL Rectangle(LPCRECT lpRect) { return Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3) { ASSERT(m_hDC != NULL); return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3); }
    BOOL RoundRect(LPCRECT lpRect, POINT point)
    {
        return RoundRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, point.x, point.y);
    }
    BOOL Ellipse(int x1, int y1, int x2, int y2) { ASSERT(m_hDC != NULL); return ::Ellipse(m_hDC, x1, y1, x2, y2); }
    BOOL Ellipse(LPCRECT lpRect) { return Ellipse(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    BOOL Polygon(const POINT* lpPoints, int nCount) { ASSERT(m_hDC != NULL); return ::Polygon(m_hDC, lpPoints, nCount); }
    BOOL Polyline(const POINT* lpPoints, int nCount) { ASSERT(m_hDC != NULL); return ::Polyline(m_hDC, lpPoints, nCount); }
    // Returns the previous current position.
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    COLORREF SetPixel(int x, int y, COLORREF crColor) { ASSERT(m_hDC != NULL); return ::SetPixel(m_hDC, x, y, crColor); }
    COLORREF SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }
    COLORREF GetPixel(int x, int y) const { ASSERT(m_hDC != NULL); return ::GetPixel(m_hDC, x, y); }
    COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }

    // Bit blocks
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
    {
        ASSERT(m_hDC != NULL);
        return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, dwRop);
    }
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop)
    {
        ASSERT(m_hDC != NULL);
        return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->GetSafeHdc(), xSrc, ySrc, nSrcWidth, nSrcHeight,
                            dwRop);
    }
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop) { ASSERT(m_hDC != NULL); return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop); }

private:
    // Selects a handle into both DCs; the handle selected before in the attribute DC.
    HGDIOBJ SelectHandle(HGDIOBJ hObject);
};

// The DC of a window's WM_PAINT: BeginPaint in the constructor, EndPaint in the destructor.
class AFX_CORE_CLASS CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)
public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

protected:
    HWND m_hWnd;
};

// The DC of a window's client area (of the screen for a null window), released when destroyed.
class AFX_CORE_CLASS CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)
public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd;
};

// The DC of a whole window, frame included, released when destroyed.
class AFX_CORE_CLASS CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)
public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};
