#include "tests/harness/NotifyRecorder.h"

namespace
{
const char CLASS_NAME[] = "KelNotifyRecorder";
const int SCREEN_POSITION = 20;

BOOL RegisterRecorderClass(HINSTANCE hInstance, WNDPROC pfnWndProc)
{
    WNDCLASSA wc = {};
    if (GetClassInfoA(hInstance, CLASS_NAME, &wc))
        return TRUE;
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = pfnWndProc;
    wc.hInstance = hInstance;
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.lpszClassName = CLASS_NAME;
    return RegisterClassA(&wc) != 0;
}
} // namespace

CNotifyRecorder::~CNotifyRecorder()
{
    if (m_hWnd != NULL)
        DestroyWindow(m_hWnd);
}

BOOL CNotifyRecorder::Create(int cx, int cy, bool bVisible)
{
    HINSTANCE hInstance = GetModuleHandleA(NULL);
    if (m_hWnd != NULL || !RegisterRecorderClass(hInstance, &CNotifyRecorder::WndProc))
        return FALSE;
    // No caption or sizing frame, shown without activation: a window Wine never hands to a
    // window manager, so destroying it does not wait for one.
    const DWORD dwStyle = WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
    RECT rc = {0, 0, cx, cy};
    AdjustWindowRectEx(&rc, dwStyle, FALSE, 0);
    CreateWindowExA(0, CLASS_NAME, "", dwStyle, SCREEN_POSITION, SCREEN_POSITION, rc.right - rc.left,
                    rc.bottom - rc.top, NULL, NULL, hInstance, this);
    if (m_hWnd != NULL && bVisible)
    {
        ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
        UpdateWindow(m_hWnd);
    }
    return m_hWnd != NULL;
}

int CNotifyRecorder::GetCount(UINT uCode) const
{
    int nCount = 0;
    for (const CNotify& notify : m_notifies)
    {
        if (notify.m_uCode == uCode)
            ++nCount;
    }
    return nCount;
}

const CNotifyRecorder::CNotify* CNotifyRecorder::GetLastNotify(UINT uCode) const
{
    for (auto it = m_notifies.rbegin(); it != m_notifies.rend(); ++it)
    {
        if (it->m_uCode == uCode)
            return &*it;
    }
    return NULL;
}

void CNotifyRecorder::Clear()
{
    m_notifies.clear();
    m_commands.clear();
    m_messages.clear();
}

LRESULT CALLBACK CNotifyRecorder::WndProc(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (uMsg == WM_NCCREATE)
    {
        CNotifyRecorder* pCreating =
            static_cast<CNotifyRecorder*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
        pCreating->m_hWnd = hWnd;
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pCreating));
    }
    CNotifyRecorder* pThis = reinterpret_cast<CNotifyRecorder*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    if (pThis == NULL)
        return DefWindowProcA(hWnd, uMsg, wParam, lParam);

    if (pThis->m_recordedMessages.count(uMsg) != 0)
    {
        CMessage message = {uMsg, wParam, lParam};
        pThis->m_messages.push_back(message);
    }
    switch (uMsg)
    {
    case WM_NOTIFY:
        if (lParam != 0)
            return pThis->OnNotify(reinterpret_cast<NMHDR*>(lParam));
        break;
    case WM_COMMAND:
    {
        CCommand command = {HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam)};
        pThis->m_commands.push_back(command);
        return 0;
    }
    case WM_NCDESTROY:
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, 0);
        pThis->m_hWnd = NULL;
        break;
    }
    return DefWindowProcA(hWnd, uMsg, wParam, lParam);
}

LRESULT CNotifyRecorder::OnNotify(NMHDR* pHeader)
{
    auto itSize = m_payloadSizes.find(pHeader->code);
    size_t cbPayload = itSize != m_payloadSizes.end() ? itSize->second : sizeof(NMHDR);
    const BYTE* pBytes = reinterpret_cast<const BYTE*>(pHeader);
    CNotify notify = {pHeader->code, pHeader->hwndFrom, pHeader->idFrom, std::vector<BYTE>(pBytes, pBytes + cbPayload), 0};

    // Recorded before the handler runs, so that notifications it causes come after this one.
    size_t nIndex = m_notifies.size();
    m_notifies.push_back(std::move(notify));
    LRESULT lResult = 0;
    auto itHandler = m_handlers.find(pHeader->code);
    auto itReply = m_replies.find(pHeader->code);
    if (itHandler != m_handlers.end())
        lResult = itHandler->second(pHeader);
    else if (itReply != m_replies.end())
        lResult = itReply->second;
    m_notifies[nIndex].m_lResult = lResult;
    return lResult;
}
