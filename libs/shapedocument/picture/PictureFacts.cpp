#include "picture/PictureFacts.h"

#include "document/Failure.h"
#include "plane/Length.h"

#include "image/ImageResolution.h"
#include "image/PictureHeader.h"
#include "image/ShapeImage.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <limits>

namespace shapedocument {

namespace {

/// Largest picture that is decoded for its facts, in pixels times scans of a JPEG: takes some seconds, far less than
/// the limit that would end the program.
constexpr uint64_t kMostDecoded = 128ULL * 1024 * 1024;

/// The size in the header if the picture would take long to decode.
std::optional<QSize> SizeIfCostly(const QString& name)
{
    QFile file(name);
    const uchar* bytes = file.open(QIODevice::ReadOnly) ? file.map(0, file.size()) : nullptr;
    if (!bytes)
        return std::nullopt;
    const std::span content(bytes, static_cast<size_t>(file.size()));
    const auto header = shapes::ReadPictureHeader(content);
    if (!header || header->height == 0)
        return std::nullopt;
    const uint64_t scans = std::max<uint64_t>(shapes::CountJpegScans(content, kMostDecoded), 1);
    if (header->width <= kMostDecoded / scans / header->height)
        return std::nullopt;
    const auto side = [](uint64_t length) {
        return static_cast<int>(std::min<uint64_t>(length, std::numeric_limits<int>::max()));
    };
    return QSize(side(header->width), side(header->height));
}

/// The resolution in the file; one equal to the decoder's default counts as none.
std::optional<QSizeF> StatedDpi(const QImage& image)
{
    const QImage unstated(1, 1, QImage::Format_Grayscale8);
    if (image.dotsPerMeterX() == unstated.dotsPerMeterX() && image.dotsPerMeterY() == unstated.dotsPerMeterY())
        return std::nullopt;
    return QSizeF(image.dotsPerMeterX() * shapes::kMetresPerInch, image.dotsPerMeterY() * shapes::kMetresPerInch);
}

std::optional<PictureFile> FactsOfFile(const QString& name, const PictureLimits& limits)
{
    CShapeImage loaded;
    int complaints = 0;
    try {
        complaints = OpenPicture(loaded, name, limits); // also refuses sizes that must not be allocated
    } catch (const Failure&) {
        return std::nullopt;
    }
    QImageReader reader(name);
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    return PictureFile{image.size(), StatedDpi(image), QSize(int(loaded.GetXDpi()), int(loaded.GetYDpi())),
                       loaded.GetOriginalPixelSize().width() - image.width(), complaints};
}

} // namespace

std::optional<QSizeF> PictureFacts::Excess() const
{
    if (!file || !file->dpi)
        return std::nullopt;
    return size -
           QSizeF(file->pixels.width() / file->dpi->width(), file->pixels.height() / file->dpi->height()) * kMmPerInch;
}

PictureFacts FactsOfPicture(CShapeImage& picture, const PictureLimits& limits)
{
    PictureFacts facts;
    facts.name = QString::fromUtf8(picture.GetFilename());
    facts.pixels = picture.GetOriginalPixelSize();
    facts.size = picture.GetRect(false).size();
    if (!QFileInfo(facts.name).isFile()) // The name comes from the document: it may be a pipe.
        return facts;
    facts.notDecoded = SizeIfCostly(facts.name);
    if (!facts.notDecoded)
        facts.file = FactsOfFile(facts.name, limits);
    return facts;
}

} // namespace shapedocument
