#include "KelControls.h"
#include <gtest/gtest.h>

#include "tests/harness/ImportRecorder.h"

#include <stdlib.h>
#include <string>

namespace
{
const char kDebugWarning[] =
    "Can't Run KelControls.DLL Release Version from Debug Version of Other DLL!  Contact System Support";

HMODULE Library()
{
    return ::GetModuleHandleA("KelControls.dll");
}

class CFrameTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_GT(CImportRecorder::Get().Install(Library()), 0); }
    void TearDown() override { CImportRecorder::Get().Uninstall(); }

    const std::vector<CImportRecorder::CMessageBoxCall>& Boxes()
    {
        return CImportRecorder::Get().GetRecords().m_messageBoxes;
    }
};
} // namespace

TEST_F(CFrameTest, ExportsHavePlainCNames)
{
    for (const char* pszName : {"InitKelControlsInterface", "LinkNewDynLinkLibraryToKelControls",
                                "LoadBufferedResourceStringEx", "LoadResourceStringEx", "StringResourceMessageBoxEx",
                                "GetDragDropEntry"})
        EXPECT_NE(nullptr, reinterpret_cast<void*>(::GetProcAddress(Library(), pszName))) << pszName;
}

TEST_F(CFrameTest, AttachRecordsTheLibraryAndThePlatform)
{
    EXPECT_EQ(Library(), CKelControlsModule::GetInstanceHandle());
    EXPECT_EQ(VER_PLATFORM_WIN32_NT, CKelControlsModule::GetPlatformId());
    // The library's resources are in the host's chain from the start.
    bool bLinked = false;
    for (CDynLinkLibrary* pDLL = CDynLinkLibrary::GetFirst(); pDLL != NULL; pDLL = pDLL->m_pNextDLL)
        bLinked = bLinked || pDLL->m_hModule == Library();
    EXPECT_TRUE(bLinked);
}

TEST_F(CFrameTest, InitRegistersTheEventListClassOnce)
{
    HCURSOR hDrag = ::LoadCursorA(NULL, MAKEINTRESOURCEA(32649)); // IDC_HAND
    HCURSOR hCopy = ::LoadCursorA(NULL, MAKEINTRESOURCEA(32515)); // IDC_CROSS
    KelControlsInit init = {hDrag, hCopy, 0xDEAD, 0};
    EXPECT_NE(0, InitKelControlsInterface(0, &init));
    EXPECT_NE(0, InitKelControlsInterface(0, &init)); // found, not registered again
    EXPECT_EQ(hDrag, CKelControlsModule::GetDragCursor());
    EXPECT_EQ(hCopy, CKelControlsModule::GetAltDragCursor());

    WNDCLASSA wc;
    ASSERT_TRUE(::GetClassInfoA(Library(), EVENT_LIST_CLASS, &wc));
    EXPECT_EQ(11u, wc.style);
    EXPECT_EQ(EventListWndProc, wc.lpfnWndProc);
    EXPECT_EQ(0, wc.cbClsExtra);
    EXPECT_EQ(0, wc.cbWndExtra);
    EXPECT_EQ(::GetStockObject(BLACK_BRUSH), wc.hbrBackground);
    EXPECT_EQ(::LoadCursorA(NULL, MAKEINTRESOURCEA(32512)), wc.hCursor);
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(0, InitKelControlsInterface(0, NULL));
}

TEST_F(CFrameTest, DebugCallersAreWarnedAndServed)
{
    KelControlsInit init = {NULL, NULL, 0, 1};
    EXPECT_NE(0, InitKelControlsInterface(0, &init));
    CDynLinkLibrary* pLink = LinkNewDynLinkLibraryToKelControls(1);
    ASSERT_NE(nullptr, pLink);
    EXPECT_EQ(Library(), pLink->m_hModule);
    delete pLink;
    delete LinkNewDynLinkLibraryToKelControls(0);
    ASSERT_EQ(2u, Boxes().size());
    for (const auto& box : Boxes())
    {
        EXPECT_EQ(NULL, box.m_hWndOwner);
        EXPECT_EQ(kDebugWarning, box.m_strText);
        EXPECT_EQ("Error", box.m_strCaption);
        EXPECT_EQ(0x30u, box.m_uType);
    }
}

TEST_F(CFrameTest, BufferedStringsAreCutAndShared)
{
    HINSTANCE hProgram = ::GetModuleHandleA(NULL);
    char* pszBuffer = LoadBufferedResourceStringEx(1, hProgram);
    EXPECT_EQ(1023u, strlen(pszBuffer)); // 1100 characters in the resource
    EXPECT_EQ(std::string("abcdef"), std::string(pszBuffer, 6));
    EXPECT_EQ(pszBuffer, LoadBufferedResourceStringEx(2, hProgram)); // one shared buffer
    EXPECT_STREQ("Caption", pszBuffer);
    EXPECT_STREQ("", LoadBufferedResourceStringEx(999, hProgram));
}

TEST_F(CFrameTest, StringCopiesBelongToTheCaller)
{
    HINSTANCE hProgram = ::GetModuleHandleA(NULL);
    char* pszCopy = NULL;
    EXPECT_EQ(12, LoadResourceStringEx(3, &pszCopy, hProgram));
    ASSERT_NE(nullptr, pszCopy);
    EXPECT_STREQ("Message text", pszCopy);
    EXPECT_NE(LoadBufferedResourceStringEx(3, hProgram), pszCopy);
    free(pszCopy);
    pszCopy = reinterpret_cast<char*>(1);
    EXPECT_EQ(0, LoadResourceStringEx(999, &pszCopy, hProgram));
    ASSERT_NE(nullptr, pszCopy); // a one-byte empty string
    EXPECT_STREQ("", pszCopy);
    free(pszCopy);
    EXPECT_EQ(0, LoadResourceStringEx(3, NULL, hProgram));
}

TEST_F(CFrameTest, ResourceMessageBoxes)
{
    HINSTANCE hProgram = ::GetModuleHandleA(NULL);
    CImportRecorder::Get().PushMessageBoxReply(IDCANCEL);
    EXPECT_EQ(IDCANCEL, StringResourceMessageBoxEx(NULL, 3, 2, MB_OKCANCEL, hProgram));
    EXPECT_EQ(IDOK, StringResourceMessageBoxEx(NULL, 998, 999, MB_OK, hProgram));
    ASSERT_EQ(2u, Boxes().size());
    EXPECT_EQ("Message text", Boxes()[0].m_strText);
    EXPECT_EQ("Caption", Boxes()[0].m_strCaption);
    EXPECT_EQ(static_cast<UINT>(MB_OKCANCEL), Boxes()[0].m_uType);
    EXPECT_EQ("", Boxes()[1].m_strText); // missing resources: an empty box
    EXPECT_EQ("", Boxes()[1].m_strCaption);
}
