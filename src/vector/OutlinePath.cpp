#include "vector/OutlinePath.h"

#include "geometry/PointRuns.h"
#include "geometry/PolylinePath.h"
#include "geometry/Tolerances.h"

#include <QPainterPath>

#include <algorithm>
#include <limits>

namespace shapes {

namespace {

constexpr size_t kTriple = 3; ///< points of a cubic behind its start: control, control, end

/// Behind the last of the finite points from first on, the first being one of them, that drawn() accepts by their type.
/// It accepts straight ones, so missing types as well.
template <class Drawn>
size_t EndOfRun(const OutlineView& outline, size_t first, Drawn drawn)
{
    const QPointF* points = outline.points.data();
    const unsigned char* types = outline.types.data();
    const size_t count = outline.points.size(), typed = std::min(outline.types.size(), count);
    size_t end = first + 1;
    while (end < typed && drawn(types[end]) && IsFinite(points[end]))
        ++end;
    if (end >= typed)
        while (end < count && IsFinite(points[end]))
            ++end;
    return end;
}

bool HoldsCurveTriple(const OutlineView& outline, PointRun run)
{
    const size_t typed = std::min(run.end, outline.types.size());
    if (run.begin + kTriple >= typed)
        return false;
    const auto behindStart = outline.types.subspan(run.begin + 1, typed - run.begin - 1);
    return std::search_n(behindStart.begin(), behindStart.end(), kTriple,
                         static_cast<unsigned char>(ELINE_SEGMENT_CURVE)) != behindStart.end();
}

/// A marker is an exact copy of its run's start, and stays one through transforms and records.
bool IsClosedByMarker(const OutlineView& outline, PointRun run)
{
    const QPointF first = outline.points[run.begin], last = outline.points[run.end - 1];
    return run.end - run.begin > 1 && outline.Type(run.end - 1) == ELINE_SEGMENT_FILL && last.x() == first.x() &&
           last.y() == first.y();
}

} // namespace

bool AreFinite(std::span<const QPointF> points)
{
    return std::all_of(points.begin(), points.end(), [](QPointF point) { return IsFinite(point); });
}

void ReserveElements(QPainterPath& path, size_t points)
{
    path.reserve(static_cast<int>(std::min<size_t>(points, std::numeric_limits<int>::max())));
}

void AddPolylineOutline(QPainterPath& path, const OutlineView& outline)
{
    const auto drawn = [](unsigned char type) { return type != ELINE_SEGMENT_SEPARATOR; };
    const std::span<const QPointF> points = outline.points;
    for (size_t i = 0; i < points.size();) {
        if (!drawn(outline.Type(i)) || !IsFinite(points[i])) {
            ++i;
            continue;
        }
        const size_t end = EndOfRun(outline, i, drawn);
        ReserveElements(path, points.size());
        const size_t drawnEnd = IsClosedByMarker(outline, {i, end}) ? end - 1 : end;
        AddPolyline(path, points.subspan(i, drawnEnd - i));
        i = end;
    }
}

void AddMixedOutline(QPainterPath& path, const OutlineView& outline)
{
    const std::span<const QPointF> points = outline.points;
    const size_t count = points.size();
    bool newSubpath = true;
    for (size_t i = 0; i < count; ++i) {
        switch (outline.Type(i)) {
        case ELINE_SEGMENT_SEPARATOR:
            newSubpath = true;
            continue;
        case ELINE_SEGMENT_FILL:
            continue;
        default:
            break;
        }
        const bool curve = !newSubpath && outline.Type(i) == ELINE_SEGMENT_CURVE;
        if (curve && i + 2 >= count)
            continue;
        if (!AreFinite(points.subspan(i, curve ? kTriple : 1))) {
            newSubpath = true;
            i += curve ? 2 : 0;
            continue;
        }
        if (newSubpath) {
            const size_t end = EndOfRun(outline, i, [](unsigned char type) { return type == ELINE_SEGMENT_STRAIGHT; });
            ReserveElements(path, count);
            AddPolyline(path, points.subspan(i, end - i));
            newSubpath = false;
            i = end - 1;
            continue;
        }
        if (curve) {
            path.cubicTo(points[i], points[i + 1], points[i + 2]);
            i += 2;
        }
        if (outline.Type(i) == ELINE_SEGMENT_STRAIGHT)
            path.lineTo(points[i]);
    }
}

bool HoldsCurves(const OutlineView& outline)
{
    if (std::find(outline.types.begin(), outline.types.end(), ELINE_SEGMENT_CURVE) == outline.types.end())
        return false; // nearly all polylines
    for (const PointRun run : PointRuns(outline.types, outline.points.size()))
        if (HoldsCurveTriple(outline, run))
            return true;
    return false;
}

bool DrawsAnything(const OutlineView& outline)
{
    QPainterPath path;
    AddMixedOutline(path, outline);
    for (int i = 0; i < path.elementCount(); ++i) // lines and curves without length are not taken in
        if (!path.elementAt(i).isMoveTo())
            return true;
    return false;
}

} // namespace shapes
