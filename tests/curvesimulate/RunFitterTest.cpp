/// The reference plug-in's fitting of single runs: size, deviation, corners, smooth joints, hostile input.
#include "Runs.h"

#include <cstring>
#include <limits>
#include <random>

using namespace test;

namespace {

constexpr double kFinestChord = 0.00027; ///< by which flattening at 1000-fold magnification leaves the curve

Polyline FlattenedCircle(double diameter)
{
    QPainterPath path;
    path.addEllipse(0, 0, diameter, diameter);
    return FlattenedFinely(path);
}

bool Unchanged(const Polyline& run, const Outline& fitted)
{
    return std::equal(run.begin(), run.end(), fitted.points.begin(), fitted.points.end(),
                      [](QPointF a, QPointF b) { return std::memcmp(&a, &b, sizeof a) == 0; }) &&
           fitted.types == std::vector<unsigned char>(run.size(), 0);
}

/// Degrees by which cubics of a closed outline without corners turn at their ends, at most.
double SharpestJoint(const Outline& fitted)
{
    const auto& points = fitted.points;
    double sharpest = TurnDegrees(points[0] - points[points.size() - 2], points[1] - points[0]);
    for (size_t i = 1; i + 3 < points.size(); i += fitted.types[i] == 1 ? 3 : 1) {
        const size_t joint = fitted.types[i] == 1 ? i + 2 : i;
        sharpest =
            std::max(sharpest, TurnDegrees(points[joint] - points[joint - 1], points[joint + 1] - points[joint]));
    }
    return sharpest;
}

TEST(RunFitter, circle_becomes_a_few_smooth_cubics)
{
    const Polyline circle = FlattenedCircle(100);
    const Outline fitted = FitRun(circle);
    EXPECT_GT(circle.size(), 1400U);
    EXPECT_LE(fitted.points.size(), 16U); // five cubics
    EXPECT_EQ(fitted.points.front(), circle.front());
    EXPECT_EQ(fitted.points.back(), circle.back());
    EXPECT_LE(Compare(circle, fitted).deviation, kTolerance);
    EXPECT_LT(SharpestJoint(fitted), 0.01); // the start point included
}

TEST(RunFitter, dense_runs_become_few_points_within_the_tolerance)
{
    // What a digitiser gives of a wavy closed line: evenly dense, each point off by up to 0.002.
    std::mt19937 random;
    const auto digitised = [&](int i) {
        const QPointF unrest(static_cast<int>(random() % 401) - 200, static_cast<int>(random() % 401) - 200);
        return OnCircle(15 * (1 + 0.2 * std::sin(i * 0.01884955592153876)), i * 0.36) + unrest * 1e-5;
    };
    const auto spiral = [](int i) { return OnCircle(0.2 + 0.004 * i, 28.6 + 0.573 * i); };
    std::vector<Polyline> runs{Closed(Stepwise(1000, digitised)), Stepwise(1950, spiral)};
    const std::vector<QPainterPath> paths = CurvedPaths(60);
    for (size_t p = 0; p < paths.size(); p += kPathStep)
        runs.push_back(FlattenedFinely(paths[p]));
    for (size_t i = 0; i < runs.size(); ++i) {
        SCOPED_TRACE(i);
        const Outline fitted = FitRun(runs[i]);
        const FitQuality quality = Compare(runs[i], fitted);
        EXPECT_LE(quality.deviation, kTolerance + kFinestChord);
        EXPECT_EQ(quality.cornersInvented, 0);
        EXPECT_LT(fitted.points.size(), runs[i].size() / (i == 0 ? 4 : 15));
    }
}

/// A 40 by 20 plate, its corners rounded with radius 5 in steps of 3 degrees, started in the middle of an edge.
TEST(RunFitter, rounded_rectangle_keeps_its_edges_straight_and_its_joins_smooth)
{
    const QPointF centres[] = {{15, -5}, {15, 5}, {-15, 5}, {-15, -5}};
    Polyline plate =
        Stepwise(4 * 31, [&](int i) { return centres[i / 31] + OnCircle(5, 90 * (i / 31 - 1) + 3 * (i % 31)); });
    plate.insert(plate.begin(), {0, -10});
    plate.push_back(plate.front());
    const Outline fitted = FitRun(plate);
    ASSERT_EQ(fitted.points.size(), 18U); // start, four cubics, the edges' ends
    EXPECT_EQ(fitted.types, (std::vector<unsigned char>{0, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1, 0}));
    EXPECT_LE(Compare(plate, fitted).deviation, kTolerance);
    EXPECT_LT(SharpestJoint(fitted), 0.01);
}

/// Two half circles that meet at a right angle: one corner, kept where it is.
TEST(RunFitter, corner_between_curves_stays)
{
    const Polyline run = Stepwise(361, [](int degrees) {
        const QPointF round = OnCircle(10, degrees);
        return degrees <= 180 ? round : QPointF(-10 - round.y(), round.x());
    });
    const Outline fitted = FitRun(run);
    EXPECT_LT(fitted.points.size(), 30U);
    EXPECT_NE(std::find(fitted.points.begin(), fitted.points.end(), run[180]), fitted.points.end());
    const FitQuality quality = Compare(run, fitted);
    EXPECT_LE(quality.deviation, kTolerance);
    EXPECT_EQ(quality.cornersLost, 0);
    EXPECT_EQ(quality.cornersInvented, 0);
}

/// Also where it bows by nearly half the tolerance.
TEST(RunFitter, dense_straight_line_becomes_its_ends)
{
    for (const double bow : {0.0, 0.0024}) {
        const Polyline line = Stepwise(
            1001, [bow](int i) { return QPointF(3 + 0.1 * i, 40 - 0.05 * i + bow * i * (1000 - i) / 250'000); });
        const Outline fitted = FitRun(line);
        EXPECT_EQ(fitted.points, (Polyline{line.front(), line.back()})) << bow;
        EXPECT_EQ(fitted.types, (std::vector<unsigned char>{0, 0})) << bow;
    }
}

TEST(RunFitter, hostile_runs_come_back_as_they_are)
{
    const double nan = std::numeric_limits<double>::quiet_NaN(), infinity = std::numeric_limits<double>::infinity();
    Polyline holed = FlattenedCircle(10), endless = holed, huge = holed;
    holed[50].setX(nan);
    endless[60].setY(-infinity);
    huge[70].setX(1e300);
    const std::vector<Polyline> runs{
        {},      {{1, 2}}, {{1, 2}, {1, 2}}, {{1, 2}, {3, 4}, {1, 2}}, {{0, 0}, {5e-324, 0}, {0, 5e-324}}, holed,
        endless, huge};
    for (const Polyline& run : runs)
        EXPECT_TRUE(Unchanged(run, FitRun(run))) << run.size();
    EXPECT_EQ(FitRun(Polyline(5000, {3, 3})).points.size(), 5000U);
}

} // namespace
