/// The geometric operations of the base class: transforms, hit test on the outline, micro lines as lines.
#include "shape/PlaneTransforms.h"
#include "shape/Shape.h"
#include "shape/Tolerances.h"
#include "vector/Geometry.h"

#include <QPolygonF>
#include <QTransform>

#include <cmath>

using namespace shapes;

namespace {

/// Reach of Contains at view scale 1, model units.
constexpr double kContainsReach = 8.0;

} // namespace

void CShape::MapPoints(const QTransform& transform)
{
    shapes::MapPoints(m_listPoints, transform);
    DeletePath(this);
}

bool CShape::Offset(double dx, double dy)
{
    if (!AllFinite({dx, dy}))
        return false;
    // Built before the points move: building may replace them.
    if (QPainterPath* path = GetPath(false))
        path->translate(dx, dy);
    shapes::MapPoints(m_listPoints, QTransform::fromTranslate(dx, dy));
    return true;
}

bool CShape::Resize(QRectF target)
{
    if (!IsFinite(target))
        return false;
    // The rectangle comes before the points, for the same reason.
    const RectFit fit(GetRect(false), target);
    for (QPointF& point : m_listPoints)
        point = fit.Map(point);
    DeletePath(this);
    return true;
}

bool CShape::Rotate(double angle, QPointF centre, Qt::Axis)
{
    if (!std::isfinite(angle) || !IsFinite(centre))
        return false;
    MapPoints(RotationAbout(centre, angle));
    return true;
}

bool CShape::RotateLeft(QPointF centre)
{
    return Rotate(-90.0, centre, Qt::ZAxis);
}

bool CShape::RotateRight(QPointF centre)
{
    return Rotate(90.0, centre, Qt::ZAxis);
}

bool CShape::MirrorX(double axis)
{
    if (!AllFinite({axis}))
        return false;
    MapPoints(MirrorAtX(axis));
    return true;
}

bool CShape::MirrorY(double axis)
{
    if (!AllFinite({axis}))
        return false;
    MapPoints(MirrorAtY(axis));
    return true;
}

bool CShape::MirrorAttachLine(double value, bool bVertical)
{
    return bVertical ? MirrorX(value) : MirrorY(value);
}

bool CShape::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool)
{
    if (!IsFinite(p1) || !IsFinite(p2))
        return false;
    SetShapePoints(GetMirroredPoint(m_listPoints, QLineF(p1, p2)), m_listTypes);
    return true;
}

std::vector<QPointF> CShape::GetMirroredPoint(std::vector<QPointF> points, const QLineF& line)
{
    return MirrorAcross(std::move(points), line);
}

QRect CShape::GetRectUI(double)
{
    return {};
}

QPointF CShape::GetRectCenter()
{
    return GetRect(false).center();
}

double CShape::CalDistance(QPointF& a, QPointF& b)
{
    return PointDistance(a, b);
}

bool CShape::Contains(QPointF p, double scale)
{
    const QPainterPath* path = GetPath(false);
    if (!path || path->isEmpty())
        return false;
    const double reach = kContainsReach / scale;
    if (!GetRect(false).adjusted(-reach, -reach, reach, reach).contains(p))
        return false;
    path = GetPath(false); // Taking the rectangle may have built it anew.
    for (const QPolygonF& polygon : path->toSubpathPolygons(QTransform()))
        for (qsizetype i = 0; i + 1 < polygon.size(); ++i)
            if (PointSegmentDistance(p, polygon[i], polygon[i + 1]) <= reach)
                return true;
    return false;
}

std::vector<QLineF> CShape::Flatten(double)
{
    std::vector<QLineF> lines;
    lines.reserve(m_listPathData.size());
    for (const SHAPE_VECTOR_PATHDATA& piece : m_listPathData) {
        if (!lines.empty() && piece.eType == ELINE_SEGMENT_SEPARATOR)
            lines.emplace_back(0, 0, 0, 0);
        lines.emplace_back(piece.ptStart, piece.ptEnd);
    }
    return lines;
}
