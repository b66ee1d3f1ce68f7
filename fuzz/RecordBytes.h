/// Document streams written field by field from random choices, without the library. The fuzzer mixes them into its
/// inputs to get past counts, tags and lengths.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace fuzz {

using ByteVector = std::vector<uint8_t>;
using Random = std::minstd_rand;

/// A type tag and a record of that type for the given version, whole in most cases. Groups hold at most depth further
/// levels.
ByteVector RandomEntry(Random& random, int version, int depth);

/// A count and as many entries.
ByteVector RandomStream(Random& random, int version);

/// The entries behind a stream's count as members of one group.
ByteVector Grouped(Random& random, const ByteVector& stream);

} // namespace fuzz
