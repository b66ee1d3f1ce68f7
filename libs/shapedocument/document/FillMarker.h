/// The fill marker of outlines.
#pragma once

#include "shapedocument_export.h"

class CShapeVector;

namespace shapedocument {

/// Marks an outline that is closed already as filled, whatever its points are. CShapeVector::Close marks only outlines
/// whose ends do not meet. The marker is a copy of the last run's start behind its last point, and is not drawn. The
/// shape becomes EVECTOR_MIXED; its points stay as they are. Cost: O(n).
/// @return false, and nothing changed, where the last run has no points
SHAPEDOCUMENT_EXPORT bool MarkAsFilled(CShapeVector& shape);

} // namespace shapedocument
