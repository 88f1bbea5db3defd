// The typed edits' tests: a hidden popup CWnd is the parent (so reflected messages reach the
// edits, as in a real host), and the library's message boxes and beeps are recorded.
#pragma once

#include "KelControls.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"

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
