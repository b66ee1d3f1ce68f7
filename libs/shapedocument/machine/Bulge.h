/// Arcs as a job's points give them: by the bulge of the segment between two points.
#pragma once

#include "shapedocument_export.h"
#include <QPointF>
#include <QRectF>

namespace shapedocument {

/// An arc about its centre. Angles are radians, positive from +x towards +y.
struct CircleArc
{
    QPointF center;    ///< mm
    double radius = 0; ///< mm
    double begin = 0;  ///< direction from the centre to the first point
    double sweep = 0;  ///< at most half a turn, either way
};

/// The arc from one point to another. The bulge is the tangent of a quarter of the sweep, not 0. Cost: O(1).
SHAPEDOCUMENT_EXPORT CircleArc ArcOf(QPointF from, QPointF to, double bulge);

/// The point of a segment at a part (0 to 1) of its sweep or length; the bulge may be 0. Cost: O(1).
SHAPEDOCUMENT_EXPORT QPointF PointOnSegment(QPointF from, QPointF to, double bulge, double part);

/// The bulge of a part (0 to 1) of a segment. Cost: O(1).
SHAPEDOCUMENT_EXPORT double PartOfBulge(double bulge, double part);

/// The length of a segment (mm). Cost: O(1).
SHAPEDOCUMENT_EXPORT double SegmentLength(QPointF from, QPointF to, double bulge);

/// The bounding rectangle of a segment (mm). Cost: O(1).
SHAPEDOCUMENT_EXPORT QRectF SegmentRect(QPointF from, QPointF to, double bulge);

/// Into how many chords a segment is to be cut so that none lies farther than tolerance (mm) from it; 1 for a line, 512
/// at most. Cost: O(1).
SHAPEDOCUMENT_EXPORT int ChordCount(QPointF from, QPointF to, double bulge, double tolerance);

} // namespace shapedocument
