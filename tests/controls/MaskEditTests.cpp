// The mask edit keeps its literals through typing, Delete, Backspace and paste; the timecode
// edit reads only texts that print back the same and checks its long bounds.
#include "tests/controls/EditHost.h"

#include <limits.h>

namespace
{
class MaskEditTest : public CEditHost
{
};

TEST_F(MaskEditTest, LiteralsStayInPlaceThroughTypingDeletingAndPasting)
{
    enum ACTION { TYPE, KEY, PASTE };
    const struct
    {
        const char* pszStart; // setText
        int nCaret;
        ACTION action;
        const char* pszInput; // typed or pasted text
        UINT vk;
        const char* pszShown;
        int nCaretAfter;
    } aCases[] = {
        {"", 0, TYPE, "12", 0, "12:__", 3},     // over the literal to the next entry position
        {"", 0, TYPE, "1x2", 0, "12:__", 3},    // a refused character disappears
        {"", 0, TYPE, "12345", 0, "12:34", 5},  // nothing past the mask
        {"12:34", 2, TYPE, "9", 0, "12:94", 4}, // typed at the literal fills the next entry
        {"12:34", 0, KEY, NULL, VK_DELETE, "_2:34", 1},
        {"12:34", 2, KEY, NULL, VK_DELETE, "12:34", 3}, // the literal stays
        {"12:34", 4, KEY, NULL, VK_BACK, "12:_4", 2},
        {"12:34", 3, KEY, NULL, VK_BACK, "12:34", 2}, // back over the literal, which stays
        {"12:34", 0, PASTE, "9", 0, "92:34", 1},
        {"12:34", 1, PASTE, ":", 0, "12:34", 1},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(testing::Message() << c.pszStart << " @" << c.nCaret << " " << (c.pszInput ? c.pszInput : ""));
        CGenericMaskEdit edit;
        CreateEdit(edit);
        edit.setMask("##:##");
        edit.setText(c.pszStart);
        edit.SetSel(c.nCaret, c.nCaret);
        if (c.action == TYPE)
            for (const char* p = c.pszInput; *p != '\0'; ++p)
                CInput::PressKey(edit, static_cast<UINT>(*p >= 'a' ? *p - 'a' + 'A' : *p));
        else if (c.action == KEY)
            CInput::PressKey(edit, c.vk);
        else
            Paste(edit, c.pszInput);
        EXPECT_EQ(c.pszShown, CInput::GetText(edit));
        EXPECT_EQ(static_cast<DWORD>(c.nCaretAfter), CInput::GetSel(edit).first);
        EXPECT_TRUE(Records().m_beeps.empty());
    }
    // The value is the entry positions only; text set from a program drops what they refuse.
    CGenericMaskEdit edit;
    CreateEdit(edit);
    edit.setMask("##:##", '*');
    EXPECT_EQ("**:**", CInput::GetText(edit));
    edit.SetWindowText("1x2");
    EXPECT_EQ("12:**", CInput::GetText(edit));
    edit.setText("12:34");
    EXPECT_EQ("1234", std::string(edit.getText()));
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
    const std::string strOut = "The value entered is out of range!\n\r";
    const struct
    {
        const char* pszText;
        long lMin, lMax;
        const char* pszMessage; // NULL: accepted
    } aCases[] = {
        {"01:02:03:04", 0, LONG_MAX, NULL},
        {"1:2:3:4", 0, LONG_MAX, "Invalid Time Format"},
        {"00:00:00:30", 0, LONG_MAX, "Invalid Time Format"}, // 30 frames are the next second
        {"00:00:01:00", 3600000, LONG_MAX, "Please enter a value between 3600000 and 2147483647!"},
        // The message leaves out bounds at the 16-bit extremes although the check uses them.
        {"00:00:02:00", SHRT_MIN, 1000, "Please enter a value less than or equal to 1000!"},
        {"00:00:40:00", 0, SHRT_MAX, "Please enter a value greater than or equal to 0!"},
        {"00:00:40:00", SHRT_MIN, SHRT_MAX, "!"},
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
            EXPECT_EQ(std::string(c.pszText), std::string(CMaskText::FormatTimecode(lValue)));
            continue;
        }
        EXPECT_EQ(-1, lValue);
        ASSERT_EQ(1u, Records().m_messageBoxes.size());
        std::string strExpected = c.pszMessage;
        if (strExpected != "Invalid Time Format")
            strExpected = strOut + strExpected;
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
    edit.SetSel(9, 9);
    CInput::PressKey(edit, '2');
    CInput::PressKey(edit, '9');
    EXPECT_EQ("01:02:03:29", CInput::GetText(edit));
    EXPECT_TRUE(Records().m_beeps.empty());
    edit.SetSel(9, 9);
    CInput::PressKey(edit, '3');
    EXPECT_EQ("01:02:03:29", CInput::GetText(edit));
    EXPECT_EQ(1u, Records().m_beeps.size());
    edit.SetSel(0, 0);
    CInput::PressKey(edit, '0');
    CInput::PressKey(edit, '0');
    EXPECT_EQ("00:02:03:29", CInput::GetText(edit)); // under the lower bound, still typed
    EXPECT_EQ(1u, Records().m_beeps.size());
    EXPECT_TRUE(Records().m_messageBoxes.empty());
}
} // namespace
