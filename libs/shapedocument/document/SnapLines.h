/// Finds the lines and nodes to which drawn or moved shapes snap.
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

    /// A line, and the shift that puts the nearest given place onto it.
    struct Snap
    {
        double line;  ///< its x or y, mm
        double shift; ///< line minus place, mm
    };
    /// The vertical line nearest to any of the places x (mm); nothing beyond reach (mm). Cost: O(log n) for each place.
    std::optional<Snap> NearestX(std::span<const double> x, double reach) const;
    /// The horizontal line nearest to any of the places y; likewise.
    std::optional<Snap> NearestY(std::span<const double> y, double reach) const;

private:
    std::vector<double> m_x, m_y; ///< ascending
};

/// The point of the outline, control points excluded, that is nearest to a position; nothing beyond reach (mm). Cost:
/// O(elements).
SHAPEDOCUMENT_EXPORT std::optional<QPointF> NearestNode(const QPainterPath& path, QPointF position, double reach);

} // namespace shapedocument
