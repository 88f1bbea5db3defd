#include "gallery/PngWriter.h"

#include <stdio.h>

#include <vector>

namespace
{
typedef std::vector<BYTE> CByteBuffer;

const BYTE PNG_SIGNATURE[8] = {137, 'P', 'N', 'G', '\r', '\n', 26, '\n'};
const size_t MAX_STORED_BLOCK = 65535; // a stored block's length is 16-bit
const BYTE COLOR_TYPE_RGB = 2;
const BYTE FILTER_NONE = 0;

// The CRC-32 of the chunks.
DWORD Crc32(const BYTE* pData, size_t nLength)
{
    static DWORD s_adwTable[256];
    static bool s_bTableMade = false;
    if (!s_bTableMade)
    {
        for (DWORD n = 0; n < 256; ++n)
        {
            DWORD c = n;
            for (int k = 0; k < 8; ++k)
                c = (c & 1) != 0 ? 0xEDB88320UL ^ (c >> 1) : c >> 1;
            s_adwTable[n] = c;
        }
        s_bTableMade = true;
    }
    DWORD dwCrc = 0xFFFFFFFFUL;
    for (size_t i = 0; i < nLength; ++i)
        dwCrc = s_adwTable[(dwCrc ^ pData[i]) & 0xFF] ^ (dwCrc >> 8);
    return ~dwCrc;
}

// The Adler-32 that ends the zlib stream.
DWORD Adler32(const BYTE* pData, size_t nLength)
{
    const DWORD BASE = 65521;
    DWORD a = 1;
    DWORD b = 0;
    for (size_t i = 0; i < nLength; ++i)
    {
        a = (a + pData[i]) % BASE;
        b = (b + a) % BASE;
    }
    return b << 16 | a;
}

// PNG numbers are big-endian.
void AppendDword(CByteBuffer& buffer, DWORD dw)
{
    buffer.push_back(static_cast<BYTE>(dw >> 24));
    buffer.push_back(static_cast<BYTE>(dw >> 16));
    buffer.push_back(static_cast<BYTE>(dw >> 8));
    buffer.push_back(static_cast<BYTE>(dw));
}

// Deflate's numbers are little-endian.
void AppendWordLE(CByteBuffer& buffer, WORD w)
{
    buffer.push_back(static_cast<BYTE>(w));
    buffer.push_back(static_cast<BYTE>(w >> 8));
}

// Length, type, data, and the CRC of type and data.
void AppendChunk(CByteBuffer& file, const char* pszType, const CByteBuffer& data)
{
    AppendDword(file, static_cast<DWORD>(data.size()));
    size_t nStart = file.size();
    file.insert(file.end(), pszType, pszType + 4);
    file.insert(file.end(), data.begin(), data.end());
    AppendDword(file, Crc32(&file[nStart], file.size() - nStart));
}

// A zlib stream of stored deflate blocks: header (deflate, 32K window, no dictionary, a check
// that makes the two bytes a multiple of 31), the blocks, and the Adler-32 of the data.
CByteBuffer StoreInZlibStream(const CByteBuffer& data)
{
    CByteBuffer stream;
    stream.reserve(data.size() + data.size() / MAX_STORED_BLOCK * 5 + 16);
    stream.push_back(0x78);
    stream.push_back(0x01);
    size_t nPos = 0;
    do
    {
        size_t nLength = data.size() - nPos < MAX_STORED_BLOCK ? data.size() - nPos : MAX_STORED_BLOCK;
        bool bFinal = nPos + nLength == data.size();
        stream.push_back(bFinal ? 1 : 0); // BFINAL, and BTYPE 00: stored
        AppendWordLE(stream, static_cast<WORD>(nLength));
        AppendWordLE(stream, static_cast<WORD>(~nLength));
        stream.insert(stream.end(), data.begin() + nPos, data.begin() + nPos + nLength);
        nPos += nLength;
    } while (nPos < data.size());
    AppendDword(stream, Adler32(data.data(), data.size()));
    return stream;
}
} // namespace

BOOL CPngWriter::WriteRgb(LPCTSTR lpszPath, int nWidth, int nHeight, const BYTE* pRgb)
{
    // The raw data must fit one IDAT chunk, whose length is below 2^31.
    if (lpszPath == NULL || pRgb == NULL || nWidth <= 0 || nHeight <= 0 ||
        (static_cast<unsigned long long>(nWidth) * 3 + 1) * static_cast<unsigned long long>(nHeight) > 0x7FFF0000ULL)
        return FALSE;

    const size_t nRowBytes = static_cast<size_t>(nWidth) * 3;
    CByteBuffer raw;
    raw.reserve((nRowBytes + 1) * nHeight);
    for (int y = 0; y < nHeight; ++y)
    {
        const BYTE* pRow = pRgb + nRowBytes * y;
        raw.push_back(FILTER_NONE);
        raw.insert(raw.end(), pRow, pRow + nRowBytes);
    }

    CByteBuffer header;
    AppendDword(header, static_cast<DWORD>(nWidth));
    AppendDword(header, static_cast<DWORD>(nHeight));
    header.push_back(8); // bits per sample
    header.push_back(COLOR_TYPE_RGB);
    header.push_back(0); // compression: deflate
    header.push_back(0); // filter method: adaptive
    header.push_back(0); // no interlace

    CByteBuffer file(PNG_SIGNATURE, PNG_SIGNATURE + sizeof(PNG_SIGNATURE));
    AppendChunk(file, "IHDR", header);
    AppendChunk(file, "IDAT", StoreInZlibStream(raw));
    AppendChunk(file, "IEND", CByteBuffer());

    FILE* pFile = fopen(lpszPath, "wb");
    if (pFile == NULL)
        return FALSE;
    bool bWritten = fwrite(file.data(), 1, file.size(), pFile) == file.size();
    return fclose(pFile) == 0 && bWritten;
}
