// Fixtures of the typed edits' tests, both with a hidden parent CWnd so that reflected
// messages reach the edits as in a real host, and the library's message boxes and beeps recorded:
// CEditTest: a popup CWnd is the parent.
// CEditHost: the recorder window is the top-level parent and a plain child CWnd holds the
// controls.
#pragma once

#include "KelControls.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"
#include "tests/harness/NotifyRecorder.h"

#include <gtest/gtest.h>

#include <string>

class CEditTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_host.CreateEx(0, "STATIC", "host", WS_POPUP, 0, 0, 400, 300, NULL, NULL));
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
    }
    void TearDown() override { CImportRecorder::Get().Uninstall(); }

    // The edits of a test sit one under the other.
    void CreateEdit(CEdit& edit)
    {
        int y = 10 + 30 * m_nEdits++;
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, y, 200, y + 24), &m_host,
                                100 + m_nEdits));
    }

    static const CImportRecorder::CRecords& Records() { return CImportRecorder::Get().GetRecords(); }
    static std::string Text(const CWnd& wnd) { return CInput::GetText(wnd.GetSafeHwnd()); }

    CWnd m_host;
    int m_nEdits = 0;
};

class CEditHost : public ::testing::Test
{
protected:
    enum { HOST_ID = 70, EDIT_ID = 71 };

    void SetUp() override
    {
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
        ASSERT_TRUE(m_parent.Create(400, 120));
        ASSERT_TRUE(m_host.Create("STATIC", "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 120),
                                  CWnd::FromHandle(m_parent.GetSafeHwnd()), HOST_ID));
    }

    void TearDown() override
    {
        m_host.DestroyWindow();
        CImportRecorder::Get().Uninstall();
    }

    // A single-line edit of the host, 190 pixels wide.
    void CreateEdit(CEdit& edit)
    {
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, 10, 200, 34), &m_host, EDIT_ID));
    }

    static const CImportRecorder::CRecords& Records() { return CImportRecorder::Get().GetRecords(); }

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
};
