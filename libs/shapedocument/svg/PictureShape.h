/// Pictures of drawings as shapes.
#pragma once

#include "svg/PaintedItems.h"

#include <memory>

class CShapeImage;

namespace shapedocument::drawing {

/// Null where the picture cannot be read. Upright, mirrored and turned pictures keep their pixels; others are drawn
/// anew on an upright one.
std::unique_ptr<CShapeImage> NewPicture(const PaintedItem& item);

} // namespace shapedocument::drawing
