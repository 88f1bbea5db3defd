#include "grid/GridList.h"

#include <algorithm>

CGridList::CItemData::CItemData()
    : m_pTexts(NULL), m_pItemData(NULL), m_pStates(NULL), m_pFormats(NULL), m_pTextColors(NULL),
      m_pTextBkColors(NULL), m_pBkColors(NULL), m_pImages(NULL), m_pEditIcons(NULL), m_pEditIconTypes(NULL),
      m_nRowTextFormat(-1)
{
}

CGridList::CItemData::CTextSlot* CGridList::CItemData::EnsureTexts(CBlockPool& slots, int nCols)
{
    if (m_pTexts == NULL && nCols > 0)
    {
        m_pTexts = static_cast<CTextSlot*>(slots.Alloc());
        if (m_pTexts != NULL)
            for (int i = 0; i < nCols; ++i)
                m_pTexts[i] = CTextSlot{0, 0};
    }
    return m_pTexts;
}

void CGridList::CItemData::Free(CTextPool& texts, CBlockPool& slots, int nCols)
{
    if (m_pTexts != NULL)
    {
        for (int i = 0; i < nCols; ++i)
            if (m_pTexts[i].nCapacity != 0)
                texts.Free(m_pTexts[i].nOffset, m_pTexts[i].nCapacity);
        slots.Free(m_pTexts);
    }
    FreeArrays();
}

void CGridList::CItemData::FreeArrays()
{
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
// CBlockPool

void* CGridList::CBlockPool::Alloc()
{
    if (m_pFree != NULL)
    {
        void* pBlock = m_pFree;
        m_pFree = *static_cast<void**>(pBlock);
        return pBlock;
    }
    if (m_nBlockSize == 0)
        return NULL;
    if (m_nUsed + m_nBlockSize > CHUNK_SIZE)
    {
        char* pChunk = static_cast<char*>(malloc(CHUNK_SIZE));
        if (pChunk == NULL)
            return NULL;
        m_arChunks.push_back(pChunk);
        m_nUsed = 0;
    }
    void* pBlock = m_arChunks.back() + m_nUsed;
    m_nUsed += m_nBlockSize;
    return pBlock;
}

void CGridList::CBlockPool::Free(void* pBlock)
{
    if (pBlock == NULL)
        return;
    *static_cast<void**>(pBlock) = m_pFree;
    m_pFree = pBlock;
}

void CGridList::CBlockPool::FreeAll()
{
    for (char* pChunk : m_arChunks)
        free(pChunk);
    std::vector<char*>().swap(m_arChunks);
    m_nUsed = CHUNK_SIZE;
    m_pFree = NULL;
}

void CGridList::CBlockPool::Reset(size_t nBlockSize)
{
    FreeAll();
    // Room for the free list's link, and blocks that keep pointers aligned.
    const size_t nAlign = sizeof(void*);
    m_nBlockSize = nBlockSize == 0 || nBlockSize > CHUNK_SIZE ? 0 : (std::max(nBlockSize, nAlign) + nAlign - 1) / nAlign * nAlign;
}

// ---------------------------------------------------------------------------------------------
// CTextPool

UINT CGridList::CTextPool::ClassOf(UINT nSize)
{
    if (nSize <= SMALL_LIMIT)
        return nSize - 1;
    UINT nClass = SMALL_LIMIT;
    for (UINT nClassSize = SMALL_LIMIT * 2; nClassSize < nSize; nClassSize *= 2)
        ++nClass;
    return nClass;
}

UINT CGridList::CTextPool::ClassSize(UINT nClass)
{
    if (nClass < SMALL_LIMIT)
        return nClass + 1;
    return static_cast<UINT>(SMALL_LIMIT * 2) << (nClass - SMALL_LIMIT);
}

namespace
{
// Every pool's chunks, by number; numbers of freed chunks are reused. One UI thread uses them.
std::vector<char*> g_arChunks;
std::vector<UINT> g_arFreeChunks;
const size_t kMaxChunks = size_t(1) << 12; // 32-bit offsets of 1 MiB chunks
} // namespace

char* CGridList::CTextPool::GetAt(UINT nOffset)
{
    return g_arChunks[nOffset >> CHUNK_BITS] + (nOffset & (CHUNK_SIZE - 1));
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
        if (g_arFreeChunks.empty() && g_arChunks.size() >= kMaxChunks)
            return false;
        char* pChunk = static_cast<char*>(malloc(CHUNK_SIZE));
        if (pChunk == NULL)
            return false;
        UINT nChunk;
        if (!g_arFreeChunks.empty())
        {
            nChunk = g_arFreeChunks.back();
            g_arFreeChunks.pop_back();
            g_arChunks[nChunk] = pChunk;
        }
        else
        {
            nChunk = static_cast<UINT>(g_arChunks.size());
            g_arChunks.push_back(pChunk);
        }
        m_arChunks.push_back(nChunk);
        m_nUsed = 0;
    }
    nOffset = (m_arChunks.back() << CHUNK_BITS) | m_nUsed;
    m_nUsed += nClassSize;
    return true;
}

void CGridList::CTextPool::Free(UINT nOffset, UINT nSize)
{
    m_arFree[ClassOf(nSize)].push_back(nOffset);
}

void CGridList::CTextPool::FreeAll()
{
    for (UINT nChunk : m_arChunks)
    {
        free(g_arChunks[nChunk]);
        g_arChunks[nChunk] = NULL;
        g_arFreeChunks.push_back(nChunk);
    }
    m_arChunks.clear();
    for (std::vector<UINT>& arFree : m_arFree)
        std::vector<UINT>().swap(arFree);
    m_nUsed = CHUNK_SIZE;
}
