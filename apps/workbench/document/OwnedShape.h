/// A shape outside of any list, as a smart pointer.
#pragma once

#include "list/ShapeListOwner.h"

#include <memory>

class CShape;

/// Frees the shape with its members and the painter paths of all of them.
struct ShapeDeleter
{
    void operator()(CShape* shape) const
    {
        if (shape)
            NewShapeList()->AddTail(shape); // The list frees it at once.
    }
};

/// Owns one shape that is in no list.
using OwnedShape = std::unique_ptr<CShape, ShapeDeleter>;
