/// Decoding and encoding of picture files. The codecs bring a hundred libraries of other file kinds with them, so they
/// live in a module of their own, which is loaded when the first picture file is decoded.
#pragma once

#include <opencv2/core/mat.hpp>

#include <vector>

namespace shapes {

/// What the module offers. Both throw what OpenCV throws.
struct PictureCodecs
{
    /// cv::imdecode: an empty matrix for what is no picture.
    cv::Mat (*decode)(const cv::Mat& bytes, int flags);
    /// cv::imencode.
    void (*encode)(const char* extension, const cv::Mat& image, std::vector<unsigned char>& bytes);
};

/// The codecs; null when the module cannot be loaded, which the log tells once. Thread-safe.
const PictureCodecs* Codecs();

/// Decodes with the codecs; empty without them.
cv::Mat DecodePicture(const cv::Mat& bytes, int flags);

} // namespace shapes

/// The module's entry. Defined as well in programs that have the codecs linked in: static builds and tests.
extern "C" const shapes::PictureCodecs* ShapemodelPictureCodecs();
