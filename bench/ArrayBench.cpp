/// Arrays of 10,000 cells beside one pass over as many cells, and groups of many members.
#include "Goals.h"

#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

namespace {

using namespace bench;

constexpr int kSide = 100; ///< of the 10,000 cells
constexpr QSizeF kCell(10, 4);

using SharedArray = std::shared_ptr<CShapeArray>;

SharedArray SquareArray()
{
    auto array = std::make_shared<CShapeArray>();
    auto* member = new CShapeVector;
    member->SetShapeRect(QRectF({}, kCell));
    array->GetShapeList()->AddTail(member);
    array->SetArrayInfo(kSide, kSide, 1, 1, 0, 0);
    return array;
}

/// A pass over the cells: the place of each is read, its far corner worked out, and both compared with bounds.
Side OnePass()
{
    return {[cells = SquareArray()->GetShapeArrayInfo()] {
        double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
        for (const ShapeArrayInfo& cell : cells) {
            if (!cell.bValid)
                continue;
            left = std::min(left, cell.ptPos.x());
            top = std::min(top, cell.ptPos.y());
            right = std::max(right, cell.ptPos.x() + kCell.width());
            bottom = std::max(bottom, cell.ptPos.y() + kCell.height());
        }
        benchmark::DoNotOptimize(left + top + right + bottom);
    }};
}

template <class Use>
Row ArrayRow(const std::string& name, Use use, double factor = 2)
{
    return {.name = name,
            .against = "one pass over the cells that joins their rectangles",
            .goal = AtMost(factor),
            .sides = [use] {
                return Sides{{[use, array = SquareArray()] { use(*array); }}, OnePass()};
            }};
}

const bool kRegistered = Register({
    ArrayRow("A1 layout of 10,000 cells", [](CShapeArray& array) { array.SetArrayInfo(kSide, kSide, 1, 1, 0, 0); }),
    ArrayRow("A1 hit of none of 10,000 cells",
             [](CShapeArray& array) { benchmark::DoNotOptimize(array.GetHitIndex(QPointF(-1, -1), 0)); }),
    ArrayRow("A1 select by rectangle, 10,000 cells",
             [](CShapeArray& array) { array.SelectByRect(QRectF(0, 0, 1000, 1000), false); }),
    ArrayRow("A1 rectangle of 10,000 cells", [](CShapeArray& array) { benchmark::DoNotOptimize(array.GetAllRect()); }),
});

void ShapesOfAllCells(benchmark::State& state)
{
    const SharedArray array = SquareArray();
    for (auto _ : state) {
        CShapeList* all = array->GetAllShapeList();
        all->DeleteAll();
        CShapeList::Release(all);
    }
}

/// The peer of ShapesOfAllCells: as many clones of the member, each moved.
void CloneAndMove(benchmark::State& state)
{
    CShapeVector member;
    member.SetShapeRect(QRectF({}, kCell));
    for (auto _ : state) {
        std::vector<CShape*> clones;
        for (int i = 0; i < kSide * kSide; ++i) {
            clones.push_back(member.Clone());
            clones.back()->Offset(1, 1);
        }
        for (CShape* clone : clones)
            CShape::Release(clone);
    }
}

void CopyAndFreeGroup(benchmark::State& state)
{
    CShapeGroup source;
    for (int64_t i = 0; i < state.range(0); ++i) {
        auto* member = new CShapeVector;
        member->SetShapeRect(QRectF(static_cast<double>(i), 0, 10, 4));
        source.GetShapeList()->AddTail(member);
    }
    for (auto _ : state)
        CShape::Release(source.Clone());
}

BENCHMARK(CloneAndMove)->Unit(benchmark::kMillisecond);
BENCHMARK(ShapesOfAllCells)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyAndFreeGroup)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
