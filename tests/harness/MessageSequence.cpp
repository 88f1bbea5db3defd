#include "tests/harness/MessageSequence.h"

#include "tests/harness/ImportRecorder.h"

#include <stdint.h>
#include <stdio.h>

#include <algorithm>
#include <utility>

namespace
{
CMessageSequence* s_pRecording = NULL;

template <class PFN>
PFN SystemFunction(const char* pszName)
{
    return reinterpret_cast<PFN>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32.dll"), pszName)));
}

// The real functions, whatever a module's imports point at.
const auto s_pfnDefWindowProcA = SystemFunction<decltype(&::DefWindowProcA)>("DefWindowProcA");
const auto s_pfnCallWindowProcA = SystemFunction<decltype(&::CallWindowProcA)>("CallWindowProcA");

// The modules whose calls of the default procedure are seen; null for the program.
const char* const s_apszModules[] = {NULL, "KelAfx.dll", "KelControls.dll", "KEL_Util.dll"};

// Left out unless asked for; 0x0118 is the system's caret timer.
const UINT s_auNoise[] = {
    WM_ACTIVATEAPP, WM_GETICON, WM_GETOBJECT, WM_NCHITTEST, WM_SETCURSOR, WM_NCMOUSEMOVE, WM_TIMER, 0x0118,
    WM_PAINT, WM_NCPAINT, WM_ERASEBKGND, WM_SYNCPAINT, WM_PRINTCLIENT, WM_CTLCOLORMSGBOX, WM_CTLCOLOREDIT,
    WM_CTLCOLORLISTBOX, WM_CTLCOLORBTN, WM_CTLCOLORDLG, WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC,
    WM_IME_STARTCOMPOSITION, WM_IME_ENDCOMPOSITION, WM_IME_COMPOSITION, WM_IME_SETCONTEXT, WM_IME_NOTIFY,
    WM_IME_CONTROL, WM_IME_COMPOSITIONFULL, WM_IME_SELECT, WM_IME_CHAR, WM_IME_REQUEST, WM_IME_KEYDOWN,
    WM_IME_KEYUP};

#define KEL_MSG(name) {name, #name}
const struct
{
    UINT m_uMsg;
    const char* m_pszName;
} s_aNames[] = {
    KEL_MSG(WM_CREATE), KEL_MSG(WM_DESTROY), KEL_MSG(WM_MOVE), KEL_MSG(WM_SIZE), KEL_MSG(WM_ACTIVATE),
    KEL_MSG(WM_SETFOCUS), KEL_MSG(WM_KILLFOCUS), KEL_MSG(WM_ENABLE), KEL_MSG(WM_SETTEXT), KEL_MSG(WM_GETTEXT),
    KEL_MSG(WM_GETTEXTLENGTH), KEL_MSG(WM_CLOSE), KEL_MSG(WM_SHOWWINDOW), KEL_MSG(WM_SETFONT), KEL_MSG(WM_GETFONT),
    KEL_MSG(WM_WINDOWPOSCHANGING), KEL_MSG(WM_WINDOWPOSCHANGED), KEL_MSG(WM_NOTIFY), KEL_MSG(WM_NCCREATE),
    KEL_MSG(WM_NCDESTROY), KEL_MSG(WM_NCCALCSIZE), KEL_MSG(WM_NCACTIVATE), KEL_MSG(WM_GETDLGCODE),
    KEL_MSG(WM_KEYDOWN), KEL_MSG(WM_KEYUP), KEL_MSG(WM_CHAR), KEL_MSG(WM_SYSKEYDOWN), KEL_MSG(WM_SYSKEYUP),
    KEL_MSG(WM_SYSCHAR), KEL_MSG(WM_INITDIALOG), KEL_MSG(WM_COMMAND), KEL_MSG(WM_SYSCOMMAND), KEL_MSG(WM_HSCROLL),
    KEL_MSG(WM_VSCROLL), KEL_MSG(WM_INITMENUPOPUP), KEL_MSG(WM_CTLCOLOREDIT), KEL_MSG(WM_CTLCOLORLISTBOX),
    KEL_MSG(WM_CTLCOLORBTN), KEL_MSG(WM_CTLCOLORDLG), KEL_MSG(WM_CTLCOLORSTATIC), KEL_MSG(WM_DRAWITEM),
    KEL_MSG(WM_MEASUREITEM), KEL_MSG(WM_DELETEITEM), KEL_MSG(WM_COMPAREITEM), KEL_MSG(WM_MOUSEMOVE),
    KEL_MSG(WM_LBUTTONDOWN), KEL_MSG(WM_LBUTTONUP), KEL_MSG(WM_LBUTTONDBLCLK), KEL_MSG(WM_RBUTTONDOWN),
    KEL_MSG(WM_RBUTTONUP), KEL_MSG(WM_MOUSEWHEEL), KEL_MSG(WM_PARENTNOTIFY), KEL_MSG(WM_CAPTURECHANGED),
    KEL_MSG(WM_CONTEXTMENU), KEL_MSG(WM_NOTIFYFORMAT), KEL_MSG(WM_STYLECHANGING), KEL_MSG(WM_STYLECHANGED),
    KEL_MSG(WM_CUT), KEL_MSG(WM_COPY), KEL_MSG(WM_PASTE), KEL_MSG(WM_CLEAR), KEL_MSG(WM_UNDO),
    KEL_MSG(EM_GETSEL), KEL_MSG(EM_SETSEL), KEL_MSG(EM_GETMODIFY), KEL_MSG(EM_SETMODIFY), KEL_MSG(EM_LIMITTEXT),
    KEL_MSG(EM_REPLACESEL), KEL_MSG(EM_SETREADONLY)};
#undef KEL_MSG

std::string Format(const char* pszFormat, unsigned long long ullValue)
{
    char sz[64];
    snprintf(sz, sizeof(sz), pszFormat, ullValue);
    return sz;
}

std::string MessageName(UINT uMsg)
{
    for (const auto& name : s_aNames)
    {
        if (name.m_uMsg == uMsg)
            return name.m_pszName;
    }
    if (uMsg >= WM_APP && uMsg < 0xC000)
        return uMsg == WM_APP ? "WM_APP" : Format("WM_APP+%llu", uMsg - WM_APP);
    if (uMsg >= WM_USER && uMsg < WM_APP)
        return uMsg == WM_USER ? "WM_USER" : Format("WM_USER+%llu", uMsg - WM_USER);
    return Format("0x%04llx", uMsg);
}
} // namespace

CMessageSequence::CMessageSequence()
    : m_pPrevious(s_pRecording), m_hHookCallWndProc(NULL), m_hHookCallWndProcRet(NULL), m_hHookGetMessage(NULL),
      m_ignored(std::begin(s_auNoise), std::end(s_auNoise)), m_iLastPosted(-1)
{
    s_pRecording = this;
    for (const char* pszModule : s_apszModules)
    {
        HMODULE hModule = GetModuleHandleA(pszModule);
        CImportRecorder::Get().Redirect(hModule, "user32.dll", "DefWindowProcA",
                                        reinterpret_cast<void*>(&CMessageSequence::DefWindowProcA));
        CImportRecorder::Get().Redirect(hModule, "user32.dll", "CallWindowProcA",
                                        reinterpret_cast<void*>(&CMessageSequence::CallWindowProcA));
    }
    DWORD dwThread = GetCurrentThreadId();
    m_hHookCallWndProc = SetWindowsHookExA(WH_CALLWNDPROC, OnCallWndProc, NULL, dwThread);
    m_hHookCallWndProcRet = SetWindowsHookExA(WH_CALLWNDPROCRET, OnCallWndProcRet, NULL, dwThread);
    m_hHookGetMessage = SetWindowsHookExA(WH_GETMESSAGE, OnGetMessage, NULL, dwThread);
}

CMessageSequence::~CMessageSequence()
{
    UnhookWindowsHookEx(m_hHookCallWndProc);
    UnhookWindowsHookEx(m_hHookCallWndProcRet);
    UnhookWindowsHookEx(m_hHookGetMessage);
    s_pRecording = m_pPrevious;
}

void CMessageSequence::Watch(HWND hWnd, const char* pszName)
{
    if (hWnd != NULL && pszName != NULL)
        m_watched[hWnd] = pszName;
}

void CMessageSequence::Handled(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (s_pRecording != NULL)
        s_pRecording->Add(hWnd, uMsg, SEQ_HANDLER, wParam, lParam);
}

void CMessageSequence::Handled(HWND hWnd, const NMHDR* pNMHDR)
{
    Handled(hWnd, WM_NOTIFY, pNMHDR->idFrom, reinterpret_cast<LPARAM>(pNMHDR));
}

void CMessageSequence::Clear()
{
    m_entries.clear();
    m_open.clear();
    m_iLastPosted = -1;
}

bool CMessageSequence::IsRecorded(HWND hWnd, UINT uMsg) const
{
    return m_watched.count(hWnd) != 0 && m_ignored.count(uMsg) == 0;
}

int CMessageSequence::Add(HWND hWnd, UINT uMsg, UINT fFlags, WPARAM wParam, LPARAM lParam)
{
    if (!IsRecorded(hWnd, uMsg))
        return -1;
    if (uMsg == WM_NOTIFY && lParam != 0)
        lParam = static_cast<LPARAM>(reinterpret_cast<const NMHDR*>(lParam)->code);
    CEntry entry = {m_watched[hWnd], hWnd, uMsg, fFlags, wParam, lParam};
    m_entries.push_back(entry);
    return static_cast<int>(m_entries.size() - 1);
}

LRESULT CALLBACK CMessageSequence::OnCallWndProc(int nCode, WPARAM wParam, LPARAM lParam)
{
    if (nCode == HC_ACTION && s_pRecording != NULL)
    {
        const CWPSTRUCT* pMsg = reinterpret_cast<const CWPSTRUCT*>(lParam);
        int iEntry = s_pRecording->Add(pMsg->hwnd, pMsg->message, SEQ_SENT, pMsg->wParam, pMsg->lParam);
        if (iEntry >= 0)
            s_pRecording->m_open.push_back(static_cast<size_t>(iEntry));
    }
    return CallNextHookEx(NULL, nCode, wParam, lParam);
}

LRESULT CALLBACK CMessageSequence::OnCallWndProcRet(int nCode, WPARAM wParam, LPARAM lParam)
{
    if (nCode == HC_ACTION && s_pRecording != NULL)
    {
        const CWPRETSTRUCT* pMsg = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
        std::vector<size_t>& open = s_pRecording->m_open;
        const std::vector<CEntry>& entries = s_pRecording->m_entries;
        auto it = std::find_if(open.rbegin(), open.rend(), [&](size_t iEntry) {
            return entries[iEntry].m_hWnd == pMsg->hwnd && entries[iEntry].m_uMsg == pMsg->message;
        });
        if (it != open.rend())
            open.erase(std::next(it).base());
    }
    return CallNextHookEx(NULL, nCode, wParam, lParam);
}

LRESULT CALLBACK CMessageSequence::OnGetMessage(int nCode, WPARAM wParam, LPARAM lParam)
{
    if (nCode == HC_ACTION && wParam == PM_REMOVE && s_pRecording != NULL)
    {
        const MSG* pMsg = reinterpret_cast<const MSG*>(lParam);
        int iEntry = s_pRecording->Add(pMsg->hwnd, pMsg->message, SEQ_POSTED, pMsg->wParam, pMsg->lParam);
        if (iEntry >= 0)
            s_pRecording->m_iLastPosted = iEntry;
    }
    return CallNextHookEx(NULL, nCode, wParam, lParam);
}

LRESULT WINAPI CMessageSequence::DefWindowProcA(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (s_pRecording != NULL)
        s_pRecording->OnDefault(hWnd, uMsg, wParam, lParam);
    return s_pfnDefWindowProcA(hWnd, uMsg, wParam, lParam);
}

LRESULT WINAPI CMessageSequence::CallWindowProcA(WNDPROC pfn, HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (s_pRecording != NULL)
        s_pRecording->OnDefault(hWnd, uMsg, wParam, lParam);
    return s_pfnCallWindowProcA(pfn, hWnd, uMsg, wParam, lParam);
}

void CMessageSequence::OnDefault(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (!IsRecorded(hWnd, uMsg))
        return;
    auto isThisMessage = [&](size_t iEntry) {
        return m_entries[iEntry].m_hWnd == hWnd && m_entries[iEntry].m_uMsg == uMsg;
    };
    auto it = std::find_if(m_open.rbegin(), m_open.rend(), isThisMessage);
    if (it != m_open.rend())
        m_entries[*it].m_fFlags |= SEQ_DEFPROC;
    else if (m_iLastPosted >= 0 && isThisMessage(m_iLastPosted) && !(m_entries[m_iLastPosted].m_fFlags & SEQ_DEFPROC))
        m_entries[m_iLastPosted].m_fFlags |= SEQ_DEFPROC;
    else
        Add(hWnd, uMsg, SEQ_DEFPROC, wParam, lParam);
}

bool CMessageSequence::Matches(const CMessage& expected, const CEntry& entry)
{
    const UINT fKind = SEQ_SENT | SEQ_POSTED | SEQ_HANDLER | SEQ_DEFPROC;
    return entry.m_strWindow == expected.m_pszWindow && entry.m_uMsg == expected.m_uMsg &&
           (entry.m_fFlags & fKind) == (expected.m_fFlags & fKind) &&
           (!(expected.m_fFlags & SEQ_WPARAM) || entry.m_wParam == expected.m_wParam) &&
           (!(expected.m_fFlags & SEQ_LPARAM) || entry.m_lParam == expected.m_lParam);
}

std::string CMessageSequence::Describe(const CMessage& message)
{
    const UINT fFlags = message.m_fFlags;
    std::string str = std::string(message.m_pszWindow) + " " + MessageName(message.m_uMsg) + " ";
    std::string strKind = fFlags & SEQ_SENT      ? "sent"
                          : fFlags & SEQ_POSTED  ? "posted"
                          : fFlags & SEQ_HANDLER ? "handler"
                                                 : "";
    if (fFlags & SEQ_DEFPROC)
        strKind += strKind.empty() ? "defproc" : "+defproc";
    str += strKind;
    const unsigned long long ullWParam = message.m_wParam;
    const unsigned long long ullLParam = static_cast<ULONG_PTR>(message.m_lParam);
    if ((fFlags & SEQ_WPARAM) && message.m_uMsg == WM_COMMAND)
        str += Format(" id %llu", LOWORD(ullWParam)) + Format(" code 0x%llx", HIWORD(ullWParam));
    else if ((fFlags & SEQ_WPARAM) && message.m_uMsg == WM_NOTIFY)
        str += Format(" id %llu", ullWParam);
    else if (fFlags & SEQ_WPARAM)
        str += Format(" wParam 0x%llx", ullWParam);
    if ((fFlags & SEQ_LPARAM) && message.m_uMsg == WM_NOTIFY)
        str += Format(" code %lld", static_cast<int>(static_cast<UINT>(ullLParam)));
    else if (fFlags & SEQ_LPARAM)
        str += Format(" lParam 0x%llx", ullLParam);
    if (fFlags & SEQ_OPTIONAL)
        str += " (optional)";
    return str;
}

::testing::AssertionResult CMessageSequence::Check(std::initializer_list<CMessage> expected)
{
    return Check(expected.begin(), expected.size());
}

::testing::AssertionResult CMessageSequence::Check(const CMessage* pExpected, size_t nExpected)
{
    std::vector<std::pair<std::string, std::string>> rows; // expected, recorded
    auto describeEntry = [](const CEntry& entry) {
        CMessage message = {entry.m_strWindow.c_str(), entry.m_uMsg, entry.m_fFlags | SEQ_WPARAM | SEQ_LPARAM,
                            entry.m_wParam, entry.m_lParam};
        return Describe(message);
    };
    size_t iExpected = 0, iEntry = 0;
    size_t iFirstDifference = SIZE_MAX;
    while (iExpected < nExpected || iEntry < m_entries.size())
    {
        const bool bMatching = iFirstDifference == SIZE_MAX;
        if (bMatching && iExpected < nExpected && iEntry < m_entries.size() &&
            Matches(pExpected[iExpected], m_entries[iEntry]))
        {
            rows.emplace_back(Describe(pExpected[iExpected++]), describeEntry(m_entries[iEntry++]));
        }
        else if (bMatching && iExpected < nExpected && (pExpected[iExpected].m_fFlags & SEQ_OPTIONAL))
        {
            rows.emplace_back(Describe(pExpected[iExpected++]), "");
        }
        else
        {
            // From the first difference on, both sides as they are.
            if (iFirstDifference == SIZE_MAX)
                iFirstDifference = rows.size();
            rows.emplace_back(iExpected < nExpected ? Describe(pExpected[iExpected++]) : "",
                              iEntry < m_entries.size() ? describeEntry(m_entries[iEntry++]) : "");
        }
    }
    Clear();
    if (iFirstDifference == SIZE_MAX)
        return ::testing::AssertionSuccess();

    size_t cchWidth = 8;
    for (const auto& row : rows)
        cchWidth = std::max(cchWidth, row.first.size());
    ::testing::AssertionResult result = ::testing::AssertionFailure();
    result << "the messages differ from row " << iFirstDifference << " on\n  "
           << std::string("expected").append(cchWidth - 8, ' ') << " | recorded\n";
    for (size_t i = 0; i < rows.size(); ++i)
    {
        result << (i == iFirstDifference ? "> " : "  ") << rows[i].first
               << std::string(cchWidth - rows[i].first.size(), ' ') << " | " << rows[i].second << "\n";
    }
    return result;
}
