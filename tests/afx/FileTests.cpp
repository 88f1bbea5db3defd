#include <afx.h>
#include <gtest/gtest.h>

#include "tests/afx/ExpectThrow.h"

namespace
{
// fn must throw the CFileException* of nCause, lOsError and the file name.
template <class TFn>
void ExpectFileException(int nCause, LONG lOsError, LPCTSTR lpszFileName, TFn fn)
{
    try
    {
        fn();
        ADD_FAILURE() << "no exception";
    }
    catch (CFileException* e)
    {
        EXPECT_EQ(nCause, e->m_cause);
        EXPECT_EQ(lOsError, e->m_lOsError);
        EXPECT_STREQ(lpszFileName, e->m_strFileName);
        e->Delete();
    }
}

// Every test works in a directory of its own under the temporary directory.
class CFileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_strDir.Format("%skelafx_file_%lu\\", testing::TempDir().c_str(),
                        static_cast<unsigned long>(::GetCurrentProcessId()));
        ::CreateDirectoryA(m_strDir, NULL);
    }
    void TearDown() override
    {
        WIN32_FIND_DATAA fd;
        HANDLE hFind = ::FindFirstFileA(m_strDir + "*", &fd);
        for (BOOL bMore = hFind != INVALID_HANDLE_VALUE; bMore; bMore = ::FindNextFileA(hFind, &fd))
            ::DeleteFileA(m_strDir + fd.cFileName);
        ::FindClose(hFind);
        ::RemoveDirectoryA(m_strDir);
    }

    CString Path(LPCTSTR lpszName) const { return m_strDir + lpszName; }

    CString m_strDir;
};
} // namespace

TEST_F(CFileTest, ReadsSeeksAndClosesButAbortAndDestructionNeverThrow)
{
    const CString strName = m_strDir + "none\\..\\data.bin"; // kept as given for the exceptions
    CFile file(strName, CFile::modeCreate | CFile::modeReadWrite);
    EXPECT_STREQ(Path("data.bin"), file.GetFilePath());
    file.Write("0123456789", 10);
    char buf[5];
    EXPECT_EQ(7u, file.Seek(-3, CFile::current));
    EXPECT_EQ(3u, file.Read(buf, 5)); // fewer at the end
    EXPECT_EQ(20u, file.Seek(20, CFile::begin)); // past the end is allowed
    file.SetLength(4);
    EXPECT_EQ(4u, file.GetPosition()); // moved to the new end
    ExpectFileException(CFileException::badSeek, ERROR_NEGATIVE_SEEK, strName, [&] { file.Seek(-1, CFile::begin); });
    ExpectThrown<CInvalidArgException>([&] { file.Seek(0, 7); });
    ExpectThrown<CInvalidArgException>([&] { file.Read(NULL, 3); });
    ExpectThrown<CInvalidArgException>([&] { file.Write(NULL, 3); });
    EXPECT_EQ(0u, file.Read(NULL, 0)); // nothing to read or write
    file.Write(NULL, 0);

    ::CloseHandle(file.m_hFile); // behind the object's back
    ExpectFileException(CFileException::invalidFile, ERROR_INVALID_HANDLE, strName, [&] { file.Close(); });
    EXPECT_EQ(CFile::hFileNull, file.m_hFile);
    EXPECT_STREQ("", file.GetFilePath());
    file.Close(); // closing a closed file is nothing
    ASSERT_TRUE(file.Open(strName, CFile::modeWrite));
    ::CloseHandle(file.m_hFile);
    file.Abort();
    EXPECT_EQ(CFile::hFileNull, file.m_hFile);

    // Destruction closes only the files the object opened.
    EXPECT_EQ(4u, CFile(strName, CFile::modeWrite | CFile::shareExclusive).GetLength());
    HANDLE hFile = ::CreateFileA(strName, GENERIC_WRITE, 0, NULL, OPEN_EXISTING, 0, NULL);
    ASSERT_NE(INVALID_HANDLE_VALUE, hFile);
    EXPECT_EQ(hFile, CFile(hFile).m_hFile); // a wrapper only
    EXPECT_TRUE(::CloseHandle(hFile)); // still open
}

TEST_F(CFileTest, FailedOpensReportTheirCause)
{
    CFile(Path("there.txt"), CFile::modeCreate | CFile::modeWrite).Close();
    // Flags without meaning, in the access and in the sharing bits, fail as invalid.
    const struct { CString strName; UINT nFlags; int nCause; LONG lOsError; } cases[] = {
        {Path("missing.txt"), CFile::modeRead, CFileException::fileNotFound, ERROR_FILE_NOT_FOUND},
        {Path("there.txt"), 0x0003, CFileException::genericException, ERROR_INVALID_PARAMETER},
        {Path("there.txt"), 0x0050, CFileException::genericException, ERROR_INVALID_PARAMETER}};
    CFile file;
    CFileException error;
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << static_cast<LPCTSTR>(c.strName) << ", flags " << c.nFlags);
        EXPECT_FALSE(file.Open(c.strName, c.nFlags, &error));
        EXPECT_EQ(c.nCause, error.m_cause);
        EXPECT_EQ(c.lOsError, error.m_lOsError);
        EXPECT_STREQ(c.strName, error.m_strFileName);
        EXPECT_FALSE(file.Open(c.strName, c.nFlags)); // no record, no exception
        ExpectFileException(c.nCause, c.lOsError, c.strName, [&] { CFile opened(c.strName, c.nFlags); });
    }
    EXPECT_FALSE(file.Open(NULL, CFile::modeRead, &error));
    EXPECT_EQ(CFileException::badPath, error.m_cause);
    ASSERT_TRUE(file.Open(Path("there.txt"), CFile::modeRead));
    EXPECT_FALSE(file.Open(Path("there.txt"), CFile::modeRead, &error)); // already open
    EXPECT_EQ(CFileException::genericException, error.m_cause);
}

TEST_F(CFileTest, SharingAndCreationModes)
{
    const CString strPath = Path("shared.bin");
    CFile(strPath, CFile::modeCreate | CFile::modeWrite).Write("abc", 3);
    CFileException error;
    {
        CFile compat(strPath, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite | CFile::shareCompat);
        EXPECT_EQ(3u, compat.GetLength());
        // Compatibility mode is taken as exclusive.
        EXPECT_FALSE(CFile().Open(strPath, CFile::modeRead | CFile::shareDenyNone, &error));
        EXPECT_EQ(CFileException::sharingViolation, error.m_cause);
    }
    EXPECT_EQ(0u, CFile(strPath, CFile::modeCreate | CFile::modeWrite).GetLength()); // truncated
    CFile reader(strPath, CFile::modeRead | CFile::shareDenyWrite);
    EXPECT_TRUE(CFile().Open(strPath, CFile::modeRead | CFile::shareDenyNone));
    EXPECT_FALSE(CFile().Open(strPath, CFile::modeWrite | CFile::shareDenyNone));
}

TEST_F(CFileTest, StatusRemoveAndRename)
{
    const CString strA = Path("a.txt");
    CFile(strA, CFile::modeCreate | CFile::modeWrite).Write("12345", 5);
    CFile(Path("c.txt"), CFile::modeCreate | CFile::modeWrite).Close();
    CFileStatus status;
    ASSERT_TRUE(CFile::GetStatus(m_strDir + "none\\..\\a.txt", status));
    EXPECT_EQ(5u, status.m_size);
    EXPECT_STREQ(strA, status.m_szFullName);
    EXPECT_GT(status.m_mtime, static_cast<time_t>(946684800)); // after 2000
    EXPECT_FALSE(CFile::GetStatus(Path("?.txt"), status)); // wildcards never match
    EXPECT_STREQ("", status.m_szFullName);
    EXPECT_FALSE(CFile::GetStatus(NULL, status));

    // The old name is the one a failed renaming names.
    ExpectFileException(CFileException::accessDenied, ERROR_ALREADY_EXISTS, strA,
                        [&] { CFile::Rename(strA, Path("c.txt")); });
    CFile::Remove(strA);
    ExpectFileException(CFileException::fileNotFound, ERROR_FILE_NOT_FOUND, strA, [&] { CFile::Remove(strA); });
}

TEST(CFileExceptionTest, SystemErrorsMapToCausesAndMessagesNameTheFile)
{
    EXPECT_EQ(CFileException::none, CFileException::OsErrorToException(ERROR_SUCCESS));
    EXPECT_EQ(CFileException::diskFull, CFileException::OsErrorToException(ERROR_DISK_FULL));
    EXPECT_EQ(CFileException::genericException, CFileException::OsErrorToException(12345));
    // A failure the system gave no code for is still a failure.
    ExpectFileException(CFileException::genericException, 0, "", [] { CFileException::ThrowOsError(0); });
    EXPECT_EQ(-1, CFileException(CFileException::diskFull).m_lOsError); // not the system's

    char szMessage[128];
    UINT nHelp = 99;
    CFileException notFound(CFileException::fileNotFound, ERROR_FILE_NOT_FOUND, "C:\\data\\report.dat");
    ASSERT_TRUE(notFound.GetErrorMessage(szMessage, sizeof(szMessage), &nHelp));
    EXPECT_STREQ("C:\\data\\report.dat was not found.", szMessage);
    EXPECT_EQ(0u, nHelp);
    ASSERT_TRUE(notFound.GetErrorMessage(szMessage, 8));
    EXPECT_STREQ("C:\\data", szMessage);
    EXPECT_FALSE(notFound.GetErrorMessage(NULL, 8));
    CFileException(CFileException::diskFull).GetErrorMessage(szMessage, sizeof(szMessage));
    EXPECT_STREQ("Disk full while accessing an unnamed file.", szMessage);
    CFileException(99, -1, "x.dat").GetErrorMessage(szMessage, sizeof(szMessage));
    EXPECT_STREQ("An unexpected error occurred while accessing x.dat.", szMessage);
}
