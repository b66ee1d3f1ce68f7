/// Where a contour crosses itself.
#pragma once

#include <QPointF>

#include <cstddef>
#include <functional>
#include <span>

namespace shapedocument {

/// Calls found with each point where a closed line (its last point is the first one again) crosses itself: inside two
/// segments, or where a corner lies on a segment or on another corner and the line goes on to the other side. Where it
/// only touches itself or goes on along itself it does not cross. Corners lie on what is no farther than rounding takes
/// them, 0.000001 mm. pairs is what is left of the pairs of segments to look at, and is lowered; false when that was
/// too few to see all of them.
bool FindSelfCrossings(std::span<const QPointF> outline, size_t& pairs, const std::function<void(QPointF)>& found);

} // namespace shapedocument
