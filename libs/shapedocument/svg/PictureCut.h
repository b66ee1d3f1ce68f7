/// Cuts pictures of drawings at the clips around them.
#pragma once

#include "svg/PaintedItems.h"

namespace shapedocument::drawing {

/// Reduces a picture to the smallest rectangle along its own sides around shown (mm); what lies in it outside shown
/// becomes white. Other pixels keep their values; at a slanting cut each becomes several smaller ones. Returns false,
/// and changes nothing, where the picture cannot be read or has too many pixels.
/// @param inset mm between the picture's own edge and shown where no clip cuts it.
bool KeepShown(PaintedItem& item, const QPainterPath& shown, double inset);

} // namespace shapedocument::drawing
