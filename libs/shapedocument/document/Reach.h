/// How far drawings reach.
#pragma once

#include <QRectF>

#include <cmath>

namespace shapedocument {

/// mm: a kilometre, farther than any machine goes. No coordinate or length is taken beyond it.
constexpr double kFarthest = 1e6;

/// Whether the coordinate or length (mm) is taken; false for NaN.
inline bool WithinReach(double coordinate)
{
    return std::abs(coordinate) <= kFarthest;
}

/// Whether all four edges are.
inline bool WithinReach(const QRectF& rect)
{
    return WithinReach(rect.left()) && WithinReach(rect.right()) && WithinReach(rect.top()) &&
           WithinReach(rect.bottom());
}

} // namespace shapedocument
