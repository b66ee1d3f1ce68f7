/// Walking a document with everything that its shapes hold.
#pragma once

#include <cstddef>
#include <functional>

class CShape;
class CShapeList;

/// The members of a group or array; null for every other shape.
CShapeList* MembersOf(CShape& shape);

/// Visits every shape in drawing order, members right behind the shape that holds them. depth is 0 for the list's own
/// shapes.
void ForEachShape(CShapeList& list, const std::function<void(CShape& shape, int depth)>& visit);

/// Levels of groups and arrays inside each other; 0 without any.
int GroupLevels(CShapeList& list);

/// As many groups and arrays may lie inside each other; documents that hold more cannot be read.
constexpr int kMostGroupLevels = 256;

/// Throws Failure, naming file, when no group or array can be made of the list's shapes: there are none, or one more
/// level could not be read again.
void ExpectNestable(CShapeList& list, const class QString& file);

/// Visits the shapes that have an outline of their own and are shown: members in place of the group that holds them,
/// copies of the members in place of each valid cell of an array (one cell at a time, gone after its visit); nothing that
/// is hidden or held by something hidden.
void ForEachVisibleOutline(CShapeList& list, const std::function<void(CShape& shape)>& visit);

/// The walk over as many shapes is bearable. Cells inside cells may ask for any number in a few bytes.
constexpr size_t kMostOutlines = 10'000'000;

/// Number of shapes that ForEachVisibleOutline goes through, copies in cells included; kMostOutlines + 1 when more.
size_t OutlineCount(CShapeList& list);

/// Throws Failure, naming file, when the list's outlines are more than kMostOutlines.
void ExpectFewOutlines(CShapeList& list, const class QString& file);
