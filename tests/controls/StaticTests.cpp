// The text static and the typed statics in real windows: values printed with their affixes and
// settings, texts read back as values, the colours given to the parent, and the dialog path.
#include "tests/controls/ControlHost.h"

#include <afxdlg.h>
#include <float.h>

namespace
{
class CStaticTest : public CControlHost
{
protected:
    int m_nStatics = 0;

    void Create(CStatic& label, const char* pszText = "")
    {
        int y = 10 + 24 * m_nStatics++;
        ASSERT_TRUE(label.Create(pszText, WS_CHILD | WS_VISIBLE, CRect(10, y, 250, y + 20), &m_host, 100 + m_nStatics));
    }
};

TEST_F(CStaticTest, ValuesArePrintedWithAffixesAndSettingsAndTextsReadBack)
{
    CLongStatic level;
    level.SetAffixes(NULL, "%");
    level = 12L; // before the window: shown when it is created
    Create(level);
    EXPECT_EQ("12%", Text(level));
    level.SetWindowText("40%");
    EXPECT_EQ(40, level.GetValue());
    level.SetWindowText("forty");
    LONG nValue = 7;
    EXPECT_EQ(0, level.GetValue(nValue));
    EXPECT_EQ(7, nValue);
    EXPECT_EQ(0, level.GetValue());
    EXPECT_EQ("forty", Text(level)); // shown as given

    // The prefix and suffix are dropped and the rest trimmed; nothing left is no value.
    CShortStatic channel;
    channel.SetAffixes("Ch", "!");
    Create(channel);
    const struct
    {
        const char* pszText;
        int bHasValue;
        short nValue;
    } aReadBack[] = {{"Ch 7 !", 1, 7}, {" -3", 1, -3}, {"Ch!", 0, 0}, {"Ch 7 !!", 0, 0}, {"   ", 0, 0}};
    for (const auto& c : aReadBack)
    {
        SCOPED_TRACE(c.pszText);
        channel.SetWindowText(c.pszText);
        EXPECT_EQ(c.bHasValue, channel.HasValue());
        EXPECT_EQ(c.nValue, static_cast<short>(channel));
        EXPECT_EQ(c.pszText, Text(channel));
    }
    channel = static_cast<short>(7);
    channel.SetAffixes("#", NULL); // printed again
    EXPECT_EQ("#7", Text(channel));
    channel.ClearValue();
    EXPECT_EQ("", Text(channel));

    CDoubleStatic fade;
    fade.SetDecimalPlaces(1);
    Create(fade);
    EXPECT_DOUBLE_EQ(DBL_MIN, fade.GetValue());
    fade = 2.25;
    EXPECT_EQ(std::string(CDouble::Format(2.25, 1, 1, 0)), Text(fade));
    fade.SetDecimalPlaces(3); // printed again, same value
    EXPECT_EQ(std::string(CDouble::Format(2.25, 3, 1, 0)), Text(fade));
    EXPECT_DOUBLE_EQ(2.25, fade.GetValue());

    CDateStatic show;
    ASSERT_TRUE(show.SetDateStyle(6));
    Create(show);
    show = CKelDate(2003, 9, 5);
    EXPECT_EQ("September 05, 2003", Text(show));
    EXPECT_FALSE(show.SetDateStyle(8));
    EXPECT_EQ("September 05, 2003", Text(show));
    show.SetWindowText("09/06/2003"); // the month-name styles read nothing back
    EXPECT_FALSE(show.HasValue());
    ASSERT_TRUE(show.SetDateStyle(0));
    show.SetWindowText("09/06/2003");
    EXPECT_TRUE(show.GetValue() == CKelDate(2003, 9, 6));
    show.SetDateSeperator('-');
    EXPECT_EQ("09-06-2003", Text(show));
    show = CKelDate(0); // not a valid date: nothing shown, no value
    EXPECT_EQ("", Text(show));
    EXPECT_FALSE(show.HasValue());

    CTimeStatic cue;
    ASSERT_TRUE(cue.SetTimeStyle(9));
    EXPECT_FALSE(cue.SetTimeStyle(10));
    Create(cue);
    cue = CKelTime(3723000L);
    EXPECT_EQ("01:02:03:00", Text(cue));
    ASSERT_TRUE(cue.SetFramesPerSecond(25));
    cue.SetWindowText("00:00:01:05");
    EXPECT_EQ(1200, static_cast<long>(cue.GetValue()));
}

TEST_F(CStaticTest, TheParentPaintsWithTheStaticsColours)
{
    CStringStatic plain, coloured;
    plain.SetTextColor(RGB(0, 0, 200));
    coloured.SetBkColor(RGB(0, 170, 0));
    Create(plain, "Level");
    Create(coloured, "Fade");
    HDC hDC = ::CreateCompatibleDC(NULL);
    auto brush = [&](CWnd& label) {
        return reinterpret_cast<HBRUSH>(m_host.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hDC),
                                                           reinterpret_cast<LPARAM>(label.m_hWnd)));
    };
    // Without a colour of its own, the system's face brush (not the label's to delete).
    EXPECT_EQ(::GetSysColorBrush(COLOR_BTNFACE), brush(plain));
    EXPECT_EQ(RGB(0, 0, 200), ::GetTextColor(hDC));
    EXPECT_EQ(::GetSysColor(COLOR_BTNFACE), ::GetBkColor(hDC));
    EXPECT_EQ(TRANSPARENT, ::GetBkMode(hDC));
    LOGBRUSH lb = {};
    ASSERT_EQ(static_cast<int>(sizeof(lb)), ::GetObject(brush(coloured), sizeof(lb), &lb));
    EXPECT_EQ(RGB(0, 170, 0), lb.lbColor);
    EXPECT_EQ(RGB(0, 170, 0), ::GetBkColor(hDC));
    coloured.SetBkColor(CLR_NONE);
    EXPECT_EQ(::GetSysColorBrush(COLOR_BTNFACE), brush(coloured));
    ::DeleteDC(hDC);
}

TEST_F(CStaticTest, ADialogsStaticsReadTheTemplateOrShowTheObjectsValueAndOutliveIt)
{
    enum
    {
        IDC_READ = 100,
        IDC_GIVEN = 101
    };
    const std::vector<WORD> words =
        DialogTemplate({{0x82, IDC_READ, 0, 4, 10, "17"}, {0x82, IDC_GIVEN, 0, 20, 10, "template"}});
    CDialog dlg;
    ASSERT_TRUE(dlg.CreateIndirect(reinterpret_cast<LPCDLGTEMPLATE>(words.data()), &m_host));
    CUShortStatic read;
    CULongStatic given;
    given.SetAffixes("#", NULL);
    given = 65536UL;
    ASSERT_TRUE(read.SubclassDlgItem(IDC_READ, &dlg));
    ASSERT_TRUE(given.SubclassDlgItem(IDC_GIVEN, &dlg));
    EXPECT_EQ(17, read.GetValue());
    EXPECT_EQ("#65536", Text(given));
    ::SetDlgItemTextA(dlg.m_hWnd, IDC_READ, "18"); // behind the object's back
    dlg.DestroyWindow();
    EXPECT_EQ("18", std::string(read.GetWindowText()));
    EXPECT_EQ("#65536", std::string(given.GetWindowText()));
}
} // namespace
