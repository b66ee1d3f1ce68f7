/// Opening picture files for no more than they may cost.
#pragma once

#include "shapedocument_export.h"

#include <functional>

class CShapeImage;
class QString;

namespace shapedocument {

/// What opening a picture may cost.
struct PictureLimits
{
    /// Also pictures of more than 256 MiB of pixels, and for as long as they take.
    bool large = false;
    /// Called with the file's name and a phrase that goes on behind it, on another thread, when decoding has taken 30
    /// seconds of processor time. A decoder cannot be stopped: a program that does not want to wait ends itself here.
    /// Without it decoding may take any time.
    std::function<void(const QString& file, const QString& reason)> outOfTime;
};

/// Opens a picture file. What the decoders write to standard error meanwhile is held back.
/// @return the number of lines that were held back: the picture may be damaged when there are any
/// @throw Failure when the picture cannot be read, or is too large
SHAPEDOCUMENT_EXPORT int OpenPicture(CShapeImage& picture, const QString& file, const PictureLimits& limits);

} // namespace shapedocument
