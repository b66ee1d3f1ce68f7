/// CShape: the geometry operations on points, the outline test and the line output.
#include "support/StubShape.h"
#include "vector/ShapeVector.h"

#include <QTransform>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <tuple>

using namespace test;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

struct Edit
{
    const char *name, *outline;
    std::function<bool(CShape&)> edit;
    const char* expected;
    bool result = true;
};

const Edit kEdits[] = {
    {"rotate_ignores_axis", "1,0 0,2", [](CShape& s) { return s.Rotate(90, QPointF(0, 0), Qt::XAxis); }, "0,1 -2,0"},
    {"rotate_about_centre", "2,1 1,1", [](CShape& s) { return s.RotateRight(QPointF(1, 1)); }, "1,2 1,1"},
    {"mirror_y", "2,3 0,0", [](CShape& s) { return s.MirrorY(5); }, "2,7 0,10"},
    {"separators_move_too", "| 2,3 c4,4", [](CShape& s) { return s.MirrorX(5); }, "|10,0 8,3 c6,4"},
    {"diagonal_keeps_types", "2,0 c3,1 f0,4",
     [](CShape& s) { return s.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, 1), true); }, "0,2 c1,3 f4,0"},
    {"coincident_line", "2,0 3,1",
     [](CShape& s) { return s.MirrorFixedOrMovingLine(QPointF(1, 1), QPointF(1, 1), false); }, "2,0 3,1"},
    {"move", "| 1,2 3,4", [](CShape& s) { return s.Offset(10, -1); }, "|10,-1 11,1 13,3"},
    {"fit", "5,5 15,5 15,10", [](CShape& s) { return s.Resize(QRectF(100, 100, 20, 20)); }, "100,100 120,100 120,120"},
    {"fit_horizontal_line", "0,0 10,0", [](CShape& s) { return s.Resize(QRectF(0, 0, 20, 20)); }, "0,0 20,0"},
    {"fit_vertical_line", "3,2 3,7", [](CShape& s) { return s.Resize(QRectF(1, 1, 20, 20)); }, "1,1 1,21"},
    {"fit_point", "3,4 3,4", [](CShape& s) { return s.Resize(QRectF(10, 20, 5, 5)); }, "10,20 10,20"},
    {"fit_into_zero_width", "0,0 10,5", [](CShape& s) { return s.Resize(QRectF(1, 2, 0, 5)); }, "1,2 1,7"},
    {"fit_into_negative_width", "0,0 10,5", [](CShape& s) { return s.Resize(QRectF(0, 0, -10, 5)); }, "0,0 -10,5"},
    {"no_points", "", [](CShape& s) { return s.Offset(1, 1) && s.MirrorX(1) && s.Resize(QRectF(1, 1, 2, 2)); }, ""},
    {"fit_into_nan", "0,0 10,5", [](CShape& s) { return s.Resize(QRectF(0, kNaN, 1, 1)); }, "0,0 10,5", false},
    {"move_by_nan", "0,0 10,5", [](CShape& s) { return s.Offset(kNaN, 1); }, "0,0 10,5", false},
    {"rotate_by_nan", "0,0 10,5", [](CShape& s) { return s.Rotate(kNaN, QPointF(0, 0), Qt::ZAxis); }, "0,0 10,5",
     false},
    {"mirror_at_infinity", "0,0 10,5", [](CShape& s) { return s.MirrorX(kInfinity); }, "0,0 10,5", false},
    {"close_is_for_vectors", "0,0 10,5 1,1", [](CShape& s) { return s.Close(50, true); }, "0,0 10,5 1,1", false},
};

TEST(ShapeGeometry, edits_move_the_points_and_the_next_path_with_them)
{
    for (const Edit& row : kEdits) {
        SCOPED_TRACE(row.name);
        StubShape shape;
        SetOutline(shape, row.outline);
        shape.GetPath(false);
        EXPECT_EQ(row.edit(shape), row.result);
        EXPECT_EQ(Outline(shape), row.expected);
        StubShape fresh;
        SetOutline(fresh, row.expected);
        EXPECT_EQ(PathText(shape), PathText(fresh));
    }
}

using Steps = std::vector<QTransform>;

/// The steps one after the other, each on every point.
std::vector<QPointF> Mapped(std::vector<QPointF> points, const Steps& steps)
{
    for (const QTransform& step : steps)
        for (QPointF& point : points)
            point = step.map(point);
    return points;
}

TEST(ShapeGeometry, edits_equal_the_platforms_mapping_point_by_point)
{
    const auto move = [](double dx, double dy) { return QTransform::fromTranslate(dx, dy); };
    const auto scale = [](double x, double y) { return QTransform::fromScale(x, y); };
    const auto turn = [&](double angle) { return move(-30.1, -7) * QTransform().rotate(angle) * move(30.1, 7); };
    std::vector<std::tuple<std::string, std::function<bool(CShape&)>, Steps>> rows{
        {"move", [](CShape& s) { return s.Offset(0.1, -7e9); }, {move(0.1, -7e9)}},
        {"mirror x", [](CShape& s) { return s.MirrorX(0.3); }, {move(-0.3, 0) * scale(-1, 1) * move(0.3, 0)}},
        {"mirror y", [](CShape& s) { return s.MirrorY(0.3); }, {move(0, -0.3) * scale(1, -1) * move(0, 0.3)}},
        {"fit",
         [](CShape& s) { return s.Resize(QRectF(5.1, 6, 70.7, 80)); },
         {move(0.7, -9), scale(70.7, 80), scale(1 / 33.3, 1 / 0.9), move(5.1, 6)}}};
    for (const double angle : {0.0, 17.0, -45.5, 90.0, 180.0, 270.0, 359.999, 1e-9})
        rows.emplace_back(
            std::to_string(angle),
            [=](CShape& s) {
                return s.Rotate(angle, {30.1, 7}, Qt::ZAxis);
            },
            Steps{turn(angle)});
    std::vector<QPointF> points;
    for (int i = 0; i < 99; ++i)
        points.emplace_back(std::pow(-1.7, i % 60) / 3, std::pow(-0.6, i) * 7);
    for (const auto& [name, edit, steps] : rows) {
        StubShape shape(name, QRectF(-0.7, 9, 33.3, 0.9));
        shape.SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
        EXPECT_TRUE(edit(shape)) << name;
        const std::vector<QPointF> expected = Mapped(points, steps);
        for (size_t i = 0; i < points.size(); ++i)
            EXPECT_TRUE(shape.m_listPoints[i].x() == expected[i].x() && shape.m_listPoints[i].y() == expected[i].y())
                << name << " " << i;
    }
}

TEST(ShapeGeometry, moving_and_fitting_build_the_path_first)
{
    StubShape shape;
    SetOutline(shape, "9,9 8,8");
    shape.outlineFromBuild = "0,0 10,0"; // building may replace the points
    shape.Offset(1, 2);
    EXPECT_EQ(Outline(shape), "1,2 11,2");
    EXPECT_EQ(PathText(shape), "M 1,2 L 11,2");
    EXPECT_EQ(shape.builds, 1);

    StubShape fitted;
    SetOutline(fitted, "9,9 8,8");
    fitted.outlineFromBuild = "0,0 10,5";
    fitted.Resize({0, 0, 20, 20});
    EXPECT_EQ(Outline(fitted), "0,0 20,20");
}

TEST(ShapeGeometry, rectangle_ignores_control_points)
{
    CShapeVector shape;
    shape.SetVectorType(EVECTOR_BEZIER_CHAIN);
    SetOutline(shape, "0,0 c0,10 c10,10 c10,0"); // highest at t = 1/2: 3/4 of 10
    EXPECT_EQ(Rect(shape.GetRect(false)), "0,0,10,7.5");
    EXPECT_EQ(Point(shape.GetRectCenter()), "5,3.75");
    EXPECT_EQ(shape.GetRectUI(1.0), QRect());
}

TEST(ShapeGeometry, contains_only_what_lies_near_the_outline)
{
    const char* const square = "| 0,0 20,0 20,20 0,20 0,0";
    const std::tuple<const char*, QPointF, double, bool> rows[] = {
        {"| 0,0 10,0", {5, 3.9}, 2, true},
        {"| 0,0 10,0", {5, 4.1}, 2, false},
        {"| 0,0 10,0", {13.9, 0}, 2, true},
        {"| 0,0 10,0", {14.1, 0}, 2, false},
        {"| 0,0 10,0", {13, 3}, 2, false},
        {"| 0,0 10,0 | 0,20 10,20", {5, 10}, 2, false},
        {square, {10, 10}, 4, false},
        {square, {10, 18.5}, 4, true},
        {"| 3,3 3,3.0000001 9,3", {3, 4}, 4, true},
        {"", {0, 0}, 1, false},
    };
    for (const auto& [outline, point, scale, expected] : rows) {
        CShapeVector shape;
        shape.SetVectorType(EVECTOR_POLYLINE);
        SetOutline(shape, outline);
        EXPECT_EQ(shape.Contains(point, scale), expected) << outline << " " << Point(point);
    }
}

TEST(ShapeGeometry, base_flatten_puts_a_null_line_before_further_sub_paths)
{
    StubShape shape;
    const auto line = [](double x, int kind) {
        return SHAPE_VECTOR_PATHDATA{{x, 0}, {x + 1, 0}, static_cast<ESHAPE_LINE_SEGMENT_TYPE>(kind)};
    };
    shape.m_listPathData = {line(0, 1), line(1, 1), line(2, 2), line(3, 1)};
    EXPECT_EQ(LinesText(shape.Flatten(0.01)), "0,0>1,0 1,0>2,0 null 2,0>3,0 3,0>4,0");
    shape.m_listPathData = {line(0, 2), line(1, 2)};
    EXPECT_EQ(LinesText(shape.Flatten(0.01)), "0,0>1,0 null 1,0>2,0");
}

} // namespace
