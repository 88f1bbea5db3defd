// The shared grid workload: 1,000,000 rows of 10 plain ASCII cells, defined so exactly that
// other toolkits' grids can be loaded with the same rows and the figures compared. Every cell
// is computed from its row index with integer code alone (no printf, no random numbers), fast
// enough to be part of a timed fill.
#pragma once

#include <cstddef>
#include <cstdint>

class CGridWorkload
{
public:
    static const int ROWS = 1000000;
    static const int COLS = 10;
    static const int MAX_CELL_LEN = 11; // bytes, without the terminating zero

    // Writes the text of cell (nRow, nCol) with its terminating zero into pszBuf, which holds at
    // least MAX_CELL_LEN + 1 bytes; returns the text's length. A cell outside the workload gives
    // an empty text and -1.
    static int FormatCell(int nRow, int nCol, char* pszBuf);

    // Writes the first nRows rows as TSV to pfnSink, in pieces of at most 64 KiB: cells joined by
    // one TAB, every row ended by one LF, no header. Returns the number of bytes written. The
    // whole table is the published table file: BYTES_WHOLE_TABLE bytes with the SHA-256
    // SHA256_WHOLE_TABLE (lower-case hex).
    typedef void (*PFNTSVSINK)(const char* pData, size_t nBytes, void* pContext);
    static uint64_t WriteTsv(int nRows, PFNTSVSINK pfnSink, void* pContext);

    static const uint64_t BYTES_WHOLE_TABLE = 75729283u;
    static const char SHA256_WHOLE_TABLE[65];
};
