/// Bounds the distance from the origin of a path in a drawing's source.
#pragma once

#include <string_view>

namespace shapedocument::drawing {

/// Upper bound of the coordinates of a path's points, control points and arcs, in units of the path; infinite where
/// numbers are too large. Ends at the first unknown command, as the renderer does.
double ReachOfPath(std::string_view text);

} // namespace shapedocument::drawing
