/// ShapePainter, paints shapes of every kind: only what can be seen, and tiny things coarsely.
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

/// What is to be painted.
struct PaintFrame
{
    QRectF visible;   ///< mm, in the coordinates of what is painted next
    double scale = 1; ///< pixels per mm
};

/// Paints with a painter that maps millimetres. Painter paths are those that the shapes keep.
class ShapePainter
{
public:
    /// To be called with each painter anew, and after its pen has been set otherwise.
    void Begin();
    /// The shape in its colour; members and cells in theirs. Nothing of what is hidden. Cost: O(members and cells), and
    /// the elements of what can be seen.
    void Paint(QPainter& painter, CShape& shape, const PaintFrame& frame);
    /// Its outlines alone, in the painter's pen.
    void PaintOutlines(QPainter& painter, CShape& shape, const PaintFrame& frame);
    /// To be called with the shapes that left the drawing.
    void Forget(const std::vector<CShape*>& shapes);

private:
    void PaintMembers(QPainter& painter, CShapeList& members, const PaintFrame& frame);
    void PaintCells(QPainter& painter, CShapeArray& array, const PaintFrame& frame);
    void PaintOutline(QPainter& painter, CShape& shape, const QRectF& rect, const PaintFrame& frame);
    void PaintPicture(QPainter& painter, CShape& shape);
    void SetColor(QPainter& painter, CShape& shape);

    PictureCache m_pictures;
    std::optional<QRgb> m_penColor; ///< as the shape has it, of the pen that is set
    bool m_inPen = false;           ///< everything in the painter's pen, nothing filled
};
