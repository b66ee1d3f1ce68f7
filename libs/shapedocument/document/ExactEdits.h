/// Mirroring and turning shapes so that what is drawn is the image of what was.
#pragma once

#include "shapedocument_export.h"

#include <QPointF>

class CShape;

namespace shapedocument {

/// A line to mirror across.
enum class MirrorAxis
{
    Vertical,  ///< x stays the same along it
    Horizontal ///< y does
};

/// Mirrors across the line at position (mm). Single texts and those in groups, which CShape::MirrorX mirrors in place,
/// become their mirror image, turned ones too; so do arrays. Cost: as the shape's own mirror, and a layout of each
/// text.
SHAPEDOCUMENT_EXPORT void Mirror(CShape& shape, MirrorAxis axis, double position);

/// Turns about centre (mm) by degrees, positive clockwise as seen. Arrays, which CShapeArray::Rotate then centres on
/// it, turn as everything else. Cost: as the shape's own.
SHAPEDOCUMENT_EXPORT void Turn(CShape& shape, double degrees, QPointF centre);

} // namespace shapedocument
