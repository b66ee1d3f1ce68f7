#include "vector/PathFlattening.h"

#include "shape/PlaneTransforms.h"
#include "shape/Tolerances.h"

#include <QPainterPath>
#include <QTransform>

namespace shapes {

namespace {

/// Comparison is the platform's, which is fuzzy.
QList<QPolygonF> Joined(const QList<QPolygonF>& polygons)
{
    QList<QPolygonF> joined;
    for (const QPolygonF& polygon : polygons) {
        if (!joined.isEmpty() && polygon.constFirst() == joined.constLast().constLast())
            joined.last() += polygon.sliced(1);
        else
            joined += polygon;
    }
    return joined;
}

} // namespace

QList<QPolygonF> MagnifiedPolygons(const QPainterPath& path, double factor, Joining joining)
{
    const QRectF bounds = path.boundingRect();
    const QTransform magnify = factor == 1 ? QTransform() : ScaleAbout(bounds.center(), factor);
    if (!IsFinite(bounds) || !IsFinite(magnify.mapRect(path.controlPointRect())))
        return {};
    QList<QPolygonF> polygons = path.toSubpathPolygons(magnify);
    if (joining == Joining::JoinSubpaths)
        polygons = Joined(polygons);
    if (factor == 1)
        return polygons;
    const QTransform back = ScaleAbout(bounds.center(), 1 / factor);
    for (QPolygonF& polygon : polygons)
        MapPoints({polygon.data(), static_cast<size_t>(polygon.size())}, back);
    return polygons;
}

std::vector<SHAPE_VECTOR_PATHDATA> MicroLines(const QList<QPolygonF>& polygons)
{
    size_t total = 0;
    for (const QPolygonF& polygon : polygons)
        total += static_cast<size_t>(polygon.size());
    std::vector<SHAPE_VECTOR_PATHDATA> lines;
    lines.reserve(total);
    for (const QPolygonF& polygon : polygons)
        for (qsizetype i = 0; i + 1 < polygon.size(); ++i)
            lines.push_back({polygon[i], polygon[i + 1], i == 0 ? ELINE_SEGMENT_SEPARATOR : ELINE_SEGMENT_STRAIGHT});
    return lines;
}

} // namespace shapes
