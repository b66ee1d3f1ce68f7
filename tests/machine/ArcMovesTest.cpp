// Arcs in the words of G-code and SVG.
#include "machine/ArcMoves.h"

#include <gtest/gtest.h>

using namespace shapedocument;

namespace {

constexpr double kQuarter = 0.41421356237309503; // the tangent of 22.5 degrees

} // namespace

TEST(ArcMoves, of_gcode)
{
    EXPECT_EQ(GcodeMove({10, 0}, {0, 10}, kQuarter), "G3 X0.0000 Y10.0000 I-10.0000 J0.0000");
    EXPECT_EQ(GcodeMove({10, 0}, {0, 10}, -kQuarter), "G2 X0.0000 Y10.0000 I0.0000 J10.0000");
    EXPECT_EQ(GcodeMove({10, 0}, {-10, 0}, -1), "G2 X-10.0000 Y0.0000 I-10.0000 J0.0000");
    EXPECT_EQ(GcodeMove({10, 0}, {0, 10}, 0), "G1 X0.0000 Y10.0000");
    EXPECT_EQ(GcodeMove({10, 0}, {10.00004, 0}, 1), "G1 X10.0000 Y0.0000") << "no full circle";
}

TEST(ArcMoves, of_svg)
{
    EXPECT_EQ(SvgMove({10, 0}, {0, 10}, kQuarter), "A 10.0000,10.0000 0 0 1 0.0000,10.0000");
    EXPECT_EQ(SvgMove({10, 0}, {0, 10}, -kQuarter), "A 10.0000,10.0000 0 0 0 0.0000,10.0000");
    EXPECT_EQ(SvgMove({10, 0}, {0, 10}, 0), "L 0.0000,10.0000");
}
