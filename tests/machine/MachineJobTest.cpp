// What a job gives back of the paths that it was given, and its arcs in words.
#include "machine/MachineJob.h"
#include "document/DocumentFile.h"
#include "machine/ArcMoves.h"
#include "machine/JobText.h"
#include "machine/MachinePaths.h"
#include "machine/OutputText.h"

#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <QLineF>

#include <tuple>

using namespace shapedocument;

TEST(MachineJob, gives_back_points_and_bulges_and_knows_closed_paths)
{
    const MachineJob job = JobOf("* 0,0(0.5) 10,0(-1) 0,0; > 0,0 1e-13,0");
    EXPECT_EQ(TextOf(job), "1: 0,0(0.5) 10,0(-1) 0,0; 2: 0,0 0,0");
    JobReader reader(job);
    const auto closed = reader.NextPath();
    EXPECT_TRUE(closed->closed && closed->color == 1 && closed->points == 3);
    reader.NextPoint();
    const auto open = reader.NextPath(); // skips the points that are left
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

TEST(OutputText, rounds_halves_away_from_zero)
{
    // Thirty-seconds are exact: 312.5 ten-thousandths.
    for (const auto& [number, expected] : {std::pair{0.03125, "0.0313"}, {-0.03125, "-0.0313"}, {0.5, "0.5"}}) {
        char text[kLongestNumber + 8];
        EXPECT_EQ(std::string(text, WriteShort(text, number)), expected);
    }
}

TEST(PrepareJob, leads_stand_before_and_behind_their_cut)
{
    const Document document = NewDocument();
    auto* shape = new CShapeVector;
    std::vector<QPointF> points{{0, 0}, {10, 0}, {10, 10}};
    shape->SetShapePoints(points, {0, 0, 0});
    shape->SetVectorType(EVECTOR_POLYLINE);
    shape->SetGuideLine({1, 1, 3, 1, 2});
    document->AddTail(shape);
    const MachineJob job = PrepareJob(*document, {.leads = true}, "test", {}).job;
    EXPECT_EQ(TextOf(job), "1: -3,0 0,0; 1: 0,0 10,0 10,10; 1: 10,10 10,12");
    JobReader reader(job);
    for (const PathKind kind : {PathKind::LeadIn, PathKind::Cut, PathKind::LeadOut})
        EXPECT_EQ(reader.NextPath()->kind, kind);
}

TEST(PrepareJob, tells_of_its_steps_and_stops_in_each_of_them)
{
    const Document document = NewDocument();
    for (const QLineF& line :
         {QLineF(0, 0, 9, 0), {9, 0, 9, 9}, {9, 9, 0, 9}, {0, 9, 0, 0}, {2, 2, 4, 2}, {6, 0, 20, 0}}) {
        auto* shape = new CShapeVector;
        std::vector<QPointF> points{line.p1(), line.p2()};
        shape->SetShapePoints(points, {0, 0});
        document->AddTail(shape);
    }
    std::string steps;
    size_t calls = 0;
    std::vector<size_t> stops; // the last calls of each step
    const auto prepare = [&](size_t most) {
        steps.clear();
        calls = 0;
        PrepareJob(*document, {}, "test", [&](WorkStep step, size_t done, size_t all) {
            EXPECT_TRUE(all == 0 || done <= all);
            const char name = "LJOD"[static_cast<int>(step)];
            if (!steps.ends_with(name)) {
                stops.push_back(calls);
                steps += name;
            }
            return ++calls < most;
        });
    };
    prepare(SIZE_MAX);
    EXPECT_EQ(steps, "LDJODO");
    stops[0] = calls;
    for (const size_t stop : std::vector(stops)) {
        EXPECT_THROW(prepare(stop), Stopped);
        EXPECT_EQ(calls, stop);
    }
}
