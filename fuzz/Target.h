/// What every fuzz target offers: the two entries that the fuzzing engine and the replay program call.
#pragma once

#include "MemoryFile.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace fuzz {

/// The lowest version that a first byte can choose, and how many there are: one below and two above those that exist.
inline constexpr int kLowestVersion = -1;
inline constexpr int kVersions = 18;

/// Takes the first byte of the input for the document version; 14 for an empty input.
int TakeVersion(Bytes& input);

} // namespace fuzz
