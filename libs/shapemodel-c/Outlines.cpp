/// Points of outlines, and the lines made from them.
#include "Application.h"
#include "Arguments.h"
#include "Buffer.h"
#include "Edits.h"
#include "Entry.h"
#include "OutlineCheck.h"
#include "Progress.h"
#include "document/ShapeWalk.h"
#include "machine/OutlineRuns.h"

#include "image/ShapeImage.h"
#include "list/ShapeListView.h"
#include "vector/ShapeVector.h"

#include <QPainterPath>

#include <algorithm>
#include <cstring>

using namespace capi;
using namespace shapedocument;

namespace {

static_assert(sizeof(QPointF) == 2 * sizeof(double), "points are lent as doubles");

struct Outline
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
};

/// Throws Refusal.
Outline OutlineOf(const double* xy, const uint8_t* types, size_t count)
{
    ExpectOutline(xy, types, count);
    Outline outline;
    outline.points.resize(count);
    std::memcpy(static_cast<void*>(outline.points.data()), xy, count * sizeof(QPointF));
    if (types)
        outline.types.assign(types, types + count);
    else
        outline.types.assign(count, SM_POINT_STRAIGHT);
    return outline;
}

sm_shape NewVector(EVECTOR_TYPE type, const std::function<void(CShapeVector&)>& draw)
{
    ExpectApplication();
    auto shape = std::make_unique<CShapeVector>();
    shape->SetVectorType(type);
    draw(*shape);
    return Detached(std::move(shape));
}

CShapeVector& VectorOf(const ShapeUse& use)
{
    auto& vector = use.As<CShapeVector>();
    Expect(vector.GetShapeType() == ESHAPE_VECTOR, SM_WRONG_KIND, "the shape is no vector");
    return vector;
}

/// The points, after pending changes: pictures replay edits, and polylines may be fitted.
const std::vector<QPointF>& PointsOf(const ShapeUse& use)
{
    const ESHAPE_TYPE type = use->GetShapeType();
    Expect(type == ESHAPE_VECTOR || dynamic_cast<CShapeImage*>(&*use), SM_WRONG_KIND,
           "the shape has no points of its own");
    auto* vector = dynamic_cast<CShapeVector*>(&*use);
    if (!vector || vector->GetVectorType() == EVECTOR_POLYLINE || vector->GetVectorType() == EVECTOR_POLYLINE_B)
        use->GetPath(false);
    return use->GetShapePoints();
}

/// The types of the points. Where a document holds fewer types than points, the missing ones become straight.
const uint8_t* TypesOf(CShape& shape)
{
    const size_t points = shape.GetShapePoints().size();
    if (shape.GetShapePointTypes().size() < points) {
        std::vector<unsigned char> types = shape.GetShapePointTypes();
        types.resize(points, SM_POINT_STRAIGHT);
        shape.SetShapePoints(shape.GetShapePoints(), types);
    }
    return shape.GetShapePointTypes().data();
}

/// All lines in one array.
struct Lines
{
    std::vector<double> xy;
    std::vector<uint64_t> starts{0};

    void Add(const std::vector<JobPoint>& run)
    {
        for (const JobPoint& point : run) {
            xy.push_back(point.point.x());
            xy.push_back(point.point.y());
        }
        starts.push_back(xy.size() / 2);
    }
};

Lines LinesOf(CShape& shape, const WorkProgress& progress)
{
    const ShapeListView view(shape);
    const size_t outlines = OutlineCount(view.List());
    Expect(outlines <= kMostOutlines, SM_REFUSED, "its arrays ask for too many outlines");
    Lines lines;
    WorkWatch watch(progress, WorkStep::Lines, outlines);
    ForEachVisibleOutline(view.List(), [&](CShape& visible) {
        watch.Ask();
        ForEachRun(*visible.GetPath(false), false, [&](const std::vector<JobPoint>& run, bool) {
            watch.Ask();
            lines.Add(run);
        });
        watch.Next();
    });
    return lines;
}

} // namespace

sm_status sm_vector_new(const double* xy, const uint8_t* types, size_t count, sm_shape* shape)
{
    return Enter([=] {
        Clear(shape, "shape");
        const Outline outline = OutlineOf(xy, types, count);
        *shape = NewVector(EVECTOR_MIXED,
                           [&](CShapeVector& vector) { vector.SetShapePoints(outline.points, outline.types); });
    });
}

sm_status sm_vector_new_rectangle(sm_rect rect, sm_shape* shape)
{
    return Enter([=] {
        Clear(shape, "shape");
        const QRectF taken = RectOf(rect);
        *shape = NewVector(EVECTOR_RECT, [&](CShapeVector& vector) { vector.SetShapeRect(taken); });
    });
}

sm_status sm_vector_new_ellipse(sm_rect rect, sm_shape* shape)
{
    return Enter([=] {
        Clear(shape, "shape");
        const QRectF taken = RectOf(rect);
        *shape = NewVector(EVECTOR_ELLIPSE, [&](CShapeVector& vector) { vector.SetShapeEllipse(taken); });
    });
}

sm_status sm_shape_points(sm_shape shape, double* xy, uint8_t* types, size_t capacity, size_t* count)
{
    return Enter([=] {
        Clear(count, "count");
        const ShapeUse use(shape);
        const std::vector<QPointF>& points = PointsOf(use);
        *count = points.size();
        if (!HasRoom(points.size(), capacity, xy ? static_cast<const void*>(xy) : types))
            return;
        if (xy && !points.empty())
            std::memcpy(xy, static_cast<const void*>(points.data()), points.size() * sizeof(QPointF));
        if (types)
            std::copy_n(TypesOf(*use), points.size(), types);
    });
}

sm_status sm_shape_borrow_points(sm_shape shape, const double** xy, const uint8_t** types, size_t* count)
{
    return Enter([=] {
        Clear(xy, "xy");
        Clear(types, "types");
        Clear(count, "count");
        const ShapeUse use(shape);
        PointsOf(use);
        *types = TypesOf(*use);
        *xy = reinterpret_cast<const double*>(use->GetShapePoints().data());
        *count = use->GetShapePoints().size();
    });
}

sm_status sm_shape_set_points(sm_shape vector, const double* xy, const uint8_t* types, size_t count)
{
    return Enter([=] {
        const Outline outline = OutlineOf(xy, types, count);
        const ShapeUse use(vector);
        CShapeVector& changed = VectorOf(use);
        ExpectEditable(use);
        changed.SetShapePoints(outline.points, outline.types);
        changed.SetVectorType(EVECTOR_MIXED);
        FinishEdit(use);
    });
}

sm_status sm_shape_lines(sm_shape shape, sm_progress progress, void* context, sm_buffer* xy, sm_buffer* starts)
{
    return Enter([=] {
        Clear(xy, "xy");
        Clear(starts, "starts");
        const ShapeUse use(shape);
        Progress told(progress, context);
        Lines lines = LinesOf(*use, told.OfWork());
        const sm_buffer points = Lent(std::move(lines.xy));
        try {
            *starts = Lent(std::move(lines.starts));
        } catch (...) {
            GiveBack(points);
            throw;
        }
        *xy = points;
    });
}
