/// A shape outside of any list, as a smart pointer.
#pragma once

#include "list/ShapeListOwner.h"

/// Frees a shape with its members and the painter paths of all of them (a shape does not free an empty one itself).
struct ShapeDeleter
{
    /// Frees all of it, through a list that it makes; null is ignored. Cost: O(members).
    void operator()(CShape* shape) const
    {
        if (shape)
            NewShapeList()->AddTail(shape); // The list frees it at once.
    }
};

/// For a shape that stands in no list: what CShape::NewShape, CShape::Clone and CShapeArray::GetShape return. Release
/// it into the list or group that owns it from then on.
using ShapeOwner = std::unique_ptr<CShape, ShapeDeleter>;
