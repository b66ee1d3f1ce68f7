/// The geometric operations of the base class: transforms, hit test on the outline, micro lines as lines.
#include "geometry/Geometry.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/QtArithmetic.h"
#include "geometry/Tolerances.h"
#include "shape/Shape.h"

#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <utility>

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
    // GetRect comes before the points are changed, for the same reason.
    const RectFit fit(GetRect(false), target);
    fit.Map(m_listPoints);
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
    m_listPoints = MirrorAcross(std::move(m_listPoints), QLineF(p1, p2));
    DeletePath(this);
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
    path = GetPath(false); // GetRect may have rebuilt it.
    for (const QPolygonF& polygon : path->toSubpathPolygons(QTransform()))
        for (qsizetype i = 0; i + 1 < polygon.size(); ++i)
            if (PointSegmentDistance(p, polygon[i], polygon[i + 1]) <= reach)
                return true;
    return false;
}

std::vector<QLineF> CShape::Flatten(double)
{
    if (m_listPathData.empty())
        return {};
    const auto startsSubpath = [](const SHAPE_VECTOR_PATHDATA& piece) {
        return piece.eType == ELINE_SEGMENT_SEPARATOR;
    };
    const auto gaps = std::count_if(m_listPathData.begin() + 1, m_listPathData.end(), startsSubpath);
    std::vector<QLineF> lines(m_listPathData.size() + static_cast<size_t>(gaps)); // null lines; those at gaps stay null
    lines[0] = {m_listPathData[0].ptStart, m_listPathData[0].ptEnd};
    auto line = lines.begin();
    for (size_t i = 1; i < m_listPathData.size(); ++i) {
        const SHAPE_VECTOR_PATHDATA& piece = m_listPathData[i];
        line += startsSubpath(piece) ? 2 : 1;
        *line = {piece.ptStart, piece.ptEnd};
    }
    return lines;
}
