/// What later versions added to CShape.
#pragma once

#include "geometry/MicroLineCache.h"

namespace shapes {

/// Made when first needed, and not copied with the shape. Hosts derive from CShape, so that its size may not change:
/// new fields of the library's own come here.
struct ShapePrivate
{
    MicroLineCache microLines;
};

} // namespace shapes
