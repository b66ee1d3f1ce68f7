/// A first tour by the nearest neighbour.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Always the nearest entry that may come next: keeps the order of the batches, and inside before outside.
Tour MakeNearestTour(const OrderPlan& plan);

} // namespace shapedocument
