/// What the picture decoder gets wrong, and what is done about it.
#pragma once

#include <opencv2/core/mat.hpp>

class QByteArray;

namespace shapes {

/// The file with the orientation of a TIFF set to 1, as stored: the decoder would turn the picture, which it can be told
/// not to do for all other kinds.
QByteArray WithoutOrientation(const QByteArray& file);

/// Whether a TIFF keeps each sample in a plane of its own. The decoder mixes up those of more than 8 bits when there are
/// four of them.
bool HasPlanes(const QByteArray& tiff);

/// Whether a BMP of 32 bits to the pixel says by masks where its colours are, in a header in which the decoder believes in
/// its own places, or with masks that are no whole bytes, which it cannot read at all.
bool HasColourMasks(const QByteArray& file);

/// Such a picture with four 8-bit channels (blue, green, red, alpha); opaque where no mask is for alpha. Empty when it is
/// damaged, when a mask is no whole byte, or when it is larger than Qt's readers make room for (64 megapixels unless the
/// host says otherwise).
cv::Mat DecodeColourMasks(const QByteArray& bmp);

} // namespace shapes
