/// Walks over the entries of a shape list; null entries are skipped.
#pragma once

#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <vector>

namespace shapes {

/// Loads the first bytes of shape i, when there is one, into the processor's cache: shapes are scattered in memory, and
/// a walk that reads little of each would mostly wait for them.
inline void Prefetch(const std::vector<CShape*>& shapes, size_t i)
{
    if (i < shapes.size())
        __builtin_prefetch(shapes[i]);
}
inline constexpr size_t kPrefetchDistance = 16; ///< shapes ahead of the one in use

/// Visits every shape in order; false when there is none. Walks by index and reads the size each time: building a
/// painter path may run host code that changes the list.
template <class Visit>
bool ForEachShape(const std::vector<CShape*>& shapes, Visit visit)
{
    bool any = false;
    for (size_t i = 0; i < shapes.size(); ++i) {
        CShape* shape = shapes[i];
        if (!shape)
            continue;
        visit(shape);
        any = true;
    }
    return any;
}

/// The first shape that wanted() accepts; null when there is none.
template <class Wanted>
CShape* FirstShape(const std::vector<CShape*>& shapes, Wanted wanted)
{
    for (size_t i = 0; i < shapes.size(); ++i)
        if (CShape* shape = shapes[i]; shape && wanted(shape))
            return shape;
    return nullptr;
}

/// The first shape of the list; null when it has none.
inline CShape* FirstShape(CShapeList& list)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        if (CShape* shape = list.GetShape(i))
            return shape;
    return nullptr;
}

/// Calls wanted() once for every shape, from the last to the first, and removes the shapes for which it is true.
template <class Wanted>
void RemoveBackToFront(std::vector<CShape*>& shapes, Wanted wanted)
{
    size_t kept = shapes.size();
    for (size_t i = shapes.size(); i-- > 0;) {
        Prefetch(shapes, i - kPrefetchDistance);
        CShape* shape = shapes[i];
        if (!shape || !wanted(shape))
            shapes[--kept] = shape;
    }
    shapes.erase(shapes.begin(), shapes.begin() + static_cast<std::ptrdiff_t>(kept));
}

} // namespace shapes
