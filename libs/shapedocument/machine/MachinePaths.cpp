#include "machine/MachinePaths.h"

#include "machine/OutlineRuns.h"
#include "machine/RunJoining.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/PicturePixels.h"
#include "document/Reach.h"
#include "document/ShapeWalk.h"
#include "machine/Engraving.h"
#include "machine/JobOrder.h"

#include "geometry/SegmentTypes.h"
#include "geometry/Tolerances.h"
#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "vector/ShapeVector.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <malloc.h>

namespace shapedocument {

namespace {

struct ReleaseShape
{
    void operator()(CShape* shape) const
    {
        CShape::DeletePath(shape); // It would leave an empty one behind.
        CShape::Release(shape);
    }
};
using ShapeOwner = std::unique_ptr<CShape, ReleaseShape>;

QString KindOf(CShape& shape)
{
    switch (shape.GetShapeType()) {
    case ESHAPE_IMAGE:
    case ESHAPE_CODEIMAGE:
        return "picture";
    case ESHAPE_VECTOR:
        return "vector";
    case ESHAPE_TEXT:
        return "text";
    case ESHAPE_GROUP:
        return "group";
    case ESHAPE_ARRAY:
        return "array";
    }
    return "shape";
}

/// Number of valid cells at a position that is not finite: every walk over cells skips them.
size_t CellsWithoutPlace(CShapeArray& array)
{
    const QList<ShapeArrayInfo> cells = array.GetShapeArrayInfo();
    return static_cast<size_t>(std::count_if(cells.begin(), cells.end(), [](const ShapeArrayInfo& cell) {
        return cell.bValid && !shapes::IsFinite(cell.ptPos);
    }));
}

/// Stands for a shape while a list is sorted, so that only one outline is in memory at a time.
class Placeholder : public CShape
{
public:
    explicit Placeholder(CShape& shape) : m_shape(shape) {}

    CShape* Shape() const { return &m_shape; }

    QRectF GetRect(bool) override
    {
        if (!m_rect) {
            m_rect = m_shape.GetRect(false);
            DeletePath(&m_shape);
        }
        return *m_rect;
    }
    ESHAPE_TYPE GetShapeType() override { return ESHAPE_VECTOR; }
    bool Hit(QPointF, int&) override { return false; }
    CShape* Clone() override { return new Placeholder(m_shape); }
    void UpdatePainterPath() override {}

private:
    CShape& m_shape;
    std::optional<QRectF> m_rect;
};

struct ReleaseList
{
    void operator()(CShapeList* list) const { CShapeList::Release(list); }
};

/// Number of points that are not finite: the painter path skips them.
size_t PointsWithoutPlace(CShape& shape)
{
    if (shape.GetShapeType() != ESHAPE_VECTOR) // the points of others are not what they draw
        return 0;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return static_cast<size_t>(
        std::count_if(points.begin(), points.end(), [](const QPointF& point) { return !shapes::IsFinite(point); }));
}

bool HasCurves(CShape& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return std::find(types.begin(), types.end(), ELINE_SEGMENT_CURVE) != types.end();
}

/// One shape at a time, so that only one outline is in memory. The types are kept: by them each shape gets its own kind
/// of lines. Outlines with curves stay exact: without a plug-in, optimising would make fine polylines of them. So do
/// those with points without place, which are still to be counted.
void Optimize(CShapeList& document)
{
    const std::unique_ptr<CShapeList, ReleaseList> one(CShapeList::New()); // owns no shape
    for (unsigned int i = 0; i < document.GetCount(); ++i) {
        if (HasCurves(*document.GetShape(i)) || PointsWithoutPlace(*document.GetShape(i)) > 0)
            continue;
        one->AddTail(document.GetShape(i));
        one->OptimizeShapeList(true);
        one->RemoveAll();
        CShape::DeletePath(document.GetShape(i));
    }
}

void Sort(CShapeList& document)
{
    constexpr unsigned int kMostSorted = 999; // as in CShapeList::Sort, which leaves longer lists as they are
    if (document.GetCount() > kMostSorted)
        return;
    const Document places = NewDocument();
    for (unsigned int i = 0; i < document.GetCount(); ++i)
        places->AddTail(new Placeholder(*document.GetShape(i)));
    places->Sort();
    document.RemoveAll();
    for (unsigned int i = 0; i < places->GetCount(); ++i)
        document.AddTail(static_cast<Placeholder*>(places->GetShape(i))->Shape());
}

template <class Holds>
bool AllPoints(const QPainterPath& outline, Holds holds)
{
    for (int i = 0; i < outline.elementCount(); ++i) {
        if (const QPainterPath::Element element = outline.elementAt(i); !holds(element.x) || !holds(element.y))
            return false;
    }
    return true;
}

/// With lines for fill markers, which painter paths leave out: what is to be filled is cut as a closed contour.
ShapeOwner ClosedCopy(CShape& shape)
{
    ShapeOwner copy(shape.Clone());
    copy->ProcessFilledShape();
    CShape::DeletePath(copy.get());
    return copy;
}

class JobBuilder
{
public:
    JobBuilder(PreparedJob& prepared, const JobOptions& options, const QString& file)
        : m_job(prepared.job), m_leftOut(prepared.leftOut), m_options(options), m_file(file)
    {}

    /// The shape itself keeps no outline.
    void Add(CShape& shape)
    {
        if (m_options.engraved && IsEngraved(shape)) {
            const QString obstacle = EngravingObstacle(shape);
            if (!obstacle.isEmpty())
                ++m_leftOut[obstacle];
            if (!obstacle.isEmpty() || !m_options.frames)
                return;
        }
        if (auto* picture = dynamic_cast<CShapeImage*>(&shape); picture && !FollowsFrame(*picture))
            return;
        if (const size_t nowhere = PointsWithoutPlace(shape))
            m_leftOut["point without place"] += nowhere;
        if (!AddRuns(shape))
            ++m_leftOut[KindOf(shape) + " without lines"];
        CShape::DeletePath(&shape);
    }

private:
    bool FollowsFrame(CShapeImage& picture)
    {
        if (!m_options.frames)
            ++m_leftOut["picture"];
        else if (ExpectMemory(picture, picture.GetImage(false)).empty())
            ++m_leftOut["picture without pixels"];
        else
            return true;
        return false;
    }

    bool AddRuns(CShape& shape)
    {
        const ShapeOwner closed = shape.IsFilled() ? ClosedCopy(shape) : nullptr;
        const QPainterPath* outline = (closed ? *closed : shape).GetPath(false);
        if (!outline || outline->isEmpty() || !HasPlace(*outline))
            return false;
        const unsigned int color = shape.GetColor();
        const std::optional<Leads> leads = LeadsOf(shape);
        bool any = false;
        ForEachRun(*outline, m_options.arcs, [&](const std::vector<JobPoint>& run, bool exact) {
            if (!any)
                BeginShape(color, leads);
            any = true;
            MachinePath path{m_shapes, PathKind::Cut, color};
            path.exact = exact;
            m_job.Append(path, run);
        });
        if (any && leads)
            AppendLead(PathKind::LeadOut, color, leads->out);
        return any;
    }

    /// False for an outline with a point that is not finite. Throws Failure for one beyond kFarthest, which a user
    /// would not want left out silently.
    bool HasPlace(const QPainterPath& outline) const
    {
        if (!AllPoints(outline, [](double coordinate) { return std::isfinite(coordinate); }))
            return false;
        if (!AllPoints(outline, [](double coordinate) { return WithinReach(coordinate); }))
            throw Failure{m_file, QString("shape %1 has a coordinate out of reach").arg(m_shapes + 1)};
        return true;
    }

    struct Leads
    {
        QLineF in, out;
    };

    std::optional<Leads> LeadsOf(CShape& shape) const
    {
        if (!m_options.leads || !dynamic_cast<CShapeVector*>(&shape))
            return std::nullopt;
        const ShapeOwner copy(shape.Clone()); // asking changes the outline
        QPointF lead[4];
        if (!static_cast<CShapeVector&>(*copy).GetGuideLinePoints(lead))
            return std::nullopt;
        return Leads{{lead[0], lead[1]}, {lead[2], lead[3]}};
    }

    void BeginShape(unsigned int color, const std::optional<Leads>& leads)
    {
        ++m_shapes;
        if (leads)
            AppendLead(PathKind::LeadIn, color, leads->in);
    }

    void AppendLead(PathKind kind, unsigned int color, const QLineF& lead)
    {
        const QPointF begin = lead.p1(), end = lead.p2();
        for (const double coordinate : {begin.x(), begin.y(), end.x(), end.y()})
            if (!WithinReach(coordinate))
                throw Failure{m_file, QString("shape %1 has a coordinate out of reach").arg(m_shapes)};
        if (begin != end)
            m_job.Append({m_shapes, kind, color}, {{begin, 0}, {end, 0}});
    }

    MachineJob& m_job;
    LeftOut& m_leftOut;
    const JobOptions& m_options;
    const QString& m_file;
    size_t m_shapes = 0;
};

void PutInOrder(PreparedJob& prepared, const MachineJob* whole, const JobOptions& options, const QString& file,
                const WorkProgress& progress)
{
    if (prepared.job.PathCount() > kMostOrderedPaths) {
        prepared.tooManyToOrder = !whole;
        return;
    }
    OrderedJob ordered = PutInOrder(prepared.job, whole, options.mixColors, options.colors, file, progress);
    prepared.job = std::move(ordered.job);
    prepared.againstInside = ordered.againstInside;
    if (options.emptyDocument)
        malloc_trim(0); // free() keeps the memory of many small lists for the process
}

/// Behind everything that looks at whole contours, which are none any more afterwards. The parts that are left have
/// ends of their own, between which other ways are short.
void LeaveOutDoubles(PreparedJob& prepared, const JobOptions& options, const QString& file,
                     const WorkProgress& progress)
{
    const MachineJob whole = std::move(prepared.job);
    const size_t known = prepared.doubled.count;
    prepared.job = LeaveOutDoubles(whole, DoublesOf::Everything, file, prepared.doubled, progress);
    if (options.fastOrder && prepared.doubled.count > known)
        PutInOrder(prepared, &whole, options, file, progress);
}

} // namespace

PreparedJob PrepareJob(CShapeList& document, const JobOptions& options, const QString& file,
                       const WorkProgress& progress)
{
    ExpectFewOutlines(document, file);
    Optimize(document);
    Sort(document);
    PreparedJob prepared{MachineJob(file), {}, {}, false, 0};
    ForEachShape(document, [&](CShape& shape, int) {
        auto* array = dynamic_cast<CShapeArray*>(&shape);
        if (shape.IsHide())
            ++prepared.leftOut["hidden " + KindOf(shape)];
        else if (array && array->GetCount() == 0)
            ++prepared.leftOut["array without cells"];
        else if (const size_t nowhere = array ? CellsWithoutPlace(*array) : 0; nowhere > 0)
            prepared.leftOut["cell without place"] += nowhere;
    });
    JobBuilder builder(prepared, options, file);
    WorkWatch watch(progress, WorkStep::Lines, progress ? OutlineCount(document) : 0);
    ForEachVisibleOutline(document, [&](CShape& shape) {
        builder.Add(shape);
        watch.Next();
    });
    prepared.job.Finish(file);
    if (options.emptyDocument) {
        document.DeleteAll();
        malloc_trim(0); // free() keeps the memory of small blocks for the process
    }
    if (options.join > 0) {
        if (!options.keepDoubles)
            prepared.job = LeaveOutDoubles(prepared.job, DoublesOf::WholeRuns, file, prepared.doubled, progress);
        prepared.job = JoinRuns(std::move(prepared.job), options.join, file, progress);
    }
    if (options.fastOrder)
        PutInOrder(prepared, nullptr, options, file, progress);
    if (!options.keepDoubles)
        LeaveOutDoubles(prepared, options, file, progress);
    return prepared;
}

} // namespace shapedocument
