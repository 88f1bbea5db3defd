// The exception classes of the core. As in MFC, exceptions are thrown as pointers and the
// catcher calls Delete(); the memory exception is a preallocated object that Delete() keeps.
#pragma once

#include "afxplatform.h"

class AFX_CORE_CLASS CException
{
public:
    explicit CException(BOOL bAutoDelete = TRUE);
    virtual ~CException();

    void Delete();
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;

protected:
    BOOL m_bAutoDelete;
};

class AFX_CORE_CLASS CMemoryException : public CException
{
public:
    explicit CMemoryException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;
};

class AFX_CORE_CLASS CInvalidArgException : public CException
{
public:
    explicit CInvalidArgException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;
};

// Thrown to abandon an operation after the user has been told why (a failed data exchange).
class AFX_CORE_CLASS CUserException : public CException
{
public:
    explicit CUserException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
};

[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowMemoryException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowInvalidArgException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowUserException();
