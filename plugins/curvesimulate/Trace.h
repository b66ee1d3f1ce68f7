/// What the fitter sees in a run of points: its vertices, and where it must be cut.
#pragma once

#include <QPointF>

#include <span>
#include <vector>

namespace curvesimulate {

/// Lengths in model units, angles in radians.
struct Limits
{
    double tolerance = 0.005;           ///< largest deviation of the fitted outline from the run, and back
    double corner = 0.3490658503988659; ///< 20 degrees: a sharper turn is a corner and stays
    double bulge = 0.1;                 ///< chords farther off their arc are drawn edges
    double kink = 0.05; ///< about 3 degrees: smaller turns are no kinks, however much they differ from their neighbours

    /// Vertices this close to a straight line are left out before fitting.
    double Thinning() const { return 0.01 * tolerance; }
    /// The deviation that is left for the cubics.
    double Fit() const { return tolerance - Thinning(); }
};

/// A run without repeated points. A closed run is continued beyond both ends by some of its own vertices, so that its
/// start point is like any other.
struct Trace
{
    std::vector<QPointF> points;
    std::vector<double> lengths; ///< of the polyline up to each point
    std::vector<char> corner;    ///< per point: a corner, or the end of an open run
    size_t first = 0;            ///< where the run begins
    size_t last = 0;             ///< and ends
};

/// The run's trace with its corners. Points must be finite.
Trace MakeTrace(std::span<const QPointF> run, const Limits& limits);

/// Angle by which the trace turns at a point that is neither its first nor its last, 0 to pi.
double TurnAt(const Trace& trace, size_t i);

/// The trace without the vertices that lie on a straight line between others. Corners and both ends stay.
Trace Thinned(const Trace& trace, const Limits& limits);

} // namespace curvesimulate
