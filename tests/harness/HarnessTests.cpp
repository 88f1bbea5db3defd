#include "tests/harness/ChildRun.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"
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

TEST_F(CImportRecorderTest, MessageBoxesAnswerFromTheQueueThenTheDefault)
{
    m_recorder.PushMessageBoxReply(IDYES);
    m_recorder.PushMessageBoxReply(IDNO);
    m_recorder.SetDefaultMessageBoxReply(IDCANCEL); // once the queue is empty
    MSGBOXPARAMSA params = {sizeof(params), NULL, NULL, "Indirect", "Cap", MB_RETRYCANCEL, NULL, 0, NULL, 0};
    const struct { std::function<int()> show; std::string text, caption; UINT type; int reply; } cases[] = {
        {[] { return MessageBoxA(GetDesktopWindow(), "Sure?", "Grid", MB_YESNO); }, "Sure?", "Grid", MB_YESNO, IDYES},
        {[] { return MessageBoxW(NULL, L"Wide \u00e9", L"W", MB_OK); }, "Wide \xc3\xa9", "W", MB_OK, IDNO},
        {[] { return MessageBoxExA(NULL, "Ex", NULL, MB_ICONHAND, 0); }, "Ex", "", MB_ICONHAND, IDCANCEL},
        {[&] { return MessageBoxIndirectA(&params); }, "Indirect", "Cap", MB_RETRYCANCEL, IDCANCEL}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(c.reply, c.show());
        const CImportRecorder::CMessageBoxCall& call = m_recorder.GetRecords().m_messageBoxes.back();
        EXPECT_EQ(std::tie(c.text, c.caption, c.type, c.reply),
                  std::tie(call.m_strText, call.m_strCaption, call.m_uType, call.m_nReply));
    }
    EXPECT_EQ(GetDesktopWindow(), m_recorder.GetRecords().m_messageBoxes[0].m_hWndOwner);
}

TEST_F(CImportRecorderTest, PopupMenusAreReadAndAnsweredWithoutShowing)
{
    CNotifyRecorder owner;
    ASSERT_TRUE(owner.Create(100, 100));
    owner.RecordMessage(WM_INITMENUPOPUP);
    HMENU hMenu = CreatePopupMenu();
    AppendMenuA(hMenu, MF_STRING, 1, "&Copy");
    AppendMenuA(hMenu, MF_STRING | MF_GRAYED, 2, "&Cut");
    AppendMenuA(hMenu, MF_SEPARATOR, 0, NULL);

    m_recorder.PushMenuCommand(1);
    EXPECT_EQ(1, TrackPopupMenu(hMenu, TPM_RETURNCMD, 30, 40, 0, owner, NULL));
    const CImportRecorder::CPopupMenuCall& call = m_recorder.GetRecords().m_popupMenus.at(0);
    EXPECT_EQ(std::make_tuple(owner.GetSafeHwnd(), 30, 40), std::make_tuple(call.m_hWndOwner, call.m_x, call.m_y));
    std::vector<std::tuple<UINT, UINT, std::string>> items; // id, separator or grayed, text
    for (const CImportRecorder::CMenuItem& item : call.m_items)
        items.emplace_back(item.m_uId, item.m_uType & MFT_SEPARATOR ? MFT_SEPARATOR : item.m_uState & MF_GRAYED,
                           item.m_strText);
    EXPECT_EQ((decltype(items){{1, 0, "&Copy"}, {2, MF_GRAYED, "&Cut"}, {0, MFT_SEPARATOR, ""}}), items);
    EXPECT_EQ(1u, owner.GetMessages().size()); // WM_INITMENUPOPUP, the one recorded

    // Without TPM_RETURNCMD the choice arrives later, as a posted WM_COMMAND.
    m_recorder.PushMenuCommand(2);
    EXPECT_TRUE(TrackPopupMenuEx(hMenu, TPM_NONOTIFY, 0, 0, owner, NULL));
    EXPECT_TRUE(owner.GetCommands().empty());
    CInput::PumpMessages();
    ASSERT_EQ(1u, owner.GetCommands().size());
    EXPECT_EQ(2u, owner.GetCommands()[0].m_uId);
    EXPECT_EQ(1u, owner.GetMessages().size()); // no second WM_INITMENUPOPUP under TPM_NONOTIFY

    EXPECT_EQ(0, TrackPopupMenu(hMenu, TPM_RETURNCMD, 0, 0, 0, owner, NULL)); // dismissed
    DestroyMenu(hMenu);
}

namespace
{
// A function may keep an import slot it has read in a register across calls, which would hide
// a patch or its undoing in between: these read the slot afresh at each call.
__attribute__((noinline)) BOOL CallMessageBeep(UINT uType)
{
    return MessageBeep(uType);
}

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
    CallMessageBeep(0);
    EXPECT_EQ(1u, m_recorder.GetRecords().m_beeps.size());

    m_recorder.Uninstall();
    EXPECT_TRUE(m_recorder.GetRecords().m_beeps.empty());
    EXPECT_EQ(dwReal, CallGetCurrentProcessId());
    CallMessageBeep(0);
    EXPECT_TRUE(CallGetDiskFreeSpaceExA(NULL, &available, NULL, NULL));
    EXPECT_TRUE(m_recorder.GetRecords().m_beeps.empty()); // the system functions answered
    EXPECT_TRUE(m_recorder.GetRecords().m_diskFreeSpaceCalls.empty());

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
        MessageBeep(MB_ICONEXCLAMATION);
        Beep(1000, 10);
        ExitProcess(static_cast<UINT>(-1));
    });
    EXPECT_EQ(std::make_tuple(0xFFFFFFFFul, true, false), // exit code, reported, body returned
              std::make_tuple(outcome.m_dwExitCode, outcome.m_bReported, outcome.m_bBodyReturned));
    const CImportRecorder::CRecords& records = outcome.m_records;
    const CImportRecorder::CMessageBoxCall& box = records.m_messageBoxes.at(0);
    EXPECT_EQ(std::make_tuple(std::string("Line one\n\tLine \\two"), std::string("ERROR"), UINT(MB_ICONHAND), IDABORT),
              std::make_tuple(box.m_strText, box.m_strCaption, box.m_uType, box.m_nReply));
    std::vector<std::tuple<bool, UINT, DWORD, DWORD>> beeps; // tone, type, frequency, duration
    for (const CImportRecorder::CBeepCall& beep : records.m_beeps)
        beeps.emplace_back(beep.m_bTone, beep.m_uType, beep.m_dwFrequency, beep.m_dwDuration);
    EXPECT_EQ((decltype(beeps){{false, MB_ICONEXCLAMATION, 0, 0}, {true, 0, 1000, 10}}), beeps);
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
