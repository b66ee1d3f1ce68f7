/// Casts shapes by their type.
#pragma once

#include "shape/Shape.h"

/// The shape as Class when it is of that type; else null. Texts are vectors by class but not by type.
template <class Class>
Class* ShapeAs(CShape* shape, ESHAPE_TYPE type)
{
    return shape && shape->GetShapeType() == type ? dynamic_cast<Class*>(shape) : nullptr;
}
