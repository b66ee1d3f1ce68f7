/// Which paths may be mixed for short ways.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Units of one colour, so that what lies inside a unit stands in the same batch or in one before. A colour is kept
/// together as long as no other lies inside it that waits for it in turn; among those that are free the one that was
/// used first is next. Units of the list last come behind all others, each alone.
std::vector<std::vector<uint32_t>> MakeBatches(const OrderPlan& plan, std::span<const unsigned int> colors,
                                               std::span<const uint32_t> last);

} // namespace shapedocument
