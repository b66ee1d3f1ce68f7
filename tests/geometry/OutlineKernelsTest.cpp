/// Kernels of outlines: transforms of points, fits of rectangles.
#include "geometry/PlaneTransforms.h"
#include "geometry/QtArithmetic.h"
#include "support/Outline.h"

#include <QLineF>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

using namespace shapes;
using test::Point;
using test::Rect;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::string Text(const std::vector<QPointF>& points)
{
    std::string text;
    for (const QPointF point : points)
        text += (text.empty() ? "" : " ") + Point(point);
    return text;
}

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

TEST(MirrorAcross, reflects_where_a_finite_reflection_exists)
{
    const std::pair<QLineF, const char*> rows[] = {{{0, 0, 1, 1}, "2,3 1,0"},
                                                   {{5, 0, 5, -7}, "7,2 10,1"},
                                                   {{1, 1, 1, 1}, "3,2 0,1"},
                                                   {{0, 0, kNan, 1}, "3,2 0,1"},
                                                   {{0, 0, 1e300, 1}, "3,2 0,1"}};
    for (const auto& [line, expected] : rows)
        EXPECT_EQ(Text(MirrorAcross({{3, 2}, {0, 1}}, line)), expected) << Point(line.p2());
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
        {"turned_over", {0, 0, 10, 5}, {0, 0, -10, 5}, "-15,5", "-10,0,10,5"}};
    for (const auto& [name, from, to, point, rect] : rows) {
        const RectFit fit(from, to);
        std::vector<QPointF> points{{15, 5}};
        fit.Map(points);
        EXPECT_EQ(Text(points) + " " + Rect(fit.Map(from)), std::string(point) + " " + rect) << name;
    }
}

} // namespace
