/// A first tour: always on to what is nearest.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// The order of the batches, and inside before outside.
Tour MakeNearestTour(const OrderPlan& plan);

} // namespace shapedocument
