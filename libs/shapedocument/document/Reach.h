/// The limit of coordinates and lengths.
#pragma once

#include <QRectF>

#include <cmath>

namespace shapedocument {

/// mm: a kilometre, farther than any machine goes. Coordinates and lengths beyond it are refused.
constexpr double kFarthest = 1e6;

/// Whether the coordinate or length (mm) is within kFarthest; false for NaN.
inline bool WithinReach(double coordinate)
{
    return std::abs(coordinate) <= kFarthest;
}

/// Whether all four edges are within kFarthest.
inline bool WithinReach(const QRectF& rect)
{
    return WithinReach(rect.left()) && WithinReach(rect.right()) && WithinReach(rect.top()) &&
           WithinReach(rect.bottom());
}

} // namespace shapedocument
