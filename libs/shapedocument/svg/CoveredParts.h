/// Removes what later opaque areas hide.
#pragma once

#include "document/WorkProgress.h"

#include <cstddef>
#include <vector>

namespace shapedocument::drawing {

struct PaintedItem;

/// Cuts away from each item what later filled, opaque items cover; lines along their edges stay. Returns the number of
/// items that were not fully cut because that would take too long. Throws Stopped.
size_t CutAwayCovered(std::vector<PaintedItem>& items, const WorkProgress& progress);

} // namespace shapedocument::drawing
