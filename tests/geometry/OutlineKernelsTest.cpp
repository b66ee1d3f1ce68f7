/// Kernels of outlines: transforms of points, fits and unions of rectangles, runs, extents of paths.
#include "geometry/PathExtent.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/PointRuns.h"
#include "geometry/QtArithmetic.h"
#include "geometry/RectUnion.h"
#include "geometry/SegmentTypes.h"
#include "support/Outline.h"

#include <QPainterPath>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <tuple>

using namespace shapes;
using test::Point;
using test::Rect;

namespace {

TEST(MapPoints, equals_the_platforms_mapping_bit_by_bit)
{
    std::vector<QTransform> transforms{{},
                                       QTransform::fromTranslate(0.1, -7e9),
                                       MirrorAtX(0.3),
                                       MirrorAtY(0.3),
                                       QTransform(1, 2, 0, 3, 4, 1e-9, 5, 6, 1)};
    for (const double angle : {17.0, -45.5, 90.0, 180.0, 270.0, 359.999, 1e-9})
        transforms.push_back(RotationAbout({30.1, 7}, angle));
    for (const QTransform& transform : transforms) {
        std::vector<QPointF> points{{-0.0, -0.0}};
        for (int i = 0; i < 99; ++i)
            points.emplace_back(std::pow(-1.7, i % 60) / 3, std::pow(-0.6, i) * 7);
        const std::vector<QPointF> before = points;
        MapPoints(points, transform);
        for (size_t i = 0; i < points.size(); ++i) {
            const QPointF expected = transform.map(before[i]);
            EXPECT_TRUE(points[i].x() == expected.x() && points[i].y() == expected.y()) << transform.type() << " " << i;
            EXPECT_EQ(std::signbit(points[i].x()), std::signbit(expected.x())) << transform.type() << " " << i;
        }
    }
}

/// Of the point (15, 5) and of the source itself.
TEST(RectFit, moves_an_axis_without_extent)
{
    const std::tuple<const char*, QRectF, QRectF, const char*, const char*> rows[] = {
        {"stretches_each_axis", {5, 5, 10, 5}, {100, 100, 20, 20}, "120,100", "100,100,20,20"},
        {"flat", {0, 5, 10, 0}, {0, 0, 20, 20}, "30,0", "0,0,20,0"},
        {"upright", {15, 0, 0, 10}, {1, 1, 20, 20}, "1,11", "1,1,0,20"},
        {"just_flat", {0, 5, 10, 1e-6}, {0, 0, 20, 20}, "30,0", "0,0,20,1e-06"},
        {"into_nothing", {0, 0, 10, 5}, {1, 2, 0, 5}, "1,7", "1,2,0,5"},
        {"nothing_into_nothing", {10, 0, 0, 5}, {1, 2, 0, 5}, "6,7", "1,2,0,5"},
        {"turned_over", {0, 0, 10, 5}, {0, 0, -10, 5}, "-15,5", "-10,0,10,5"}};
    for (const auto& [name, from, to, point, rect] : rows) {
        const RectFit fit(from, to);
        std::vector<QPointF> points{{15, 5}};
        fit.Map(points);
        EXPECT_EQ(Point(points[0]), point) << name;
        EXPECT_EQ(Rect(fit.Map(from)), rect) << name;
    }
}

TEST(PointRuns, lie_between_separators)
{
    const auto text = [](PointRun run) { return std::to_string(run.begin) + "-" + std::to_string(run.end) + " "; };
    const std::tuple<std::string, size_t, const char*, const char*> rows[] = {
        {"...", 3, "0-3 ", "0-3 0-3 "},
        {"", 0, "0-0 ", "0-0 0-0 "},
        {"", 2, "0-2 ", "0-2 0-2 "}, // no types: straight
        {"..|.|", 5, "0-2 3-4 5-5 ", "0-2 3-4 "},
        {"|..||.", 8, "0-0 1-3 4-4 5-8 ", "1-3 5-8 "}, // two points more than types
        {"..|..|", 4, "0-2 3-4 ", "0-2 3-4 "},         // two types more than points
        {"||", 2, "0-0 1-1 2-2 ", "0-0 0-0 "}};
    for (const auto& [pattern, points, all, outer] : rows) {
        std::vector<unsigned char> types;
        for (const char mark : pattern)
            types.push_back(mark == '|' ? ELINE_SEGMENT_SEPARATOR : ELINE_SEGMENT_STRAIGHT);
        std::string runs;
        for (const PointRun run : PointRuns(types, points))
            runs += text(run);
        EXPECT_EQ(runs, all) << pattern;
        const OuterRuns found = FindOuterRuns(types, points);
        EXPECT_EQ(text(found.first) + text(found.last), outer) << pattern;
    }
}

TEST(RectUnion, takes_every_rectangle_that_is_finite)
{
    RectUnion all;
    EXPECT_TRUE(all.Result().isNull());
    const std::pair<QRectF, const char*> rows[] = {{{std::numeric_limits<double>::quiet_NaN(), 0, 1, 1}, "0,0,0,0"},
                                                   {{5, 5, 2, 3}, "5,5,2,3"},
                                                   {{0, 0, std::numeric_limits<double>::infinity(), 1}, "5,5,2,3"},
                                                   {{9, 4, 0, 0}, "5,4,4,4"},    // a point
                                                   {{3, 20, 4, -8}, "3,4,6,8"}}; // edges as they are named: bottom 12
    for (const auto& [rect, expected] : rows) {
        all.Add(rect);
        EXPECT_EQ(Rect(all.Result()), expected);
    }
}

TEST(PathExtent, grows_as_the_platforms_rectangle_does)
{
    PathExtent extent;
    extent.Add(QPainterPath());
    extent.Add(QPainterPath(QPointF(0, 0)));
    EXPECT_TRUE(extent.Rect().isNull() && !extent.IsSettled());
    QPainterPath path(QPointF(7.1, 3));
    extent.Add(path);
    EXPECT_EQ(extent.Rect(), QRectF(7.1, 3, 0, 0)) << "a move-to counts while it is the last";
    const std::pair<bool, std::function<void()>> steps[] = {
        {true, [&] { path.lineTo(9, 1.3); }},
        {true, [&] { path.cubicTo(30, -20, -30.3, 40, 9, 8); }}, // bulges beyond its ends on three sides
        {false, [&] { path.moveTo(100, 100); }},
        {false, [&] { path.moveTo(50, 0.1); }}, // Qt forgets the move-to before it
        {true, [&] { path.quadTo(60, 90, 51, 3); }}};
    for (const auto& [settled, add] : steps) {
        add();
        PathExtent whole;
        whole.Add(path);
        EXPECT_EQ(whole.Rect(), path.boundingRect()) << path.elementCount();
        EXPECT_EQ(whole.IsSettled(), settled) << path.elementCount();
    }
    PathExtent pieces;
    QPainterPath head(QPointF(7.1, 3));
    head.lineTo(9, 1.3);
    pieces.Add(head);
    pieces.Add(path, 2);
    EXPECT_EQ(pieces.Rect(), path.boundingRect()) << "from the second element on, behind what was added before";
}

} // namespace
