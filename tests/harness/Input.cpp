#include "tests/harness/Input.h"

#include <string.h>

namespace
{
const BYTE KEY_DOWN = 0x80;
const BYTE KEY_TOGGLED = 0x01;

// Keys held in the thread's keyboard state for the life of the object; the state before it
// comes back at the end. Modifiers count as the left-hand keys.
class CHeldKeys
{
public:
    explicit CHeldKeys(UINT fModifiers)
    {
        GetKeyboardState(m_saved);
        memcpy(m_state, m_saved, sizeof(m_state));
        if (fModifiers & CInput::SHIFT)
            Hold(VK_SHIFT, VK_LSHIFT);
        if (fModifiers & CInput::CTRL)
            Hold(VK_CONTROL, VK_LCONTROL);
        if (fModifiers & CInput::ALT)
            Hold(VK_MENU, VK_LMENU);
        SetKeyboardState(m_state);
    }
    ~CHeldKeys() { SetKeyboardState(m_saved); }

    void Set(UINT uVirtualKey, bool bDown)
    {
        BYTE& state = m_state[uVirtualKey & 0xFF];
        state = static_cast<BYTE>((state & KEY_TOGGLED) | (bDown ? KEY_DOWN : 0));
        SetKeyboardState(m_state);
    }

    bool IsDown(UINT uVirtualKey) const { return (m_state[uVirtualKey] & KEY_DOWN) != 0; }
    BYTE* GetState() { return m_state; }

    // The MK_ flags of a mouse message: the state after the event, as the system reports it.
    WORD MouseKeys() const
    {
        WORD wKeys = 0;
        wKeys |= IsDown(VK_SHIFT) ? MK_SHIFT : 0;
        wKeys |= IsDown(VK_CONTROL) ? MK_CONTROL : 0;
        wKeys |= IsDown(VK_LBUTTON) ? MK_LBUTTON : 0;
        wKeys |= IsDown(VK_RBUTTON) ? MK_RBUTTON : 0;
        wKeys |= IsDown(VK_MBUTTON) ? MK_MBUTTON : 0;
        return wKeys;
    }

    void SendMouse(HWND hWnd, UINT uMsg, int x, int y) const
    {
        SendMessageA(hWnd, uMsg, MouseKeys(), MAKELPARAM(x, y));
    }

private:
    void Hold(UINT uKey, UINT uLeftKey)
    {
        m_state[uKey] |= KEY_DOWN;
        m_state[uLeftKey] |= KEY_DOWN;
    }

    BYTE m_saved[256];
    BYTE m_state[256];
};

bool IsExtendedKey(UINT uVirtualKey)
{
    switch (uVirtualKey)
    {
    case VK_PRIOR: case VK_NEXT: case VK_END: case VK_HOME:
    case VK_LEFT: case VK_UP: case VK_RIGHT: case VK_DOWN:
    case VK_INSERT: case VK_DELETE: case VK_DIVIDE: case VK_NUMLOCK:
    case VK_RCONTROL: case VK_RMENU: case VK_LWIN: case VK_RWIN: case VK_APPS: case VK_SNAPSHOT:
        return true;
    default:
        return false;
    }
}

// Repeat count 1, scan code, extended-key bit, context bit (Alt held), and for a release the
// previous-state and transition bits.
LPARAM KeyData(UINT uVirtualKey, bool bAlt, bool bRelease)
{
    DWORD dwData = 1 | (MapVirtualKeyA(uVirtualKey, MAPVK_VK_TO_VSC) & 0xFF) << 16;
    if (IsExtendedKey(uVirtualKey))
        dwData |= 1u << 24;
    if (bAlt)
        dwData |= 1u << 29;
    if (bRelease)
        dwData |= 3u << 30;
    return static_cast<LPARAM>(dwData);
}

void Press(HWND hWnd, UINT uDown, UINT uVirtualButton, CHeldKeys& keys, int x, int y)
{
    keys.Set(uVirtualButton, true);
    keys.SendMouse(hWnd, uDown, x, y);
}

void Release(HWND hWnd, UINT uUp, UINT uVirtualButton, CHeldKeys& keys, int x, int y)
{
    keys.Set(uVirtualButton, false);
    keys.SendMouse(hWnd, uUp, x, y);
}
} // namespace

void CInput::TypeText(HWND hWnd, const char* pszText)
{
    for (const char* p = pszText; p != NULL && *p != '\0'; ++p)
        SendMessageA(hWnd, WM_CHAR, static_cast<BYTE>(*p), KeyData(VkKeyScanA(*p) & 0xFF, false, false));
}

void CInput::PressKey(HWND hWnd, UINT uVirtualKey, UINT fModifiers)
{
    CHeldKeys keys(fModifiers);
    bool bAlt = (fModifiers & ALT) != 0;
    keys.Set(uVirtualKey, true);
    SendMessageA(hWnd, bAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, uVirtualKey, KeyData(uVirtualKey, bAlt, false));
    WORD wChar = 0;
    UINT uScan = MapVirtualKeyA(uVirtualKey, MAPVK_VK_TO_VSC);
    if (ToAscii(uVirtualKey, uScan, keys.GetState(), &wChar, 0) == 1)
        SendMessageA(hWnd, bAlt ? WM_SYSCHAR : WM_CHAR, static_cast<BYTE>(wChar), KeyData(uVirtualKey, bAlt, false));
    keys.Set(uVirtualKey, false);
    SendMessageA(hWnd, bAlt ? WM_SYSKEYUP : WM_KEYUP, uVirtualKey, KeyData(uVirtualKey, bAlt, true));
}

void CInput::Click(HWND hWnd, int x, int y, UINT fModifiers)
{
    CHeldKeys keys(fModifiers);
    Press(hWnd, WM_LBUTTONDOWN, VK_LBUTTON, keys, x, y);
    Release(hWnd, WM_LBUTTONUP, VK_LBUTTON, keys, x, y);
}

void CInput::DoubleClick(HWND hWnd, int x, int y, UINT fModifiers)
{
    CHeldKeys keys(fModifiers);
    Press(hWnd, WM_LBUTTONDOWN, VK_LBUTTON, keys, x, y);
    Release(hWnd, WM_LBUTTONUP, VK_LBUTTON, keys, x, y);
    bool bDoubleClicks = (GetClassLongPtrA(hWnd, GCL_STYLE) & CS_DBLCLKS) != 0;
    Press(hWnd, bDoubleClicks ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, VK_LBUTTON, keys, x, y);
    Release(hWnd, WM_LBUTTONUP, VK_LBUTTON, keys, x, y);
}

void CInput::RightClick(HWND hWnd, int x, int y, UINT fModifiers)
{
    CHeldKeys keys(fModifiers);
    Press(hWnd, WM_RBUTTONDOWN, VK_RBUTTON, keys, x, y);
    Release(hWnd, WM_RBUTTONUP, VK_RBUTTON, keys, x, y);
}

void CInput::Drag(HWND hWnd, POINT ptFrom, POINT ptTo, int nSteps, UINT fModifiers)
{
    if (nSteps < 1)
        nSteps = 1;
    CHeldKeys keys(fModifiers);
    Press(hWnd, WM_LBUTTONDOWN, VK_LBUTTON, keys, ptFrom.x, ptFrom.y);
    for (int i = 1; i <= nSteps; ++i)
    {
        keys.SendMouse(hWnd, WM_MOUSEMOVE, ptFrom.x + (ptTo.x - ptFrom.x) * i / nSteps,
                       ptFrom.y + (ptTo.y - ptFrom.y) * i / nSteps);
    }
    Release(hWnd, WM_LBUTTONUP, VK_LBUTTON, keys, ptTo.x, ptTo.y);
}

void CInput::QueuedClick(HWND hWnd, int x, int y)
{
    POINT pt = {x, y};
    ::ClientToScreen(hWnd, &pt);
    ::SetCursorPos(pt.x, pt.y);
    INPUT in[2] = {};
    in[0].type = in[1].type = INPUT_MOUSE;
    in[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    in[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    ::SendInput(2, in, sizeof(INPUT));
    PumpMessages(100);
}

void CInput::Wheel(HWND hWnd, int x, int y, int nDelta, UINT fModifiers)
{
    CHeldKeys keys(fModifiers);
    POINT pt = {x, y};
    ClientToScreen(hWnd, &pt);
    SendMessageA(hWnd, WM_MOUSEWHEEL, MAKEWPARAM(keys.MouseKeys(), static_cast<WORD>(nDelta)),
                 MAKELPARAM(pt.x, pt.y));
}

std::string CInput::GetText(HWND hWnd)
{
    int cch = GetWindowTextLengthA(hWnd);
    std::string strText(cch + 1, '\0');
    int cchCopied = GetWindowTextA(hWnd, &strText[0], cch + 1);
    strText.resize(cchCopied > 0 ? cchCopied : 0);
    return strText;
}

std::pair<DWORD, DWORD> CInput::GetSel(HWND hWnd)
{
    DWORD dwStart = 0, dwEnd = 0;
    SendMessageA(hWnd, EM_GETSEL, reinterpret_cast<WPARAM>(&dwStart), reinterpret_cast<LPARAM>(&dwEnd));
    return std::make_pair(dwStart, dwEnd);
}

int CInput::GetCheck(HWND hWnd)
{
    return static_cast<int>(SendMessageA(hWnd, BM_GETCHECK, 0, 0));
}

DWORD CInput::GetStyle(HWND hWnd)
{
    return static_cast<DWORD>(GetWindowLongPtrA(hWnd, GWL_STYLE));
}

int CInput::PumpMessages(DWORD dwMilliseconds)
{
    DWORD dwStart = GetTickCount();
    int nDispatched = 0;
    for (;;)
    {
        MSG msg;
        bool bHadMessage = PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE) != FALSE;
        if (bHadMessage)
        {
            if (msg.message == WM_QUIT)
            {
                PostQuitMessage(static_cast<int>(msg.wParam));
                return nDispatched;
            }
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
            ++nDispatched;
        }
        DWORD dwElapsed = GetTickCount() - dwStart;
        if (dwElapsed >= dwMilliseconds)
            return nDispatched;
        if (!bHadMessage)
            MsgWaitForMultipleObjects(0, NULL, FALSE, dwMilliseconds - dwElapsed, QS_ALLINPUT);
    }
}
