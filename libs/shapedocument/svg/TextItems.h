/// Which items of a page are texts.
#pragma once

#include "svg/PaintedItems.h"

#include <vector>

namespace shapedocument::drawing {

/// Finds each text among the items of its drawing by its outline and gives the item the text's number. painted: what
/// each text paints by itself, each followed by a ground that fills the page.
/// @return how many texts are painted, but not as one item of the drawing.
int MarkTexts(std::vector<PaintedItem>& items, const std::vector<PaintedItem>& painted);

} // namespace shapedocument::drawing
