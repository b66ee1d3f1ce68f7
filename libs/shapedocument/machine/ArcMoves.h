/// Segments of a job in the words of G-code and SVG.
#pragma once

#include "shapedocument_export.h"

#include <QByteArray>
#include <QPointF>

namespace shapedocument {

/// Whether a segment is written as an arc. One whose chord is shorter than 0.001 mm is not: rounding might make its
/// ends equal, which machines take for a full circle. Cost: O(1).
SHAPEDOCUMENT_EXPORT bool IsWrittenAsArc(QPointF from, QPointF to, double bulge);

/// The G-code move from one point to the next, "G1 X… Y…", or "G2"/"G3" with the centre as I and J from the first
/// point. The points are in machine coordinates: where y was turned upwards, the bulge must have changed its sign.
/// Cost: O(1).
SHAPEDOCUMENT_EXPORT QByteArray GcodeMoveText(QPointF from, QPointF to, double bulge);

/// The segment as a command of an SVG path, "L x,y" or "A …", y down. Cost: O(1).
SHAPEDOCUMENT_EXPORT QByteArray SvgMoveText(QPointF from, QPointF to, double bulge);

} // namespace shapedocument
