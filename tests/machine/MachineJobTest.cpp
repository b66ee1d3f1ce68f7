// What a job gives back of the paths that it was given, and its arcs in words.
#include "machine/MachineJob.h"
#include "machine/ArcMoves.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace shapedocument;

TEST(MachineJob, gives_back_points_and_bulges_and_knows_closed_paths)
{
    MachineJob job("test");
    job.Append({1, PathKind::Cut, 0xFF0000}, {{{0, 0}, 0.5}, {{10, 0}, -1}, {{0, 0}, 0}});
    job.Append({2, PathKind::LeadIn, 0}, {{{0, 0}, 0}, {{1e-13, 0}, 0}});
    job.Finish("test");
    JobReader reader(job);

    const auto closed = reader.NextPath();
    ASSERT_TRUE(closed);
    EXPECT_TRUE(closed->closed);
    EXPECT_EQ(closed->points, 3u);
    EXPECT_EQ(reader.NextPoint()->bulge, 0.5);
    const auto middle = reader.NextPoint();
    EXPECT_EQ(middle->point, QPointF(10, 0));
    EXPECT_EQ(middle->bulge, -1);

    const auto open = reader.NextPath(); // skips the point that is left
    ASSERT_TRUE(open);
    EXPECT_FALSE(open->closed) << "the ends are near, not the same";
    EXPECT_EQ(open->kind, PathKind::LeadIn);
    EXPECT_EQ(reader.Points().size(), 2);
    EXPECT_FALSE(reader.NextPath());
}

TEST(ArcMoves, say_arcs_in_gcode_and_svg)
{
    constexpr double kQuarter = 0.41421356237309503; // the tangent of 22.5 degrees
    const std::tuple<QPointF, double, const char*, const char*> rows[] = {
        {{0, 10}, kQuarter, "G3 X0.0000 Y10.0000 I-10.0000 J0.0000", "A 10.0000,10.0000 0 0 1 0.0000,10.0000"},
        {{0, 10}, -kQuarter, "G2 X0.0000 Y10.0000 I0.0000 J10.0000", "A 10.0000,10.0000 0 0 0 0.0000,10.0000"},
        {{-10, 0}, -1, "G2 X-10.0000 Y0.0000 I-10.0000 J0.0000", "A 10.0000,10.0000 0 0 0 -10.0000,0.0000"},
        {{0, 10}, 0, "G1 X0.0000 Y10.0000", "L 0.0000,10.0000"},
        {{10.00004, 0}, 1, "G1 X10.0000 Y0.0000", "L 10.0000,0.0000"}, // no full circle
    };
    for (const auto& [to, bulge, gcode, svg] : rows) {
        EXPECT_EQ(GcodeMoveText({10, 0}, to, bulge), gcode);
        EXPECT_EQ(SvgMoveText({10, 0}, to, bulge), svg);
    }
}
