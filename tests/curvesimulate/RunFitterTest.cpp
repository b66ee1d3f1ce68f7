/// The reference plug-in's fitting of single runs: size, deviation, corners, smooth joints, hostile input.
#include "RunFitter.h"
#include "FlattenedCurves.h"
#include "OutlineDeviation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using curvesimulate::FitRun;
using curvesimulate::Outline;

namespace {

constexpr double kTolerance = 0.005;
constexpr double kFinestChord = 0.00027; ///< by which flattening at 1000-fold magnification leaves the curve

std::vector<QPointF> FlattenedCircle(double diameter)
{
    QPainterPath path;
    path.addEllipse(0, 0, diameter, diameter);
    return test::FlattenedFinely(path);
}

bool Unchanged(const std::vector<QPointF>& run, const Outline& fitted)
{
    return std::equal(run.begin(), run.end(), fitted.points.begin(), fitted.points.end(),
                      [](QPointF a, QPointF b) { return std::memcmp(&a, &b, sizeof a) == 0; }) &&
           fitted.types == std::vector<unsigned char>(run.size(), 0);
}

/// Degrees by which cubics of a closed outline without corners turn at their ends, at most.
double SharpestJoint(const Outline& fitted)
{
    const auto& points = fitted.points;
    double sharpest = test::TurnDegrees(points[0] - points[points.size() - 2], points[1] - points[0]);
    for (size_t i = 1; i + 3 < points.size(); i += fitted.types[i] == 1 ? 3 : 1) {
        const size_t joint = fitted.types[i] == 1 ? i + 2 : i;
        sharpest =
            std::max(sharpest, test::TurnDegrees(points[joint] - points[joint - 1], points[joint + 1] - points[joint]));
    }
    return sharpest;
}

TEST(RunFitter, circle_becomes_a_few_smooth_cubics)
{
    const std::vector<QPointF> circle = FlattenedCircle(100);
    const Outline fitted = FitRun(circle);
    EXPECT_GT(circle.size(), 1400U);
    EXPECT_LE(fitted.points.size(), 16U); // five cubics
    EXPECT_EQ(fitted.points.front(), circle.front());
    EXPECT_EQ(fitted.points.back(), circle.back());
    const test::FitQuality quality = test::Compare(circle, fitted.points, fitted.types);
    EXPECT_LE(quality.deviation, kTolerance);
    EXPECT_LT(SharpestJoint(fitted), 0.01); // the start point included
}

/// What a digitiser gives of a wavy closed line: evenly dense, each point off by up to 0.002.
std::vector<QPointF> NoisyTrace()
{
    std::mt19937 random;
    std::vector<QPointF> points;
    for (int i = 0; i < 1000; ++i) {
        const QPointF unrest(static_cast<int>(random() % 401) - 200, static_cast<int>(random() % 401) - 200);
        const double angle = i * 0.006283185307179587, radius = 15 * (1 + 0.2 * std::sin(3 * angle));
        points.push_back(radius * QPointF(std::cos(angle), std::sin(angle)) + unrest * 1e-5);
    }
    points.push_back(points.front());
    return points;
}

TEST(RunFitter, dense_runs_become_few_points_within_the_tolerance)
{
    std::vector<std::vector<QPointF>> runs{NoisyTrace(), {}};
    for (double angle = 0.5; angle < 20; angle += 0.01)
        runs[1].push_back(0.4 * angle * QPointF(std::cos(angle), std::sin(angle)));
    for (const QPainterPath& path : test::CurvedPaths(60))
        runs.push_back(test::FlattenedFinely(path));
    for (size_t i = 0; i < runs.size(); ++i) {
        SCOPED_TRACE(i);
        const Outline fitted = FitRun(runs[i]);
        const test::FitQuality quality = test::Compare(runs[i], fitted.points, fitted.types);
        EXPECT_LE(quality.deviation, kTolerance + kFinestChord);
        EXPECT_EQ(quality.cornersInvented, 0);
        EXPECT_LT(fitted.points.size(), runs[i].size() / (i == 0 ? 4 : 15));
    }
}

/// A 40 by 20 plate, its corners rounded with radius 5 in steps of 3 degrees, started in the middle of an edge.
TEST(RunFitter, rounded_rectangle_keeps_its_edges_straight_and_its_joins_smooth)
{
    std::vector<QPointF> plate{{0, -10}};
    const QPointF centres[] = {{15, -5}, {15, 5}, {-15, 5}, {-15, -5}};
    for (int corner = 0; corner < 4; ++corner) {
        for (int step = 0; step <= 30; ++step) {
            const double angle = (90 * (corner - 1) + 3 * step) * 0.017453292519943295;
            plate.push_back(centres[corner] + QPointF(5 * std::cos(angle), 5 * std::sin(angle)));
        }
    }
    plate.push_back(plate.front());
    const Outline fitted = FitRun(plate);
    ASSERT_EQ(fitted.points.size(), 18U); // start, four cubics, the edges' ends
    EXPECT_EQ(fitted.types, (std::vector<unsigned char>{0, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0}));
    const test::FitQuality quality = test::Compare(plate, fitted.points, fitted.types);
    EXPECT_LE(quality.deviation, kTolerance);
    EXPECT_LT(SharpestJoint(fitted), 0.01);
}

/// Two half circles that meet at a right angle: one corner, kept where it is.
TEST(RunFitter, corner_between_curves_stays)
{
    std::vector<QPointF> run;
    for (int step = 0; step <= 360; ++step) {
        const QPointF round(10 * std::cos(step * 0.017453292519943295), 10 * std::sin(step * 0.017453292519943295));
        run.push_back(step <= 180 ? round : QPointF(-10 - round.y(), round.x()));
    }
    const Outline fitted = FitRun(run);
    EXPECT_LT(fitted.points.size(), 30U);
    EXPECT_NE(std::find(fitted.points.begin(), fitted.points.end(), run[180]), fitted.points.end());
    const test::FitQuality quality = test::Compare(run, fitted.points, fitted.types);
    EXPECT_LE(quality.deviation, kTolerance);
    EXPECT_EQ(quality.cornersLost, 0);
    EXPECT_EQ(quality.cornersInvented, 0);
}

TEST(RunFitter, dense_straight_line_becomes_its_ends)
{
    std::vector<QPointF> line;
    for (int i = 0; i <= 1000; ++i)
        line.emplace_back(0.1 * i, 0.05 * i);
    const Outline fitted = FitRun(line);
    EXPECT_EQ(fitted.points, (std::vector<QPointF>{line.front(), line.back()}));
    EXPECT_EQ(fitted.types, (std::vector<unsigned char>{0, 0}));
}

TEST(RunFitter, hostile_runs_come_back_as_they_are)
{
    const double nan = std::numeric_limits<double>::quiet_NaN(), infinity = std::numeric_limits<double>::infinity();
    std::vector<QPointF> holed = FlattenedCircle(10), endless = holed, huge = holed;
    holed[50].setX(nan);
    endless[60].setY(-infinity);
    huge[70].setX(1e300);
    const std::vector<std::vector<QPointF>> runs{
        {},      {{1, 2}}, {{1, 2}, {1, 2}}, {{1, 2}, {3, 4}, {1, 2}}, {{0, 0}, {5e-324, 0}, {0, 5e-324}}, holed,
        endless, huge};
    for (const std::vector<QPointF>& run : runs)
        EXPECT_TRUE(Unchanged(run, FitRun(run))) << run.size();
    EXPECT_EQ(FitRun(std::vector<QPointF>(5000, {3, 3})).points.size(), 5000U);
}

} // namespace
