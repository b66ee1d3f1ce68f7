/// Paints a drawing so that no item is lost.
#pragma once

#include "svg/DrawingImport.h"
#include "svg/PaintedItems.h"

#include <vector>

namespace shapedocument::drawing {

struct DrawingSource;

/// Paints a drawing and clears source.svg. The page's grid is the finest that holds everything shown by a far coarser
/// overview. result receives the page's size, an error where the drawing is refused, and reports of rounded or missing
/// items. solid: dashed lines become solid. Throws Stopped.
std::vector<PaintedItem> PaintWhole(DrawingSource& source, bool solid, DrawingImport& result,
                                    const WorkProgress& progress);

} // namespace shapedocument::drawing
