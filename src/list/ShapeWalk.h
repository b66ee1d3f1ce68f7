/// Walks over the entries of a shape list; null entries are passed over.
#pragma once

#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <vector>

namespace shapes {

/// Calls for shape i, when there is one, ahead of its turn: shapes lie scattered, and who looks at the first bytes of
/// many in a row would spend his time on waiting for them.
inline void Prefetch(const std::vector<CShape*>& shapes, size_t i)
{
    if (i < shapes.size())
        __builtin_prefetch(shapes[i]);
}
inline constexpr size_t kPrefetchDistance = 16; ///< shapes

/// Visits every shape in order; false when there is none. By index, with the count asked each time: building a painter
/// path may call the host, who may change the list meanwhile.
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
