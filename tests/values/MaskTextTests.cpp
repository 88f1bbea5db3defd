#include "values/MaskText.h"
#include <gtest/gtest.h>

TEST(CMaskTextTest, SetsAndGetsText)
{
    struct
    {
        const char* mask;
        char blank;
        const char* text;
        const char* display;
        const char* plain;
    } cases[] = {
        {"##:##", '_', "1234", "12:34", "1234"},
        {"##:##", '_', "1x2", "12:__", "12__"}, // the x is dropped
        {"##:##", '_', "12:34", "12:34", "1234"},
        {"##:##", '_', "123456", "12:34", "1234"},
        {"##:##", '_', NULL, "__:__", "____"},
        {"(?&?) A-#", ' ', "a1bc9", "(a&b) c-9", "abc9"},
        {"(?&?) A-#", ' ', "1 2b3", "( &b) 3- ", " b3 "}, // the blank is accepted
        {"##:##:##:##", '0', "1", "10:00:00:00", "10000000"},
        {"", '_', "12", "", ""},
        {"ab", '_', "12", "ab", ""},
    };
    for (const auto& c : cases)
    {
        CMaskText mask;
        mask.SetMask(c.mask, c.blank);
        mask.SetText(c.text);
        EXPECT_STREQ(c.display, mask.GetDisplayText()) << c.mask << " " << c.text;
        EXPECT_STREQ(c.plain, mask.GetText()) << c.mask << " " << c.text;
    }
}

TEST(CMaskTextTest, AnswersPositions)
{
    CMaskText mask;
    mask.SetMask("#?A-", '_');
    struct
    {
        int position;
        char ch;
        BOOL accepted;
        char result;
    } cases[] = {
        {0, '7', TRUE, '7'}, {0, 'a', FALSE, 0}, {0, '_', TRUE, '_'}, {1, 'Z', TRUE, 'Z'},
        {1, '5', FALSE, 0},  {2, 'q', TRUE, 'q'}, {2, '.', FALSE, 0}, {3, 'x', TRUE, '-'},
        {4, '1', FALSE, 0},  {-1, '1', FALSE, 0}, {1, (char)0xE9, FALSE, 0},
    };
    for (const auto& c : cases)
    {
        char result = 0;
        EXPECT_EQ(c.accepted, mask.GetReplacementChar(c.position, c.ch, result)) << c.position;
        EXPECT_EQ(c.result, result) << c.position;
    }
    EXPECT_TRUE(mask.IsMaskChar(2));
    EXPECT_FALSE(mask.IsMaskChar(3));
    EXPECT_FALSE(mask.IsMaskChar(9));

    mask.SetMask("(##) #", '_');
    const int forward[] = {1, 1, 2, 5, 5, 5, 6};
    const int backward[] = {0, 0, 2, 3, 3, 3, 6};
    for (int i = 0; i <= 6; ++i)
    {
        EXPECT_EQ(forward[i], mask.GotoNextEntryChar(i)) << i;
        EXPECT_EQ(backward[i], mask.GotoNextEntryChar(i, TRUE)) << i;
    }
    EXPECT_EQ(6, mask.GotoNextEntryChar(99));
    EXPECT_EQ(1, mask.GotoNextEntryChar(-5));
}

TEST(CMaskTextTest, AppliesEdits)
{
    struct
    {
        const char* before;  // display text
        const char* edit;    // the edit's text after the keystroke
        int caret;           // the edit's caret after it
        CMaskText::EDIT_KEY key;
        const char* after;
        int newCaret;
    } cases[] = {
        {"__:__", "1__:__", 1, CMaskText::KEY_OTHER, "1_:__", 1},
        {"1_:__", "12_:__", 2, CMaskText::KEY_OTHER, "12:__", 3}, // skips the literal
        {"12:__", "123:__", 3, CMaskText::KEY_OTHER, "12:3_", 4}, // typed on the literal
        {"12:3_", "12:3_9", 6, CMaskText::KEY_OTHER, "12:3_", 5}, // past the mask: refused
        {"12:3_", "1x2:3_", 2, CMaskText::KEY_OTHER, "12:3_", 1}, // refused letter
        {"__:__", "987__:__", 3, CMaskText::KEY_OTHER, "__:7_", 4}, // a paste: its last char
        {"12:3_", "12:_", 3, CMaskText::KEY_BACKSPACE, "12:__", 2},
        {"12:3_", "12:3", 4, CMaskText::KEY_BACKSPACE, "12:3_", 4}, // on a blank
        {"12:3_", "123_", 2, CMaskText::KEY_BACKSPACE, "12:3_", 2}, // the literal comes back
        {"12:34", "12:4", 3, CMaskText::KEY_DELETE, "12:_4", 4},
        {"12:34", "2:34", 0, CMaskText::KEY_DELETE, "_2:34", 1},
        {"12:34", "12:34", 2, CMaskText::KEY_OTHER, "12:34", 2}, // unchanged
        {"12:34", "", 0, CMaskText::KEY_OTHER, "12:34", 0},
        {"12:34", "12:3", 9, CMaskText::KEY_DELETE, "12:34", 5},
    };
    for (const auto& c : cases)
    {
        CMaskText mask;
        mask.SetMask("##:##", '_');
        mask.SetText(c.before);
        EXPECT_EQ(c.newCaret, mask.ApplyEdit(c.edit, c.caret, c.key)) << c.edit;
        EXPECT_STREQ(c.after, mask.GetDisplayText()) << c.edit;
    }
}

TEST(CMaskTextTest, ReadsAndFormatsTimecode)
{
    long value = -1;
    EXPECT_TRUE(CMaskText::ReadTimecode("01:02:03:04", value));
    EXPECT_EQ(3723000L + 134, value); // frame 4 starts at ceil(4000 / 29.97) ms
    EXPECT_STREQ("01:02:03:04", CMaskText::FormatTimecode(value));
    EXPECT_STREQ("00:00:00:00", CMaskText::FormatTimecode(0));
    EXPECT_TRUE(CMaskText::ReadTimecode("00:00:00:00", value));
    EXPECT_EQ(0, value);

    const char* refused[] = {"1:2:3:4", "00:00:00:30", "00:60:00:00", "", "x", NULL};
    for (const char* text : refused)
    {
        value = 5;
        EXPECT_FALSE(CMaskText::ReadTimecode(text, value)) << (text ? text : "NULL");
        EXPECT_EQ(5, value);
    }
}
