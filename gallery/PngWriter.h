// Writes 8-bit RGB images as PNG files. The image data goes into stored (uncompressed)
// deflate blocks, which every PNG reader accepts: the files are larger, the writer small.
#pragma once

#include <afx.h>

class CPngWriter
{
public:
    // pRgb holds nHeight rows from the top, each of nWidth pixels of red, green and blue.
    // FALSE when the size is not positive or the file cannot be written.
    static BOOL WriteRgb(LPCTSTR lpszPath, int nWidth, int nHeight, const BYTE* pRgb);
};
