/// The resolution in a JPEG's JFIF or Exif segment, and the size in the header of any picture.
#include "Target.h"

#include "image/JpegResolution.h"
#include "image/PictureHeader.h"

#include <cmath>
#include <cstdlib>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    shapes::JpegResolution resolution;
    const bool settled = shapes::ReadJpegResolution({data, size}, resolution);
    if (settled && !(std::isfinite(resolution.x) && std::isfinite(resolution.y)))
        std::abort();
    shapes::ReadPictureHeader({data, size});
    return 0;
}
