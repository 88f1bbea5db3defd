// The mask edit keeps its literals through typing, Delete, Backspace and paste; the timecode
// edit reads only texts that print back the same and checks its long bounds.
#include "tests/controls/ControlHost.h"

#include <limits.h>

namespace
{
typedef CControlHost MaskEditTest;

TEST_F(MaskEditTest, LiteralsStayInPlaceThroughTypingDeletingAndPasting)
{
    const struct
    {
        const char* pszStart; // setText
        int nCaret;
        const char* pszTyped; // "\b" Backspace, "\x7f" Delete, "^9" paste of "9"
        const char *pszShown;
        int nCaretAfter;
    } aCases[] = {
        {"", 0, "12", "12:__", 3},     // over the literal to the next entry position
        {"", 0, "1x2", "12:__", 3},    // a refused character disappears
        {"", 0, "12345", "12:34", 5},  // nothing past the mask
        {"12:34", 2, "9", "12:94", 4}, // typed at the literal fills the next entry
        {"12:34", 0, "\x7f", "_2:34", 1},
        {"12:34", 2, "\x7f", "12:34", 3}, // the literal stays
        {"12:34", 4, "\b", "12:_4", 2},   // and the caret steps back over it
        {"12:34", 3, "\b", "12:34", 2},
        {"12:34", 0, "^9", "92:34", 1},
        {"12:34", 1, "^:", "12:34", 1},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(testing::Message() << c.pszStart << " @" << c.nCaret << " " << c.pszTyped);
        CGenericMaskEdit edit;
        CreateEdit(edit);
        edit.setMask("##:##");
        edit.setText(c.pszStart);
        edit.SetSel(c.nCaret, c.nCaret);
        if (c.pszTyped[0] == '^')
            Paste(edit, c.pszTyped + 1);
        for (const char* p = c.pszTyped; *p != '\0' && c.pszTyped[0] != '^'; ++p)
            CInput::PressKey(edit, *p == '\x7f' ? VK_DELETE : *p == '\b' ? VK_BACK : ::VkKeyScanA(*p) & 0xFF);
        EXPECT_EQ(c.pszShown, CInput::GetText(edit));
        EXPECT_EQ(static_cast<DWORD>(c.nCaretAfter), CInput::GetSel(edit).first);
    }
    EXPECT_TRUE(Records().m_beeps.empty());
    // The value is the entry positions only; text set from a program drops what they refuse.
    CGenericMaskEdit edit;
    CreateEdit(edit);
    edit.setMask("##:##", '*');
    edit.SetWindowText("1x2");
    EXPECT_EQ("12:**", CInput::GetText(edit));
    EXPECT_EQ("12**", std::string(edit.getText()));
}

// Gives a test the bounds, which the timecode edit keeps to itself.
class CBoundedTimecodeEdit : public CGenericMaskHHMMSSFFEdit
{
public:
    using CGenericMaskHHMMSSFFEdit::operator=;
    void SetBounds(long lMin, long lMax)
    {
        m_lMinValue = lMin;
        m_lMaxValue = lMax;
    }
};

TEST_F(MaskEditTest, TimecodeReadsOnlyTextsThatPrintBackTheSameAndChecksItsBounds)
{
    const struct
    {
        const char* pszText;
        long lMin, lMax;
        const char* pszMessage; // NULL: accepted; after "out of range!\n\r" unless it is the format's
    } aCases[] = {
        {"01:02:03:04", 0, LONG_MAX, NULL},
        {"1:2:3:4", 0, LONG_MAX, "Invalid Time Format"},
        {"00:00:00:30", 0, LONG_MAX, "Invalid Time Format"}, // 30 frames are the next second
        {"00:00:01:00", 3600000, LONG_MAX, "Please enter a value between 3600000 and 2147483647!"},
        // The message leaves out bounds at the 16-bit extremes although the check uses them.
        {"00:00:02:00", SHRT_MIN, 1000, "Please enter a value less than or equal to 1000!"},
        {"00:00:40:00", 0, SHRT_MAX, "Please enter a value greater than or equal to 0!"},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszText);
        CBoundedTimecodeEdit edit;
        edit.SetBounds(c.lMin, c.lMax);
        // Without a window, so that a text the mask would reshape can be read too.
        static_cast<CStringEdit&>(edit).SetWindowText(c.pszText);
        CImportRecorder::Get().ClearRecords();
        long lValue = -1;
        EXPECT_EQ(c.pszMessage == NULL, edit.ValidateAndGet(lValue, NULL) != 0);
        if (c.pszMessage == NULL)
        {
            EXPECT_EQ(c.pszText, std::string(CMaskText::FormatTimecode(lValue)));
            continue;
        }
        ASSERT_EQ(1u, Records().m_messageBoxes.size());
        std::string strExpected = c.pszMessage;
        if (c.pszMessage[0] != 'I')
            strExpected = "The value entered is out of range!\n\r" + strExpected;
        EXPECT_EQ(strExpected, Records().m_messageBoxes[0].m_strText);
    }
}

TEST_F(MaskEditTest, TimecodeTypingRefusesAFrameCountPastTheSecond)
{
    CBoundedTimecodeEdit edit;
    CreateEdit(edit);
    edit.SetBounds(3600000, LONG_MAX); // relaxed while typing
    edit = 3723000L;
    EXPECT_EQ("01:02:03:00", CInput::GetText(edit));
    EXPECT_EQ(3723000L, static_cast<long>(edit));
    const struct
    {
        int nCaret;
        const char *pszTyped, *pszShown;
        size_t nBeeps;
    } aSteps[] = {{9, "29", "01:02:03:29", 0}, {9, "3", "01:02:03:29", 1}, {0, "00", "00:02:03:29", 1}};
    for (const auto& step : aSteps)
    {
        edit.SetSel(step.nCaret, step.nCaret);
        for (const char* p = step.pszTyped; *p != '\0'; ++p)
            CInput::PressKey(edit, *p);
        EXPECT_EQ(step.pszShown, CInput::GetText(edit));
        EXPECT_EQ(step.nBeeps, Records().m_beeps.size());
    }
    EXPECT_TRUE(Records().m_messageBoxes.empty());
}
} // namespace
