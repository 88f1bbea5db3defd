#include "ChildRun.h"
#include "ImportRecorder.h"
#include "Input.h"
#include "NotifyRecorder.h"
#include "Render.h"

#include <commctrl.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace
{
typedef std::vector<UINT> CMessageList;

CMessageList MessagesOf(const CNotifyRecorder& recorder)
{
    CMessageList messages;
    for (const CNotifyRecorder::CMessage& message : recorder.GetMessages())
        messages.push_back(message.m_uMsg);
    return messages;
}

std::pair<DWORD, DWORD> Sel(DWORD dwStart, DWORD dwEnd)
{
    return std::make_pair(dwStart, dwEnd);
}

} // namespace

class CImportRecorderTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_GT(m_recorder.Install(GetModuleHandleA(NULL)), 0); }
    void TearDown() override { m_recorder.Uninstall(); }

    CImportRecorder& m_recorder = CImportRecorder::Get();
};

TEST_F(CImportRecorderTest, MessageBoxesAnswerFromTheQueueThenTheDefault)
{
    HWND hWndOwner = GetDesktopWindow();
    m_recorder.PushMessageBoxReply(IDYES);
    m_recorder.PushMessageBoxReply(IDNO);
    MSGBOXPARAMSA params = {sizeof(params), NULL, NULL, "Indirect", "Cap", MB_RETRYCANCEL, NULL, 0, NULL, 0};
    const struct { std::function<int()> show; const char* text; const char* caption; UINT type; int reply; } cases[] = {
        {[&] { return MessageBoxA(hWndOwner, "Delete?", "Grid", MB_YESNO); }, "Delete?", "Grid", MB_YESNO, IDYES},
        {[] { return MessageBoxW(NULL, L"Wide \u00e9", L"W", MB_OK); }, "Wide \xc3\xa9", "W", MB_OK, IDNO},
        {[] { return MessageBoxExA(NULL, "Ex", NULL, MB_ICONHAND, 0); }, "Ex", "", MB_ICONHAND, IDOK},
        {[&] { return MessageBoxIndirectA(&params); }, "Indirect", "Cap", MB_RETRYCANCEL, IDOK}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(c.reply, c.show());
        const CImportRecorder::CMessageBoxCall& call = m_recorder.GetRecords().m_messageBoxes.back();
        EXPECT_EQ(c.text, call.m_strText);
        EXPECT_EQ(c.caption, call.m_strCaption);
        EXPECT_EQ(c.type, call.m_uType);
        EXPECT_EQ(c.reply, call.m_nReply);
    }
    EXPECT_EQ(hWndOwner, m_recorder.GetRecords().m_messageBoxes[0].m_hWndOwner);
    m_recorder.SetDefaultMessageBoxReply(IDCANCEL);
    EXPECT_EQ(IDCANCEL, MessageBoxA(NULL, "", "", MB_OKCANCEL));
    EXPECT_EQ(5u, m_recorder.GetRecords().m_messageBoxes.size());
}

TEST_F(CImportRecorderTest, FreeSpaceAnswersFromTheQueueThenTheDiskette)
{
    m_recorder.PushDiskFreeSpace(600000, 1457664, 700000);
    m_recorder.PushDiskFreeSpaceFailure(ERROR_NOT_READY);
    ULARGE_INTEGER available, total, totalFree;
    ASSERT_TRUE(GetDiskFreeSpaceExA("a:\\", &available, &total, &totalFree));
    EXPECT_EQ(600000u, available.QuadPart);
    EXPECT_EQ(1457664u, total.QuadPart);
    EXPECT_EQ(700000u, totalFree.QuadPart);
    SetLastError(0);
    EXPECT_FALSE(GetDiskFreeSpaceExA("b:\\", &available, NULL, NULL));
    EXPECT_EQ(static_cast<DWORD>(ERROR_NOT_READY), GetLastError());
    DWORD dwSectorsPerCluster, dwBytesPerSector, dwFreeClusters, dwClusters;
    ASSERT_TRUE(GetDiskFreeSpaceA(NULL, &dwSectorsPerCluster, &dwBytesPerSector, &dwFreeClusters, &dwClusters));
    EXPECT_EQ(1457664u, static_cast<ULONGLONG>(dwSectorsPerCluster) * dwBytesPerSector * dwFreeClusters);
    EXPECT_EQ(dwFreeClusters, dwClusters);

    std::vector<std::pair<std::string, bool>> calls; // root, GetDiskFreeSpaceExA
    for (const CImportRecorder::CDiskFreeSpaceCall& call : m_recorder.GetRecords().m_diskFreeSpaceCalls)
        calls.emplace_back(call.m_strRoot, call.m_bEx);
    EXPECT_EQ((decltype(calls){{"a:\\", true}, {"b:\\", true}, {"", false}}), calls);
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
    EXPECT_EQ(owner.GetSafeHwnd(), call.m_hWndOwner);
    EXPECT_EQ(std::make_pair(30, 40), std::make_pair(call.m_x, call.m_y));
    ASSERT_EQ(3u, call.m_items.size());
    EXPECT_EQ("&Copy", call.m_items[0].m_strText);
    EXPECT_EQ(0u, call.m_items[0].m_uState & MFS_GRAYED);
    EXPECT_EQ(2u, call.m_items[1].m_uId);
    EXPECT_NE(0u, call.m_items[1].m_uState & MFS_GRAYED);
    EXPECT_NE(0u, call.m_items[2].m_uType & MFT_SEPARATOR);
    EXPECT_EQ(CMessageList{WM_INITMENUPOPUP}, MessagesOf(owner));

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
} // namespace

TEST_F(CImportRecorderTest, UninstallRestoresTheSystemFunctionsAndForgetsTheScript)
{
    EXPECT_EQ(0, m_recorder.Install(GetModuleHandleA(NULL))); // already in place
    EXPECT_EQ(0, m_recorder.Install(NULL));
    EXPECT_EQ(0, m_recorder.Install(GetModuleHandleA("ntdll.dll"))); // imports none of them
    m_recorder.PushDiskFreeSpaceFailure(ERROR_NOT_READY);
    CallMessageBeep(0);
    EXPECT_EQ(1u, m_recorder.GetRecords().m_beeps.size());

    m_recorder.Uninstall();
    EXPECT_TRUE(m_recorder.GetRecords().m_beeps.empty());
    CallMessageBeep(0);
    ULARGE_INTEGER available;
    char szDirectory[MAX_PATH];
    GetCurrentDirectoryA(MAX_PATH, szDirectory);
    EXPECT_TRUE(CallGetDiskFreeSpaceExA(szDirectory, &available, NULL, NULL));
    EXPECT_TRUE(m_recorder.GetRecords().m_beeps.empty()); // the system functions answered
    EXPECT_TRUE(m_recorder.GetRecords().m_diskFreeSpaceCalls.empty());

    ASSERT_GT(m_recorder.Install(GetModuleHandleA(NULL)), 0);
    EXPECT_TRUE(CallGetDiskFreeSpaceExA("a:\\", &available, NULL, NULL)); // the queued failure is gone
    EXPECT_EQ(1457664u, available.QuadPart);
}

TEST_F(CImportRecorderTest, RedirectReplacesAnyImportUntilUninstall)
{
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
    EXPECT_EQ(dwReal, CallGetCurrentProcessId());
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
    EXPECT_EQ(0xFFFFFFFFu, outcome.m_dwExitCode);
    EXPECT_TRUE(outcome.m_bReported);
    EXPECT_FALSE(outcome.m_bBodyReturned);
    const CImportRecorder::CRecords& records = outcome.m_records;
    ASSERT_EQ(1u, records.m_messageBoxes.size());
    EXPECT_EQ("Line one\n\tLine \\two", records.m_messageBoxes[0].m_strText);
    EXPECT_EQ("ERROR", records.m_messageBoxes[0].m_strCaption);
    EXPECT_EQ(static_cast<UINT>(MB_ICONHAND), records.m_messageBoxes[0].m_uType);
    EXPECT_EQ(IDABORT, records.m_messageBoxes[0].m_nReply);
    ASSERT_EQ(2u, records.m_beeps.size());
    EXPECT_FALSE(records.m_beeps[0].m_bTone);
    EXPECT_EQ(static_cast<UINT>(MB_ICONEXCLAMATION), records.m_beeps[0].m_uType);
    EXPECT_TRUE(records.m_beeps[1].m_bTone);
    EXPECT_EQ(1000u, records.m_beeps[1].m_dwFrequency);
    EXPECT_EQ(10u, records.m_beeps[1].m_dwDuration);
    EXPECT_EQ(std::vector<UINT>{0xFFFFFFFFu}, records.m_exitCodes);
}

TEST(CChildRunTest, ABodyThatReturnsEndsTheChildWithCodeZero)
{
    CChildRun::COutcome outcome = CChildRun::Run([] {
        CImportRecorder::Get().Install(GetModuleHandleA(NULL));
        MessageBeep(MB_OK);
        printf("said in the child\n");
    });
    EXPECT_EQ(0u, outcome.m_dwExitCode);
    EXPECT_TRUE(outcome.m_bReported);
    EXPECT_TRUE(outcome.m_bBodyReturned);
    EXPECT_EQ(1u, outcome.m_records.m_beeps.size());
    EXPECT_TRUE(outcome.m_records.m_exitCodes.empty());
    EXPECT_NE(std::string::npos, outcome.m_strOutput.find("said in the child"));
}

namespace
{
void RunTwice()
{
    CChildRun::Run([] { CImportRecorder::ExitForReal(3); });
    CChildRun::Run([] {});
}
} // namespace

TEST(CChildRunTest, OnlyOneChildRunPerTest)
{
    // The child runs the first body and ends; only the parent reaches the second Run.
    EXPECT_NONFATAL_FAILURE(RunTwice(), "only one child run per test");
}

// Notifications sent as a control sends them: the header, then the rest of the code's structure.
class CNotifyRecorderTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_parent.Create(100, 100)); }
    LRESULT Notify(UINT uCode, NMLISTVIEW& nm)
    {
        nm.hdr.hwndFrom = m_parent;
        nm.hdr.idFrom = LIST_ID;
        nm.hdr.code = uCode;
        return SendMessageA(m_parent, WM_NOTIFY, LIST_ID, reinterpret_cast<LPARAM>(&nm));
    }

    static const int LIST_ID = 200;
    CNotifyRecorder m_parent;
};

TEST_F(CNotifyRecorderTest, PayloadsAreCopiedAsRegisteredOnArrival)
{
    m_parent.SetPayloadSize(LVN_ITEMCHANGED, sizeof(NMLISTVIEW));
    NMLISTVIEW nm = {};
    nm.iItem = 1;
    Notify(LVN_ITEMCHANGED, nm);
    Notify(LVN_INSERTITEM, nm);
    Notify(LVN_INSERTITEM, nm);
    nm.iItem = 2;
    const NMLISTVIEW* pChanged = m_parent.GetLast<NMLISTVIEW>(LVN_ITEMCHANGED);
    ASSERT_TRUE(pChanged != NULL);
    EXPECT_EQ(m_parent.GetSafeHwnd(), pChanged->hdr.hwndFrom);
    EXPECT_EQ(static_cast<UINT_PTR>(LIST_ID), pChanged->hdr.idFrom);
    EXPECT_EQ(1, pChanged->iItem);
    EXPECT_EQ(2, m_parent.GetCount(LVN_INSERTITEM));
    // Registered at NMHDR size only: too short to read as the full structure.
    EXPECT_TRUE(m_parent.GetLast<NMLISTVIEW>(LVN_INSERTITEM) == NULL);
    EXPECT_TRUE(m_parent.GetLast<NMHDR>(LVN_INSERTITEM) != NULL);
    EXPECT_TRUE(m_parent.GetLast<NMHDR>(LVN_DELETEITEM) == NULL);
    m_parent.Clear();
    EXPECT_TRUE(m_parent.GetNotifies().empty());
    EXPECT_EQ(0, m_parent.GetCount(LVN_ITEMCHANGED));
    Notify(LVN_ITEMCHANGED, nm);
    ASSERT_TRUE(m_parent.GetLast<NMLISTVIEW>(LVN_ITEMCHANGED) != NULL) << "payload sizes outlive Clear";
    EXPECT_EQ(2, m_parent.GetLast<NMLISTVIEW>(LVN_ITEMCHANGED)->iItem);
}

TEST_F(CNotifyRecorderTest, HandlersThenRepliesAnswerTheSender)
{
    m_parent.SetReply(LVN_ITEMCHANGING, TRUE);
    m_parent.SetReply(LVN_GETDISPINFOA, 7); // the handler comes first
    m_parent.SetHandler(LVN_GETDISPINFOA, [this](NMHDR* pHeader) {
        reinterpret_cast<NMLISTVIEW*>(pHeader)->iItem = 5; // filled in for the sender
        NMLISTVIEW inner = {};
        Notify(LVN_ITEMCHANGED, inner);
        return 3;
    });
    NMLISTVIEW nm = {};
    EXPECT_EQ(TRUE, Notify(LVN_ITEMCHANGING, nm));
    EXPECT_EQ(3, Notify(LVN_GETDISPINFOA, nm));
    EXPECT_EQ(5, nm.iItem);
    EXPECT_EQ(0, Notify(LVN_ITEMCHANGED, nm));
    const std::vector<CNotifyRecorder::CNotify>& notifies = m_parent.GetNotifies();
    ASSERT_EQ(4u, notifies.size());
    EXPECT_EQ(TRUE, notifies[0].m_lResult);
    // Recorded before its handler ran, so before the notification that the handler caused.
    EXPECT_EQ(static_cast<UINT>(LVN_GETDISPINFOA), notifies[1].m_uCode);
    EXPECT_EQ(3, notifies[1].m_lResult);
    EXPECT_EQ(static_cast<UINT>(LVN_ITEMCHANGED), notifies[2].m_uCode);
}

class CInputTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.Create(300, 200, true));
        m_hEdit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, 10, 10, 250, 24,
                                  m_parent, reinterpret_cast<HMENU>(300), GetModuleHandleA(NULL), NULL);
        SetFocus(m_hEdit);
    }
    POINT CharPoint(int nChar) const
    {
        LRESULT lPos = SendMessageA(m_hEdit, EM_POSFROMCHAR, nChar, 0);
        return POINT{static_cast<SHORT>(LOWORD(lPos)) + 1, static_cast<SHORT>(HIWORD(lPos)) + 4};
    }

    CNotifyRecorder m_parent;
    HWND m_hEdit = NULL;
};

// The edit reads the modifiers through GetKeyState while the key is down.
TEST_F(CInputTest, TypedTextArrivesAndKeysSelect)
{
    CInput::TypeText(m_hEdit, "Hello world");
    EXPECT_EQ("Hello world", CInput::GetText(m_hEdit));
    EXPECT_EQ(Sel(11, 11), CInput::GetSel(m_hEdit));
    CInput::PressKey(m_hEdit, VK_HOME, CInput::SHIFT);
    EXPECT_EQ(Sel(0, 11), CInput::GetSel(m_hEdit));
    CInput::PressKey(m_hEdit, VK_HOME);
    CInput::PressKey(m_hEdit, VK_RIGHT, CInput::SHIFT | CInput::CTRL); // a word
    EXPECT_EQ(Sel(0, 6), CInput::GetSel(m_hEdit));
    EXPECT_GE(GetKeyState(VK_SHIFT), 0); // released again
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    CInput::PressKey(m_hEdit, VK_BACK); // its WM_CHAR deletes the selection
    EXPECT_EQ("world", CInput::GetText(m_hEdit));

    std::string strLong(5000, 'x');
    SendMessageA(m_hEdit, EM_SETLIMITTEXT, 0, 0);
    SetWindowTextA(m_hEdit, strLong.c_str());
    EXPECT_EQ(strLong, CInput::GetText(m_hEdit));
    EXPECT_EQ("", CInput::GetText(NULL));
}

TEST_F(CInputTest, KeyMessagesCarryTheSystemBits)
{
    for (UINT uMsg : {WM_KEYDOWN, WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_SYSCHAR})
        m_parent.RecordMessage(uMsg);
    const CMessageList normal = {WM_KEYDOWN, WM_CHAR, WM_KEYUP};
    const struct { UINT key; UINT modifiers; CMessageList messages; WPARAM character; bool extended; } cases[] = {
        {VK_LEFT, 0, {WM_KEYDOWN, WM_KEYUP}, 0, true},
        {'A', 0, normal, 'a', false},
        {'A', CInput::SHIFT, normal, 'A', false},
        {'B', CInput::CTRL, normal, 2, false},
        {VK_RETURN, 0, normal, '\r', false},
        {'F', CInput::ALT, {WM_SYSKEYDOWN, WM_SYSCHAR, WM_SYSKEYUP}, 'f', false}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.key);
        m_parent.Clear();
        CInput::PressKey(m_parent, c.key, c.modifiers);
        ASSERT_EQ(c.messages, MessagesOf(m_parent));
        const std::vector<CNotifyRecorder::CMessage>& messages = m_parent.GetMessages();
        DWORD dwDown = static_cast<DWORD>(messages.front().m_lParam);
        EXPECT_EQ(c.key, messages.front().m_wParam);
        EXPECT_EQ(1u, dwDown & 0xFFFF);
        EXPECT_EQ(MapVirtualKeyA(c.key, MAPVK_VK_TO_VSC), dwDown >> 16 & 0xFF);
        EXPECT_EQ(c.extended, (dwDown >> 24 & 1) != 0);
        EXPECT_EQ((c.modifiers & CInput::ALT) != 0, (dwDown >> 29 & 1) != 0);
        EXPECT_EQ(0u, dwDown >> 30);
        EXPECT_EQ(3u, static_cast<DWORD>(messages.back().m_lParam) >> 30);
        EXPECT_EQ(c.character, messages.size() == 3 ? messages[1].m_wParam : 0);
    }
}

TEST_F(CInputTest, MouseMessagesCarryButtonsModifiersAndPoints)
{
    for (UINT uMsg : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MOUSEMOVE,
                      WM_MOUSEWHEEL})
        m_parent.RecordMessage(uMsg);
    typedef std::vector<std::tuple<UINT, WPARAM, int, int>> CMouseList; // message, MK_ flags, point
    const struct { std::function<void(HWND)> act; CMouseList messages; } cases[] = {
        {[](HWND h) { CInput::Click(h, 10, 20, CInput::SHIFT); },
         {{WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, 10, 20}, {WM_LBUTTONUP, MK_SHIFT, 10, 20}}},
        {[](HWND h) { CInput::DoubleClick(h, 5, 6); },
         {{WM_LBUTTONDOWN, MK_LBUTTON, 5, 6}, {WM_LBUTTONUP, 0, 5, 6}, {WM_LBUTTONDBLCLK, MK_LBUTTON, 5, 6},
          {WM_LBUTTONUP, 0, 5, 6}}},
        {[](HWND h) { CInput::RightClick(h, 7, 8, CInput::CTRL); },
         {{WM_RBUTTONDOWN, MK_RBUTTON | MK_CONTROL, 7, 8}, {WM_RBUTTONUP, MK_CONTROL, 7, 8}}},
        {[](HWND h) { CInput::Drag(h, POINT{0, 0}, POINT{30, -10}, 3); },
         {{WM_LBUTTONDOWN, MK_LBUTTON, 0, 0}, {WM_MOUSEMOVE, MK_LBUTTON, 10, -3}, {WM_MOUSEMOVE, MK_LBUTTON, 20, -6},
          {WM_MOUSEMOVE, MK_LBUTTON, 30, -10}, {WM_LBUTTONUP, 0, 30, -10}}}};
    for (const auto& c : cases)
    {
        m_parent.Clear();
        c.act(m_parent);
        CMouseList messages;
        for (const CNotifyRecorder::CMessage& m : m_parent.GetMessages())
            messages.emplace_back(m.m_uMsg, m.m_wParam, static_cast<SHORT>(LOWORD(m.m_lParam)),
                                  static_cast<SHORT>(HIWORD(m.m_lParam)));
        EXPECT_EQ(c.messages, messages);
    }

    m_parent.Clear();
    CInput::Wheel(m_parent, 5, 6, -WHEEL_DELTA, CInput::CTRL);
    POINT pt = {5, 6};
    ClientToScreen(m_parent, &pt);
    ASSERT_EQ(1u, m_parent.GetMessages().size());
    const CNotifyRecorder::CMessage& wheel = m_parent.GetMessages()[0];
    EXPECT_EQ(static_cast<WPARAM>(MK_CONTROL), LOWORD(wheel.m_wParam));
    EXPECT_EQ(-WHEEL_DELTA, static_cast<SHORT>(HIWORD(wheel.m_wParam)));
    EXPECT_EQ(pt.x, static_cast<SHORT>(LOWORD(wheel.m_lParam)));
    EXPECT_EQ(pt.y, static_cast<SHORT>(HIWORD(wheel.m_lParam)));
}

// Real controls answer the mouse, and their notifications reach the recorder as commands.
TEST_F(CInputTest, MouseSelectsTextAndChecksACheckBox)
{
    SetWindowTextA(m_hEdit, "Hello world");
    CInput::Drag(m_hEdit, CharPoint(0), CharPoint(5));
    EXPECT_EQ(Sel(0, 5), CInput::GetSel(m_hEdit));
    CInput::DoubleClick(m_hEdit, CharPoint(8).x, CharPoint(8).y);
    EXPECT_EQ(Sel(6, 11), CInput::GetSel(m_hEdit));

    HWND hCheck = CreateWindowExA(0, "BUTTON", "Check", WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX, 10, 50, 100, 20,
                                  m_parent, reinterpret_cast<HMENU>(301), GetModuleHandleA(NULL), NULL);
    EXPECT_EQ(BST_UNCHECKED, CInput::GetCheck(hCheck));
    m_parent.Clear();
    CInput::Click(hCheck, 5, 5);
    EXPECT_EQ(BST_CHECKED, CInput::GetCheck(hCheck));
    ASSERT_FALSE(m_parent.GetCommands().empty()); // the edit may report losing the focus first
    const CNotifyRecorder::CCommand& command = m_parent.GetCommands().back();
    EXPECT_EQ(static_cast<UINT>(BN_CLICKED), command.m_uNotifyCode);
    EXPECT_EQ(301u, command.m_uId);
    EXPECT_EQ(hCheck, command.m_hWndControl);
}

namespace
{
const COLORREF PAINT_COLOUR = RGB(10, 200, 30);

// Paints its client area in one colour through BeginPaint, ignoring WM_PRINTCLIENT.
LRESULT CALLBACK SolidWndProc(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (uMsg != WM_PAINT)
        return DefWindowProcA(hWnd, uMsg, wParam, lParam);
    PAINTSTRUCT paint;
    HDC hdc = BeginPaint(hWnd, &paint);
    HBRUSH hBrush = CreateSolidBrush(PAINT_COLOUR);
    FillRect(hdc, &paint.rcPaint, hBrush);
    DeleteObject(hBrush);
    EndPaint(hWnd, &paint);
    return 0;
}

HWND CreateSolidChild(HWND hParent, int x, int y, int cx, int cy)
{
    WNDCLASSA wc = {0, SolidWndProc, 0, 0, GetModuleHandleA(NULL), NULL, NULL, NULL, NULL, "KelHarnessSolid"};
    RegisterClassA(&wc); // fails harmlessly when already registered
    return CreateWindowExA(0, wc.lpszClassName, "", WS_CHILD | WS_VISIBLE, x, y, cx, cy, hParent, NULL,
                           wc.hInstance, NULL);
}
} // namespace

// The capture reads what the window painted through BeginPaint, children included, and shows a
// hidden window only for the capture.
TEST(CWindowImageTest, CapturesWhatTheWindowPainted)
{
    CNotifyRecorder parent;
    ASSERT_TRUE(parent.Create(120, 80));
    HWND hChild = CreateSolidChild(parent, 10, 20, 30, 40);
    CWindowImage image;
    ASSERT_TRUE(image.Capture(parent));
    EXPECT_FALSE(IsWindowVisible(parent));
    EXPECT_EQ(120, image.GetWidth());
    EXPECT_EQ(80, image.GetHeight());
    RECT rcChild = {10, 20, 40, 60}, rcAll = {-5, -5, 500, 500};
    EXPECT_EQ(30 * 40, image.CountPixels(PAINT_COLOUR, rcChild));
    EXPECT_EQ(30 * 40, image.CountPixels(PAINT_COLOUR, rcAll));
    EXPECT_EQ(PAINT_COLOUR, image.GetPixel(10, 20));
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), image.GetPixel(9, 20));
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), image.GetPixel(119, 79));
    EXPECT_EQ(CLR_INVALID, image.GetPixel(120, 0));
    EXPECT_EQ(CLR_INVALID, image.GetPixel(0, -1));

    ASSERT_TRUE(image.Capture(parent, true));
    RECT rcWindow;
    GetWindowRect(parent, &rcWindow);
    EXPECT_EQ(rcWindow.right - rcWindow.left, image.GetWidth());
    EXPECT_EQ(30 * 40, image.CountPixels(PAINT_COLOUR, rcAll));
    ASSERT_TRUE(image.Capture(hChild));
    EXPECT_EQ(30 * 40, image.CountPixels(PAINT_COLOUR, rcAll));
    EXPECT_FALSE(image.Capture(NULL));
    EXPECT_EQ(0, image.GetWidth());
}
