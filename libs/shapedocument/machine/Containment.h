/// Which tool paths lie inside which closed ones.
#pragma once

#include "machine/PathOrder.h"

#include <cstdint>

namespace shapedocument {

/// Both are numbers of paths.
struct Enclosure
{
    uint32_t inner;
    uint32_t outer;
};

struct Enclosures
{
    /// Every path that lies inside a closed one leads to it in one step or in several. There are no circles: outer is
    /// always the larger one, and larger ones come later.
    std::vector<Enclosure> steps;

    /// Closed paths of which it was not looked what lies inside, for so many cross each other or lie side by side in
    /// each other's boxes that it would have taken too long. What they hold is among the rest, or before them here.
    std::vector<uint32_t> unknown;
};

/// Of the cuts alone; leads lie in nothing. The coordinates are numbers. Throws Stopped.
Enclosures FindEnclosures(std::span<const OrderedPath> paths, const WorkWatch& watch);

} // namespace shapedocument
