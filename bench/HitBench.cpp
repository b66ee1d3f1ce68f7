/// One mouse position in drawings of 10,000 outlines.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

namespace {

using namespace bench;

constexpr QPointF kMouse(500, 500);

Side Hit(const SharedList& list)
{
    return {[list] {
        int reach = 2;
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            benchmark::DoNotOptimize(list->GetShape(i)->Hit(kMouse, reach));
    }};
}

Side Rectangles(const SharedList& list)
{
    return {[list] {
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            benchmark::DoNotOptimize(list->GetShape(i)->GetRect(false).contains(kMouse));
    }};
}

const bool kRegistered = Register({
    {.name = "H1 one mouse position in 10,000 outlines",
     .against = "the rectangles alone",
     .goal = AtMost(1.15),
     .sides =
         [] {
             const SharedList list = Drawing(10'000, 100);
             list->GetRect(false);
             return Sides{Hit(list), Rectangles(list)};
         }},
});

} // namespace
