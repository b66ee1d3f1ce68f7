/// The distance of two outlines.
#pragma once

#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <QPointF>

#include <vector>

namespace shapedocument {

/// One run of an outline as a fine polyline: straight points as they are, cubics in 512 pieces.
/// Cost: O(points), 512 for each cubic.
SHAPEDOCUMENT_EXPORT std::vector<QPointF> DrawnRun(const std::vector<QPointF>& points,
                                                   const std::vector<unsigned char>& types);

/// Largest distance of either line from the other, by dense sampling, in their unit. Both must have the same direction
/// and at least two points. Throws Stopped where progress, called for points, returns false. Cost: O(n) for lines close
/// to each other, O(n²) at worst.
SHAPEDOCUMENT_EXPORT double OutlineDistance(const std::vector<QPointF>& a, const std::vector<QPointF>& b,
                                            const WorkProgress& progress = {});

} // namespace shapedocument
