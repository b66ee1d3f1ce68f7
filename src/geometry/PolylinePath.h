/// Sub-paths of straight lines.
#pragma once

#include <QPointF>

#include <span>

class QPainterPath;

namespace shapes {

/// Appends a sub-path through the points, which must be finite. Its elements are those that moveTo and lineTo would
/// make, so a point that equals the one before (QPointF's fuzzy comparison) is left out.
void AddPolyline(QPainterPath& path, std::span<const QPointF> points);

} // namespace shapes
