#include "document/FillMarker.h"

#include "geometry/SegmentTypes.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <vector>

namespace shapedocument {

bool MarkAsFilled(CShapeVector& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    types.resize(points.size(), ELINE_SEGMENT_STRAIGHT);
    const auto separator = std::find(types.rbegin(), types.rend(), ELINE_SEGMENT_SEPARATOR);
    const auto begin = static_cast<size_t>(types.rend() - separator);
    if (begin == points.size())
        return false;
    const QPointF start = points[begin];
    points.push_back(start);
    types.push_back(ELINE_SEGMENT_FILL);
    shape.SetShapePoints(points, types);
    shape.SetVectorType(EVECTOR_MIXED);
    return true;
}

} // namespace shapedocument
