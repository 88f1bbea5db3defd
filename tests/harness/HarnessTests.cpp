#include "tests/harness/ChildRun.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"
#include "tests/harness/MessageSequence.h"
#include "tests/harness/NotifyRecorder.h"

#include <commctrl.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <tuple>

class CImportRecorderTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_GT(m_recorder.Install(GetModuleHandleA(NULL)), 0); }
    void TearDown() override { m_recorder.Uninstall(); }

    CImportRecorder& m_recorder = CImportRecorder::Get();
};

namespace
{
// A function may keep an import slot it has read in a register across calls, which would hide
// a patch or its undoing in between: these read the slot afresh at each call.
__attribute__((noinline)) BOOL CallGetDiskFreeSpaceExA(LPCSTR pszRoot, ULARGE_INTEGER* pAvailable,
                                                       ULARGE_INTEGER* pTotal, ULARGE_INTEGER* pTotalFree)
{
    return GetDiskFreeSpaceExA(pszRoot, pAvailable, pTotal, pTotalFree);
}

__attribute__((noinline)) DWORD CallGetCurrentProcessId()
{
    return GetCurrentProcessId();
}

DWORD WINAPI FakeProcessId()
{
    return 4242;
}

// Sent as a control sends it: the header, then the rest of the code's structure.
LRESULT Notify(HWND hWnd, UINT uCode, NMLISTVIEW& nm)
{
    nm.hdr = {hWnd, 200, uCode};
    return SendMessageA(hWnd, WM_NOTIFY, 200, reinterpret_cast<LPARAM>(&nm));
}
} // namespace

// Uninstall restores every patched import, stand-ins and redirects alike, and forgets the script.
TEST_F(CImportRecorderTest, FreeSpaceAnswersFromTheQueueAndUninstallRestoresTheImports)
{
    EXPECT_EQ(0, m_recorder.Install(GetModuleHandleA(NULL))); // already in place
    EXPECT_EQ(0, m_recorder.Install(NULL));
    EXPECT_EQ(0, m_recorder.Install(GetModuleHandleA("ntdll.dll"))); // imports none of them
    m_recorder.PushDiskFreeSpaceFailure(ERROR_NOT_READY);
    m_recorder.PushDiskFreeSpace(600000, 1457664, 700000);
    m_recorder.PushDiskFreeSpace(1, 2, 3);
    ULARGE_INTEGER available, total, totalFree;
    SetLastError(0);
    EXPECT_FALSE(CallGetDiskFreeSpaceExA("b:\\", &available, NULL, NULL));
    EXPECT_EQ(static_cast<DWORD>(ERROR_NOT_READY), GetLastError());
    ASSERT_TRUE(CallGetDiskFreeSpaceExA("a:\\", &available, &total, &totalFree));
    EXPECT_EQ(std::make_tuple(600000ull, 1457664ull, 700000ull),
              std::make_tuple(available.QuadPart, total.QuadPart, totalFree.QuadPart));
    const DWORD dwReal = CallGetCurrentProcessId();
    void* pfnOriginal = m_recorder.Redirect(GetModuleHandleA(NULL), "KERNEL32.DLL", "GetCurrentProcessId",
                                            reinterpret_cast<void*>(&FakeProcessId));
    ASSERT_TRUE(pfnOriginal != NULL);
    EXPECT_EQ(4242u, CallGetCurrentProcessId());
    EXPECT_EQ(dwReal, reinterpret_cast<decltype(&FakeProcessId)>(pfnOriginal)());
    // Redirected again, it still hands back the system function.
    EXPECT_EQ(pfnOriginal, m_recorder.Redirect(GetModuleHandleA(NULL), "kernel32.dll", "GetCurrentProcessId",
                                               reinterpret_cast<void*>(&FakeProcessId)));
    EXPECT_TRUE(m_recorder.Redirect(GetModuleHandleA(NULL), "kernel32.dll", "NoSuchFunction", NULL) == NULL);

    m_recorder.Uninstall();
    EXPECT_TRUE(m_recorder.GetRecords().m_diskFreeSpaceCalls.empty());
    EXPECT_EQ(dwReal, CallGetCurrentProcessId());
    EXPECT_TRUE(CallGetDiskFreeSpaceExA(NULL, &available, NULL, NULL));
    EXPECT_TRUE(m_recorder.GetRecords().m_diskFreeSpaceCalls.empty()); // the system function answered

    // Reinstalled, the queued answer is gone: the default diskette answers both calls.
    ASSERT_GT(m_recorder.Install(GetModuleHandleA(NULL)), 0);
    ASSERT_TRUE(CallGetDiskFreeSpaceExA("a:\\", &available, &total, &totalFree));
    EXPECT_EQ(std::make_tuple(1457664ull, 1457664ull, 1457664ull),
              std::make_tuple(available.QuadPart, total.QuadPart, totalFree.QuadPart));
    DWORD dwSectorsPerCluster, dwBytesPerSector, dwFreeClusters, dwClusters;
    ASSERT_TRUE(GetDiskFreeSpaceA(NULL, &dwSectorsPerCluster, &dwBytesPerSector, &dwFreeClusters, &dwClusters));
    EXPECT_EQ(std::make_tuple(1ul, 512ul, 2847ul, 2847ul),
              std::make_tuple(dwSectorsPerCluster, dwBytesPerSector, dwFreeClusters, dwClusters));
    std::vector<std::pair<std::string, bool>> calls; // root, GetDiskFreeSpaceExA
    for (const CImportRecorder::CDiskFreeSpaceCall& call : m_recorder.GetRecords().m_diskFreeSpaceCalls)
        calls.emplace_back(call.m_strRoot, call.m_bEx);
    EXPECT_EQ((decltype(calls){{"a:\\", true}, {"", false}}), calls);
}

// The child's records come back through its report, escapes and all.
TEST(CChildRunTest, ExitProcessEndsTheChildWithItsCodeAndRecords)
{
    CChildRun::COutcome outcome = CChildRun::Run([] {
        CImportRecorder::Get().Install(GetModuleHandleA(NULL));
        CImportRecorder::Get().PushMessageBoxReply(IDABORT);
        MessageBoxA(NULL, "Line one\n\tLine \\two", "ERROR", MB_ICONHAND);
        ExitProcess(static_cast<UINT>(-1));
    });
    EXPECT_EQ(std::make_tuple(0xFFFFFFFFul, true, false), // exit code, reported, body returned
              std::make_tuple(outcome.m_dwExitCode, outcome.m_bReported, outcome.m_bBodyReturned));
    const CImportRecorder::CRecords& records = outcome.m_records;
    const CImportRecorder::CMessageBoxCall& box = records.m_messageBoxes.at(0);
    EXPECT_EQ(std::make_tuple(std::string("Line one\n\tLine \\two"), std::string("ERROR"), UINT(MB_ICONHAND), IDABORT),
              std::make_tuple(box.m_strText, box.m_strCaption, box.m_uType, box.m_nReply));
    EXPECT_EQ(std::vector<UINT>{0xFFFFFFFFu}, records.m_exitCodes);
}

TEST(CChildRunTest, ABodyThatReturnsEndsTheChildWithCodeZero)
{
    CChildRun::COutcome outcome = CChildRun::Run([] { printf("said in the child\n"); });
    EXPECT_EQ(std::make_tuple(0ul, true, true), // exit code, reported, body returned
              std::make_tuple(outcome.m_dwExitCode, outcome.m_bReported, outcome.m_bBodyReturned));
    EXPECT_NE(std::string::npos, outcome.m_strOutput.find("said in the child"));
}

TEST(CChildRunTest, OnlyOneChildRunPerTest)
{
    // The child runs the first body and ends; only the parent reaches the second Run.
    EXPECT_NONFATAL_FAILURE([] {
        CChildRun::Run([] { CImportRecorder::ExitForReal(3); });
        CChildRun::Run([] {});
    }(), "only one child run per test");
}

// A notification is recorded as it arrives, before its handler fills it in or causes others.
TEST(CNotifyRecorderTest, HandlersThenRepliesAnswerInTheOrderOfArrival)
{
    CNotifyRecorder parent;
    ASSERT_TRUE(parent.Create(100, 100));
    parent.SetPayloadSize(LVN_GETDISPINFOA, sizeof(NMLISTVIEW));
    parent.SetReply(LVN_ITEMCHANGING, TRUE);
    parent.SetReply(LVN_GETDISPINFOA, 7); // the handler comes first
    parent.SetHandler(LVN_GETDISPINFOA, [&](NMHDR* pHeader) {
        reinterpret_cast<NMLISTVIEW*>(pHeader)->iItem = 5; // filled in for the sender
        NMLISTVIEW inner = {};
        Notify(parent, LVN_INSERTITEM, inner);
        return 3;
    });
    NMLISTVIEW nm = {};
    nm.iItem = 1;
    EXPECT_EQ(TRUE, Notify(parent, LVN_ITEMCHANGING, nm));
    EXPECT_EQ(3, Notify(parent, LVN_GETDISPINFOA, nm));
    EXPECT_EQ(5, nm.iItem);
    ASSERT_TRUE(parent.GetLast<NMLISTVIEW>(LVN_GETDISPINFOA) != NULL);
    EXPECT_EQ(1, parent.GetLast<NMLISTVIEW>(LVN_GETDISPINFOA)->iItem);
    // Registered at NMHDR size only: too short to read as the full structure.
    EXPECT_TRUE(parent.GetLast<NMLISTVIEW>(LVN_INSERTITEM) == NULL);
    EXPECT_TRUE(parent.GetLast<NMHDR>(LVN_INSERTITEM) != NULL);
    std::vector<std::pair<UINT, LRESULT>> notifies; // code, answer
    for (const CNotifyRecorder::CNotify& notify : parent.GetNotifies())
        notifies.emplace_back(notify.m_uCode, notify.m_lResult);
    EXPECT_EQ((decltype(notifies){{LVN_ITEMCHANGING, TRUE}, {LVN_GETDISPINFOA, 3}, {LVN_INSERTITEM, 0}}), notifies);
}

// Every difference fails the check, which shows both sides from the first one on; optional
// entries may be absent, noise is left out, other windows are not watched.
TEST(CMessageSequenceTest, ComparesWindowKindArgumentsAndOrder)
{
    CNotifyRecorder window, other;
    ASSERT_TRUE(window.Create(50, 50));
    ASSERT_TRUE(other.Create(50, 50));
    CMessageSequence seq;
    seq.Watch(window, "w");
    auto record = [&] {
        SendMessageA(window, WM_USER, 1, 2);
        SendMessageA(window, WM_GETICON, 0, 0);
        SendMessageA(other, WM_USER, 1, 2);
        CMessageSequence::Handled(window, WM_APP, 5);
        PostMessageA(window, WM_USER, 3, 4);
        CInput::PumpMessages();
    };
    record();
    EXPECT_TRUE(seq.Check({
        {"w", WM_USER, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM | SEQ_LPARAM, 1, 2},
        {"w", WM_CLOSE, SEQ_SENT | SEQ_OPTIONAL},
        {"w", WM_APP, SEQ_HANDLER | SEQ_WPARAM, 5},
        {"w", WM_USER, SEQ_POSTED | SEQ_DEFPROC | SEQ_LPARAM, 0, 4},
        {"w", WM_CLOSE, SEQ_POSTED | SEQ_OPTIONAL},
    }));

    const std::vector<CMessageSequence::CMessage> wrong[] = {
        {{"x", WM_USER, SEQ_SENT | SEQ_DEFPROC}},
        {{"w", WM_USER, SEQ_SENT}},
        {{"w", WM_USER, SEQ_POSTED | SEQ_DEFPROC}},
        {{"w", WM_USER, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 2}},
        {{"w", WM_USER, SEQ_SENT | SEQ_DEFPROC | SEQ_LPARAM, 0, 1}},
        {{"w", WM_APP, SEQ_HANDLER}, {"w", WM_USER, SEQ_SENT | SEQ_DEFPROC}}, // order
        {{"w", WM_USER, SEQ_SENT | SEQ_DEFPROC}, {"w", WM_APP, SEQ_HANDLER}}, // one short
    };
    for (const auto& expected : wrong)
    {
        record();
        ::testing::AssertionResult result = seq.Check(expected.data(), expected.size());
        EXPECT_FALSE(result) << expected[0].m_pszWindow << " " << expected[0].m_fFlags;
    }
    record();
    EXPECT_STREQ("the messages differ from row 1 on\n"
                 "  expected                            | recorded\n"
                 "  w WM_USER sent+defproc              | w WM_USER sent+defproc wParam 0x1 lParam 0x2\n"
                 "> w WM_APP+1 handler wParam 0x5       | w WM_APP handler wParam 0x5 lParam 0x0\n"
                 "  w WM_USER posted+defproc lParam 0x4 | w WM_USER posted+defproc wParam 0x3 lParam 0x4\n",
                 seq.Check({{"w", WM_USER, SEQ_SENT | SEQ_DEFPROC},
                            {"w", WM_APP + 1, SEQ_HANDLER | SEQ_WPARAM, 5},
                            {"w", WM_USER, SEQ_POSTED | SEQ_DEFPROC | SEQ_LPARAM, 0, 4}})
                     .message());
}
