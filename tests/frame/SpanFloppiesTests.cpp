#include <afxwin.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "ImportRecorder.h"
#include "SpanFloppies.h"

namespace
{
typedef std::vector<std::string> CTexts;

// Sources and hand-made series live off drive A, joins are written to OUT.
const std::string WORK_DIR = "C:\\KELSPAN\\";
const std::string OUT_DIR = "C:\\KELSPAN\\OUT\\";
const char INSERT_FIRST[] = "Please Insert Disk 1";
const char INSERT_NEXT[] = "Please Insert Next Disk";
const char NOT_THERE[] = "The File Does not Exist.  Would you like to continue?";
const char MISSING[] = "<missing>";

// Binary data with line feeds, carriage returns and zeros, so no text translation goes unseen.
std::string Bytes(size_t nCount, unsigned nSeed = 1)
{
    std::string data(nCount, '\0');
    for (size_t i = 0; i < nCount; ++i)
    {
        nSeed = nSeed * 1103515245u + 12345u;
        data[i] = static_cast<char>(nSeed >> 24);
    }
    return data;
}

void Write(const std::string& strPath, const std::string& data)
{
    FILE* pFile = fopen(strPath.c_str(), "wb");
    ASSERT_NE(nullptr, pFile) << strPath;
    fwrite(data.data(), 1, data.size(), pFile);
    fclose(pFile);
}

std::string Read(const std::string& strPath)
{
    FILE* pFile = fopen(strPath.c_str(), "rb");
    if (pFile == NULL)
        return MISSING;
    std::string data;
    char buffer[65536];
    for (size_t n; (n = fread(buffer, 1, sizeof(buffer), pFile)) > 0;)
        data.append(buffer, n);
    fclose(pFile);
    return data;
}

// Names of the files and directories in a directory, removing them when asked.
CTexts List(const std::string& strDir, bool bRemove = false)
{
    CTexts names;
    WIN32_FIND_DATAA find;
    HANDLE hFind = FindFirstFileA((strDir + "*").c_str(), &find);
    for (BOOL bMore = hFind != INVALID_HANDLE_VALUE; bMore; bMore = FindNextFileA(hFind, &find))
    {
        std::string strName = find.cFileName;
        if (strName == "." || strName == "..")
            continue;
        names.push_back(strName);
        if (!bRemove)
            continue;
        std::string strPath = strDir + strName;
        if (find.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        {
            List(strPath + "\\", true);
            RemoveDirectoryA(strPath.c_str());
        }
        else
        {
            DeleteFileA(strPath.c_str());
        }
    }
    if (hFind != INVALID_HANDLE_VALUE)
        FindClose(hFind);
    return names;
}
} // namespace

class CSpanFloppiesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_GT(m_recorder.Install(GetModuleHandleA("KelControls.dll")), 0);
        Clean();
    }
    void TearDown() override
    {
        Clean();
        RemoveDirectoryA(OUT_DIR.c_str());
        RemoveDirectoryA(WORK_DIR.c_str());
        m_recorder.Uninstall();
    }

    static void Clean()
    {
        List("A:\\", true);
        List(WORK_DIR, true);
        CreateDirectoryA(WORK_DIR.c_str(), NULL);
        CreateDirectoryA(OUT_DIR.c_str(), NULL);
    }

    CTexts Boxes() const
    {
        CTexts texts;
        for (const CImportRecorder::CMessageBoxCall& call : m_recorder.GetRecords().m_messageBoxes)
            texts.push_back(call.m_strText);
        return texts;
    }

    // Spans a source of the given bytes with the given free space on the "diskette".
    int Span(const std::string& strName, const std::string& data, ULONGLONG nFree, const char* pszTarget = "A:\\")
    {
        Write(WORK_DIR + strName, data);
        CImportRecorder::CDiskFreeSpace answer = {TRUE, 0, nFree, 1457664, nFree};
        m_recorder.SetDefaultDiskFreeSpace(answer);
        CSpanFloppies span(pszTarget);
        return span.SpanFile((WORK_DIR + strName).c_str());
    }

    int Join(const std::string& strFirst, const char* pszTarget = OUT_DIR.c_str())
    {
        CSpanFloppies span(pszTarget);
        return span.JoinSegments(strFirst.c_str());
    }

    CImportRecorder& m_recorder = CImportRecorder::Get();
};

TEST_F(CSpanFloppiesTest, TargetMustBeOnDriveA)
{
    const std::string data = Bytes(100);
    struct Case
    {
        const char* target;
        int result;
        const char* segment; // where REPORT.SP0 lands, NULL for none
    } cases[] = {
        {"c:\\temp", 0, NULL}, // not drive A: refused without a word
        {"A", 0, NULL},        // no ':': emptied
        {"", 0, NULL},
        {NULL, 0, NULL},
        {"A:", 1, "A:\\REPORT.SP0"}, // a backslash is added
        {"a:\\", 1, "A:\\REPORT.SP0"},
        {"a:/", 1, "A:/REPORT.SP0"}, // a slash ends it as well
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.target != NULL ? c.target : "(null)");
        Clean();
        m_recorder.ClearRecords();
        EXPECT_EQ(c.result, Span("report.dat", data, 1457664, c.target));
        if (c.segment == NULL)
        {
            EXPECT_EQ(CTexts(), Boxes());
            EXPECT_EQ(CTexts(), List("A:\\"));
            continue;
        }
        EXPECT_EQ(CTexts({INSERT_FIRST}), Boxes());
        EXPECT_EQ("01REPORT.DAT\n" + data, Read(c.segment));
    }
}

TEST_F(CSpanFloppiesTest, SegmentsAreSizedByTheFirstDisketteAndTheTailIsLost)
{
    struct Case
    {
        size_t length;
        ULONGLONG free;
        int segments;
        size_t size; // data bytes per segment
    } cases[] = {
        {1000001, 600000, 2, 500000},              // the last byte is never written
        {1000001, 0x100000000ull + 600000, 2, 500000}, // only the low 32 bits of the free space count
        {100, 1457664, 1, 100},
        {0, 1457664, 1, 0},
        {10, 3, 4, 2}, // 4 x 2 bytes: the last two are lost
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.length);
        Clean();
        m_recorder.ClearRecords();
        const std::string data = Bytes(c.length);
        ASSERT_EQ(1, Span("report.dat", data, c.free));

        CTexts expectedBoxes(c.segments, INSERT_NEXT);
        expectedBoxes[0] = INSERT_FIRST;
        EXPECT_EQ(expectedBoxes, Boxes());
        EXPECT_EQ(static_cast<size_t>(c.segments), List("A:\\").size());
        for (int i = 0; i < c.segments; ++i)
        {
            std::string expected = data.substr(i * c.size, c.size);
            if (i == 0)
                expected = "0" + std::to_string(c.segments) + "REPORT.DAT\n" + expected;
            EXPECT_EQ(expected, Read("A:\\REPORT.SP" + std::to_string(i))) << "segment " << i;
        }
        const std::vector<CImportRecorder::CDiskFreeSpaceCall>& calls = m_recorder.GetRecords().m_diskFreeSpaceCalls;
        ASSERT_EQ(1u, calls.size());
        EXPECT_EQ("a:\\", calls[0].m_strRoot);
        EXPECT_TRUE(calls[0].m_bEx);
    }
}

TEST_F(CSpanFloppiesTest, NameWithoutDotGivesBareSegmentNames)
{
    const std::string data = Bytes(50);
    ASSERT_EQ(1, Span("readme", data, 1457664));
    EXPECT_EQ(CTexts({".SP0"}), List("A:\\"));
    EXPECT_EQ("01README\n" + data, Read("A:\\.SP0"));
}

TEST_F(CSpanFloppiesTest, FailuresBeforeTheFirstSegmentReturnZero)
{
    struct Case
    {
        const char* name;
        bool source;
        CImportRecorder::CDiskFreeSpace free;
        CTexts boxes;
    } cases[] = {
        {"missing source", false, {TRUE, 0, 1457664, 0, 0}, {"Could not Open File"}},
        {"drive not ready", true, {FALSE, ERROR_NOT_READY, 0, 0, 0}, {INSERT_FIRST, "Failed to Read Floppy Drive"}},
        // Nothing to size the segments by: refused rather than divided by.
        {"no free byte", true, {TRUE, 0, 0, 0, 0}, {INSERT_FIRST, "Failed to Read Floppy Drive"}},
        {"4 GB free, low 32 bits 0", true, {TRUE, 0, 0x100000000ull, 0, 0}, {INSERT_FIRST, "Failed to Read Floppy Drive"}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        Clean();
        m_recorder.ClearRecords();
        if (c.source)
            Write(WORK_DIR + "report.dat", Bytes(100));
        m_recorder.SetDefaultDiskFreeSpace(c.free);
        CSpanFloppies span("A:\\");
        EXPECT_EQ(0, span.SpanFile((WORK_DIR + "report.dat").c_str()));
        EXPECT_EQ(c.boxes, Boxes());
        EXPECT_EQ(CTexts(), List("A:\\"));
        for (const CImportRecorder::CMessageBoxCall& call : m_recorder.GetRecords().m_messageBoxes)
        {
            EXPECT_EQ(static_cast<UINT>(MB_OK | MB_ICONEXCLAMATION), call.m_uType);
            EXPECT_EQ(nullptr, call.m_hWndOwner); // no application, no main window
            EXPECT_EQ("", call.m_strCaption);
        }
    }
}

TEST_F(CSpanFloppiesTest, CreateErrorStopsTheSeriesYetReturnsOne)
{
    CreateDirectoryA("A:\\REPORT.SP1", NULL); // in the way of the second segment
    const std::string data = Bytes(30);
    EXPECT_EQ(1, Span("report.dat", data, 12)); // three segments of ten
    EXPECT_EQ(CTexts({INSERT_FIRST, INSERT_NEXT, "Error Creating File"}), Boxes());
    EXPECT_EQ("03REPORT.DAT\n" + data.substr(0, 10), Read("A:\\REPORT.SP0"));
    EXPECT_EQ(MISSING, Read("A:\\REPORT.SP2"));
}

TEST_F(CSpanFloppiesTest, JoinFromTheDisketteDriveGivesBackAllButTheTail)
{
    const std::string data = Bytes(1000001);
    struct Case
    {
        const char* first;
        CTexts boxes;
    } cases[] = {
        {"A:\\REPORT.SP0", {INSERT_NEXT}},
        {"a:\\report.sp0", {}}, // only an upper-case 'A' is taken for the diskette drive
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.first);
        Clean();
        ASSERT_EQ(1, Span("report.dat", data, 600000));
        m_recorder.ClearRecords();
        EXPECT_EQ(1, Join(c.first));
        EXPECT_EQ(c.boxes, Boxes());
        EXPECT_TRUE(Read(OUT_DIR + "REPORT.DAT") == data.substr(0, 1000000));
    }
}

TEST_F(CSpanFloppiesTest, JoinReadsSegmentsBesideTheFirstIntoTheTarget)
{
    const std::string a = Bytes(700, 1), b = Bytes(700, 2), c = Bytes(650, 3);
    Write(WORK_DIR + "REPORT.SP0", "03REPORT.DAT\n" + a);
    Write(WORK_DIR + "REPORT.SP1", b);
    Write(WORK_DIR + "REPORT.SP2", c);
    EXPECT_EQ(1, Join(WORK_DIR + "REPORT.SP0"));
    EXPECT_EQ(CTexts(), Boxes());
    EXPECT_EQ(a + b + c, Read(OUT_DIR + "REPORT.DAT"));
}

TEST_F(CSpanFloppiesTest, MissingSegmentIsAskedForUntilTheAnswerIsNotYes)
{
    const std::string a = Bytes(40);
    Write(WORK_DIR + "REPORT.SP0", "02REPORT.DAT\n" + a);
    m_recorder.PushMessageBoxReply(IDYES);
    m_recorder.PushMessageBoxReply(IDYES);
    m_recorder.PushMessageBoxReply(IDCANCEL);
    EXPECT_EQ(0, Join(WORK_DIR + "REPORT.SP0"));
    EXPECT_EQ(CTexts(3, NOT_THERE), Boxes());
    EXPECT_EQ(static_cast<UINT>(MB_YESNO | MB_ICONQUESTION), m_recorder.GetRecords().m_messageBoxes[0].m_uType);
    EXPECT_EQ(a, Read(OUT_DIR + "REPORT.DAT"));
}

TEST_F(CSpanFloppiesTest, DigitsLeadingTheNameCorruptTheCount)
{
    // A one-segment series "012003.LOG" reads back as 12,003 segments, so 2003.SP1 is asked for.
    const std::string data = Bytes(80);
    ASSERT_EQ(1, Span("2003.log", data, 1457664));
    m_recorder.ClearRecords();
    EXPECT_EQ(0, Join("A:\\2003.SP0"));
    EXPECT_EQ(CTexts({INSERT_NEXT, NOT_THERE}), Boxes());
    EXPECT_EQ(data, Read(OUT_DIR + "2003.LOG"));
}

TEST_F(CSpanFloppiesTest, ReadErrorStopsTheJoinYetReturnsOne)
{
    const std::string a = Bytes(40);
    Write(WORK_DIR + "REPORT.SP0", "03REPORT.DAT\n" + a);
    CreateDirectoryA((WORK_DIR + "REPORT.SP1").c_str(), NULL); // there, but cannot be opened
    Write(WORK_DIR + "REPORT.SP2", Bytes(40, 2));
    EXPECT_EQ(1, Join(WORK_DIR + "REPORT.SP0"));
    EXPECT_EQ(CTexts({"Error Reading File"}), Boxes());
    EXPECT_EQ(a, Read(OUT_DIR + "REPORT.DAT"));
}

TEST_F(CSpanFloppiesTest, EachSegmentGivesAtMost2000000Bytes)
{
    const std::string a = "02BIG.DAT\n" + Bytes(2000100, 1), b = Bytes(2000100, 2);
    Write(WORK_DIR + "BIG.SP0", a);
    Write(WORK_DIR + "BIG.SP1", b);
    EXPECT_EQ(1, Join(WORK_DIR + "BIG.SP0"));
    EXPECT_TRUE(Read(OUT_DIR + "BIG.DAT") == a.substr(10, 2000000 - 10) + b.substr(0, 2000000));
}

TEST_F(CSpanFloppiesTest, HeaderIsTheFirstLineCutAt200Characters)
{
    const std::string longName(198, 'N');
    struct Case
    {
        const char* name;
        std::string first; // segment 0
        std::string output;
        std::string data;
    } cases[] = {
        {"no line feed: all header", "01NOLF", "NOLF", ""},
        {"header only", "01EMPTY.DAT\n", "EMPTY.DAT", ""},
        {"long header", "01" + longName + "XYZ\nbody", longName, "body"},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.name);
        Write(WORK_DIR + "H.SP0", c.first);
        EXPECT_EQ(1, Join(WORK_DIR + "H.SP0"));
        EXPECT_EQ(c.data, Read(OUT_DIR + c.output));
    }
    EXPECT_EQ(CTexts(), Boxes());
}

TEST_F(CSpanFloppiesTest, JoinFailuresReturnZero)
{
    Write(WORK_DIR + "REPORT.SP0", "02REPORT.DAT\nabc");
    Write(WORK_DIR + "SHORT.SP0", "2\nabc"); // no name: the output would be the directory itself
    struct Case
    {
        std::string first;
        const char* target;
        CTexts boxes;
    } cases[] = {
        {WORK_DIR + "NONE.SP0", OUT_DIR.c_str(), {"Could not Open File.  Incorrect File Format"}},
        // The join stops at once: the missing second segment is never asked for.
        {WORK_DIR + "REPORT.SP0", "C:\\KELSPAN\\NODIR", {"Operation Failed"}},
        {WORK_DIR + "SHORT.SP0", OUT_DIR.c_str(), {"Operation Failed"}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.first);
        m_recorder.ClearRecords();
        EXPECT_EQ(0, Join(c.first, c.target));
        EXPECT_EQ(c.boxes, Boxes());
    }
}

TEST_F(CSpanFloppiesTest, BoxesBelongToTheMainWindowAndCarryTheApplicationsName)
{
    CWinApp app("SpanHost");
    CWnd wnd;
    ASSERT_TRUE(wnd.Attach(CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, NULL, NULL, NULL, NULL)));
    app.m_pMainWnd = &wnd;
    CSpanFloppies span("A:\\");
    EXPECT_EQ(0, span.SpanFile((WORK_DIR + "none.dat").c_str()));
    const std::vector<CImportRecorder::CMessageBoxCall>& boxes = m_recorder.GetRecords().m_messageBoxes;
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ(wnd.GetSafeHwnd(), boxes[0].m_hWndOwner);
    EXPECT_EQ("SpanHost", boxes[0].m_strCaption);
    app.m_pMainWnd = NULL;
    wnd.DestroyWindow();
}
