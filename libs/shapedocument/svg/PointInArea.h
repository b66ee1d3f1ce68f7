/// Tests whether points lie inside an outline.
#pragma once

#include "plane/BoxTree.h"
#include "svg/CubicPiece.h"

#include <vector>

namespace shapedocument::drawing {

/// An outline prepared for many points: a test costs about O(log n). QPainterPath's own test costs O(n) and is accurate
/// to 0.01 only.
class PointInArea
{
public:
    /// Sub-paths count as closed; the fill rule is the path's.
    explicit PointInArea(const QPainterPath& path);
    bool Holds(QPointF point) const;

private:
    /// A closed run of pieces. Its boxes are a tree in preorder: the whole, then the first half's tree, then the
    /// second's.
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
