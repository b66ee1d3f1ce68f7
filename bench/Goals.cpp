#include "Goals.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <deque>
#include <vector>

namespace bench {

namespace {

constexpr double kRoundTime = 0.004; ///< seconds: a side is repeated for at least this long in each round
constexpr double kMostRepeats = 1e6;

std::deque<Row>& Rows()
{
    static std::deque<Row> rows;
    return rows;
}

double CpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// A side, and how often it is repeated so that the clock can measure it.
class Timed
{
public:
    explicit Timed(const Side& side) : m_side(side)
    {
        Seconds(); // warms caches and objects that are made on first use
        m_repeats = std::clamp(std::ceil(kRoundTime / std::max(Seconds(), 1e-9)), 1.0, kMostRepeats);
    }

    /// Per run.
    double Seconds() const
    {
        double spent = 0;
        if (!m_side.prepare) {
            const double start = CpuSeconds();
            for (double i = 0; i < m_repeats; ++i)
                m_side.run();
            spent = CpuSeconds() - start;
        } else {
            for (double i = 0; i < m_repeats; ++i) {
                m_side.prepare();
                const double start = CpuSeconds();
                m_side.run();
                spent += CpuSeconds() - start;
            }
        }
        return spent / m_repeats;
    }

private:
    const Side& m_side;
    double m_repeats = 1;
};

void Show(benchmark::State& state, double subject, double limit, double ratio)
{
    state.counters["subject"] = subject;
    state.counters["limit"] = limit;
    state.counters["ratio"] = ratio;
}

/// A round per iteration; whichever side came first comes second in the next.
void Race(benchmark::State& state, const Row& row)
{
    const Sides sides = row.sides();
    const Timed subject(sides.subject), limit(sides.limit);
    std::vector<double> times, limits, ratios;
    for (auto _ : state) {
        double time = 0, of = 0;
        if (times.size() % 2 == 0) {
            time = subject.Seconds();
            of = limit.Seconds();
        } else {
            of = limit.Seconds();
            time = subject.Seconds();
        }
        times.push_back(time);
        limits.push_back(of);
        ratios.push_back(time / of);
        state.SetIterationTime(time);
    }
    Show(state, Median(times), Median(limits), Median(ratios));
}

void Count(benchmark::State& state, const Row& row)
{
    Amounts amounts{};
    for (auto _ : state) {
        amounts = row.amounts();
        state.SetIterationTime(1e-9);
    }
    Show(state, amounts.subject, amounts.limit, amounts.subject / amounts.limit);
}

} // namespace

bool Register(std::initializer_list<Row> rows)
{
    for (const Row& given : rows) {
        const Row& row = Rows().emplace_back(given);
        const auto measure = row.sides ? Race : Count;
        benchmark::RegisterBenchmark(row.name.c_str(),
                                     [measure, &row](benchmark::State& state) { measure(state, row); })
            ->Iterations(row.sides ? row.rounds : 1)
            ->UseManualTime();
    }
    return true;
}

const Row* FindRow(const std::string& name)
{
    const auto found = std::find_if(Rows().begin(), Rows().end(), [&](const Row& row) { return row.name == name; });
    return found == Rows().end() ? nullptr : &*found;
}

double HeapBytes()
{
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

} // namespace bench
