#include "geometry/Geometry.h"

#include "geometry/Tolerances.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace shapes {

namespace {

constexpr double kSineSteps = 10000; ///< sines of angles are rounded to multiples of 1 / kSineSteps
constexpr double kFullTurn = 360;
constexpr double kQuarterKappa = 0.5522847498;
constexpr double kSmallestStep = 1e-6; ///< smallest parameter step of FlattenCubic

double RootOf(double radicand)
{
    return std::sqrt(std::max(0.0, radicand)); // Rounding may push a zero below zero.
}

/// Unit vector at that angle in degrees, counter-clockwise on screen; exact at multiples of 90.
QPointF Direction(double degrees)
{
    const double quarter = degrees / 90;
    if (quarter == std::floor(quarter)) {
        constexpr std::array<QPointF, 4> axes{QPointF(1, 0), QPointF(0, -1), QPointF(-1, 0), QPointF(0, 1)};
        return axes[static_cast<size_t>(std::fmod(std::fmod(quarter, 4) + 4, 4))];
    }
    const double radians = degrees * std::numbers::pi / 180;
    return {std::cos(radians), -std::sin(radians)};
}

/// Distance of an arc piece's control point from its end point along the tangent, as a fraction of the half axis.
double Kappa(double sweep)
{
    return sweep == 90 ? kQuarterKappa : 4.0 / 3 * std::tan(sweep * std::numbers::pi / 720);
}

} // namespace

bool VertexAngle(QPointF a, QPointF b, QPointF c, double& angle)
{
    angle = 0;
    const double ab = PointDistance(a, b), cb = PointDistance(c, b), ac = PointDistance(a, c);
    if (ab <= kCoincident || cb <= kCoincident || ac <= kCoincident)
        return false;
    if (std::abs(ac - (ab + cb)) <= kCoincident) {
        angle = std::numbers::pi;
        return true;
    }
    const double s = (ab + cb + ac) / 2;
    const double area = RootOf(s * (s - ab) * (s - cb) * (s - ac));
    const double sine = std::round(2 * area / (ab * cb) * kSineSteps) / kSineSteps;
    angle = std::asin(std::min(sine, 1.0));
    if (ab * ab + cb * cb < ac * ac)
        angle = std::numbers::pi - angle;
    return true;
}

double TurnSign(QPointF a1, QPointF a2, QPointF b1, QPointF b2)
{
    const double first = PointDistance(a1, a2);
    const double second = std::abs(b2.x() - b1.x()); // Only the x part of the second direction counts.
    if (first <= kCoincident || second <= kCoincident)
        return 0;
    return -((b2.x() - b1.x()) / second) * ((a2.y() - a1.y()) / first);
}

bool DirectedAngle(QPointF p, QPointF b, QPointF q, double& angle)
{
    if (!VertexAngle(p, b, q, angle))
        return false;
    if (TurnSign(p, b, b, q) < 0)
        angle = 2 * std::numbers::pi - angle;
    return true;
}

double WithinFullTurn(double degrees)
{
    if (!std::isfinite(degrees) || (degrees >= 0 && degrees <= kFullTurn))
        return degrees;
    const double rest = std::fmod(degrees, kFullTurn);
    if (degrees > 0)
        return rest == 0 ? kFullTurn : rest;
    return rest == 0 ? 0 : rest + kFullTurn;
}

bool ExtendBeyond(QPointF a, QPointF b, double d, QPointF& out)
{
    const double length = PointDistance(a, b);
    if (!(length > kCoincident))
        return false;
    out = a + (b - a) * d / length;
    return true;
}

double PointSegmentDistance(QPointF p, QPointF s, QPointF e, QPointF* foot)
{
    const auto answer = [foot](QPointF nearest, double distance) {
        if (foot)
            *foot = nearest;
        return distance;
    };
    const double length = PointDistance(s, e), toStart = PointDistance(p, s), toEnd = PointDistance(p, e);
    if (!(length > kCoincident)) // coincident ends, or NaN
        return answer(s, toStart);
    const double height = std::abs(Cross(e - s, p - s)) / length;
    const double alongStart = RootOf(toStart * toStart - height * height);
    const double alongEnd = RootOf(toEnd * toEnd - height * height);
    if (length < alongStart || length < alongEnd)
        return toStart <= toEnd ? answer(s, toStart) : answer(e, toEnd);
    return answer(s + (e - s) * alongStart / length, height);
}

ArcCubics ArcToCubics(const QRectF& rect, double startAngle, double sweep)
{
    const double halfWidth = rect.width() / 2, halfHeight = rect.height() / 2;
    // Measured from the corner, so that a full half axis ends exactly on the rectangle's edge.
    const auto place = [&](QPointF unit) {
        return QPointF(rect.x() + halfWidth * (1 + unit.x()), rect.y() + halfHeight * (1 + unit.y()));
    };
    if (!AllFinite({startAngle, sweep}))
        return {};
    sweep = std::clamp(sweep, -kFullTurn, kFullTurn);
    const double sense = sweep < 0 ? -1 : 1;
    ArcCubics arc;
    arc.start = place(Direction(startAngle));
    for (double done = 0; done < std::abs(sweep); done += 90) {
        const double piece = std::min(90.0, std::abs(sweep) - done);
        const double from = startAngle + sense * done, to = from + sense * piece;
        const double kappa = Kappa(piece) * sense;
        // The tangent of a circle is its radius turned by 90 degrees.
        arc.points.push_back(place(Direction(from) + kappa * Direction(from + 90)));
        arc.points.push_back(place(Direction(to) - kappa * Direction(to + 90)));
        arc.points.push_back(place(Direction(to)));
    }
    return arc;
}

void FlattenCubic(std::vector<PointF32>& out, QPointF p0, QPointF p1, QPointF p2, QPointF p3, double h)
{
    h = h >= kSmallestStep ? h : (std::isnan(h) ? 1 : kSmallestStep);
    const auto append = [&out](QPointF p) { out.push_back({static_cast<float>(p.x()), static_cast<float>(p.y())}); };
    const double h2 = h * h, h3 = h2 * h;
    const QPointF bend = p0 - 2 * p1 + p2;
    const QPointF twist = 3 * (p1 - p2) - p0 + p3;
    QPointF point = p0;
    QPointF first = 3 * h * (p1 - p0) + 3 * h2 * bend + h3 * twist;
    QPointF second = 6 * h2 * bend + 6 * h3 * twist;
    const QPointF third = 6 * h3 * twist;
    append(p0);
    for (int step = static_cast<int>(1 / h); step > 0; --step) {
        point += first;
        first += second;
        second += third;
        append(point);
    }
    append(p3);
}

void AddCubics(QPainterPath& path, const CubicSet& cubics)
{
    for (const auto& [start, control1, control2, end] : cubics) {
        path.moveTo(start);
        path.cubicTo(control1, control2, end);
    }
}

} // namespace shapes
