/// Points that a line passes near enough are left out.
#pragma once

#include "shapedocument_export.h"
#include <QPointF>

#include <span>
#include <vector>

namespace shapedocument {

/// Appends a polyline of few points that lies within tolerance (mm) of the one given, both ways. Its first point is
/// left out, its last one is the same; those between need not be points of the one given, as a line that runs now on
/// the one side of a curve, now on the other, needs fewest. Whoever wants a corner to stay to the last bit gives the
/// points before and behind it one after the other. At most n log n steps.
///
/// The method: from a vertex, the lines that pass near enough to the points so far lie in a cone; where it would become
/// empty, or the points turn back, the line ends on the side of the cone that the points turn to, or where the next
/// line gets farther than from there. (Sklansky and Gonzalez, "Fast polygonal approximation of digitized curves",
/// 1980.)
SHAPEDOCUMENT_EXPORT void AppendThinned(std::span<const QPointF> points, double tolerance,
                                        std::vector<QPointF>& thinned);

} // namespace shapedocument
