// What every kind of handle wrapper shares: the maps from handles to permanent and temporary
// objects, and null-safe access to the handle through an object pointer.
//
// Each thread has its own maps, as in MFC: an object attached on one thread is the permanent
// object of its handle there only, another thread gets a temporary object for the same handle,
// and each thread deletes its own temporary objects (AfxDeleteTempMaps). Messages reach a
// window on the thread that created it, so its window procedure finds its object.
#pragma once

#include <unordered_map>

#include <afxobject.h>

// Lets the handle getters run through a null pointer, as MFC allows (pFont->GetSafeHandle()):
// the empty asm keeps the compiler from assuming that this is never null.
template <class T>
inline const T* AfxNullableThis(const T* p)
{
    __asm__("" : "+r"(p));
    return p;
}

// Where the calling thread keeps its map of each kind. Internal to the layer: the maps live in
// KelAfx and are reached only through the wrappers' static members.
class CHandleMapBase
{
public:
    virtual ~CHandleMapBase() {}
    // Deletes the calling thread's maps with their temporary objects, when the thread ends.
    static void DeleteThreadMaps();

protected:
    static int NewKind();
    static CHandleMapBase* GetThreadMap(int nKind);
    static void SetThreadMap(int nKind, CHandleMapBase* pMap);
};

// The object a temporary one starts as, before it gets its handle.
template <class TObject, class THandle>
TObject* AfxNewHandleObject(THandle)
{
    return new TObject;
}

// The permanent and temporary objects of one kind of handle on the calling thread: TObject
// keeps its THandle in the member pmHandle, and a kind whose temporary objects differ by handle
// passes its own pfnNewObject.
template <class TObject, class THandle, THandle TObject::*pmHandle,
          TObject* (*pfnNewObject)(THandle) = &AfxNewHandleObject<TObject, THandle>>
class CHandleMap : public CHandleMapBase
{
public:
    static TObject* FromHandle(THandle h)
    {
        if (h == NULL)
            return NULL;
        TObject* pObject = FromHandlePermanent(h);
        if (pObject != NULL)
            return pObject;
        TObject*& pTemp = ForThread().m_temporary[h];
        if (pTemp == NULL)
        {
            pTemp = pfnNewObject(h);
            pTemp->*pmHandle = h;
        }
        return pTemp;
    }

    static TObject* FromHandlePermanent(THandle h)
    {
        const CMap& permanent = ForThread().m_permanent;
        typename CMap::const_iterator it = permanent.find(h);
        return it == permanent.end() ? NULL : it->second;
    }

    static void DeleteTempMap() { ForThread().DeleteTemp(); }

    // Makes pObject the permanent object of h; fails when it holds a handle already.
    static BOOL Attach(TObject* pObject, THandle h)
    {
        if (h == NULL || pObject->*pmHandle != NULL)
            return FALSE;
        ForThread().m_permanent[h] = pObject;
        pObject->*pmHandle = h;
        return TRUE;
    }

    // Takes the handle out of pObject and forgets the permanent entry, if it is pObject's.
    static THandle Detach(TObject* pObject)
    {
        THandle h = pObject->*pmHandle;
        pObject->*pmHandle = NULL;
        if (h != NULL)
        {
            CMap& permanent = ForThread().m_permanent;
            typename CMap::iterator it = permanent.find(h);
            if (it != permanent.end() && it->second == pObject)
                permanent.erase(it);
        }
        return h;
    }

private:
    typedef std::unordered_map<THandle, TObject*> CMap;

    ~CHandleMap() override { DeleteTemp(); }

    void DeleteTemp()
    {
        CMap temporary;
        temporary.swap(m_temporary);
        for (typename CMap::value_type& entry : temporary)
        {
            entry.second->*pmHandle = NULL; // a temporary object never owns its handle
            delete entry.second;
        }
    }

    static CHandleMap& ForThread()
    {
        static const int s_nKind = NewKind();
        CHandleMapBase* pMap = GetThreadMap(s_nKind);
        if (pMap == NULL)
        {
            pMap = new CHandleMap;
            SetThreadMap(s_nKind, pMap);
        }
        return *static_cast<CHandleMap*>(pMap);
    }

    CMap m_permanent;
    CMap m_temporary;
};
