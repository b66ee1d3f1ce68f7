/// Walking a document with everything that its shapes hold.
#pragma once

#include <functional>

class CShape;
class CShapeList;

/// The members of a group or array; null for every other shape.
CShapeList* MembersOf(CShape& shape);

/// Visits every shape in drawing order, members right behind the shape that holds them. depth is 0 for the list's own
/// shapes.
void ForEachShape(CShapeList& list, const std::function<void(CShape& shape, int depth)>& visit);

/// Visits the shapes that have an outline of their own and are shown: members in place of the group that holds them,
/// copies of the members in place of each valid cell of an array (gone after the visit); nothing that is hidden or held
/// by something hidden.
void ForEachVisibleOutline(CShapeList& list, const std::function<void(CShape& shape)>& visit);
