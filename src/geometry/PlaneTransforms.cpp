#include "geometry/PlaneTransforms.h"

#include "geometry/PointBlocks.h"
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

/// Reflects points across the line through an origin in a direction whose length is not 0.
class Reflection
{
public:
    explicit Reflection(const QLineF& line)
        : m_ox(line.x1()), m_oy(line.y1()), m_dx(line.dx()), m_dy(line.dy()), m_squared(m_dx * m_dx + m_dy * m_dy)
    {}

    bool IsPossible() const { return m_squared > 0 && std::isfinite(m_squared) && IsFinite(QPointF(m_ox, m_oy)); }

    void Map(std::span<QPointF> points) const
    {
        size_t i = 0;
        for (; i + 1 < points.size(); i += 2)
            MapTwo(points[i], points[i + 1]);
        if (i < points.size()) {
            QPointF spare = points[i];
            MapTwo(points[i], spare);
        }
    }

private:
    /// One division of two numbers takes as long as one of one.
    void MapTwo(QPointF& a, QPointF& b) const
    {
        const Pair x{a.x(), b.x()}, y{a.y(), b.y()};
        const Pair share = ((x - m_ox) * m_dx + (y - m_oy) * m_dy) / m_squared;
        const Pair newX = 2 * (m_ox + share * m_dx) - x, newY = 2 * (m_oy + share * m_dy) - y;
        a = {newX[0], newY[0]};
        b = {newX[1], newY[1]};
    }

    double m_ox, m_oy, m_dx, m_dy;
    double m_squared; ///< length of the direction
};

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
    const Reflection reflection(line);
    if (reflection.IsPossible())
        ForEachBlock(points, [reflection](std::span<QPointF> block) { reflection.Map(block); });
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
    ForEachBlock(points, [fit](std::span<QPointF> block) {
        for (QPointF& point : block)
            point = fit.Map(point);
    });
}

QRectF RectFit::Map(const QRectF& rect) const
{
    return QRectF(m_x.Map(rect.x()), m_y.Map(rect.y()), m_x.Scale(rect.width()), m_y.Scale(rect.height())).normalized();
}

} // namespace shapes
