/// Cuts with their leads, and where they may start.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Fills the plan's units and entries.
void MakeUnits(std::span<const OrderedPath> paths, OrderPlan& plan);

} // namespace shapedocument
