#include <afxwin.h>
#include <gtest/gtest.h>

#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"

namespace
{
CString Load(UINT nID)
{
    CString s;
    s.LoadString(nID);
    return s;
}

class CResourceChainTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_hLibrary = ::LoadLibraryA("afx_test_strings.dll");
        ASSERT_NE(nullptr, m_hLibrary);
    }
    void TearDown() override { ::FreeLibrary(m_hLibrary); }

    HMODULE m_hLibrary = NULL;
};
} // namespace

TEST_F(CResourceChainTest, ProgramFirstThenLibrariesThenNothing)
{
    EXPECT_STREQ("", Load(200)); // not linked yet
    {
        CDynLinkLibrary link(m_hLibrary, m_hLibrary);
        EXPECT_STREQ("program 100", Load(100)); // the program shadows the library
        EXPECT_STREQ("library 200", Load(200));
        EXPECT_EQ(m_hLibrary, AfxFindResourceHandle(MAKEINTRESOURCEA(200 / 16 + 1), MAKEINTRESOURCEA(6)));
        EXPECT_FALSE(Load(300).GetLength());
    }
    EXPECT_STREQ("", Load(200)); // unlinked with the object
}

TEST_F(CResourceChainTest, ExtensionModuleKeepsTheClassesItRegistered)
{
    static CRuntimeClass classLate = {"CLateClass", sizeof(CObject), 0xFFFF, NULL, RUNTIME_CLASS(CObject), NULL};
    AFX_CLASSINIT registration(&classLate); // as a library's static constructor would
    EXPECT_EQ(&classLate, CRuntimeClass::FromName("CLateClass"));

    AFX_EXTENSION_MODULE state = {FALSE, NULL, NULL, NULL, NULL};
    ASSERT_TRUE(AfxInitExtensionModule(state, m_hLibrary));
    EXPECT_EQ(&classLate, state.pFirstSharedClass);
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CLateClass")); // moved aside...
    new CDynLinkLibrary(state);
    EXPECT_EQ(&classLate, CRuntimeClass::FromName("CLateClass")); // ...and found through the chain
    EXPECT_STREQ("library 200", Load(200));
    AfxTermExtensionModule(state);
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CLateClass"));
    EXPECT_STREQ("", Load(200));
}

TEST(CWinAppTest, ProfileFunctionsUseTheApplicationsIniFile)
{
    char szPath[MAX_PATH];
    ::GetTempPathA(MAX_PATH, szPath);
    CString strIni = CString(szPath) + "KelAfxAppTest.ini";
    ::DeleteFileA(strIni);
    CWinApp app("AppTest");
    app.m_pszProfileName = strIni;
    EXPECT_EQ(&app, AfxGetApp());
    EXPECT_STREQ("AppTest", AfxGetAppName());
    EXPECT_TRUE(app.WriteProfileInt("Settings", "X", -25));
    EXPECT_EQ(static_cast<UINT>(-25), app.GetProfileInt("Settings", "X", 17));
    CString strLong('n', 1000); // longer than a first read's buffer
    EXPECT_TRUE(app.WriteProfileString("Settings", "Name", strLong));
    EXPECT_STREQ(strLong, app.GetProfileString("Settings", "Name"));
    ::DeleteFileA(strIni);
}

TEST(CWinAppTest, MessageBoxesTakeTheApplicationsNameAndADefaultIcon)
{
    CImportRecorder& recorder = CImportRecorder::Get();
    ASSERT_GT(recorder.Install(::GetModuleHandleA("KelAfx.dll")), 0);
    recorder.PushMessageBoxReply(IDNO);
    {
        CWinApp app("Boxes");
        EXPECT_EQ(IDNO, AfxMessageBox("Save?", MB_YESNO));
        EXPECT_EQ(IDOK, AfxMessageBox("Done"));
        CWnd wnd;
        wnd.MessageBox("Plain");
    }
    const auto& boxes = recorder.GetRecords().m_messageBoxes;
    ASSERT_EQ(3u, boxes.size());
    EXPECT_EQ("Boxes", boxes[0].m_strCaption);
    EXPECT_EQ(static_cast<UINT>(MB_YESNO | MB_ICONQUESTION), boxes[0].m_uType);
    EXPECT_EQ(static_cast<UINT>(MB_OK | MB_ICONEXCLAMATION), boxes[1].m_uType);
    EXPECT_EQ("Plain", boxes[2].m_strText);
    EXPECT_EQ(static_cast<UINT>(MB_OK), boxes[2].m_uType); // a window's own box adds no icon
    recorder.Uninstall();
}

namespace
{
class CCountingApp : public CWinApp
{
public:
    CCountingApp() : CWinApp("Counting") {}
    int m_nIdle = 0;
    BOOL OnIdle(LONG lCount) override
    {
        ++m_nIdle;
        BOOL bMore = CWinApp::OnIdle(lCount);
        if (!bMore)
            ::PostQuitMessage(7); // the temporaries are gone: end the loop
        return bMore;
    }
};
} // namespace

TEST(CWinAppTest, RunPumpsUntilQuitAndCleansTemporariesWhenIdle)
{
    CCountingApp app;
    HWND hWnd = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, NULL, NULL, NULL, NULL);
    CWnd* pTemp = CWnd::FromHandle(hWnd);
    ASSERT_NE(nullptr, pTemp);
    EXPECT_EQ(7, app.Run());
    EXPECT_EQ(2, app.m_nIdle);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    CWnd wnd;
    wnd.Attach(hWnd);
    EXPECT_EQ(&wnd, CWnd::FromHandle(hWnd)); // the temporary object is gone
    wnd.DestroyWindow();
}
