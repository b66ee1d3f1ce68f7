/// The nodes of an outline, for hosts that let users edit them one by one.
#pragma once

#include "shapedocument_export.h"

#include <QPainterPath>
#include <QPointF>

#include <vector>

namespace shapedocument {

/// A point of a painter path that can be taken hold of.
struct PathNode
{
    int element = 0;      ///< of the path
    QPointF at;           ///< mm
    int anchor = 0;       ///< element of the point of the outline that it belongs to; itself for such a point
    bool control = false; ///< a control point of a curve, not on the outline
};

/// All nodes in the path's order. The last point of a closed sub-path, which repeats the first, is left out.
/// Cost: O(elements).
SHAPEDOCUMENT_EXPORT std::vector<PathNode> NodesOf(const QPainterPath& path);

/// The path with that element moved. A point of the outline takes its control points along, and the end of a closed
/// sub-path its start, and the reverse. Unchanged for an element that does not exist. Cost: O(elements).
SHAPEDOCUMENT_EXPORT QPainterPath WithNodeMoved(const QPainterPath& path, int element, QPointF to);

/// The path without that point of the outline: one piece takes the place of the two beside it, a curve where either was
/// one. Sub-paths of fewer than two points vanish. Unchanged for control points. Cost: O(elements).
SHAPEDOCUMENT_EXPORT QPainterPath WithNodeRemoved(const QPainterPath& path, int element);

/// The path with a further point on the outline, where it is nearest to the position; its form stays. Unchanged when
/// the outline is farther than reach (mm). Cost: O(elements).
SHAPEDOCUMENT_EXPORT QPainterPath WithNodeInserted(const QPainterPath& path, QPointF near, double reach);

} // namespace shapedocument
