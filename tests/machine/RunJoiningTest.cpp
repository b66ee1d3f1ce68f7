// Ends that meet become one run.
#include "machine/RunJoining.h"
#include "machine/JobText.h"

#include <gtest/gtest.h>

using namespace shapedocument;

namespace {

struct JoiningRow
{
    const char* name;
    const char* runs;
    const char* joined; ///< at 0.05 mm
};

const JoiningRow kJoinings[] = {
    {"four_lines_either_way_make_a_closed_run", "0,0 10,0; 10,10 10,0; 0,10 0,0; 10,10 0,10",
     "1: 0,0 10,0 10,10 0,10 0,0"},
    {"gaps_are_bridged", "0,0 10,0; 10,0.03 10,10; 10,10 0,0.04", "1: 0,0 10,0 10,0.03 10,10 0,0.04 0,0"},
    {"too_wide_a_gap", "0,0 10,0; 10.06,0 20,0", "1: 0,0 10,0; 2: 10.06,0 20,0"},
    {"nearest_first", "0,0 10,0; 10.04,0 20,0; 10,0.02 10,9", "1: 0,0 10,0 10,0.02 10,9; 2: 10.04,0 20,0"},
    {"colours_apart", "0,0 10,0; * 10,0 20,0", "1: 0,0 10,0; 2: 10,0 20,0"},
    {"leads_stay", "> 1: 0,0 10,0; 1: 10,0 20,0; 2: 20,0 30,0", "1: 0,0 10,0; 1: 10,0 20,0; 2: 20,0 30,0"},
    {"closed_runs_stay", "0,0 5,0 5,5 0,0; 0,0 -5,0", "1: 0,0 5,0 5,5 0,0; 2: 0,0 -5,0"},
    {"turned_round_arcs_turn_the_other_way", "0,0 10,0; 20,0(0.5) 15,5 10,0", "1: 0,0 10,0 15,5(-0.5) 20,0"},
    {"arc_behind_a_gap", "0,0 10,0; 10,0.02(1) 20,0", "1: 0,0 10,0 10,0.02(1) 20,0"},
    {"own_ends_close_a_long_run_only", "0,0 5,0 5,5 0,0.03; 50,0 50.04,0",
     "1: 0,0 5,0 5,5 0,0.03 0,0; 2: 50,0 50.04,0"},
    {"joined_run_stands_where_its_first_stood", "0,0 1,0; 50,0 60,0; 0,0 0,1", "1: 0,1 0,0 1,0; 2: 50,0 60,0"},
    {"lines_that_go_on_straight_become_one", "= 0,0 4,0.004; = 7,-0.004 4,0.004; = 7,-0.004 10,0; = 10,0 10,5",
     "1: 0,0 10,0 10,5"},
    {"what_has_been_thinned_is_not_thinned_again", "0,0 4,0.004; = 4,0.004 10,0", "1: 0,0 4,0.004 10,0"},
    {"two_squares_at_a_corner_stay_squares", "0,0 9,0; 9,0 0,9; 0,9 0,0; 0,0 -9,0; -9,0 0,-9; 0,-9 0,0",
     "1: 0,0 9,0 0,9 0,0; 4: 0,0 -9,0 0,-9 0,0"},
};

class RunJoining : public testing::TestWithParam<JoiningRow>
{};

} // namespace

TEST_P(RunJoining, gives)
{
    EXPECT_EQ(TextOf(JoinRuns(JobOf(GetParam().runs), 0.05, "test")), GetParam().joined);
}

INSTANTIATE_TEST_SUITE_P(Rows, RunJoining, testing::ValuesIn(kJoinings),
                         [](const auto& row) { return row.param.name; });

TEST(RunJoining, takes_no_longer_where_all_ends_are_near_each_other)
{
    std::vector<TestRun> runs; // ends within 0.01 mm, all different: every pair would be 2 million
    for (int i = 0; i < 2'000; ++i)
        runs.push_back({0, {{{i * 5e-7, 0}}, {{0, 10.0 + i}}}});
    EXPECT_EQ(JoinRuns(JobOf(runs), 0.05, "test").PathCount(), 1'000u);
}
