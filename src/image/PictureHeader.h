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
    uint64_t width = 0; ///< pixels that a decoder makes room for, tiles included; 0 where the header has none
    uint64_t height = 0;
};

/// What the file's header states, with nothing believed of it. Nothing for other kinds of files, and for headers whose
/// size no decoder of that kind could read.
std::optional<PictureHeader> ReadPictureHeader(std::span<const unsigned char> file);

/// Scans of a JPEG file, no more than most: 1 in most, some ten in progressive ones. 0 for files of other kinds.
size_t CountJpegScans(std::span<const unsigned char> file, size_t most);

} // namespace shapes
