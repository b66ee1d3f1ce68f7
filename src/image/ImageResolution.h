/// The resolution that an image file states for itself.
#pragma once

class QByteArray;

namespace shapes {

inline constexpr double kMetresPerInch = 0.0254; ///< image files count dots per metre

/// Dots per inch of an image file: from the JPEG header, else from the decoder, which has a default for files that
/// state none. The decoder's values are raised to at least 72; the header's are used as they are, 0 included.
///
/// What a JPEG header stated is kept between calls: a JPEG whose first segment belongs to another application gets the
/// resolution of the header that was read before it on the same thread. Throws std::bad_alloc when memory runs out.
/// @return false, and nothing filled in, when neither gives a positive value: the file is damaged or states a negative
///         one, or the decoder has no plug-in for its kind (those for TIFF and WebP are a package of their own).
bool GetImageDpi(const QByteArray& file, unsigned int& x, unsigned int& y);

} // namespace shapes
