/// Checked downcast of shapes.
#pragma once

#include "shape/Shape.h"

#include <typeinfo>

namespace shapes {

/// The shape as Class when it says to be of that type and is of that class; else null. Null stays null.
template <class Class>
Class* ShapeCast(CShape* shape, ESHAPE_TYPE type)
{
    return shape && shape->GetShapeType() == type ? dynamic_cast<Class*>(shape) : nullptr;
}

/// The shape as Class when it is exactly of that class: hosts derive classes of their own. Else null.
template <class Class>
Class* ExactCast(CShape* shape)
{
    return shape && typeid(*shape) == typeid(Class) ? static_cast<Class*>(shape) : nullptr;
}

} // namespace shapes
