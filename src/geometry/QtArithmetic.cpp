#include "geometry/QtArithmetic.h"

#include "geometry/PointBlocks.h"

#include <QTransform>

#include <algorithm>

namespace shapes {

namespace {

template <class Map>
void MapEach(std::span<QPointF> points, Map map)
{
    ForEachBlock(points, [map](std::span<QPointF> block) {
        for (QPointF& point : block)
            point = map(point);
    });
}

/// One coordinate of the cubic at t, by de Casteljau's interpolation.
double Interpolated(double p0, double p1, double p2, double p3, double t)
{
    const double s = 1. - t;
    double a = p0 * s + p1 * t;
    double b = p1 * s + p2 * t;
    const double c = p2 * s + p3 * t;
    a = a * s + b * t;
    b = b * s + c * t;
    return a * s + b * t;
}

/// Calls visit with every t at which the derivative of the coordinate is zero. Lines and constants have none.
template <class Visit>
void ForEachExtreme(double p0, double p1, double p2, double p3, Visit visit)
{
    const double a = 3 * (-p0 + 3 * p1 - 3 * p2 + p3);
    const double b = 6 * (p0 - 2 * p1 + p2);
    const double c = 3 * (-p0 + p1);
    if (qFuzzyIsNull(a)) {
        if (!qFuzzyIsNull(b))
            visit(-c / b);
        return;
    }
    const double discriminant = b * b - 4 * a * c;
    if (discriminant < 0)
        return;
    const double root = std::sqrt(discriminant);
    const double reciprocal = 1 / (2 * a);
    visit((-b + root) * reciprocal);
    visit((-b - root) * reciprocal);
}

} // namespace

void MapPoints(std::span<QPointF> points, const QTransform& transform)
{
    const QTransform::TransformationType type = transform.type();
    if (type == QTransform::TxNone)
        return; // Adding 0 would turn -0 into 0.
    if (type > QTransform::TxShear) {
        for (QPointF& point : points)
            point = transform.map(point);
        return;
    }
    const double a = transform.m11(), b = transform.m12(), c = transform.m21(), d = transform.m22();
    const double dx = transform.dx(), dy = transform.dy();
    if (type <= QTransform::TxTranslate)
        MapEach(points, [=](QPointF p) { return QPointF(p.x() + dx, p.y() + dy); });
    else if (type == QTransform::TxScale)
        MapEach(points, [=](QPointF p) { return QPointF(a * p.x() + dx, d * p.y() + dy); });
    else
        MapEach(points, [=](QPointF p) { return QPointF(a * p.x() + c * p.y() + dx, b * p.x() + d * p.y() + dy); });
}

QRectF CubicBounds(const std::array<QPointF, 4>& cubic)
{
    const QPointF &p0 = cubic[0], &p1 = cubic[1], &p2 = cubic[2],
                  &p3 = cubic[3]; // bindings cannot be captured everywhere
    double left = std::min(p0.x(), p3.x());
    double right = std::max(p0.x(), p3.x());
    double top = std::min(p0.y(), p3.y());
    double bottom = std::max(p0.y(), p3.y());
    // The point at an extreme of one coordinate counts with both.
    const auto include = [&](double t) {
        if (!(t >= 0 && t <= 1))
            return;
        const double x = Interpolated(p0.x(), p1.x(), p2.x(), p3.x(), t);
        const double y = Interpolated(p0.y(), p1.y(), p2.y(), p3.y(), t);
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    };
    ForEachExtreme(p0.x(), p1.x(), p2.x(), p3.x(), include);
    ForEachExtreme(p0.y(), p1.y(), p2.y(), p3.y(), include);
    return {left, top, right - left, bottom - top};
}

} // namespace shapes
