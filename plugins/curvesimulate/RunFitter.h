/// Rewrites one run: corners, straight edges and smooth stretches, each with as few points as possible.
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

/// Rewrites a run of straight points as straight points and cubics. Its first and last point and its
/// corners stay, and there are never more points than before. A run that cannot be made shorter, or that holds numbers
/// that are not finite or beyond 1e9, comes back as it is.
///
/// The run's points count as points of the drawing: they stay within limits.tolerance of the fit, and within
/// 1/10,000 of the run's larger extent, so that small outlines may be enlarged. Between them:
/// - A turn of 20 degrees or more is a corner; so is one that is 20 degrees more than the chords beside it explain.
///   Regular polygons of up to 18 corners therefore stay polygons. A sharp turn within the tolerance of a trace that is
///   smooth around it counts as noise.
/// - An edge stays straight between corners, or where it is far longer than its neighbours, has no share in the turning
///   around it, or would be farther than limits.bulge (0.1) from its arc: a regular polygon of 64 corners is a circle
///   up to a radius of 83, and a polygon beyond.
/// - Other edges are chords of curves: the fit leaves them by no more than the tolerance and the arc's own distance,
///   estimated from the turning of neighbouring chords (Chords.h).
/// @param run model units; fewer than 3 points come back as they are
Outline FitRun(std::span<const QPointF> run, Limits limits = {});

} // namespace curvesimulate
