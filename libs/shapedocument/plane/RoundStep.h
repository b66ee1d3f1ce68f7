/// Round numbers for scales and grids.
#pragma once

#include <cmath>

namespace shapedocument {

/// The smallest of …, 0.5, 1, 2, 5, 10, 20, … that is not below least, which is positive.
inline double RoundStep(double least)
{
    const double decade = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * decade >= least)
            return factor * decade;
    return 10 * decade;
}

} // namespace shapedocument
