#include "FittingNote.h"

#include "Messages.h"

#include "vector/ShapeVector.h"

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

void SayWhetherFitted(std::FILE* stream)
{
    if (IsFittingOn())
        PrintLine(stream, "curve fitting was on");
}
