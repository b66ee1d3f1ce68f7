/// What a picture file states about its transparency, read before it is decoded.
#pragma once

#include <optional>

class QByteArray;

namespace shapes {

/// Whether the file may decode into four channels. Where this is false it can be decoded to grey directly.
bool MayHaveAlpha(const QByteArray& file);

/// The one grey value that means transparent.
struct ClearGrey
{
    unsigned value = 0; ///< at depth
    unsigned depth = 8; ///< bits of a pixel: 1, 2, 4, 8 or 16
};

/// That of a grey PNG, which the decoder ignores; nothing for PNGs without one and for other files.
std::optional<ClearGrey> ClearGreyOf(const QByteArray& file);

} // namespace shapes
