/// One cubic through a stretch of a polyline, with the proof that it stays within the tolerance.
#pragma once

#include <QPointF>

#include <optional>
#include <span>
#include <vector>

namespace curvesimulate {

/// A cubic Bezier curve: end points p0 and p3, control points p1 and p2.
struct Cubic
{
    QPointF p0, p1, p2, p3;

    QPointF At(double t) const;
    QPointF FirstDerivative(double t) const;
    QPointF SecondDerivative(double t) const;
};

/// A stretch of a polyline: two or more vertices, no two neighbours equal, and the length of the polyline up to each.
struct Stretch
{
    std::span<const QPointF> points;
    std::span<const double> lengths;
    std::span<const double> bulges; ///< per segment: how much farther than the tolerance the cubic may leave it
};

/// The direction of a cubic at one end of its stretch; both point in the direction of travel.
struct End
{
    QPointF tangent;      ///< unit vector
    double freedom = 0.0; ///< radians by which the cubic may turn away from it; 0: it has exactly this tangent

    bool Allows(QPointF direction) const;
};

/// Fits single cubics. Its fields are working memory only.
class CubicFitter
{
public:
    /// The least-squares cubic from the stretch's first to its last vertex, with directions that both ends allow.
    /// Every vertex lies within tolerance of the cubic, and every point of the cubic within tolerance, and the bulge,
    /// of its segment; nothing when no such cubic is found.
    std::optional<Cubic> Fit(const Stretch& stretch, const End& start, const End& end, double tolerance);

private:
    void ParametersByLength(const Stretch& stretch);
    Cubic LeastSquares(const Stretch& stretch, const End& start, const End& end, double along) const;
    double Reparameterise(const Stretch& stretch, const Cubic& cubic);

    std::vector<double> m_parameters; ///< of the cubic, one for each vertex; ascending, 0 to 1
    std::vector<QPointF> m_normals;   ///< unit normals of the last cubic at the parameters
};

/// Whether the cubic and the stretch stay within tolerance, and the segments' bulges, of each other. parameters pairs
/// every vertex with a point of the cubic, ascending from 0 to 1. True is a proof; false may be over-cautious.
bool WithinTolerance(const Cubic& cubic, const Stretch& stretch, std::span<const double> parameters, double tolerance);

} // namespace curvesimulate
