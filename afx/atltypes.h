// CPoint, CSize and CRect over the Windows POINT, SIZE and RECT structures. The rectangle
// rules are those of the Windows rectangle functions: right and bottom are exclusive, an
// empty rectangle has no width or no height, and set operations yield the all-zero
// rectangle when nothing is left.
#pragma once

#include <afxplatform.h>

class CSize;
class CRect;

class AFX_CORE_CLASS CPoint : public POINT
{
public:
    CPoint() { x = 0; y = 0; }
    CPoint(int initX, int initY) { x = initX; y = initY; }
    CPoint(POINT initPt) { x = initPt.x; y = initPt.y; }
    CPoint(SIZE initSize) { x = initSize.cx; y = initSize.cy; }

    void Offset(int xOffset, int yOffset) { x += xOffset; y += yOffset; }
    void Offset(POINT point) { Offset(point.x, point.y); }
    void SetPoint(int X, int Y) { x = X; y = Y; }

    bool operator==(POINT point) const { return x == point.x && y == point.y; }
    bool operator!=(POINT point) const { return !(*this == point); }
    void operator+=(SIZE size) { x += size.cx; y += size.cy; }
    void operator-=(SIZE size) { x -= size.cx; y -= size.cy; }
    void operator+=(POINT point) { x += point.x; y += point.y; }
    void operator-=(POINT point) { x -= point.x; y -= point.y; }
    CPoint operator+(SIZE size) const { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator-() const { return CPoint(-x, -y); }
    CPoint operator+(POINT point) const { return CPoint(x + point.x, y + point.y); }
    CSize operator-(POINT point) const;
};

class AFX_CORE_CLASS CSize : public SIZE
{
public:
    CSize() { cx = 0; cy = 0; }
    CSize(int initCX, int initCY) { cx = initCX; cy = initCY; }
    CSize(SIZE initSize) { cx = initSize.cx; cy = initSize.cy; }
    CSize(POINT initPt) { cx = initPt.x; cy = initPt.y; }

    void SetSize(int CX, int CY) { cx = CX; cy = CY; }
    bool operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
    bool operator!=(SIZE size) const { return !(*this == size); }
    void operator+=(SIZE size) { cx += size.cx; cy += size.cy; }
    void operator-=(SIZE size) { cx -= size.cx; cy -= size.cy; }
    CSize operator+(SIZE size) const { return CSize(cx + size.cx, cy + size.cy); }
    CSize operator-(SIZE size) const { return CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const { return CSize(-cx, -cy); }
};

inline CSize CPoint::operator-(POINT point) const
{
    return CSize(x - point.x, y - point.y);
}

class AFX_CORE_CLASS CRect : public RECT
{
public:
    CRect() { SetRectEmpty(); }
    CRect(int l, int t, int r, int b) { SetRect(l, t, r, b); }
    CRect(const RECT& srcRect) { CopyRect(&srcRect); }
    CRect(LPCRECT lpSrcRect) { CopyRect(lpSrcRect); }
    CRect(POINT point, SIZE size) { SetRect(point.x, point.y, point.x + size.cx, point.y + size.cy); }
    CRect(POINT topLeft, POINT bottomRight) { SetRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y); }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint& TopLeft() { return *reinterpret_cast<CPoint*>(this); }
    CPoint& BottomRight() { return *(reinterpret_cast<CPoint*>(this) + 1); }
    const CPoint& TopLeft() const { return *reinterpret_cast<const CPoint*>(this); }
    const CPoint& BottomRight() const { return *(reinterpret_cast<const CPoint*>(this) + 1); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    BOOL IsRectEmpty() const { return left >= right || top >= bottom; }
    BOOL IsRectNull() const { return left == 0 && right == 0 && top == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const;

    void SetRect(int x1, int y1, int x2, int y2) { left = x1; top = y1; right = x2; bottom = y2; }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void CopyRect(LPCRECT lpSrcRect);
    BOOL EqualRect(LPCRECT lpRect) const;

    void InflateRect(int x, int y) { InflateRect(x, y, x, y); }
    void InflateRect(SIZE size) { InflateRect(size.cx, size.cy); }
    void InflateRect(LPCRECT lpRect) { InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    void InflateRect(int l, int t, int r, int b) { left -= l; top -= t; right += r; bottom += b; }
    void DeflateRect(int x, int y) { InflateRect(-x, -y); }
    void DeflateRect(SIZE size) { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(LPCRECT lpRect) { InflateRect(-lpRect->left, -lpRect->top, -lpRect->right, -lpRect->bottom); }
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void OffsetRect(int x, int y) { left += x; right += x; top += y; bottom += y; }
    void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
    void OffsetRect(SIZE size) { OffsetRect(size.cx, size.cy); }
    void NormalizeRect();

    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2);
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2);
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2);

    void operator=(const RECT& srcRect) { CopyRect(&srcRect); }
    bool operator==(const RECT& rect) const { return EqualRect(&rect) != FALSE; }
    bool operator!=(const RECT& rect) const { return EqualRect(&rect) == FALSE; }
    void operator+=(POINT point) { OffsetRect(point); }
    void operator+=(SIZE size) { OffsetRect(size); }
    void operator+=(LPCRECT lpRect) { InflateRect(lpRect); }
    void operator-=(POINT point) { OffsetRect(-point.x, -point.y); }
    void operator-=(SIZE size) { OffsetRect(-size.cx, -size.cy); }
    void operator-=(LPCRECT lpRect) { DeflateRect(lpRect); }
    void operator&=(const RECT& rect) { IntersectRect(this, &rect); }
    void operator|=(const RECT& rect) { UnionRect(this, &rect); }
    CRect operator+(POINT point) const { CRect rect(*this); rect.OffsetRect(point); return rect; }
    CRect operator-(POINT point) const { CRect rect(*this); rect.OffsetRect(-point.x, -point.y); return rect; }
    CRect operator+(SIZE size) const { CRect rect(*this); rect.OffsetRect(size); return rect; }
    CRect operator-(SIZE size) const { CRect rect(*this); rect.OffsetRect(-size.cx, -size.cy); return rect; }
    CRect operator&(const RECT& rect2) const { CRect rect; rect.IntersectRect(this, &rect2); return rect; }
    CRect operator|(const RECT& rect2) const { CRect rect; rect.UnionRect(this, &rect2); return rect; }
};
