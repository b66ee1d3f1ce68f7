/// The two entries of every fuzz target, which the fuzzing engine and the replay program call.
#pragma once

#include "MemoryFile.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace fuzz {

/// The lowest version that a first byte can choose, and how many there are: one below and two above those that exist.
inline constexpr int kLowestVersion = -1;
inline constexpr int kVersions = 18;

/// Removes the first byte of the input and returns the document version that it chooses; 14 for an empty input.
int ReadVersion(Bytes& input);

} // namespace fuzz
