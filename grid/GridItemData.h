// CGridList::CItemData, the record of one grid row, with the stores its memory comes from:
// CGridList::CBlockPool for the records and their text-slot arrays, and CGridList::CTextPool for
// the cell texts.
#pragma once

#include "grid/GridList.h"

// The record of a row: eleven slots, each per-column array allocated on the first write of its
// kind and freed with the record. Records and their text-slot arrays are blocks of the grid's
// block pools, and texts live in its text pool: a million filled rows are not two million heap
// blocks.
class AFX_EXT_CLASS CGridList::CItemData
{
public:
    // A cell's text buffer: its capacity (0 for none) and where it lies in the pool.
    struct CTextSlot
    {
        UINT nCapacity;
        UINT nOffset;
    };

    CItemData();
    // Frees every array, giving the texts and the text slots back to their pools.
    void Free(CTextPool& texts, CBlockPool& slots, int nCols);
    // Frees the arrays that come from the heap, those of kinds 1 to 9.
    void FreeArrays();

    // Each returns the array, allocating it filled with its "none" value; null when out of memory.
    // The text slots are a block of the pool, whose blocks hold a slot per column.
    CTextSlot* EnsureTexts(CBlockPool& slots, int nCols);
    DWORD* EnsureItemData(int nCols) { return EnsureArray(m_pItemData, nCols, DWORD(0xFFFFFFFF)); }
    DWORD* EnsureStates(int nCols) { return EnsureArray(m_pStates, nCols, DWORD(0)); }
    DWORD* EnsureFormats(int nCols) { return EnsureArray(m_pFormats, nCols, DWORD(0xFFFFFFFF)); }
    COLORREF* EnsureTextColors(int nCols) { return EnsureArray(m_pTextColors, nCols, COLORREF(0xFFFFFFFF)); }
    COLORREF* EnsureTextBkColors(int nCols) { return EnsureArray(m_pTextBkColors, nCols, COLORREF(0xFFFFFFFF)); }
    COLORREF* EnsureBkColors(int nCols) { return EnsureArray(m_pBkColors, nCols, COLORREF(0xFFFFFFFF)); }
    int* EnsureImages(int nCols) { return EnsureArray(m_pImages, nCols, -1); }
    DWORD* EnsureEditIcons(int nCols) { return EnsureArray(m_pEditIcons, nCols, DWORD(0xFFFF)); }
    short* EnsureEditIconTypes(int nCols) { return EnsureArray(m_pEditIconTypes, nCols, short(-1)); }

    CTextSlot* m_pTexts;        // 0
    DWORD* m_pItemData;         // 1
    DWORD* m_pStates;           // 2
    DWORD* m_pFormats;          // 3: low word own format, high word draw format and placement
    COLORREF* m_pTextColors;    // 4
    COLORREF* m_pTextBkColors;  // 5
    COLORREF* m_pBkColors;      // 6
    int* m_pImages;             // 7
    DWORD* m_pEditIcons;        // 8: low word icon, high word flag
    short* m_pEditIconTypes;    // 9
    int m_nRowTextFormat;       // 10

private:
    template <class T>
    static T* EnsureArray(T*& pArray, int nCols, T fill)
    {
        if (pArray == NULL && nCols > 0)
        {
            pArray = static_cast<T*>(malloc(sizeof(T) * static_cast<size_t>(nCols)));
            if (pArray != NULL)
                for (int i = 0; i < nCols; ++i)
                    pArray[i] = fill;
        }
        return pArray;
    }
};

#ifndef _WIN64
static_assert(sizeof(CGridList::CItemData) == 44, "the row record is eleven 32-bit slots on Win32");
#endif

// Blocks of one size for one grid, carved from 1 MiB chunks; a freed block goes to a free list
// and is reused. FreeAll gives every chunk back at once, so a grid drops its rows without
// visiting them block by block.
class AFX_EXT_CLASS CGridList::CBlockPool
{
public:
    explicit CBlockPool(size_t nBlockSize) { Reset(nBlockSize); }
    ~CBlockPool() { FreeAll(); }
    CBlockPool(const CBlockPool&) = delete;
    CBlockPool& operator=(const CBlockPool&) = delete;

    // Null when out of memory or when the blocks have no size.
    void* Alloc();
    void Free(void* pBlock);
    void FreeAll();
    // Gives every chunk back and makes the blocks nBlockSize bytes from now on.
    void Reset(size_t nBlockSize);

private:
    enum
    {
        CHUNK_SIZE = 1 << 20,
    };

    size_t m_nBlockSize = 0;
    std::vector<char*> m_arChunks;
    size_t m_nUsed = CHUNK_SIZE; // bytes used in the last chunk; full when there is none
    void* m_pFree = NULL;        // the free list, linked through the blocks' first bytes
};

// The cell texts of one grid. Buffers are carved from 1 MiB chunks that never move and are
// numbered process-wide, so that a 32-bit offset names a text of any grid and a row record alone
// leads to its texts (the sort comparators see nothing but records). A freed buffer goes to the
// free list of its size class in its grid's pool and is reused there.
class AFX_EXT_CLASS CGridList::CTextPool
{
public:
    CTextPool() {}
    ~CTextPool() { FreeAll(); }
    CTextPool(const CTextPool&) = delete;
    CTextPool& operator=(const CTextPool&) = delete;

    // A buffer of at least nSize bytes (1 to 65536): true with its offset, false when out of memory.
    bool Alloc(UINT nSize, UINT& nOffset);
    void Free(UINT nOffset, UINT nSize);
    // Gives every chunk back.
    void FreeAll();
    static char* GetAt(UINT nOffset);

private:
    enum
    {
        CHUNK_BITS = 20,
        CHUNK_SIZE = 1 << CHUNK_BITS,
        // Sizes up to 64 bytes are classes of their own, so that short texts take no more than
        // their length and terminator; larger ones go by powers of two up to 65536.
        SMALL_LIMIT = 64,
        CLASS_COUNT = SMALL_LIMIT + 10,
    };
    static UINT ClassOf(UINT nSize);
    static UINT ClassSize(UINT nClass);

    std::vector<UINT> m_arChunks; // the numbers of this pool's chunks
    UINT m_nUsed = CHUNK_SIZE;    // bytes used in the last chunk; full when there is none
    std::vector<UINT> m_arFree[CLASS_COUNT];
};

// The text of a record's cell, or an empty string.
inline LPCTSTR GetRecordText(const CGridList::CItemData* pData, int col)
{
    if (pData == NULL || pData->m_pTexts == NULL || pData->m_pTexts[col].nCapacity == 0)
        return "";
    return CGridList::CTextPool::GetAt(pData->m_pTexts[col].nOffset);
}

template <class T>
T* CGridList::GetCellSlot(int row, int col, T* (CItemData::*pfnEnsure)(int))
{
    CItemData* pData = IsValidCell(row, col) ? GetItemData(row, true) : NULL;
    T* pArray = pData == NULL ? NULL : (pData->*pfnEnsure)(m_nCols);
    return pArray == NULL ? NULL : pArray + col;
}

template <class T>
T CGridList::GetCellValue(int row, int col, T* CItemData::*pArray, T none) const
{
    CItemData* pData = IsValidCell(row, col) ? GetItemData(row, false) : NULL;
    return pData == NULL || pData->*pArray == NULL ? none : (pData->*pArray)[col];
}
