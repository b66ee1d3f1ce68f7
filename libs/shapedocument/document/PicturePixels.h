/// Pixels of picture shapes, and what it means when there are none.
#pragma once

#include "image/ShapeImage.h"

#include <new>

namespace shapedocument {

/// The pixels that an operation of the shape has answered. The shape library answers an empty picture where memory runs
/// out: throws std::bad_alloc where none came although the shape has some.
inline cv::Mat ExpectMemory(CShapeImage& picture, const cv::Mat& pixels)
{
    if (pixels.empty() && !picture.GetOriginalPixelSize().isEmpty())
        throw std::bad_alloc();
    return pixels;
}

} // namespace shapedocument
