/// Checks outlines of callers.
#pragma once

#include <cstddef>
#include <cstdint>

namespace capi {

/// Throws Refusal unless there are at least two points, all within kFarthest (mm), and valid types: curve points in
/// threes behind a run's first point, fill markers that repeat it at the run's end. Cost: O(count).
void ExpectOutline(const double* xy, const uint8_t* types, size_t count);

} // namespace capi
