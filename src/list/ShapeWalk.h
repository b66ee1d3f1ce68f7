/// Walks over the entries of a shape list; null entries are passed over.
#pragma once

#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

namespace shapes {

/// Calls for shape i, when there is one, ahead of its turn: shapes lie scattered, and who looks at the first bytes of
/// many in a row would spend his time on waiting for them.
inline void CallAhead(const std::vector<CShape*>& shapes, size_t i)
{
    if (i < shapes.size())
        __builtin_prefetch(shapes[i]);
}
inline constexpr size_t kAhead = 16; ///< shapes

/// True when no shape is listed twice, found without a look at any: by a mark for every place where one could stand. False
/// also where they lie so far apart that the marks would take too much room.
inline bool AreDistinct(const std::vector<CShape*>& shapes)
{
    constexpr uintptr_t kPlace = 128; // bytes; no two shapes begin within so few
    constexpr uintptr_t kMostPlacesPerShape = 32;
    static_assert(sizeof(CShape) >= kPlace);
    const auto placeOf = [](const CShape* shape) { return reinterpret_cast<uintptr_t>(shape) / kPlace; };
    if (shapes.empty())
        return true;
    const auto [first, last] = std::minmax_element(shapes.begin(), shapes.end(), std::less<>());
    const uintptr_t lowest = placeOf(*first), places = placeOf(*last) - lowest + 1;
    if (!*first || places > shapes.size() * kMostPlacesPerShape)
        return false;
    std::vector<unsigned char> taken(places);
    for (const CShape* shape : shapes)
        if (taken[placeOf(shape) - lowest]++ != 0)
            return false;
    return true;
}

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
    size_t kept = shapes.size();
    for (size_t i = shapes.size(); i-- > 0;) {
        CallAhead(shapes, i - kAhead);
        CShape* shape = shapes[i];
        if (!shape || !take(shape))
            shapes[--kept] = shape;
    }
    shapes.erase(shapes.begin(), shapes.begin() + static_cast<std::ptrdiff_t>(kept));
}

} // namespace shapes
