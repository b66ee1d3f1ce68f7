/// Where what is drawn or moved comes to rest beside other shapes.
#pragma once

#include "shapedocument_export.h"

#include <QRectF>

#include <optional>
#include <span>
#include <vector>

class QPainterPath;

namespace shapedocument {

/// The edges and middles of rectangles, as lines through the whole drawing.
class SHAPEDOCUMENT_EXPORT SnapLines
{
public:
    SnapLines() = default;
    /// Rectangles that are not finite offer no lines. Cost: O(n log n).
    explicit SnapLines(const std::vector<QRectF>& rects);

    /// A line, and how far the place nearest to it is moved to lie on it.
    struct Snap
    {
        double line;  ///< its x or y
        double shift; ///< line less place
    };
    /// Of the lines from top to bottom, the one that is nearest to any of the x; nothing beyond reach.
    /// Cost: O(log n) for each of them.
    std::optional<Snap> NearestX(std::span<const double> x, double reach) const;
    /// The same for y and the lines from left to right.
    std::optional<Snap> NearestY(std::span<const double> y, double reach) const;

private:
    std::vector<double> m_x, m_y; ///< ascending
};

/// The point of the outline (control points are none) that is nearest to a position; nothing beyond reach.
/// Cost: O(elements).
SHAPEDOCUMENT_EXPORT std::optional<QPointF> NearestNode(const QPainterPath& path, QPointF position, double reach);

} // namespace shapedocument
