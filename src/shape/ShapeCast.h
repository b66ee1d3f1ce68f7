/// Checked downcast of shapes.
#pragma once

#include "shape/Shape.h"

#include <typeinfo>

namespace shapes {

/// The shape as Class when both its type tag and its class fit; else null. Null stays null.
template <class Class>
Class* ShapeCast(CShape* shape, ESHAPE_TYPE type)
{
    return shape && shape->GetShapeType() == type ? dynamic_cast<Class*>(shape) : nullptr;
}

/// The shape as Class when that is its exact class, not one that a host derived from it; else null.
template <class Class>
Class* ExactCast(CShape* shape)
{
    return shape && typeid(*shape) == typeid(Class) ? static_cast<Class*>(shape) : nullptr;
}

} // namespace shapes
