#include <atltypes.h>
#include <gtest/gtest.h>

namespace
{
::testing::AssertionResult Same(const RECT& expected, const RECT& actual)
{
    if (CRect(expected) == actual)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got (" << actual.left << "," << actual.top << "," << actual.right
                                         << "," << actual.bottom << ")";
}
} // namespace

TEST(CRectTest, SetOperations)
{
    struct Case
    {
        CRect a, b;
        BOOL intersects;
        CRect intersection;
        CRect unionRect;
    } cases[] = {
        {CRect(0, 0, 10, 10), CRect(5, 5, 15, 15), TRUE, CRect(5, 5, 10, 10), CRect(0, 0, 15, 15)},
        {CRect(0, 0, 10, 10), CRect(10, 0, 20, 10), FALSE, CRect(), CRect(0, 0, 20, 10)}, // touching edges
        {CRect(0, 0, 10, 10), CRect(3, 3, 3, 8), FALSE, CRect(), CRect(0, 0, 10, 10)},   // empty second
        {CRect(2, 2, 2, 2), CRect(), FALSE, CRect(), CRect()},
    };
    for (const Case& c : cases)
    {
        CRect r(1, 1, 1, 1);
        EXPECT_EQ(c.intersects, r.IntersectRect(&c.a, &c.b));
        EXPECT_TRUE(Same(c.intersection, r));
        r.UnionRect(&c.a, &c.b);
        EXPECT_TRUE(Same(c.unionRect, r));
        EXPECT_TRUE(Same(c.intersection, c.a & c.b));
    }
}

TEST(CRectTest, SubtractOnlyWhenARectangleRemains)
{
    CRect r;
    EXPECT_TRUE(r.SubtractRect(CRect(0, 0, 10, 10), CRect(0, 0, 4, 10)));
    EXPECT_TRUE(Same(CRect(4, 0, 10, 10), r));
    EXPECT_TRUE(r.SubtractRect(CRect(0, 0, 10, 10), CRect(-5, 6, 15, 20)));
    EXPECT_TRUE(Same(CRect(0, 0, 10, 6), r));
    EXPECT_TRUE(r.SubtractRect(CRect(0, 0, 10, 10), CRect(2, 2, 4, 4))); // a hole: unchanged
    EXPECT_TRUE(Same(CRect(0, 0, 10, 10), r));
    EXPECT_FALSE(r.SubtractRect(CRect(0, 0, 10, 10), CRect(-1, -1, 11, 11)));
    EXPECT_TRUE(r.IsRectNull());
}

TEST(CRectTest, GeometryAndPoints)
{
    CRect r(10, 20, 30, 60);
    EXPECT_EQ(20, r.Width());
    EXPECT_EQ(40, r.Height());
    EXPECT_EQ(CPoint(20, 40), r.CenterPoint());
    EXPECT_TRUE(r.PtInRect(CPoint(10, 20)));
    EXPECT_FALSE(r.PtInRect(CPoint(30, 20))); // right and bottom are outside
    EXPECT_FALSE(r.PtInRect(CPoint(10, 60)));
    r.InflateRect(1, 2);
    EXPECT_TRUE(Same(CRect(9, 18, 31, 62), r));
    r.DeflateRect(1, 2, 3, 4);
    r.OffsetRect(CPoint(-8, -16));
    EXPECT_TRUE(Same(CRect(2, 4, 20, 42), r));
    r.TopLeft() = CPoint(0, 0);
    EXPECT_EQ(CSize(20, 42), r.Size());
    CRect n(5, 5, 1, 1);
    EXPECT_TRUE(n.IsRectEmpty());
    n.NormalizeRect();
    EXPECT_TRUE(Same(CRect(1, 1, 5, 5), n));
    EXPECT_EQ(CSize(3, -1), CPoint(4, 1) - CPoint(1, 2));
}
