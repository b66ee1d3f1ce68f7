/// ShapePainter: paints shapes of every kind, only visible ones, and tiny ones coarsely.
#pragma once

#include "canvas/PictureCache.h"

#include <QPen>
#include <QRectF>

#include <optional>
#include <vector>

class CShape;
class CShapeArray;
class CShapeList;
class CShapeVector;
class QPainter;

/// The visible part of the drawing.
struct PaintFrame
{
    QRectF visible;   ///< mm, in the coordinates of the next shape
    double scale = 1; ///< pixels per mm
};

/// Paints on painters that map millimetres. Uses the painter paths that the shapes cache.
class ShapePainter
{
public:
    /// Call for each new painter, and after its pen has been set elsewhere.
    void Begin();
    /// Paints the shape in its colour, members and cells in theirs; skips hidden ones. Cost: O(members and cells), and
    /// the elements of visible outlines.
    void Paint(QPainter& painter, CShape& shape, const PaintFrame& frame);
    /// Paints only its outlines, in the painter's pen.
    void PaintOutlines(QPainter& painter, CShape& shape, const PaintFrame& frame);
    /// Call with shapes that have left the drawing.
    void Forget(const std::vector<CShape*>& shapes);
    /// Call when the drawing has been painted since.
    void DropLeft() { m_pictures.DropLeft(); }

private:
    void PaintMembers(QPainter& painter, CShapeList& members, const PaintFrame& frame);
    void PaintCells(QPainter& painter, CShapeArray& array, const PaintFrame& frame);
    void PaintOutline(QPainter& painter, CShape& shape, const QRectF& rect, const PaintFrame& frame);
    void PaintPicture(QPainter& painter, CShape& shape);
    void SetColor(QPainter& painter, CShape& shape);

    PictureCache m_pictures;
    std::optional<QRgb> m_penColor; ///< the shape's colour for which the pen is set
    bool m_inPen = false;           ///< outlines only, in the painter's pen
};
