// CArray: MFC's growable array. Indexes outside the array throw CInvalidArgException, as in
// MFC; nGrowBy is the least number of slots added when the array must grow, and growth is
// at least geometric so that adding a million elements stays linear.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include <afxexcept.h>

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray
{
public:
    CArray() : m_nGrowBy(-1) {}
    virtual ~CArray() {}

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_data.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_data.empty(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }

    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1)
    {
        if (nNewSize < 0)
            AfxThrowInvalidArgException();
        if (nGrowBy >= 0)
            m_nGrowBy = nGrowBy;
        Reserve(nNewSize);
        m_data.resize(static_cast<size_t>(nNewSize));
    }
    void FreeExtra() { m_data.shrink_to_fit(); }
    void RemoveAll() { std::vector<TYPE>().swap(m_data); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_data[Checked(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_data[Checked(nIndex)]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_data[Checked(nIndex)] = newElement; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return GetAt(nIndex); }
    TYPE& ElementAt(INT_PTR nIndex) { return GetAt(nIndex); }
    const TYPE& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
    TYPE& operator[](INT_PTR nIndex) { return GetAt(nIndex); }

    const TYPE* GetData() const { return m_data.empty() ? NULL : m_data.data(); }
    TYPE* GetData() { return m_data.empty() ? NULL : m_data.data(); }

    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement)
    {
        if (nIndex < 0)
            AfxThrowInvalidArgException();
        TYPE copy(newElement); // the argument may be an element that SetSize moves
        if (nIndex >= GetSize())
            SetSize(nIndex + 1);
        m_data[static_cast<size_t>(nIndex)] = std::move(copy);
    }
    INT_PTR Add(ARG_TYPE newElement)
    {
        INT_PTR nIndex = GetSize();
        SetAtGrow(nIndex, newElement);
        return nIndex;
    }
    INT_PTR Append(const CArray& src)
    {
        INT_PTR nOldSize = GetSize();
        if (&src == this)
        {
            CArray copy;
            copy.Copy(src);
            return Append(copy);
        }
        Reserve(nOldSize + src.GetSize());
        m_data.insert(m_data.end(), src.m_data.begin(), src.m_data.end());
        return nOldSize;
    }
    void Copy(const CArray& src)
    {
        if (&src != this)
            m_data = src.m_data;
    }

    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1)
    {
        if (nIndex < 0 || nCount <= 0)
            AfxThrowInvalidArgException();
        TYPE copy(newElement);
        if (nIndex >= GetSize())
        {
            SetSize(nIndex + nCount);
            std::fill(m_data.begin() + nIndex, m_data.end(), copy);
            return;
        }
        Reserve(GetSize() + nCount);
        m_data.insert(m_data.begin() + nIndex, static_cast<size_t>(nCount), copy);
    }
    void InsertAt(INT_PTR nStartIndex, CArray* pNewArray)
    {
        if (pNewArray == NULL || nStartIndex < 0)
            AfxThrowInvalidArgException();
        if (pNewArray->GetSize() == 0)
            return;
        CArray copy;
        copy.Copy(*pNewArray);
        if (nStartIndex > GetSize())
            SetSize(nStartIndex);
        Reserve(GetSize() + copy.GetSize());
        m_data.insert(m_data.begin() + nStartIndex, copy.m_data.begin(), copy.m_data.end());
    }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1)
    {
        if (nIndex < 0 || nCount < 0 || nCount > GetSize() - nIndex)
            AfxThrowInvalidArgException();
        m_data.erase(m_data.begin() + nIndex, m_data.begin() + nIndex + nCount);
    }

private:
    size_t Checked(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= GetSize())
            AfxThrowInvalidArgException();
        return static_cast<size_t>(nIndex);
    }
    void Reserve(INT_PTR nNeeded)
    {
        size_t nCapacity = m_data.capacity();
        if (static_cast<size_t>(nNeeded) <= nCapacity)
            return;
        size_t nGrow = m_nGrowBy > 0 ? static_cast<size_t>(m_nGrowBy) : 4;
        size_t nNew = nCapacity + (nCapacity / 2 > nGrow ? nCapacity / 2 : nGrow);
        m_data.reserve(nNew > static_cast<size_t>(nNeeded) ? nNew : static_cast<size_t>(nNeeded));
    }

    std::vector<TYPE> m_data;
    INT_PTR m_nGrowBy;
};
