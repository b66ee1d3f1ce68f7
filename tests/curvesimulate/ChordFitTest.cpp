/// The reference plug-in on what other programs draw: curves flattened to coarse chords, which have to come back as
/// curves, and polygons, which have to stay polygons.
#include "OutlineCorpus.h"
#include "OutlineDeviation.h"
#include "RunFitter.h"

#include <QPainterPath>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

using curvesimulate::FitRun;
using curvesimulate::Outline;

namespace {

constexpr double kTolerance = 0.005;
constexpr double kChord = 0.27; ///< by which chords may leave their curve at magnification 1
constexpr double kFine = 128;   ///< magnification whose chords stand for the curves themselves
constexpr double kDegree = std::numbers::pi / 180.0;

using Polyline = std::vector<QPointF>;

QPointF OnCircle(double radius, double degrees)
{
    return radius * QPointF(std::cos(degrees * kDegree), std::sin(degrees * kDegree));
}

/// The larger extent.
double Extent(const Polyline& run)
{
    const auto [left, right] = std::ranges::minmax(run, {}, [](QPointF p) { return p.x(); });
    const auto [top, bottom] = std::ranges::minmax(run, {}, [](QPointF p) { return p.y(); });
    return std::max(right.x() - left.x(), bottom.y() - top.y());
}

struct FlatteningCase
{
    double magnification; ///< powers of 2 leave the ends of curves where they are, to the bit
    double ratio;         ///< of points after to points before, at most
};

class ChordsOfCurves : public testing::TestWithParam<FlatteningCase>
{};

/// Held against the curves themselves, for which fine chords stand.
TEST_P(ChordsOfCurves, ComeBackAsTheCurvesTheyCameFrom)
{
    const auto [magnification, ratio] = GetParam();
    const double chord = kChord / magnification;
    size_t before = 0, after = 0;
    for (const QPainterPath& path : support::CurvedPaths(60)) {
        const auto runs = support::AllFlattened(path, magnification), curves = support::AllFlattened(path, kFine);
        ASSERT_EQ(runs.size(), curves.size());
        for (size_t i = 0; i < runs.size(); ++i) {
            const Outline fitted = FitRun(runs[i]);
            const double tolerance = std::min(kTolerance, 1e-4 * Extent(runs[i]));
            const support::FitQuality byCurve = support::Compare(curves[i], fitted.points, fitted.types);
            EXPECT_LE(support::VertexDistance(runs[i], fitted.points, fitted.types), tolerance + 1e-5);
            EXPECT_LE(byCurve.deviation, tolerance + chord + kChord / kFine);
            EXPECT_EQ(byCurve.cornersLost, 0);
            EXPECT_EQ(support::Compare(runs[i], fitted.points, fitted.types).cornersInvented, 0);
            before += runs[i].size();
            after += fitted.points.size();
        }
    }
    EXPECT_LT(static_cast<double>(after), ratio * static_cast<double>(before));
}

INSTANTIATE_TEST_SUITE_P(AtChordTolerances, ChordsOfCurves,
                         testing::Values(FlatteningCase{4, 0.6}, FlatteningCase{16, 0.5}, FlatteningCase{32, 0.4},
                                         FlatteningCase{64, 0.3}));

Polyline Closed(Polyline run)
{
    run.push_back(run.front());
    return run;
}

/// Two radii in turn, the second one shifted by a share of the pitch: stars at a half, teeth of gears beside it.
Polyline Gear(int teeth, double outer, double inner)
{
    Polyline run;
    const double pitch = 360.0 / teeth;
    for (int i = 0; i < teeth; ++i) {
        for (const auto& [radius, share] : {std::pair(inner, 0.0), {outer, 0.15}, {outer, 0.45}, {inner, 0.6}}) {
            run.push_back(OnCircle(radius, (i + share) * pitch));
        }
    }
    return Closed(run);
}

Polyline Stepwise(int count, const std::function<QPointF(int)>& point)
{
    Polyline run;
    for (int i = 0; i < count; ++i) {
        run.push_back(point(i));
    }
    return run;
}

TEST(DrawnPolygons, StayExactlyAsTheyAre)
{
    const struct
    {
        const char* name;
        Polyline run;
    } polygons[] = {
        {"square", support::RegularPolygon(4, 10)},
        {"octagon", support::RegularPolygon(8, 10)},
        {"12-gon", support::RegularPolygon(12, 10)},
        {"18-gon, turns of exactly 20 degrees", support::RegularPolygon(18, 1)},
        {"24-gon, 0.34 from its circle", support::RegularPolygon(24, 40)},
        {"64-gon, 0.6 from its circle", support::RegularPolygon(64, 500)},
        {"star", Closed(Stepwise(10, [](int i) { return OnCircle(i % 2 ? 8 : 20, 36.0 * i); }))},
        {"gear", Gear(24, 30, 26)},
        {"stair", Stepwise(40, [](int i) { return QPointF(2.0 * (i / 2), 1.5 * ((i + 1) / 2)); })},
        {"zigzag of turns of 16 degrees", Stepwise(40, [](int i) { return QPointF(2.0 * i, i % 2 ? 0.28 : 0.0); })},
        {"bent edges", Closed({{0, 0}, {50, 0}, {100, 8}, {104, 50}, {60, 54}, {0, 50}})},
        {"chamfered plate", Closed({{2, 0}, {38, 0}, {40, 2}, {40, 18}, {38, 20}, {2, 20}, {0, 18}, {0, 2}})},
        {"long edges on a rounding of three chords",
         Closed({{0, 0}, {30, 0}, {30.5, 0.1}, {31, 0.3}, {31.4, 0.7}, {40, 20}, {0, 20}})}};
    for (const auto& [name, run] : polygons) {
        SCOPED_TRACE(name);
        const Outline fitted = FitRun(run);
        EXPECT_EQ(fitted.points, run);
        EXPECT_EQ(fitted.types, std::vector<unsigned char>(run.size(), 0));
    }
}

/// 0.06 from its circle, turns of 5.6 degrees: a circle to every program that draws chords.
TEST(DrawnPolygons, SixtyFourCornersOnAHundredMillimetresAreACircle)
{
    const Outline fitted = FitRun(support::RegularPolygon(64, 50));
    EXPECT_LE(fitted.points.size(), 19U);
    for (const QPointF& point : {fitted.points.front(), fitted.points.back()}) {
        EXPECT_EQ(point, QPointF(50, 0));
    }
    EXPECT_LE(support::Compare(support::RegularPolygon(4096, 50), fitted.points, fitted.types).deviation, kTolerance);
}

/// Plates with corners rounded in steps of 10 degrees: whatever the length of the edges, they stay straight.
TEST(DrawnPolygons, EdgesBesideRoundingsStayStraight)
{
    for (const double edge : {1.0, 1.6, 2.5, 4.0, 40.0}) {
        SCOPED_TRACE(edge);
        Polyline plate;
        for (int i = 0; i < 4; ++i) {
            const QPointF centre(i == 0 || i == 3 ? edge : 0, i < 2 ? edge : 0);
            for (int step = 0; step <= 9; ++step) {
                plate.push_back(centre + OnCircle(5, 90.0 * i + 10.0 * step));
            }
        }
        plate.push_back(plate.front());
        const Outline fitted = FitRun(plate);
        EXPECT_LT(fitted.points.size(), plate.size());
        for (size_t from = 9; from < plate.size(); from += 10) {
            const auto at = std::find(fitted.points.begin(), fitted.points.end(), plate[from]);
            ASSERT_LT(at + 1, fitted.points.end());
            EXPECT_EQ(at[1], plate[from + 1]);
            EXPECT_EQ(fitted.types[static_cast<size_t>(at + 1 - fitted.points.begin())], 0);
        }
    }
}

/// What is drawn small may be enlarged later: the fit follows it to 1/10,000 of its size.
TEST(SmallOutlines, AreFittedToTheirSize)
{
    for (const QPainterPath& path : support::CurvedPaths(1)) {
        const Polyline run = support::AllFlattened(path, 2e4).front(); // chords within 0.000014
        const Outline fitted = FitRun(run);
        EXPECT_LT(fitted.points.size(), run.size() / 4);
        EXPECT_LE(support::Compare(run, fitted.points, fitted.types).deviation, 1.2e-4 * Extent(run));
    }
}

} // namespace
