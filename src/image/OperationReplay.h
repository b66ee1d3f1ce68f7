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

/// Applies the operations in order to quad. A cut takes its part out of image, warped onto the corners as they then are,
/// and goes on from the corners of its target; nothing is left of the image where the part lies outside. With a null
/// image only the corners move.
///
/// The image's pixels are not written to: a cut makes its own. Throws what ApplyTransform throws.
void Replay(const QList<ImageOperation>& operations, CornerQuad& quad, cv::Mat* image);

/// From one unit of length to another.
struct UnitConversion
{
    std::function<QPointF(const QPointF&)> point;
    std::function<QRectF(const QRectF&)> rect;
    std::function<double(double)> length;
};

/// The operations with their geometry in the other unit. Angles stay; arguments of a type that does not belong to their
/// code stay too.
QList<ImageOperation> Converted(const QList<ImageOperation>& operations, const UnitConversion& conversion);

} // namespace shapes
