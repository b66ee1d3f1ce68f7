/// Places the drawings of a document so that none overlap.
#pragma once

#include "shapedocument_export.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

namespace shapedocument {

/// The upper left corners of items in a table that is filled row by row from (0, 0). Each column is as wide as its
/// widest item, each row as high as its highest. Cost: O(items).
/// @param sizes of the items, mm
/// @param columns at least 1
/// @param gap between columns and between rows, mm
SHAPEDOCUMENT_EXPORT std::vector<QPointF> TableCorners(const std::vector<QSizeF>& sizes, size_t columns, double gap);

/// Indexes, ascending, of the rectangles (mm) that overlap another one by more than 0.001 mm in x and in y.
/// Cost: O(n log n), and each pair that overlaps in x.
SHAPEDOCUMENT_EXPORT std::vector<size_t> Overlapping(const std::vector<QRectF>& rects);

} // namespace shapedocument
