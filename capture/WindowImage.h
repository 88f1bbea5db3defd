// CWindowImage: 32-bit pixels to read back exactly: what a window shows, or a blank canvas that
// a test paints into; saved as PNG files through the system's imaging component (WIC).
//
// Capture copies the window's client area from its own device context once the pending
// painting is done (RedrawWindow with RDW_UPDATENOW | RDW_ALLCHILDREN), children included.
// Printing the window instead does not work under Wine: PrintWindow and WM_PRINT draw nothing
// of a window that paints through BeginPaint, nor of its children, though they report success.
// Reading the window's DC works for a window covered by others, but not for parts outside the
// screen, so keep windows to capture on it. A hidden window is shown without activation for
// the capture and hidden again. The frame is not captured: under Wine it belongs to the window
// manager, and without one (Xvfb) it reads as black.
#pragma once

#include <windows.h>

class CWindowImage
{
public:
    CWindowImage();
    ~CWindowImage();
    CWindowImage(const CWindowImage&) = delete;
    CWindowImage& operator=(const CWindowImage&) = delete;

    // Pixel (0, 0) is the client area's top-left corner. FALSE, leaving an empty image, for a
    // bad window or an empty client area.
    BOOL Capture(HWND hWnd);
    // A canvas of cx by cy pixels filled with the colour, to paint into through GetDC().
    BOOL CreateCanvas(int cx, int cy, COLORREF clrFill);
    // A memory DC with the image selected, null while the image is empty.
    HDC GetDC() const { return m_hdc; }

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    // CLR_INVALID outside the image.
    COLORREF GetPixel(int x, int y) const;
    // Pixels of exactly this colour in the rectangle (clipped to the image).
    int CountPixels(COLORREF clr, const RECT& rc) const;

    // An 8-bit RGB PNG file; FALSE for an empty image or when it cannot be written.
    BOOL SavePng(LPCSTR pszPath) const;

private:
    BOOL CreateImage(int cx, int cy);
    void Destroy();
    // 0x00RRGGBB, as the DIB holds it, once the system's drawing has reached the bits.
    DWORD PixelAt(int x, int y) const;

    HDC m_hdc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hOldBitmap;
    const DWORD* m_pBits; // rows from the top
    int m_nWidth;
    int m_nHeight;
};
