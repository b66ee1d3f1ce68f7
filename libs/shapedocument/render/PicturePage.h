/// Writes a drawing on a sheet as PNG, SVG or PDF.
#pragma once

#include "document/WorkProgress.h"
#include "render/Drawing.h"
#include "shapedocument_export.h"

#include <QString>

#include <functional>

class QIODevice;

namespace shapedocument {

/// A format of pictures.
enum class PictureFormat
{
    Png,
    Svg,
    Pdf
};

/// A sheet and its drawing.
struct PicturePage
{
    Sheet sheet;                            ///< with the frame
    std::function<void(QPainter&)> content; ///< draws in millimetres
};

/// Least width of a PNG, pixels.
constexpr int kLeastPixels = 16;
/// Largest side of a PNG, pixels.
constexpr int kMostPixels = 20000;

/// Writes the page; a PNG is width pixels wide, and its height follows from the page. Throws Failure, naming name, and
/// Stopped where progress, called while a PNG is encoded, returns false; std::bad_alloc where there is no memory for
/// the pixels. The content reports its own progress. Cost: the content's, and O(pixels).
SHAPEDOCUMENT_EXPORT void WritePicture(QIODevice& device, const PicturePage& page, PictureFormat format, int width,
                                       const QString& name, const WorkProgress& progress = {});

} // namespace shapedocument
