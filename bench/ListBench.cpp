/// Upkeep and order of lists of shapes.
#include "Drawings.h"
#include "Goals.h"
#include "Growth.h"

#include "vector/ShapeVector.h"

#include <QList>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace {

using namespace bench;

constexpr int kMany = 100'000;
constexpr int kFewer = 10'000;
constexpr int kMostSorted = 999;

/// A list that owns none of its shapes.
SharedList View()
{
    return {CShapeList::New(), [](CShapeList* list) { CShapeList::Release(list); }};
}

/// Empty shapes, every other one selected.
SharedList EmptyShapes(int count)
{
    SharedList list = ShapeListOwner(CShapeList::New());
    for (int i = 0; i < count; ++i) {
        list->AddTail(new CShapeVector);
        list->GetShape(static_cast<unsigned int>(i))->Select(i % 2);
    }
    return list;
}

QList<CShape*> ShapesOf(CShapeList& list)
{
    QList<CShape*> shapes;
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        shapes.append(list.GetShape(i));
    return shapes;
}

Side Free(int count)
{
    const SharedList list = ShapeListOwner(CShapeList::New());
    const auto fill = [=] {
        for (int i = 0; i < count; ++i)
            list->AddTail(new CShapeVector);
    };
    return {[=] { list->DeleteAll(); }, fill};
}

Side FreeByQList(int count)
{
    const auto list = std::make_shared<QList<CShape*>>();
    const auto fill = [=] {
        for (int i = 0; i < count; ++i)
            list->append(new CShapeVector);
    };
    const auto take = [=] {
        while (!list->isEmpty())
            CShape::Release(list->takeFirst());
    };
    return {take, fill};
}

Side PutInFront(int count)
{
    const SharedList source = EmptyShapes(count), list = View();
    const auto refill = [=] {
        list->RemoveAll();
        list->AddTail(*source);
    };
    return {[=] { list->AddHead(*source); }, refill};
}

Side PrependToQList(int count)
{
    const SharedList owner = EmptyShapes(count);
    const QList<CShape*> source = ShapesOf(*owner);
    const auto list = std::make_shared<QList<CShape*>>();
    const auto refill = [=] {
        *list = source;
        list->detach();
    };
    const auto prepend = [owner, source, list] {
        for (auto shape = source.crbegin(); shape != source.crend(); ++shape)
            list->prepend(*shape);
    };
    return {prepend, refill};
}

Side RemoveSelected(int count)
{
    const SharedList source = EmptyShapes(count), list = View();
    const auto refill = [=] {
        list->RemoveAll();
        list->AddTail(*source);
    };
    return {[=] { list->RemoveSelectedShapes(); }, refill};
}

Side RemoveSelectedFromQList(int count)
{
    const SharedList owner = EmptyShapes(count);
    const auto list = std::make_shared<QList<CShape*>>();
    const auto refill = [source = ShapesOf(*owner), list] {
        *list = source;
        list->detach();
    };
    return {[owner, list] { list->removeIf([](CShape* shape) { return shape->IsSelect(); }); }, refill};
}

SharedList Squares(const std::vector<QRectF>& rects)
{
    SharedList list = ShapeListOwner(CShapeList::New());
    for (const QRectF& rect : rects) {
        auto* shape = new CShapeVector;
        shape->SetShapeRect(rect);
        list->AddTail(shape);
    }
    list->GetRect(false);
    return list;
}

/// Each inside the one before, outermost first.
std::vector<QRectF> Nested(int count)
{
    std::vector<QRectF> rects;
    for (int i = 0; i < count; ++i)
        rects.emplace_back(6 * i, 6 * i, 12000 - 12 * i, 12000 - 12 * i);
    return rects;
}

std::vector<QRectF> AnySquares()
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(0, 900), edge(1, 120);
    std::vector<QRectF> rects;
    for (int i = 0; i < kMostSorted; ++i) {
        const double x = place(random), y = place(random), size = edge(random);
        rects.emplace_back(x, y, size, size);
    }
    return rects;
}

std::vector<QRectF> SmallBeforeNested()
{
    std::vector<QRectF> rects;
    for (int i = 0; i < 500; ++i)
        rects.emplace_back(20 * (i % 50) - 3000, 20 * (i / 50) - 3000, 8, 8);
    for (const QRectF& rect : Nested(kMostSorted - 500))
        rects.push_back(rect);
    return rects;
}

Side Sort(const std::vector<QRectF>& rects)
{
    const SharedList list = Squares(rects), sorted = View();
    const auto again = [=] {
        sorted->RemoveAll();
        sorted->AddTail(*list);
    };
    return {[=] { sorted->Sort(); }, again};
}

/// The limit: each pair once, containment and equality. Where the rectangles come from is not counted.
Side TestEveryPair(const std::vector<QRectF>& rects)
{
    return {[rects] {
        int held = 0;
        for (size_t i = 0; i < rects.size(); ++i)
            for (size_t j = i + 1; j < rects.size(); ++j)
                held += rects[i].contains(rects[j]) && rects[i] != rects[j];
        benchmark::DoNotOptimize(held);
    }};
}

Row SortRow(const std::string& what, std::vector<QRectF> (*rects)())
{
    return {.name = "L2 Sort of 999 shapes: " + what,
            .against = "one test of every pair",
            .goal = AtMost(3),
            .sides = [rects] {
                return Sides{Sort(rects()), TestEveryPair(rects())};
            }};
}

Row LinearRow(const std::string& what, Side (*side)(int))
{
    return {.name = "L1 " + what + ", 100,000 shapes",
            .against = "10,000 shapes, both with cold caches",
            .goal = AtMost(15),
            .sides =
                [side] {
                    return Sides{Cold(side(kMany)), Cold(side(kFewer))};
                },
            .rounds = 7};
}

Row PeerRow(const std::string& what, Side (*side)(int), const std::string& against, Side (*peer)(int),
            double factor = 1)
{
    return {.name = "L1 " + what + " 100,000 shapes",
            .against = against,
            .goal = AtMost(factor),
            .sides =
                [=] {
                    return Sides{side(kMany), peer(kMany)};
                },
            .rounds = 7};
}

const bool kRegistered = Register({
    LinearRow("free all", Free),
    PeerRow("free all", Free, "QList::takeFirst until empty", FreeByQList, 1.35),
    LinearRow("put as many in front", PutInFront),
    PeerRow("put as many in front of", PutInFront, "QList::prepend of each", PrependToQList),
    LinearRow("take out the selected half", RemoveSelected),
    PeerRow("take out the selected half of", RemoveSelected, "QList::removeIf", RemoveSelectedFromQList),
    SortRow("nested squares", [] { return Nested(kMostSorted); }),
    SortRow("squares anywhere", AnySquares),
    SortRow("500 small, 499 nested", SmallBeforeNested),
});

} // namespace
