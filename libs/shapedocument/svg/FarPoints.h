/// Points of a drawing so far away that its page cannot tell them from near ones.
#pragma once

#include <vector>

namespace shapedocument::drawing {

struct PaintedItem;

/// Whether a path has a point that the page shows within kReach though it lies beyond, or a clip one that it shows
/// elsewhere. overview: the drawing's items on a page whose numbers begin anew kOverview times farther away.
bool HasMisplacedPoints(const std::vector<PaintedItem>& overview);

} // namespace shapedocument::drawing
