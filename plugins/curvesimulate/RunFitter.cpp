#include "RunFitter.h"

#include "Plane.h"
#include "Tangents.h"

#include <algorithm>
#include <tuple>

namespace curvesimulate {

namespace {

constexpr double kLargestNumber = 1e9;  ///< larger coordinates have too few digits to express the tolerance
constexpr double kLargestShare = 1e-4;  ///< largest tolerance, as a share of the run's larger extent
constexpr size_t kLeastSegments = 4;    ///< a cubic has three points itself and must replace at least this many
constexpr double kStraightSlope = 0.01; ///< deviation per length up to which a whole stretch counts as straight
constexpr size_t kFewSegments = 48;     ///< up to this many, the tangents are fitted together with the cubic
constexpr size_t kSearchGrain = 16;     ///< the longest stretch is found to within 1/16 of its length

/// Rewrites one trace, piece by piece.
class TraceFitter
{
public:
    TraceFitter(const Trace& trace, const Limits& limits)
        : m_trace(trace), m_limits(limits), m_chords(JudgeChords(trace, limits)), m_tangents(trace, m_chords, limits)
    {}

    Outline Fit()
    {
        AddStraight(m_trace.first);
        for (size_t from = m_trace.first; from < m_trace.last;) {
            size_t to = from + 1;
            while (to < m_trace.last && !m_chords.breaks[to])
                ++to;
            FitStretch(from, to);
            from = to;
        }
        return std::move(m_outline);
    }

private:
    Stretch Between(size_t from, size_t to) const
    {
        return {std::span(m_trace.points).subspan(from, to - from + 1),
                std::span(m_trace.lengths).subspan(from, to - from + 1),
                std::span(m_chords.bulges).subspan(from, to - from)};
    }

    void AddStraight(size_t i)
    {
        m_outline.points.push_back(m_trace.points[i]);
        m_outline.types.push_back(0);
    }

    void AddCubic(const Cubic& cubic)
    {
        m_outline.points.insert(m_outline.points.end(), {cubic.p1, cubic.p2, cubic.p3});
        m_outline.types.insert(m_outline.types.end(), 3, 1);
        Follow(cubic);
    }

    /// Whether the vertices between lie on the straight segment, in its order.
    bool IsStraight(size_t from, size_t to) const
    {
        const QPointF a = m_trace.points[from];
        const QPointF along = m_trace.points[to] - a;
        const double deviation = std::min(0.5 * m_limits.tolerance, kStraightSlope * Length(along));
        double reached = 0.0;
        for (size_t i = from + 1; i < to; ++i) {
            const double at = Dot(m_trace.points[i] - a, along);
            if (at < reached || SegmentDistance2(m_trace.points[i], a, a + along) > deviation * deviation)
                return false;
            reached = at;
        }
        return to > from + 1 && Length(along) > 0.0;
    }

    /// A cubic along the estimated tangents. Over few vertices the estimates are uncertain: there the cubic may deviate
    /// from them, except where it must join another piece smoothly.
    std::optional<Cubic> Try(size_t from, size_t to)
    {
        const Stretch stretch = Between(from, to);
        End start{m_leaving, 0.0}, end{m_tangents.Arriving(to), 0.0};
        auto cubic = m_fitter.Fit(stretch, start, end, m_limits.Fit());
        if (!cubic && to - from <= kFewSegments) {
            start.freedom = m_startIsFree ? m_tangents.LeavingFreedom(from) : 0.0;
            end.freedom = m_tangents.ArrivingFreedom(to);
            cubic = m_fitter.Fit(stretch, start, end, m_limits.Fit());
        }
        return cubic && !MakesCorner(*cubic, from, to) ? cubic : std::nullopt;
    }

    /// Whether the cubic meets the edge before or after it in a corner where the trace has none.
    bool MakesCorner(const Cubic& cubic, size_t from, size_t to) const
    {
        const auto& points = m_trace.points;
        return (!m_trace.corner[from] &&
                Turn(points[from] - points[from - 1], cubic.p1 - cubic.p0) >= m_limits.corner) ||
               (!m_trace.corner[to] && Turn(cubic.p3 - cubic.p2, points[to + 1] - points[to]) >= m_limits.corner);
    }

    /// A smooth stretch between two breaks: a straight edge, or the longest cubics one after the other.
    void FitStretch(size_t from, size_t to)
    {
        if (IsStraight(from, to)) {
            AddStraight(to);
            return;
        }
        Leave(from);
        size_t length = to - from;
        while (to - from >= kLeastSegments) {
            const auto [end, cubic] = LongestCubic(from, to, length);
            if (cubic && end < to && to - end < (end - from) / 2 && AddTwoCubics(from, to))
                return;
            if (cubic) {
                AddCubic(*cubic);
                length = end - from;
                from = end;
            } else {
                AddStraight(++from);
                Leave(from);
                length = kLeastSegments;
            }
        }
        while (from < to)
            AddStraight(++from);
    }

    /// The next cubic begins at a vertex, and not at the last cubic's end.
    void Leave(size_t from)
    {
        m_leaving = m_tangents.Leaving(from);
        m_startIsFree = true;
    }

    /// Two cubics of equal length, in place of the longest one and a short rest.
    bool AddTwoCubics(size_t from, size_t to)
    {
        const size_t middle = from + (to - from) / 2;
        const auto first = middle - from >= kLeastSegments ? Try(from, middle) : std::nullopt;
        if (!first)
            return false;
        const auto before = std::pair(m_leaving, m_startIsFree);
        Follow(*first);
        const auto second = Try(middle, to);
        if (!second) {
            std::tie(m_leaving, m_startIsFree) = before;
            return false;
        }
        AddCubic(*first);
        AddCubic(*second);
        return true;
    }

    void Follow(const Cubic& cubic)
    {
        m_leaving = Unit(cubic.p3 - cubic.p2);
        m_startIsFree = false;
    }

    struct Reach
    {
        size_t end = 0;
        std::optional<Cubic> cubic;
    };

    /// The longest cubic from a vertex on, found by doubling or halving from a first guess and then by bisection.
    Reach LongestCubic(size_t from, size_t to, size_t guess)
    {
        Reach best;
        size_t failed = to - from + 1;
        for (size_t length = std::clamp(guess, kLeastSegments, to - from);;) {
            if (auto cubic = Try(from, from + length))
                best = {from + length, cubic};
            else
                failed = length;
            const size_t held = best.cubic ? best.end - from : 0;
            if (failed <= kLeastSegments || failed - held <= 1 + held / kSearchGrain)
                return best;
            if (held == 0)
                length = std::max(kLeastSegments, failed / 2);
            else if (failed > to - from)
                length = std::min(2 * held, to - from);
            else
                length = held + (failed - held) / 2;
        }
    }

    const Trace& m_trace;
    const Limits& m_limits;
    Chords m_chords;
    Tangents m_tangents;
    CubicFitter m_fitter;
    QPointF m_leaving;          ///< tangent with which the next cubic begins
    bool m_startIsFree = false; ///< no cubic ends where the next begins
    Outline m_outline;
};

bool Usable(std::span<const QPointF> run)
{
    return run.size() > 2 && std::all_of(run.begin(), run.end(), [](const QPointF& p) {
               return std::abs(p.x()) <= kLargestNumber && std::abs(p.y()) <= kLargestNumber;
           });
}

double LargerExtent(std::span<const QPointF> run)
{
    const auto [left, right] = std::ranges::minmax(run, {}, [](const QPointF& p) { return p.x(); });
    const auto [top, bottom] = std::ranges::minmax(run, {}, [](const QPointF& p) { return p.y(); });
    return std::max(right.x() - left.x(), bottom.y() - top.y());
}

} // namespace

Outline FitRun(std::span<const QPointF> run, Limits limits)
{
    if (Usable(run)) {
        limits.tolerance = std::min(limits.tolerance, kLargestShare * LargerExtent(run));
        Trace trace = MakeTrace(run, limits);
        if (trace.points.size() > 2) {
            trace = Thinned(trace, limits);
            Outline fitted = TraceFitter(trace, limits).Fit();
            if (fitted.points.size() < run.size())
                return fitted;
        }
    }
    return {{run.begin(), run.end()}, std::vector<unsigned char>(run.size(), 0)};
}

} // namespace curvesimulate
