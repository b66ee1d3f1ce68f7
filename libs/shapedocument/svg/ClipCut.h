/// Cutting outlines at the edge of an area.
#pragma once

#include <QPainterPath>

namespace shapedocument::drawing {

/// Whether two rectangles have no point in common, also those without a width or a height.
bool AreApart(const QRectF& a, const QRectF& b);

/// Keeps what of path (mm) lies inside clip, whose fill rule counts; curves stay exact parts of what they were. The
/// outline of an area is led along the clip's edge where the clip cuts it; lines end there. False, and nothing changed,
/// when both have so many curves that it would take too long.
bool CutAtClip(QPainterPath& path, bool isArea, const QPainterPath& clip);

/// Leaves out what of the lines of path lies inside cover, in the same way; what runs along its edge stays.
bool CutAway(QPainterPath& path, const QPainterPath& cover);

/// The renderer hands a clip of upright edges over as boxes side by side: the area without the seams between them,
/// which are no edges. Any other area is as it was.
QPainterPath WithoutSeams(const QPainterPath& area);

} // namespace shapedocument::drawing
