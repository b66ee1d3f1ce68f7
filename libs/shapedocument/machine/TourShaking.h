/// A way out of tours that no single move improves.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Improves the tour until neither moves nor changes of entries help, then lets two runs change places again and again
/// and keeps what comes out shorter. Equal tours give equal results.
void ImproveTour(const OrderPlan& plan, Tour& tour);

} // namespace shapedocument
