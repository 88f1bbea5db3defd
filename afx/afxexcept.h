// The exception classes of the core. As in MFC, exceptions are thrown as pointers and the
// catcher calls Delete(); the memory exception is a preallocated object that Delete() keeps.
#pragma once

#include <afxobject.h>

class AFX_CORE_CLASS CException : public CObject
{
    DECLARE_DYNAMIC(CException)
public:
    explicit CException(BOOL bAutoDelete = TRUE);
    virtual ~CException();

    void Delete();
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const;
#ifdef _WIN32
    // Tells the user in a message box: the exception's own message, else the string resource
    // nMessageID, else "No error message is available.".
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
#endif

protected:
    BOOL m_bAutoDelete;
};

class AFX_CORE_CLASS CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
public:
    explicit CMemoryException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;
};

class AFX_CORE_CLASS CInvalidArgException : public CException
{
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    explicit CInvalidArgException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;
};

// Thrown to abandon an operation after the user has been told why (a failed data exchange).
class AFX_CORE_CLASS CUserException : public CException
{
    DECLARE_DYNAMIC(CUserException)
public:
    explicit CUserException(BOOL bAutoDelete = TRUE) : CException(bAutoDelete) {}
};

[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowMemoryException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowInvalidArgException();
[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowUserException();
