/// Places the drawings of a document so that none overlap.
#pragma once

#include "shapedocument_export.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <memory>
#include <vector>

class CShape;

namespace shapedocument {

/// The rectangle around new shapes, mm. Measured on copies, because asking a polyline for its rectangle may fit curves
/// to it. Cost: O(shapes) copies of vectors, and each path built.
SHAPEDOCUMENT_EXPORT QRectF RectAroundShapes(const std::vector<std::unique_ptr<CShape>>& shapes);

/// The upper left corners of items in a table that is filled row by row from (0, 0). Each column is as wide as its
/// widest item, each row as high as its highest. Cost: O(items).
/// @param sizes of the items, mm
/// @param columns at least 1
/// @param gap between columns and between rows, mm
SHAPEDOCUMENT_EXPORT std::vector<QPointF> TableCorners(const std::vector<QSizeF>& sizes, size_t columns, double gap);

/// The places of a document's drawings.
struct Places
{
    /// Offsets of the drawings, mm: none, one for all, or one for each. With a table, the corner of the first drawing.
    std::vector<QPointF> at;
    double gap = 5;     ///< mm, between columns and between rows of the table
    size_t columns = 0; ///< of the table of drawings; 0: no table, drawings stay where their pages have them
};

/// The offset (mm) of each drawing to its place. Cost: O(rects).
/// @param rects of the drawings, mm
/// @param places at holds at most one offset, or as many as there are drawings
SHAPEDOCUMENT_EXPORT std::vector<QPointF> OffsetsTo(const Places& places, const std::vector<QRectF>& rects);

/// Indexes, ascending, of the rectangles (mm) that overlap another one by more than 0.001 mm in x and in y.
/// Cost: O(n log n), and each pair that overlaps in x.
SHAPEDOCUMENT_EXPORT std::vector<size_t> Overlapping(const std::vector<QRectF>& rects);

} // namespace shapedocument
