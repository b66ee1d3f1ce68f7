#include "machine/PointThinning.h"

#include "machine/RunPart.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace shapedocument {

using shapes::Cross;

namespace {

/// How far points may turn back without ending a line, as a part of the reach.
constexpr double kBackwards = 0.1;
/// kBackwards and the cone's blunt tip let a point lie farther from the line than the reach, by at most this factor.
constexpr double kMostBeyond = 1.041;
/// Sine of the cone's widest half angle, about points that are hardly farther away than the reach.
constexpr double kWidest = 0.5;

/// The directions from a vertex in which a line passes every point added so far at no more than reach.
class Cone
{
public:
    Cone(QPointF vertex, double reach) : m_vertex(vertex), m_reach(reach) {}

    /// Returns false, and adds nothing, when no such line is left.
    bool Add(QPointF point)
    {
        const QPointF way = point - m_vertex;
        const double distance = Length(way);
        if (distance < m_farthest - kBackwards * m_reach)
            return false;
        if (distance > m_reach && !Narrow(way, distance))
            return false;
        m_farthest = std::max(m_farthest, distance);
        return true;
    }

    bool Holds(QPointF point) const
    {
        const QPointF way = point - m_vertex;
        return !m_bounded || (Cross(m_right, way) >= 0 && Cross(way, m_left) >= 0);
    }

    /// The end at the distance of the farthest point, in the direction of the last one if the cone holds it, else on
    /// the nearest side.
    QPointF End(QPointF last) const
    {
        if (Holds(last) && Length(last - m_vertex) == m_farthest)
            return last;
        QPointF way = last - m_vertex;
        if (!Holds(last))
            way = Cross(way, m_left) < 0 ? m_left : m_right;
        return Along(way, last);
    }

    /// The ends at that distance on both sides of the cone: round a bend, a line from the outer one goes farthest.
    std::array<QPointF, 2> OuterEnds(QPointF last) const
    {
        return m_bounded ? std::array{Along(m_left, last), Along(m_right, last)} : std::array{last, last};
    }

private:
    QPointF Along(QPointF way, QPointF last) const
    {
        const double length = Length(way);
        return length > 0 ? m_vertex + way * (m_farthest / length) : last;
    }

    bool Narrow(QPointF way, double distance)
    {
        const double sine = std::min(m_reach / distance, kWidest), cosine = std::sqrt(1 - sine * sine);
        QPointF left(way.x() * cosine - way.y() * sine, way.y() * cosine + way.x() * sine);
        QPointF right(way.x() * cosine + way.y() * sine, way.y() * cosine - way.x() * sine);
        if (m_bounded) {
            if (QPointF::dotProduct(way, m_left / Length(m_left) + m_right / Length(m_right)) <= 0)
                return false; // the opposite direction, which the comparisons below would accept
            if (Cross(m_left, left) > 0)
                left = m_left;
            if (Cross(m_right, right) < 0)
                right = m_right;
            if (Cross(right, left) < 0)
                return false;
        }
        m_left = left;
        m_right = right;
        m_bounded = true;
        return true;
    }

    QPointF m_vertex;
    double m_reach;
    bool m_bounded = false;  ///< a point has been farther away than the reach
    QPointF m_left, m_right; ///< the sides; left is turned from +x towards +y
    double m_farthest = 0;
};

size_t CountTaken(QPointF vertex, std::span<const QPointF> points, double reach)
{
    Cone cone(vertex, reach);
    size_t count = 0;
    while (count < points.size() && cone.Add(points[count]))
        ++count;
    return count;
}

/// The end from which the next line takes most of the following points; among equals cone.End(last).
QPointF BestEnd(const Cone& cone, QPointF last, std::span<const QPointF> behind, double reach)
{
    QPointF best = cone.End(last);
    size_t most = CountTaken(best, behind, reach);
    for (const QPointF end : cone.OuterEnds(last))
        if (const size_t count = CountTaken(end, behind, reach); count > most) {
            most = count;
            best = end;
        }
    return best;
}

} // namespace

void AppendThinned(std::span<const QPointF> points, double tolerance, std::vector<QPointF>& thinned)
{
    if (points.size() < 2)
        return;
    const double reach = tolerance / kMostBeyond;
    QPointF vertex = points.front();
    size_t next = 1, limit = points.size();
    while (next < points.size()) {
        Cone cone(vertex, reach);
        const size_t first = next;
        while (next < limit && cone.Add(points[next]))
            ++next;
        const bool ends = next == points.size();
        const QPointF last = points[next - 1];
        if (ends && !cone.Holds(last)) { // The last point must be met: one line for half of the points, then the rest.
            limit = first + (next - first) / 2;
            next = first;
            continue;
        }
        limit = points.size();
        vertex = ends ? last : BestEnd(cone, last, points.subspan(next), reach);
        thinned.push_back(vertex);
    }
}

} // namespace shapedocument
