#include "machine/Contour.h"

#include <cmath>

namespace shapedocument {

namespace {

constexpr double kSagitta = 0.001; // mm
constexpr int kMostHalvings = 10;  // of an arc

double Cross(QPointF a, QPointF b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// The points of an arc behind its first.
void AppendArc(QPointF from, QPointF to, double bulge, int halvings, std::vector<QPointF>& points)
{
    const double height = std::abs(bulge) * std::hypot(to.x() - from.x(), to.y() - from.y()) / 2;
    if (halvings < kMostHalvings && height > kSagitta) {
        const QPointF middle = ArcMiddle(from, to, bulge);
        const double half = bulge / (1 + std::sqrt(1 + bulge * bulge)); // tan(a / 2) of tan(a)
        AppendArc(from, middle, half, halvings + 1, points);
        AppendArc(middle, to, half, halvings + 1, points);
    } else {
        points.push_back(to);
    }
}

double SquaredDistance(QPointF point, QPointF from, QPointF to)
{
    const QPointF along = to - from, off = point - from;
    const double length = QPointF::dotProduct(along, along);
    const double share = length > 0 ? std::clamp(QPointF::dotProduct(off, along) / length, 0.0, 1.0) : 0;
    const QPointF rest = off - share * along;
    return QPointF::dotProduct(rest, rest);
}

} // namespace

QPointF ArcMiddle(QPointF from, QPointF to, double bulge)
{
    const QPointF along = to - from; // An arc that turns from +x towards +y bulges to the other side.
    return (from + to) / 2 + bulge / 2 * QPointF(along.y(), -along.x());
}

std::vector<QPointF> ChordPoints(JobPoints path)
{
    std::vector<QPointF> points;
    points.reserve(path.size());
    points.push_back(path.front().point);
    for (size_t i = 1; i < path.size(); ++i)
        AppendArc(path[i - 1].point, path[i].point, path[i - 1].bulge, 0, points);
    return points;
}

Box BoxOf(std::span<const QPointF> points)
{
    Box box;
    for (const QPointF& point : points)
        box.Add(Box::Of(point));
    return box;
}

double EnclosedArea(std::span<const QPointF> outline)
{
    double twice = 0; // measured from a point of the outline, which may lie far from 0,0
    for (size_t i = 1; i < outline.size(); ++i)
        twice += Cross(outline[i - 1] - outline[0], outline[i] - outline[0]);
    return std::abs(twice) / 2;
}

Contour::Contour(std::vector<QPointF> outline) : m_points(std::move(outline)), m_box(BoxOf(m_points).Grown(kMargin))
{
    SpreadOverSlabs();
}

/// As many slabs as keep the list of segments about as long as the outline, however high its segments are.
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
        return SquaredDistance(point, m_points[i], m_points[i + 1]) <= kMargin * kMargin;
    });
}

bool Contour::Holds(JobPoints path) const
{
    for (size_t i = 0; i < path.size(); ++i) {
        if (!Holds(path[i].point))
            return false;
        if (path[i].bulge != 0 && i + 1 < path.size() &&
            !Holds(ArcMiddle(path[i].point, path[i + 1].point, path[i].bulge)))
            return false;
    }
    return true;
}

} // namespace shapedocument
