/// Transforms of a drawing of a million points.
#include "Drawings.h"
#include "Goals.h"
#include "Limits.h"

#include "vector/ShapeVector.h"

namespace {

using namespace bench;

/// Ten large outlines, or ten thousand small ones.
SharedList MillionPoints(bool large)
{
    return large ? Drawing(10, 100'000) : Drawing(10'000, 100);
}

Sides Rotate()
{
    const SharedList list = MillionPoints(true);
    return {{[list] { list->Rotate(17, {500, 400}, Qt::ZAxis); }}, AddInPlace(*list, Moved::Points)};
}

Sides Mirror()
{
    const SharedList list = MillionPoints(true);
    return {{[list] { list->MirrorX(500); }}, AddInPlace(*list, Moved::Points)};
}

Sides MirrorAcrossLine()
{
    const SharedList list = MillionPoints(true);
    return {{[list] { list->MirrorFixedOrMovingLine({0, 0}, {1000, 900}, true); }}, AddInPlace(*list, Moved::Points)};
}

/// Fits every shape into another rectangle; the shapes' own rectangles are cached.
Sides Fit()
{
    const SharedList list = MillionPoints(true);
    const auto fit = [list] { VisitShapes(*list, [](CShape& shape) { shape.Resize({5, 6, 70, 80}); }); };
    return {{fit, [list] { list->GetRect(false); }}, AddInPlace(*list, Moved::Points)};
}

Sides Offset(bool large)
{
    const SharedList list = MillionPoints(large);
    list->GetRect(false);
    return {{[list] { list->Offset(0.5, 0.25, true); }}, AddInPlace(*list, Moved::PointsAndPaths)};
}

Row Measure(const char* name, std::function<Sides()> sides, double factor = 1.15)
{
    return {
        .name = name, .against = "each byte read and written once", .goal = AtMost(factor), .sides = std::move(sides)};
}

const bool kRegistered = Register({
    Measure("T1 Rotate, 10 outlines of 100,000 points", Rotate),
    Measure("T1 MirrorX, 10 outlines of 100,000 points", Mirror),
    Measure("T1 mirror across a line, 10 outlines", MirrorAcrossLine, 1.3),
    Measure("T1 Resize, 10 outlines of 100,000 points", Fit),
    Measure("T2 Offset with paths, 10 outlines", [] { return Offset(true); }),
    Measure(
        "T2 Offset with paths, 10,000 outlines", [] { return Offset(false); }, 1.3),
});

} // namespace
