/// Telling whether points lie inside an outline.
#pragma once

#include "plane/BoxTree.h"
#include "svg/CubicPiece.h"

#include <vector>

namespace shapedocument::drawing {

/// An outline prepared for many points: each takes about log n steps. The painter path's own test takes n, and is no
/// finer than 0.01.
class PointInArea
{
public:
    /// Sub-paths count as closed; the fill rule is the path's.
    explicit PointInArea(const QPainterPath& path);
    bool Holds(QPointF point) const;

private:
    /// A closed run of pieces. Its boxes are those of the whole, then of its first half's and its second half's halves.
    struct Contour
    {
        size_t begin, end;
        size_t boxes;
    };
    size_t CloseContour(size_t begin);
    Box AddBoxes(size_t begin, size_t end);
    int Winding(size_t box, size_t begin, size_t end, QPointF point) const;

    Qt::FillRule m_rule;
    std::vector<CubicPiece> m_pieces;
    std::vector<Contour> m_contours;
    std::vector<Box> m_boxes;
    BoxTree m_tree; ///< of the contours
};

} // namespace shapedocument::drawing
