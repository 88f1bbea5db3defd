// grid_bench: the grid benchmark. Loads the shared grid workload into CGridList at 10,000,
// 100,000 and 1,000,000 rows and prints each figure as the median of three processes, beside
// its target.
//
//   grid_bench.exe              every row count (or: grid_bench.exe 10000 100000)
//   grid_bench.exe --set N      one set of measurements at N rows in this process, as
//                               "name value" lines (what the runner starts three times per N)
//
// Before measuring, the runner checks the generator against the whole table's size and SHA-256.
#include <afxwin.h>

#include "bench/GridBench.h"
#include "bench/GridWorkload.h"

#include <bcrypt.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace
{
const int PROCESSES_PER_SIZE = 3;
const int DEFAULT_SIZES[] = {10000, 100000, 1000000};

// The figures in the order printed, with their targets. A target of 0 is none; bAtMillion:
// the target holds for the million-row grid, otherwise at every row count.
const struct CFigure
{
    const char* pszKey;
    const char* pszLabel;
    double dTarget;
    bool bAtMillion;
} s_aFigures[] = {
    {"fill_s", "fill [s]", 0.38, true},
    {"peak_ws_mib", "peak working set [MiB]", 330, true},
    {"private_mib", "private bytes [MiB]", 0, true},
    {"sort1_s", "sort1: col 1 numbers asc [s]", 0.3, true},
    {"sort2_s", "sort2: col 5 asc, col 1 desc [s]", 0.5, true},
    {"paint_ms", "paint, full 1024x768 [ms]", 5, false},
    {"insert_ms", "row insert at top [ms]", 2, false},
    {"delete_ms", "row delete at top [ms]", 2, false},
    {"kbfind_7654_ms", "type-ahead \"Item 7654\" from row 0 [ms]", 1, false},
    {"kbfind_last_ms", "type-ahead to the last row from row 0 [ms]", 50, true},
    {"finddlg_fullrow_s", "find dialog, Full Row AND, last row [s]", 1.5, true},
    {"hdrclick_s", "header click to sorted grid [s]", 0.4, true},
    {"divdrag_ms", "divider drag step [ms]", 10, false},
};

typedef std::map<std::string, std::vector<double>> CSamples;

void PrintMachine()
{
    SYSTEM_INFO info;
    ::GetNativeSystemInfo(&info);
    MEMORYSTATUSEX memory;
    memory.dwLength = sizeof(memory);
    ::GlobalMemoryStatusEx(&memory);
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    typedef const char*(CDECL * PFNWINEVERSION)();
    // Under Wine, ntdll names the Wine version.
    const PFNWINEVERSION pfnWineVersion = reinterpret_cast<PFNWINEVERSION>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version")));
    printf("machine: %lu processors, architecture %u, level %u, revision 0x%04x, %.0f MiB memory; %s %s\n",
           static_cast<unsigned long>(info.dwNumberOfProcessors), info.wProcessorArchitecture, info.wProcessorLevel,
           info.wProcessorRevision, static_cast<double>(memory.ullTotalPhys) / (1024.0 * 1024.0),
           pfnWineVersion != NULL ? "Wine" : "Windows", pfnWineVersion != NULL ? pfnWineVersion() : "");
    printf("clock: QueryPerformanceCounter, %" PRId64 " Hz; memory: GetProcessMemoryInfo "
           "(PeakWorkingSetSize, PrivateUsage)\n",
           static_cast<int64_t>(frequency.QuadPart));
}

// The SHA-256 of the workload's TSV form, through the platform's own hashing (bcrypt.dll), in
// lower-case hex; empty when the platform cannot hash.
std::string HashWorkload(uint64_t& nBytes)
{
    nBytes = 0;
    BCRYPT_ALG_HANDLE hAlgorithm = NULL;
    if (!BCRYPT_SUCCESS(::BCryptOpenAlgorithmProvider(&hAlgorithm, BCRYPT_SHA256_ALGORITHM, NULL, 0)))
        return std::string();
    std::string strHex;
    BCRYPT_HASH_HANDLE hHash = NULL;
    if (BCRYPT_SUCCESS(::BCryptCreateHash(hAlgorithm, &hHash, NULL, 0, NULL, 0, 0)))
    {
        struct CHashing
        {
            BCRYPT_HASH_HANDLE hHash;
            bool bFailed;
        } hashing = {hHash, false};
        nBytes = CGridWorkload::WriteTsv(
            CGridWorkload::ROWS,
            [](const char* pData, size_t nSize, void* pContext) {
                CHashing* pHashing = static_cast<CHashing*>(pContext);
                PUCHAR pBytes = reinterpret_cast<PUCHAR>(const_cast<char*>(pData));
                pHashing->bFailed = pHashing->bFailed ||
                                    !BCRYPT_SUCCESS(::BCryptHashData(pHashing->hHash, pBytes, static_cast<ULONG>(nSize), 0));
            },
            &hashing);
        UCHAR abDigest[32];
        if (!hashing.bFailed && BCRYPT_SUCCESS(::BCryptFinishHash(hHash, abDigest, sizeof(abDigest), 0)))
        {
            char szHex[sizeof(abDigest) * 2 + 1];
            for (size_t i = 0; i < sizeof(abDigest); ++i)
                snprintf(szHex + 2 * i, 3, "%02x", abDigest[i]);
            strHex = szHex;
        }
        ::BCryptDestroyHash(hHash);
    }
    ::BCryptCloseAlgorithmProvider(hAlgorithm, 0);
    return strHex;
}

bool CheckWorkload()
{
    const double dStart = CGridBench::Now();
    uint64_t nBytes = 0;
    const std::string strSha256 = HashWorkload(nBytes);
    const bool bMatch = nBytes == CGridWorkload::BYTES_WHOLE_TABLE && strSha256 == CGridWorkload::SHA256_WHOLE_TABLE;
    printf("workload: %" PRIu64 " bytes as TSV, SHA-256 %s (%.2f s): %s\n", nBytes,
           strSha256.empty() ? "(the platform cannot hash)" : strSha256.c_str(), CGridBench::Now() - dStart,
           bMatch ? "matches the table" : "DIFFERS from the table");
    return bMatch;
}

// Runs "--set nRows" in a new process and adds its figures to samples.
bool RunSet(int nRows, CSamples& samples)
{
    char szExe[MAX_PATH];
    if (::GetModuleFileNameA(NULL, szExe, MAX_PATH) == 0)
        return false;
    char szCommand[MAX_PATH + 32];
    snprintf(szCommand, sizeof(szCommand), "\"%s\" --set %d", szExe, nRows);

    SECURITY_ATTRIBUTES sa = {sizeof(sa), NULL, TRUE};
    HANDLE hRead = NULL, hWrite = NULL;
    if (!::CreatePipe(&hRead, &hWrite, &sa, 0))
        return false;
    ::SetHandleInformation(hRead, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA si;
    memset(&si, 0, sizeof(si));
    si.cb = sizeof(si);
    si.dwFlags = STARTF_USESTDHANDLES;
    si.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    si.hStdOutput = hWrite;
    si.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION pi;
    const BOOL bStarted = ::CreateProcessA(szExe, szCommand, NULL, NULL, TRUE, 0, NULL, NULL, &si, &pi);
    ::CloseHandle(hWrite);
    if (!bStarted)
    {
        ::CloseHandle(hRead);
        return false;
    }
    std::string output;
    char buffer[4096];
    DWORD dwRead = 0;
    while (::ReadFile(hRead, buffer, sizeof(buffer), &dwRead, NULL) && dwRead != 0)
        output.append(buffer, dwRead);
    ::CloseHandle(hRead);
    ::WaitForSingleObject(pi.hProcess, INFINITE);
    DWORD dwExit = 1;
    ::GetExitCodeProcess(pi.hProcess, &dwExit);
    ::CloseHandle(pi.hThread);
    ::CloseHandle(pi.hProcess);

    size_t nStart = 0;
    while (nStart < output.size())
    {
        size_t nEnd = output.find('\n', nStart);
        if (nEnd == std::string::npos)
            nEnd = output.size();
        const std::string line = output.substr(nStart, nEnd - nStart);
        const size_t nSpace = line.find(' ');
        if (nSpace != std::string::npos)
            samples[line.substr(0, nSpace)].push_back(atof(line.c_str() + nSpace + 1));
        nStart = nEnd + 1;
    }
    return dwExit == 0;
}

void PrintTable(const std::vector<int>& sizes, std::map<int, CSamples>& results)
{
    printf("\n%-34s", "median of 3 processes");
    for (int nRows : sizes)
        printf(" %12d", nRows);
    printf("   target\n");
    for (const CFigure& figure : s_aFigures)
    {
        printf("%-34s", figure.pszLabel);
        bool bMet = true, bJudged = false;
        for (int nRows : sizes)
        {
            const std::vector<double>& values = results[nRows][figure.pszKey];
            const double dMedian = CGridBench::Median(values);
            char szValue[32] = "-";
            if (!values.empty())
                snprintf(szValue, sizeof(szValue), "%.4g", dMedian);
            printf(" %12s", szValue);
            if (!values.empty() && figure.dTarget > 0 && (!figure.bAtMillion || nRows == CGridWorkload::ROWS))
            {
                bJudged = true;
                bMet = bMet && dMedian <= figure.dTarget;
            }
        }
        if (figure.dTarget > 0)
            printf("   <= %g%s%s", figure.dTarget, figure.bAtMillion ? " at 1,000,000" : " at every size",
                   bJudged ? (bMet ? "  met" : "  MISSED") : "");
        printf("\n");
    }
    for (int nRows : sizes)
    {
        for (double dDrawn : results[nRows]["paint_drawn"])
        {
            if (dDrawn == 0)
            {
                printf("note: at %d rows the grid drew no grid lines: its paint figure measures an empty paint\n",
                       nRows);
                break;
            }
        }
    }
}
} // namespace

int main(int argc, char* argv[])
{
    if (argc == 3 && strcmp(argv[1], "--set") == 0)
    {
        CGridBench bench(atoi(argv[2]));
        const bool bDone = bench.Run(stdout);
        fflush(stdout);
        return bDone ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    std::vector<int> sizes;
    for (int i = 1; i < argc; ++i)
    {
        const int nRows = atoi(argv[i]);
        if (nRows <= 0 || nRows > CGridWorkload::ROWS)
        {
            fprintf(stderr, "usage: grid_bench [ROWS...] | --set ROWS (1 to %d rows)\n", CGridWorkload::ROWS);
            return EXIT_FAILURE;
        }
        sizes.push_back(nRows);
    }
    if (sizes.empty())
        sizes.assign(DEFAULT_SIZES, DEFAULT_SIZES + sizeof(DEFAULT_SIZES) / sizeof(DEFAULT_SIZES[0]));

    PrintMachine();
    if (!CheckWorkload())
        return EXIT_FAILURE;
    std::map<int, CSamples> results;
    for (int nRows : sizes)
    {
        for (int nRun = 1; nRun <= PROCESSES_PER_SIZE; ++nRun)
        {
            printf("running %d rows, process %d of %d\n", nRows, nRun, PROCESSES_PER_SIZE);
            fflush(stdout);
            if (!RunSet(nRows, results[nRows]))
            {
                fprintf(stderr, "grid_bench: the measurement at %d rows failed\n", nRows);
                return EXIT_FAILURE;
            }
        }
    }
    PrintTable(sizes, results);
    return EXIT_SUCCESS;
}
