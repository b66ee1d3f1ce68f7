#include "geometry/PathFlattening.h"

#include "geometry/PathSteps.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/QtArithmetic.h"
#include "geometry/Tolerances.h"

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace shapes {

namespace {

constexpr size_t kSpareLines = 16; ///< unused capacity that kept micro lines may have, beyond a quarter of their number

} // namespace

/// Receives moves, lines and curves in order, flattens the curves and joins sub-paths where that is wanted.
class SubpathCollector
{
public:
    SubpathCollector(Polygons& polygons, Joining joining, size_t mostPoints)
        : m_points(polygons.m_points), m_begins(polygons.m_begins), m_join(joining == Joining::JoinSubpaths),
          m_mostPoints(mostPoints)
    {}

    void Reserve(size_t points) { m_points.reserve(points); }

    /// The start is stored together with the second point, so that a sub-path of one point leaves nothing behind.
    void MoveTo(QPointF start)
    {
        m_start = start;
        m_pending = true;
    }

    void LineTo(QPointF point)
    {
        if (m_pending)
            Begin();
        CheckRoom();
        m_points.push_back(point);
    }

    void CurveTo(const Cubic& cubic)
    {
        if (m_pending)
            Begin();
        CheckRoom();
        const size_t before = m_points.size();
        SplitCubic(cubic, m_pieces);
        m_points.resize(before + m_pieces.count);
        for (size_t i = 0; i < m_pieces.count; ++i)
            m_points[before + i] = {m_pieces.ends[i][0], m_pieces.ends[i][1]};
    }

private:
    void CheckRoom() const
    {
        if (m_points.size() > m_mostPoints)
            throw std::length_error("more points than are allowed");
    }

    void Begin()
    {
        m_pending = false;
        if (m_join && !m_points.empty() && m_start == m_points.back())
            return;
        m_begins.push_back(m_points.size());
        m_points.push_back(m_start);
    }

    std::vector<QPointF>& m_points;
    std::vector<size_t>& m_begins;
    bool m_join;
    size_t m_mostPoints;
    bool m_pending = false;
    QPointF m_start;
    Pieces m_pieces;
};

namespace {

void CollectPlatformPolygons(const QPainterPath& path, const QTransform& magnify, SubpathCollector& collector)
{
    for (const QPolygonF& polygon : path.toSubpathPolygons(magnify)) {
        collector.MoveTo(polygon.constFirst());
        for (qsizetype i = 1; i < polygon.size(); ++i)
            collector.LineTo(polygon[i]);
    }
}

/// map is a template parameter so that paths that are not magnified pay nothing for it.
template <class Map>
void CollectSteps(const QPainterPath& path, Map map, SubpathCollector& collector)
{
    const auto pair = [](QPointF p) { return Pair{p.x(), p.y()}; };
    QPointF current;
    for (const PathStep& step : PathSteps(path)) {
        const QPointF end = map(step.End());
        if (step.begins)
            collector.MoveTo(end);
        else if (step.IsLine())
            collector.LineTo(end);
        else
            collector.CurveTo({pair(current), pair(map(step.points[0])), pair(map(step.points[1])), pair(end)});
        current = end;
    }
}

void CollectInPlace(const QPainterPath& path, const QTransform& magnify, SubpathCollector& collector)
{
    if (magnify.isIdentity())
        return CollectSteps(
            path, [](QPointF point) { return point; }, collector);
    const double factor = magnify.m11(), dx = magnify.dx(), dy = magnify.dy();
    CollectSteps(
        path, [=](QPointF point) { return QPointF(factor * point.x() + dx, factor * point.y() + dy); }, collector);
}

/// The micro lines of a path without curves, not magnified, straight from its elements. False, with lines in an
/// unspecified state, when the path has curves.
bool PutStraightLines(const QPainterPath& path, Joining joining, std::vector<SHAPE_VECTOR_PATHDATA>& lines)
{
    lines.resize(static_cast<size_t>(path.elementCount()));
    SHAPE_VECTOR_PATHDATA* const first = lines.data();
    SHAPE_VECTOR_PATHDATA* line = first;
    ESHAPE_LINE_SEGMENT_TYPE type = ELINE_SEGMENT_SEPARATOR;
    QPointF from;
    for (const PathStep& step : PathSteps(path)) {
        const QPointF point = step.points[0]; // of a curve it is not used
        if (step.begins) {
            const bool goesOn = joining == Joining::JoinSubpaths && line != first && line[-1].ptEnd == point;
            type = goesOn ? ELINE_SEGMENT_STRAIGHT : ELINE_SEGMENT_SEPARATOR;
            from = goesOn ? line[-1].ptEnd : point;
        } else if (step.IsLine()) {
            *line++ = {from, point, type};
            from = point;
            type = ELINE_SEGMENT_STRAIGHT;
        } else {
            return false;
        }
    }
    lines.resize(static_cast<size_t>(line - first));
    if (lines.capacity() > lines.size() + lines.size() / 4 + kSpareLines)
        lines.shrink_to_fit(); // many short sub-paths: far fewer lines than elements
    return true;
}

/// Whether both kinds of flattening agree on a wave, a cusp, a loop, a short and a flat curve, magnified.
bool PlatformSplitsAlike()
{
    QPainterPath samples;
    samples.moveTo(0.3, 0.7);
    samples.cubicTo(10.1, -30, 20.9, 55, 31.7, 2.2);
    samples.cubicTo(90, 90, -20, 95, 44, 3);
    samples.cubicTo(200, 10, -90, 17, 41, 20.5);
    samples.cubicTo(41.1, 20.6, 41.2, 20.4, 41.25, 20.51);
    samples.cubicTo(50, 30, 60, 40, 1e5, 70);
    Polygons own, platforms;
    constexpr size_t kNoBound = std::numeric_limits<size_t>::max();
    SubpathCollector ownCollector(own, Joining::KeepSubpaths, kNoBound),
        platformsCollector(platforms, Joining::KeepSubpaths, kNoBound);
    const QTransform magnify = ScaleAbout({13, -7}, 250);
    CollectInPlace(samples, magnify, ownCollector);
    CollectPlatformPolygons(samples, magnify, platformsCollector);
    const std::span<const QPointF> a = own.Points(), b = platforms.Points();
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size_bytes()) == 0;
}

/// Writes a polygon's micro lines from line on and returns the position behind them.
template <class Polygon>
SHAPE_VECTOR_PATHDATA* PutRecords(const Polygon& polygon, SHAPE_VECTOR_PATHDATA* line)
{
    ESHAPE_LINE_SEGMENT_TYPE type = ELINE_SEGMENT_SEPARATOR;
    for (decltype(polygon.size()) i = 1; i < polygon.size(); ++i) {
        *line++ = {polygon[i - 1], polygon[i], type};
        type = ELINE_SEGMENT_STRAIGHT;
    }
    return line;
}

} // namespace

Flattening FlatteningForPlatform()
{
    static const Flattening flattening = PlatformSplitsAlike() ? Flattening::InPlace : Flattening::ByPlatform;
    return flattening;
}

Polygons MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining, Flattening flattening,
                           size_t mostPoints)
{
    Polygons polygons;
    const QRectF bounds = path.boundingRect();
    const QTransform magnify = factor == 1 ? QTransform() : ScaleAbout(bounds.center(), factor);
    if (!IsFinite(bounds) || !IsFinite(magnify.mapRect(path.controlPointRect())))
        return polygons;
    SubpathCollector collector(polygons, joining, mostPoints);
    if (flattening == Flattening::ByPlatform) {
        CollectPlatformPolygons(path, magnify, collector);
    } else {
        collector.Reserve(static_cast<size_t>(path.elementCount()));
        CollectInPlace(path, magnify, collector);
    }
    if (factor != 1)
        MapPoints(polygons.m_points, ScaleAbout(bounds.center(), 1 / factor));
    return polygons;
}

std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const QList<QPolygonF>& polygons)
{
    size_t total = 0;
    for (const QPolygonF& polygon : polygons)
        total += static_cast<size_t>(std::max<qsizetype>(polygon.size(), 1) - 1);
    std::vector<SHAPE_VECTOR_PATHDATA> lines(total);
    SHAPE_VECTOR_PATHDATA* line = lines.data();
    for (const QPolygonF& polygon : polygons)
        line = PutRecords(polygon, line);
    return lines;
}

std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const Polygons& polygons)
{
    std::vector<SHAPE_VECTOR_PATHDATA> lines;
    PutMicroLines(polygons, lines);
    return lines;
}

void PutMicroLines(const QPainterPath& path, double factor, Joining joining, std::vector<SHAPE_VECTOR_PATHDATA>& lines,
                   Flattening flattening)
{
    if (factor == 1 && IsFinite(path.controlPointRect()) && PutStraightLines(path, joining, lines))
        return;
    PutMicroLines(MagnifiedPolygons(path, factor, joining, flattening), lines);
}

void PutPolylineMicroLines(const QPainterPath& path, double curveFactor, Joining joining,
                           std::vector<SHAPE_VECTOR_PATHDATA>& lines)
{
    if (!IsFinite(path.controlPointRect()) || !PutStraightLines(path, joining, lines))
        PutMicroLines(MagnifiedPolygons(path, curveFactor, joining), lines);
}

void PutMicroLines(const Polygons& polygons, std::vector<SHAPE_VECTOR_PATHDATA>& lines)
{
    const size_t total = polygons.Points().size() - polygons.Count();
    if (lines.capacity() < total)
        lines = {}; // so that the old content is not copied into the larger block
    lines.resize(total);
    SHAPE_VECTOR_PATHDATA* line = lines.data();
    for (size_t i = 0; i < polygons.Count(); ++i)
        line = PutRecords(polygons[i], line);
}

} // namespace shapes
