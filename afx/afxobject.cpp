#include <afxobject.h>

#include <string.h>

CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, NULL, NULL, NULL};

namespace
{
CRuntimeClass* s_pFirstClass = NULL; // classes registered since the last detach

CRuntimeClass* FindInList(CRuntimeClass* pFirst, LPCSTR lpszClassName)
{
    for (CRuntimeClass* p = pFirst; p != NULL; p = p->m_pNextClass)
        if (strcmp(p->m_lpszClassName, lpszClassName) == 0)
            return p;
    return NULL;
}
} // namespace

CObject::~CObject() {}

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &CObject::classCObject;
}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject != NULL ? m_pfnCreateObject() : NULL;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* p = this; p != NULL; p = p->m_pBaseClass)
        if (p == pBaseClass)
            return TRUE;
    return FALSE;
}

CRuntimeClass* AFXAPI CRuntimeClass::FromName(LPCSTR lpszClassName)
{
    if (lpszClassName == NULL)
        return NULL;
    if (strcmp(lpszClassName, "CObject") == 0)
        return &CObject::classCObject;
    CRuntimeClass* pClass = FindInList(s_pFirstClass, lpszClassName);
#ifdef _WIN32
    if (pClass == NULL)
        pClass = AfxFindLibraryRuntimeClass(lpszClassName);
#endif
    return pClass;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass)
{
    pNewClass->m_pNextClass = s_pFirstClass;
    s_pFirstClass = pNewClass;
}

CRuntimeClass* AFXAPI AfxDetachClassList()
{
    CRuntimeClass* pFirst = s_pFirstClass;
    s_pFirstClass = NULL;
    return pFirst;
}
