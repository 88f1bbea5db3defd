// The shared grid workload: 1,000,000 rows of 10 plain ASCII cells, defined so exactly that
// other toolkits' grids can be loaded with the same rows and the figures compared. Every cell
// is computed from its row index with integer code alone (no printf, no random numbers), fast
// enough to be part of a timed fill.
#pragma once

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

    // Size in bytes and FNV-1a 64 hash of the first nRows rows written as TSV: cells joined by
    // one TAB, every row ended by one LF, no header. The whole table gives BYTES_WHOLE_TABLE
    // and FNV_WHOLE_TABLE: those of the published table file, whose SHA-256 is
    // 03b613070c79eb72831f942dc8d08afb8fa1eb46de004bad714e54e2115697b6.
    struct CTsvDigest
    {
        uint64_t nBytes;
        uint64_t nFnv1a;
    };
    static CTsvDigest DigestTsv(int nRows);

    static const uint64_t BYTES_WHOLE_TABLE = 75729283u;
    static const uint64_t FNV_WHOLE_TABLE = 0x3169e645dbb1d577u;
};
