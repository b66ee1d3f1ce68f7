/// Arcs through the points of a curve.
#pragma once

#include "machine/MachineJob.h"

#include <span>

namespace shapedocument {

/// Takes the points of a smooth curve, so dense that its chords lie within 0.0003 mm of it, and appends arcs and lines
/// that pass them at no more than tolerance (mm), and what lies between them at 0.0004 mm more. Every arc begins and
/// ends at one of the points. The last point of arcs, which must be the curve's first point, gets the first bulge; the
/// curve's last point comes last, with bulge 0. The longest arc that fits comes first, then the longest from its end:
/// about n log n steps.
SHAPEDOCUMENT_EXPORT void AppendArcs(std::span<const QPointF> points, double tolerance, std::vector<JobPoint>& arcs);

} // namespace shapedocument
