/// Hit test on a painter path that looks at what is near only.
#pragma once

class QPainterPath;
class QPointF;

namespace shapes {

/// Whether p lies nearer to the outline than reach. Curves near p are flattened at the magnification, everything else is
/// passed over by the boxes of its control points; memory for one curve is all it takes. False for an outline that
/// cannot be magnified within finite numbers.
bool IsNearOutline(const QPainterPath& outline, double magnification, QPointF p, double reach);

} // namespace shapes
