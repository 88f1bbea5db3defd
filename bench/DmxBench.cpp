#include "bench/ControlsBench.h"

#include "controls/DmxCommandEdit.h"

#include <cstdio>

namespace
{
const int TERMS = 1000;
const int RUNS = 200;

// Term i starts at channel 10 i + 1: a range of five channels for even i, one channel for odd i.
CString MakeCommand(INT_PTR& nChannels)
{
    CString strCommand;
    nChannels = 0;
    for (int i = 0; i < TERMS; ++i)
    {
        CString strTerm;
        if (i % 2 == 0)
            strTerm.Format("%s%d-%d", i > 0 ? "+" : "", 10 * i + 1, 10 * i + 5);
        else
            strTerm.Format("+%d", 10 * i + 1);
        strCommand += strTerm;
        nChannels += i % 2 == 0 ? 5 : 1;
    }
    return strCommand + "*50";
}
} // namespace

double ControlsBench::DmxCommandParseMs()
{
    INT_PTR nExpected = 0;
    const CString strCommand = MakeCommand(nExpected);
    std::vector<double> times;
    for (int nRun = 0; nRun < RUNS; ++nRun)
    {
        // The parser scans the text it is given, so each run gets a fresh copy.
        CString strScan(static_cast<LPCTSTR>(strCommand));
        CUIntArray aChannels;
        long lLevel = -1;
        double dStart = NowMs();
        int bParsed = CDmxCommandEdit::ValidateAndGet(strScan, aChannels, &lLevel, 0);
        times.push_back(NowMs() - dStart);
        if (!bParsed || aChannels.GetSize() != nExpected || lLevel != 50)
        {
            fprintf(stderr, "dmx command parse: parsed %d, %d channels of %d, level %ld\n", bParsed,
                    static_cast<int>(aChannels.GetSize()), static_cast<int>(nExpected), lLevel);
            return -1;
        }
    }
    return Median(times);
}
