#include "geometry/CornerQuad.h"

#include "geometry/Geometry.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/QtArithmetic.h"

#include <QLineF>
#include <QPolygonF>

#include <span>
#include <vector>

namespace shapes {

namespace {

QRectF BoundsOf(std::span<const QPointF> points)
{
    return QPolygonF(QList<QPointF>(points.begin(), points.end())).boundingRect();
}

} // namespace

CornerQuad::CornerQuad(const QRectF& rect)
{
    Restart(rect);
}

void CornerQuad::Restart(const QRectF& rect)
{
    m_corners = {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()};
}

void CornerQuad::Move(QPointF offset)
{
    Map(QTransform::fromTranslate(offset.x(), offset.y()));
}

void CornerQuad::Rotate(double angle, QPointF centre)
{
    m_angleSum += angle;
    Map(RotationAbout(centre, angle));
}

void CornerQuad::MirrorX(double axis)
{
    Map(MirrorAtX(axis));
}

void CornerQuad::MirrorY(double axis)
{
    Map(MirrorAtY(axis));
}

void CornerQuad::FitTo(const QRectF& target)
{
    RectFit(BoundsOf(m_corners), target).Map(m_corners);
}

void CornerQuad::FollowMirror(const QLineF& line)
{
    if (line.isNull())
        return;
    const std::vector<QPointF> mirrored = MirrorAcross({m_corners.begin(), m_corners.end()}, line);
    const QPointF centre = BoundsOf(mirrored).center();
    const QPointF way = centre - BoundsOf(m_corners).center();
    const double turn = -QLineF(mirrored[0], mirrored[1]).angle() - m_angleSum;
    m_angleSum += turn;
    Map(QTransform::fromTranslate(way.x(), way.y()));
    Map(RotationAbout(centre, WithinFullTurn(turn)));
}

void CornerQuad::Map(const QTransform& transform)
{
    MapPoints(m_corners, transform);
}

} // namespace shapes
