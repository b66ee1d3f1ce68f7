/// Improves tours further when no single move does.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Improves the tour until neither moves nor changes of entries help. Then exchanges two random runs again and again,
/// improves, and keeps a shorter result. Equal tours give equal results: the random numbers have a fixed seed.
void ImproveTour(const OrderPlan& plan, Tour& tour);

} // namespace shapedocument
