/// Cutting outlines at the edge of an area.
#pragma once

#include "plane/BoxTree.h"
#include "svg/OutlineRuns.h"
#include "svg/PointInArea.h"

#include <QPainterPath>

namespace shapedocument::drawing {

/// Whether two rectangles have no point in common, also those without a width or a height.
bool AreApart(const QRectF& a, const QRectF& b);

/// An area (mm) that many outlines may be cut at, made ready for that in n log n steps; its fill rule counts.
struct ClipEdge
{
    QRectF around;
    bool isUprightRect;
    Outline outline;
    BoxTree pieces; ///< of the outline
    PointInArea area;

    explicit ClipEdge(const QPainterPath& path);
};

/// Keeps what of path (mm) lies inside clip; curves stay exact parts of what they were. The outline of an area is led
/// along the clip's edge where the clip cuts it; lines end there. False, and nothing changed, when so many pieces of
/// both cross that it would take too long.
bool CutAtClip(QPainterPath& path, bool isArea, const ClipEdge& clip);

/// Leaves out what of the lines of path lies inside cover, in the same way; what runs along its edge stays.
bool CutAway(QPainterPath& path, const ClipEdge& cover);

/// The renderer hands a clip of upright edges over as boxes side by side: the area without the seams between them,
/// which are no edges. Any other area is as it was.
QPainterPath WithoutSeams(const QPainterPath& area);

} // namespace shapedocument::drawing
