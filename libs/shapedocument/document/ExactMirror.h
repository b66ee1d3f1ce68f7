/// Mirroring shapes so that what is drawn is the mirror image.
#pragma once

#include "shapedocument_export.h"

class CShape;

namespace shapedocument {

/// A line to mirror across.
enum class MirrorAxis
{
    Vertical,  ///< x stays the same along it
    Horizontal ///< y does
};

/// Mirrors across the line at position (mm). Single texts and those in groups, which CShape::MirrorX mirrors in place,
/// become their mirror image, turned ones too; an array keeps the order of its cells and comes to lie where the mirror
/// image does. Cost: as the shape's own mirror, and a layout of each text.
SHAPEDOCUMENT_EXPORT void Mirror(CShape& shape, MirrorAxis axis, double position);

} // namespace shapedocument
