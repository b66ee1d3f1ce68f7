/// What a picture on the drawing is, and what the file that it came from says of itself.
#pragma once

#include "picture/PictureInput.h"
#include "shapedocument_export.h"

#include <QSize>
#include <QSizeF>
#include <QString>

#include <optional>

namespace shapedocument {

/// Of the picture's file, as far as it is still there and the decoder knows its kind.
struct PictureFile
{
    QSize pixels;              ///< as the file states them
    std::optional<QSizeF> dpi; ///< none: the file states no resolution
    QSize dpiUsed;             ///< what the library sizes the picture with
    int padding = 0;           ///< columns that loading adds
    int complaints = 0;        ///< of the decoder: the picture may be damaged when there are any
};

/// A picture on the drawing.
struct SHAPEDOCUMENT_EXPORT PictureFacts
{
    QString name;                    ///< of the file; empty for pictures from elsewhere
    QSize pixels;                    ///< of the working image
    QSizeF size;                     ///< mm
    std::optional<PictureFile> file; ///< none where it is not there any more, or of no known kind
    std::optional<QSize> notDecoded; ///< instead: the size of a file that would take long to decode

    /// How much larger the picture is than pixels and resolution of its file make it (mm); none where the file states
    /// no resolution.
    std::optional<QSizeF> Excess() const;
};

/// Decodes the picture's file once more, where it is there, is a regular one and would not take long.
SHAPEDOCUMENT_EXPORT PictureFacts FactsOfPicture(CShapeImage& picture, const PictureLimits& limits);

} // namespace shapedocument
