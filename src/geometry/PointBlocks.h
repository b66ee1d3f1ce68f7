/// Changing long lists of points at the speed of memory.
#pragma once

#include <QPointF>

#include <span>

namespace shapes {

/// Calls change(block) for one block of neighbouring points after the other, the last block being all that is left.
/// Points farther on are asked for ahead of time: what the processor fetches of its own accord ends at each page of
/// memory, and arithmetic on every point leaves it no time to catch up.
template <class Change>
void ForEachBlock(std::span<QPointF> points, Change change)
{
    constexpr size_t kBlock = 4;  // points in a line of the cache
    constexpr size_t kAhead = 64; // points
    size_t first = 0;
    for (; first + kAhead < points.size(); first += kBlock) {
        __builtin_prefetch(&points[first + kAhead], 1);
        change(points.subspan(first, kBlock));
    }
    change(points.subspan(first));
}

} // namespace shapes
