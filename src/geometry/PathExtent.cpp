#include "geometry/PathExtent.h"

#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace shapes {

namespace {

using Cubic = std::array<QPointF, 4>;

/// One coordinate of the curve at t, by repeated interpolation.
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

/// Calls visit with every t where the derivative of the coordinate is zero; lines and constants have none.
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

QRectF Bounds(const Cubic& p)
{
    double left = std::min(p[0].x(), p[3].x());
    double right = std::max(p[0].x(), p[3].x());
    double top = std::min(p[0].y(), p[3].y());
    double bottom = std::max(p[0].y(), p[3].y());
    // An extreme of either coordinate counts for both.
    const auto take = [&](double t) {
        if (!(t >= 0 && t <= 1))
            return;
        const double x = Interpolated(p[0].x(), p[1].x(), p[2].x(), p[3].x(), t);
        const double y = Interpolated(p[0].y(), p[1].y(), p[2].y(), p[3].y(), t);
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    };
    ForEachExtreme(p[0].x(), p[1].x(), p[2].x(), p[3].x(), take);
    ForEachExtreme(p[0].y(), p[1].y(), p[2].y(), p[3].y(), take);
    return {left, top, right - left, bottom - top};
}

} // namespace

void PathExtent::Add(const QPainterPath& path, int first)
{
    const bool nothing = path.isEmpty() && (path.elementCount() == 0 || QPointF(path.elementAt(0)).isNull());
    if (!nothing)
        AddElements(path, first);
}

void PathExtent::AddElements(const QPainterPath& path, int first)
{
    for (int i = first; i < path.elementCount(); ++i) {
        if (path.elementAt(i).isMoveTo()) {
            m_moveTo = path.elementAt(i);
            continue;
        }
        if (m_moveTo)
            AddPoint(*m_moveTo);
        m_moveTo.reset();
        if (path.elementAt(i).isLineTo()) {
            AddPoint(path.elementAt(i));
            continue;
        }
        const QRectF curve =
            Bounds({path.elementAt(i - 1), path.elementAt(i), path.elementAt(i + 1), path.elementAt(i + 2)});
        AddBox(curve.x(), curve.y(), curve.right(), curve.bottom());
        i += 2;
    }
}

QRectF PathExtent::Rect() const
{
    if (!m_moveTo)
        return {m_left, m_top, m_right - m_left, m_bottom - m_top};
    PathExtent whole = *this;
    whole.m_moveTo.reset();
    whole.AddPoint(*m_moveTo);
    return whole.Rect();
}

void PathExtent::AddPoint(QPointF point)
{
    AddBox(point.x(), point.y(), point.x(), point.y());
}

void PathExtent::AddBox(double left, double top, double right, double bottom)
{
    m_left = m_any ? std::min(m_left, left) : left;
    m_top = m_any ? std::min(m_top, top) : top;
    m_right = m_any ? std::max(m_right, right) : right;
    m_bottom = m_any ? std::max(m_bottom, bottom) : bottom;
    m_any = true;
}

} // namespace shapes
