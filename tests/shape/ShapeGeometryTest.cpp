/// CShape: the geometry operations on points, the outline test and the line output.
#include "support/Lists.h"

#include <functional>
#include <limits>
#include <tuple>

using namespace test;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

using Edit = std::function<bool(CShape&)>;

TEST(ShapeGeometry, edits_move_the_points_and_the_next_path_with_them)
{
    const std::tuple<const char*, Edit, const char*> rows[] = {
        {"1,0 0,2", [](CShape& s) { return s.Rotate(90, QPointF(0, 0), Qt::XAxis); }, "0,1 -2,0"}, // whatever the axis
        {"2,1 1,1", [](CShape& s) { return s.RotateRight(QPointF(1, 1)); }, "1,2 1,1"},
        {"2,1 1,1", [](CShape& s) { return s.RotateLeft(QPointF(1, 1)); }, "1,0 1,1"},
        {"| 2,3 c4,4", [](CShape& s) { return s.MirrorX(5); }, "|10,0 8,3 c6,4"}, // separators move too
        {"2,3 0,0", [](CShape& s) { return s.MirrorAttachLine(5, true); }, "8,3 10,0"},
        {"2,3 0,0", [](CShape& s) { return s.MirrorAttachLine(5, false); }, "2,7 0,10"},
        {"2,0 c3,1 f0,4", [](CShape& s) { return s.MirrorFixedOrMovingLine(QPointF(1, 1), QPointF(3, 3), true); },
         "0,2 c1,3 f4,0"},
        // Across a point there is no reflection.
        {"3,2 0,1", [](CShape& s) { return s.MirrorFixedOrMovingLine(QPointF(1, 1), QPointF(1, 1), true); }, "3,2 0,1"},
        {"| 1,2 3,4", [](CShape& s) { return s.Offset(10, -1); }, "|10,-1 11,1 13,3"},
        {"5,5 15,5 15,10", [](CShape& s) { return s.Resize(QRectF(100, 100, 20, 20)); }, "100,100 120,100 120,120"},
        {"", [](CShape& s) { return s.Offset(1, 1) && s.MirrorX(1) && s.Resize(QRectF(1, 1, 2, 2)); }, ""}};
    for (const auto& [outline, edit, expected] : rows) {
        StubShape shape = Outlined(outline), fresh = Outlined(expected);
        shape.GetPath(false);
        EXPECT_TRUE(edit(shape)) << expected;
        EXPECT_EQ(Outline(shape), expected);
        EXPECT_EQ(PathText(shape), PathText(fresh)) << expected;
    }
}

TEST(ShapeGeometry, edits_without_a_finite_argument_are_refused)
{
    StubShape shape = Outlined("0,0 10,5");
    EXPECT_FALSE(shape.Resize({0, kNaN, 1, 1}) || shape.Offset(kNaN, 1) || shape.Rotate(kNaN, {0, 0}, Qt::ZAxis) ||
                 shape.Rotate(90, {kInfinity, 0}, Qt::ZAxis) || shape.MirrorX(kInfinity) || shape.MirrorY(kNaN) ||
                 shape.MirrorFixedOrMovingLine({kNaN, 0}, {1, 1}, true));
    EXPECT_FALSE(shape.Close(50, true)) << "which belongs to vectors";
    EXPECT_EQ(Outline(shape), "0,0 10,5");
    const std::vector<QPointF> points{{3, 2}, {0, 1}};
    for (const QLineF& line : {QLineF(0, 0, kNaN, 1), QLineF(0, 0, 1e300, 1)})
        EXPECT_EQ(shape.GetMirroredPoint(points, line), points) << Point(line.p2());
}

TEST(ShapeGeometry, moving_and_fitting_build_the_path_first)
{
    StubShape moved = Outlined("9,9 8,8");
    moved.outlineFromBuild = "0,0 10,5"; // building may replace the points
    StubShape fitted = moved;
    moved.Offset(1, 2);
    fitted.Resize({0, 0, 20, 20});
    EXPECT_TRUE(PathText(moved) == "M 1,2 L 11,7" && moved.builds == 1);
    EXPECT_EQ(Outline(moved) + "; " + Outline(fitted), "1,2 11,7; 0,0 20,20");
}

TEST(ShapeGeometry, rectangle_ignores_control_points)
{
    CShapeVector shape = Vector(EVECTOR_BEZIER_CHAIN, "0,0 c0,10 c10,10 c10,0"); // highest at t = 1/2: 3/4 of 10
    EXPECT_EQ(Rect(shape.GetRect(false)) + " " + Point(shape.GetRectCenter()), "0,0,10,7.5 5,3.75");
    EXPECT_EQ(shape.GetRectUI(1.0), QRect());
}

TEST(ShapeGeometry, contains_only_what_lies_near_the_outline)
{
    const char* const square = "| 0,0 20,0 20,20 0,20 0,0";
    const std::tuple<const char*, QPointF, double, bool> rows[] = {{"| 0,0 10,0", {5, 3.9}, 2, true},
                                                                   {"| 0,0 10,0", {5, 4.1}, 2, false},
                                                                   {"| 0,0 10,0", {14.1, 0}, 2, false},
                                                                   {"| 0,0 10,0", {13, 3}, 2, false},
                                                                   {"| 0,0 10,0 | 0,20 10,20", {5, 10}, 2, false},
                                                                   {square, {10, 18.5}, 4, true},
                                                                   {"| 3,3 3,3.0000001 9,3", {3, 4}, 4, true},
                                                                   {"", {0, 0}, 1, false}};
    for (const auto& [outline, point, scale, expected] : rows)
        EXPECT_EQ(Vector(EVECTOR_POLYLINE, outline).Contains(point, scale), expected) << outline << " " << Point(point);
    auto asked = Outlined("| 0,0 10,0");
    EXPECT_TRUE(asked.Contains({5, 1}, 2) && asked.Contains({5, 1}, 2));
    EXPECT_EQ(asked.builds, 1);
}

TEST(ShapeGeometry, base_flatten_puts_a_null_line_before_further_sub_paths)
{
    StubShape shape;
    shape.m_listPathData = {{{0, 0}, {1, 0}, ELINE_SEGMENT_SEPARATOR},
                            {{1, 0}, {2, 0}, ELINE_SEGMENT_CURVE},
                            {{2, 0}, {3, 0}, ELINE_SEGMENT_SEPARATOR}};
    EXPECT_EQ(LinesText(shape.Flatten(0.01)), "0,0>1,0 1,0>2,0 null 2,0>3,0");
}

} // namespace
