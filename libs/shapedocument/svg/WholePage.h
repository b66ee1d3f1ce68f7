/// Painting a drawing so that nothing of it is lost.
#pragma once

#include "svg/DrawingImport.h"
#include "svg/PaintedItems.h"

#include <vector>

namespace shapedocument::drawing {

struct DrawingSource;

/// Paints a drawing and takes its text away. The page's grid is as fine as holds everything that a far coarser overview
/// shows; result gets the page's size, an error where the drawing is refused, and what is rounded or missing.
/// solid: without dashes. Throws Stopped.
std::vector<PaintedItem> PaintWhole(DrawingSource& source, bool solid, DrawingImport& result,
                                    const WorkProgress& progress);

} // namespace shapedocument::drawing
