#include <afxhandle.h>

CObject* CAfxHandleMap::FromHandle(void* h)
{
    if (h == NULL)
        return NULL;
    CObject* pObject = LookupPermanent(h);
    if (pObject != NULL)
        return pObject;
    CObject*& pTemp = m_temporary[h];
    if (pTemp == NULL)
        pTemp = m_pfnNewTemp(h);
    return pTemp;
}

CObject* CAfxHandleMap::LookupPermanent(void* h) const
{
    CMap::const_iterator it = m_permanent.find(h);
    return it == m_permanent.end() ? NULL : it->second;
}

void CAfxHandleMap::SetPermanent(void* h, CObject* pObject)
{
    m_permanent[h] = pObject;
}

void CAfxHandleMap::RemoveHandle(void* h, const CObject* pObject)
{
    CMap::iterator it = m_permanent.find(h);
    if (it != m_permanent.end() && it->second == pObject)
        m_permanent.erase(it);
}

void CAfxHandleMap::DeleteTemp()
{
    CMap temp;
    temp.swap(m_temporary);
    for (CMap::value_type& entry : temp)
    {
        m_pfnClearTemp(entry.second); // a temporary object never owns its handle
        delete entry.second;
    }
}

