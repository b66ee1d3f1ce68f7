#include "text/OutlineHit.h"

#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "geometry/PathSteps.h"
#include "geometry/Tolerances.h"

#include <algorithm>
#include <span>

namespace shapes {

namespace {

/// Whether p lies outside the box around a line or curve that begins at from, grown by reach.
bool IsFar(QPointF from, const PathStep& step, QPointF p, double reach)
{
    bool left = true, right = true, above = true, below = true;
    const auto look = [&](QPointF point) {
        left = left && p.x() + reach < point.x();
        right = right && p.x() - reach > point.x();
        above = above && p.y() + reach < point.y();
        below = below && p.y() - reach > point.y();
    };
    look(from);
    for (const QPointF& point : std::span(step.points).first(step.IsCurve() ? 3 : 1))
        look(point);
    return left || right || above || below;
}

/// Whether p lies nearer than reach to the curve, flattened at the magnification.
bool IsNearCurve(QPointF from, const PathStep& step, double magnification, QPointF p, double reach)
{
    QPainterPath curve(from);
    curve.cubicTo(step.points[0], step.points[1], step.points[2]);
    const auto lines = MicroLines(MagnifiedPolygons(curve, magnification, Joining::KeepSubpaths));
    return std::any_of(lines.begin(), lines.end(), [&](const SHAPE_VECTOR_PATHDATA& line) {
        return IsNearSegment(p, line.ptStart, line.ptEnd, reach);
    });
}

} // namespace

bool IsNearOutline(const QPainterPath& outline, double magnification, QPointF p, double reach)
{
    const QRectF box = outline.controlPointRect();
    if (!IsFinite(box) || !IsFinite(QRectF(box.topLeft() * magnification, box.size() * magnification)))
        return false;
    QPointF from;
    for (const PathStep& step : PathSteps(outline)) {
        const bool near = !step.begins && !IsFar(from, step, p, reach) &&
                          (step.IsLine() ? IsNearSegment(p, from, step.End(), reach)
                                         : IsNearCurve(from, step, magnification, p, reach));
        if (near)
            return true;
        from = step.End();
    }
    return false;
}

} // namespace shapes
