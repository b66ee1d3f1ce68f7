#include "image/CornerQuad.h"

#include "geometry/PlaneTransforms.h"

#include <QLineF>
#include <QPolygonF>

#include <cmath>
#include <vector>

namespace shapes {

namespace {

constexpr double kFullTurn = 360.0;

} // namespace

double WithinFullTurn(double degrees)
{
    if (degrees >= 0 && degrees <= kFullTurn)
        return degrees;
    const double rest = std::fmod(degrees, kFullTurn);
    if (degrees > 0)
        return rest == 0 ? kFullTurn : rest;
    return rest == 0 ? 0.0 : rest + kFullTurn;
}

QRectF BoundsOf(std::span<const QPointF> points)
{
    return QPolygonF(QList<QPointF>(points.begin(), points.end())).boundingRect();
}

CornerQuad::CornerQuad(const QRectF& rect)
{
    Restart(rect);
}

void CornerQuad::Restart(const QRectF& rect)
{
    m_corners = {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()};
}

void CornerQuad::Apply(const ImageOperation& operation)
{
    switch (operation.nCode) {
    case EIMAGE_MOVE:
        if (const auto offset = ArgumentOf<QPointF>(operation))
            Map(QTransform::fromTranslate(offset->x(), offset->y()));
        break;
    case EIMAGE_ROTATE:
        if (const auto rotation = ArgumentOf<SRotate>(operation)) {
            m_angleSum += rotation->angle;
            Map(RotationAbout(rotation->centre, rotation->angle));
        }
        break;
    case EIMAGE_MIRROR_X:
        if (const auto x = ArgumentOf<double>(operation))
            Map(MirrorAtX(*x));
        break;
    case EIMAGE_MIRROR_Y:
        if (const auto y = ArgumentOf<double>(operation))
            Map(MirrorAtY(*y));
        break;
    case EIMAGE_RESIZE:
        if (const auto target = ArgumentOf<QRectF>(operation))
            Fit(*target);
        break;
    case EIMAGE_MIRROR_LINE:
        if (const auto line = ArgumentOf<QLineF>(operation))
            FollowMirrored(*line);
        break;
    default:
        break;
    }
}

void CornerQuad::Map(const QTransform& transform)
{
    MapPoints(m_corners, transform);
}

void CornerQuad::Fit(const QRectF& target)
{
    const RectFit fit(BoundsOf(m_corners), target);
    for (QPointF& corner : m_corners)
        corner = fit.Map(corner);
}

void CornerQuad::FollowMirrored(const QLineF& line)
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

} // namespace shapes
