/// The nodes of an outline, for hosts that let users edit them one by one.
#pragma once

#include "shapedocument_export.h"

#include <QPainterPath>
#include <QPointF>

#include <vector>

namespace shapedocument {

/// A point of a painter path that users can drag.
struct PathNode
{
    int element = 0; ///< of the path
    QPointF at;      ///< mm
    int anchor = 0;  ///< for a control point: element of the outline's point to which it belongs; else its own element
    bool control = false; ///< a control point of a curve, not on the outline
};

/// All nodes in the path's order. The last point of a closed sub-path, which repeats the first, is left out.
/// Cost: O(elements).
SHAPEDOCUMENT_EXPORT std::vector<PathNode> NodesOf(const QPainterPath& path);

/// The path with that element moved. The control points of a point move with it, and so do the start and end of a
/// closed sub-path with each other. Unchanged for an element that does not exist. Cost: O(elements).
SHAPEDOCUMENT_EXPORT QPainterPath WithNodeMoved(const QPainterPath& path, int element, QPointF to);

/// The path without that point of the outline: one piece replaces the two beside it, a curve if either was one.
/// Sub-paths with fewer than two points are removed. Unchanged for control points. Cost: O(elements).
SHAPEDOCUMENT_EXPORT QPainterPath WithNodeRemoved(const QPainterPath& path, int element);

/// The path with another point where the outline is nearest to the position; its form does not change. Unchanged when
/// the outline is farther than reach (mm). Cost: O(elements).
SHAPEDOCUMENT_EXPORT QPainterPath WithNodeInserted(const QPainterPath& path, QPointF near, double reach);

} // namespace shapedocument
