/// Mirrors and turns shapes so that the result is exactly the mirrored or turned drawing.
#pragma once

#include "shapedocument_export.h"

#include <QPointF>

class CShape;

namespace shapedocument {

/// A line to mirror across.
enum class MirrorAxis
{
    Vertical,  ///< a line of constant x
    Horizontal ///< a line of constant y
};

/// Mirrors across the line at position (mm). Texts (single ones and those in groups), which CShape::MirrorX mirrors in
/// place, become their mirror image, also when turned; so do arrays. Cost: as the shape's own mirror, and a layout of
/// each text.
SHAPEDOCUMENT_EXPORT void Mirror(CShape& shape, MirrorAxis axis, double position);

/// Turns about centre (mm) by degrees, positive clockwise as seen. Arrays turn like other shapes; CShapeArray::Rotate
/// would centre them on centre. Cost: as the shape's own rotation.
SHAPEDOCUMENT_EXPORT void Turn(CShape& shape, double degrees, QPointF centre);

} // namespace shapedocument
