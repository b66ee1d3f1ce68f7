#include "FittingNote.h"

#include "vector/ShapeVector.h"

#include <cstdio>

namespace {

/// Asks by the library's own way: a flattened circle that becomes shorter was refitted.
bool IsFittingOn()
{
    QPainterPath circle;
    circle.addEllipse(QPointF(0, 0), 10, 10);
    CShapeVector shape;
    shape.SetPath(&circle);
    shape.GetPath(true);
    return shape.GetVectorType() == EVECTOR_MIXED;
}

} // namespace

void SayWhetherFitted()
{
    if (IsFittingOn())
        std::printf("curve fitting was on\n");
}
