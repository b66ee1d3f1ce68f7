/// CShapeVector: rectangle, ellipse, line, regular polygon and guide lines.
#include "support/Lists.h"

#include <cmath>
#include <limits>
#include <tuple>

using namespace test;

namespace {

TEST(ShapeVectorPrimitives, rectangle)
{
    CShapeVector shape = Vector(EVECTOR_MIXED, "9,9 8,8");
    shape.SetCornerRadio(5.0); // corners stay sharp
    shape.SetShapeRect({1, 2, 0, 5});
    EXPECT_EQ(PathText(shape), Frame({1, 2, 0, 5}));
    shape.SetShapeRect({1, 2, 10, 5});
    EXPECT_EQ(PathText(shape), "M 1,2 L 11,2 L 11,7 L 1,7 L 1,2");
    shape.SetShapeBoundRect({0, 0, 1, 1});
    EXPECT_EQ(std::to_string(shape.GetVectorType()) + ": " + Outline(shape), "6: 1,2 11,2 11,7 1,7 1,2");
}

TEST(ShapeVectorPrimitives, ellipse)
{
    CShapeVector shape = Vector(EVECTOR_RECT, "9,9 8,8");
    shape.SetShapeEllipse({0, 0, 20, 10});
    EXPECT_EQ(Outline(shape), "c20,5 c20,7.761424 c15.522847,10 c10,10 c4.477153,10 c0,7.761424 c0,5 "
                              "c0,2.238576 c4.477153,0 c10,0 c15.522847,0 c20,2.238576 c20,5");
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, 20, 10));
    EXPECT_TRUE(*shape.GetPath(false) == path && shape.GetVectorType() == EVECTOR_RECT) << "the type is the caller's";
    shape.SetVectorType(EVECTOR_ELLIPSE);
    EXPECT_EQ(PathText(*shape.GetPath(true)), PathText(path));
}

TEST(ShapeVectorPrimitives, line_sets_the_path_alone)
{
    CShapeVector shape = Vector(EVECTOR_RECT, "9,9 8,8");
    shape.SetShapeLine({1, 2}, {3, 4});
    shape.SetShapeLine({5, 6}, {7, 8});
    EXPECT_EQ(Outline(shape) + ": " + PathText(shape), "9,9 8,8: M 5,6 L 7,8");
}

/// "direction type outline" of a polygon dragged from centre to toward; "none" where nothing is made.
std::string Isogon(int n, float side, QPointF centre, QPointF toward, int mode)
{
    CShapeVector shape;
    shape.SetShapeRect({0, 0, 2, 1});
    double angle = -7;
    const std::unique_ptr<CShape> made(
        shape.SetShapeIsogon(n, side, centre, toward, true, static_cast<ETOOL_MODE>(mode), angle));
    if (!made)
        return Number(angle) + Outline(shape) == "-70,0 2,0 2,1 0,1 0,0" ? "none" : "none, but changed";
    EXPECT_TRUE(dynamic_cast<CShapeVector*>(made.get()) && Outline(*made).empty());
    return Number(angle) + " " + std::to_string(shape.GetVectorType()) + " " + Outline(shape);
}

TEST(ShapeVectorIsogon, direction_locks_within_four_degrees_of_eighths)
{
    // Sines count with four decimals: sin 40 = 0.6428, sin 49.5 = 0.7604, sin 80 = 0.9848, sin 20 = 0.3420.
    const double rows[][2] = {
        {0, 0},          {48.5, 45},        {3.5, 0},          {90, 90},          {270, 270},        {358, 360},
        {40, 40.000927}, {49.5, 49.499474}, {100, 100.002558}, {200, 199.998772}, {300, 300.002911},
    };
    for (const auto& [direction, expected] : rows) {
        const double radians = direction * M_PI / 180;
        const QPointF toward(10 + 50 * std::cos(radians), 20 + 50 * std::sin(radians));
        EXPECT_TRUE(Isogon(3, 1, {10, 20}, toward, ETOOL_ISOGON).starts_with(Number(expected) + " 2 ")) << direction;
    }
    EXPECT_TRUE(Isogon(3, 1, {-5, 0}, {5, -10}, ETOOL_ISOGON).starts_with("315 2 ")) << "about the origin";
}

TEST(ShapeVectorIsogon, vertices)
{
    // Square of side 10: circumradius 7.07.
    EXPECT_EQ(Isogon(4, 10, {0, 0}, {30, 30}, ETOOL_ISOGON), "45 2 | 5,5 -5,5 -5,-5 5,-5 5,5");
    // Truncated towards zero to (107,100) (100,107) (92,100) (100,92), then turned by 45 degrees and rounded.
    EXPECT_EQ(Isogon(4, 10, {100, 100}, {200, 100}, ETOOL_ISOGON_ROTATED), "0 2 | 105,105 95,105 94,94 106,94 105,105");
    EXPECT_EQ(Isogon(4, 10, {0, 0}, {200, 0}, ETOOL_ISOGON_ROTATED), "0 2 | 5,5 -5,5 -5,-5 5,-5 5,5");
    // Half a step of a heptagon is 25.714 degrees, no whole number: 1152 * (0.90097, 0.43388).
    EXPECT_TRUE(Isogon(7, 1000, {0, 0}, {1, 0}, ETOOL_ISOGON_ROTATED).starts_with("0 2 | 1038,500 "));
    EXPECT_EQ(Isogon(4, 10, {0, 0}, {30, 30}, 3), "45 2 ");
    // Far outside the whole numbers, the rotated mode still ends.
    EXPECT_TRUE(Isogon(3, 1e30f, {0, 0}, {10, 0}, ETOOL_ISOGON_ROTATED).starts_with("0 2 | "));
}

TEST(ShapeVectorIsogon, unusable_drags_change_nothing)
{
    const float infinite = std::numeric_limits<float>::infinity();
    EXPECT_EQ(Isogon(3, 1, {0, 0}, {0.0099, 0}, ETOOL_ISOGON), "none") << "a short drag";
    EXPECT_EQ(Isogon(2, 1, {0, 0}, {10, 0}, ETOOL_ISOGON), "none");
    EXPECT_EQ(Isogon(1000001, 1, {0, 0}, {10, 0}, ETOOL_ISOGON), "none");
    EXPECT_EQ(Isogon(3, 1, {1e98, 0}, {-1e98, 0}, ETOOL_ISOGON), "none") << "too far for a path";
    EXPECT_EQ(Isogon(3, infinite, {0, 0}, {10, 0}, ETOOL_ISOGON), "none");
}

#define SQUARE "0,0 10,0 10,10 0,10 0,0"
#define HOLE " | 4,4 6,4 6,6 4,4"

const SGuideLine kBoth = {1, 1, 3, 1, 2};
const SGuideLine kInside = {0, 1, 3, 1, 2};

/// What is expected: "in0 in1 out0 out1", or "none".
struct Guide
{
    const char* outline;
    SGuideLine settings;
    const char *expected, *outlineAfter = nullptr;
};
const Guide kGuides[] = {
    {"0,0 10,0 10,10", kBoth, "-3,0 0,0 10,10 10,12"},
    {"0,0 10,0 10,10", {1, -1, 3, 1, 0}, "-3,0 0,0 10,10 10,10"},
    {"0,0 10,0 10,10", {1, 0, 3, 1, 2}, "0,0 0,0 10,10 10,12"},
    {"0,0 10,0 10,10", {1, 1, -1, 0, 2}, "none"},
    {"| 0,0 10,0 10,10", kBoth, "-3,0 0,0 10,10 10,12", "0,0 10,0 10,10"},  // the first separator goes
    {"| 0,0 10,0", {1, 0, 3, 0, 2}, "none", "0,0 10,0"},                    // in any case
    {"100,100 110,100 110,110 |", kBoth, "97,100 100,100 110,110 110,112"}, // the others are no points
    {"| | 100,100 110,100 110,110", kBoth, "97,100 100,100 110,110 110,112", "| 100,100 110,100 110,110"},
    {"| 0,0 10,0 | 30,30 30,40", kBoth, "-3,0 0,0 30,40 30,42", "0,0 10,0 | 30,30 30,40"}, // from the first run
    {"| 0,0 | 30,30 30,40", kBoth, "none", "0,0 | 30,30 30,40"},                           // to the last one
    {"100,100 100.00000000001,100 110,100 110,110 110,110", kBoth, "97,100 100,100 110,110 110,112"},
    {"5,5 5,5 5,5", kBoth, "none"},
    {"0,0 0.0000001,0 10,0", kBoth, "none"}, // neither equal nor long enough
    {SQUARE, kBoth, "-3,0 0,0 0,0 0,-2"},
    {SQUARE, {0, 1, 3, 0, 2}, "2.12132,2.12132 0,0 0,0 0,0"}, // inside
    {"| " SQUARE HOLE, kInside, "2.12132,2.12132 0,0 0,0 1.414214,1.414214", SQUARE HOLE},
    // The last point is close enough to close the outline, but differs from the start.
    {"0,0 10,0 10,10 0,10 0.0000005,0", kInside, "3,0 0,0 0,0 2,0"},
    {"5,0 10,0 10,10 0,10 0,0 5,0", kInside, "5,-3 5,0 5,0 5,-2"},
    // In single precision the two directions are opposite: the normal counts, not the bisector (0,1).
    {"5,0 10,0.00001 10,10 0,10 0,0 5,0", kInside, "5,-3 5,0 5,0 5,-2"}};

TEST(ShapeVectorGuide, points)
{
    for (const Guide& row : kGuides) {
        CShapeVector shape = Vector(EVECTOR_MIXED, row.outline);
        shape.SetGuideLine(row.settings);
        const std::string before = Outline(shape);
        QPointF out[4];
        const bool found = shape.GetGuideLinePoints(out);
        EXPECT_EQ(found ? Point(out[0]) + " " + Point(out[1]) + " " + Point(out[2]) + " " + Point(out[3]) : "none",
                  row.expected)
            << row.outline;
        EXPECT_EQ(Outline(shape), row.outlineAfter ? row.outlineAfter : before);
    }
}

} // namespace
