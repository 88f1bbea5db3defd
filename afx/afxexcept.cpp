#include <afxexcept.h>

#include <string.h>

namespace
{
BOOL CopyMessage(const char* text, LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    if (pnHelpContext != NULL)
        *pnHelpContext = 0;
    if (lpszError == NULL || nMaxError == 0)
        return FALSE;
    size_t n = strlen(text);
    if (n >= nMaxError)
        n = nMaxError - 1;
    memcpy(lpszError, text, n);
    lpszError[n] = '\0';
    return TRUE;
}
} // namespace

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)

CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

CException::~CException() {}

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    CopyMessage("", lpszError, nMaxError, pnHelpContext);
    return FALSE;
}

BOOL CMemoryException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    return CopyMessage("Out of memory.", lpszError, nMaxError, pnHelpContext);
}

BOOL CInvalidArgException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    return CopyMessage("Invalid argument.", lpszError, nMaxError, pnHelpContext);
}

void AFXAPI AfxThrowMemoryException()
{
    // Preallocated: there may be no memory left to allocate the exception itself.
    static CMemoryException s_memoryException(FALSE);
    throw static_cast<CMemoryException*>(&s_memoryException);
}

void AFXAPI AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}

void AFXAPI AfxThrowUserException()
{
    throw new CUserException;
}
