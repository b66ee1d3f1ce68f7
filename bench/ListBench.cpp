/// Order and upkeep of lists of shapes.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

namespace {

using namespace bench;

/// 999 squares, each inside the one before, outermost first.
SharedList NestedSquares()
{
    SharedList list = ListOwner(CShapeList::New());
    for (int i = 0; i < 999; ++i) {
        auto* shape = new CShapeVector;
        shape->SetShapeRect(QRectF(i, i, 3000 - 2 * i, 3000 - 2 * i));
        list->AddTail(shape);
    }
    list->GetRect(false);
    return list;
}

Side Sort(const SharedList& list)
{
    const SharedList sorted(CShapeList::New(), [](CShapeList* of) {
        of->RemoveAll();
        CShapeList::Release(of);
    });
    const auto again = [list, sorted] {
        sorted->RemoveAll();
        sorted->AddTail(*list);
    };
    return {[sorted] { sorted->Sort(); }, again};
}

Side TestEveryPair(CShapeList& list)
{
    std::vector<QRectF> rects;
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        rects.push_back(list.GetShape(i)->GetRect(false));
    return {[rects] {
        int held = 0;
        for (size_t i = 0; i < rects.size(); ++i)
            for (size_t j = i + 1; j < rects.size(); ++j)
                held += rects[i].contains(rects[j]);
        benchmark::DoNotOptimize(held);
    }};
}

const bool kRegistered = Register({
    {.name = "L2 Sort of 999 nested squares",
     .against = "one test of every pair",
     .goal = AtMost(3),
     .sides =
         [] {
             const SharedList list = NestedSquares();
             return Sides{Sort(list), TestEveryPair(*list)};
         }},
});

} // namespace
