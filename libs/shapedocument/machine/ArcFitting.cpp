#include "machine/ArcFitting.h"

#include "machine/Bulge.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace shapedocument {

using shapes::Cross;

namespace {

/// mm: machines calculate in single precision, which on a larger circle errs by more than a tenth of the tolerance.
constexpr double kLargestRadius = 5000;
/// mm between an arc and the chord of two neighbouring points.
constexpr double kMostSagitta = 0.0004;
/// A little above the bulge of a half circle, so that rounding does not exclude one.
constexpr double kMostBulge = 1 + 1e-6;

bool IsNear(QPointF a, QPointF b, double tolerance)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) < 2 * tolerance;
}

/// The bulge of the arc from first to last through a point between them: the angle that the chords make at the point is
/// half the sweep.
double BulgeThrough(QPointF first, QPointF point, QPointF last)
{
    const QPointF a = point - first, b = last - point;
    return std::tan(std::atan2(Cross(a, b), QPointF::dotProduct(a, b)) / 2);
}

/// Unit vector across the arc from first through point to last, at that point.
QPointF AcrossArc(QPointF first, QPointF point, QPointF last)
{
    const QPointF a = point - first, b = last - point;
    const double a2 = QPointF::dotProduct(a, a), b2 = QPointF::dotProduct(b, b);
    const QPointF along = a * b2 + b * a2;
    const double length = std::hypot(along.x(), along.y());
    return length > 0 ? QPointF(-along.y(), along.x()) / length : QPointF();
}

bool PassesAll(std::span<const QPointF> points, double bulge, double tolerance)
{
    const QPointF first = points.front(), chord = points.back() - first;
    const double length = std::hypot(chord.x(), chord.y());
    const auto inner = points.subspan(1, points.size() - 2);
    if (bulge == 0)
        return std::all_of(inner.begin(), inner.end(),
                           [&](QPointF point) { return std::abs(Cross(chord, point - first)) <= tolerance * length; });
    const CircleArc arc = ArcOf(first, points.back(), bulge);
    return std::all_of(inner.begin(), inner.end(), [&](QPointF point) {
        const QPointF way = point - arc.center;
        return std::abs(std::hypot(way.x(), way.y()) - arc.radius) <= tolerance;
    });
}

/// Whether each point lies farther along the arc than the one before, and near enough to it that the arc stays within
/// kMostSagitta of their chord.
bool GoesAlong(std::span<const QPointF> points, double bulge)
{
    const auto forward = [&](QPointF from, QPointF to, QPointF direction) {
        return QPointF::dotProduct(to - from, direction) > 0;
    };
    const QPointF chord = points.back() - points.front();
    if (bulge == 0) {
        for (size_t i = 1; i < points.size(); ++i)
            if (!forward(points[i - 1], points[i], chord))
                return false;
        return true;
    }
    const CircleArc arc = ArcOf(points.front(), points.back(), bulge);
    for (size_t i = 1; i < points.size(); ++i) {
        const QPointF step = points[i] - points[i - 1];
        if (QPointF::dotProduct(step, step) > 8 * arc.radius * kMostSagitta)
            return false;
        const QPointF way = points[i - 1] + points[i] - 2 * arc.center;
        const QPointF along = arc.sweep > 0 ? QPointF(-way.y(), way.x()) : QPointF(way.y(), -way.x());
        if (!forward(points[i - 1], points[i], along))
            return false;
    }
    return true;
}

/// The bulge of an arc or line from the first point to the last that is within tolerance of those between; nothing when
/// there is none.
std::optional<double> FittingBulge(std::span<const QPointF> points, double tolerance)
{
    const QPointF first = points.front(), last = points.back(), chord = last - first;
    const double length = std::hypot(chord.x(), chord.y());
    if (points.size() == 2)
        return 0;
    if (length <= tolerance)
        return std::nullopt;
    double low = -kMostBulge, high = kMostBulge;
    for (const QPointF& point : points.subspan(1, points.size() - 2)) {
        if (IsNear(point, first, tolerance) || IsNear(point, last, tolerance))
            continue; // every arc passes near its ends
        const QPointF across = AcrossArc(first, point, last) * tolerance;
        const double one = BulgeThrough(first, point + across, last), other = BulgeThrough(first, point - across, last);
        low = std::max(low, std::min(one, other));
        high = std::min(high, std::max(one, other));
    }
    if (low > high)
        return std::nullopt;
    double bulge = low <= 0 && high >= 0 ? 0 : std::clamp((low + high) / 2, -1.0, 1.0);
    if (bulge != 0 && ArcOf(first, last, bulge).radius > kLargestRadius)
        bulge = 0;
    if (!PassesAll(points, bulge, tolerance) || !GoesAlong(points, bulge))
        return std::nullopt;
    return bulge;
}

/// Index of the last point that one arc or line reaches, and its bulge.
std::pair<size_t, double> LongestArc(std::span<const QPointF> points, double tolerance)
{
    size_t reached = 1, beyond = points.size();
    double bulge = 0;
    for (size_t step = 2; reached + 1 < beyond;) {
        const size_t tried = beyond < points.size() ? (reached + beyond) / 2 : std::min(step, points.size() - 1);
        if (const auto fits = FittingBulge(points.first(tried + 1), tolerance)) {
            reached = tried;
            bulge = *fits;
            step *= 2;
        } else {
            beyond = tried;
        }
    }
    return {reached, bulge};
}

} // namespace

void AppendArcs(std::span<const QPointF> points, double tolerance, std::vector<JobPoint>& arcs)
{
    while (points.size() > 1) {
        const auto [reached, bulge] = LongestArc(points, tolerance);
        arcs.back().bulge = bulge;
        points = points.subspan(reached);
        arcs.push_back({points.front(), 0});
    }
}

} // namespace shapedocument
