/// Finds which tool paths lie inside which closed ones.
#pragma once

#include "machine/PathOrder.h"

#include <cstdint>

namespace shapedocument {

/// Indices of paths.
struct Enclosure
{
    uint32_t inner;
    uint32_t outer;
};

struct Enclosures
{
    /// From a path to a closed one around it; further ones are reached by further steps. There are no cycles: outer is
    /// always the larger one, and larger ones come later.
    std::vector<Enclosure> steps;

    /// Closed paths whose contents were not determined, because too many paths cross or have overlapping boxes. What
    /// they hold is among the paths that are not listed here, or stands before them in this list.
    std::vector<uint32_t> unknown;
};

/// Considers cuts only; leads lie inside nothing. The coordinates must be finite. Throws Stopped.
Enclosures FindEnclosures(std::span<const OrderedPath> paths, const WorkWatch& watch);

} // namespace shapedocument
