/// Opens picture files within limits of memory and time.
#pragma once

#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <functional>

class CShapeImage;
class QString;

namespace shapedocument {

/// Limits for opening a picture.
struct PictureLimits
{
    /// Accepts pictures of more than 256 MiB of pixels, without a time limit.
    bool large = false;
    /// Called on another thread after 30 seconds of processor time, with the file's name and a phrase that continues
    /// it. Decoders cannot be interrupted, so a program that does not want to wait must end itself in this call. If
    /// empty, there is no limit.
    std::function<void(const QString& file, const QString& reason)> outOfTime;
    /// May be empty. Called on the calling thread while another one decodes.
    WorkProgress progress = {};
};

/// Opens a picture file. Holds back what the decoders write to standard error. Cost: that of CShapeImage::OpenImage.
/// @return the number of lines held back, except those on colour profiles, or 1 where the file ends early; if not 0,
///         the picture may be damaged
/// @throw Failure when the picture cannot be read, or is too large; std::bad_alloc where there is no memory for it;
///        Stopped, once it is decoded, where progress has returned false
SHAPEDOCUMENT_EXPORT int OpenPicture(CShapeImage& picture, const QString& file, const PictureLimits& limits);

} // namespace shapedocument
