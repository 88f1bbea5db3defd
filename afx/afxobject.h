// CObject and its run-time class information (DECLARE_DYNAMIC, IMPLEMENT_DYNAMIC,
// DECLARE_DYNCREATE, IMPLEMENT_DYNCREATE, RUNTIME_CLASS, IsKindOf), as in MFC.
#pragma once

#include <afxplatform.h>

class CObject;

struct AFX_CORE_CLASS CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* m_pBaseClass;
    CRuntimeClass* m_pNextClass; // the module's class list

    CObject* CreateObject() const;
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
    // Searches the class lists of the program and of every linked extension library.
    static CRuntimeClass* AFXAPI FromName(LPCSTR lpszClassName);
};

// Registers a class in the class list of the module being initialised (see
// AfxInitExtensionModule, which moves a library's classes into its own record).
struct AFX_CORE_CLASS AFX_CLASSINIT
{
    explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
};

// Takes the classes registered so far off the program's list: an extension library's static
// constructors register its classes before its DllMain runs, and it keeps them in its own record.
AFX_CORE_API CRuntimeClass* AFXAPI AfxDetachClassList();
#ifdef _WIN32
AFX_CORE_API CRuntimeClass* AFXAPI AfxFindLibraryRuntimeClass(LPCSTR lpszClassName);
#endif

class AFX_CORE_CLASS CObject
{
public:
    virtual ~CObject();
    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    static CRuntimeClass classCObject;

protected:
    CObject() {}

private:
    CObject(const CObject&) = delete;
    void operator=(const CObject&) = delete;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                                               \
public:                                                                                            \
    static CRuntimeClass class##class_name;                                                        \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                             \
    DECLARE_DYNAMIC(class_name)                                                                    \
    static CObject* CreateObject();

#define AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, pfnNew)                           \
    CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class_name), 0xFFFF, pfnNew, \
                                                   RUNTIME_CLASS(base_class_name), NULL};          \
    static const AFX_CLASSINIT _init_##class_name(&class_name::class##class_name);                 \
    CRuntimeClass* class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, NULL)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                          \
    CObject* class_name::CreateObject() { return new class_name; }                                 \
    AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, class_name::CreateObject)

#define DYNAMIC_DOWNCAST(class_name, object)                                                      \
    ((object) != NULL && (object)->IsKindOf(RUNTIME_CLASS(class_name)) ? static_cast<class_name*>(object) : NULL)
