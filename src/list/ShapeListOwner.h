/// A list that owns its shapes, as a smart pointer.
#pragma once

#include "list/ShapeList.h"

#include <memory>

/// Frees the shapes of a list, their painter paths (which a shape itself leaves to the host while they are empty), the
/// members of groups and arrays among them, and the list.
struct SHAPEMODEL_EXPORT ShapeListDeleter
{
    void operator()(CShapeList* list) const;
};

/// For a list whose shapes nobody else holds: a document, a clipboard, what CShapeList::Clone and
/// CShapeArray::GetAllShapeList answer. A list that is a mere view of others' shapes is released with
/// CShapeList::Release instead.
using ShapeListOwner = std::unique_ptr<CShapeList, ShapeListDeleter>;

/// An empty list.
inline ShapeListOwner NewShapeList()
{
    return ShapeListOwner(CShapeList::New());
}
