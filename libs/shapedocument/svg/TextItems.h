/// Finds the items of a page that are texts.
#pragma once

#include "svg/PaintedItems.h"

#include <vector>

namespace shapedocument::drawing {

/// Finds each text among the items of its drawing by its outline and gives the item the text's number. painted: the
/// items of each text painted singly, each text followed by a ground that fills the page.
/// @return number of texts that are painted, but not as one item of the drawing.
int MarkTexts(std::vector<PaintedItem>& items, const std::vector<PaintedItem>& painted);

} // namespace shapedocument::drawing
