#include "values/BoolSearch.h"
#include <gtest/gtest.h>

namespace
{
CString Repeat(const char* text, int n)
{
    CString s;
    for (int i = 0; i < n; ++i)
        s += text;
    return s;
}
} // namespace

TEST(CBoolSearchTest, EvaluatesExpressions)
{
    struct
    {
        const char* expression;
        const char* text;
        BOOL expected;
    } cases[] = {
        {"cat", "The Cat sat", TRUE}, // case-insensitive by default
        {"cat dog", "cat", FALSE},    // adjacent terms mean AND
        {"cat OR dog", "a dog", TRUE},
        {"cat or dog", "a bird", FALSE}, // operators in any letter case
        {"cat NOT dog", "cat bird", TRUE},
        {"a OR b AND c", "a", TRUE}, // AND binds tighter than OR
        {"(a OR b) AND c", "a", FALSE},
        {"NOT x y", "y", TRUE}, // NOT binds tightest: (NOT x) AND y
        {"NOT (x y)", "x", TRUE},
        {"NOT NOT x", "x", TRUE},
        {"\"and\"", "sand", TRUE}, // a quoted operator is a term
        {"\"big cat\"", "a big cat", TRUE},
        {"\"big cat\"", "big  cat", FALSE},
        {"a(b)", "ab", TRUE}, // parentheses end a word
        {"x\"y z\"", "y zx", TRUE},
        {"\t a \r\n", "a", TRUE},
        {"NOT zz", "", TRUE},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "'" << c.expression << "' on '" << c.text << "'");
        CBoolSearch search;
        ASSERT_TRUE(search.InitSearch(c.expression));
        EXPECT_EQ(c.expected, search.Search(c.text));
    }
}

TEST(CBoolSearchTest, RefusesMalformedExpressions)
{
    const char* refused[] = {"", "   ", "()", "(a", "a)", ")a(", "a AND", "OR a", "NOT", "a NOT",
                             "a AND OR b", "a (AND b)", "\"", "a \"b", "\"\"", "a \"\" b"};
    for (const char* expression : refused)
    {
        SCOPED_TRACE(expression);
        CBoolSearch search;
        EXPECT_FALSE(search.InitSearch(expression));
        EXPECT_FALSE(search.Search("a b AND OR NOT"));
    }
    CBoolSearch search;
    EXPECT_FALSE(search.InitSearch(NULL));
}

TEST(CBoolSearchTest, SearchNeedsAnExpressionAndAText)
{
    CBoolSearch search;
    EXPECT_FALSE(search.Search("anything")); // before InitSearch
    ASSERT_TRUE(search.InitSearch("NOT x"));
    EXPECT_FALSE(search.Search(NULL));
    EXPECT_TRUE(search.Search("y"));
    // A refused expression drops the one before it.
    EXPECT_FALSE(search.InitSearch("(x"));
    EXPECT_FALSE(search.Search("y"));
}

TEST(CBoolSearchTest, MatchCaseFoldsAsciiOnly)
{
    CBoolSearch search;
    ASSERT_TRUE(search.InitSearch("Cat"));
    EXPECT_TRUE(search.Search("CAT"));
    search.SetMatchCase(TRUE); // takes effect without a new InitSearch
    EXPECT_FALSE(search.Search("cat"));
    EXPECT_TRUE(search.Search("a Cat"));
    search.SetMatchCase(FALSE);
    // Bytes from 128 up are compared as they are, whatever the C locale says.
    ASSERT_TRUE(search.InitSearch("\xC9t\xE9"));
    EXPECT_FALSE(search.Search("\xE9T\xE9"));
    EXPECT_TRUE(search.Search("\xC9T\xE9"));
}

TEST(CBoolSearchTest, WholeWordMode)
{
    struct
    {
        const char* expression;
        const char* text;
        BOOL expected;
    } cases[] = {
        {"cat", "the cat.", TRUE}, {"cat", "cats", FALSE}, {"cat", "bobcat", FALSE},
        {"cat", "cat_", FALSE},    {"cat", "cat\xE9", FALSE}, // bytes from 128 are word characters
        {"-5", "a-5", FALSE},      {"a", "aa a", TRUE},        // a later occurrence may stand alone
        {"\"big cat\"", "big cats big cat", TRUE},
        {"CAT", "Cat", TRUE},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << "'" << c.expression << "' on '" << c.text << "'");
        CBoolSearch search;
        search.SetTextSearchIsContains(FALSE);
        ASSERT_TRUE(search.InitSearch(c.expression));
        EXPECT_EQ(c.expected, search.Search(c.text));
        search.SetTextSearchIsContains(TRUE);
        EXPECT_TRUE(search.Search(c.text)); // every case contains its term
    }
}

// The find dialog passes whatever the user typed; depth must not reach the machine stack.
TEST(CBoolSearchTest, DeepAndLongExpressions)
{
    const int n = 100000;
    CBoolSearch search;
    ASSERT_TRUE(search.InitSearch(Repeat("(", n) + "a" + Repeat(")", n)));
    EXPECT_TRUE(search.Search("a"));
    EXPECT_FALSE(search.InitSearch(Repeat("(", n) + "a" + Repeat(")", n - 1)));
    ASSERT_TRUE(search.InitSearch(Repeat("NOT ", n) + "a"));
    EXPECT_TRUE(search.Search("a")); // an even number of NOTs
    ASSERT_TRUE(search.InitSearch(Repeat("a (", n) + "b" + Repeat(")", n)));
    EXPECT_TRUE(search.Search("ab"));
    EXPECT_FALSE(search.Search("a"));
}
