#include "geometry/PlaneTransforms.h"

#include "geometry/QtArithmetic.h"
#include "geometry/Tolerances.h"

#include <QLineF>

namespace shapes {

namespace {

QTransform About(QPointF centre, const QTransform& transform)
{
    return QTransform::fromTranslate(-centre.x(), -centre.y()) * transform *
           QTransform::fromTranslate(centre.x(), centre.y());
}

double Sum(Pair pair)
{
    return pair[0] + pair[1];
}

} // namespace

QTransform RotationAbout(QPointF centre, double angle)
{
    return About(centre, QTransform().rotate(angle, Qt::ZAxis));
}

QTransform MirrorAtX(double axis)
{
    return About({axis, 0}, QTransform::fromScale(-1, 1));
}

QTransform MirrorAtY(double axis)
{
    return About({0, axis}, QTransform::fromScale(1, -1));
}

QTransform ScaleAbout(QPointF centre, double scale)
{
    return About(centre, QTransform::fromScale(scale, scale));
}

std::vector<QPointF> MirrorAcross(std::vector<QPointF> points, const QLineF& line)
{
    const Pair origin = ToPair(line.p1());
    const Pair direction = ToPair(line.p2() - line.p1());
    const double squared = Sum(direction * direction);
    if (!(squared > 0) || !std::isfinite(squared) || !IsFinite(line.p1()))
        return points;
    const auto along = [=](Pair point) { return Sum((point - origin) * direction); };
    const auto reflect = [=](QPointF& point, double share) {
        const Pair reflected = 2 * (origin + share * direction) - ToPair(point);
        point = {reflected[0], reflected[1]};
    };
    size_t i = 0;
    for (; i + 1 < points.size(); i += 2) { // One division of two numbers takes as long as one of one.
        const Pair shares = Pair{along(ToPair(points[i])), along(ToPair(points[i + 1]))} / squared;
        reflect(points[i], shares[0]);
        reflect(points[i + 1], shares[1]);
    }
    if (i < points.size())
        reflect(points[i], along(ToPair(points[i])) / squared);
    return points;
}

RectFit::RectFit(const QRectF& from, const QRectF& to)
    : m_x(MakeAxis(from.x(), from.width(), to.x(), to.width())),
      m_y(MakeAxis(from.y(), from.height(), to.y(), to.height()))
{}

RectFit::Axis RectFit::MakeAxis(double from, double extent, double to, double target)
{
    if (extent > kCoincident)
        return {from, target, 1 / extent, to};
    if (target > kCoincident)
        return {from, target, 1 / target, to};
    return {from, 1, 1, to};
}

void RectFit::Map(std::span<QPointF> points) const
{
    const RectFit fit = *this; // a local copy, which no point can alias
    for (QPointF& point : points)
        point = fit.Map(point);
}

QRectF RectFit::Map(const QRectF& rect) const
{
    return QRectF(m_x.Map(rect.x()), m_y.Map(rect.y()), m_x.Scale(rect.width()), m_y.Scale(rect.height())).normalized();
}

} // namespace shapes
