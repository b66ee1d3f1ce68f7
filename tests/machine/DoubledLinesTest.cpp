// Lines that lie on each other are cut once.
#include "machine/DoubledLines.h"
#include "machine/JobText.h"
#include "machine/NearPieces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>

using namespace shapedocument;

namespace {

struct DoubledRow
{
    const char* name;
    const char* runs;
    const char* once;
    size_t count;
    double length;
};

/// The bulge of a quarter circle is the tangent of 22.5 degrees, 0.414213562373095.
const DoubledRow kRows[] = {
    {"same_line_the_other_way", "0,0 10,0; 10,0.015 0,0.015", "1: 0,0 10,0", 1, 10},
    {"overlap", "0,0 10,0; 5,0 15,0", "1: 0,0 10,0; 2: 10,0 15,0", 1, 5},
    {"middle", "10,0 20,0; 0,0 30,0", "1: 10,0 20,0; 2: 0,0 10,0; 2: 20,0 30,0", 1, 10},
    {"hatch_of_0.02", "0,0 10,0; 0,0.02 10,0.02", "1: 0,0 10,0; 2: 0,0.02 10,0.02", 0, 0},
    {"hatch_that_is_too_dense_is_thinned_not_lost", "0,0 10,0; 0,0.015 10,0.015; 0,0.03 10,0.03",
     "1: 0,0 10,0; 3: 0,0.03 10,0.03", 1, 10},
    {"colours_apart", "0,0 10,0; * 0,0 10,0", "1: 0,0 10,0; 2: 0,0 10,0", 0, 0},
    {"crossing", "0,0 10,0; 0,0.5 10,-0.5", "1: 0,0 10,0; 2: 0,0.5 10,-0.5", 0, 0},
    {"touching_end_to_end", "0,0 10,0; 10,0 20,0", "1: 0,0 10,0; 2: 10,0 20,0", 0, 0},
    {"there_and_back", "0,0 10,0 0,0", "1: 0,0 10,0", 1, 10},
    {"tip_of_a_star", "0,0 10,0.3 0,0.6", "1: 0,0 10,0.3 0,0.6", 0, 0},
    {"shared_edge_of_squares", "0,0 10,0 10,10 0,10 0,0; 20,0 20,10 10,10 10,0 20,0",
     "1: 0,0 10,0 10,10 0,10 0,0; 2: 10,0 20,0 20,10 10,10", 1, 10},
    {"leads_of_a_double_go_with_it", "0,0 10,0; > 2: 0,5 0,0; 2: 0,0 10,0; < 2: 10,0 10,5", "1: 0,0 10,0", 1, 10},
    {"a_lead_stays_where_its_cut_still_begins", "10,0 20,0; > 2: 0,5 0,0; 2: 0,0 20,0; < 2: 20,0 20,5",
     "1: 10,0 20,0; 2: 0,5 0,0; 2: 0,0 10,0", 1, 10},
    {"whole_small_circle_from_elsewhere", "0.1,0(1) -0.1,0(1) 0.1,0; 0,0.1(-1) 0,-0.1(-1) 0,0.1",
     "1: 0.1,0(1) -0.1,0(1) 0.1,0", 1, 0.628},
    {"part_of_an_arc", "10,0(0.41421356237309503) 0,10; 10,0(1) -10,0", "1: 10,0(0.414) 0,10; 2: 0,10(0.414) -10,0", 1,
     15.708},
    {"leads_stay", "> 0,0 10,0; 0,0 10,0", "1: 0,0 10,0; 2: 0,0 10,0", 0, 0},
};

class DoubledLinesOf : public testing::TestWithParam<DoubledRow>
{};

double CutLength(const MachineJob& job)
{
    double length = 0;
    JobReader reader(job);
    while (reader.NextPath()) { // lines alone
        QPointF from = reader.NextPoint()->point;
        while (const auto to = reader.NextPoint()) {
            length += std::hypot(to->point.x() - from.x(), to->point.y() - from.y());
            from = to->point;
        }
    }
    return length;
}

} // namespace

TEST_P(DoubledLinesOf, are_cut_once)
{
    DoubledLines doubled;
    EXPECT_EQ(TextOf(LeaveOutDoubles(JobOf(GetParam().runs), DoublesOf::Everything, "test", doubled)), GetParam().once);
    EXPECT_EQ(doubled.count, GetParam().count);
    EXPECT_NEAR(doubled.length, GetParam().length, 0.01);
}

/// Lines of 8 mm at any angle, each with a copy 0.01 mm beside its middle, and as many with nothing nearer than 20 mm.
TEST(DoubledLines, pieces_beside_others_are_found_in_bands_of_any_size)
{
    std::vector<TestRun> runs;
    for (int i = 0; i < 200; ++i) {
        const QPointF centre(30.0 * (i % 10), 30.0 * (i / 10));
        const QPointF half(4 * std::cos(i), 4 * std::sin(i)), aside(-0.01 * std::sin(i), 0.01 * std::cos(i));
        runs.push_back({1, {{centre - half}, {centre + half}}});
        if (i % 2 == 0)
            runs.push_back({1, {{centre + half / 2 + aside}, {centre - half / 2 + aside}}});
    }
    const MachineJob job = JobOf(runs);
    const WorkProgress none;
    const WorkWatch watch(none, WorkStep::Doubles);
    for (const size_t mostHeld : {1, 7, 40, 1000}) {
        const std::vector<bool> near = FindNearPieces(job, 100, watch, mostHeld);
        ASSERT_EQ(near.size(), runs.size());
        for (size_t i = 0; i < near.size(); ++i)
            EXPECT_EQ(near[i], i % 3 != 2) << mostHeld << ": " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, DoubledLinesOf, testing::ValuesIn(kRows), [](const auto& row) {
    std::string name = row.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

TEST(LeaveOutDoubles, leaves_out_whole_runs_alone_where_that_is_asked)
{
    const MachineJob job = JobOf("0,0 10,0; 8,0 3,0; 5,0 15,0");
    DoubledLines doubled;
    EXPECT_EQ(TextOf(LeaveOutDoubles(job, DoublesOf::WholeRuns, "test", doubled)), "1: 0,0 10,0; 3: 5,0 15,0");
    EXPECT_NEAR(doubled.length, 5, 1e-4);
    EXPECT_EQ(doubled.first.front().begin, QPointF(8, 0));
}

TEST(LeaveOutDoubles, keeps_the_union_of_random_lines)
{
    std::mt19937 random(1);
    std::set<std::tuple<unsigned int, bool, int, int>> cells; // colour, upright, line, two millimetres
    std::vector<TestRun> runs;
    for (int i = 0; i < 200; ++i) {
        const unsigned int color = random() % 2;
        const bool upright = random() % 2;
        const int line = static_cast<int>(random() % 20), from = static_cast<int>(random() % 60);
        const int to = from + 1 + static_cast<int>(random() % 40);
        for (int cell = from; cell < to; ++cell)
            cells.emplace(color, upright, line, cell);
        const double at = line + 0.5;
        QPointF begin(2 * from, at), end(2 * to, at);
        if (upright)
            std::tie(begin, end) = std::pair(begin.transposed(), end.transposed());
        runs.push_back({color, {{random() % 2 ? begin : end}}});
        runs.back().points.push_back({runs.back().points[0].point == begin ? end : begin});
    }
    DoubledLines doubled;
    const MachineJob all = JobOf(runs);
    const double drawn = CutLength(all);
    const double left = CutLength(LeaveOutDoubles(JobOf(runs), DoublesOf::Everything, "test", doubled));
    EXPECT_NEAR(left, 2.0 * static_cast<double>(cells.size()), 0.01);
    EXPECT_NEAR(left + doubled.length, drawn, 0.01);
}

TEST(LeaveOutDoubles, bears_many_equal_lines)
{
    const std::vector<TestRun> runs(2'000, {0, {{{0, 0}}, {{10, 3}}}});
    DoubledLines doubled;
    EXPECT_EQ(LeaveOutDoubles(JobOf(runs), DoublesOf::Everything, "test", doubled).PathCount(), 1u);
    EXPECT_EQ(doubled.count, 1'999u);
}
