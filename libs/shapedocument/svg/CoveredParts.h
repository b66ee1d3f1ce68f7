/// Leaving out what later opaque areas hide.
#pragma once

#include "document/WorkProgress.h"

#include <cstddef>
#include <vector>

namespace shapedocument::drawing {

struct PaintedItem;

/// Cuts away from each item what the filled, opaque items behind it in the list cover; what runs along their edges
/// stays. Returns how many items stay whole, or in part, because cutting them would take too long.
/// Throws Stopped.
size_t CutAwayCovered(std::vector<PaintedItem>& items, const WorkProgress& progress);

} // namespace shapedocument::drawing
