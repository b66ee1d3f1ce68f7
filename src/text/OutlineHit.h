/// Hit test on a painter path that flattens only what is near.
#pragma once

class QPainterPath;
class QPointF;

namespace shapes {

/// Whether p lies nearer than reach to the outline (model units). Curves near p are flattened one at a time at the
/// magnification; everything else is rejected by the boxes of its control points. False for an outline whose magnified
/// coordinates would not be finite.
bool IsNearOutline(const QPainterPath& outline, double magnification, QPointF p, double reach);

} // namespace shapes
