/// Tolerances that several files share, and the comparisons made with them.
#pragma once

#include <QPointF>
#include <QRectF>

#include <cmath>
#include <initializer_list>

namespace shapes {

/// Lengths and differences up to this count as zero (model units).
inline constexpr double kCoincident = 1e-6;

/// Whether two points differ by at most kCoincident in x and in y.
inline bool SamePoint(QPointF a, QPointF b)
{
    return std::abs(a.x() - b.x()) <= kCoincident && std::abs(a.y() - b.y()) <= kCoincident;
}

/// Whether a move is so short that lists do not carry it out.
inline bool IsNoMove(double dx, double dy)
{
    return std::abs(dx) < kCoincident && std::abs(dy) < kCoincident;
}

/// Magnitudes beyond this count as not finite, so that squares and sums of coordinates cannot overflow (model units).
inline constexpr double kLargestFinite = 1e100;

inline bool AllFinite(std::initializer_list<double> numbers)
{
    for (const double number : numbers)
        if (!(std::abs(number) <= kLargestFinite))
            return false;
    return true;
}

inline bool IsFinite(QPointF point)
{
    return std::abs(point.x()) <= kLargestFinite && std::abs(point.y()) <= kLargestFinite;
}

inline bool IsFinite(const QRectF& rect)
{
    return AllFinite({rect.x(), rect.y(), rect.width(), rect.height()});
}

} // namespace shapes
