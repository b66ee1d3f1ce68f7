/// One mouse position in drawings of 10,000 outlines of 100 points.
#include "Drawings.h"
#include "Goals.h"

#include "geometry/PlainFlattening.h"
#include "vector/ShapeVector.h"

#include <QGraphicsScene>
#include <QPen>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using namespace bench;

using Mouse = std::vector<QPointF>;

constexpr int kReach = 2; ///< model units
constexpr int kColumns = 100;
constexpr double kSpacing = 10;

/// Closed, jagged polylines on a grid. At scale 1 they lie side by side; at larger scales they overlap.
SharedList Grid(double scale)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> reach(3.6, 4.5);
    SharedList list = ShapeListOwner(CShapeList::New());
    for (int i = 0; i < kColumns * kColumns; ++i) {
        const QPointF centre((i % kColumns + 0.5) * kSpacing, (i / kColumns + 0.5) * kSpacing);
        const QPointF place = scale == 1 ? centre : centre / 2 + QPointF(250, 250);
        std::vector<QPointF> ring = Ring(place, 99, [&](double) { return scale * reach(random); });
        ring.push_back(ring.front());
        auto* shape = new CShapeVector;
        shape->SetVectorType(EVECTOR_MIXED);
        shape->SetShapePoints(ring, ELINE_SEGMENT_STRAIGHT);
        shape->GetRect(false);
        shape->SetVectorType(EVECTOR_POLYLINE); // after the path, so that no fitting is asked for
        list->AddTail(shape);
    }
    return list;
}

SharedList SideBySide()
{
    return Grid(1);
}

SharedList OverEachOther()
{
    return Grid(20);
}

Mouse Anywhere()
{
    std::mt19937 random(2);
    std::uniform_real_distribution<double> place(0, kColumns * kSpacing);
    Mouse mouse;
    for (int i = 0; i < 20; ++i) {
        const double x = place(random);
        mouse.emplace_back(x, place(random));
    }
    return mouse;
}

Mouse InTheMiddle()
{
    return {{450, 450}, {400, 420}, {380, 470}};
}

template <class Look>
Side ForEachShape(const SharedList& list, const Mouse& mouse, Look look)
{
    return {[=] {
        for (const QPointF p : mouse)
            for (unsigned int i = 0; i < list->GetCount(); ++i)
                benchmark::DoNotOptimize(look(static_cast<CShapeVector&>(*list->GetShape(i)), p));
    }};
}

bool Hit(CShapeVector& shape, QPointF p)
{
    int reach = kReach;
    return shape.Hit(p, reach);
}

bool RectContains(CShapeVector& shape, QPointF p)
{
    return shape.GetRect(false).contains(p);
}

double Distance(QPointF p, const SHAPE_VECTOR_PATHDATA& line)
{
    const auto length = [](QPointF a, QPointF b) { return std::sqrt(QPointF::dotProduct(b - a, b - a)); };
    const double whole = length(line.ptStart, line.ptEnd), toStart = length(p, line.ptStart),
                 toEnd = length(p, line.ptEnd);
    if (whole <= 1e-6)
        return toStart;
    const QPointF along = line.ptEnd - line.ptStart, to = p - line.ptStart;
    const double height = std::abs(along.x() * to.y() - along.y() * to.x()) / whole;
    if (whole < std::sqrt(toStart * toStart - height * height) || whole < std::sqrt(toEnd * toEnd - height * height))
        return std::min(toStart, toEnd);
    return height;
}

/// The rectangle, then fresh micro lines pass by pass, as lines too, and the distance of each.
bool PlainHit(CShapeVector& shape, QPointF p)
{
    if (!RectContains(shape, p))
        return false;
    const auto records = test::PlainMicroLines(test::PlainPolygons(*shape.GetPath(false), 1, true));
    benchmark::DoNotOptimize(test::PlainLines(records));
    double nearest = 99999;
    for (const SHAPE_VECTOR_PATHDATA& line : records)
        nearest = std::min(nearest, Distance(p, line));
    return kReach > nearest;
}

Side SceneItems(const SharedList& list, const Mouse& mouse)
{
    const auto scene = std::make_shared<QGraphicsScene>();
    for (unsigned int i = 0; i < list->GetCount(); ++i)
        scene->addPath(*list->GetShape(i)->GetPath(false), QPen(Qt::black, 0));
    return {[=] {
        for (const QPointF p : mouse)
            benchmark::DoNotOptimize(scene->items(p).size());
    }};
}

const bool kRegistered = Register({
    {.name = "H1 20 mouse positions, 10,000 outlines side by side",
     .against = "the rectangles alone",
     .goal = AtMost(1.15),
     .sides =
         [] {
             const SharedList list = SideBySide();
             return Sides{ForEachShape(list, Anywhere(), Hit), ForEachShape(list, Anywhere(), RectContains)};
         }},
    {.name = "H2 3 mouse positions, 10,000 outlines over each other",
     .against = "plain: fresh lines, all distances",
     .goal = TimesFaster(3),
     .sides =
         [] {
             const SharedList list = OverEachOther();
             return Sides{ForEachShape(list, InTheMiddle(), Hit), ForEachShape(list, InTheMiddle(), PlainHit)};
         }},
    {.name = "H2 the same",
     .against = "QGraphicsScene::items",
     .goal = TimesFaster(20),
     .sides =
         [] {
             const SharedList list = OverEachOther();
             return Sides{ForEachShape(list, InTheMiddle(), Hit), SceneItems(list, InTheMiddle())};
         },
     .rounds = 7},
});

} // namespace
