/// Transforms of the drawing plane, and their effect on lists of points.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <span>
#include <vector>

class QLineF;

namespace shapes {

/// Rotation about centre, degrees, clockwise on screen (y down).
QTransform RotationAbout(QPointF centre, double angle);
/// Reflection across the vertical line x = axis.
QTransform MirrorAtX(double axis);
/// Reflection across the horizontal line y = axis.
QTransform MirrorAtY(double axis);
/// Uniform scaling that leaves centre where it is.
QTransform ScaleAbout(QPointF centre, double scale);

/// The points reflected across the infinite line through line.p1() and line.p2(); unchanged when the two coincide or
/// are not finite.
std::vector<QPointF> MirrorAcross(std::vector<QPointF> points, const QLineF& line);

/// Maps one rectangle onto another: moves to the origin, multiplies by the target's size, then by one over the source's
/// size, moves to the target. Two multiplications instead of one quotient: stored coordinates depend on the rounding.
/// An axis on which the source has no extent is moved, not stretched.
class RectFit
{
public:
    RectFit(const QRectF& from, const QRectF& to);
    QPointF Map(QPointF point) const { return {m_x.Map(point.x()), m_y.Map(point.y())}; }
    /// Maps every point in place.
    void Map(std::span<QPointF> points) const;
    /// The rectangle between the mapped corners, its extents not negative.
    QRectF Map(const QRectF& rect) const;

private:
    struct Axis
    {
        double from, multiply, divide, to;
        double Scale(double extent) const { return extent * multiply * divide; }
        double Map(double value) const { return Scale(value - from) + to; }
    };
    static Axis MakeAxis(double from, double extent, double to, double target);

    Axis m_x;
    Axis m_y;
};

} // namespace shapes
