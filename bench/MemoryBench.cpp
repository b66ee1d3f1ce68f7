/// Heap bytes that drawings take.
#include "Drawings.h"
#include "Goals.h"

#include "record/DocumentVersion.h"
#include "vector/ShapeVector.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace bench;

constexpr double kBytesPerPoint = 17; ///< two doubles and the type
constexpr double kBytesPerShape = 220;

/// A drawing as reading leaves it.
ShapeListOwner ReadBack(int shapes, int pointsPerShape)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("drawing.bin"));
    (void)file.open(QIODevice::ReadWrite);
    Drawing(shapes, pointsPerShape)->Save(&file);
    file.seek(0);
    ShapeListOwner list(CShapeList::New());
    list->Read(&file, SHAPE_DOCUMENT_VERSION);
    return list;
}

Amounts AfterReading(int shapes, int pointsPerShape)
{
    const double before = HeapBytes();
    const ShapeListOwner list = ReadBack(shapes, pointsPerShape);
    const double points = static_cast<double>(shapes) * pointsPerShape;
    return {(HeapBytes() - before) / points, kBytesPerPoint + kBytesPerShape / pointsPerShape};
}

/// Bytes of painter paths per element.
Amounts Paths(double limit)
{
    const ShapeListOwner list = Drawing(10'000, 100);
    const double before = HeapBytes();
    list->GetRect(false);
    return {(HeapBytes() - before) / 1e6, limit};
}

/// Gigabytes of a drawing of ten million points, read; with its paths and micro lines.
Amounts TenMillion(bool everythingBuilt, double limit)
{
    const double before = HeapBytes();
    const ShapeListOwner list = ReadBack(100'000, 100);
    if (everythingBuilt)
        VisitShapes(*list, [](CShape& shape) { shape.Flatten(0.01); });
    return {(HeapBytes() - before) / 1e9, limit};
}

const bool kRegistered = Register({
    {.name = "M1 after reading, 100 points a shape, per point",
     .against = "17 B a point and 220 B a shape",
     .goal = AtMost(1.1),
     .amounts = [] { return AfterReading(10'000, 100); },
     .unit = "B"},
    {.name = "M1 after reading, 4 points a shape, per point",
     .against = "17 B a point and 220 B a shape",
     .goal = AtMost(1.2),
     .amounts = [] { return AfterReading(250'000, 4); },
     .unit = "B"},
    {.name = "M2 painter paths, per element",
     .against = "27 B",
     .goal = AtMost(1),
     .amounts = [] { return Paths(27); },
     .unit = "B"},
    {.name = "M3 10 M points read",
     .against = "0.22 GB",
     .goal = AtMost(1),
     .amounts = [] { return TenMillion(false, 0.22); },
     .unit = "GB"},
    {.name = "M3 10 M points, paths and micro lines built",
     .against = "0.9 GB",
     .goal = AtMost(1),
     .amounts = [] { return TenMillion(true, 0.9); },
     .unit = "GB"},
});

} // namespace
