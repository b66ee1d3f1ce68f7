/// Batches of paths whose order may be mixed for short moves.
#pragma once

#include "machine/OrderPlan.h"

namespace shapedocument {

/// Batches of units of one colour. What lies inside a unit stands in the same batch or in an earlier one. All units of
/// a colour make one batch unless two colours each hold units of the other. Among the colours that may come next, the
/// one that was used first in the document does. The units of the list last follow all others, each in its own batch.
std::vector<std::vector<uint32_t>> MakeBatches(const OrderPlan& plan, std::span<const unsigned int> colors,
                                               std::span<const uint32_t> last);

} // namespace shapedocument
