/// Cutting pictures of drawings at the clips around them.
#pragma once

#include "svg/PaintedItems.h"

namespace shapedocument::drawing {

/// Keeps the part of a picture that lies in shown (mm), in its smallest frame; the rest of that frame becomes white.
/// Pixels keep their values; only those that the cut runs through become smaller. Returns false, and changes nothing,
/// where the picture cannot be read or has too many pixels.
/// @param inset mm by which shown keeps off the picture's own edge.
bool KeepShown(PaintedItem& item, const QPainterPath& shown, double inset);

} // namespace shapedocument::drawing
