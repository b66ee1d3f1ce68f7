#include "Trace.h"

#include "Plane.h"

#include <numbers>

namespace curvesimulate {

namespace {

constexpr double kSamePoint = 1e-6; ///< model units within which a run counts as closed
constexpr double kSameTurn = 1e-6;  ///< radians by which a turn may miss the limit through rounding
constexpr size_t kOverlap = 64;     ///< vertices by which a closed run is continued
constexpr size_t kLookAround = 64;  ///< vertices examined on each side of a possible corner, at most
constexpr double kLookDistance = 8; ///< tolerances; how far a possible corner is examined on each side

void MeasureLengths(Trace& trace)
{
    trace.lengths.resize(trace.points.size());
    double length = 0.0;
    for (size_t i = 0; i < trace.points.size(); ++i) {
        length += i > 0 ? Length(trace.points[i] - trace.points[i - 1]) : 0.0;
        trace.lengths[i] = length;
    }
}

/// The point of the trace at a distance along it from vertex i; step is +1 or -1. Nearer when the trace ends before, or
/// has more than kLookAround vertices on the way.
QPointF PointAway(const Trace& trace, size_t i, int step, double distance)
{
    const size_t end = step > 0 ? trace.points.size() - 1 : 0;
    size_t at = i;
    for (size_t n = 0; n < kLookAround && at != end; ++n) {
        const size_t next = at + static_cast<size_t>(step);
        const double reached = std::abs(trace.lengths[next] - trace.lengths[i]);
        if (reached >= distance) {
            const double before = std::abs(trace.lengths[at] - trace.lengths[i]);
            return trace.points[at] +
                   (trace.points[next] - trace.points[at]) * ((distance - before) / (reached - before));
        }
        at = next;
    }
    return trace.points[at];
}

/// A vertex that turns sharply is a corner unless it is noise: seen from a few tolerances away the trace is smooth
/// there, and the vertex lies no farther off than the tolerance.
bool IsCorner(const Trace& trace, size_t i, const Limits& limits)
{
    if (TurnAt(trace, i) < limits.corner - kSameTurn)
        return false;
    const QPointF here = trace.points[i];
    const QPointF before = PointAway(trace, i, -1, kLookDistance * limits.tolerance);
    const QPointF after = PointAway(trace, i, +1, kLookDistance * limits.tolerance);
    return Turn(here - before, after - here) > limits.corner ||
           SegmentDistance2(here, before, after) > limits.tolerance * limits.tolerance;
}

void Continue(Trace& trace)
{
    const size_t count = trace.points.size() - 1;
    const size_t overlap = std::min(kOverlap, count - 1);
    std::vector<QPointF> points(trace.points.end() - 1 - static_cast<std::ptrdiff_t>(overlap), trace.points.end() - 1);
    points.insert(points.end(), trace.points.begin(), trace.points.end());
    points.insert(points.end(), trace.points.begin() + 1,
                  trace.points.begin() + 1 + static_cast<std::ptrdiff_t>(overlap));
    trace.points = std::move(points);
    trace.first = overlap;
    trace.last = overlap + count;
}

/// Directions from one vertex that pass all later vertices within a distance.
class Sector
{
public:
    explicit Sector(QPointF apex, double distance) : m_apex(apex), m_distance(distance) {}

    /// Whether the line to p passes all vertices added so far, and p is farther away than they are.
    bool Reaches(QPointF p) const
    {
        const QPointF along = p - m_apex;
        return Length(along) > m_farthest &&
               (m_farthest == 0.0 || (Cross(m_right, along) >= 0.0 && Cross(along, m_left) >= 0.0));
    }

    void Add(QPointF p)
    {
        const QPointF along = p - m_apex;
        const double length = Length(along);
        const QPointF aside = QPointF(-along.y(), along.x()) * (m_distance / length);
        const QPointF left = along + aside;
        const QPointF right = along - aside;
        m_left = m_farthest == 0.0 || Cross(left, m_left) > 0.0 ? left : m_left;
        m_right = m_farthest == 0.0 || Cross(m_right, right) > 0.0 ? right : m_right;
        m_farthest = length;
    }

private:
    QPointF m_apex;
    double m_distance;
    double m_farthest = 0.0;
    QPointF m_left, m_right; ///< bounding directions
};

} // namespace

double TurnAt(const Trace& trace, size_t i)
{
    return Turn(trace.points[i] - trace.points[i - 1], trace.points[i + 1] - trace.points[i]);
}

Trace MakeTrace(std::span<const QPointF> run, const Limits& limits)
{
    Trace trace;
    trace.points.reserve(run.size());
    for (const QPointF& point : run)
        if (trace.points.empty() || Length(point - trace.points.back()) > 0.0)
            trace.points.push_back(point);
    trace.last = trace.points.size() - 1;
    if (trace.points.size() > 3 && Length(trace.points.front() - trace.points.back()) <= kSamePoint)
        Continue(trace);
    MeasureLengths(trace);
    trace.corner.assign(trace.points.size(), 0);
    trace.corner.front() = trace.corner.back() = 1;
    for (size_t i = 1; i + 1 < trace.points.size(); ++i)
        trace.corner[i] = IsCorner(trace, i, limits);
    return trace;
}

Trace Thinned(const Trace& trace, const Limits& limits)
{
    Trace thinned;
    const auto keep = [&](size_t i) {
        thinned.first = i == trace.first ? thinned.points.size() : thinned.first;
        thinned.last = i == trace.last ? thinned.points.size() : thinned.last;
        thinned.points.push_back(trace.points[i]);
        thinned.corner.push_back(trace.corner[i]);
    };
    keep(0);
    Sector sector(trace.points[0], limits.Thinning());
    for (size_t i = 1; i < trace.points.size(); ++i) {
        const QPointF previous = trace.points[i - 1];
        if (!sector.Reaches(trace.points[i])) {
            keep(i - 1);
            sector = Sector(previous, limits.Thinning());
        }
        sector.Add(trace.points[i]);
        if (i + 1 == trace.points.size() || trace.corner[i] || i == trace.first || i == trace.last) {
            keep(i);
            sector = Sector(trace.points[i], limits.Thinning());
        }
    }
    MeasureLengths(thinned);
    return thinned;
}

} // namespace curvesimulate
