/// Vectors in the drawing plane: the few operations that the fitter is made of.
#pragma once

#include "geometry/Geometry.h"

#include <QPointF>

#include <cmath>

namespace curvesimulate {

using shapes::Cross;
using shapes::SegmentDistance2;

inline double Dot(QPointF a, QPointF b)
{
    return a.x() * b.x() + a.y() * b.y();
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

} // namespace curvesimulate
