// The command edit: reading the command into channels and a level, the typing check and the
// level recall.
#include "tests/controls/EditHost.h"

#include <vector>

namespace
{
class DmxCommandEditTest : public CEditHost
{
};

std::vector<UINT> Channels(const CUIntArray& a)
{
    std::vector<UINT> v;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        v.push_back(a[i]);
    return v;
}

TEST_F(DmxCommandEditTest, ReadsChannelsAndLevelOrReportsInvalidSyntax)
{
    const struct
    {
        const char* pszText;
        bool bAutoFull;
        std::vector<UINT> channels;
        long lLevel; // -2: "Invalid Syntax"
    } aCases[] = {
        {"1-5*50", false, {1, 2, 3, 4, 5}, 50},
        {"7", true, {7}, 100},
        {"7", false, {}, -2},
        {"1*2-3", false, {}, -2},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszText);
        CDmxCommandEdit edit;
        CreateEdit(edit);
        edit.SetControlName("Cue");
        edit.SetAutoFullValueFlag(c.bAutoFull);
        edit.SetWindowText(c.pszText);
        CImportRecorder::Get().ClearRecords();
        CUIntArray aChannels;
        long lLevel = -3;
        EXPECT_EQ(c.lLevel != -2, edit.GetValue(aChannels, &lLevel) != 0);
        EXPECT_EQ(c.pszText, CInput::GetText(edit)); // the parser's scan buffer is a copy
        if (c.lLevel != -2)
        {
            EXPECT_EQ(c.channels, Channels(aChannels));
            EXPECT_EQ(c.lLevel, lLevel);
            continue;
        }
        ASSERT_EQ(1u, Records().m_messageBoxes.size());
        EXPECT_EQ("Invalid Syntax", Records().m_messageBoxes[0].m_strText);
        EXPECT_EQ("Cue", Records().m_messageBoxes[0].m_strCaption);
        EXPECT_EQ(MB_ICONEXCLAMATION, Records().m_messageBoxes[0].m_uType);
        EXPECT_EQ(edit.m_hWnd, ::GetFocus());
    }
    // The static parser scans the caller's own string, which keeps its text up to the first operator.
    CString strText("1-5*50");
    CUIntArray aChannels;
    long lLevel = 0;
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
    EXPECT_EQ("", CInput::GetText(edit));
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
