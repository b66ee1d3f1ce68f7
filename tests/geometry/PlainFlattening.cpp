#include "PlainFlattening.h"

#include <QLineF>
#include <QPainterPath>
#include <QTransform>

namespace test {

namespace {

QTransform About(QPointF c, double scale)
{
    return QTransform().translate(c.x(), c.y()).scale(scale, scale).translate(-c.x(), -c.y());
}

QPainterPath Joined(const QPainterPath& path)
{
    const QList<QPolygonF> polygons = path.toSubpathPolygons();
    if (polygons.size() < 2)
        return path;
    QPainterPath joined;
    QPolygonF current = polygons[0];
    for (qsizetype i = 1; i < polygons.size(); ++i) {
        if (polygons[i].constFirst() == current.constLast()) {
            current += polygons[i].sliced(1);
        } else {
            joined.addPolygon(current);
            current = polygons[i];
        }
    }
    joined.addPolygon(current);
    return joined;
}

} // namespace

QList<QPolygonF> PlainPolygons(const QPainterPath& path, double magnification, bool join)
{
    if (magnification == 1)
        return (join ? Joined(path) : path).toSubpathPolygons();
    const QPointF centre = path.boundingRect().center();
    const QPainterPath magnified = About(centre, magnification).map(path);
    QList<QPolygonF> polygons = (join ? Joined(magnified) : magnified).toSubpathPolygons();
    const QTransform back = About(centre, 1 / magnification);
    for (QPolygonF& polygon : polygons)
        polygon = back.map(polygon);
    return polygons;
}

std::vector<SHAPE_VECTOR_PATHDATA> PlainMicroLines(const QList<QPolygonF>& polygons)
{
    std::vector<SHAPE_VECTOR_PATHDATA> lines;
    for (const QPolygonF& polygon : polygons)
        for (qsizetype i = 0; i + 1 < polygon.size(); ++i)
            lines.push_back({polygon[i], polygon[i + 1], i ? ELINE_SEGMENT_STRAIGHT : ELINE_SEGMENT_SEPARATOR});
    return lines;
}

std::vector<QLineF> PlainLines(const std::vector<SHAPE_VECTOR_PATHDATA>& microLines)
{
    std::vector<QLineF> lines;
    for (const SHAPE_VECTOR_PATHDATA& line : microLines) {
        if (!lines.empty() && line.eType == ELINE_SEGMENT_SEPARATOR)
            lines.push_back(QLineF());
        lines.push_back(QLineF(line.ptStart, line.ptEnd));
    }
    return lines;
}

} // namespace test
