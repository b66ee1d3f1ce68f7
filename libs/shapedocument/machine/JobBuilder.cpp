#include "machine/JobBuilder.h"

#include "machine/ListPreparation.h"
#include "machine/OutlineRuns.h"

#include "document/Failure.h"
#include "document/PicturePixels.h"
#include "document/Reach.h"
#include "document/ShapeWalk.h"
#include "machine/Engraving.h"

#include "geometry/Tolerances.h"
#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "vector/ShapeVector.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <memory>

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

} // namespace

void CountWithoutLines(CShapeList& document, LeftOut& leftOut)
{
    ForEachShape(document, [&](CShape& shape, int) {
        auto* array = dynamic_cast<CShapeArray*>(&shape);
        if (shape.IsHide())
            ++leftOut["hidden " + KindOf(shape)];
        else if (array && array->GetCount() == 0)
            ++leftOut["array without cells"];
        else if (const size_t nowhere = array ? CellsWithoutPlace(*array) : 0; nowhere > 0)
            leftOut["cell without place"] += nowhere;
    });
}

void JobBuilder::Add(CShape& shape)
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

bool JobBuilder::FollowsFrame(CShapeImage& picture)
{
    if (!m_options.frames)
        ++m_leftOut["picture"];
    else if (ExpectMemory(picture, picture.GetImage(false)).empty())
        ++m_leftOut["picture without pixels"];
    else
        return true;
    return false;
}

bool JobBuilder::AddRuns(CShape& shape)
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

/// False for an outline with a point that is not finite. Throws Failure for one beyond kFarthest, which a user would
/// not want left out silently.
bool JobBuilder::HasPlace(const QPainterPath& outline) const
{
    if (!AllPoints(outline, [](double coordinate) { return std::isfinite(coordinate); }))
        return false;
    if (!AllPoints(outline, [](double coordinate) { return WithinReach(coordinate); }))
        throw Failure{m_file, QString("shape %1 has a coordinate out of reach").arg(m_shapes + 1)};
    return true;
}

std::optional<JobBuilder::Leads> JobBuilder::LeadsOf(CShape& shape) const
{
    if (!m_options.leads || !dynamic_cast<CShapeVector*>(&shape))
        return std::nullopt;
    const ShapeOwner copy(shape.Clone()); // asking changes the outline
    QPointF lead[4];
    if (!static_cast<CShapeVector&>(*copy).GetGuideLinePoints(lead))
        return std::nullopt;
    return Leads{{lead[0], lead[1]}, {lead[2], lead[3]}};
}

void JobBuilder::BeginShape(unsigned int color, const std::optional<Leads>& leads)
{
    ++m_shapes;
    if (leads)
        AppendLead(PathKind::LeadIn, color, leads->in);
}

void JobBuilder::AppendLead(PathKind kind, unsigned int color, const QLineF& lead)
{
    const QPointF begin = lead.p1(), end = lead.p2();
    for (const double coordinate : {begin.x(), begin.y(), end.x(), end.y()})
        if (!WithinReach(coordinate))
            throw Failure{m_file, QString("shape %1 has a coordinate out of reach").arg(m_shapes)};
    if (begin != end)
        m_job.Append({m_shapes, kind, color}, {{begin, 0}, {end, 0}});
}

} // namespace shapedocument
