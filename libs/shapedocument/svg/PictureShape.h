/// Makes shapes of pictures in drawings.
#pragma once

#include "svg/PaintedItems.h"

#include <memory>

class CShapeImage;

namespace shapedocument::drawing {

/// A picture as an image shape; null where it cannot be read. Upright, mirrored and turned pictures keep their pixels;
/// skewed ones are redrawn on an upright picture.
std::unique_ptr<CShapeImage> NewPicture(const PaintedItem& item);

} // namespace shapedocument::drawing
