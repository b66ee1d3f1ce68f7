#include "CubicFit.h"

#include "Plane.h"

namespace curvesimulate {

namespace {

constexpr int kRounds = 6;           ///< of fit and reparameterisation
constexpr double kHopeless = 100.0;  ///< a first fit that misses by more tolerances is not improved further
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

/// A piece lies in the hull of its control points, and all within tolerance of a segment is convex: control points near
/// the segment prove it for the piece. Halves the piece where the hull is too wide.
bool PieceNearSegment(const Cubic& cubic, const Piece& piece, QPointF a, QPointF b, double tolerance2, int halvings)
{
    if (SegmentDistance2(piece.Control1(), a, b) <= tolerance2 &&
        SegmentDistance2(piece.Control2(), a, b) <= tolerance2) {
        return true;
    }
    if (halvings == 0) {
        return false;
    }
    const double middle = 0.5 * (piece.from + piece.to);
    const QPointF at = cubic.At(middle);
    if (!(SegmentDistance2(at, a, b) <= tolerance2)) {
        return false;
    }
    const QPointF slope = cubic.FirstDerivative(middle);
    return PieceNearSegment(cubic, {piece.from, middle, piece.start, piece.startSlope, at, slope}, a, b, tolerance2,
                            halvings - 1) &&
           PieceNearSegment(cubic, {middle, piece.to, at, slope, piece.end, piece.endSlope}, a, b, tolerance2,
                            halvings - 1);
}

} // namespace

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
    const double tolerance2 = tolerance * tolerance;
    Piece piece{0.0, 0.0, cubic.p0, {}, cubic.p0, cubic.FirstDerivative(0.0)};
    for (size_t i = 1; i < stretch.points.size(); ++i) {
        piece.from = piece.to;
        piece.start = piece.end;
        piece.startSlope = piece.endSlope;
        piece.to = parameters[i];
        piece.end = cubic.At(piece.to);
        piece.endSlope = cubic.FirstDerivative(piece.to);
        const QPointF off = piece.end - stretch.points[i];
        if (!(Dot(off, off) <= tolerance2) ||
            !PieceNearSegment(cubic, piece, stretch.points[i - 1], stretch.points[i], tolerance2, kHalvings)) {
            return false;
        }
    }
    return true;
}

void CubicFitter::ParametersByLength(const Stretch& stretch)
{
    const double start = stretch.lengths.front();
    const double length = stretch.lengths.back() - start;
    m_parameters.resize(stretch.points.size());
    m_normals.assign(stretch.points.size(), QPointF());
    for (size_t i = 0; i < m_parameters.size(); ++i) {
        m_parameters[i] = (stretch.lengths[i] - start) / length;
    }
}

// Normal equations of the two handle lengths, each vertex weighted by the share of the polyline it stands for
// (Schneider, "An Algorithm for Automatically Fitting Digitized Curves", Graphics Gems, 1990). Distances along the cubic
// count little once its normals are known: they come from the parameters, and would hold the handles back for many
// rounds (tangent distance minimisation: Wang, Pottmann, Liu, "Fitting B-Spline Curves to Point Clouds by Curvature-Based
// Squared Distance Minimization", ACM TOG 25, 2006).
Cubic CubicFitter::LeastSquares(const Stretch& stretch, QPointF startTangent, QPointF endTangent, double along) const
{
    const QPointF chord = stretch.points.back() - stretch.points.front();
    const double straight = along * Dot(startTangent, endTangent);
    double c00 = 0.0, c01 = 0.0, c11 = 0.0, x0 = 0.0, x1 = 0.0;
    for (size_t i = 1; i + 1 < stretch.points.size(); ++i) {
        const double t = m_parameters[i];
        const double s = 1.0 - t;
        const double b1 = 3.0 * s * s * t;
        const double b2 = 3.0 * s * t * t;
        const QPointF rest = stretch.points[i] - stretch.points.front() - chord * (b2 + t * t * t);
        const QPointF normal = m_normals[i];
        const double startAcross = (1.0 - along) * Dot(startTangent, normal);
        const double endAcross = (1.0 - along) * Dot(endTangent, normal);
        const double restAcross = Dot(rest, normal);
        const double weight = stretch.lengths[i + 1] - stretch.lengths[i - 1];
        c00 += weight * b1 * b1 * (along + startAcross * Dot(startTangent, normal));
        c01 -= weight * b1 * b2 * (straight + startAcross * Dot(endTangent, normal));
        c11 += weight * b2 * b2 * (along + endAcross * Dot(endTangent, normal));
        x0 += weight * b1 * (along * Dot(startTangent, rest) + startAcross * restAcross);
        x1 -= weight * b2 * (along * Dot(endTangent, rest) + endAcross * restAcross);
    }
    const double length = stretch.lengths.back() - stretch.lengths.front();
    const double determinant = c00 * c11 - c01 * c01;
    double startHandle = (x0 * c11 - x1 * c01) / determinant;
    double endHandle = (c00 * x1 - c01 * x0) / determinant;
    const auto plausible = [length](double handle) { return handle > 1e-3 * length && handle < length; };
    if (!plausible(startHandle) || !plausible(endHandle)) {
        startHandle = endHandle = length / 3.0;
    }
    return {stretch.points.front(), stretch.points.front() + startTangent * startHandle,
            stretch.points.back() - endTangent * endHandle, stretch.points.back()};
}

/// One Newton step towards the nearest point of the cubic per vertex; takes the normals there. Returns the largest distance expected afterwards.
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
        if (bend > 0.0) {
            t -= along / bend;
        }
        t = std::clamp(t, m_parameters[i - 1], 1.0);
        m_normals[i] = Unit(QPointF(-slope.y(), slope.x()));
    }
    return std::sqrt(worst2);
}

std::optional<Cubic> CubicFitter::Fit(const Stretch& stretch, QPointF startTangent, QPointF endTangent,
                                      double tolerance)
{
    ParametersByLength(stretch);
    double last = kHopeless * tolerance;
    for (int round = 0; round < kRounds; ++round) {
        const Cubic cubic = LeastSquares(stretch, startTangent, endTangent, round == 0 ? 1.0 : kAlong);
        const double error = Reparameterise(stretch, cubic);
        if (error <= tolerance && WithinTolerance(cubic, stretch, m_parameters, tolerance)) {
            return cubic;
        }
        if (!(error <= kWorthwhile * last)) {
            return std::nullopt;
        }
        last = std::max(error, tolerance / kWorthwhile);
    }
    return std::nullopt;
}

} // namespace curvesimulate
