#include "Tangents.h"

#include "Plane.h"

#include <limits>
#include <numbers>

namespace curvesimulate {

namespace {

constexpr size_t kWidest = 32;       ///< vertices that an estimate uses on each side, at most
constexpr double kLeastNoise = 0.02; ///< tolerances; vertices are assumed to miss the curve by at least this

/// How far a tangent estimated beside a turn may be off, as a share of that turn.
constexpr double kUncertain = 0.35;

/// Least-squares parabola through one vertex, over the length along the trace: vertex + slope * s + bend * s * s.
struct Parabola
{
    QPointF slope, bend;
    double missed = 0.0; ///< root mean square of the vertices' distances
};

Parabola FitParabola(const Trace& trace, size_t vertex, size_t from, size_t to)
{
    double s2 = 0.0, s3 = 0.0, s4 = 0.0;
    QPointF first, second;
    for (size_t i = from; i <= to; ++i) {
        const double s = trace.lengths[i] - trace.lengths[vertex];
        const QPointF off = trace.points[i] - trace.points[vertex];
        s2 += s * s;
        s3 += s * s * s;
        s4 += s * s * s * s;
        first += off * s;
        second += off * (s * s);
    }
    Parabola parabola;
    if (!(s2 > 0)) { // The window is so short that its lengths along the run are all equal.
        parabola.missed = std::numeric_limits<double>::infinity();
        return parabola;
    }
    const double determinant = s2 * s4 - s3 * s3;
    if (to - from < 2 || !(determinant > 1e-12 * s2 * s4)) {
        parabola.slope = first / s2;
    } else {
        parabola.slope = (first * s4 - second * s3) / determinant;
        parabola.bend = (second * s2 - first * s3) / determinant;
    }
    for (size_t i = from; i <= to; ++i) {
        const double s = trace.lengths[i] - trace.lengths[vertex];
        const QPointF off = trace.points[i] - trace.points[vertex] - parabola.slope * s - parabola.bend * (s * s);
        parabola.missed += Dot(off, off);
    }
    parabola.missed = std::sqrt(parabola.missed / static_cast<double>(to - from + 1));
    return parabola;
}

} // namespace

Tangents::Tangents(const Trace& trace, const Chords& chords, const Limits& limits)
    : m_trace(trace), m_chords(chords), m_limits(limits), m_smooth(trace.points.size())
{}

// Wider windows average the noise of a trace, narrower ones follow the curve: the window with the least expected error
// of the slope wins (the parabola's misses over its reach and the root of its number of vertices). It must not turn
// away from the tangent of the nearest vertices by more than the trace turns here: a wide window can miss how tightly a
// curve begins to bend.
QPointF Tangents::Estimate(size_t i, bool before, bool after) const
{
    double least = std::numeric_limits<double>::max();
    QPointF tangent, nearest;
    const double allowed = i > 0 && i + 1 < m_trace.points.size() ? TurnAt(m_trace, i) : std::numbers::pi;
    size_t from = i, to = i;
    for (size_t reach = 1, goal = before && after ? 1 : 2; goal <= kWidest; goal *= 2) {
        const size_t lastFrom = from, lastTo = to;
        for (; reach <= goal; ++reach) {
            from -= before && from > 0 && (from == i || !m_chords.breaks[from]) ? 1U : 0U;
            to += after && to + 1 < m_trace.points.size() && (to == i || !m_chords.breaks[to]) ? 1U : 0U;
        }
        if (from == lastFrom && to == lastTo)
            break;
        const Parabola parabola = FitParabola(m_trace, i, from, to);
        const double missed = std::max(parabola.missed, kLeastNoise * m_limits.tolerance);
        const double error = missed / ((m_trace.lengths[to] - m_trace.lengths[from]) * std::sqrt(to - from));
        const QPointF direction = Unit(parabola.slope);
        if (error < least && (tangent.isNull() || Turn(nearest, direction) <= allowed)) {
            least = error;
            tangent = direction;
        }
        nearest = nearest.isNull() ? direction : nearest;
    }
    return tangent;
}

QPointF Tangents::Smooth(size_t i)
{
    if (m_smooth[i].isNull())
        m_smooth[i] = Estimate(i, true, true);
    return m_smooth[i];
}

/// The direction of a straight edge if the tangent is close to it, else the tangent. The more the trace turns at vertex
/// i between them, the less certain the tangent is.
QPointF Tangents::JoinedTo(size_t edge, size_t i, QPointF tangent) const
{
    const QPointF direction = Unit(m_trace.points[edge + 1] - m_trace.points[edge]);
    const double close = std::max(m_limits.kink, kUncertain * TurnAt(m_trace, i));
    return m_chords.straight[edge] && Turn(direction, tangent) < close ? direction : tangent;
}

QPointF Tangents::Leaving(size_t i)
{
    if (!m_chords.breaks[i])
        return Smooth(i);
    const QPointF tangent = Estimate(i, false, true);
    return i > 0 ? JoinedTo(i - 1, i, tangent) : tangent;
}

QPointF Tangents::Arriving(size_t i)
{
    if (!m_chords.breaks[i])
        return Smooth(i);
    const QPointF tangent = Estimate(i, true, false);
    return i + 1 < m_trace.points.size() ? JoinedTo(i, i, tangent) : tangent;
}

double Tangents::LeavingFreedom(size_t i)
{
    if (!m_chords.breaks[i])
        return SmoothFreedom(i);
    const bool joined = i > 0 && Leaving(i) == Unit(m_trace.points[i] - m_trace.points[i - 1]);
    return joined ? 0.0 : kUncertain * TurnAt(m_trace, i + 1);
}

double Tangents::ArrivingFreedom(size_t i)
{
    if (!m_chords.breaks[i])
        return SmoothFreedom(i);
    const bool joined = i + 1 < m_trace.points.size() && Arriving(i) == Unit(m_trace.points[i + 1] - m_trace.points[i]);
    return joined ? 0.0 : kUncertain * TurnAt(m_trace, i - 1);
}

/// A closed run's first and last cubic meet in the tangent itself.
double Tangents::SmoothFreedom(size_t i) const
{
    return i == m_trace.first || i == m_trace.last ? 0.0 : kUncertain * TurnAt(m_trace, i);
}

} // namespace curvesimulate
