// What every kind of handle wrapper shares: the map from handles to permanent and temporary
// objects, and null-safe access to the handle through an object pointer.
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

// The permanent and temporary objects of one kind of handle. Internal to the layer: the maps
// live in KelAfx and are reached only through the classes' static members. Tests run on one
// thread, as the library does, so the maps are process-wide.
class CAfxHandleMap
{
public:
    typedef CObject* (*PFNNEWTEMP)(void* h);  // makes a temporary object for a handle
    typedef void (*PFNCLEARTEMP)(CObject* pObject); // takes the handle out before deletion

    CAfxHandleMap(PFNNEWTEMP pfnNewTemp, PFNCLEARTEMP pfnClearTemp)
        : m_pfnNewTemp(pfnNewTemp), m_pfnClearTemp(pfnClearTemp)
    {
    }

    CObject* FromHandle(void* h);
    CObject* LookupPermanent(void* h) const;
    void SetPermanent(void* h, CObject* pObject);
    // Forgets the permanent entry of h, if it is pObject's.
    void RemoveHandle(void* h, const CObject* pObject);
    void DeleteTemp();

    // The Attach and Detach of every wrapper: rHandle is the object's handle member.
    template <class THandle>
    BOOL Attach(THandle h, THandle& rHandle, CObject* pObject)
    {
        if (h == NULL || rHandle != NULL)
            return FALSE;
        SetPermanent(h, pObject);
        rHandle = h;
        return TRUE;
    }
    template <class THandle>
    THandle Detach(THandle& rHandle, const CObject* pObject)
    {
        THandle h = rHandle;
        if (h != NULL)
            RemoveHandle(h, pObject);
        rHandle = NULL;
        return h;
    }

private:
    typedef std::unordered_map<void*, CObject*> CMap;
    CMap m_permanent;
    CMap m_temporary;
    PFNNEWTEMP m_pfnNewTemp;
    PFNCLEARTEMP m_pfnClearTemp;
};

