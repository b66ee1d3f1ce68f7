/// Reads pixels of picture shapes, and tells a lack of memory from a picture without pixels.
#pragma once

#include "image/ShapeImage.h"

#include <new>

namespace shapedocument {

/// The pixels that an operation of the shape has returned. The shape library returns an empty picture when memory runs
/// out: throws std::bad_alloc where it is empty although the shape has pixels.
inline cv::Mat ExpectMemory(CShapeImage& picture, const cv::Mat& pixels)
{
    if (pixels.empty() && !picture.GetOriginalPixelSize().isEmpty())
        throw std::bad_alloc();
    return pixels;
}

} // namespace shapedocument
