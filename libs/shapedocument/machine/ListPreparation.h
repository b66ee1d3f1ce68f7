/// Optimises and sorts a document's shapes before lines are made of them, with one outline in memory at a time.
#pragma once

#include "document/WorkProgress.h"

#include <cstddef>

class CShape;
class CShapeList;

namespace shapedocument {

/// Number of a vector's points that are not finite: the painter path skips them. 0 for other kinds, whose points are
/// not what they draw. Cost: O(points).
size_t PointsWithoutPlace(CShape& shape);

/// Optimises one shape at a time. The types are kept: by them each shape gets its own kind of lines. Outlines with
/// curves stay exact: without a plug-in, optimising would make fine polylines of them. So do those with points without
/// place, which are still to be counted. Throws Stopped.
void OptimizeShapes(CShapeList& document, const WorkWatch& watch);

/// Puts the shapes in the order of CShapeList::Sort, which leaves long lists as they are.
void SortShapes(CShapeList& document);

} // namespace shapedocument
