/// How far from the origin the path of a drawing's source may reach.
#pragma once

#include <string_view>

namespace shapedocument::drawing {

/// Bounds the coordinates of the points of a path's text, of their control points and arcs; infinite where there are
/// numbers too large. Ends at the first command that is not known, as the renderer does.
double ReachOfPath(std::string_view text);

} // namespace shapedocument::drawing
