#include <afx.h>

#include <limits.h>
#include <string.h>

namespace
{
struct CErrorCause
{
    LONG lOsError;
    int nCause;
};

const CErrorCause s_errorCauses[] = {
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_HANDLE, CFileException::invalidFile},
    {ERROR_INVALID_DRIVE, CFileException::badPath},
    {ERROR_CURRENT_DIRECTORY, CFileException::removeCurrentDir},
    {ERROR_NOT_SAME_DEVICE, CFileException::badPath},
    {ERROR_WRITE_PROTECT, CFileException::accessDenied},
    {ERROR_NOT_READY, CFileException::hardIO},
    {ERROR_CRC, CFileException::hardIO},
    {ERROR_SEEK, CFileException::badSeek},
    {ERROR_SECTOR_NOT_FOUND, CFileException::badSeek},
    {ERROR_WRITE_FAULT, CFileException::hardIO},
    {ERROR_READ_FAULT, CFileException::hardIO},
    {ERROR_GEN_FAILURE, CFileException::hardIO},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
    {ERROR_HANDLE_EOF, CFileException::endOfFile},
    {ERROR_HANDLE_DISK_FULL, CFileException::diskFull},
    {ERROR_BAD_NETPATH, CFileException::badPath},
    {ERROR_NETWORK_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_BAD_NET_NAME, CFileException::badPath},
    {ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_CANNOT_MAKE, CFileException::directoryFull},
    {ERROR_DRIVE_LOCKED, CFileException::lockViolation},
    {ERROR_DISK_FULL, CFileException::diskFull},
    {ERROR_INVALID_NAME, CFileException::badPath},
    {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
    {ERROR_SEEK_ON_DEVICE, CFileException::badSeek},
    {ERROR_BAD_PATHNAME, CFileException::badPath},
    {ERROR_LOCK_FAILED, CFileException::lockViolation},
    {ERROR_ALREADY_EXISTS, CFileException::accessDenied},
    {ERROR_FILENAME_EXCED_RANGE, CFileException::badPath},
    {ERROR_DIRECTORY, CFileException::badPath},
};

// Indexed by cause; %s is the file's name.
const char* const s_causeMessages[] = {
    "No error occurred.",
    "An unexpected error occurred while accessing %s.",
    "%s was not found.",
    "%s contains an invalid path.",
    "%s could not be opened because there are too many open files.",
    "Access to %s was denied.",
    "An invalid file handle was associated with %s.",
    "%s could not be removed because it is the current directory.",
    "%s could not be created because the directory is full.",
    "Seek failed on %s.",
    "A hardware I/O error was reported while accessing %s.",
    "A sharing violation occurred while accessing %s.",
    "A locking violation occurred while accessing %s.",
    "Disk full while accessing %s.",
    "An attempt was made to access %s past its end.",
};

// The CreateFile arguments of CFile's open flags; false for a combination without meaning.
bool TranslateOpenFlags(UINT nOpenFlags, DWORD& dwAccess, DWORD& dwShare, DWORD& dwCreation)
{
    switch (nOpenFlags & 0x0003)
    {
    case CFile::modeRead:
        dwAccess = GENERIC_READ;
        break;
    case CFile::modeWrite:
        dwAccess = GENERIC_WRITE;
        break;
    case CFile::modeReadWrite:
        dwAccess = GENERIC_READ | GENERIC_WRITE;
        break;
    default:
        return false;
    }
    switch (nOpenFlags & 0x0070)
    {
    case CFile::shareCompat: // there is no compatibility mode any more
    case CFile::shareExclusive:
        dwShare = 0;
        break;
    case CFile::shareDenyWrite:
        dwShare = FILE_SHARE_READ;
        break;
    case CFile::shareDenyRead:
        dwShare = FILE_SHARE_WRITE;
        break;
    case CFile::shareDenyNone:
        dwShare = FILE_SHARE_READ | FILE_SHARE_WRITE;
        break;
    default:
        return false;
    }
    if ((nOpenFlags & CFile::modeCreate) == 0)
        dwCreation = OPEN_EXISTING;
    else if ((nOpenFlags & CFile::modeNoTruncate) != 0)
        dwCreation = OPEN_ALWAYS;
    else
        dwCreation = CREATE_ALWAYS;
    return true;
}

// The full path of a name, or the name itself when the system cannot make one.
CString FullPath(LPCTSTR lpszFileName)
{
    DWORD dwSize = ::GetFullPathNameA(lpszFileName, 0, NULL, NULL);
    if (dwSize == 0)
        return lpszFileName;
    CString strPath;
    DWORD dwLength = ::GetFullPathNameA(lpszFileName, dwSize, strPath.GetBuffer(static_cast<int>(dwSize)), NULL);
    strPath.ReleaseBuffer(dwLength < dwSize ? static_cast<int>(dwLength) : 0);
    return dwLength != 0 && dwLength < dwSize ? strPath : CString(lpszFileName);
}

// The cause of a failure: a failure the system left without a code is generic.
int CauseOfFailure(LONG lOsError)
{
    return lOsError == ERROR_SUCCESS ? CFileException::genericException : CFileException::OsErrorToException(lOsError);
}

time_t FileTimeToTime(const FILETIME& fileTime)
{
    // FILETIME counts 100-nanosecond steps since 1601.
    const ULONGLONG nEpoch1970 = 116444736000000000ULL;
    ULONGLONG nTicks = (static_cast<ULONGLONG>(fileTime.dwHighDateTime) << 32) | fileTime.dwLowDateTime;
    return nTicks < nEpoch1970 ? 0 : static_cast<time_t>((nTicks - nEpoch1970) / 10000000ULL);
}
} // namespace

// ---------------------------------------------------------------------------------------------
// CFileException

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName)
{
}

int PASCAL CFileException::OsErrorToException(LONG lOsError)
{
    if (lOsError == ERROR_SUCCESS)
        return none;
    for (const CErrorCause& entry : s_errorCauses)
        if (entry.lOsError == lOsError)
            return entry.nCause;
    return genericException;
}

void PASCAL CFileException::ThrowOsError(LONG lOsError, LPCTSTR lpszFileName)
{
    AfxThrowFileException(CauseOfFailure(lOsError), lOsError, lpszFileName);
}

BOOL CFileException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    if (pnHelpContext != NULL)
        *pnHelpContext = 0;
    if (lpszError == NULL || nMaxError == 0)
        return FALSE;
    int nCause = m_cause >= none && m_cause <= endOfFile ? m_cause : genericException;
    CString strMessage;
    strMessage.Format(s_causeMessages[nCause], m_strFileName.IsEmpty() ? "an unnamed file" : static_cast<LPCTSTR>(m_strFileName));
    ::lstrcpynA(lpszError, strMessage, nMaxError > INT_MAX ? INT_MAX : static_cast<int>(nMaxError));
    return TRUE;
}

void AFXAPI AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}

// ---------------------------------------------------------------------------------------------
// CFile

IMPLEMENT_DYNAMIC(CFile, CObject)

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

CFile::CFile() : m_hFile(hFileNull), m_bCloseOnDelete(FALSE) {}

CFile::CFile(HANDLE hFile) : m_hFile(hFile), m_bCloseOnDelete(FALSE) {}

CFile::CFile(LPCTSTR lpszFileName, UINT nOpenFlags) : m_hFile(hFileNull), m_bCloseOnDelete(FALSE)
{
    CFileException error;
    if (!Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_hFile != hFileNull && m_bCloseOnDelete)
        Abort();
}

BOOL CFile::Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    DWORD dwAccess = 0;
    DWORD dwShare = 0;
    DWORD dwCreation = 0;
    DWORD dwError = ERROR_SUCCESS;
    if (lpszFileName == NULL)
        dwError = ERROR_INVALID_NAME;
    else if (m_hFile != hFileNull || !TranslateOpenFlags(nOpenFlags, dwAccess, dwShare, dwCreation))
        dwError = ERROR_INVALID_PARAMETER; // already open, or flags without meaning
    else
    {
        SECURITY_ATTRIBUTES sa = {sizeof(sa), NULL, (nOpenFlags & modeNoInherit) == 0};
        HANDLE hFile = ::CreateFileA(lpszFileName, dwAccess, dwShare, &sa, dwCreation, FILE_ATTRIBUTE_NORMAL, NULL);
        if (hFile != INVALID_HANDLE_VALUE)
        {
            m_hFile = hFile;
            m_bCloseOnDelete = TRUE;
            m_strFileName = lpszFileName;
            m_strFilePath = FullPath(lpszFileName);
            return TRUE;
        }
        dwError = ::GetLastError();
    }
    if (pError != NULL)
    {
        pError->m_lOsError = static_cast<LONG>(dwError);
        pError->m_cause = CauseOfFailure(pError->m_lOsError);
        pError->m_strFileName = lpszFileName;
    }
    return FALSE;
}

void CFile::ThrowLastError() const
{
    CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

UINT CFile::Read(void* lpBuf, UINT nCount)
{
    ASSERT(m_hFile != INVALID_HANDLE_VALUE);
    if (nCount == 0)
        return 0;
    if (lpBuf == NULL)
        AfxThrowInvalidArgException();
    DWORD dwRead = 0;
    if (!::ReadFile(m_hFile, lpBuf, nCount, &dwRead, NULL))
        ThrowLastError();
    return dwRead;
}

void CFile::Write(const void* lpBuf, UINT nCount)
{
    ASSERT(m_hFile != INVALID_HANDLE_VALUE);
    if (nCount == 0)
        return;
    if (lpBuf == NULL)
        AfxThrowInvalidArgException();
    DWORD dwWritten = 0;
    if (!::WriteFile(m_hFile, lpBuf, nCount, &dwWritten, NULL))
        ThrowLastError();
    // The system reports no error when it runs out of room part way.
    if (dwWritten != nCount)
        AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom)
{
    ASSERT(m_hFile != INVALID_HANDLE_VALUE);
    DWORD dwMethod;
    switch (nFrom)
    {
    case begin:
        dwMethod = FILE_BEGIN;
        break;
    case current:
        dwMethod = FILE_CURRENT;
        break;
    case end:
        dwMethod = FILE_END;
        break;
    default:
        AfxThrowInvalidArgException();
    }
    LARGE_INTEGER liOff;
    liOff.QuadPart = lOff;
    LARGE_INTEGER liPos;
    if (!::SetFilePointerEx(m_hFile, liOff, &liPos, dwMethod))
        ThrowLastError();
    return static_cast<ULONGLONG>(liPos.QuadPart);
}

ULONGLONG CFile::GetPosition() const
{
    ASSERT(m_hFile != INVALID_HANDLE_VALUE);
    LARGE_INTEGER liZero;
    liZero.QuadPart = 0;
    LARGE_INTEGER liPos;
    if (!::SetFilePointerEx(m_hFile, liZero, &liPos, FILE_CURRENT))
        ThrowLastError();
    return static_cast<ULONGLONG>(liPos.QuadPart);
}

ULONGLONG CFile::GetLength() const
{
    ASSERT(m_hFile != INVALID_HANDLE_VALUE);
    LARGE_INTEGER liSize;
    if (!::GetFileSizeEx(m_hFile, &liSize))
        ThrowLastError();
    return static_cast<ULONGLONG>(liSize.QuadPart);
}

void CFile::SetLength(ULONGLONG dwNewLen)
{
    ASSERT(m_hFile != INVALID_HANDLE_VALUE);
    Seek(static_cast<LONGLONG>(dwNewLen), begin);
    if (!::SetEndOfFile(m_hFile))
        ThrowLastError();
}

void CFile::Flush()
{
    if (m_hFile != hFileNull && !::FlushFileBuffers(m_hFile))
        ThrowLastError();
}

BOOL CFile::CloseAndForget(DWORD& dwError)
{
    BOOL bClosed = TRUE;
    if (m_hFile != hFileNull && !::CloseHandle(m_hFile))
    {
        dwError = ::GetLastError();
        bClosed = FALSE;
    }
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    m_strFilePath.Empty();
    return bClosed;
}

void CFile::Close()
{
    CString strFileName = m_strFileName;
    DWORD dwError = ERROR_SUCCESS;
    if (!CloseAndForget(dwError))
        CFileException::ThrowOsError(static_cast<LONG>(dwError), strFileName);
}

void CFile::Abort()
{
    DWORD dwError = ERROR_SUCCESS;
    CloseAndForget(dwError);
}

CString CFile::GetFileName() const
{
    int nSlash = m_strFilePath.ReverseFind('\\');
    int nForward = m_strFilePath.ReverseFind('/');
    return m_strFilePath.Mid((nForward > nSlash ? nForward : nSlash) + 1);
}

BOOL PASCAL CFile::GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus)
{
    memset(&rStatus, 0, sizeof(rStatus));
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (lpszFileName == NULL || !::GetFileAttributesExA(lpszFileName, GetFileExInfoStandard, &data))
        return FALSE;
    ::lstrcpynA(rStatus.m_szFullName, FullPath(lpszFileName), MAX_PATH);
    rStatus.m_mtime = FileTimeToTime(data.ftLastWriteTime);
    // File systems that keep no creation or access time report the last write for them.
    rStatus.m_ctime = FileTimeToTime(data.ftCreationTime);
    if (rStatus.m_ctime == 0)
        rStatus.m_ctime = rStatus.m_mtime;
    rStatus.m_atime = FileTimeToTime(data.ftLastAccessTime);
    if (rStatus.m_atime == 0)
        rStatus.m_atime = rStatus.m_mtime;
    rStatus.m_size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    rStatus.m_attribute = static_cast<BYTE>(data.dwFileAttributes);
    return TRUE;
}

void PASCAL CFile::Remove(LPCTSTR lpszFileName)
{
    if (!::DeleteFileA(lpszFileName))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), lpszFileName);
}

void PASCAL CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName)
{
    if (!::MoveFileA(lpszOldName, lpszNewName))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), lpszOldName);
}
