/// Where drawings of a document go, so that none lies on another.
#pragma once

#include "shapedocument_export.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

namespace shapedocument {

/// The upper left corners of things in a table that is filled row by row. Its own corner is at (0, 0), each column is
/// as wide as the widest thing in it, each row as high as the highest.
/// @param sizes of the things, mm
/// @param columns 1 at least
/// @param gap between columns and between rows, mm
SHAPEDOCUMENT_EXPORT std::vector<QPointF> TableCorners(const std::vector<QSizeF>& sizes, size_t columns, double gap);

/// Which rectangles (mm) share more than a thousandth of a millimetre in x and in y with another one, in rising order.
SHAPEDOCUMENT_EXPORT std::vector<size_t> Overlapping(const std::vector<QRectF>& rects);

} // namespace shapedocument
