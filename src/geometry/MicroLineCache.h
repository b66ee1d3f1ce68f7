/// What is known of a shape's kept micro lines, so that a hit test need not make them anew.
#pragma once

#include "geometry/SegmentTypes.h"

#include <QPainterPath>

#include <optional>
#include <span>
#include <vector>

namespace shapes {

/// Knows the painter path that the micro lines were made of, and boxes around groups of them.
///
/// It holds a copy of the path, which shares its elements. Whoever changes the path then makes Qt move it to memory of
/// its own, also a host that it was lent to; so a path that still shares the elements is unchanged to the last bit.
/// Code that changes the path calls Forget first, which spares Qt the copy.
class MicroLineCache
{
public:
    /// Whether lines are known to be those of the path, generated for that vector type.
    bool Knows(const QPainterPath& path, int vectorType) const;
    /// To be called when lines were made of the path for that type.
    void Remember(const QPainterPath& path, int vectorType);
    /// To be called before the path or the lines change.
    void Forget();

    /// Whether one of the lines, which Knows holds of, is nearer to p than reach (IsNearSegment). The first call after
    /// Remember looks at every line and makes the boxes. Cost: O(lines), then O(boxes) and the lines in boxes near p.
    bool IsAnyNear(std::span<const SHAPE_VECTOR_PATHDATA> lines, QPointF p, double reach);

private:
    /// Around some lines; without bounds when one of their coordinates is not finite.
    struct Box
    {
        double left, top, right, bottom;
        bool IsFarFrom(QPointF p, double reach) const;
    };
    static Box BoxAround(std::span<const SHAPE_VECTOR_PATHDATA> lines);

    QPainterPath m_path;
    std::optional<int> m_vectorType; ///< none: nothing is known
    std::vector<Box> m_boxes;        ///< of kLinesPerBox lines each; empty until they are asked for
};

} // namespace shapes
