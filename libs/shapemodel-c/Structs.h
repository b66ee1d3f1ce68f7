/// Copies structs of callers that may have been compiled with another version of the header.
#pragma once

#include "Refusal.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace capi {

/// Bytes; no struct will be this large.
constexpr size_t kLargestStruct = 1 << 16;

/// Throws Refusal for a size that the struct has in no version: it could end within a pointer.
template <class Struct>
void ExpectSize(size_t size, const char* words)
{
    Expect(size >= sizeof(uint32_t) && size <= kLargestStruct && size % alignof(Struct) == 0, SM_BAD_ARGUMENT, words);
}

/// Writes as much of value as fits the caller's struct of size bytes, and zeros behind it. Throws Refusal.
template <class Struct>
void Fill(Struct* given, size_t size, Struct value)
{
    ExpectGiven(given, "the struct");
    ExpectSize<Struct>(size, "a struct's size cannot be that");
    value.struct_size = static_cast<uint32_t>(size);
    auto* bytes = reinterpret_cast<unsigned char*>(given);
    std::memcpy(bytes, &value, std::min(size, sizeof value));
    std::fill(bytes + std::min(size, sizeof value), bytes + size, static_cast<unsigned char>(0));
}

/// Fills a result, whose struct_size the caller has set. Throws Refusal.
template <class Struct>
void Answer(Struct* given, const Struct& value)
{
    ExpectGiven(given, "the result");
    Fill(given, given->struct_size, value);
}

/// Throws Refusal where Answer would.
template <class Struct>
void ExpectAnswerable(const Struct* given)
{
    ExpectGiven(given, "the result");
    ExpectSize<Struct>(given->struct_size, "struct_size of the result is not set");
}

/// The caller's values; the defaults for fields that its struct does not have, or for null. Throws Refusal where it
/// sets fields that this version does not know.
template <class Struct>
Struct WithDefaults(const Struct* given, const Struct& defaults)
{
    Struct taken = defaults;
    if (!given)
        return taken;
    const size_t size = given->struct_size;
    ExpectSize<Struct>(size, "struct_size of the options is not set; call their _defaults");
    const auto* bytes = reinterpret_cast<const unsigned char*>(given);
    Expect(
        std::all_of(bytes + std::min(size, sizeof taken), bytes + size, [](unsigned char byte) { return byte == 0; }),
        SM_BAD_ARGUMENT, "the options ask for what this version of the library does not know");
    std::memcpy(&taken, bytes, std::min(size, sizeof taken));
    taken.struct_size = sizeof taken;
    return taken;
}

} // namespace capi
