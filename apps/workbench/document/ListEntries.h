/// Lists of shapes as vectors.
#pragma once

#include "list/ShapeListOwner.h"

#include <vector>

class CShape;

/// The list's own shapes in order, members of groups not counted. Cost: O(shapes).
inline std::vector<CShape*> EntriesOf(CShapeList& list)
{
    std::vector<CShape*> entries(list.GetCount());
    for (size_t i = 0; i < entries.size(); ++i)
        entries[i] = list.GetShape(static_cast<unsigned int>(i));
    return entries;
}

/// Takes the shapes out of the list: it is empty afterwards, and the caller owns them.
inline std::vector<CShape*> TakenFrom(CShapeList& list)
{
    std::vector<CShape*> entries = EntriesOf(list);
    list.RemoveAll();
    return entries;
}
