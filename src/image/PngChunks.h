/// Where the chunks of a PNG file lie.
#pragma once

#include <cstdint>

namespace shapes {

inline constexpr int64_t kFirstPngChunk = 8;  ///< offset: the signature is in front
inline constexpr int64_t kPngChunkFrame = 12; ///< bytes of length, name and sum around a chunk's content

} // namespace shapes
