/// Rebuilding the painter paths of straight outlines.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <QPainterPath>

namespace {

using namespace bench;

/// moveTo and lineTo for each point, into paths that are then kept.
Side PointByPoint(CShapeList& list)
{
    std::vector<std::vector<QPointF>> outlines;
    std::vector<unsigned char> types;
    VisitShapes(list, [&](CShape& shape) { shape.GetShapePathData(outlines.emplace_back(), types); });
    return {[outlines, paths = std::vector<QPainterPath>(outlines.size())]() mutable {
        for (size_t i = 0; i < outlines.size(); ++i) {
            paths[i] = QPainterPath(outlines[i][0]);
            for (size_t k = 1; k < outlines[i].size(); ++k)
                paths[i].lineTo(outlines[i][k]);
        }
    }};
}

Sides Rebuild(int shapes, int pointsPerShape)
{
    const SharedList list = Drawing(shapes, pointsPerShape);
    return {{[list] { VisitShapes(*list, [](CShape& shape) { shape.GetPath(true); }); }}, PointByPoint(*list)};
}

const bool kRegistered = Register({
    {.name = "P1 paths rebuilt, 10,000 outlines of 100 points",
     .against = "moveTo and lineTo per point",
     .goal = AtMost(0.55),
     .sides = [] { return Rebuild(10'000, 100); }},
    {.name = "P1 paths rebuilt, 10 outlines of 100,000 points",
     .against = "moveTo and lineTo per point",
     .goal = AtMost(0.55),
     .sides = [] { return Rebuild(10, 100'000); }},
});

} // namespace
