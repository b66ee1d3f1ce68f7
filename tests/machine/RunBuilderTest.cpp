// Outlines into runs: as few segments as the tolerance allows, and nowhere farther from the outline than that.
#include "machine/Bulge.h"
#include "machine/OutlineRuns.h"

#include <gtest/gtest.h>

#include <QPainterPath>

#include <cmath>
#include <numbers>

using namespace shapedocument;

namespace {

using Points = std::vector<QPointF>;

double DistanceToSegment(QPointF p, QPointF a, QPointF b)
{
    const QPointF way = b - a;
    const double length2 = QPointF::dotProduct(way, way);
    const double t = length2 > 0 ? std::clamp(QPointF::dotProduct(p - a, way) / length2, 0.0, 1.0) : 0;
    const QPointF rest = p - a - t * way;
    return std::hypot(rest.x(), rest.y());
}

/// The largest distance from a point to the polyline, by brute force.
double Farthest(const Points& points, const Points& line)
{
    double farthest = 0;
    size_t at = 0; // each point is looked for from where the last one was found, and no closer than it matters
    for (const QPointF& point : points) {
        double nearest = HUGE_VAL;
        for (size_t looked = 0; looked + 1 < line.size() && nearest > farthest; ++looked) {
            at = looked == 0 ? at : (at + 1) % (line.size() - 1);
            nearest = std::min(nearest, DistanceToSegment(point, line[at], line[at + 1]));
        }
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

/// Of an outline of one sub-path, by the Bernstein polynomials.
Points Dense(const QPainterPath& outline)
{
    Points points{outline.elementAt(0)};
    for (int i = 1; i < outline.elementCount(); ++i) {
        const int parts = outline.elementAt(i).type == QPainterPath::LineToElement ? 2 : 400;
        const QPointF p0 = points.back(), p1 = outline.elementAt(i);
        const bool line = outline.elementAt(i).type == QPainterPath::LineToElement;
        const QPointF p2 = line ? p1 : outline.elementAt(i + 1), p3 = line ? p1 : outline.elementAt(i + 2);
        for (int k = 1; k <= parts; ++k) {
            const double t = static_cast<double>(k) / parts, u = 1 - t;
            points.push_back(line ? u * p0 + t * p3
                                  : u * u * u * p0 + 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t * p3);
        }
        i += line ? 0 : 2;
    }
    return points;
}

Points Dense(const std::vector<JobPoint>& run)
{
    Points points;
    for (size_t i = 0; i + 1 < run.size(); ++i) {
        const int parts = run[i].bulge == 0 ? 3 : 500;
        for (int k = 0; k < parts; ++k)
            points.push_back(
                PointOnSegment(run[i].point, run[i + 1].point, run[i].bulge, static_cast<double>(k) / parts));
    }
    points.push_back(run.back().point);
    return points;
}

std::vector<std::vector<JobPoint>> Runs(const QPainterPath& outline, bool arcs)
{
    std::vector<std::vector<JobPoint>> runs;
    ForEachRun(outline, arcs, [&](const std::vector<JobPoint>& run, bool) { runs.push_back(run); });
    return runs;
}

QPainterPath Polyline(const Points& points)
{
    QPainterPath path(points.front());
    for (size_t i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
    return path;
}

QPainterPath Circle(double radius)
{
    QPainterPath path;
    path.addEllipse(QPointF(50, 50), radius, radius);
    return path;
}

QPainterPath Cubic(QPointF a, QPointF b, QPointF c, QPointF d)
{
    QPainterPath path(a);
    path.cubicTo(b, c, d);
    return path;
}

/// A line written as a cubic, and a bow behind it: its ends alone would let an arc pass.
QPainterPath StraightCubicAndBow()
{
    QPainterPath path = Cubic({0, 0}, {10, 0}, {20, 0}, {30, 0});
    path.cubicTo(40, 0, 50, 5, 50, 15);
    return path;
}

/// Of a sixth of a circle, 0.0019 mm inside it at most.
QPainterPath PolygonOfManyCorners()
{
    Points points;
    for (int i = 0; i <= 120; ++i)
        points.push_back({200 * std::cos(i * std::numbers::pi / 360), 200 * std::sin(i * std::numbers::pi / 360)});
    return Polyline(points);
}

/// Steps up and down by 0.004 mm.
QPainterPath UnsteadyLine()
{
    Points points;
    for (int i = 0; i <= 300; ++i)
        points.push_back({i * 0.01, i % 2 * 0.004});
    return Polyline(points);
}

struct OutlineRow
{
    const char* name;
    QPainterPath outline;
    size_t mostLines;
    size_t mostArcs;
};

// Lines that go now inside a curve, now outside by t = 0.0046 mm take 2 acos((r - t) / (r + t)) of a circle each, 73.2
// for radius 10, and along a cubic the integral of sqrt(curvature / 16 t): 35.9, 28.4 and 24.1. A twentieth more may be
// needed, as they end where there are points. Of the polygon each line takes two sides.
const OutlineRow kOutlines[] = {
    {"rectangle", Polyline({{0, 0}, {10, 0}, {10, 5}, {0, 5}, {0, 0}}), 4, 4},
    {"points_on_a_line", Polyline({{0, 0}, {3, 0.004}, {7, -0.004}, {10, 0}}), 1, 1},
    {"spike", Polyline({{0, 0}, {10, 0}, {0, 0.5}}), 2, 2},
    {"there_and_back", Polyline({{0, 0}, {10, 0}, {3, 0}}), 2, 2},
    {"circle", Circle(10), 77, 2},
    {"small_circle", Circle(0.02), 5, 2},
    {"s_curve", Cubic({0, 0}, {20, 0}, {0, 20}, {20, 20}), 37, 11},
    {"cusp", Cubic({0, 0}, {30, 20}, {0, 20}, {30, 0}), 30, 12},
    {"folded_cubic", Cubic({0, 0}, {30, 0}, {-20, 0}, {10, 0}), 3, 5},
    {"straight_cubic_and_bow", StraightCubicAndBow(), 26, 6},
    {"many_corners", PolygonOfManyCorners(), 61, 61},
    {"unsteady_line", UnsteadyLine(), 1, 1},
    {"controls_in_one_point", Cubic({0, 0}, {0, 0}, {10, 10}, {10, 10}), 1, 1},
    {"tiny", Polyline({{0, 0}, {0.001, 0}, {0.001, 0.001}, {0, 0}}), 2, 2},
};

class RunOfOutline : public testing::TestWithParam<OutlineRow>
{};

} // namespace

TEST_P(RunOfOutline, lies_within_the_tolerance_and_has_few_segments)
{
    for (const bool arcs : {false, true}) {
        const auto runs = Runs(GetParam().outline, arcs);
        ASSERT_EQ(runs.size(), 1u);
        const std::vector<JobPoint>& run = runs[0];
        const Points outline = Dense(GetParam().outline), followed = Dense(run);
        EXPECT_LE(Farthest(outline, followed), kOutlineTolerance);
        EXPECT_LE(Farthest(followed, outline), kOutlineTolerance);
        EXPECT_LE(run.size() - 1, arcs ? GetParam().mostArcs : GetParam().mostLines);
        EXPECT_EQ(run.front().point, outline.front());
        EXPECT_EQ(run.back().point, outline.back());
        EXPECT_EQ(run.back().bulge, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Outlines, RunOfOutline, testing::ValuesIn(kOutlines),
                         [](const auto& row) { return row.param.name; });

TEST(OutlineRuns, keep_the_corners_of_polygons_to_the_last_bit)
{
    const auto runs = Runs(Polyline({{0.1, 0.2}, {10.3, 0.7}, {10.9, 5.1}, {0.1, 0.2}}), false);
    ASSERT_EQ(runs[0].size(), 4u);
    EXPECT_TRUE(runs[0][1].point.x() == 10.3 && runs[0][1].point.y() == 0.7);
    EXPECT_TRUE(runs[0][2].point.x() == 10.9 && runs[0][2].point.y() == 5.1);
}

TEST(OutlineRuns, go_on_where_a_sub_path_goes_on_and_skip_what_has_no_length)
{
    QPainterPath path(QPointF(0, 0));
    path.lineTo(10, 0);
    path.moveTo(10, 0);
    path.lineTo(10, 10);
    path.moveTo(20, 20);
    path.lineTo(20, 20);
    path.moveTo(30, 30);
    path.lineTo(40, 30);
    const auto runs = Runs(path, false);
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].size(), 3u);
    EXPECT_EQ(runs[1].front().point, QPointF(30, 30));
}
