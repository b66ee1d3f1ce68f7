/// The whole way of one run: corners, straight edges and smooth stretches, each rewritten with as few points as hold it.
#pragma once

#include "CubicFit.h"
#include "Trace.h"

namespace curvesimulate {

/// An outline as the library keeps it: per point 0 straight or 1 member of a cubic triple (control, control, end).
struct Outline
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
};

/// Rewrites a run of straight points as straight points and cubics that stay within limits.tolerance of it, both ways.
/// Its first and last point stay, corners stay, and there are never more points than before. A turn within the tolerance
/// of a trace that is smooth around it counts as unrest, not as a corner. A run that cannot be made shorter, or that
/// holds numbers that are not finite or beyond 1e9, comes back as it is.
Outline FitRun(std::span<const QPointF> run, const Limits& limits = {});

} // namespace curvesimulate
