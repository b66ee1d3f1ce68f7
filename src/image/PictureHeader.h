/// Kind and size of a picture from the first bytes of its file: pure functions that decode nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace shapes {

struct PictureHeader
{
    const char* format; ///< "png", "jpeg", "bmp", "tiff", "webp" or "ppm" (all portable maps), as image readers name it
    uint64_t width = 0; ///< pixels that a decoder allocates, tiles included; 0 where the header has none
    uint64_t height = 0;
};

/// What the file's header states, unchecked. Nothing for other kinds of files, and for headers from which no decoder
/// could read a size.
std::optional<PictureHeader> ReadPictureHeader(std::span<const unsigned char> file);

/// Number of scans in a JPEG file, counted up to most: usually 1, some ten in progressive files. 0 for other kinds.
size_t CountJpegScans(std::span<const unsigned char> file, size_t most);

/// Whether a PNG, JPEG, BMP or GIF file is shorter than it says or lacks its end. Decoders make a picture of such a
/// file without a complaint, with grey for what is missing. False for other kinds.
bool EndsEarly(std::span<const unsigned char> file);

} // namespace shapes
