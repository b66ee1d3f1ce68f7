/// How many cells an array may have.
#pragma once

#include <cstdint>

namespace shapes {

inline constexpr int64_t kMostCells = 10'000'000; ///< CShapeArray::SetArrayInfo makes none for more
inline constexpr int kMostCellsPerSide = 10'000;  ///< rows, or columns, that programs let users choose

} // namespace shapes
