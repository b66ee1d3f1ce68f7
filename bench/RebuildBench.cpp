/// Rebuilding the painter paths of straight outlines.
#include "Drawings.h"
#include "Goals.h"
#include "Limits.h"

#include "vector/ShapeVector.h"

#include <QPainterPath>
#include <QPolygonF>

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

/// Qt's one way of putting many lines into a path; the polygons are ready.
Side PolygonByPolygon(CShapeList& list)
{
    std::vector<QPolygonF> polygons;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    VisitShapes(list, [&](CShape& shape) {
        shape.GetShapePathData(points, types);
        polygons.emplace_back(QList<QPointF>(points.begin(), points.end()));
    });
    return {[polygons, paths = std::vector<QPainterPath>(polygons.size())]() mutable {
        for (size_t i = 0; i < polygons.size(); ++i) {
            paths[i] = QPainterPath();
            paths[i].reserve(static_cast<int>(polygons[i].size()));
            paths[i].addPolygon(polygons[i]);
        }
    }};
}

Side Rebuild(const SharedList& list)
{
    return {[list] { VisitShapes(*list, [](CShape& shape) { shape.GetPath(true); }); }};
}

Row RebuildRow(const std::string& name, int points, const std::string& against, double factor,
               Side (*limit)(CShapeList&))
{
    constexpr int kPoints = 1'000'000;
    return {.name = name, .against = against, .goal = AtMost(factor), .sides = [=] {
                const SharedList list = Drawing(kPoints / points, points);
                return Sides{Rebuild(list), limit(*list)};
            }};
}

constexpr int kSmall = 100;
constexpr int kLarge = 100'000;

const bool kRegistered = Register({
    RebuildRow("P1 paths rebuilt, 10,000 outlines of 100 points", kSmall, "moveTo and lineTo per point", 0.55,
               PointByPoint),
    RebuildRow("P1 paths rebuilt, 10 outlines of 100,000 points", kLarge, "moveTo and lineTo per point", 0.55,
               PointByPoint),
    RebuildRow("P2 paths rebuilt, 10,000 outlines of 100 points", kSmall, "addPolygon alone", 1.8, PolygonByPolygon),
    RebuildRow("P2 paths rebuilt, 10 outlines of 100,000 points", kLarge, "addPolygon alone", 2, PolygonByPolygon),
    RebuildRow("P3 paths rebuilt, 10,000 outlines of 100 points", kSmall, "their elements written once", 3,
               WriteElements),
    RebuildRow("P3 paths rebuilt, 10 outlines of 100,000 points", kLarge, "their elements written once", 3,
               WriteElements),
});

} // namespace
