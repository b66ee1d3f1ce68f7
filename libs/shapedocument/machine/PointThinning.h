/// Reduces the points of a polyline within a tolerance.
#pragma once

#include "shapedocument_export.h"
#include <QPointF>

#include <span>
#include <vector>

namespace shapedocument {

/// Appends a polyline of few points that lies within tolerance (mm) of the one given, both ways. Its first point is not
/// appended, its last one is exact; those between need not be points of the one given, because a line that changes
/// sides along a curve needs fewest. To keep a corner exact, call once for the points up to it and once for those from
/// it on. Cost: O(n log n) at most.
///
/// The method: from a vertex, the lines that pass near enough to the points so far lie in a cone. Where it would become
/// empty, or the points turn back, the line ends: at the last point if the cone holds it, else on the side nearest to
/// it, or on either side if the next line gets farther from there. (Sklansky and Gonzalez, "Fast polygonal
/// approximation of digitized curves", 1980.)
SHAPEDOCUMENT_EXPORT void AppendThinned(std::span<const QPointF> points, double tolerance,
                                        std::vector<QPointF>& thinned);

} // namespace shapedocument
