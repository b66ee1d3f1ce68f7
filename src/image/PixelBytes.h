/// Comparison and hashes of the bytes of pictures.
#pragma once

#include <opencv2/core/mat.hpp>

#include <cstddef>

namespace shapes {

/// Of one row; of a part of a larger picture only its own columns.
inline size_t RowBytes(const cv::Mat& image)
{
    return static_cast<size_t>(image.cols) * image.elemSize();
}

/// Whether sizes, types and the steps that matter for the pixels' layout agree. False for empty pictures.
bool SameLayout(const cv::Mat& a, const cv::Mat& b);

/// Whether two pictures of the same layout have equal bytes. Of a part of a larger picture only its own columns count.
bool SameBytes(const cv::Mat& a, const cv::Mat& b);

/// A hash of the size and of up to 256 bytes from all over the picture. Different pictures may have the same, for
/// instance scans of nearly empty pages.
size_t SampledHash(const cv::Mat& image);

/// A hash of all bytes.
size_t FullHash(const cv::Mat& image);

} // namespace shapes
