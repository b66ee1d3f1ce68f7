/// Reads the resolution from the header of a JPEG file: a pure function over the file's bytes.
#pragma once

#include <cstddef>
#include <span>

namespace shapes {

/// Dots per inch as the header gives them; 0 where it gives none.
struct JpegResolution
{
    float x = 0;
    float y = 0;
    const char* error = ""; ///< why the last Exif header was refused
};

/// Reads the application segment that follows the start of the image (JFIF or Exif). Exif values are taken as dots
/// per inch whatever their unit tag says, from the first directory only; values that are not positive and finite are 0.
///
/// Fields without a value in the header keep their old values, which are up to the caller.
/// @return whether the header settles the resolution. False also for headers without a unit or with a density of 1,
///         which store 96.
bool ReadJpegResolution(std::span<const unsigned char> file, JpegResolution& resolution);

} // namespace shapes
