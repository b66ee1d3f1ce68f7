/// The marker that makes an outline a filled one.
#pragma once

#include "shapedocument_export.h"

class CShapeVector;

namespace shapedocument {

/// Marks an outline that is closed already as filled, whatever its points are. CShapeVector::Close marks only outlines
/// whose ends do not meet. The marker repeats the start of the last run and stands behind it: nothing that draws the
/// outline draws it. The shape becomes EVECTOR_MIXED; its points stay as they are. Cost: O(n).
/// @return false, and nothing changed, where the last run has no points
SHAPEDOCUMENT_EXPORT bool MarkAsFilled(CShapeVector& shape);

} // namespace shapedocument
