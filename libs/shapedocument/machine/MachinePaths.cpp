#include "machine/MachinePaths.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/Reach.h"
#include "document/ShapeWalk.h"
#include "machine/Engraving.h"

#include "geometry/Tolerances.h"
#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "vector/ShapeVector.h"

#include <algorithm>

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

/// Valid cells whose position is no number; they are gone through nowhere.
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

/// One shape at a time, so that only one outline is in memory. The types are kept: by them each shape gets its own kind of
/// lines.
void Optimize(CShapeList& document)
{
    const std::unique_ptr<CShapeList, ReleaseList> one(CShapeList::New()); // owns no shape
    for (unsigned int i = 0; i < document.GetCount(); ++i) {
        one->AddTail(document.GetShape(i));
        one->OptimizeShapeList(true);
        one->RemoveAll();
        CShape::DeletePath(document.GetShape(i));
    }
}

void Sort(CShapeList& document)
{
    const Document places = NewDocument();
    for (unsigned int i = 0; i < document.GetCount(); ++i)
        places->AddTail(new Placeholder(*document.GetShape(i)));
    places->Sort();
    document.RemoveAll();
    for (unsigned int i = 0; i < places->GetCount(); ++i)
        document.AddTail(static_cast<Placeholder*>(places->GetShape(i))->Shape());
}

/// The null line between two sub-paths. A line without length elsewhere is none.
bool IsSeparator(const QLineF& line)
{
    return line.x1() == 0 && line.y1() == 0 && line.x2() == 0 && line.y2() == 0;
}

/// Calls take with the points of each run of joined lines; lines without length are left out.
void ForEachRun(const std::vector<QLineF>& lines, const std::function<void(const std::vector<QPointF>&)>& take)
{
    std::vector<QPointF> run;
    const auto end = [&] {
        if (!run.empty())
            take(run);
        run.clear();
    };
    for (const QLineF& line : lines) {
        if (IsSeparator(line)) {
            end();
            continue;
        }
        if (line.x1() == line.x2() && line.y1() == line.y2())
            continue;
        if (run.empty() || run.back() != line.p1()) {
            end();
            run.push_back(line.p1());
        }
        run.push_back(line.p2());
    }
    end();
}

bool AreWithinReach(const std::vector<QPointF>& points)
{
    return std::all_of(points.begin(), points.end(),
                       [](const QPointF& point) { return WithinReach(point.x()) && WithinReach(point.y()); });
}

class JobBuilder
{
public:
    JobBuilder(PreparedJob& prepared, const JobOptions& options, const QString& file)
        : m_job(prepared.job), m_leftOut(prepared.leftOut), m_options(options), m_file(file)
    {}

    /// The shape itself keeps neither lines nor outline.
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
        const ShapeOwner copy(shape.Clone());
        CShape::DeletePath(&shape);
        if (!AddLines(*copy))
            ++m_leftOut[KindOf(shape) + " without lines"];
    }

    size_t ShapeCount() const { return m_shapes; }

private:
    bool FollowsFrame(CShapeImage& picture)
    {
        if (!m_options.frames)
            ++m_leftOut["picture"];
        else if (picture.GetImage(false).empty())
            ++m_leftOut["picture without pixels"];
        else
            return true;
        return false;
    }

    bool AddLines(CShape& shape)
    {
        constexpr double kTolerance = 0.01; // mm
        const std::vector<QLineF> lines = shape.Flatten(kTolerance);
        QPointF lead[4];
        auto* vector = m_options.leads ? dynamic_cast<CShapeVector*>(&shape) : nullptr;
        const bool leads = vector && vector->GetGuideLinePoints(lead);
        const unsigned int color = shape.GetColor();
        bool any = false;
        ForEachRun(lines, [&](const std::vector<QPointF>& run) {
            if (!any) {
                ++m_shapes;
                if (leads)
                    Append(PathKind::LeadIn, color, {lead[0], lead[1]});
            }
            any = true;
            Append(PathKind::Cut, color, run);
        });
        if (any && leads)
            Append(PathKind::LeadOut, color, {lead[2], lead[3]});
        return any;
    }

    void Append(PathKind kind, unsigned int color, const std::vector<QPointF>& points)
    {
        if (!AreWithinReach(points))
            throw Failure{m_file, QString("shape %1 has a coordinate out of reach").arg(m_shapes)};
        if (points.front() == points.back() && points.size() <= 2)
            return;
        std::vector<JobPoint> path;
        path.reserve(points.size());
        for (const QPointF& point : points)
            path.push_back({point});
        m_job.Append({m_shapes, kind, color}, path);
    }

    MachineJob& m_job;
    LeftOut& m_leftOut;
    const JobOptions& m_options;
    const QString& m_file;
    size_t m_shapes = 0;
};

} // namespace

PreparedJob PrepareJob(CShapeList& document, const JobOptions& options, const QString& file,
                       const std::function<void(size_t shapesSoFar)>& progress)
{
    ExpectFewOutlines(document, file);
    Optimize(document);
    Sort(document);
    PreparedJob prepared{MachineJob(file), {}};
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
    ForEachVisibleOutline(document, [&](CShape& shape) {
        builder.Add(shape);
        progress(builder.ShapeCount());
    });
    prepared.job.Finish(file);
    return prepared;
}

} // namespace shapedocument
