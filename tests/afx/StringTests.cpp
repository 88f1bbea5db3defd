#include <afx.h>
#include <gtest/gtest.h>

#include "tests/afx/ExpectThrow.h"

#include <string.h>

// Construction and extraction clamp counts and positions that are out of range.
TEST(CStringTest, NewStringsFromBoundaryArguments)
{
    const CString s("abcdef");
    const struct
    {
        CString actual;
        const char* expected;
    } cases[] = {
        {CString((LPCTSTR)NULL), ""}, {CString("abcdef", 2), "ab"}, {CString("abc", -1), ""},
        {CString('x', 3), "xxx"}, {CString('x', 0), ""},
        {s.Mid(2, 2), "cd"}, {s.Mid(-3, 2), "ab"}, {s.Mid(4, 99), "ef"}, {s.Mid(9), ""}, {s.Mid(1, -1), ""},
        {s.Left(2), "ab"}, {s.Left(-1), ""}, {s.Left(99), "abcdef"},
        {s.Right(2), "ef"}, {s.Right(-5), ""}, {s.Right(99), "abcdef"},
        {s.SpanIncluding("cba"), "abc"}, {s.SpanIncluding("x"), ""},
        {s.SpanExcluding("d"), "abc"}, {s.SpanExcluding("xyz"), "abcdef"},
        {'1' + s + '2', "1abcdef2"}, {"<" + s + ">", "<abcdef>"},
    };
    for (size_t i = 0; i < sizeof(cases) / sizeof(cases[0]); ++i)
    {
        SCOPED_TRACE(i);
        EXPECT_STREQ(cases[i].expected, (LPCTSTR)cases[i].actual);
    }
}

TEST(CStringTest, CopiesAreIndependentAfterWrites)
{
    CString a("shared"), b(a), c, d(a);
    c = a;
    b.SetAt(0, 'S');
    c.MakeUpper();
    d.GetBuffer(0)[0] = 'X';
    d.ReleaseBuffer();
    EXPECT_STREQ("shared", (LPCTSTR)a);
    EXPECT_STREQ("Shared", (LPCTSTR)b);
    EXPECT_STREQ("SHARED", (LPCTSTR)c);
    EXPECT_STREQ("Xhared", (LPCTSTR)d);
}

TEST(CStringTest, IndexingAndBounds)
{
    CString s("abc");
    EXPECT_EQ('b', s[1]);
    EXPECT_EQ('\0', s.GetAt(3)); // the terminator may be read
    ExpectThrown<CInvalidArgException>([&] { s.GetAt(4); });
    ExpectThrown<CInvalidArgException>([&] { s.GetAt(-1); });
    ExpectThrown<CInvalidArgException>([&] { s.SetAt(3, 'x'); });
    ExpectThrown<CException>([] { CString().SetAt(0, 'x'); });
}

TEST(CStringTest, SourcesInsideTheStringItself)
{
    CString s("ab");
    s += s;
    EXPECT_STREQ("abab", (LPCTSTR)s);
    s += (LPCTSTR)s + 2;
    EXPECT_STREQ("ababab", (LPCTSTR)s);
    s = (LPCTSTR)s + 4;
    EXPECT_STREQ("ab", (LPCTSTR)s);
    s.Format("[%s]", (LPCTSTR)s);
    EXPECT_STREQ("[ab]", (LPCTSTR)s);
    // Many appends grow geometrically and stay correct.
    CString big;
    for (int i = 0; i < 10000; ++i)
        big += "0123456789";
    EXPECT_EQ(100000, big.GetLength());
    EXPECT_EQ(99990, big.ReverseFind('0'));
}

TEST(CStringTest, SearchingGivesMinusOneWhenNotFound)
{
    const CString s("abcabc");
    EXPECT_EQ(4, s.Find('b', 2));
    EXPECT_EQ(-1, s.Find('b', 6));
    EXPECT_EQ(-1, s.Find('z'));
    EXPECT_EQ(3, s.Find("abc", 1));
    EXPECT_EQ(-1, s.Find("abc", 7));
    EXPECT_EQ(-1, s.Find((LPCTSTR)NULL));
    EXPECT_EQ(4, s.ReverseFind('b'));
    EXPECT_EQ(-1, s.ReverseFind('z'));
    EXPECT_EQ(2, s.FindOneOf("xc"));
    EXPECT_EQ(-1, s.FindOneOf("xyz"));
}

TEST(CStringTest, EditingOperations)
{
    CString s("a-b-c");
    EXPECT_EQ(2, s.Replace('-', '+'));
    EXPECT_EQ(2, s.Replace("+", "--"));
    EXPECT_EQ(0, s.Replace("", "x"));
    EXPECT_STREQ("a--b--c", (LPCTSTR)s);
    EXPECT_EQ(2, s.Replace("--", NULL));
    EXPECT_EQ(1, s.Remove('b'));
    EXPECT_STREQ("ac", (LPCTSTR)s);
    EXPECT_EQ(3, s.Insert(1, 'b'));
    EXPECT_EQ(5, s.Insert(99, "de"));
    EXPECT_EQ(6, s.Insert(-4, "_"));
    EXPECT_STREQ("_abcde", (LPCTSTR)s);
    EXPECT_EQ(4, s.Delete(0, 2));
    EXPECT_EQ(4, s.Delete(9, 2));
    EXPECT_EQ(2, s.Delete(2, 99));
    EXPECT_STREQ("bc", (LPCTSTR)s);
}

TEST(CStringTest, Trimming)
{
    CString s(" \t x y \r\n");
    s.TrimLeft();
    EXPECT_STREQ("x y \r\n", (LPCTSTR)s);
    s.TrimRight();
    EXPECT_STREQ("x y", (LPCTSTR)s);
    s = "--=x=--";
    s.TrimLeft('-');
    s.TrimRight("-=");
    EXPECT_STREQ("=x", (LPCTSTR)s);
}

TEST(CStringTest, Comparison)
{
    CString s("Apple");
    EXPECT_LT(s.Compare("apple"), 0);
    EXPECT_EQ(0, s.CompareNoCase("aPPLE"));
    EXPECT_GT(s.CompareNoCase("APP"), 0);
    EXPECT_TRUE(CString("\xE9") > "z"); // characters compare unsigned
}

TEST(CStringTest, FormatMatchesCPrintf)
{
    CString s;
    s.Format("%05d|%-3s|%c|%.3f|%e|%g|%hd|%lu", 42, "ab", 'z', 3.14159, 12345.678, 0.0001, (short)-2,
             4294967295UL);
    EXPECT_STREQ("00042|ab |z|3.142|1.234568e+04|0.0001|-2|4294967295", (LPCTSTR)s);
    s.Format("%s", (LPCTSTR)CString('x', 5000));
    EXPECT_EQ(5000, s.GetLength());
}

TEST(CStringTest, BufferProtocol)
{
    CString s;
    strcpy(s.GetBuffer(10), "hello");
    s.ReleaseBuffer();
    EXPECT_EQ(5, s.GetLength());
    s.GetBuffer(10);
    s.ReleaseBuffer(3);
    EXPECT_STREQ("hel", (LPCTSTR)s);
    LPTSTR p = s.GetBufferSetLength(6);
    memcpy(p, "abcdef", 6);
    s.ReleaseBuffer(99); // clamped to what was allocated
    EXPECT_STREQ("abcdef", (LPCTSTR)s);
    s.FreeExtra();
    EXPECT_STREQ("abcdef", (LPCTSTR)s);
}

TEST(CStringTest, LoadStringWithoutResourceIsEmpty)
{
    CString s("old");
    EXPECT_FALSE(s.LoadString(65000));
    EXPECT_TRUE(s.IsEmpty());
}
