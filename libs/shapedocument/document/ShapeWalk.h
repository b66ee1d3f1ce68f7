/// Walks over a document's shapes and everything inside them.
#pragma once

#include "shapedocument_export.h"
#include <cstddef>
#include <functional>

class CShape;
class CShapeList;
class QString;

namespace shapedocument {

/// The members of a group or array; null for every other shape. Cost: O(1).
SHAPEDOCUMENT_EXPORT CShapeList* MembersOf(CShape& shape);

/// Visits every shape in drawing order, members right behind the shape that holds them. depth is 0 for the list's own
/// shapes. Cost: O(shapes) visits.
SHAPEDOCUMENT_EXPORT void ForEachShape(CShapeList& list, const std::function<void(CShape& shape, int depth)>& visit);

/// Levels of nested groups and arrays; 0 without any. Cost: O(shapes).
SHAPEDOCUMENT_EXPORT int GroupLevels(CShapeList& list);

/// Most levels of groups and arrays; documents with more cannot be read.
constexpr int kMostGroupLevels = 256;

/// Throws Failure, naming file, if the list's shapes cannot be put into a group or array: there are none, or the result
/// would have too many levels to be read again. Cost: O(shapes).
SHAPEDOCUMENT_EXPORT void ExpectNestable(CShapeList& list, const QString& file);

/// Visits the visible shapes that have their own outline: the members of a group instead of the group, and copies of an
/// array's members for each valid cell instead of the array. The copies of a cell are freed after their visit. Hidden
/// shapes and what they hold are skipped. Cost: O(outlines) visits; in cells each with a clone.
SHAPEDOCUMENT_EXPORT void ForEachVisibleOutline(CShapeList& list, const std::function<void(CShape& shape)>& visit);

/// Most shapes that a walk visits. A few bytes of nested arrays may ask for any number.
constexpr size_t kMostOutlines = 10'000'000;

/// Number of shapes that ForEachVisibleOutline visits, copies in cells included; kMostOutlines + 1 if there are more.
/// Cost: O(shapes); cells are multiplied, not walked.
SHAPEDOCUMENT_EXPORT size_t OutlineCount(CShapeList& list);

/// Throws Failure, naming file, if there are more than kMostOutlines. Cost: O(shapes).
SHAPEDOCUMENT_EXPORT void ExpectFewOutlines(CShapeList& list, const QString& file);

} // namespace shapedocument
