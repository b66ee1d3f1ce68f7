/// An axis-parallel rectangle that may be empty, a line or a point.
#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace shapedocument {

/// A closed rectangle; mm, y down. A new one is empty; that of a point has no width and no height.
struct Box
{
    double left = std::numeric_limits<double>::infinity();
    double top = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();

    static Box Of(QPointF point) { return {point.x(), point.y(), point.x(), point.y()}; }
    static Box Of(const QRectF& rect) { return {rect.left(), rect.top(), rect.right(), rect.bottom()}; }

    void Add(const Box& other)
    {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }

    Box Grown(double margin) const { return {left - margin, top - margin, right + margin, bottom + margin}; }
    double Area() const { return (right - left) * (bottom - top); }

    bool Overlaps(const Box& other) const
    {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }

    bool Contains(const Box& other) const
    {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }

    /// 0 inside.
    double SquaredDistance(QPointF point) const
    {
        const double x = std::max({left - point.x(), point.x() - right, 0.0});
        const double y = std::max({top - point.y(), point.y() - bottom, 0.0});
        return x * x + y * y;
    }
    double Distance(QPointF point) const { return std::sqrt(SquaredDistance(point)); }
};

} // namespace shapedocument
