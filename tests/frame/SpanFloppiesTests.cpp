#include <afxwin.h>
#include <gtest/gtest.h>

#include <ctype.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "tests/harness/ImportRecorder.h"
#include "values/SpanFloppies.h"

namespace
{
typedef std::vector<std::string> CTexts;

// Sources and most hand-made series live off drive A; joins are written to OUT.
const std::string WORK_DIR = "C:\\KELSPAN\\";
const std::string OUT_DIR = "C:\\KELSPAN\\OUT\\";
const char INSERT_FIRST[] = "Please Insert Disk 1";
const char INSERT_NEXT[] = "Please Insert Next Disk";
const char NO_DRIVE[] = "Failed to Read Floppy Drive";
const char NOT_THERE[] = "The File Does not Exist.  Would you like to continue?";
const char MISSING[] = "<missing>";
const char DIRECTORY[] = "<directory>";
const ULONGLONG DISKETTE = 1457664;
const ULONGLONG NOT_READY = ~0ull; // as free space: the drive cannot be read

// Binary data with line feeds, carriage returns and zeros, so no text translation goes unseen.
std::string Bytes(size_t nCount, unsigned nSeed = 1)
{
    std::string data(nCount, '\0');
    for (char& ch : data)
    {
        nSeed = nSeed * 1103515245u + 12345u;
        ch = static_cast<char>(nSeed >> 24);
    }
    return data;
}

// DIRECTORY makes a directory in the way of the file.
void Write(const std::string& strPath, const std::string& data)
{
    if (data == DIRECTORY)
        return (void)CreateDirectoryA(strPath.c_str(), NULL);
    std::ofstream file(strPath, std::ios::binary);
    ASSERT_TRUE(file.write(data.data(), static_cast<std::streamsize>(data.size()))) << strPath;
}

std::string Read(const std::string& strPath)
{
    std::ifstream file(strPath, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()) : MISSING;
}

// The names in a directory; with bRemove it is emptied, subdirectories and all.
CTexts List(const std::string& strDir, bool bRemove = false)
{
    CTexts names;
    WIN32_FIND_DATAA find;
    HANDLE hFind = FindFirstFileA((strDir + "*").c_str(), &find);
    for (BOOL bMore = hFind != INVALID_HANDLE_VALUE; bMore; bMore = FindNextFileA(hFind, &find))
    {
        const std::string strName = find.cFileName, strPath = strDir + strName;
        if (strName == "." || strName == "..")
            continue;
        names.push_back(strName);
        if (bRemove && !DeleteFileA(strPath.c_str()))
        {
            List(strPath + "\\", true);
            RemoveDirectoryA(strPath.c_str());
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

    void Clean()
    {
        List("A:\\", true);
        List(WORK_DIR, true);
        CreateDirectoryA(WORK_DIR.c_str(), NULL);
        CreateDirectoryA(OUT_DIR.c_str(), NULL);
        m_recorder.ClearRecords();
    }

    // The texts of the boxes shown; only the question about a missing segment has Yes and No.
    CTexts Boxes() const
    {
        CTexts texts;
        for (const CImportRecorder::CMessageBoxCall& call : m_recorder.GetRecords().m_messageBoxes)
        {
            texts.push_back(call.m_strText);
            UINT uType = call.m_strText == NOT_THERE ? MB_YESNO | MB_ICONQUESTION : MB_OK | MB_ICONEXCLAMATION;
            EXPECT_EQ(uType, call.m_uType) << call.m_strText;
        }
        return texts;
    }

    CImportRecorder& m_recorder = CImportRecorder::Get();
};

TEST_F(CSpanFloppiesTest, SegmentsAreSizedByTheFirstDisketteAndTheTailIsLost)
{
    const struct
    {
        const char* target;
        const char* source;
        size_t length;
        ULONGLONG free;
        const char* first; // path of segment 0, NULL when nothing is written
        int segments;
        size_t size;    // data bytes per segment
        CTexts failure; // the boxes when nothing is written
    } cases[] = {
        {"c:\\temp", "report.dat", 100, DISKETTE, NULL, 0, 0, {}}, // not drive A: refused without a word
        {"A", "report.dat", 100, DISKETTE, NULL, 0, 0, {}},        // no ':': emptied, so refused
        {"A:", "report.dat", 100, DISKETTE, "A:\\REPORT.SP0", 1, 100, {}}, // a backslash is added
        {"a:/", "report.dat", 100, DISKETTE, "A:/REPORT.SP0", 1, 100, {}}, // upper-cased; a slash ends it too
        {"A:\\", "report.dat", 1000001, 600000, "A:\\REPORT.SP0", 2, 500000, {}}, // the last byte is lost
        // Only the low 32 bits of the free space count.
        {"A:\\", "report.dat", 1000001, 0x100000000ull + 600000, "A:\\REPORT.SP0", 2, 500000, {}},
        {"A:\\", "report.dat", 0, DISKETTE, "A:\\REPORT.SP0", 1, 0, {}},
        {"A:\\", "report.dat", 10, 3, "A:\\REPORT.SP0", 4, 2, {}}, // the last two bytes are lost
        {"A:\\", "readme", 50, DISKETTE, "A:\\.SP0", 1, 50, {}},    // no '.': bare segment names
        {"A:\\", "report.dat", 100, NOT_READY, NULL, 0, 0, {INSERT_FIRST, NO_DRIVE}},
        // Nothing to size the segments by: refused rather than divided by.
        {"A:\\", "report.dat", 100, 0, NULL, 0, 0, {INSERT_FIRST, NO_DRIVE}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string(c.target) + " " + std::to_string(c.length));
        Clean();
        const std::string data = Bytes(c.length);
        Write(WORK_DIR + c.source, data);
        m_recorder.SetDefaultDiskFreeSpace({c.free != NOT_READY, ERROR_NOT_READY, c.free, DISKETTE, c.free});
        EXPECT_EQ(c.first != NULL ? 1 : 0, CSpanFloppies(c.target).SpanFile((WORK_DIR + c.source).c_str()));

        CTexts expectedBoxes = c.failure;
        for (int i = 0; i < c.segments; ++i)
            expectedBoxes.push_back(i == 0 ? INSERT_FIRST : INSERT_NEXT);
        EXPECT_EQ(expectedBoxes, Boxes());
        EXPECT_EQ(static_cast<size_t>(c.segments), List("A:\\").size());
        std::string strHeader = "0" + std::to_string(c.segments) + c.source + "\n";
        for (char& ch : strHeader)
            ch = static_cast<char>(toupper(static_cast<unsigned char>(ch)));
        for (int i = 0; i < c.segments; ++i)
        {
            std::string strPath = c.first;
            strPath.back() = static_cast<char>('0' + i);
            EXPECT_EQ((i == 0 ? strHeader : "") + data.substr(i * c.size, c.size), Read(strPath)) << strPath;
        }
        const std::vector<CImportRecorder::CDiskFreeSpaceCall>& calls = m_recorder.GetRecords().m_diskFreeSpaceCalls;
        ASSERT_EQ(c.first != NULL || !c.failure.empty() ? 1u : 0u, calls.size());
        EXPECT_TRUE(calls.empty() || (calls[0].m_strRoot == "a:\\" && calls[0].m_bEx));
    }
}

TEST_F(CSpanFloppiesTest, CreateErrorStopsTheSeriesYetReturnsOne)
{
    Write("A:\\REPORT.SP1", DIRECTORY); // in the way of the second segment
    const std::string data = Bytes(30);
    Write(WORK_DIR + "report.dat", data);
    m_recorder.SetDefaultDiskFreeSpace({TRUE, 0, 12, DISKETTE, 12}); // three segments of ten
    EXPECT_EQ(1, CSpanFloppies("A:\\").SpanFile((WORK_DIR + "report.dat").c_str()));
    EXPECT_EQ(CTexts({INSERT_FIRST, INSERT_NEXT, "Error Creating File"}), Boxes());
    EXPECT_EQ("03REPORT.DAT\n" + data.substr(0, 10), Read("A:\\REPORT.SP0"));
    EXPECT_EQ(MISSING, Read("A:\\REPORT.SP2"));
}

TEST_F(CSpanFloppiesTest, JoinTakesTheCountAndTheNameFromTheHeader)
{
    const std::string a = Bytes(700, 1), b = Bytes(700, 2), c3 = Bytes(650, 3), big = Bytes(2000100, 4);
    const std::string W = WORK_DIR, longName(198, 'N');
    const std::vector<std::pair<std::string, std::string>> diskettes = {{"A:\\REPORT.SP0", "02REPORT.DAT\n" + a},
                                                                        {"A:\\REPORT.SP1", b}};
    const struct
    {
        const char* name;
        std::vector<std::pair<std::string, std::string>> files; // path and bytes
        std::string first;
        std::vector<int> replies;
        int result;
        CTexts boxes;
        std::string output; // its name in the target directory, empty when none is written
        std::string data;
        const char* target = OUT_DIR.c_str();
    } cases[] = {
        {"beside the first",
         {{W + "REPORT.SP0", "03REPORT.DAT\n" + a}, {W + "REPORT.SP1", b}, {W + "REPORT.SP2", c3}},
         W + "REPORT.SP0", {}, 1, {}, "REPORT.DAT", a + b + c3},
        {"diskettes", diskettes, "A:\\REPORT.SP0", {}, 1, {INSERT_NEXT}, "REPORT.DAT", a + b},
        // Only an upper-case 'A' is taken for the diskette drive.
        {"lower-case drive", diskettes, "a:\\report.sp0", {}, 1, {}, "REPORT.DAT", a + b},
        {"missing segment", {{W + "REPORT.SP0", "02REPORT.DAT\n" + a}}, W + "REPORT.SP0", {IDYES, IDYES, IDCANCEL},
         0, CTexts(3, NOT_THERE), "REPORT.DAT", a},
        // The whole leading run of digits is the count: 12,003 segments, so 2003.SP1 is asked for.
        {"digits leading the name", {{"A:\\2003.SP0", "012003.LOG\n" + a}}, "A:\\2003.SP0", {}, 0,
         {INSERT_NEXT, NOT_THERE}, "2003.LOG", a},
        {"unreadable segment", {{W + "REPORT.SP0", "03REPORT.DAT\n" + a}, {W + "REPORT.SP1", DIRECTORY},
         {W + "REPORT.SP2", b}}, W + "REPORT.SP0", {}, 1, {"Error Reading File"}, "REPORT.DAT", a},
        {"2,000,000 bytes a segment", {{W + "BIG.SP0", "02BIG.DAT\n" + big}, {W + "BIG.SP1", big}}, W + "BIG.SP0",
         {}, 1, {}, "BIG.DAT", big.substr(0, 2000000 - 10) + big.substr(0, 2000000)},
        {"header cut at 200", {{W + "L.SP0", "01" + longName + "XYZ\nbody"}}, W + "L.SP0", {}, 1, {}, longName,
         "body"},
        {"no line feed", {{W + "H.SP0", "01NOLF"}}, W + "H.SP0", {}, 1, {}, "NOLF", ""},
        {"no first segment", {}, W + "NONE.SP0", {}, 0, {"Could not Open File.  Incorrect File Format"}, "", ""},
        // The join stops at once: the missing second segment is never asked for.
        {"no target directory", {{W + "REPORT.SP0", "02REPORT.DAT\nabc"}}, W + "REPORT.SP0", {}, 0,
         {"Operation Failed"}, "", "", "C:\\KELSPAN\\NODIR"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.name);
        Clean();
        for (const auto& file : c.files)
            Write(file.first, file.second);
        for (int nReply : c.replies)
            m_recorder.PushMessageBoxReply(nReply);
        EXPECT_EQ(c.result, CSpanFloppies(c.target).JoinSegments(c.first.c_str()));
        EXPECT_EQ(c.boxes, Boxes());
        EXPECT_EQ(c.output.empty() ? CTexts() : CTexts({c.output}), List(OUT_DIR));
        EXPECT_TRUE(c.output.empty() || Read(OUT_DIR + c.output) == c.data);
    }
}

TEST_F(CSpanFloppiesTest, AHeaderNameThatLeavesTheTargetFailsAsAnUncreatableOutput)
{
    // Written to OUT_DIR, every one of these names would land in WORK_DIR, on C:\ or nowhere.
    const char* names[] = {"..\\..\\ESCAPE.DAT", "..\\ESCAPE.DAT", "../ESCAPE.DAT", "SUB/../../ESCAPE.DAT",
                           "C:\\ESCAPE.DAT", "C:ESCAPE.DAT", "\\ESCAPE.DAT", ".", "..", "...", ".. "};
    for (const char* pszName : names)
    {
        SCOPED_TRACE(pszName);
        Clean();
        // Two segments: a join that went on would ask for the second.
        Write(WORK_DIR + "E.SP0", std::string("02") + pszName + "\nescaped");
        EXPECT_EQ(0, CSpanFloppies(OUT_DIR.c_str()).JoinSegments((WORK_DIR + "E.SP0").c_str()));
        EXPECT_EQ(CTexts({"Operation Failed"}), Boxes());
        EXPECT_EQ(2u, List(WORK_DIR).size()); // E.SP0 and OUT
        EXPECT_EQ(CTexts(), List(OUT_DIR));
        EXPECT_EQ(MISSING, Read(WORK_DIR + "ESCAPE.DAT"));
        EXPECT_EQ(MISSING, Read("C:\\ESCAPE.DAT"));
        DeleteFileA("C:\\ESCAPE.DAT");
    }
}

TEST_F(CSpanFloppiesTest, BoxesBelongToTheMainWindowAndCarryTheApplicationsName)
{
    CWinApp app("SpanHost");
    CWnd wnd;
    ASSERT_TRUE(wnd.Attach(CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, NULL, NULL, NULL, NULL)));
    app.m_pMainWnd = &wnd;
    EXPECT_EQ(0, CSpanFloppies("A:\\").SpanFile((WORK_DIR + "none.dat").c_str()));
    const std::vector<CImportRecorder::CMessageBoxCall>& boxes = m_recorder.GetRecords().m_messageBoxes;
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Could not Open File", boxes[0].m_strText);
    EXPECT_EQ(wnd.GetSafeHwnd(), boxes[0].m_hWndOwner);
    EXPECT_EQ("SpanHost", boxes[0].m_strCaption);
    app.m_pMainWnd = NULL;
    wnd.DestroyWindow();
}
