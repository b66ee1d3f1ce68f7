/// Grey made of dots that burn or do not.
#pragma once

#include "machine/PictureRows.h"

#include <vector>

namespace shapedocument {

/// Error diffusion of Floyd and Steinberg ("An adaptive algorithm for spatial greyscale", 1976): what a dot is off its
/// grey goes on to its neighbours, 7/16 ahead, 3/16, 5/16 and 1/16 to the next row. Every other row is gone through
/// from the right, else the dots would line up.
class Dither
{
public:
    /// dots: of a row.
    explicit Dither(size_t dots);

    /// Makes the row's grey 0 or 255, within range. Nothing goes on to dots outside it. The rows come one after the
    /// other.
    void Apply(std::vector<unsigned char>& dots, DotRange range);

private:
    std::vector<int> m_errors; ///< sixteenths, for this row; a dot on either side stands for what lies outside
    std::vector<int> m_next;
    bool m_fromRight = false;
};

} // namespace shapedocument
