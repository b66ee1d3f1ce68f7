#include "MachinePaths.h"

#include "Failure.h"
#include "Progress.h"
#include "ShapeWalk.h"

#include "list/ShapeList.h"
#include "vector/ShapeVector.h"

#include <cmath>
#include <unordered_set>

namespace {

constexpr double kFarthest = 1e6; // mm: no machine reaches a kilometre

struct Entry
{
    CShape* shape;
    int depth;
};

std::vector<Entry> Entries(CShapeList& document)
{
    std::vector<Entry> entries;
    ForEachShape(document, [&](CShape& shape, int depth) { entries.push_back({&shape, depth}); });
    return entries;
}

/// Takes unusable shapes out of the document and frees them, which the list leaves to its caller. Answers their number.
size_t RemoveUnusable(CShapeList& document)
{
    const std::vector<Entry> before = Entries(document);
    document.RemoveInvalidShapeItem();
    std::unordered_set<CShape*> kept;
    for (const Entry& entry : Entries(document))
        kept.insert(entry.shape);
    size_t removed = 0;
    for (size_t i = 0; i < before.size();) {
        const Entry entry = before[i++];
        if (kept.contains(entry.shape))
            continue;
        while (i < before.size() && before[i].depth > entry.depth)
            ++i; // Members go with the shape that holds them.
        CShape::DeletePath(entry.shape);
        CShape::Release(entry.shape);
        ++removed;
    }
    return removed;
}

/// The null line between two sub-paths. A line without length elsewhere is none.
bool IsSeparator(const QLineF& line)
{
    return line.x1() == 0 && line.y1() == 0 && line.x2() == 0 && line.y2() == 0;
}

/// The lines joined into runs; lines without length are left out.
std::vector<QPolygonF> Runs(const std::vector<QLineF>& lines)
{
    std::vector<QPolygonF> runs;
    bool begin = true;
    for (const QLineF& line : lines) {
        if (IsSeparator(line)) {
            begin = true;
            continue;
        }
        if (line.x1() == line.x2() && line.y1() == line.y2())
            continue;
        if (begin || runs.back().last() != line.p1())
            runs.push_back({line.p1()});
        runs.back().append(line.p2());
        begin = false;
    }
    return runs;
}

bool WithinReach(const QPolygonF& points)
{
    for (const QPointF& point : points) {
        if (!(std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest))
            return false;
    }
    return true;
}

class JobBuilder
{
public:
    JobBuilder(MachineJob& job, bool leads, const QString& file) : m_job(job), m_leads(leads), m_file(file) {}

    void Add(CShape& shape)
    {
        constexpr double kTolerance = 0.01; // mm
        const std::vector<QPolygonF> runs = Runs(shape.Flatten(kTolerance));
        if (runs.empty())
            return;
        ++m_job.shapes;
        QPointF lead[4];
        auto* vector = m_leads ? dynamic_cast<CShapeVector*>(&shape) : nullptr;
        const bool leads = vector && vector->GetGuideLinePoints(lead);
        if (leads)
            Append(shape, PathKind::LeadIn, {lead[0], lead[1]});
        for (const QPolygonF& run : runs)
            Append(shape, PathKind::Cut, run);
        if (leads)
            Append(shape, PathKind::LeadOut, {lead[2], lead[3]});
    }

private:
    void Append(CShape& shape, PathKind kind, const QPolygonF& points)
    {
        if (!WithinReach(points))
            throw Failure{m_file, QString("shape %1 has a coordinate out of reach").arg(m_job.shapes)};
        if (points.first() != points.last() || points.size() > 2)
            m_job.paths.push_back({m_job.shapes, kind, shape.GetColor(), points});
    }

    MachineJob& m_job;
    bool m_leads;
    const QString& m_file;
};

} // namespace

MachineJob PrepareJob(CShapeList& document, bool leads, const QString& file)
{
    MachineJob job;
    document.OptimizeShapeList(true); // An ellipse that lost its type would be flattened coarsely.
    document.Sort();
    job.unusable = RemoveUnusable(document);
    JobBuilder builder(job, leads, file);
    Progress progress("making lines of shapes");
    ForEachVisibleOutline(document, [&](CShape& shape) {
        builder.Add(shape);
        progress.At(job.shapes, 0);
    });
    return job;
}

QRectF JobRect(const MachineJob& job)
{
    QPolygonF all;
    for (const MachinePath& path : job.paths) {
        const QRectF rect = path.points.boundingRect();
        all << rect.topLeft() << rect.bottomRight();
    }
    return all.boundingRect();
}
