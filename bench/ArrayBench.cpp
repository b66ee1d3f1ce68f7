/// Arrays of 10,000 cells beside one pass over as many cells, and groups of many members.
#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

std::unique_ptr<CShapeArray> SquareArray(int side)
{
    auto array = std::make_unique<CShapeArray>();
    auto* member = new CShapeVector;
    member->SetShapeRect(QRectF(0, 0, 10, 4));
    array->GetShapeList()->AddTail(member);
    array->SetArrayInfo(side, side, 1, 1, 0, 0);
    return array;
}

std::unique_ptr<CShapeGroup> GroupOf(int64_t members)
{
    auto group = std::make_unique<CShapeGroup>();
    for (int64_t i = 0; i < members; ++i) {
        auto* member = new CShapeVector;
        member->SetShapeRect(QRectF(static_cast<double>(i), 0, 10, 4));
        group->GetShapeList()->AddTail(member);
    }
    return group;
}

constexpr int kSide = 100; ///< of the 10,000 cells

/// The limit: every cell read and written once.
void OnePassOverCells(benchmark::State& state)
{
    QList<ShapeArrayInfo> cells = SquareArray(kSide)->GetShapeArrayInfo();
    for (auto _ : state)
        for (ShapeArrayInfo& cell : cells) {
            cell.ptPos += QPointF(1, 1);
            benchmark::DoNotOptimize(cell);
        }
}

void Layout(benchmark::State& state)
{
    const auto array = SquareArray(kSide);
    for (auto _ : state)
        array->SetArrayInfo(kSide, kSide, 1, 1, 0, 0);
}

/// The worst place: no cell is hit.
void HitNothing(benchmark::State& state)
{
    const auto array = SquareArray(kSide);
    for (auto _ : state)
        benchmark::DoNotOptimize(array->GetHitIndex(QPointF(-1, -1), 0));
}

void SelectByRect(benchmark::State& state)
{
    const auto array = SquareArray(kSide);
    for (auto _ : state)
        array->SelectByRect(QRectF(0, 0, 1000, 1000), false);
}

void AllRect(benchmark::State& state)
{
    const auto array = SquareArray(kSide);
    for (auto _ : state)
        benchmark::DoNotOptimize(array->GetAllRect());
}

void ShapesOfAllCells(benchmark::State& state)
{
    const auto array = SquareArray(kSide);
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
    member.SetShapeRect(QRectF(0, 0, 10, 4));
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
    const auto source = GroupOf(state.range(0));
    for (auto _ : state)
        CShape::Release(source->Clone());
}

BENCHMARK(OnePassOverCells)->Unit(benchmark::kMicrosecond);
BENCHMARK(Layout)->Unit(benchmark::kMicrosecond);
BENCHMARK(HitNothing)->Unit(benchmark::kMicrosecond);
BENCHMARK(SelectByRect)->Unit(benchmark::kMicrosecond);
BENCHMARK(AllRect)->Unit(benchmark::kMicrosecond);
BENCHMARK(CloneAndMove)->Unit(benchmark::kMillisecond);
BENCHMARK(ShapesOfAllCells)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyAndFreeGroup)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
