/// Files that the picture decoder reads wrongly, and how they are read instead.
#pragma once

#include <opencv2/core/mat.hpp>

class QByteArray;

namespace shapes {

/// The file; of a TIFF, a copy with the orientation tag set to 1 (as stored). The decoder turns TIFFs by that tag and
/// cannot be configured not to, as it can for all other kinds.
QByteArray WithoutOrientation(const QByteArray& file);

/// Whether a TIFF stores each sample in a plane of its own. The decoder mixes up four planes of more than 8 bits.
bool HasPlanes(const QByteArray& tiff);

/// Whether a BMP of 32 bits per pixel places its colours by masks that the decoder ignores, because of the kind of
/// header, or cannot read, because they are not whole bytes.
bool HasColourMasks(const QByteArray& file);

/// Decodes such a BMP into four 8-bit channels (blue, green, red, alpha); opaque without a mask for alpha. Empty when
/// it is damaged, when a mask is not a whole byte, or when it exceeds the limit of Qt's image readers (64 megapixels
/// unless the host changes it).
cv::Mat DecodeColourMasks(const QByteArray& bmp);

} // namespace shapes
