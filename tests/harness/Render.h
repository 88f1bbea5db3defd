// CWindowImage: what a window shows on screen, as 32-bit pixels, for tests of painting.
//
// Capture copies the window's pixels from its own device context after the pending painting
// is done (RedrawWindow with RDW_UPDATENOW | RDW_ALLCHILDREN), children included. Printing
// the window was tried and dropped: under Wine, PrintWindow and WM_PRINT (PRF_CLIENT |
// PRF_NONCLIENT | PRF_CHILDREN | PRF_ERASEBKGND) draw nothing of a window that paints in
// WM_PAINT through BeginPaint (it gets WM_PRINTCLIENT, which such windows ignore), nothing of
// the frame and nothing of the children, though they report success. Reading the window's DC
// works for a window that is covered by others, but not for the parts outside the screen, so
// keep windows under test on the screen (CNotifyRecorder places its window at (20, 20)). A
// hidden window is shown without activation for the capture and hidden again.
#pragma once

#include <windows.h>

#include <vector>

class CWindowImage
{
public:
    CWindowImage() : m_nWidth(0), m_nHeight(0) {}

    // The client area, or with bWholeWindow the whole window, frame included; pixel (0, 0) is
    // the top-left corner of that area. Returns FALSE (leaving an empty image) on failure.
    BOOL Capture(HWND hWnd, bool bWholeWindow = false);

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    // CLR_INVALID outside the image.
    COLORREF GetPixel(int x, int y) const;
    // Pixels of exactly this colour in the rectangle (clipped to the image).
    int CountPixels(COLORREF clr, const RECT& rc) const;
    // A 32-bit top-down BMP file, to look at when a test fails.
    BOOL SaveBmp(const char* pszPath) const;

private:
    int m_nWidth;
    int m_nHeight;
    std::vector<DWORD> m_pixels; // 0x00RRGGBB, rows from the top
};
