/// Finds where a contour crosses itself.
#pragma once

#include <QPointF>

#include <cstddef>
#include <functional>
#include <span>

namespace shapedocument {

/// Calls found with each point where a closed line (its last point is the first one again) crosses itself: inside two
/// segments, or where a corner lies on a segment or on another corner and the line goes on to the other side. Touching
/// itself, or running along itself, is not crossing. Corners within 0.000001 mm of something lie on it. pairs: the
/// budget of pairs of segments to compare, which is lowered. Returns false when it was too small to compare all.
bool FindSelfCrossings(std::span<const QPointF> outline, size_t& pairs, const std::function<void(QPointF)>& found);

} // namespace shapedocument
