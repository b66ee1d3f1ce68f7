/// Segments of a job in the words of G-code and SVG.
#pragma once

#include "shapedocument_export.h"

#include <QByteArray>
#include <QPointF>

namespace shapedocument {

/// Whether a segment is written as an arc: one of less than a thousandth of a millimetre is not, for its ends might
/// become one when they are rounded, which machines take for a full circle.
SHAPEDOCUMENT_EXPORT bool IsWrittenAsArc(QPointF from, QPointF to, double bulge);

/// The G-code move from one point to the next, "G1 X… Y…", or "G2"/"G3" with the centre as I and J from the first
/// point. The points are in machine coordinates: where y was turned upwards, so was the bulge (the other sign).
SHAPEDOCUMENT_EXPORT QByteArray GcodeMoveText(QPointF from, QPointF to, double bulge);

/// The same as a command of an SVG path, "L x,y" or "A …", y down.
SHAPEDOCUMENT_EXPORT QByteArray SvgMoveText(QPointF from, QPointF to, double bulge);

} // namespace shapedocument
