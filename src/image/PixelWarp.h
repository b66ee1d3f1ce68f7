/// Pixel work on pictures: warping onto a quadrilateral, turning, enlarging, flipping, inverting.
#pragma once

#include <QPointF>

#include <opencv2/core/mat.hpp>

class QSizeF;

namespace shapes {

/// Warps the picture onto the quadrilateral p0 (its top left) to p3 (its bottom left), clockwise, in any unit: nearest
/// neighbour, white outside the picture. The result shows the quadrilateral's bounding box at the source's horizontal
/// pixel density; neither side exceeds twice that of the source nor 10240 pixels (both shrink by the same factor), the
/// width is then rounded up to a multiple of 4, no side is below one pixel.
///
/// Where the quadrilateral has the picture's own shape the result is the source itself, sharing its pixels.
/// An empty source is logged; it throws std::invalid_argument, as do quadrilaterals that are not finite or without
/// area.
cv::Mat ApplyTransform(const cv::Mat& src, const QPointF& p0, const QPointF& p1, const QPointF& p2, const QPointF& p3);

/// Turns the picture clockwise by angle degrees about its centre. The result has room for the turned corners, white
/// around them. On a failure, which is logged, the picture becomes empty.
void RotateMat(cv::Mat& image, double angle);

/// Enlarges both sides by the same factor, size's longer side over its shorter, when the aspects of size and picture
/// differ by 0.01 or more.
void ScaleMat(cv::Mat& image, const QSizeF& size);

/// Flips left and right when horizontal, else top and bottom.
void MirrorMat(cv::Mat& image, bool horizontal);

/// Replaces every 8-bit value v by 255 - v, in place; other pictures stay as they are.
void ReverseMat(cv::Mat& image);

} // namespace shapes
