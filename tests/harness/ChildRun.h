// CChildRun: tests a path that ends the process, by running it in a copy of the test program.
//
//   TEST(CEventListTest, AWrongCompanionEndsTheProcess)
//   {
//       CChildRun::COutcome outcome = CChildRun::Run([] {
//           CImportRecorder::Get().Install(GetModuleHandleA("KelControls.dll"));
//           ... code that ends in ExitProcess ...
//       });
//       EXPECT_EQ(0xFFFFFFFFu, outcome.m_dwExitCode);
//       ASSERT_EQ(1u, outcome.m_records.m_messageBoxes.size());
//   }
//
// Run starts the test program again for the current test alone (--gtest_filter=Suite.Name,
// with the environment variable KEL_CHILD_RUN telling the copy where to report). In the copy
// the same test body reaches Run again, which now runs the body and never returns: when the
// body calls ExitProcess through a patched import, the recorder's stand-in records the code,
// Run's handler writes the copy's records to the report file, and the process ends for real
// with that code. A body that returns instead ends the copy with code 0 and says so
// (m_bBodyReturned). The body must install the recorder itself, for the modules whose
// ExitProcess it expects; an unpatched ExitProcess ends the copy without a report.
//
// Back in the test program, Run waits for the copy (60 s by default) and returns its exit code,
// its records and everything it printed. Failed assertions inside the body, a copy that ran
// out of time and a second Run in one test are reported as failures of the calling test.
#pragma once

#include "tests/harness/ImportRecorder.h"

#include <functional>
#include <string>

class CChildRun
{
public:
    struct COutcome
    {
        DWORD m_dwExitCode;
        bool m_bReported;     // the copy wrote its report before ending
        bool m_bBodyReturned; // the body returned instead of ending the process
        CImportRecorder::CRecords m_records;
        std::string m_strOutput; // the copy's standard output and error
    };

    static COutcome Run(const std::function<void()>& body, DWORD dwTimeout = 60000);

private:
    static COutcome RunCopy(const std::string& strTest, DWORD dwTimeout);
    [[noreturn]] static void RunBody(const std::function<void()>& body);
};
