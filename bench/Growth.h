/// Rows that hold the cost of an operation against its size.
#pragma once

#include "Goals.h"

#include <functional>
#include <string>

namespace bench {

/// The side with caches that hold nothing of what it works on: only so can the times of two sizes be compared, of which
/// one would fit them.
Side Cold(Side side);

/// The side for a size against the side for a tenth of it, both cold: at most eleven times the time.
Row GrowthRow(const std::string& name, int size, const std::function<Side(int)>& side);

} // namespace bench
