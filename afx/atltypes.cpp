#include <atltypes.h>

namespace
{
bool IsEmpty(LPCRECT lpRect)
{
    return CRect(lpRect).IsRectEmpty() != FALSE;
}

int Min(LONG a, LONG b)
{
    return a < b ? a : b;
}

int Max(LONG a, LONG b)
{
    return a > b ? a : b;
}
} // namespace

BOOL CRect::PtInRect(POINT point) const
{
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
}

void CRect::CopyRect(LPCRECT lpSrcRect)
{
    if (lpSrcRect == NULL)
        SetRectEmpty();
    else
        SetRect(lpSrcRect->left, lpSrcRect->top, lpSrcRect->right, lpSrcRect->bottom);
}

BOOL CRect::EqualRect(LPCRECT lpRect) const
{
    return lpRect != NULL && left == lpRect->left && top == lpRect->top && right == lpRect->right &&
           bottom == lpRect->bottom;
}

void CRect::NormalizeRect()
{
    if (left > right)
    {
        LONG t = left;
        left = right;
        right = t;
    }
    if (top > bottom)
    {
        LONG t = top;
        top = bottom;
        bottom = t;
    }
}

BOOL CRect::IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2)
{
    if (lpRect1 == NULL || lpRect2 == NULL || IsEmpty(lpRect1) || IsEmpty(lpRect2))
    {
        SetRectEmpty();
        return FALSE;
    }
    CRect result(Max(lpRect1->left, lpRect2->left), Max(lpRect1->top, lpRect2->top),
                 Min(lpRect1->right, lpRect2->right), Min(lpRect1->bottom, lpRect2->bottom));
    if (result.IsRectEmpty())
    {
        SetRectEmpty();
        return FALSE;
    }
    *this = result;
    return TRUE;
}

BOOL CRect::UnionRect(LPCRECT lpRect1, LPCRECT lpRect2)
{
    bool bEmpty1 = lpRect1 == NULL || IsEmpty(lpRect1);
    bool bEmpty2 = lpRect2 == NULL || IsEmpty(lpRect2);
    if (bEmpty1 && bEmpty2)
    {
        SetRectEmpty();
        return FALSE;
    }
    if (bEmpty1 || bEmpty2)
    {
        CopyRect(bEmpty1 ? lpRect2 : lpRect1);
        return TRUE;
    }
    CRect result(Min(lpRect1->left, lpRect2->left), Min(lpRect1->top, lpRect2->top),
                 Max(lpRect1->right, lpRect2->right), Max(lpRect1->bottom, lpRect2->bottom));
    *this = result;
    return TRUE;
}

// As SubtractRect: the result is smaller only when the second rectangle covers the first
// completely in one direction, so that what is left is still a rectangle.
BOOL CRect::SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2)
{
    if (lpRectSrc1 == NULL || IsEmpty(lpRectSrc1))
    {
        SetRectEmpty();
        return FALSE;
    }
    CRect result(lpRectSrc1);
    CRect overlap;
    if (lpRectSrc2 != NULL && overlap.IntersectRect(lpRectSrc1, lpRectSrc2))
    {
        if (overlap.top == result.top && overlap.bottom == result.bottom)
        {
            if (overlap.left == result.left)
                result.left = overlap.right;
            else if (overlap.right == result.right)
                result.right = overlap.left;
        }
        else if (overlap.left == result.left && overlap.right == result.right)
        {
            if (overlap.top == result.top)
                result.top = overlap.bottom;
            else if (overlap.bottom == result.bottom)
                result.bottom = overlap.top;
        }
    }
    if (result.IsRectEmpty())
    {
        SetRectEmpty();
        return FALSE;
    }
    *this = result;
    return TRUE;
}
