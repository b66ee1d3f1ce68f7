/// What a picture on the drawing is, and what the file that it came from says of itself.
#pragma once

#include <QSize>
#include <QSizeF>
#include <QString>

#include <optional>

class CShapeImage;
class QJsonObject;

/// Of the picture's file, as far as it is still there and this program's decoder knows its kind.
struct PictureFile
{
    QSize pixels;
    std::optional<QSizeF> dpi; ///< none: the file states no resolution
    QSize dpiUsed;             ///< what the library sizes the picture with
    int padding = 0;           ///< columns that loading adds
};

struct PictureFacts
{
    QString name; ///< of the file; empty for pictures from elsewhere
    QSize pixels;
    QSizeF size; ///< mm
    std::optional<PictureFile> file;
    std::optional<QSize> notDecoded; ///< instead: the size of a file that would take long to decode

    /// How much larger the picture is than pixels and resolution of its file make it (mm); none where the file states no
    /// resolution.
    std::optional<QSizeF> Excess() const;
};

PictureFacts FactsOfPicture(CShapeImage& picture);

/// One line, for instance "256 x 254 pixels, 25.600 x 25.400 mm; …".
QString PictureText(const PictureFacts& facts);
QJsonObject PictureJson(const PictureFacts& facts);
