#include "machine/ListPreparation.h"

#include "document/DocumentFile.h"

#include "geometry/SegmentTypes.h"
#include "geometry/Tolerances.h"
#include "list/SortLimit.h"
#include "shape/Shape.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace shapedocument {

namespace {

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

/// Whether CShapeList::OptimizeShapeList does more for the shape than ask for the configuration file, which costs more
/// than the lines of a rectangle.
bool IsRefitted(CShape& shape)
{
    auto* vector = dynamic_cast<CShapeVector*>(&shape);
    return vector && (vector->GetVectorType() == EVECTOR_POLYLINE || vector->GetVectorType() == EVECTOR_MIXED);
}

bool HasCurves(CShape& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return std::find(types.begin(), types.end(), ELINE_SEGMENT_CURVE) != types.end();
}

} // namespace

size_t PointsWithoutPlace(CShape& shape)
{
    if (shape.GetShapeType() != ESHAPE_VECTOR)
        return 0;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return static_cast<size_t>(
        std::count_if(points.begin(), points.end(), [](const QPointF& point) { return !shapes::IsFinite(point); }));
}

void OptimizeShapes(CShapeList& document, const WorkWatch& watch)
{
    const std::unique_ptr<CShapeList, ReleaseList> one(CShapeList::New()); // owns no shape
    for (unsigned int i = 0; i < document.GetCount(); ++i) {
        watch.Ask();
        CShape& shape = *document.GetShape(i);
        if (!IsRefitted(shape) || HasCurves(shape) || PointsWithoutPlace(shape) > 0)
            continue;
        one->AddTail(&shape);
        one->OptimizeShapeList(true);
        one->RemoveAll();
        CShape::DeletePath(&shape);
    }
}

void SortShapes(CShapeList& document)
{
    if (document.GetCount() > shapes::kMostSorted)
        return;
    const Document places = NewDocument();
    for (unsigned int i = 0; i < document.GetCount(); ++i)
        places->AddTail(new Placeholder(*document.GetShape(i)));
    places->Sort();
    document.RemoveAll();
    for (unsigned int i = 0; i < places->GetCount(); ++i)
        document.AddTail(static_cast<Placeholder*>(places->GetShape(i))->Shape());
}

} // namespace shapedocument
