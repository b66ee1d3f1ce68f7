/// Vectors in the drawing plane: the few operations that the fitter is made of.
#pragma once

#include <QPointF>

#include <algorithm>
#include <cmath>

namespace curvesimulate {

inline double Dot(QPointF a, QPointF b)
{
    return a.x() * b.x() + a.y() * b.y();
}

inline double Cross(QPointF a, QPointF b)
{
    return a.x() * b.y() - a.y() * b.x();
}

inline double Length(QPointF a)
{
    return std::sqrt(Dot(a, a));
}

/// a at length 1; a vector without length stays as it is.
inline QPointF Unit(QPointF a)
{
    const double length = Length(a);
    return length > 0.0 ? a / length : a;
}

/// Angle from direction a to direction b, -pi to pi.
inline double SignedTurn(QPointF a, QPointF b)
{
    return std::atan2(Cross(a, b), Dot(a, b));
}

/// Angle by which direction b deviates from direction a, 0 to pi.
inline double Turn(QPointF a, QPointF b)
{
    return std::abs(SignedTurn(a, b));
}

/// Distance from p to the segment a-b, squared.
inline double SegmentDistance2(QPointF p, QPointF a, QPointF b)
{
    const QPointF along = b - a;
    const double length2 = Dot(along, along);
    const double at = length2 > 0.0 ? std::clamp(Dot(p - a, along) / length2, 0.0, 1.0) : 0.0;
    const QPointF off = p - (a + along * at);
    return Dot(off, off);
}

} // namespace curvesimulate
