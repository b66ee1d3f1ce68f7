/// The geometry kernel.
#include "geometry/Geometry.h"
#include "support/Outline.h"

#include <QLineF>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <tuple>

using namespace shapes;
using test::Point;

namespace {

QPointF OnUnitCircle(double degrees)
{
    return {std::cos(degrees * M_PI / 180), std::sin(degrees * M_PI / 180)};
}

TEST(VertexAngle, rounds_its_sine_to_four_decimals)
{
    const std::tuple<const char*, QPointF, QPointF, QPointF, bool, double> rows[] = {
        {"nearly_right", {6, 7}, {5, 7}, QPointF(5, 7) + OnUnitCircle(89.5), true, M_PI_2},
        {"obtuse", {1, 0}, {0, 0}, OnUnitCircle(120), true, M_PI - std::asin(0.8660)},
        {"straight", {-1, 2}, {0, 2}, {5, 2}, true, M_PI},
        {"folded_back", {1, 0}, {0, 0}, {2, 0}, true, 0},
        {"a_on_vertex", {0, 1e-6}, {0, 0}, {2, 0}, false, 0},
        {"c_on_vertex", {1, 0}, {2, 0}, {2, 0}, false, 0},
        {"a_on_c", {1, 0}, {0, 0}, {1, 0}, false, 0},
    };
    for (const auto& [name, a, b, c, result, expected] : rows) {
        double angle = 7;
        EXPECT_EQ(VertexAngle(a, b, c, angle), result) << name;
        EXPECT_DOUBLE_EQ(angle, expected) << name;
    }
}

TEST(Segments, nearest_point)
{
    QPointF out;
    const std::tuple<QPointF, QPointF, QPointF, double, const char*> rows[] = {
        {{5, 3}, {0, 0}, {10, 0}, 3, "5,0"},
        {{13, 4}, {0, 0}, {10, 0}, 5, "10,0"},
        {{-3, 4}, {0, 0}, {10, 0}, 5, "0,0"},
        {{3, 4}, {0, 0}, {0, 1e-6}, 5, "0,0"}, // the first of ends that coincide
        {{3, 4}, {0, 0}, {0, 0}, 5, "0,0"},
        {{0.1, 0.3}, {0, 0}, {0.7, 2.1}, 0, "0.1,0.3"},
        {{-0.63, 0.21}, {0, 0}, {0.7, 2.1}, std::sqrt(0.441), "0,0"}, // a radicand rounds below zero
    };
    for (const auto& [p, s, e, distance, expected] : rows) {
        EXPECT_NEAR(PointSegmentDistance(p, s, e, &out), distance, 1e-7) << Point(p);
        EXPECT_EQ(Point(out), expected);
        EXPECT_NEAR(std::sqrt(SegmentDistance2(p, s, e)), distance, 1e-6) << Point(p);
    }
}

TEST(Segments, near_one_is_what_its_distance_says)
{
    std::mt19937 random(9);
    std::uniform_real_distribution<double> unit(-1, 1);
    int near = 0;
    for (int round = 0; round < 20'000; ++round) {
        const double size = std::pow(10, round % 13 - 4), length = std::pow(10, round / 13 % 9 - 6);
        const QPointF s = size * QPointF(unit(random), unit(random));
        const QPointF e = s + length * QPointF(unit(random), round % 2 ? unit(random) : 0);
        const double reach = std::pow(10, round / 100 % 6 - 3);
        QLineF side(0, 0, e.y() - s.y(), s.x() - e.x()); // to a point at the reach, beside the segment or before it
        side.setLength(reach * (1 + 1e-15 * unit(random)));
        const QPointF p = s + (e - s) * (1.5 * unit(random) + 0.5) + side.p2();
        const bool expected = PointSegmentDistance(p, s, e) < reach;
        ASSERT_EQ(IsNearSegment(p, s, e, reach), expected) << round;
        near += expected;
    }
    EXPECT_GT(near, 2000);
    for (const QPointF end : {QPointF(0, 1e12), QPointF(1e12, 0)}) { // one coordinate far beyond all others
        const QPointF beside = QPointF(end.y(), end.x()) * 4.5e-12;
        EXPECT_TRUE(IsNearSegment(beside, {}, end, 5) && IsNearSegment(beside, end, {}, 5));
    }
    EXPECT_FALSE(IsNearSegment({0, std::nan("")}, {0, 0}, {1, 0}, 5));
}

TEST(ArcToCubics, pieces_of_the_ellipse)
{
    // Half axes 10 and 5 about (10, 5); 10 + 10 k = 15.522847, 5 - 5 k = 2.238576. Whole ellipses are drawn by vectors.
    const auto told = [](double start, double sweep) {
        const ArcCubics arc = ArcToCubics({0, 0, 20, 10}, start, sweep);
        std::string text = Point(arc.start);
        for (QPointF point : arc.points)
            text += " " + Point(point);
        return text;
    };
    EXPECT_EQ(told(0, 90), "20,5 20,2.238576 15.522847,0 10,0");
    EXPECT_EQ(told(90, -90), "10,0 15.522847,0 20,2.238576 20,5");
    EXPECT_EQ(ArcToCubics({0, 0, 20, 10}, 0, -1000).points.size(), 12u) << "one turn at most";
    EXPECT_EQ(told(0, -45), "20,5 20,6.326082 18.946432,7.597852 17.071068,8.535534");
}

TEST(FlattenCubic, steps_forward_and_ends_exactly)
{
    const std::tuple<std::array<QPointF, 4>, double, const char*> rows[] = {
        {{QPointF(0, 0), {1, 0}, {2, 0}, {3, 0}}, 0.5, "0,0 1.5,0 3,0 3,0"},
        {{QPointF(0, 0), {1, 0}, {2, 0}, {3, 0}}, std::nan(""), "0,0 3,0 3,0"},
        {{QPointF(0, 0), {0, 8}, {8, 8}, {8, 0}}, 0.4, "0,0 2.816,5.76 7.168,3.84 8,0"}, // int(2.5) = 2 steps
    };
    for (const auto& [p, step, expected] : rows) {
        std::vector<PointF32> points;
        FlattenCubic(points, p[0], p[1], p[2], p[3], step);
        std::string text;
        for (PointF32 point : points)
            text += (text.empty() ? "" : " ") + Point({point.x, point.y});
        EXPECT_EQ(text, expected) << step;
    }
}

} // namespace
