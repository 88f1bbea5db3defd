#include "grid/GridList.h"

CGridList::CItemData::CItemData()
    : m_pTexts(NULL), m_pItemData(NULL), m_pStates(NULL), m_pFormats(NULL), m_pTextColors(NULL),
      m_pTextBkColors(NULL), m_pBkColors(NULL), m_pImages(NULL), m_pEditIcons(NULL), m_pEditIconTypes(NULL),
      m_nRowTextFormat(-1)
{
}

CGridList::CItemData::CTextSlot* CGridList::CItemData::EnsureTexts(int nCols)
{
    CTextSlot empty = {0, 0};
    return EnsureArray(m_pTexts, nCols, empty);
}

void CGridList::CItemData::Free(CTextPool& pool, int nCols)
{
    if (m_pTexts != NULL)
        for (int i = 0; i < nCols; ++i)
            if (m_pTexts[i].nCapacity != 0)
                pool.Free(m_pTexts[i].nOffset, m_pTexts[i].nCapacity);
    free(m_pTexts);
    free(m_pItemData);
    free(m_pStates);
    free(m_pFormats);
    free(m_pTextColors);
    free(m_pTextBkColors);
    free(m_pBkColors);
    free(m_pImages);
    free(m_pEditIcons);
    free(m_pEditIconTypes);
    *this = CItemData();
}

// ---------------------------------------------------------------------------------------------
// CTextPool

UINT CGridList::CTextPool::ClassOf(UINT nSize)
{
    if (nSize <= SMALL_LIMIT)
        return (nSize + 3) / 4 - 1;
    UINT nClass = SMALL_LIMIT / 4;
    for (UINT nClassSize = SMALL_LIMIT * 2; nClassSize < nSize; nClassSize *= 2)
        ++nClass;
    return nClass;
}

UINT CGridList::CTextPool::ClassSize(UINT nClass)
{
    if (nClass < SMALL_LIMIT / 4)
        return (nClass + 1) * 4;
    return static_cast<UINT>(SMALL_LIMIT * 2) << (nClass - SMALL_LIMIT / 4);
}

bool CGridList::CTextPool::Alloc(UINT nSize, UINT& nOffset)
{
    if (nSize == 0 || nSize > 65536)
        return false;
    UINT nClass = ClassOf(nSize);
    std::vector<UINT>& arFree = m_arFree[nClass];
    if (!arFree.empty())
    {
        nOffset = arFree.back();
        arFree.pop_back();
        return true;
    }
    UINT nClassSize = ClassSize(nClass);
    if (m_nUsed + nClassSize > CHUNK_SIZE)
    {
        // Offsets are 32 bits: at most 4096 chunks.
        if (m_arChunks.size() >= (size_t(1) << (32 - CHUNK_BITS)))
            return false;
        char* pChunk = static_cast<char*>(malloc(CHUNK_SIZE));
        if (pChunk == NULL)
            return false;
        m_arChunks.push_back(pChunk);
        m_nUsed = 0;
    }
    nOffset = (static_cast<UINT>(m_arChunks.size() - 1) << CHUNK_BITS) | m_nUsed;
    m_nUsed += nClassSize;
    return true;
}

void CGridList::CTextPool::Free(UINT nOffset, UINT nSize)
{
    m_arFree[ClassOf(nSize)].push_back(nOffset);
}

void CGridList::CTextPool::FreeAll()
{
    for (char* pChunk : m_arChunks)
        free(pChunk);
    m_arChunks.clear();
    for (std::vector<UINT>& arFree : m_arFree)
        std::vector<UINT>().swap(arFree);
    m_nUsed = CHUNK_SIZE;
}
