/// Sub-paths of straight lines.
#pragma once

#include <QPointF>

#include <span>

class QPainterPath;

namespace shapes {

/// Appends a sub-path through the points, which are finite: element by element what moveTo to the first and lineTo to
/// every other one make, points that repeat the one before (fuzzily, as QPointF compares) left out.
void AddPolyline(QPainterPath& path, std::span<const QPointF> points);

} // namespace shapes
