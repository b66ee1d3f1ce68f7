/// A list that owns its shapes, as a smart pointer.
#pragma once

#include "list/ShapeList.h"

#include <memory>

/// Frees the shapes of a list with the members of groups and arrays, their painter paths (a shape does not free an
/// empty one itself), and the list.
struct SHAPEMODEL_EXPORT ShapeListDeleter
{
    /// Frees all of it; null is ignored. Cost: O(shapes), members included.
    void operator()(CShapeList* list) const;
};

/// For a list that alone holds its shapes: a document, a clipboard, what CShapeList::Clone and
/// CShapeArray::GetAllShapeList return. A list that is a mere view of others' shapes is destroyed with
/// CShapeList::Release instead.
using ShapeListOwner = std::unique_ptr<CShapeList, ShapeListDeleter>;

/// An empty list.
inline ShapeListOwner NewShapeList()
{
    return ShapeListOwner(CShapeList::New());
}
