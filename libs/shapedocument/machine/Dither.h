/// Grey made of dots that burn or do not.
#pragma once

#include "machine/PictureRows.h"

#include <vector>

namespace shapedocument {

/// Error diffusion of Floyd and Steinberg ("An adaptive algorithm for spatial greyscale", 1976): the difference between
/// a dot and its grey is passed on to its neighbours, 7/16 ahead, 3/16, 5/16 and 1/16 to the next row. Every other row
/// is processed from the right, else the dots would line up.
class Dither
{
public:
    /// dots: number of dots in a row.
    explicit Dither(size_t dots);

    /// Sets each dot within range to 0 or 255. No error is passed on to dots outside it. To be called for each row,
    /// from the top.
    void Apply(std::span<unsigned char> dots, DotRange range);

private:
    /// sixteenths of a grey, for this row; one extra dot on either side takes what falls outside
    std::vector<int> m_errors;
    std::vector<int> m_next;
    bool m_fromRight = false;
};

} // namespace shapedocument
