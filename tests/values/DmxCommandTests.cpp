#include "values/DmxCommand.h"
#include <gtest/gtest.h>

#include <vector>

namespace
{
std::vector<UINT> Channels(const CUIntArray& a)
{
    return std::vector<UINT>(a.GetData(), a.GetData() + a.GetSize());
}
} // namespace

TEST(CDmxCommandTest, ParsesCommands)
{
    struct
    {
        const char* text;
        long flags;
        BOOL ok;
        std::vector<UINT> channels;
        long level;
    } cases[] = {
        {"1-5*50", 0, TRUE, {1, 2, 3, 4, 5}, 50},
        {"1+3+5*0", 0, TRUE, {1, 3, 5}, 0},
        {"2@100", 0, TRUE, {2}, 100},
        {"10240*007", 0, TRUE, {10240}, 7},
        {"5-1*20", 0, TRUE, {}, 20}, // a downward range adds nothing
        {"7", 0, FALSE, {}, -1},     // a level is required
        {"7", CDmxCommand::AUTO_FULL, TRUE, {7}, 100},
        {"3-4+7", CDmxCommand::AUTO_FULL, TRUE, {3, 4, 7}, 100},
        {"1*2+9*30", 0, TRUE, {1, 2, 9}, 30}, // numbers before later operators are channels
        {"10241*50", 0, FALSE, {}, -1},
        {"0*50", 0, FALSE, {}, -1},
        {"1*101", 0, FALSE, {1}, -1},
        {"1-*5", 0, FALSE, {}, -1},
        {"*5", 0, FALSE, {}, -1},
        {"1-2-3*5", 0, FALSE, {}, -1},
        {"1*2-3", 0, FALSE, {1}, -1}, // a range in the level
        {"1+2*", 0, FALSE, {1, 2}, -1},
        {"1 *5", 0, FALSE, {}, -1},
        {"", CDmxCommand::AUTO_FULL, FALSE, {}, -1},
        {"99999999999999999999*5", 0, FALSE, {}, -1},
    };
    for (const auto& c : cases)
    {
        CString text = c.text;
        CUIntArray channels;
        channels.Add(999); // a previous result is cleared
        long level = 42;
        EXPECT_EQ(c.ok, CDmxCommand::Parse(text, channels, &level, c.flags)) << c.text;
        EXPECT_EQ(c.channels, Channels(channels)) << c.text;
        EXPECT_EQ(c.level, level) << c.text;
    }
}

TEST(CDmxCommandTest, ParseCutsTheTextAtTheFirstOperatorAndRemembersTheCommand)
{
    CString text = "1-5*50";
    CUIntArray channels;
    ASSERT_TRUE(CDmxCommand::Parse(text, channels, NULL, 0));
    EXPECT_STREQ("1", text); // the text is the scan buffer
    EXPECT_EQ(1, text.GetLength());
    EXPECT_STREQ("1-5*50", CDmxCommand::GetLastValidCommand());

    text = "12+3*200"; // fails: the last valid command stays
    EXPECT_FALSE(CDmxCommand::Parse(text, channels, NULL, 0));
    EXPECT_STREQ("12", text);
    EXPECT_STREQ("1-5*50", CDmxCommand::GetLastValidCommand());
}

TEST(CDmxCommandTest, ParsesLongCommandsInLinearTime)
{
    CString text;
    for (int i = 0; i < 1000; ++i)
        text += "1-1000+";
    text += "1*50";
    CUIntArray channels;
    long level = -1;
    ASSERT_TRUE(CDmxCommand::Parse(text, channels, &level, 0));
    EXPECT_EQ(1000 * 1000 + 1, channels.GetSize());
    EXPECT_EQ(1000u, channels[999]);
    EXPECT_EQ(50, level);
}

TEST(CDmxCommandTest, ChecksTypingAndRecallsTheLevel)
{
    EXPECT_TRUE(CDmxCommand::IsCommandText("1-5+7*@09"));
    EXPECT_TRUE(CDmxCommand::IsCommandText(""));
    EXPECT_FALSE(CDmxCommand::IsCommandText("1 "));
    EXPECT_FALSE(CDmxCommand::IsCommandText("1a"));
    EXPECT_FALSE(CDmxCommand::IsCommandText(NULL));

    struct
    {
        const char* text;
        const char* last;
        BOOL recall;
        const char* newText;
        int selStart, selEnd;
    } cases[] = {
        {"*", "1-5*50", TRUE, "1-5*50", 4, 6},
        {"@", "1+2@100", TRUE, "1+2@100", 4, 7},
        {"@", "7", TRUE, "7", 0, 1}, // an auto-full command: all of it
        {"*", "", FALSE, "", 0, 0},
        {"**", "1*5", FALSE, "", 0, 0},
        {"1", "1*5", FALSE, "", 0, 0},
        {NULL, "1*5", FALSE, "", 0, 0},
    };
    for (const auto& c : cases)
    {
        CString newText;
        int selStart = 0, selEnd = 0;
        EXPECT_EQ(c.recall, CDmxCommand::RecallLevel(c.text, c.last, newText, selStart, selEnd))
            << c.last;
        EXPECT_STREQ(c.newText, newText);
        EXPECT_EQ(c.selStart, selStart);
        EXPECT_EQ(c.selEnd, selEnd);
    }
}
