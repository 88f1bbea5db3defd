#include <afxhandle.h>

#include <atomic>
#include <vector>

namespace
{
typedef std::vector<CHandleMapBase*> CThreadMaps;

// A slot of the system's thread-local storage rather than a thread_local variable: it is still
// there when the thread's end is reported to the library, which is when its maps are deleted.
DWORD ThreadMapsSlot()
{
    static const DWORD s_dwSlot = ::TlsAlloc();
    return s_dwSlot;
}

CThreadMaps* GetThreadMaps()
{
    return static_cast<CThreadMaps*>(::TlsGetValue(ThreadMapsSlot()));
}
} // namespace

void CHandleMapBase::DeleteThreadMaps()
{
    CThreadMaps* pMaps = GetThreadMaps();
    if (pMaps == NULL)
        return;
    ::TlsSetValue(ThreadMapsSlot(), NULL);
    for (CHandleMapBase* pMap : *pMaps)
        delete pMap;
    delete pMaps;
}

int CHandleMapBase::NewKind()
{
    static std::atomic<int> s_nKinds(0);
    return s_nKinds++;
}

CHandleMapBase* CHandleMapBase::GetThreadMap(int nKind)
{
    CThreadMaps* pMaps = GetThreadMaps();
    return pMaps != NULL && static_cast<size_t>(nKind) < pMaps->size() ? (*pMaps)[nKind] : NULL;
}

void CHandleMapBase::SetThreadMap(int nKind, CHandleMapBase* pMap)
{
    CThreadMaps* pMaps = GetThreadMaps();
    if (pMaps == NULL)
    {
        pMaps = new CThreadMaps;
        ::TlsSetValue(ThreadMapsSlot(), pMaps);
    }
    if (pMaps->size() <= static_cast<size_t>(nKind))
        pMaps->resize(nKind + 1);
    (*pMaps)[nKind] = pMap;
}
