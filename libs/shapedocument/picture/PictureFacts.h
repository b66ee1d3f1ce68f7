/// Facts about a picture on the drawing, and about its file.
#pragma once

#include "picture/PictureInput.h"
#include "shapedocument_export.h"

#include <QSize>
#include <QSizeF>
#include <QString>

#include <optional>

namespace shapedocument {

/// Facts about the picture's file, if it still exists and the decoder knows its kind.
struct PictureFile
{
    QSize pixels;              ///< as the file states them
    std::optional<QSizeF> dpi; ///< empty: the file states no resolution
    QSize dpiUsed;             ///< the resolution by which the library sizes the picture
    int padding = 0;           ///< columns (pixels) that loading adds
    int complaints = 0;        ///< as OpenPicture counts them; if not 0, the picture may be damaged
};

/// A picture on the drawing.
struct SHAPEDOCUMENT_EXPORT PictureFacts
{
    QString name;                    ///< of the file; empty if the picture does not come from a file
    QSize pixels;                    ///< of the working image
    QSizeF size;                     ///< mm
    std::optional<PictureFile> file; ///< empty if it does not exist any more, or its kind is unknown
    std::optional<QSize> notDecoded; ///< the size, if the file was not decoded because that would take long

    /// The picture's size minus the size that pixels and resolution of its file give, in mm; empty if the file states
    /// no resolution.
    std::optional<QSizeF> Excess() const;
};

/// Decodes the picture's file again if it exists, is a regular file and will not take long.
/// Cost: that of decoding the file.
SHAPEDOCUMENT_EXPORT PictureFacts FactsOfPicture(CShapeImage& picture, const PictureLimits& limits);

} // namespace shapedocument
