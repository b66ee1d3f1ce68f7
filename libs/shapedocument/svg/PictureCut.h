/// Cutting pictures of drawings at the clips around them.
#pragma once

#include "svg/PaintedItems.h"

namespace shapedocument::drawing {

/// Keeps of a picture what lies in shown (mm), in the smallest frame around it; white takes the place of what else that
/// frame holds. Pixels stay as they are, but for their size where the cut runs through them. False, and nothing
/// changed, where the picture cannot be read or has too many pixels.
/// @param inset mm by which shown keeps off the picture's own edge.
bool KeepShown(PaintedItem& item, const QPainterPath& shown, double inset);

} // namespace shapedocument::drawing
