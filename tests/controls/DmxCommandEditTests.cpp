// The command edit: reading the command with its message, the typing check and the level recall.
#include "tests/controls/ControlHost.h"

namespace
{
typedef CControlHost DmxCommandEditTest;

TEST_F(DmxCommandEditTest, ReadingReportsInvalidSyntaxAndLeavesTheTextWhole)
{
    CDmxCommandEdit edit;
    CreateEdit(edit);
    edit.SetControlName("Cue");
    edit.SetWindowText("7+9");
    CUIntArray aChannels;
    long lLevel = -3;
    EXPECT_FALSE(edit.GetValue(aChannels, &lLevel)); // a level is required...
    ASSERT_EQ(1u, Records().m_messageBoxes.size());
    EXPECT_EQ("Invalid Syntax", Records().m_messageBoxes[0].m_strText);
    EXPECT_EQ("Cue", Records().m_messageBoxes[0].m_strCaption);
    EXPECT_EQ(edit.m_hWnd, ::GetFocus());
    edit.SetAutoFullValueFlag(true); // ...unless no level means full
    ASSERT_TRUE(edit.GetValue(aChannels, &lLevel));
    EXPECT_EQ(100, lLevel);
    EXPECT_EQ(2, aChannels.GetSize());
    EXPECT_EQ("7+9", CInput::GetText(edit)); // the parser scanned a copy
    // The static parser scans the caller's own string, which keeps its text up to the first operator.
    CString strText("1-5*50");
    EXPECT_TRUE(CDmxCommandEdit::ValidateAndGet(strText, aChannels, &lLevel, 0));
    EXPECT_EQ("1", std::string(strText));
}

TEST_F(DmxCommandEditTest, TypingRefusesForeignCharactersAndTheLevelOperatorRecallsTheLastCommand)
{
    CDmxCommandEdit edit;
    CreateEdit(edit);
    CInput::TypeText(edit, "1-5x*50");
    EXPECT_EQ("1-5*50", CInput::GetText(edit));
    EXPECT_EQ(1u, Records().m_beeps.size());
    EXPECT_TRUE(edit.Validate()); // becomes the last valid command

    edit.SetSel(0, -1);
    CInput::PressKey(edit, VK_DELETE);
    CInput::TypeText(edit, "*");
    EXPECT_EQ("1-5*50", CInput::GetText(edit));
    EXPECT_EQ(std::make_pair(DWORD(4), DWORD(6)), CInput::GetSel(edit));
    CInput::TypeText(edit, "75");
    CUIntArray aChannels;
    long lLevel = 0;
    ASSERT_TRUE(edit.GetValue(aChannels, &lLevel));
    EXPECT_EQ(75, lLevel);
    EXPECT_EQ(5, aChannels.GetSize());

    // A program's text is kept only when typing could have made it, and no beep is heard.
    CString strGood("2+4@10"), strBad("2+4=10");
    edit.SetWindowText(strGood);
    edit.SetWindowText(strBad);
    EXPECT_EQ("2+4@10", CInput::GetText(edit));
    EXPECT_EQ(1u, Records().m_beeps.size());
    Paste(edit, "9a");
    EXPECT_EQ("2+4@10", CInput::GetText(edit));
    EXPECT_EQ(2u, Records().m_beeps.size());
}
} // namespace
