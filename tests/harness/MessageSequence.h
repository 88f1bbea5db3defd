// CMessageSequence: records the messages that a few windows receive (a parent and its
// controls, say) in ONE sequence, and compares it with a table of the messages expected, so
// that a test states the order in which windows hear of things.
//
//   CMessageSequence seq;
//   seq.Watch(parent, "parent");
//   seq.Watch(edit, "edit");
//   CInput::TypeText(edit, "a");
//   EXPECT_TRUE(seq.Check({
//       {"edit", WM_CHAR, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 'a'},
//       {"parent", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, MAKEWPARAM(IDC_EDIT, EN_CHANGE)},
//   }));
//
// Each entry is one message arriving at a watched window, in the order of arrival (a message
// sent while another is handled comes after it), of one kind:
//   SEQ_SENT     sent to the window (seen by a WH_CALLWNDPROC hook);
//   SEQ_POSTED   posted, and taken from the queue (a WH_GETMESSAGE hook, PM_REMOVE only);
//   SEQ_HANDLER  a note from a handler of the test (Handled), for what runs without a message
//                of its own: a reflected notification reaching the control's handler, say.
// SEQ_DEFPROC is added to a sent or posted message that the window's procedure passed on to
// the default one: DefWindowProc, or for a subclassed window (a CWnd's m_pfnSuper) the
// procedure it replaced. Alone it marks a call of the default procedure with a message that did
// not arrive as such. It is seen through the DefWindowProcA and CallWindowProcA imports of the
// program, KelAfx.dll, KelControls.dll and KEL_Util.dll, redirected with
// CImportRecorder::Redirect: a system control's own calls are not seen, so a system control that
// no CWnd subclassed never has SEQ_DEFPROC. The redirects stay until CImportRecorder::Uninstall
// and pass straight through while no sequence records.
//
// Arguments are recorded as sent, except for WM_NOTIFY, whose lParam is recorded as the
// notification code (the pointer means nothing afterwards). WM_COMMAND's wParam holds the id
// and the notification code: MAKEWPARAM(id, code).
//
// An expected entry names the window and the message, gives the kind exactly as recorded, and
// may add what else to compare: SEQ_WPARAM, SEQ_LPARAM; SEQ_OPTIONAL lets it be absent. As in
// the system's conformance tests the tables are matched entry by entry, an optional entry that
// does not match being skipped. On a mismatch Check fails with both sequences side by side.
//
// Noise is left out unless asked for with Record: WM_ACTIVATEAPP (the process's, whenever it
// comes), WM_GETICON, WM_GETOBJECT, WM_NCHITTEST, WM_SETCURSOR, WM_NCMOUSEMOVE, the IME
// messages, timers and painting (WM_PAINT, WM_NCPAINT, WM_ERASEBKGND, WM_SYNCPAINT,
// WM_PRINTCLIENT and the WM_CTLCOLOR* family). Ignore leaves out more. One sequence records
// at a time, on the thread that made it, from its construction on.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <vector>

enum
{
    SEQ_SENT = 0x01,
    SEQ_POSTED = 0x02,
    SEQ_HANDLER = 0x04,
    SEQ_DEFPROC = 0x08,
    SEQ_OPTIONAL = 0x10,
    SEQ_WPARAM = 0x20,
    SEQ_LPARAM = 0x40,
};

class CMessageSequence
{
public:
    struct CMessage
    {
        // The arguments may be of any integer or pointer type, taken bit for bit: a table may
        // say NM_CLICK for a WM_NOTIFY lParam, an unsigned -2, on 32-bit Windows too.
        template <class W = WPARAM, class L = LPARAM>
        CMessage(const char* pszWindow, UINT uMsg, UINT fFlags, W wParam = 0, L lParam = 0)
            : m_pszWindow(pszWindow), m_uMsg(uMsg), m_fFlags(fFlags), m_wParam((ULONG_PTR)wParam),
              m_lParam((LPARAM)(ULONG_PTR)lParam)
        {
        }

        const char* m_pszWindow;
        UINT m_uMsg;
        UINT m_fFlags;
        WPARAM m_wParam;
        LPARAM m_lParam;
    };

    CMessageSequence();
    ~CMessageSequence();
    CMessageSequence(const CMessageSequence&) = delete;
    CMessageSequence& operator=(const CMessageSequence&) = delete;

    // Records the window's messages from now on, under this name.
    void Watch(HWND hWnd, const char* pszName);
    void Record(UINT uMsg) { m_ignored.erase(uMsg); }
    void Ignore(UINT uMsg) { m_ignored.insert(uMsg); }
    // Notes in the recording sequence that a handler of the window ran for this message.
    static void Handled(HWND hWnd, UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0);
    // The same for a WM_NOTIFY handler: its id and code.
    static void Handled(HWND hWnd, const NMHDR* pNMHDR);

    // Compares what was recorded since the last check with the table, then forgets it.
    ::testing::AssertionResult Check(std::initializer_list<CMessage> expected);
    template <size_t N>
    ::testing::AssertionResult Check(const CMessage (&expected)[N])
    {
        return Check(expected, N);
    }
    ::testing::AssertionResult Check(const CMessage* pExpected, size_t nExpected);
    // Forgets what was recorded.
    void Clear();

private:
    struct CEntry
    {
        std::string m_strWindow;
        HWND m_hWnd;
        UINT m_uMsg;
        UINT m_fFlags;
        WPARAM m_wParam;
        LPARAM m_lParam;
    };

    static LRESULT CALLBACK OnCallWndProc(int nCode, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnCallWndProcRet(int nCode, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnGetMessage(int nCode, WPARAM wParam, LPARAM lParam);
    static LRESULT WINAPI DefWindowProcA(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static LRESULT WINAPI CallWindowProcA(WNDPROC pfn, HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    bool IsRecorded(HWND hWnd, UINT uMsg) const;
    // Appends an entry for a watched window and a message not left out; returns its index, or
    // -1 when nothing was recorded.
    int Add(HWND hWnd, UINT uMsg, UINT fFlags, WPARAM wParam, LPARAM lParam);
    void OnDefault(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    static bool Matches(const CMessage& expected, const CEntry& entry);
    static std::string Describe(const CMessage& message);

    CMessageSequence* m_pPrevious;
    HHOOK m_hHookCallWndProc;
    HHOOK m_hHookCallWndProcRet;
    HHOOK m_hHookGetMessage;
    std::map<HWND, std::string> m_watched;
    std::set<UINT> m_ignored;
    std::vector<CEntry> m_entries;
    // Entries of sent messages still being handled, innermost last, and the latest posted one:
    // where a call of the default procedure belongs.
    std::vector<size_t> m_open;
    int m_iLastPosted;
};
