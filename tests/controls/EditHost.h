// The fixture of the typed edits' tests: a hidden recorder window holds a plain child window, the
// edits' parent, so that reflected messages reach the edits as in a real host; the library's
// message boxes and beeps are recorded.
#pragma once

#include "KelControls.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"
#include "tests/harness/NotifyRecorder.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

class CEditHost : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
        ASSERT_TRUE(m_parent.Create(400, 300));
        ASSERT_TRUE(m_host.Create("STATIC", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300),
                                  CWnd::FromHandle(m_parent.GetSafeHwnd()), 70));
    }

    void TearDown() override
    {
        m_host.DestroyWindow();
        CImportRecorder::Get().Uninstall();
    }

    // The edits of a test sit one under the other, numbered from 101.
    void CreateEdit(CEdit& edit)
    {
        int y = 10 + 30 * m_nEdits++;
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, y, 200, y + 24), &m_host,
                                100 + m_nEdits));
    }

    static const CImportRecorder::CRecords& Records() { return CImportRecorder::Get().GetRecords(); }
    static std::string Text(HWND hWnd) { return CInput::GetText(hWnd); }

    // Puts the text on the clipboard and sends the edit WM_PASTE.
    static void Paste(HWND hWnd, const char* pszText)
    {
        ASSERT_TRUE(::OpenClipboard(NULL));
        ::EmptyClipboard();
        size_t cb = strlen(pszText) + 1;
        HGLOBAL hText = ::GlobalAlloc(GMEM_MOVEABLE, cb);
        memcpy(::GlobalLock(hText), pszText, cb);
        ::GlobalUnlock(hText);
        ::SetClipboardData(CF_TEXT, hText);
        ::CloseClipboard();
        ::SendMessage(hWnd, WM_PASTE, 0, 0);
    }

    CNotifyRecorder m_parent;
    CWnd m_host;
    int m_nEdits = 0;
};
