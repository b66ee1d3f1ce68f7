/// Where a contour crosses itself.
#pragma once

#include <QPointF>

#include <cstddef>
#include <functional>
#include <span>

namespace shapedocument {

/// Calls found with each point where two segments of a line cross that do not follow each other; segments that only
/// touch or lie on each other do not cross. closed: the last point is the first one again. pairs is what is left of the
/// pairs of segments to look at, and is lowered; false when that was too few to see all of them.
bool FindSelfCrossings(std::span<const QPointF> points, bool closed, size_t& pairs,
                       const std::function<void(QPointF)>& found);

} // namespace shapedocument
