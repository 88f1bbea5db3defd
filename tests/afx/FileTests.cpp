#include <afx.h>
#include <gtest/gtest.h>

#include <string.h>

namespace
{
struct CThrown
{
    int nCause = -1; // -1: nothing was thrown
    LONG lOsError = 0;
    CString strFileName;
};

template <class TFn>
CThrown CatchFileException(TFn fn)
{
    CThrown thrown;
    try
    {
        fn();
    }
    catch (CFileException* e)
    {
        thrown.nCause = e->m_cause;
        thrown.lOsError = e->m_lOsError;
        thrown.strFileName = e->m_strFileName;
        e->Delete();
    }
    return thrown;
}

template <class TFn>
bool ThrowsInvalidArg(TFn fn)
{
    try
    {
        fn();
    }
    catch (CInvalidArgException* e)
    {
        e->Delete();
        return true;
    }
    return false;
}

// Every test works in a directory of its own under the temporary directory.
class CFileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        char szTemp[MAX_PATH];
        ASSERT_NE(0u, ::GetTempPathA(MAX_PATH, szTemp));
        m_strDir.Format("%skelafx_file_%lu\\", szTemp, static_cast<unsigned long>(::GetCurrentProcessId()));
        ::CreateDirectoryA(m_strDir, NULL);
    }
    void TearDown() override
    {
        WIN32_FIND_DATAA fd;
        HANDLE hFind = ::FindFirstFileA(m_strDir + "*", &fd);
        if (hFind != INVALID_HANDLE_VALUE)
        {
            do
                ::DeleteFileA(m_strDir + fd.cFileName);
            while (::FindNextFileA(hFind, &fd));
            ::FindClose(hFind);
        }
        ::RemoveDirectoryA(m_strDir);
    }

    CString Path(LPCTSTR lpszName) const { return m_strDir + lpszName; }
    void MakeFile(LPCTSTR lpszName, LPCTSTR lpszContents)
    {
        CFile file(Path(lpszName), CFile::modeCreate | CFile::modeWrite);
        file.Write(lpszContents, static_cast<UINT>(strlen(lpszContents)));
    }

    CString m_strDir;
};
} // namespace

TEST_F(CFileTest, WritesReadsAndSeeks)
{
    CFile file;
    ASSERT_TRUE(file.Open(Path("data.bin"), CFile::modeCreate | CFile::modeReadWrite | CFile::typeBinary));
    file.Write("0123456789", 10);
    EXPECT_EQ(10u, file.GetLength());
    EXPECT_EQ(10u, file.GetPosition());

    char buf[16] = {};
    file.SeekToBegin();
    EXPECT_EQ(4u, file.Read(buf, 4));
    EXPECT_STREQ("0123", buf);
    EXPECT_EQ(7u, file.Seek(3, CFile::current));
    memset(buf, 0, sizeof(buf));
    EXPECT_EQ(2u, file.Read(buf, 2));
    EXPECT_STREQ("78", buf);
    EXPECT_EQ(6u, file.Seek(-4, CFile::end));
    EXPECT_EQ(10u, file.SeekToEnd());
    EXPECT_EQ(0u, file.Read(buf, 5)); // at the end
    EXPECT_EQ(0u, file.Read(NULL, 0));

    EXPECT_EQ(20u, file.Seek(20, CFile::begin)); // past the end is allowed
    file.Write("X", 1);
    EXPECT_EQ(21u, file.GetLength());
    file.SetLength(4);
    EXPECT_EQ(4u, file.GetLength());
    EXPECT_EQ(4u, file.GetPosition());
    file.SetLength(100);
    EXPECT_EQ(100u, file.GetLength());
    file.Flush();
    file.Close();
    EXPECT_EQ(CFile::hFileNull, file.m_hFile);
    file.Close(); // closing a closed file is nothing
}

TEST_F(CFileTest, BadSeeksAndBuffersThrow)
{
    CFile file(Path("seek.bin"), CFile::modeCreate | CFile::modeReadWrite | CFile::shareDenyNone);
    CThrown thrown = CatchFileException([&] { file.Seek(-1, CFile::begin); });
    EXPECT_EQ(CFileException::badSeek, thrown.nCause);
    EXPECT_EQ(ERROR_NEGATIVE_SEEK, thrown.lOsError);
    EXPECT_STREQ(Path("seek.bin"), thrown.strFileName);
    EXPECT_TRUE(ThrowsInvalidArg([&] { file.Seek(0, 7); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { file.Read(NULL, 3); }));
    EXPECT_TRUE(ThrowsInvalidArg([&] { file.Write(NULL, 3); }));
    file.Write(NULL, 0); // nothing to write

    CFile reader(Path("seek.bin"), CFile::modeRead | CFile::shareDenyNone);
    thrown = CatchFileException([&] { reader.Write("x", 1); });
    EXPECT_EQ(CFileException::accessDenied, thrown.nCause);
    EXPECT_EQ(ERROR_ACCESS_DENIED, thrown.lOsError);
}

TEST_F(CFileTest, FailedOpensReportTheirCause)
{
    MakeFile("there.txt", "x");
    struct
    {
        CString strName;
        UINT nFlags;
        int nCause;
        LONG lOsError;
    } cases[] = {
        {Path("missing.txt"), CFile::modeRead, CFileException::fileNotFound, ERROR_FILE_NOT_FOUND},
        {Path("nodir\\x.txt"), CFile::modeRead, CFileException::badPath, ERROR_PATH_NOT_FOUND},
        {m_strDir, CFile::modeRead, CFileException::accessDenied, ERROR_ACCESS_DENIED}, // a directory
        {Path("there.txt"), CFile::modeWrite | CFile::modeReadWrite, CFileException::genericException,
         ERROR_INVALID_PARAMETER},
        {Path("there.txt"), CFile::modeRead | 0x0050, CFileException::genericException, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(static_cast<LPCTSTR>(c.strName));
        CFile file;
        CFileException error;
        EXPECT_FALSE(file.Open(c.strName, c.nFlags, &error));
        EXPECT_EQ(c.nCause, error.m_cause);
        EXPECT_EQ(c.lOsError, error.m_lOsError);
        EXPECT_STREQ(c.strName, error.m_strFileName);
        EXPECT_EQ(CFile::hFileNull, file.m_hFile);
        EXPECT_FALSE(file.Open(c.strName, c.nFlags)); // no record, no exception

        CThrown thrown = CatchFileException([&] { CFile opened(c.strName, c.nFlags); });
        EXPECT_EQ(c.nCause, thrown.nCause);
        EXPECT_EQ(c.lOsError, thrown.lOsError);
    }
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(NULL, CFile::modeRead, &error));
    EXPECT_EQ(CFileException::badPath, error.m_cause);
    ASSERT_TRUE(file.Open(Path("there.txt"), CFile::modeRead));
    EXPECT_FALSE(file.Open(Path("there.txt"), CFile::modeRead, &error)); // already open
    EXPECT_EQ(CFileException::genericException, error.m_cause);
}

TEST_F(CFileTest, SharingModesAreEnforced)
{
    CString strPath = Path("shared.bin");
    CFileException error;
    {
        CFile first(strPath, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive);
        CFile second;
        EXPECT_FALSE(second.Open(strPath, CFile::modeRead | CFile::shareDenyNone, &error));
        EXPECT_EQ(CFileException::sharingViolation, error.m_cause);
    }
    {
        CFile compat(strPath, CFile::modeWrite | CFile::shareCompat); // taken as exclusive
        CFile second;
        EXPECT_FALSE(second.Open(strPath, CFile::modeRead | CFile::shareDenyNone, &error));
        EXPECT_EQ(CFileException::sharingViolation, error.m_cause);
    }
    CFile reader(strPath, CFile::modeRead | CFile::shareDenyWrite);
    CFile otherReader;
    EXPECT_TRUE(otherReader.Open(strPath, CFile::modeRead | CFile::shareDenyNone));
    CFile writer;
    EXPECT_FALSE(writer.Open(strPath, CFile::modeWrite | CFile::shareDenyNone, &error));
    EXPECT_EQ(CFileException::sharingViolation, error.m_cause);
}

TEST_F(CFileTest, CreateTruncatesUnlessToldNotTo)
{
    MakeFile("keep.txt", "abc");
    {
        CFile file(Path("keep.txt"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite);
        EXPECT_EQ(3u, file.GetLength());
    }
    {
        CFile file(Path("keep.txt"), CFile::modeCreate | CFile::modeWrite);
        EXPECT_EQ(0u, file.GetLength());
    }
    CFile fresh(Path("fresh.txt"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite);
    EXPECT_EQ(0u, fresh.GetLength());
}

TEST_F(CFileTest, NamesAndPaths)
{
    CFile file(Path("report.dat"), CFile::modeCreate | CFile::modeWrite);
    EXPECT_STREQ("report.dat", file.GetFileName());
    EXPECT_STREQ(Path("report.dat"), file.GetFilePath());
    file.Close();
    EXPECT_STREQ("", file.GetFileName());
    EXPECT_STREQ("", file.GetFilePath());

    char szCurrent[MAX_PATH];
    ::GetCurrentDirectoryA(MAX_PATH, szCurrent);
    ASSERT_TRUE(::SetCurrentDirectoryA(m_strDir));
    CFile relative;
    EXPECT_TRUE(relative.Open("relative.txt", CFile::modeCreate | CFile::modeWrite));
    ::SetCurrentDirectoryA(szCurrent);
    EXPECT_STREQ(Path("relative.txt"), relative.GetFilePath());
    EXPECT_STREQ("relative.txt", relative.GetFileName());
}

TEST_F(CFileTest, ClosingFailuresThrowButAbortNeverDoes)
{
    CFile file(Path("closed.bin"), CFile::modeCreate | CFile::modeWrite);
    ::CloseHandle(file.m_hFile); // behind the object's back
    CThrown thrown = CatchFileException([&] { file.Close(); });
    EXPECT_EQ(CFileException::invalidFile, thrown.nCause);
    EXPECT_EQ(ERROR_INVALID_HANDLE, thrown.lOsError);
    EXPECT_STREQ(Path("closed.bin"), thrown.strFileName);
    EXPECT_EQ(CFile::hFileNull, file.m_hFile);

    ASSERT_TRUE(file.Open(Path("closed.bin"), CFile::modeWrite));
    ::CloseHandle(file.m_hFile);
    file.Abort();
    EXPECT_EQ(CFile::hFileNull, file.m_hFile);
}

TEST_F(CFileTest, OnlyFilesItOpenedAreClosedOnDestruction)
{
    CString strPath = Path("owned.bin");
    {
        CFile file(strPath, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive);
    }
    CFileException error;
    CFile again;
    EXPECT_TRUE(again.Open(strPath, CFile::modeRead | CFile::shareExclusive, &error));
    again.Close();

    HANDLE hFile = ::CreateFileA(strPath, GENERIC_WRITE, 0, NULL, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, NULL);
    ASSERT_NE(INVALID_HANDLE_VALUE, hFile);
    {
        CFile wrapper(hFile);
        EXPECT_EQ(hFile, static_cast<HANDLE>(wrapper));
        wrapper.Write("x", 1);
    }
    DWORD dwWritten = 0;
    EXPECT_TRUE(::WriteFile(hFile, "y", 1, &dwWritten, NULL)); // still open
    ::CloseHandle(hFile);
}

TEST_F(CFileTest, StatusOfFilesAndDirectories)
{
    MakeFile("five.txt", "12345");
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(Path("five.txt"), status));
    EXPECT_EQ(5u, status.m_size);
    EXPECT_STREQ(Path("five.txt"), status.m_szFullName);
    EXPECT_EQ(0, status.m_attribute & CFile::directory);
    EXPECT_GT(status.m_mtime, static_cast<time_t>(946684800)); // after 2000
    EXPECT_GT(status.m_ctime, static_cast<time_t>(0));

    ASSERT_TRUE(CFile::GetStatus(m_strDir, status));
    EXPECT_NE(0, status.m_attribute & CFile::directory);

    struct
    {
        CString strName;
    } missing[] = {{Path("none.txt")}, {Path("*.txt")}, {Path("fi?e.txt")}};
    for (const auto& m : missing)
    {
        SCOPED_TRACE(static_cast<LPCTSTR>(m.strName));
        EXPECT_FALSE(CFile::GetStatus(m.strName, status));
        EXPECT_EQ(0u, status.m_size);
        EXPECT_STREQ("", status.m_szFullName);
    }
    EXPECT_FALSE(CFile::GetStatus(NULL, status));
}

TEST_F(CFileTest, RemoveAndRename)
{
    MakeFile("a.txt", "a");
    MakeFile("c.txt", "c");
    CFile::Rename(Path("a.txt"), Path("b.txt"));
    CFileStatus status;
    EXPECT_FALSE(CFile::GetStatus(Path("a.txt"), status));
    EXPECT_TRUE(CFile::GetStatus(Path("b.txt"), status));

    CThrown thrown = CatchFileException([&] { CFile::Rename(Path("b.txt"), Path("c.txt")); });
    EXPECT_EQ(CFileException::accessDenied, thrown.nCause);
    EXPECT_STREQ(Path("b.txt"), thrown.strFileName);

    CFile::Remove(Path("b.txt"));
    thrown = CatchFileException([&] { CFile::Remove(Path("b.txt")); });
    EXPECT_EQ(CFileException::fileNotFound, thrown.nCause);
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, thrown.lOsError);
    EXPECT_STREQ(Path("b.txt"), thrown.strFileName);
}

TEST(CFileExceptionTest, SystemErrorsMapToCauses)
{
    struct
    {
        LONG lOsError;
        int nCause;
    } cases[] = {
        {ERROR_SUCCESS, CFileException::none},
        {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
        {ERROR_PATH_NOT_FOUND, CFileException::badPath},
        {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
        {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
        {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
        {ERROR_DISK_FULL, CFileException::diskFull},
        {ERROR_HANDLE_EOF, CFileException::endOfFile},
        {ERROR_INVALID_PARAMETER, CFileException::genericException},
        {12345, CFileException::genericException},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.lOsError);
        EXPECT_EQ(c.nCause, CFileException::OsErrorToException(c.lOsError));
    }
    CThrown thrown = CatchFileException([] { CFileException::ThrowOsError(ERROR_LOCK_VIOLATION, "locked.dat"); });
    EXPECT_EQ(CFileException::lockViolation, thrown.nCause);
    EXPECT_STREQ("locked.dat", thrown.strFileName);
    // A failure the system gave no code for is still a failure.
    thrown = CatchFileException([] { CFileException::ThrowOsError(0); });
    EXPECT_EQ(CFileException::genericException, thrown.nCause);
    EXPECT_EQ(0, thrown.lOsError);
}

TEST(CFileExceptionTest, MessagesNameTheFile)
{
    char szMessage[128];
    UINT nHelp = 99;
    CFileException notFound(CFileException::fileNotFound, ERROR_FILE_NOT_FOUND, "C:\\data\\report.dat");
    ASSERT_TRUE(notFound.GetErrorMessage(szMessage, sizeof(szMessage), &nHelp));
    EXPECT_STREQ("C:\\data\\report.dat was not found.", szMessage);
    EXPECT_EQ(0u, nHelp);
    ASSERT_TRUE(notFound.GetErrorMessage(szMessage, 8));
    EXPECT_STREQ("C:\\data", szMessage);
    EXPECT_FALSE(notFound.GetErrorMessage(NULL, 8));

    CFileException full(CFileException::diskFull);
    full.GetErrorMessage(szMessage, sizeof(szMessage));
    EXPECT_STREQ("Disk full while accessing an unnamed file.", szMessage);
    CFileException odd(99, -1, "x.dat");
    odd.GetErrorMessage(szMessage, sizeof(szMessage));
    EXPECT_STREQ("An unexpected error occurred while accessing x.dat.", szMessage);
    EXPECT_EQ(-1, CFileException().m_lOsError);
    EXPECT_EQ(CFileException::none, CFileException().m_cause);
}
