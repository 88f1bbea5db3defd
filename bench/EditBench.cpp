#include "bench/ControlsBench.h"

#include "KelControls.h"

#include <cstdio>
#include <cstring>

namespace
{
const int WARMUPS = 50;
const int KEYSTROKES = 2000;

// A CLongEdit in a hidden popup, holding "12" with the caret at its end before each keystroke.
class CEditHost
{
public:
    bool Create()
    {
        return m_host.CreateEx(0, "STATIC", "bench", WS_POPUP, 0, 0, 300, 100, NULL, NULL) &&
               m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, 10, 200, 34), &m_host, 100);
    }
    void Reset()
    {
        ::SetWindowTextA(m_edit.m_hWnd, "12");
        m_edit.SetSel(2, 2);
    }
    // The median time of typing the character, and whether the text became pszExpected each time.
    double Type(char ch, const char* pszExpected)
    {
        std::vector<double> samples;
        char szText[16];
        for (int i = 0; i < WARMUPS + KEYSTROKES; ++i)
        {
            Reset();
            double dStart = ControlsBench::NowMs();
            m_edit.SendMessage(WM_CHAR, static_cast<WPARAM>(ch), 1);
            double dTime = ControlsBench::NowMs() - dStart;
            ::GetWindowTextA(m_edit.m_hWnd, szText, sizeof(szText));
            if (strcmp(szText, pszExpected) != 0)
            {
                fprintf(stderr, "controls_bench: typing '%c' left \"%s\", not \"%s\"\n", ch, szText, pszExpected);
                return -1;
            }
            if (i >= WARMUPS)
                samples.push_back(dTime);
        }
        return ControlsBench::Median(samples);
    }

private:
    CWnd m_host;
    CLongEdit m_edit;
};

double MeasureKeystroke(char ch, const char* pszExpected)
{
    CEditHost host;
    if (!host.Create())
    {
        fprintf(stderr, "controls_bench: the edit could not be created\n");
        return -1;
    }
    return host.Type(ch, pszExpected);
}
} // namespace

double ControlsBench::LongEditDigitMs()
{
    return MeasureKeystroke('5', "125");
}

double ControlsBench::LongEditLetterMs()
{
    return MeasureKeystroke('a', "12");
}
