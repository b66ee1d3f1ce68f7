/// Transforms of a drawing of a million points.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

using namespace bench;

Side Offset(const SharedList& list)
{
    return {[list] { list->Offset(0.5, 0.25, true); }};
}

/// The limit: the points of every shape copied.
Side CopyPoints(CShapeList& list)
{
    std::vector<std::vector<QPointF>> points(list.GetCount());
    std::vector<unsigned char> types;
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        list.GetShape(i)->GetShapePathData(points[i], types);
    return {[from = points, to = points]() mutable {
        for (size_t i = 0; i < from.size(); ++i)
            std::memcpy(to[i].data(), from[i].data(), from[i].size() * sizeof(QPointF));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }};
}

const bool kRegistered = Register({
    {.name = "T2 Offset of 1 M points with their paths",
     .against = "memcpy of the points",
     .goal = AtMost(2.6),
     .sides =
         [] {
             const SharedList list = Drawing(10'000, 100);
             list->GetRect(false);
             return Sides{Offset(list), CopyPoints(*list)};
         }},
});

} // namespace
