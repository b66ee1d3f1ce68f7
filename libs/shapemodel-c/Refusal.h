/// The one exception of this library: a status, and a message for the caller.
#pragma once

#include "shapemodel.h"

#include <cstddef>
#include <string>

namespace capi {

/// Thrown by value, before anything has been changed.
struct Refusal
{
    sm_status status;
    std::string words;
};

/// Throws Refusal.
inline void Expect(bool holds, sm_status status, const char* words)
{
    if (!holds)
        throw Refusal{status, words};
}

/// Throws Refusal for null.
inline void ExpectGiven(const void* pointer, const char* name)
{
    if (!pointer)
        throw Refusal{SM_BAD_ARGUMENT, std::string(name) + " is null"};
}

} // namespace capi
