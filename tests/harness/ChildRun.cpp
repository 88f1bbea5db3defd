#include "tests/harness/ChildRun.h"

#include <gtest/gtest.h>
#include <stdio.h>
#include <stdlib.h>

#include <vector>

namespace
{
// "Suite.Name|report path" in the copy's environment.
const char CHILD_RUN_VARIABLE[] = "KEL_CHILD_RUN";

// The report: one record a line, tab-separated fields, the first naming the kind. It begins
// with REPORT_MARK, so that a copy that ended without reporting leaves an empty file.
const char REPORT_MARK[] = "kel-child-report";

int g_nRunsInTest = 0;
std::string g_strReportPath;

class CRunCounter : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo&) override { g_nRunsInTest = 0; }
};

std::string CurrentTest()
{
    const ::testing::TestInfo* pInfo = ::testing::UnitTest::GetInstance()->current_test_info();
    return pInfo != NULL ? std::string(pInfo->test_suite_name()) + "." + pInfo->name() : std::string();
}

std::string Escape(const std::string& str)
{
    std::string strOut;
    for (char c : str)
    {
        switch (c)
        {
        case '\\': strOut += "\\\\"; break;
        case '\t': strOut += "\\t"; break;
        case '\n': strOut += "\\n"; break;
        case '\r': strOut += "\\r"; break;
        default: strOut += c; break;
        }
    }
    return strOut;
}

std::string Unescape(const std::string& str)
{
    std::string strOut;
    for (size_t i = 0; i < str.size(); ++i)
    {
        if (str[i] != '\\' || i + 1 == str.size())
        {
            strOut += str[i];
            continue;
        }
        char c = str[++i];
        strOut += c == 't' ? '\t' : c == 'n' ? '\n' : c == 'r' ? '\r' : c;
    }
    return strOut;
}

typedef std::vector<std::string> CFields;

void AddLine(std::string& strReport, const CFields& fields)
{
    for (size_t i = 0; i < fields.size(); ++i)
        strReport += (i > 0 ? "\t" : "") + Escape(fields[i]);
    strReport += '\n';
}

std::string Number(long long n)
{
    return std::to_string(n);
}

std::string Handle(HWND hWnd)
{
    return Number(static_cast<long long>(reinterpret_cast<ULONG_PTR>(hWnd)));
}

CFields Split(const std::string& strLine)
{
    CFields fields;
    size_t nStart = 0;
    for (;;)
    {
        size_t nTab = strLine.find('\t', nStart);
        fields.push_back(Unescape(strLine.substr(nStart, nTab - nStart)));
        if (nTab == std::string::npos)
            return fields;
        nStart = nTab + 1;
    }
}

// Missing or malformed fields read as 0 or empty: a report cut short by a crash still parses.
long long NumberAt(const CFields& fields, size_t i)
{
    return i < fields.size() ? strtoll(fields[i].c_str(), NULL, 10) : 0;
}

std::string TextAt(const CFields& fields, size_t i)
{
    return i < fields.size() ? fields[i] : std::string();
}

HWND HandleAt(const CFields& fields, size_t i)
{
    return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(NumberAt(fields, i)));
}

std::string FormatReport(const CImportRecorder::CRecords& records, bool bBodyReturned)
{
    std::string strReport;
    AddLine(strReport, {REPORT_MARK});
    for (const auto& call : records.m_messageBoxes)
        AddLine(strReport, {"M", Handle(call.m_hWndOwner), Number(call.m_uType), Number(call.m_nReply),
                            call.m_strText, call.m_strCaption});
    for (const auto& call : records.m_diskFreeSpaceCalls)
        AddLine(strReport, {"D", Number(call.m_bEx), call.m_strRoot});
    for (UINT uCode : records.m_exitCodes)
        AddLine(strReport, {"X", Number(uCode)});
    if (bBodyReturned)
        AddLine(strReport, {"R"});
    if (::testing::Test::HasFailure())
        AddLine(strReport, {"F"});
    return strReport;
}

// Fills the outcome from a report; returns whether the copy's body had failures.
bool ParseReport(const std::string& strReport, CChildRun::COutcome& outcome)
{
    bool bFailed = false;
    size_t nStart = 0;
    while (nStart < strReport.size())
    {
        size_t nEnd = strReport.find('\n', nStart);
        if (nEnd == std::string::npos)
            nEnd = strReport.size();
        CFields f = Split(strReport.substr(nStart, nEnd - nStart));
        nStart = nEnd + 1;
        CImportRecorder::CRecords& records = outcome.m_records;
        const std::string& strKind = f[0];
        if (strKind == REPORT_MARK)
        {
            outcome.m_bReported = true;
        }
        else if (strKind == "M")
        {
            CImportRecorder::CMessageBoxCall call = {HandleAt(f, 1), TextAt(f, 4), TextAt(f, 5),
                                                     static_cast<UINT>(NumberAt(f, 2)),
                                                     static_cast<int>(NumberAt(f, 3))};
            records.m_messageBoxes.push_back(call);
        }
        else if (strKind == "D")
        {
            CImportRecorder::CDiskFreeSpaceCall call = {TextAt(f, 2), NumberAt(f, 1) != 0};
            records.m_diskFreeSpaceCalls.push_back(call);
        }
        else if (strKind == "X")
        {
            records.m_exitCodes.push_back(static_cast<UINT>(NumberAt(f, 1)));
        }
        else if (strKind == "R")
        {
            outcome.m_bBodyReturned = true;
        }
        else if (strKind == "F")
        {
            bFailed = true;
        }
    }
    return bFailed;
}

std::string ReadWholeFile(const std::string& strPath)
{
    std::string str;
    FILE* pFile = fopen(strPath.c_str(), "rb");
    if (pFile == NULL)
        return str;
    char buffer[4096];
    size_t nRead;
    while ((nRead = fread(buffer, 1, sizeof(buffer), pFile)) > 0)
        str.append(buffer, nRead);
    fclose(pFile);
    return str;
}

void SaveReport(bool bBodyReturned)
{
    std::string strReport = FormatReport(CImportRecorder::Get().GetRecords(), bBodyReturned);
    FILE* pFile = fopen(g_strReportPath.c_str(), "wb");
    if (pFile == NULL)
        return;
    fwrite(strReport.data(), 1, strReport.size(), pFile);
    fclose(pFile);
}

void SaveReportOnExit(UINT)
{
    SaveReport(false);
}

std::string TempFile()
{
    char szDir[MAX_PATH];
    char szPath[MAX_PATH] = "";
    if (GetTempPathA(MAX_PATH, szDir) != 0)
        GetTempFileNameA(szDir, "kel", 0, szPath);
    return szPath;
}
} // namespace

CChildRun::COutcome CChildRun::Run(const std::function<void()>& body, DWORD dwTimeout)
{
    std::string strTest = CurrentTest();
    DWORD cch = GetEnvironmentVariableA(CHILD_RUN_VARIABLE, NULL, 0);
    if (cch > 0)
    {
        std::string strVariable(cch, '\0');
        strVariable.resize(GetEnvironmentVariableA(CHILD_RUN_VARIABLE, &strVariable[0], cch));
        size_t nBar = strVariable.find('|');
        if (nBar != std::string::npos && strVariable.compare(0, nBar, strTest) == 0)
        {
            g_strReportPath = strVariable.substr(nBar + 1);
            RunBody(body);
        }
    }

    static bool s_bCounting = false;
    if (!s_bCounting)
    {
        ::testing::UnitTest::GetInstance()->listeners().Append(new CRunCounter);
        s_bCounting = true;
    }
    // The copy runs the whole test and so the first Run in it: a second one would be lost.
    if (++g_nRunsInTest > 1)
    {
        ADD_FAILURE() << "CChildRun::Run called twice in " << strTest << "; only one child run per test";
        return COutcome();
    }
    return RunCopy(strTest, dwTimeout);
}

CChildRun::COutcome CChildRun::RunCopy(const std::string& strTest, DWORD dwTimeout)
{
    COutcome outcome = {};
    std::string strReport = TempFile();
    std::string strOutput = TempFile();
    wchar_t szProgram[MAX_PATH];
    if (strReport.empty() || strOutput.empty() || GetModuleFileNameW(NULL, szProgram, MAX_PATH) == 0)
    {
        ADD_FAILURE() << "no temporary files or program name for the child run";
        return outcome;
    }

    SECURITY_ATTRIBUTES inherit = {sizeof(inherit), NULL, TRUE};
    HANDLE hOutput = CreateFileA(strOutput.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                                 CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = hOutput;
    startup.hStdError = hOutput;
    std::wstring strCommand = std::wstring(L"\"") + szProgram + L"\" --gtest_filter=" +
                              std::wstring(strTest.begin(), strTest.end());
    PROCESS_INFORMATION process = {};

    SetEnvironmentVariableA(CHILD_RUN_VARIABLE, (strTest + "|" + strReport).c_str());
    BOOL bStarted = CreateProcessW(szProgram, &strCommand[0], NULL, NULL, TRUE, 0, NULL, NULL, &startup, &process);
    SetEnvironmentVariableA(CHILD_RUN_VARIABLE, NULL);
    CloseHandle(hOutput);

    if (!bStarted)
    {
        ADD_FAILURE() << "could not start the child run, error " << GetLastError();
    }
    else
    {
        if (WaitForSingleObject(process.hProcess, dwTimeout) == WAIT_TIMEOUT)
        {
            TerminateProcess(process.hProcess, WAIT_TIMEOUT);
            WaitForSingleObject(process.hProcess, INFINITE);
            ADD_FAILURE() << "the child run of " << strTest << " took longer than " << dwTimeout << " ms";
        }
        GetExitCodeProcess(process.hProcess, &outcome.m_dwExitCode);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }

    outcome.m_strOutput = ReadWholeFile(strOutput);
    if (ParseReport(ReadWholeFile(strReport), outcome))
        ADD_FAILURE() << "the child run of " << strTest << " failed:\n" << outcome.m_strOutput;
    DeleteFileA(strReport.c_str());
    DeleteFileA(strOutput.c_str());
    return outcome;
}

void CChildRun::RunBody(const std::function<void()>& body)
{
    CImportRecorder::Get().SetExitHandler(&SaveReportOnExit);
    body();
    SaveReport(true);
    CImportRecorder::ExitForReal(0);
}
