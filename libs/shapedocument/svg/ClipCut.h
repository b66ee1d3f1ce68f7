/// Cuts outlines at the edge of an area.
#pragma once

#include "plane/BoxTree.h"
#include "svg/CutStretches.h"
#include "svg/PointInArea.h"

#include <QPainterPath>

namespace shapedocument::drawing {

/// Whether two rectangles have no point in common, also those without a width or a height.
bool AreApart(const QRectF& a, const QRectF& b);

/// An area (mm), indexed so that many outlines can be cut at it; its fill rule counts. Cost to make: O(n log n).
struct ClipEdge
{
    QRectF around;
    bool isUprightRect;
    Outline outline;
    BoxTree pieces; ///< of the outline
    PointInArea area;

    explicit ClipEdge(const QPainterPath& path);
};

/// Keeps the part of path (mm) inside clip; curves become exact parts of themselves. Where the clip cuts it, the
/// outline of an area follows the clip's edge, and a line ends. Returns false, with path unchanged, when more than 5
/// million pairs of pieces have overlapping boxes.
bool CutAtClip(QPainterPath& path, bool isArea, const ClipEdge& clip);

/// Removes the lines of path inside cover; those along its edge stay. Returns as CutAtClip.
bool CutAway(QPainterPath& path, const ClipEdge& cover);

/// Whether path is one closed rectangle with upright edges.
bool IsUprightRect(const QPainterPath& path);

/// The renderer gives a clip of upright edges as boxes side by side. Returns their union, without the seams between
/// them; any other area unchanged.
QPainterPath WithoutSeams(const QPainterPath& area);

} // namespace shapedocument::drawing
