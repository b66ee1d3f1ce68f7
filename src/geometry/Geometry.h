/// The geometry kernel: distances, angles, segments, arcs and cubics. Double precision unless stated; lengths of at
/// most kCoincident count as zero.
#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

class QPainterPath;

namespace shapes {

/// Of two vectors: positive where b is turned from a towards +y, by less than half a turn.
inline double Cross(QPointF a, QPointF b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/// Euclidean distance.
inline double PointDistance(QPointF a, QPointF b)
{
    const QPointF d = b - a;
    return std::sqrt(d.x() * d.x() + d.y() * d.y());
}

/// Angle at b in the triangle a, b, c, radians in [0, pi]. Its sine is rounded to 4 decimal places, so angles near 90
/// degrees are coarse; polygon directions rely on it. False, and angle 0, when two of the points coincide.
bool VertexAngle(QPointF a, QPointF b, QPointF c, double& angle);

/// Cross product of the unit directions a1 to a2 and b1 to b2, the second taken along x only (its y part counts as
/// zero); 0 when either has no length.
double TurnSign(QPointF a1, QPointF a2, QPointF b1, QPointF b2);

/// VertexAngle(p, b, q), or 2 pi minus it when TurnSign(p, b, b, q) is negative. False, and angle 0, when two of the
/// points coincide.
bool DirectedAngle(QPointF p, QPointF b, QPointF q, double& angle);

/// The angle plus or minus whole turns, in [0, 360]: 360 stays, larger multiples become 360, negative ones 0. What is
/// not finite stays as it is.
/// @param degrees any angle
double WithinFullTurn(double degrees);

/// The point at distance d from a on the way to b (beyond b where d is longer). False when the two coincide.
bool ExtendBeyond(QPointF a, QPointF b, double d, QPointF& out);

/// Squared distance from p to the segment from a to b, by projection, for searches over many segments. Hit tests alone
/// take PointSegmentDistance: it rounds otherwise, and hosts see which positions hit at exactly the tolerance.
inline double SegmentDistance2(QPointF p, QPointF a, QPointF b)
{
    const QPointF along = b - a;
    const double length2 = along.x() * along.x() + along.y() * along.y();
    const QPointF from = p - a;
    const double at =
        length2 > 0.0 ? std::clamp((from.x() * along.x() + from.y() * along.y()) / length2, 0.0, 1.0) : 0.0;
    const QPointF off = p - (a + along * at);
    return off.x() * off.x() + off.y() * off.y();
}

/// Distance from p to the segment from s to e, by the triangle's heights, for hit tests (see SegmentDistance2). foot,
/// when given, receives the nearest point of the segment.
double PointSegmentDistance(QPointF p, QPointF s, QPointF e, QPointF* foot = nullptr);

/// The distance that a hit test starts from: outlines without segments are this far away.
inline constexpr double kFarAway = 99999.0;

/// Whether PointSegmentDistance(p, s, e) is less than reach. Most far segments are rejected by their bounding boxes,
/// grown by more than the rounding error of the distance.
inline bool IsNearSegment(QPointF p, QPointF s, QPointF e, double reach)
{
    constexpr double kRounding = 1e-12; // relative to the coordinates
    const double size =
        std::abs(p.x()) + std::abs(p.y()) + std::abs(s.x()) + std::abs(s.y()) + std::abs(e.x()) + std::abs(e.y());
    const double margin = reach + kRounding * size;
    const bool far = std::min(s.x(), e.x()) > p.x() + margin || std::max(s.x(), e.x()) < p.x() - margin ||
                     std::min(s.y(), e.y()) > p.y() + margin || std::max(s.y(), e.y()) < p.y() - margin;
    return !far && PointSegmentDistance(p, s, e) < reach;
}

/// Cubics of an elliptical arc: a start point, then three points (control, control, end) for each of up to 4 pieces.
struct ArcCubics
{
    QPointF start;
    std::vector<QPointF> points;
};

/// The arc inscribed in rect from startAngle over sweep degrees (clamped to one turn), counter-clockwise on screen for
/// positive sweeps, in pieces of a quarter ellipse. Control points lie on the tangents at 0.5522847498 times the half
/// axis for a quarter and at 4/3 tan(sweep / 4) times it for a shorter piece. Empty for angles that are not finite.
ArcCubics ArcToCubics(const QRectF& rect, double startAngle, double sweep);

struct PointF32
{
    float x;
    float y;
};

/// Appends the cubic's points at parameter steps of h by forward differences: the start, int(1 / h) advances, and the
/// end point exactly. h below 1e-6 counts as 1e-6, NaN as 1.
void FlattenCubic(std::vector<PointF32>& out, QPointF p0, QPointF p1, QPointF p2, QPointF p3, double h);

/// Independent cubics (start, control, control, end), each a sub-path of its own.
using CubicSet = std::vector<std::array<QPointF, 4>>;
void AddCubics(QPainterPath& path, const CubicSet& cubics);

} // namespace shapes
