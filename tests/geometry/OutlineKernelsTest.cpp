/// Kernels of outlines: transforms of points, fits of rectangles.
#include "geometry/PlaneTransforms.h"
#include "geometry/QtArithmetic.h"
#include "support/Outline.h"

#include <gtest/gtest.h>

#include <cmath>
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

} // namespace
