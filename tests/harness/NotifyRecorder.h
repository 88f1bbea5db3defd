// CNotifyRecorder: a real top-level window to be the parent of the controls under test. It
// records every WM_NOTIFY (code, source and a copy of the payload), every WM_COMMAND and any
// other message the test names, and answers each notification code as the test set it.
//
// Payloads: the recorder copies as many bytes as registered for the code with SetPayloadSize
// (sizeof(NMHDR) unless told), so register the full structure of a code before reading it
// back with GetLast<T>; it returns null when no such notification came or its copy is shorter
// than T. The copy is taken as the notification arrived, before any handler changed it.
//
// Answers: a handler set for a code is called with the sender's structure, which it may fill
// in (notifications answered by writing into their structure), and its result is returned;
// otherwise the reply set with SetReply, 0 by default.
//
// The window is ANSI, so controls that ask (WM_NOTIFYFORMAT) send their ANSI notifications.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <set>
#include <vector>

class CNotifyRecorder
{
public:
    struct CNotify
    {
        UINT m_uCode;
        HWND m_hWndFrom;
        UINT_PTR m_idFrom;
        std::vector<BYTE> m_payload;
        LRESULT m_lResult; // what the recorder answered
    };

    struct CCommand
    {
        UINT m_uNotifyCode;
        UINT m_uId;
        HWND m_hWndControl;
    };

    struct CMessage
    {
        UINT m_uMsg;
        WPARAM m_wParam;
        LPARAM m_lParam;
    };

    typedef std::function<LRESULT(NMHDR*)> CHandler;

    CNotifyRecorder() : m_hWnd(NULL) {}
    ~CNotifyRecorder();
    CNotifyRecorder(const CNotifyRecorder&) = delete;
    CNotifyRecorder& operator=(const CNotifyRecorder&) = delete;

    // Creates the window, a bordered popup without caption, with a client area of cx by cy
    // pixels at (20, 20) on the screen so that it can be captured (capture/WindowImage.h); hidden unless
    // bVisible, and then shown without being activated (a control that takes the focus
    // activates it). To show it later, use SW_SHOWNOACTIVATE: under Wine without a window
    // manager (Xvfb), hiding or destroying a window that a window manager would manage (one
    // with a caption or sizing frame, or shown active) waits two seconds for it.
    BOOL Create(int cx, int cy, bool bVisible = false);
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    void SetPayloadSize(UINT uCode, size_t cbPayload) { m_payloadSizes[uCode] = cbPayload; }
    void SetReply(UINT uCode, LRESULT lResult) { m_replies[uCode] = lResult; }
    void SetHandler(UINT uCode, const CHandler& handler) { m_handlers[uCode] = handler; }
    // Records this message too (wParam and lParam), then handles it as by default.
    void RecordMessage(UINT uMsg) { m_recordedMessages.insert(uMsg); }

    const std::vector<CNotify>& GetNotifies() const { return m_notifies; }
    const std::vector<CCommand>& GetCommands() const { return m_commands; }
    const std::vector<CMessage>& GetMessages() const { return m_messages; }
    int GetCount(UINT uCode) const;
    const CNotify* GetLastNotify(UINT uCode) const;
    template <class T>
    const T* GetLast(UINT uCode) const
    {
        const CNotify* pNotify = GetLastNotify(uCode);
        if (pNotify == NULL || pNotify->m_payload.size() < sizeof(T))
            return NULL;
        return reinterpret_cast<const T*>(pNotify->m_payload.data());
    }
    // Forgets what was recorded; payload sizes, replies and handlers stay.
    void Clear();

private:
    static LRESULT CALLBACK WndProc(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnNotify(NMHDR* pHeader);

    HWND m_hWnd;
    std::map<UINT, size_t> m_payloadSizes;
    std::map<UINT, LRESULT> m_replies;
    std::map<UINT, CHandler> m_handlers;
    std::set<UINT> m_recordedMessages;
    std::vector<CNotify> m_notifies;
    std::vector<CCommand> m_commands;
    std::vector<CMessage> m_messages;
};
