#include "text/OutlineHit.h"

#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "geometry/Tolerances.h"

#include <QPainterPath>

#include <algorithm>

namespace shapes {

namespace {

/// Whether p lies outside the box of the points from element `first` to `last`, widened by reach.
bool IsFar(const QPainterPath& outline, int first, int last, QPointF p, double reach)
{
    bool left = true, right = true, above = true, below = true;
    for (int i = first; i <= last; ++i) {
        const QPainterPath::Element point = outline.elementAt(i);
        left = left && p.x() + reach < point.x;
        right = right && p.x() - reach > point.x;
        above = above && p.y() + reach < point.y;
        below = below && p.y() - reach > point.y;
    }
    return left || right || above || below;
}

/// The same of the curve whose first control point is element i.
bool IsNearCurve(const QPainterPath& outline, int i, double magnification, QPointF p, double reach)
{
    QPainterPath curve(outline.elementAt(i - 1));
    curve.cubicTo(outline.elementAt(i), outline.elementAt(i + 1), outline.elementAt(i + 2));
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
    for (int i = 1; i < outline.elementCount(); ++i) {
        const QPainterPath::ElementType type = outline.elementAt(i).type;
        if (type == QPainterPath::MoveToElement)
            continue;
        const int end = type == QPainterPath::LineToElement ? i : i + 2;
        if (end >= outline.elementCount())
            break; // a curve cut off, which the flattening leaves out too
        const bool near = !IsFar(outline, i - 1, end, p, reach) &&
                          (end == i ? IsNearSegment(p, outline.elementAt(i - 1), outline.elementAt(i), reach)
                                    : IsNearCurve(outline, i, magnification, p, reach));
        if (near)
            return true;
        i = end;
    }
    return false;
}

} // namespace shapes
