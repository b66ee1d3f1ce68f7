/// The reference plug-in on what other programs draw: curves flattened to coarse chords, which have to come back as
/// curves, and polygons, which have to stay polygons.
#include "Chords.h"
#include "Runs.h"

using namespace test;

namespace {

constexpr double kChord = 0.27; ///< by which chords may leave their curve at magnification 1
constexpr double kFine = 128;   ///< magnification whose chords stand for the curves themselves

double LargerExtent(const Polyline& run)
{
    const QRectF box = QPolygonF(QList<QPointF>(run.begin(), run.end())).boundingRect();
    return std::max(box.width(), box.height());
}

/// Held against the curves themselves, for which fine chords stand.
TEST(ChordsOfCurves, come_back_as_the_curves_they_came_from)
{
    // Powers of 2 leave the ends of curves where they are, to the bit. Of points after to points before, at most:
    for (const auto& [magnification, ratio] : {std::pair(4.0, 0.6), {16.0, 0.5}, {64.0, 0.3}}) {
        SCOPED_TRACE(magnification);
        const double chord = kChord / magnification;
        size_t before = 0, after = 0;
        const std::vector<QPainterPath> paths = CurvedPaths(60);
        for (size_t p = 0; p < paths.size(); p += kPathStep) {
            const QPainterPath& path = paths[p];
            const auto runs = AllFlattened(path, magnification), curves = AllFlattened(path, kFine);
            ASSERT_EQ(runs.size(), curves.size());
            for (size_t i = 0; i < runs.size(); ++i) {
                const Outline fitted = FitRun(runs[i]);
                const double tolerance = std::min(kTolerance, 1e-4 * LargerExtent(runs[i]));
                const FitQuality byCurve = Compare(curves[i], fitted);
                EXPECT_LE(VertexDistance(runs[i], fitted.points, fitted.types), tolerance + 1e-5);
                EXPECT_LE(byCurve.deviation, tolerance + chord + kChord / kFine);
                EXPECT_EQ(byCurve.cornersLost, 0);
                EXPECT_EQ(Compare(runs[i], fitted).cornersInvented, 0);
                before += runs[i].size();
                after += fitted.points.size();
            }
        }
        EXPECT_LT(static_cast<double>(after), ratio * static_cast<double>(before));
    }
}

Polyline RegularPolygon(int count, double radius)
{
    return Closed(Stepwise(count, [&](int i) { return OnCircle(radius, 360.0 * i / count); }));
}

/// A tooth of four corners: of the gear's 24, at two radii.
QPointF OnGear(int i)
{
    constexpr double kShares[] = {0, 0.15, 0.45, 0.6};
    return OnCircle(i % 4 == 0 || i % 4 == 3 ? 26 : 30, (i / 4 + kShares[i % 4]) * 15);
}

TEST(DrawnPolygons, stay_exactly_as_they_are)
{
    const std::pair<const char*, Polyline> polygons[] = {
        {"square", RegularPolygon(4, 10)},
        {"octagon", RegularPolygon(8, 10)},
        {"12-gon", RegularPolygon(12, 10)},
        {"18-gon, turns of exactly 20 degrees", RegularPolygon(18, 1)},
        {"24-gon, 0.34 from its circle", RegularPolygon(24, 40)},
        {"64-gon, 0.6 from its circle", RegularPolygon(64, 500)},
        {"star", Closed(Stepwise(10, [](int i) { return OnCircle(i % 2 ? 8 : 20, 36.0 * i); }))},
        {"gear", Closed(Stepwise(96, OnGear))},
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
TEST(DrawnPolygons, sixty_four_corners_on_a_hundred_millimetres_are_a_circle)
{
    const Outline fitted = FitRun(RegularPolygon(64, 50));
    EXPECT_LE(fitted.points.size(), 19U);
    for (const QPointF& point : {fitted.points.front(), fitted.points.back()})
        EXPECT_EQ(point, QPointF(50, 0));
    EXPECT_LE(Compare(RegularPolygon(4096, 50), fitted).deviation, kTolerance);
}

/// Plates with corners rounded in steps of 10 degrees: whatever the length of the edges, they stay straight.
TEST(DrawnPolygons, edges_beside_roundings_stay_straight)
{
    for (const double edge : {1.0, 1.6, 2.5, 4.0, 40.0}) {
        SCOPED_TRACE(edge);
        const Polyline plate = Closed(Stepwise(40, [&](int i) {
            const QPointF centre(i < 10 || i >= 30 ? edge : 0, i < 20 ? edge : 0);
            return centre + OnCircle(5, 90.0 * (i / 10) + 10.0 * (i % 10));
        }));
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
TEST(SmallOutlines, are_fitted_to_their_size)
{
    for (const QPainterPath& path : CurvedPaths(1)) {
        const Polyline run = AllFlattened(path, 2e4).front(); // chords within 0.000014
        const Outline fitted = FitRun(run);
        EXPECT_LT(fitted.points.size(), run.size() / 4);
        EXPECT_LE(Compare(run, fitted).deviation, 1.2e-4 * LargerExtent(run));
    }
}

/// A trace of edges of those lengths, with those turns between them, in degrees.
Polyline Traced(const std::vector<double>& lengths, const std::vector<double>& turns)
{
    Polyline points{{0, 0}, {lengths[0], 0}};
    double direction = 0;
    for (size_t i = 0; i < turns.size(); ++i)
        points.push_back(points.back() + OnCircle(lengths[i + 1], direction += turns[i]));
    return points;
}

std::string Digits(const std::vector<char>& flags)
{
    std::string digits;
    for (const char flag : flags)
        digits += flag ? '1' : '0';
    return digits;
}

/// The same forwards and backwards.
TEST(JudgedChords, are_straight_or_break_by_what_lies_beside_them)
{
    struct Judged
    {
        std::vector<double> lengths, turns;
        std::string straight, breaks; ///< per edge, per point
    };
    const Judged rows[] = {
        // 16 degrees more than half of the next turn, of the other sign, make 24: a corner, seen from both.
        // On edges of 0.096 and more, 8 tolerances by 24 degrees, however short the one beside them.
        {{.12, .08, .12, .12, .12, .12}, {0, 0, 16, -16, 0}, "000000", "1001101"},
        // A longer edge behind the next turn leaves a quarter: 14 and 3.5 are none, 14 and 7 are.
        {{.12, .12, .12, .12, .36, .12}, {0, 0, 14, -14, 0}, "000000", "1000101"},
        // Beside a corner there is nothing to compare with.
        {{.12, .12, .12, .12, .12, .12}, {0, 0, -16, 40, 0}, "000000", "1000101"},
        // An edge between roundings: half a chord's turn at both ends. Short chords may be of one curve with it.
        {{.1, .1, .15, .1, .1}, {16, 8, 8, 16}, "00000", "100001"},
        {{.1, .1, .25, .1, .1}, {16, 8, 8, 16}, "00100", "101101"},
        {{.1, .1, .25, .1, .1}, {1, 8, 8, 16}, "00000", "100001"},
        // Between corners.
        {{1, 2, 3}, {90, 60}, "111", "1111"},
    };
    for (size_t row = 0; row < std::size(rows); ++row) {
        auto [lengths, turns, straight, breaks] = rows[row];
        for (const bool backwards : {false, true}) {
            SCOPED_TRACE(std::to_string(row) + (backwards ? " backwards" : ""));
            const curvesimulate::Limits limits;
            const auto chords = JudgeChords(MakeTrace(Traced(lengths, turns), limits), limits);
            EXPECT_EQ(Digits(chords.straight).substr(0, straight.size()), straight);
            EXPECT_EQ(Digits(chords.breaks), breaks);
            std::ranges::reverse(lengths);
            std::ranges::reverse(turns);
            std::ranges::reverse(straight);
            std::ranges::reverse(breaks);
        }
    }
}

TEST(JudgedChords, of_a_single_bend_between_corners_bulge_nowhere)
{
    const curvesimulate::Limits limits;
    EXPECT_EQ(JudgeChords(MakeTrace(Traced({1, 1}, {10}), limits), limits).bulges, (std::vector<double>{0, 0, 0}));
}

/// Sharp turns are tested from 0.04 away, in the middle of edges too: such a line passes the turn at nearly half the
/// height, more than the tolerance of 0.005 or less.
TEST(Trace, is_thinned_to_corners_where_a_step_is_no_noise)
{
    const Polyline straight = Stepwise(11, [](int i) { return QPointF(7 + i, 3); });
    EXPECT_EQ(Thinned(curvesimulate::MakeTrace(straight, {}), {}).points.size(), 2u);
    for (const auto& [height, corners] : {std::pair(0.0085, "1001"), {0.0095, "1111"}}) {
        const Polyline step{{-10, 0}, {0, 0}, {0, height}, {10, height}};
        EXPECT_EQ(Digits(curvesimulate::MakeTrace(step, {}).corner), corners);
    }
}

} // namespace
