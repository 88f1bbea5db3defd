#include "tests/harness/Render.h"

#include <stdio.h>

namespace
{
DWORD ToPixel(COLORREF clr)
{
    return static_cast<DWORD>(GetRValue(clr)) << 16 | static_cast<DWORD>(GetGValue(clr)) << 8 | GetBValue(clr);
}

BITMAPINFOHEADER TopDownHeader(int nWidth, int nHeight)
{
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof(header);
    header.biWidth = nWidth;
    header.biHeight = -nHeight;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    return header;
}
} // namespace

BOOL CWindowImage::Capture(HWND hWnd, bool bWholeWindow)
{
    m_nWidth = m_nHeight = 0;
    m_pixels.clear();
    if (!IsWindow(hWnd))
        return FALSE;

    HWND hWndTop = GetAncestor(hWnd, GA_ROOT);
    bool bShown = !IsWindowVisible(hWndTop);
    if (bShown)
        ShowWindow(hWndTop, SW_SHOWNOACTIVATE);
    RedrawWindow(hWndTop, NULL, NULL, RDW_UPDATENOW | RDW_ALLCHILDREN);

    RECT rc;
    if (bWholeWindow)
    {
        GetWindowRect(hWnd, &rc);
        OffsetRect(&rc, -rc.left, -rc.top);
    }
    else
    {
        GetClientRect(hWnd, &rc);
    }

    BOOL bOk = FALSE;
    BITMAPINFO info = {};
    info.bmiHeader = TopDownHeader(rc.right, rc.bottom);
    void* pBits = NULL;
    HBITMAP hBitmap = rc.right > 0 && rc.bottom > 0
                          ? CreateDIBSection(NULL, &info, DIB_RGB_COLORS, &pBits, NULL, 0)
                          : NULL;
    if (hBitmap != NULL)
    {
        HDC hdcWindow = bWholeWindow ? GetWindowDC(hWnd) : GetDC(hWnd);
        HDC hdcImage = CreateCompatibleDC(hdcWindow);
        HGDIOBJ hOld = SelectObject(hdcImage, hBitmap);
        bOk = BitBlt(hdcImage, 0, 0, rc.right, rc.bottom, hdcWindow, 0, 0, SRCCOPY);
        GdiFlush();
        if (bOk)
        {
            m_nWidth = rc.right;
            m_nHeight = rc.bottom;
            const DWORD* pPixels = static_cast<const DWORD*>(pBits);
            m_pixels.assign(pPixels, pPixels + m_nWidth * m_nHeight);
            for (DWORD& dwPixel : m_pixels)
                dwPixel &= 0xFFFFFF;
        }
        SelectObject(hdcImage, hOld);
        DeleteDC(hdcImage);
        ReleaseDC(hWnd, hdcWindow);
        DeleteObject(hBitmap);
    }

    if (bShown)
        ShowWindow(hWndTop, SW_HIDE);
    return bOk;
}

COLORREF CWindowImage::GetPixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        return CLR_INVALID;
    DWORD dwPixel = m_pixels[y * m_nWidth + x];
    return RGB(dwPixel >> 16 & 0xFF, dwPixel >> 8 & 0xFF, dwPixel & 0xFF);
}

int CWindowImage::CountPixels(COLORREF clr, const RECT& rc) const
{
    RECT rcImage = {0, 0, m_nWidth, m_nHeight};
    RECT rcCount;
    if (!IntersectRect(&rcCount, &rc, &rcImage))
        return 0;
    DWORD dwWanted = ToPixel(clr);
    int nCount = 0;
    for (int y = rcCount.top; y < rcCount.bottom; ++y)
    {
        for (int x = rcCount.left; x < rcCount.right; ++x)
        {
            if (m_pixels[y * m_nWidth + x] == dwWanted)
                ++nCount;
        }
    }
    return nCount;
}

BOOL CWindowImage::SaveBmp(const char* pszPath) const
{
    FILE* pFile = fopen(pszPath, "wb");
    if (pFile == NULL)
        return FALSE;
    BITMAPINFOHEADER header = TopDownHeader(m_nWidth, m_nHeight);
    DWORD cbPixels = static_cast<DWORD>(m_pixels.size() * sizeof(DWORD));
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42; // "BM"
    file.bfOffBits = sizeof(file) + sizeof(header);
    file.bfSize = file.bfOffBits + cbPixels;
    bool bOk = fwrite(&file, sizeof(file), 1, pFile) == 1 && fwrite(&header, sizeof(header), 1, pFile) == 1 &&
               (cbPixels == 0 || fwrite(m_pixels.data(), cbPixels, 1, pFile) == 1);
    return fclose(pFile) == 0 && bOk;
}
