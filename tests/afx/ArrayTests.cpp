#include <afxcoll.h>
#include <afxtempl.h>
#include <gtest/gtest.h>

#include "tests/afx/ExpectThrow.h"

namespace
{
CString Join(const CStringArray& a)
{
    CString s;
    for (INT_PTR i = 0; i < a.GetSize(); ++i)
        s += (i ? "," : "") + a[i];
    return s;
}
} // namespace

TEST(CArrayTest, AddInsertRemove)
{
    CStringArray a;
    a.Add("b");
    EXPECT_EQ(1, a.Add(CString("d")));
    a.InsertAt(0, "a");
    a.InsertAt(2, "c", 2);
    EXPECT_EQ("a,b,c,c,d", Join(a));
    a.RemoveAt(2);
    a.RemoveAt(1, 3);
    EXPECT_EQ("a", Join(a));
    a.InsertAt(3, "z"); // past the end: the gap is filled with empty elements
    EXPECT_EQ("a,,,z", Join(a));
    a.RemoveAll();
    EXPECT_EQ(NULL, a.GetData());
}

TEST(CArrayTest, GrowAndShrink)
{
    CUIntArray a;
    a.SetSize(3);
    EXPECT_EQ(0u, a[2]); // new elements are zeroed
    a.SetAtGrow(5, 7);
    EXPECT_EQ(7u, a[5]);
    a.SetSize(2, 100);
    for (UINT i = 0; i < 1000000; ++i)
        a.Add(i);
    EXPECT_EQ(1000002, a.GetSize());
    EXPECT_EQ(999999u, a[a.GetUpperBound()]);
}

TEST(CArrayTest, AddOfOwnElementSurvivesReallocation)
{
    CStringArray a;
    a.Add("first");
    for (int i = 0; i < 100; ++i)
        a.Add(a[0]);
    EXPECT_EQ("first", a[100]);
}

TEST(CArrayTest, CopyAndAppend)
{
    CPtrArray a, b;
    int x = 0, y = 0;
    a.Add(&x);
    b.Add(&y);
    EXPECT_EQ(1, a.Append(b));
    EXPECT_EQ(2, a.Append(a));
    ASSERT_EQ(4, a.GetSize());
    EXPECT_EQ(&y, a[3]);
    b.Copy(a);
    a.InsertAt(1, &a); // the source is the array itself
    ASSERT_EQ(8, a.GetSize());
    EXPECT_EQ(&y, a[2]);
    EXPECT_EQ(&y, a[5]);
    EXPECT_EQ(4, b.GetSize());
}

TEST(CArrayTest, InvalidIndexesThrow)
{
    CArray<int, int> a;
    a.Add(1);
    ExpectThrown<CInvalidArgException>([&] { a.GetAt(1); });
    ExpectThrown<CInvalidArgException>([&] { a[-1] = 0; });
    ExpectThrown<CInvalidArgException>([&] { a.SetAtGrow(-1, 0); });
    ExpectThrown<CInvalidArgException>([&] { a.InsertAt(0, 0, 0); });
    ExpectThrown<CInvalidArgException>([&] { a.RemoveAt(0, 2); });
    ExpectThrown<CInvalidArgException>([&] { a.SetSize(-1); });
    ExpectThrown<CInvalidArgException>([&] { a.InsertAt(0, (CArray<int, int>*)NULL); });
    EXPECT_EQ(1, a.GetSize());
    EXPECT_EQ(1, a[0]);
}
