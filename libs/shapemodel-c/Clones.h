/// Clones of shapes and documents, with progress.
#pragma once

#include "Progress.h"
#include "document/DocumentFile.h"

#include <memory>

class CShape;
class CShapeList;

namespace capi {

/// As CShape::Clone. Throws Stopped between two shapes, members of groups included. Cost: O(points).
std::unique_ptr<CShape> CloneOf(CShape& shape, Progress& progress);

/// As CShapeList::Clone; throws as CloneOf.
shapedocument::Document CopyOf(CShapeList& document, Progress& progress);

} // namespace capi
