#include "geometry/PolylinePath.h"

#include <QPainterPath>
#include <QPolygonF>

#include <cmath>

namespace shapes {

namespace {

/// Below this many points the checks cost more than they save.
constexpr size_t kFewPoints = 5;

/// Coordinates that differ by more than this, relative to their size and absolutely near 0, are not equal for QPointF
/// either: a thousand times its tolerance.
constexpr double kSurelyApart = 1e-9;

bool SurelyApart(double a, double b)
{
    return std::abs(a - b) > kSurelyApart * (1 + std::abs(a));
}

bool HasRepeats(std::span<const QPointF> points)
{
    for (size_t i = 1; i < points.size(); ++i) {
        const QPointF a = points[i], b = points[i - 1];
        if (!SurelyApart(a.x(), b.x()) && !SurelyApart(a.y(), b.y()) && a == b)
            return true;
    }
    return false;
}

} // namespace

void AddPolyline(QPainterPath& path, std::span<const QPointF> points)
{
    if (points.empty())
        return;
    // addPolygon spares lineTo's test for repeats. The last point goes through lineTo, which also updates the path's
    // convexity flag.
    const bool whole = points.size() >= kFewPoints && !HasRepeats(points);
    const size_t together = whole ? points.size() - 1 : 1;
    if (whole)
        path.addPolygon(
            QPolygonF(QList<QPointF>(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(together))));
    else
        path.moveTo(points[0]);
    for (const QPointF& point : points.subspan(together))
        path.lineTo(point);
}

} // namespace shapes
