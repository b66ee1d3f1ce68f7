/// Aligns and distributes shapes.
#pragma once

#include "shapedocument_export.h"

class CShapeList;

namespace shapedocument {

/// The edge or middle of their rectangles by which shapes are aligned, as seen on screen.
enum class Alignment
{
    Left,
    Center, ///< the middle from left to right
    Right,
    Top,
    Middle, ///< the middle from top to bottom
    Bottom
};

/// Moves each shape so that it lies at that place of the rectangle around all of them. Returns whether anything moved.
/// Cost: O(shapes) moves; the path of each shape is built.
SHAPEDOCUMENT_EXPORT bool AlignShapes(CShapeList& shapes, Alignment alignment);

/// Moves the shapes between the first and the last one, from left to right or from top to bottom, so that all gaps
/// between their rectangles are the same; where they overlap, the gaps are negative. One or two shapes stay where they
/// are. Returns whether anything moved. Cost: O(n log n) in the shapes, and that of AlignShapes.
SHAPEDOCUMENT_EXPORT bool DistributeShapes(CShapeList& shapes, bool downwards);

} // namespace shapedocument
