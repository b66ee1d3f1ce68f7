/// Decides by the turning of neighbouring edges which edges are drawn straight, and which are chords of a curve.
///
/// A curve that another program has flattened comes as chords: its vertices lie on the curve, its chords do not. An
/// edge counts as such a chord where the trace turns evenly on both sides by less than Limits::corner per vertex, the
/// edge itself has its share in that turning, is not much longer than its neighbours, and is no farther than
/// Limits::bulge from its arc. A straight edge that runs smoothly into a rounded corner meets the first chord there at
/// half that chord's rotation: no turning is left for the edge itself, so it stays straight.
#pragma once

#include "Trace.h"

namespace curvesimulate {

/// What is known of the edge from each point i of a trace to point i + 1.
struct Chords
{
    std::vector<char> straight; ///< a straight edge, not the chord of a curve
    std::vector<double>
        bulges; ///< how far the curve may leave the chord, estimated from its turning; 0 for straight edges
    std::vector<char> breaks; ///< per point: smooth curves end here (corners, ends of straight edges, kinks)
};

/// Judges every edge of a thinned trace.
Chords JudgeChords(const Trace& trace, const Limits& limits);

} // namespace curvesimulate
