#include "machine/Contour.h"

#include "machine/Bulge.h"
#include "plane/Length.h"

#include "geometry/Geometry.h"

#include <cmath>

namespace shapedocument {

using shapes::Cross;

namespace {

constexpr double kSagitta = 0.001; // mm

} // namespace

std::vector<QPointF> ChordPoints(JobPoints path)
{
    std::vector<QPointF> points;
    points.reserve(path.size());
    points.push_back(path.front().point);
    for (size_t i = 1; i < path.size(); ++i) {
        const auto& [from, bulge] = path[i - 1];
        const int chords = ChordCount(from, path[i].point, bulge, kSagitta);
        const int count = chords > 1 ? (chords + 1) / 2 * 2 : 1; // even: the middle of an arc is one of the points
        for (int k = 1; k < count; ++k)
            points.push_back(PointOnSegment(from, path[i].point, bulge, static_cast<double>(k) / count));
        points.push_back(path[i].point);
    }
    return points;
}

Box BoxOf(std::span<const QPointF> points)
{
    Box box;
    for (const QPointF& point : points)
        box.Add(Box::Of(point));
    return box;
}

double PolylineLength(std::span<const QPointF> points)
{
    double length = 0;
    for (size_t i = 1; i < points.size(); ++i)
        length += Length(points[i] - points[i - 1]);
    return length;
}

double EnclosedArea(std::span<const QPointF> outline)
{
    double twice = 0; // relative to a point of the outline: it may lie far from 0,0, where digits would be lost
    for (size_t i = 1; i < outline.size(); ++i)
        twice += Cross(outline[i - 1] - outline[0], outline[i] - outline[0]);
    return std::abs(twice) / 2;
}

Contour::Contour(std::vector<QPointF> outline) : m_points(std::move(outline)), m_box(BoxOf(m_points).Grown(kMargin))
{
    SpreadOverSlabs();
}

/// Chooses the number of slabs so that the list of segments stays about as long as the outline, however high its
/// segments are.
void Contour::SpreadOverSlabs()
{
    const size_t count = m_points.size() - 1;
    const double height = m_box.bottom - m_box.top;
    const auto top = [&](size_t i) { return std::min(m_points[i].y(), m_points[i + 1].y()) - kMargin; };
    const auto bottom = [&](size_t i) { return std::max(m_points[i].y(), m_points[i + 1].y()) + kMargin; };
    double heights = 0;
    for (size_t i = 0; i < count; ++i)
        heights += bottom(i) - top(i);
    m_slabs = std::max<size_t>(1, static_cast<size_t>(static_cast<double>(count) * height / heights));
    m_begins.assign(m_slabs + 1, 0);
    for (size_t i = 0; i < count; ++i)
        for (size_t slab = SlabOf(top(i)); slab <= SlabOf(bottom(i)); ++slab)
            ++m_begins[slab + 1];
    for (size_t slab = 0; slab < m_slabs; ++slab) {
        m_cost = std::max(m_cost, m_begins[slab + 1]);
        m_begins[slab + 1] += m_begins[slab];
    }
    m_segments.resize(m_begins.back());
    std::vector<size_t> next(m_begins.begin(), m_begins.end() - 1);
    for (size_t i = 0; i < count; ++i)
        for (size_t slab = SlabOf(top(i)); slab <= SlabOf(bottom(i)); ++slab)
            m_segments[next[slab]++] = static_cast<uint32_t>(i);
}

size_t Contour::SlabOf(double y) const
{
    const double place = (y - m_box.top) / (m_box.bottom - m_box.top) * static_cast<double>(m_slabs);
    return static_cast<size_t>(std::clamp(place, 0.0, static_cast<double>(m_slabs - 1)));
}

bool Contour::Holds(QPointF point) const
{
    if (!m_box.Contains(Box::Of(point)))
        return false;
    const size_t slab = SlabOf(point.y());
    const std::span segments(m_segments.data() + m_begins[slab], m_begins[slab + 1] - m_begins[slab]);
    return Winding(point, segments) != 0 || Passes(point, segments);
}

int Contour::Winding(QPointF point, std::span<const uint32_t> segments) const
{
    int winding = 0;
    for (const uint32_t i : segments) {
        const QPointF from = m_points[i], to = m_points[i + 1];
        const bool down = from.y() <= point.y() && point.y() < to.y();
        const bool up = to.y() <= point.y() && point.y() < from.y();
        if (!down && !up)
            continue;
        const double side = Cross(to - from, point - from);
        if (down && side > 0)
            ++winding;
        else if (up && side < 0)
            --winding;
    }
    return winding;
}

bool Contour::Passes(QPointF point, std::span<const uint32_t> segments) const
{
    return std::any_of(segments.begin(), segments.end(), [&](uint32_t i) {
        return shapes::SegmentDistance2(point, m_points[i], m_points[i + 1]) <= kMargin * kMargin;
    });
}

bool Contour::Holds(JobPoints path) const
{
    for (size_t i = 0; i < path.size(); ++i) {
        if (!Holds(path[i].point))
            return false;
        if (path[i].bulge != 0 && i + 1 < path.size() &&
            !Holds(PointOnSegment(path[i].point, path[i + 1].point, path[i].bulge, 0.5)))
            return false;
    }
    return true;
}

} // namespace shapedocument
