/// From the bytes of an image file to the grey picture that an image shape works with.
#pragma once

#include <opencv2/core/mat.hpp>

class QByteArray;

namespace shapes {

/// Decodes an image file into 8-bit grey with a width that is a multiple of 4 (up to three columns are added by
/// stretching, nearest neighbour). Transparency is flattened onto white; the picture is never turned by its orientation
/// tag. Empty when the file is no PNG, JPEG, BMP, TIFF, WebP or portable map (PBM, PGM, PPM), when its grey picture
/// would be larger than 768 MiB, when it is a JPEG of more than 100 scans, or of a layout that the decoder mixes up (a
/// TIFF of four samples of 16 bits in planes). Throws nothing.
///
/// While it is decoded, a picture with transparency needs four times the memory of the grey one, eight times with 16
/// bits per sample.
cv::Mat DecodeGrey(const QByteArray& file);

/// Flattens a picture of four 8-bit channels (blue, green, red, alpha) onto white and makes it grey, in place. False,
/// and nothing changed, for any other picture.
bool RemoveAlpha(cv::Mat& image);

/// The picture as records hold it: 8-bit grey, rows without gaps, a width that is a multiple of 4 (stretched linearly).
/// 16-bit values are divided by 257 and rounded, other numbers are clamped to 0...255, of two channels the first
/// counts. Empty when the picture is, or when it is no plain picture. Throws nothing.
cv::Mat RecordImage(const cv::Mat& image);

} // namespace shapes
