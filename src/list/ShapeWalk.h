/// Walks over the entries of a shape list; null entries are passed over.
#pragma once

#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <algorithm>
#include <vector>

namespace shapes {

/// Visits every shape in order; false when there is none.
template <class Visit>
bool ForEachShape(const std::vector<CShape*>& shapes, Visit visit)
{
    bool any = false;
    for (CShape* shape : shapes) {
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
    const auto found =
        std::find_if(shapes.begin(), shapes.end(), [&wanted](CShape* shape) { return shape && wanted(shape); });
    return found == shapes.end() ? nullptr : *found;
}

/// The first shape of the list; null when it has none.
inline CShape* FirstShape(CShapeList& list)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        if (CShape* shape = list.GetShape(i))
            return shape;
    return nullptr;
}

/// Asks take() once for every shape, from the last to the first, and takes out those it wants, all in one pass.
template <class Take>
void TakeOutBackToFront(std::vector<CShape*>& shapes, Take take)
{
    const auto kept =
        std::remove_if(shapes.rbegin(), shapes.rend(), [&take](CShape* shape) { return shape && take(shape); });
    shapes.erase(shapes.begin(), kept.base());
}

} // namespace shapes
