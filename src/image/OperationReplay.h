/// Replays the edits of an image on its corners and, for cuts, on its pixels.
#pragma once

#include "image/ImageOperation.h"

#include <QList>

#include <functional>

namespace cv {
class Mat;
}

namespace shapes {

class CornerQuad;

/// Applies the operations in order to quad. A cut warps image onto the present corners, keeps the part to be cut out
/// (an empty image when that lies outside) and restarts quad with the cut's target. With a null image only the corners
/// move.
///
/// Never writes into the image's pixels: a cut makes new ones. Throws what ApplyTransform throws.
void Replay(const QList<ImageOperation>& operations, CornerQuad& quad, cv::Mat* image);

/// Conversions from one unit of length to another.
struct UnitConversion
{
    std::function<QPointF(const QPointF&)> point;
    std::function<QRectF(const QRectF&)> rect;
    std::function<double(double)> length;
};

/// The operations with their geometry in the other unit. Angles, and arguments of a type that does not fit, stay.
QList<ImageOperation> Converted(const QList<ImageOperation>& operations, const UnitConversion& conversion);

} // namespace shapes
