/// Points of a drawing so far away that its page cannot tell them from near ones.
#pragma once

namespace shapedocument::drawing {

struct PaintedPage;

/// Whether a path has a point that the page shows within kReach though it lies beyond, or a clip one that it shows
/// elsewhere. overview: the drawing's, whose numbers begin anew kOverview times farther away.
bool HasMisplacedPoints(const PaintedPage& overview);

} // namespace shapedocument::drawing
