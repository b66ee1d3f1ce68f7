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
};

/// Fits single cubics. Holds nothing but working memory.
class CubicFitter
{
public:
    /// The least-squares cubic from the stretch's first to its last vertex that leaves and arrives along the two unit
    /// tangents (both in the direction of travel). Every point of the cubic lies within tolerance of the stretch, and
    /// every point of the stretch within tolerance of the cubic; nothing when no such cubic is found.
    std::optional<Cubic> Fit(const Stretch& stretch, QPointF startTangent, QPointF endTangent, double tolerance);

private:
    void ParametersByLength(const Stretch& stretch);
    Cubic LeastSquares(const Stretch& stretch, QPointF startTangent, QPointF endTangent, double along) const;
    double Reparameterise(const Stretch& stretch, const Cubic& cubic);

    std::vector<double> m_parameters; ///< of the point of the cubic that stands for each vertex; ascending, 0 to 1
    std::vector<QPointF> m_normals;   ///< unit normals of the last cubic at the parameters
};

/// Whether the cubic and the stretch stay within tolerance of each other, both ways. parameters pairs every vertex with
/// a point of the cubic, ascending from 0 to 1. A true answer is a proof; a false one may be over-cautious.
bool WithinTolerance(const Cubic& cubic, const Stretch& stretch, std::span<const double> parameters, double tolerance);

} // namespace curvesimulate
