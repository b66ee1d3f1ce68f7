/// What a picture file says of its transparency, before it is decoded.
#pragma once

#include <optional>

class QByteArray;

namespace shapes {

/// Whether the file may decode into four channels. Only where this is false the decode with all channels can be saved.
bool MayHaveAlpha(const QByteArray& file);

/// The one grey value that stands for clear.
struct ClearGrey
{
    unsigned value = 0; ///< at depth
    unsigned depth = 8; ///< bits of a pixel: 1, 2, 4, 8 or 16
};

/// That of a grey PNG, which the decoder passes over; nothing for PNGs without one and for other files.
std::optional<ClearGrey> ClearGreyOf(const QByteArray& file);

} // namespace shapes
