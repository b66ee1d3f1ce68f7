/// Arcs through the points of a curve.
#pragma once

#include "machine/MachineJob.h"

#include <span>

namespace shapedocument {

/// Approximates a smooth curve by arcs and lines, which are appended to arcs. points lie on the curve, so dense that
/// their chords stay within 0.0003 mm of it. Every point is within tolerance (mm) of the result, every chord within
/// tolerance + 0.0004 mm. Every arc starts and ends at one of the points. The last point of arcs, which must be the
/// curve's first point, gets the first bulge; the curve's last point comes last, with bulge 0. Greedy: always the
/// longest arc that fits from where the last one ends. Cost: about O(n log n).
SHAPEDOCUMENT_EXPORT void AppendArcs(std::span<const QPointF> points, double tolerance, std::vector<JobPoint>& arcs);

} // namespace shapedocument
