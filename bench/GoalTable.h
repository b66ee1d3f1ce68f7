/// The table that the benchmarks print.
#pragma once

#include <benchmark/benchmark.h>

namespace bench {

/// A Markdown table: a line per row with its goal, a line per benchmark without one, and at the end how many goals are
/// met.
class GoalTable : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    void ReportRow(const Run& run);

    int m_goals = 0;
    int m_met = 0;
};

} // namespace bench
