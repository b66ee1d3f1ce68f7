/// The bytes of pictures, compared and summed up.
#pragma once

#include <opencv2/core/mat.hpp>

#include <cstddef>

namespace shapes {

/// Whether sizes, type and those steps agree that belong to the pixels' layout. Empty pictures are like no other.
bool SameLayout(const cv::Mat& a, const cv::Mat& b);

/// Row by row, so that a picture that is a part of a larger one is compared within its own columns. The layouts agree.
bool SameBytes(const cv::Mat& a, const cv::Mat& b);

/// A hash of the size and of some hundred pixels from all over the picture. Pictures whose bytes are equal have the same;
/// those that have the same may still differ, as scans of nearly empty pages do.
size_t SampledHash(const cv::Mat& image);

/// A hash of all bytes.
size_t FullHash(const cv::Mat& image);

} // namespace shapes
