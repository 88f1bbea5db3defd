// CFile, unbuffered binary files over the system's file handles, and CFileException, as in
// MFC: operations that fail throw a CFileException* whose m_cause names the kind of failure
// (Open reports through its optional record instead). Included by afx.h on Windows, so it
// needs nothing of the window layer.
#pragma once

#include <time.h>

#include <afxplatform.h>
#include <afxexcept.h>
#include <afxstr.h>

class AFX_CORE_CLASS CFileException : public CException
{
public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile,
    };

    explicit CFileException(int cause = CFileException::none, LONG lOsError = -1, LPCTSTR lpszArchiveName = NULL);

    int m_cause;
    LONG m_lOsError; // the system's error code, -1 when the failure was not the system's
    CString m_strFileName;

    // The cause of a system error code; genericException for codes without one of their own.
    static int PASCAL OsErrorToException(LONG lOsError);
    // Throws the exception of a system error code; a failure the system left without a code
    // (0) is thrown as genericException.
    [[noreturn]] static void PASCAL ThrowOsError(LONG lOsError, LPCTSTR lpszFileName = NULL);

    // An English sentence naming the file ("an unnamed file" without a name).
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = NULL) const override;
};

[[noreturn]] AFX_CORE_API void AFXAPI AfxThrowFileException(int cause, LONG lOsError = -1, LPCTSTR lpszFileName = NULL);

// What GetStatus reports of a file. The times are seconds since 1970 (UTC).
struct CFileStatus
{
    time_t m_ctime; // created
    time_t m_mtime; // last written
    time_t m_atime; // last read
    ULONGLONG m_size;
    BYTE m_attribute; // CFile::Attribute bits
    BYTE m_padding;
    TCHAR m_szFullName[MAX_PATH];
};

class AFX_CORE_CLASS CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
public:
    enum OpenFlags
    {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000, // taken as shareExclusive
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000, // with modeCreate: open an existing file as it is
        typeText = 0x4000,       // typeText and typeBinary mean nothing to CFile itself
        typeBinary = 0x8000,
    };
    enum Attribute
    {
        normal = 0x00,
        readOnly = 0x01,
        hidden = 0x02,
        system = 0x04,
        volume = 0x08,
        directory = 0x10,
        archive = 0x20,
    };
    enum SeekPosition
    {
        begin = 0x0,
        current = 0x1,
        end = 0x2,
    };
    static const HANDLE hFileNull;

    CFile();
    // Wraps an open handle, which the object does not close when destroyed.
    explicit CFile(HANDLE hFile);
    // Opens the file or throws the CFileException* that Open would report.
    CFile(LPCTSTR lpszFileName, UINT nOpenFlags);
    // Closes a file it opened, ignoring errors.
    ~CFile() override;

    HANDLE m_hFile;
    BOOL m_bCloseOnDelete;
    operator HANDLE() const { return m_hFile; }

    // FALSE on failure, with the cause in *pError when given; nothing is thrown.
    virtual BOOL Open(LPCTSTR lpszFileName, UINT nOpenFlags, CFileException* pError = NULL);
    // Returns the bytes read, fewer than nCount at the end of the file.
    virtual UINT Read(void* lpBuf, UINT nCount);
    // Writing fewer bytes than asked is a full disk (diskFull).
    virtual void Write(const void* lpBuf, UINT nCount);
    // nFrom: begin, current or end. Returns the new position; before the start is badSeek.
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    void SeekToBegin() { Seek(0, begin); }
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    // Cuts or extends the file; the position moves to the new end.
    virtual void SetLength(ULONGLONG dwNewLen);
    virtual void Flush();
    virtual void Close();
    // Closes without ever throwing.
    virtual void Abort();

    // The name with its extension, without the directory ("REPORT.DAT").
    virtual CString GetFileName() const;
    // The full path of the file as opened.
    virtual CString GetFilePath() const { return m_strFilePath; }

    // FALSE when there is no such file (wildcards never match).
    static BOOL PASCAL GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus);
    static void PASCAL Remove(LPCTSTR lpszFileName);
    static void PASCAL Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName);

protected:
    CString m_strFileName; // as given to Open, for the exceptions
    CString m_strFilePath;

private:
    [[noreturn]] void ThrowLastError() const;
    // Closes the handle, if any, and forgets the file; FALSE with the system's error code when
    // closing failed.
    BOOL CloseAndForget(DWORD& dwError);
};
