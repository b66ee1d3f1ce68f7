/// Finds where two pieces of outlines meet.
#pragma once

#include "svg/CubicPiece.h"

#include <vector>

namespace shapedocument::drawing {

/// Appends the parameters on a and on b of all points where they cross or touch. Where they run along each other, these
/// are the ends of the common stretch.
void AddCrossings(const CubicPiece& a, const CubicPiece& b, std::vector<double>& onA, std::vector<double>& onB);

} // namespace shapedocument::drawing
