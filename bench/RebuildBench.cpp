/// Rebuilding the painter paths of straight outlines.
#include "Drawings.h"
#include "Goals.h"
#include "Limits.h"

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

Side Rebuild(const SharedList& list)
{
    return {[list] { VisitShapes(*list, [](CShape& shape) { shape.GetPath(true); }); }};
}

Row PeerRow(const std::string& what, int shapes, int points)
{
    return {.name = "P1 paths rebuilt, " + what,
            .against = "moveTo and lineTo per point",
            .goal = AtMost(0.55),
            .sides = [=] {
                const SharedList list = Drawing(shapes, points);
                return Sides{Rebuild(list), PointByPoint(*list)};
            }};
}

Row LimitRow(const std::string& what, int shapes, int points)
{
    return {.name = "P2 paths rebuilt, " + what,
            .against = "their elements written once",
            .goal = AtMost(1.3),
            .sides = [=] {
                const SharedList list = Drawing(shapes, points);
                return Sides{Rebuild(list), WriteElements(*list)};
            }};
}

const bool kRegistered = Register({
    PeerRow("10,000 outlines of 100 points", 10'000, 100),
    PeerRow("10 outlines of 100,000 points", 10, 100'000),
    LimitRow("10,000 outlines of 100 points", 10'000, 100),
    LimitRow("10 outlines of 100,000 points", 10, 100'000),
});

} // namespace
