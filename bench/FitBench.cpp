/// Curve fitting by the reference plug-in: size, deviation and corners over generated outlines, and points per second
/// beside a bare pass over the same points.
#include "OutlineCorpus.h"
#include "RunFitter.h"
#include "support/FlattenedCurves.h"
#include "support/OutlineDeviation.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

namespace {

using curvesimulate::FitRun;
using curvesimulate::Outline;

constexpr int kOutlines = 500;

const std::vector<GeneratedOutline>& Corpus()
{
    static const std::vector<GeneratedOutline> corpus = OutlineCorpus(kOutlines);
    return corpus;
}

std::vector<QPointF> FlattenedCircle()
{
    QPainterPath path;
    path.addEllipse(0, 0, 100, 100);
    return test::FlattenedFinely(path);
}

/// Sums over the outlines of one kind, shown as counters. Lengths in model units.
class Report
{
public:
    void Add(const std::vector<QPointF>& points)
    {
        const Outline fitted = FitRun(points);
        const test::FitQuality quality = test::Compare(points, fitted.points, fitted.types);
        m_before += static_cast<double>(points.size());
        m_after += static_cast<double>(fitted.points.size());
        m_deviation = std::max(m_deviation, quality.deviation);
        m_lost += quality.cornersLost;
        m_invented += quality.cornersInvented;
    }

    void Show(benchmark::State& state) const
    {
        state.counters["before"] = m_before;
        state.counters["after"] = m_after;
        state.counters["ratio"] = m_after / m_before;
        state.counters["deviation"] = m_deviation;
        state.counters["lost"] = m_lost;
        state.counters["invented"] = m_invented;
        state.counters["points/s"] =
            benchmark::Counter(m_before * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    }

private:
    double m_before = 0, m_after = 0, m_deviation = 0, m_lost = 0, m_invented = 0;
};

/// 100 units across; the library keeps it with one separator more.
void FitCircle(benchmark::State& state)
{
    const std::vector<QPointF> circle = FlattenedCircle();
    for (auto _ : state)
        benchmark::DoNotOptimize(FitRun(circle));
    Report report;
    report.Add(circle);
    report.Show(state);
}
BENCHMARK(FitCircle)->Unit(benchmark::kMicrosecond);

void FitKind(benchmark::State& state)
{
    const auto wanted = [kind = state.range(0)](const GeneratedOutline& outline) {
        return kind < 0 || static_cast<int64_t>(outline.kind) == kind;
    };
    for (auto _ : state) {
        for (const GeneratedOutline& outline : Corpus()) {
            if (wanted(outline))
                benchmark::DoNotOptimize(FitRun(outline.points));
        }
    }
    Report report;
    for (const GeneratedOutline& outline : Corpus()) {
        if (wanted(outline))
            report.Add(outline.points);
    }
    report.Show(state);
    state.SetLabel(state.range(0) < 0 ? "all" : KindName(static_cast<OutlineKind>(state.range(0))));
}
BENCHMARK(FitKind)->DenseRange(-1, 6)->Unit(benchmark::kMillisecond)->MinTime(0.2);

/// Letters and ellipses 60 units high as other programs draw them: in chords that leave the curve by up to 0.27 of the
/// magnification's reciprocal. The deviation is that from the chords, their own distance from the curve included.
void FitChords(benchmark::State& state)
{
    std::vector<std::vector<QPointF>> runs;
    for (const QPainterPath& path : test::CurvedPaths(60)) {
        for (auto& run : test::AllFlattened(path, static_cast<double>(state.range(0))))
            runs.push_back(std::move(run));
    }
    for (auto _ : state) {
        for (const std::vector<QPointF>& run : runs)
            benchmark::DoNotOptimize(FitRun(run));
    }
    Report report;
    for (const std::vector<QPointF>& run : runs)
        report.Add(run);
    report.Show(state);
}
BENCHMARK(FitChords)->ArgName("magnification")->RangeMultiplier(4)->Range(4, 256)->Unit(benchmark::kMillisecond);

/// Points per second must not fall with their number: a spiral of ever more turns.
void FitLongRun(benchmark::State& state)
{
    std::vector<QPointF> spiral;
    for (int64_t i = 0; i < state.range(0); ++i) {
        const double angle = 0.02 * static_cast<double>(i);
        spiral.push_back((5 + angle) * QPointF(std::cos(angle), std::sin(angle)));
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(FitRun(spiral));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(FitLongRun)->RangeMultiplier(10)->Range(1'000, 1'000'000)->Unit(benchmark::kMillisecond);

/// The limit: the same points copied and their lengths summed.
void PassOverPoints(benchmark::State& state)
{
    int64_t count = 0;
    for (auto _ : state) {
        count = 0;
        for (const GeneratedOutline& outline : Corpus()) {
            std::vector<QPointF> copy = outline.points;
            double length = 0;
            for (size_t i = 1; i < copy.size(); ++i) {
                const QPointF edge = copy[i] - copy[i - 1];
                length += std::sqrt(QPointF::dotProduct(edge, edge));
            }
            benchmark::DoNotOptimize(length);
            count += static_cast<int64_t>(copy.size());
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(PassOverPoints)->Unit(benchmark::kMillisecond);

} // namespace
