// controls_bench: the typed controls' benchmark. Runs every measurement once in this process
// and prints one line per figure, "name value target", the value being the median of many
// repetitions (milliseconds). Exits non-zero when a measurement's check failed.
#include <windows.h>

#include "bench/ControlsBench.h"

#include <algorithm>
#include <cstdio>

namespace
{
const struct
{
    const char* pszName;
    double (*pfnMeasure)();
    double dTarget; // at most, in milliseconds
} s_aFigures[] = {
    {"longedit_key_digit_ms", ControlsBench::LongEditDigitMs, 0.2},
    {"longedit_key_letter_ms", ControlsBench::LongEditLetterMs, 0.2},
    {"dmx_command_parse_ms", ControlsBench::DmxCommandParseMs, 1.0},
    {"autocomplete_key_ms", ControlsBench::AutoCompleteKeystrokeMs, 20},
    {"calendar_paint_ms", ControlsBench::CalendarPaintMs, 3},
    {"combogrid_open_ms", ControlsBench::ComboGridOpenMs, 30},
    {"combogrid_find_key_ms", ControlsBench::ComboGridFindKeyMs, 5},
    {"sortlist_50000_ms", ControlsBench::SortListMs, 500},
};
} // namespace

double ControlsBench::NowMs()
{
    static LARGE_INTEGER s_frequency;
    if (s_frequency.QuadPart == 0)
        ::QueryPerformanceFrequency(&s_frequency);
    LARGE_INTEGER now;
    ::QueryPerformanceCounter(&now);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(s_frequency.QuadPart);
}

double ControlsBench::Median(std::vector<double> values)
{
    if (values.empty())
        return -1;
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

int main()
{
    int nFailed = 0;
    for (const auto& figure : s_aFigures)
    {
        double dValue = figure.pfnMeasure();
        if (dValue < 0)
            ++nFailed;
        else
            printf("%s %.4f %g\n", figure.pszName, dValue, figure.dTarget);
        fflush(stdout);
    }
    return nFailed == 0 ? 0 : 1;
}
