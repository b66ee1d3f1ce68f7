/// How many shapes a list sorts.
#pragma once

#include <cstddef>

namespace shapes {

inline constexpr size_t kMostSorted = 999; ///< CShapeList::Sort leaves longer lists as they are

} // namespace shapes
