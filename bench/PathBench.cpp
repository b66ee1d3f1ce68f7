/// Painter paths, and their flattening into points and micro lines.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <QPolygonF>
#include <QTransform>

#include <benchmark/benchmark.h>

namespace {

using namespace bench;

template <class Visit>
void ForEachShape(CShapeList& list, Visit visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        visit(*list.GetShape(i));
}

Side Flatten(const SharedList& list)
{
    return {[list] { ForEachShape(*list, [](CShape& shape) { benchmark::DoNotOptimize(shape.Flatten(0.01)); }); }};
}

Side SubpathPolygons(const SharedList& list)
{
    return {[list] {
        ForEachShape(*list, [](CShape& shape) {
            benchmark::DoNotOptimize(shape.GetPath(false)->toSubpathPolygons(QTransform::fromScale(250, 250)));
        });
    }};
}

SharedList DrawingWithPaths()
{
    SharedList list = Drawing(10'000, 100);
    list->GetRect(false);
    return list;
}

const bool kRegistered = Register({
    {.name = "F1 Flatten of 10,000 outlines of 100 points",
     .against = "toSubpathPolygons alone",
     .goal = AtMost(1.3),
     .sides =
         [] {
             const SharedList list = DrawingWithPaths();
             return Sides{Flatten(list), SubpathPolygons(list)};
         }},
});

} // namespace
