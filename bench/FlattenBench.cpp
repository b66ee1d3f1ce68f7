/// The first and the second flattening of a million points.
#include "Drawings.h"
#include "Goals.h"
#include "Growth.h"

#include "shape/Shape.h"

#include <QPolygonF>
#include <QTransform>

#include <benchmark/benchmark.h>

namespace {

using namespace bench;

constexpr int kPoints = 100; ///< a shape
constexpr int kShapes = 10'000;
constexpr double kMagnification = 250; ///< at which free outlines are flattened

void FlattenAll(CShapeList& list)
{
    VisitShapes(list, [](CShape& shape) { benchmark::DoNotOptimize(shape.Flatten(0.01).data()); });
}

/// Of a drawing as it is after reading: the painter paths and the room for micro lines come first.
Side First(int shapes)
{
    const auto list = std::make_shared<SharedList>();
    return {[list] { FlattenAll(**list); },
            [=] {
                list->reset();
                *list = Drawing(shapes, kPoints);
            }};
}

Side Second(int shapes)
{
    const SharedList list = Drawing(shapes, kPoints);
    FlattenAll(*list);
    return {[list] { FlattenAll(*list); }};
}

Side SplitPaths(bool build)
{
    const auto list = std::make_shared<SharedList>(Drawing(kShapes, kPoints));
    (*list)->GetRect(false);
    const auto split = [by = QTransform::fromScale(kMagnification, kMagnification)](CShape& shape) {
        benchmark::DoNotOptimize(shape.GetPath(false)->toSubpathPolygons(by));
    };
    const auto prepare = [=] {
        if (build)
            *list = Drawing(kShapes, kPoints);
    };
    return {[=] { VisitShapes(**list, split); }, prepare};
}

const bool kRegistered = Register({
    GrowthRow("F4 first Flatten of 1 M points", kShapes, First),
    {.name = "F4 the same",
     .against = "paths built and toSubpathPolygons",
     .goal = AtMost(1.7),
     .sides =
         [] {
             return Sides{First(kShapes), SplitPaths(true)};
         },
     .rounds = 9},
    GrowthRow("F5 second Flatten of 1 M points", kShapes, Second),
    {.name = "F5 the same",
     .against = "toSubpathPolygons alone",
     .goal = AtMost(1.7),
     .sides =
         [] {
             return Sides{Second(kShapes), SplitPaths(false)};
         },
     .rounds = 9},
});

} // namespace
