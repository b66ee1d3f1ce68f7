/// Transforms of a drawing of a million points.
#include "Drawings.h"
#include "Goals.h"

#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

using namespace bench;

/// The limit: the points of every shape copied.
Side CopyPoints(CShapeList& list)
{
    std::vector<std::vector<QPointF>> points;
    std::vector<unsigned char> types;
    VisitShapes(list, [&](CShape& shape) { shape.GetShapePathData(points.emplace_back(), types); });
    return {[from = points, to = points]() mutable {
        for (size_t i = 0; i < from.size(); ++i)
            std::memcpy(static_cast<void*>(to[i].data()), from[i].data(), from[i].size() * sizeof(QPointF));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }};
}

/// Ten large outlines, or ten thousand small ones.
SharedList MillionPoints(bool large)
{
    return large ? Drawing(10, 100'000) : Drawing(10'000, 100);
}

Sides Rotate()
{
    const SharedList list = MillionPoints(true);
    return {{[list] { list->Rotate(17, {500, 400}, Qt::ZAxis); }}, CopyPoints(*list)};
}

Sides Mirror()
{
    const SharedList list = MillionPoints(true);
    return {{[list] { list->MirrorX(500); }}, CopyPoints(*list)};
}

Sides MirrorAcrossLine()
{
    const SharedList list = MillionPoints(true);
    return {{[list] { list->MirrorFixedOrMovingLine({0, 0}, {1000, 900}, true); }}, CopyPoints(*list)};
}

/// Fits every shape into another rectangle; the shapes' own rectangles are cached.
Sides Fit()
{
    const SharedList list = MillionPoints(true);
    const auto fit = [list] { VisitShapes(*list, [](CShape& shape) { shape.Resize({5, 6, 70, 80}); }); };
    return {{fit, [list] { list->GetRect(false); }}, CopyPoints(*list)};
}

Sides Offset(bool large)
{
    const SharedList list = MillionPoints(large);
    list->GetRect(false);
    return {{[list] { list->Offset(0.5, 0.25, true); }}, CopyPoints(*list)};
}

Row Measure(const char* name, double factor, std::function<Sides()> sides)
{
    return {.name = name, .against = "memcpy of the points", .goal = AtMost(factor), .sides = std::move(sides)};
}

const bool kRegistered = Register({
    Measure("T1 Rotate, 10 outlines of 100,000 points", 1.3, Rotate),
    Measure("T1 MirrorX, 10 outlines of 100,000 points", 1.3, Mirror),
    Measure("T1 mirror across a line, 10 outlines", 1.3, MirrorAcrossLine),
    Measure("T1 Resize, 10 outlines of 100,000 points", 1.3, Fit),
    Measure("T2 Offset with paths, 10 outlines", 2.6, [] { return Offset(true); }),
    Measure("T2 Offset with paths, 10,000 outlines", 2.6, [] { return Offset(false); }),
});

} // namespace
