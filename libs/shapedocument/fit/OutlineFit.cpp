#include "fit/OutlineFit.h"

#include "fit/OutlineDistance.h"

#include "vector/ShapeVector.h"

#include <algorithm>
#include <vector>

namespace shapedocument {

namespace {

struct Outline
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
};

Outline OutlineOf(CShape& shape)
{
    Outline outline;
    shape.GetShapePathData(outline.points, outline.types);
    return outline;
}

/// The runs between separators; fitting changes neither their number nor their order.
std::vector<Outline> Runs(const Outline& outline)
{
    std::vector<Outline> runs(1);
    for (size_t i = 0; i < std::min(outline.points.size(), outline.types.size()); ++i) {
        if (outline.types[i] == ELINE_SEGMENT_SEPARATOR) {
            runs.emplace_back();
            continue;
        }
        runs.back().points.push_back(outline.points[i]);
        runs.back().types.push_back(outline.types[i]);
    }
    return runs;
}

double Deviation(const Outline& before, const Outline& after, const WorkProgress& progress)
{
    const std::vector<Outline> from = Runs(before), to = Runs(after);
    double deviation = 0.0;
    for (size_t i = 0; i < std::min(from.size(), to.size()); ++i) {
        if (from[i].points.size() > 1 && to[i].points.size() > 1 && from[i].points != to[i].points)
            deviation =
                std::max(deviation, OutlineDistance(from[i].points, DrawnRun(to[i].points, to[i].types), progress));
    }
    return deviation;
}

bool DrawsCurves(CShapeVector& shape)
{
    const QPainterPath* path = shape.GetPath(false);
    for (int i = 0; path && i < path->elementCount(); ++i)
        if (path->elementAt(i).isCurveTo())
            return true;
    return false;
}

/// Fits the outline as a polyline, whatever the shape's type is. Returns whether a shorter one has replaced it.
bool Refit(CShapeVector& shape, size_t points)
{
    const EVECTOR_TYPE type = shape.GetVectorType();
    shape.SetVectorType(EVECTOR_POLYLINE);
    shape.GetPath(true);
    if (OutlineOf(shape).points.size() < points)
        return true;
    shape.SetVectorType(type);
    shape.GetPath(true);
    return false;
}

} // namespace

/// Fits a flattened circle: fitting is on if it becomes shorter.
bool IsFittingOn()
{
    QPainterPath circle;
    circle.addEllipse(QPointF(0, 0), 10, 10);
    CShapeVector shape;
    shape.SetPath(&circle);
    shape.GetPath(true);
    return shape.GetVectorType() == EVECTOR_MIXED;
}

OutlineFit FitOutline(CShapeVector& shape, const WorkProgress& progress)
{
    const EVECTOR_TYPE type = shape.GetVectorType();
    const bool polyline = type == EVECTOR_POLYLINE || type == EVECTOR_POLYLINE_B;
    const Outline before = OutlineOf(shape);
    if (!polyline && DrawsCurves(shape)) // not for polylines: building their path would fit them
        return {FitOutcome::HasCurves, before.points.size(), before.points.size(), 0};
    WorkWatch(progress, WorkStep::Fitting).Ask();
    const bool fitted = Refit(shape, before.points.size());
    try {
        const Outline after = OutlineOf(shape);
        return {fitted ? FitOutcome::Fitted : FitOutcome::NotShorter, before.points.size(), after.points.size(),
                Deviation(before, after, progress)};
    } catch (...) {
        if (fitted) {
            shape.SetShapePoints(before.points, before.types);
            shape.SetVectorType(type);
        }
        throw;
    }
}

} // namespace shapedocument
