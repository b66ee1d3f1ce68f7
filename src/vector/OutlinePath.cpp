#include "vector/OutlinePath.h"

#include "geometry/PathSteps.h"
#include "geometry/PointRuns.h"
#include "geometry/PolylinePath.h"
#include "geometry/Tolerances.h"

#include <algorithm>
#include <limits>

namespace shapes {

namespace {

/// Index behind the finite straight points that begin at first; the point at first counts whatever its type. Missing
/// types count as straight.
size_t EndOfLines(const OutlineView& outline, size_t first)
{
    const QPointF* points = outline.points.data();
    const unsigned char* types = outline.types.data();
    const size_t count = outline.points.size(), typed = std::min(outline.types.size(), count);
    size_t end = first + 1;
    while (end < typed && types[end] == ELINE_SEGMENT_STRAIGHT && IsFinite(points[end]))
        ++end;
    if (end >= typed)
        while (end < count && IsFinite(points[end]))
            ++end;
    return end;
}

/// The part of a run that a polyline draws: all but the fill marker that closes it. Other markers are drawn like any
/// point; the closing one is left out so that an outline closed for filling gains no line when it becomes a polyline.
/// It is an exact copy of the run's start and stays one through transforms, records and fits. CShape::ReverseDir moves
/// it to the front.
PointRun WithoutMarker(const OutlineView& outline, PointRun run)
{
    if (run.end - run.begin < 2)
        return run;
    const QPointF first = outline.points[run.begin], last = outline.points[run.end - 1];
    if (first.x() != last.x() || first.y() != last.y())
        return run;
    if (outline.Type(run.end - 1) == ELINE_SEGMENT_FILL)
        return {run.begin, run.end - 1};
    return {run.begin + (outline.Type(run.begin) == ELINE_SEGMENT_FILL ? 1 : 0), run.end};
}

/// Whether a curve triple begins at i: two curve points and the point behind them, as AddMixedOutline reads them. The
/// third may be straight: after CShape::ReverseDir it is the former start of the curve.
bool IsTriple(const OutlineView& outline, size_t i, size_t end)
{
    return i + 2 < end && outline.Type(i) == ELINE_SEGMENT_CURVE && outline.Type(i + 1) == ELINE_SEGMENT_CURVE &&
           outline.Type(i + 2) != ELINE_SEGMENT_FILL;
}

/// Calls visit(first, count) for each piece of a run: one point for its start and for every line, three for a curve.
template <class Visit>
void ForEachPiece(const OutlineView& outline, PointRun run, Visit visit)
{
    for (size_t i = run.begin, count = 1; i < run.end; i += count) {
        count = i > run.begin && IsTriple(outline, i, run.end) ? kTriple : 1;
        visit(i, count);
    }
}

bool HoldsCurvePoint(const OutlineView& outline, PointRun run)
{
    const auto types = outline.types.first(std::min(run.end, outline.types.size()));
    const auto begin = types.begin() + static_cast<std::ptrdiff_t>(std::min(run.begin, types.size()));
    return std::find(begin, types.end(), ELINE_SEGMENT_CURVE) != types.end();
}

void AddRunOfLines(QPainterPath& path, std::span<const QPointF> points)
{
    const auto finite = [](QPointF point) { return IsFinite(point); };
    for (auto begin = points.begin(); begin != points.end();) {
        const auto end = std::find_if_not(begin, points.end(), finite);
        if (begin != end)
            AddPolyline(path, {begin, end});
        begin = std::find_if(end, points.end(), finite);
    }
}

void AddRunWithCurves(QPainterPath& path, const OutlineView& outline, PointRun run)
{
    bool joined = false;
    ForEachPiece(outline, run, [&](size_t i, size_t count) {
        const std::span<const QPointF> piece = outline.points.subspan(i, count);
        if (!joined || !AreFinite(piece)) {
            joined = IsFinite(piece.back());
            if (joined)
                path.moveTo(piece.back());
        } else if (count == kTriple) {
            path.cubicTo(piece[0], piece[1], piece[2]);
        } else {
            path.lineTo(piece[0]);
        }
    });
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
    const std::span<const QPointF> points = outline.points;
    for (const PointRun run : PointRuns(outline.types, points.size())) {
        const PointRun drawn = WithoutMarker(outline, run);
        const std::span<const QPointF> drawnPoints = points.subspan(drawn.begin, drawn.end - drawn.begin);
        if (std::none_of(drawnPoints.begin(), drawnPoints.end(), [](QPointF point) { return IsFinite(point); }))
            continue;
        ReserveElements(path, points.size());
        if (HoldsCurvePoint(outline, drawn))
            AddRunWithCurves(path, outline, drawn);
        else
            AddRunOfLines(path, drawnPoints);
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
            const size_t end = EndOfLines(outline, i);
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

bool HoldsStrayCurves(const OutlineView& outline)
{
    bool any = false;
    for (const PointRun run : PointRuns(outline.types, outline.points.size()))
        ForEachPiece(outline, run, [&](size_t i, size_t count) {
            any |= count == 1 && i > run.begin && outline.Type(i) == ELINE_SEGMENT_CURVE;
        });
    return any;
}

void TypeAsDrawn(const std::vector<QPointF>& points, std::vector<unsigned char>& types)
{
    const std::vector<unsigned char> given = types;
    const OutlineView outline{points, given};
    for (const PointRun run : PointRuns(given, points.size()))
        ForEachPiece(outline, WithoutMarker(outline, run), [&types](size_t i, size_t count) {
            const auto first = types.begin() + static_cast<std::ptrdiff_t>(i);
            std::fill_n(first, count, count == 1 ? ELINE_SEGMENT_STRAIGHT : ELINE_SEGMENT_CURVE);
        });
}

void AppendStep(const PathStep& step, std::vector<QPointF>& points, std::vector<unsigned char>& types)
{
    points.insert(points.end(), step.points.begin(), step.points.begin() + (step.IsCurve() ? 3 : 1));
    types.resize(points.size(), step.IsCurve() ? ELINE_SEGMENT_CURVE : ELINE_SEGMENT_STRAIGHT);
}

bool DrawsAnything(const OutlineView& outline)
{
    QPainterPath path;
    AddMixedOutline(path, outline);
    for (const PathStep& step : PathSteps(path)) // a painter path leaves out lines and curves without length
        if (!step.IsMove())
            return true;
    return false;
}

} // namespace shapes
