/// One row of an engraving: the parts that the machine burns.
#pragma once

#include <cstddef>
#include <span>

namespace shapedocument {

/// The grey that is not burned.
inline constexpr unsigned char kWhite = 255;

/// A part of a row that is burned with one power.
struct EngraveSpan
{
    double begin;       ///< mm
    double end;         ///< mm, to the right of begin
    unsigned char grey; ///< 0 is burned with the most power; never kWhite
};

/// One row of one shape.
struct EngraveRow
{
    size_t shape = 0;                   ///< 1 for the first shape that is engraved
    unsigned int color = 0;             ///< of the shape
    double y = 0;                       ///< mm, downwards, of the row's centre
    bool backwards = false;             ///< from right to left
    std::span<const EngraveSpan> spans; ///< from left to right, one at least
};

} // namespace shapedocument
