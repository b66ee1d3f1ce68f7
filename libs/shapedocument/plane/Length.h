/// Lengths of vectors, and their units.
#pragma once

#include <QPointF>

#include <cmath>

namespace shapedocument {

inline constexpr double kMmPerInch = 25.4;

/// The length of a vector, in its unit; does not overflow for long ones.
inline double Length(QPointF vector)
{
    return std::hypot(vector.x(), vector.y());
}

} // namespace shapedocument
