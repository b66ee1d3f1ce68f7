#include "CubicFit.h"

#include "Plane.h"

#include <array>

namespace curvesimulate {

namespace {

constexpr int kRounds = 6; ///< of fit and reparameterisation
constexpr double kHopeless =
    100.0; ///< a first fit that misses by more than this many tolerances is not improved further
constexpr double kWorthwhile = 0.95; ///< a round has to bring the error below this share of the last one
constexpr double kAlong = 0.01;      ///< weight of distances along the cubic, after the first round
constexpr int kHalvings = 5;         ///< of one segment's piece of the cubic, in the proof

/// Piece of a cubic between two parameters, with its inner control points.
struct Piece
{
    double from, to;
    QPointF start, startSlope, end, endSlope;

    QPointF Control1() const { return start + startSlope * ((to - from) / 3.0); }
    QPointF Control2() const { return end - endSlope * ((to - from) / 3.0); }
};

/// Whether a piece stays near a segment. It lies in the convex hull of its control points, and the points near a
/// segment form a convex set: if all control points are in it, so is the piece. Otherwise tries its two halves.
bool PieceNearSegment(const Cubic& cubic, const Piece& piece, QPointF a, QPointF b, double tolerance2, int halvings)
{
    if (SegmentDistance2(piece.Control1(), a, b) <= tolerance2 &&
        SegmentDistance2(piece.Control2(), a, b) <= tolerance2)
        return true;
    if (halvings == 0)
        return false;
    const double middle = 0.5 * (piece.from + piece.to);
    const QPointF at = cubic.At(middle);
    if (!(SegmentDistance2(at, a, b) <= tolerance2))
        return false;
    const QPointF slope = cubic.FirstDerivative(middle);
    return PieceNearSegment(cubic, {piece.from, middle, piece.start, piece.startSlope, at, slope}, a, b, tolerance2,
                            halvings - 1) &&
           PieceNearSegment(cubic, {middle, piece.to, at, slope, piece.end, piece.endSlope}, a, b, tolerance2,
                            halvings - 1);
}

/// The unknowns: how far, and in which directions, the control points lie from their ends.
struct Offsets
{
    std::array<QPointF, 4> directions;
    size_t ofStart = 0;
    size_t count = 0;

    Offsets(const End& start, const End& end)
    {
        Add(start);
        ofStart = count;
        Add(end);
    }

    void Add(const End& end)
    {
        directions[count++] = end.tangent;
        if (end.freedom > 0.0)
            directions[count++] = QPointF(-end.tangent.y(), end.tangent.x());
    }

    /// The cubic of the solution; if that is implausible, one with handles along the tangents.
    Cubic Apply(const Stretch& stretch, const std::array<double, 4>& solution) const
    {
        QPointF start, end;
        for (size_t k = 0; k < count; ++k)
            (k < ofStart ? start : end) += directions[k] * solution[k];
        const double length = stretch.lengths.back() - stretch.lengths.front();
        const auto plausible = [length](QPointF handle, QPointF tangent) {
            return Dot(handle, tangent) > 1e-3 * length && Length(handle) < length;
        };
        if (!plausible(start, directions[0]) || !plausible(-end, directions[ofStart])) {
            start = directions[0] * (length / 3.0);
            end = -directions[ofStart] * (length / 3.0);
        }
        return {stretch.points.front(), stretch.points.front() + start, stretch.points.back() + end,
                stretch.points.back()};
    }
};

/// A symmetric system of up to four equations; only its lower half is kept.
struct NormalEquations
{
    explicit NormalEquations(size_t unknowns) : count(unknowns) {}

    /// Solves by Cholesky factorisation; not finite when the equations depend on each other.
    std::array<double, 4> Solve()
    {
        for (size_t k = 0; k < count; ++k) {
            for (size_t l = 0; l <= k; ++l) {
                for (size_t m = 0; m < l; ++m)
                    left[k][l] -= left[k][m] * left[l][m];
                left[k][l] = l < k ? left[k][l] / left[l][l] : std::sqrt(left[k][k]);
            }
            for (size_t m = 0; m < k; ++m)
                right[k] -= left[k][m] * right[m];
            right[k] /= left[k][k];
        }
        for (size_t k = count; k-- > 0;) {
            for (size_t m = k + 1; m < count; ++m)
                right[k] -= left[m][k] * right[m];
            right[k] /= left[k][k];
        }
        return right;
    }

    size_t count;
    std::array<std::array<double, 4>, 4> left{};
    std::array<double, 4> right{};
};

} // namespace

bool End::Allows(QPointF direction) const
{
    return !(freedom > 0.0) || Turn(tangent, direction) <= freedom;
}

QPointF Cubic::At(double t) const
{
    const double s = 1.0 - t;
    return p0 * (s * s * s) + p1 * (3.0 * s * s * t) + p2 * (3.0 * s * t * t) + p3 * (t * t * t);
}

QPointF Cubic::FirstDerivative(double t) const
{
    const double s = 1.0 - t;
    return ((p1 - p0) * (s * s) + (p2 - p1) * (2.0 * s * t) + (p3 - p2) * (t * t)) * 3.0;
}

QPointF Cubic::SecondDerivative(double t) const
{
    return ((p2 - p1 * 2.0 + p0) * (1.0 - t) + (p3 - p2 * 2.0 + p1) * t) * 6.0;
}

// The pairing of vertices and parameters makes the proof work both ways: between two vertices the piece of the cubic
// runs from near the one to near the other without leaving the segment's surroundings, so it passes every point of it.
bool WithinTolerance(const Cubic& cubic, const Stretch& stretch, std::span<const double> parameters, double tolerance)
{
    Piece piece{0.0, 0.0, cubic.p0, {}, cubic.p0, cubic.FirstDerivative(0.0)};
    for (size_t i = 1; i < stretch.points.size(); ++i) {
        piece.from = piece.to;
        piece.start = piece.end;
        piece.startSlope = piece.endSlope;
        piece.to = parameters[i];
        piece.end = cubic.At(piece.to);
        piece.endSlope = cubic.FirstDerivative(piece.to);
        const QPointF off = piece.end - stretch.points[i];
        const double near = tolerance + stretch.bulges[i - 1];
        if (!(Dot(off, off) <= tolerance * tolerance) ||
            !PieceNearSegment(cubic, piece, stretch.points[i - 1], stretch.points[i], near * near, kHalvings))
            return false;
    }
    return true;
}

void CubicFitter::ParametersByLength(const Stretch& stretch)
{
    const double start = stretch.lengths.front();
    const double length = stretch.lengths.back() - start;
    m_parameters.resize(stretch.points.size());
    m_normals.assign(stretch.points.size(), QPointF());
    for (size_t i = 0; i < m_parameters.size(); ++i)
        m_parameters[i] = (stretch.lengths[i] - start) / length;
}

// Normal equations of the control points' offsets, each vertex weighted by the share of the polyline it stands for
// (Schneider, "An Algorithm for Automatically Fitting Digitized Curves", Graphics Gems, 1990). Distances along the
// cubic count little once its normals are known: they come from the parameters, and would hold the handles back for
// many rounds (tangent distance minimisation: Wang, Pottmann, Liu, "Fitting B-Spline Curves to Point Clouds by
// Curvature-Based Squared Distance Minimization", ACM TOG 25, 2006).
Cubic CubicFitter::LeastSquares(const Stretch& stretch, const End& start, const End& end, double along) const
{
    const Offsets offsets(start, end);
    const QPointF chord = stretch.points.back() - stretch.points.front();
    NormalEquations equations(offsets.count);
    for (size_t i = 1; i + 1 < stretch.points.size(); ++i) {
        const double t = m_parameters[i];
        const double s = 1.0 - t;
        const double b1 = 3.0 * s * s * t;
        const double b2 = 3.0 * s * t * t;
        const QPointF rest = stretch.points[i] - stretch.points.front() - chord * (b2 + t * t * t);
        const QPointF normal = m_normals[i] * std::sqrt(1.0 - along);
        const double weight = stretch.lengths[i + 1] - stretch.lengths[i - 1];
        for (size_t k = 0; k < offsets.count; ++k) {
            const double share = weight * (k < offsets.ofStart ? b1 : b2);
            const double across = Dot(offsets.directions[k], normal);
            const QPointF metric = offsets.directions[k] * along + normal * across;
            equations.right[k] += share * Dot(metric, rest);
            for (size_t l = 0; l <= k; ++l)
                equations.left[k][l] += share * (l < offsets.ofStart ? b1 : b2) * Dot(metric, offsets.directions[l]);
        }
    }
    return offsets.Apply(stretch, equations.Solve());
}

/// One Newton step towards the nearest point of the cubic per vertex; computes the normals there. Returns the largest
/// distance expected afterwards.
double CubicFitter::Reparameterise(const Stretch& stretch, const Cubic& cubic)
{
    double worst2 = 0.0;
    for (size_t i = 1; i + 1 < stretch.points.size(); ++i) {
        double& t = m_parameters[i];
        const QPointF off = cubic.At(t) - stretch.points[i];
        const QPointF slope = cubic.FirstDerivative(t);
        const double along = Dot(off, slope);
        const double speed2 = Dot(slope, slope);
        worst2 = std::max(worst2, Dot(off, off) - (speed2 > 0.0 ? along * along / speed2 : 0.0));
        const double bend = speed2 + Dot(off, cubic.SecondDerivative(t));
        if (bend > 0.0)
            t -= along / bend;
        t = std::clamp(t, m_parameters[i - 1], 1.0);
        m_normals[i] = Unit(QPointF(-slope.y(), slope.x()));
    }
    return std::sqrt(worst2);
}

std::optional<Cubic> CubicFitter::Fit(const Stretch& stretch, const End& start, const End& end, double tolerance)
{
    ParametersByLength(stretch);
    double last = kHopeless * tolerance;
    for (int round = 0; round < kRounds; ++round) {
        const Cubic cubic = LeastSquares(stretch, start, end, round == 0 ? 1.0 : kAlong);
        const double error = Reparameterise(stretch, cubic);
        if (error <= tolerance && start.Allows(cubic.p1 - cubic.p0) && end.Allows(cubic.p3 - cubic.p2) &&
            WithinTolerance(cubic, stretch, m_parameters, tolerance))
            return cubic;
        if (!(error <= kWorthwhile * last))
            return std::nullopt;
        last = std::max(error, tolerance / kWorthwhile);
    }
    return std::nullopt;
}

} // namespace curvesimulate
