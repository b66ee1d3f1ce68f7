#include "PictureFacts.h"

#include "PictureLimits.h"
#include "document/Failure.h"

#include "Escaped.h"
#include "image/ShapeImage.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QJsonObject>

using namespace shapedocument;

namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kMetresPerInch = 0.0254;

/// The file's own words; a resolution equal to the decoder's default counts as none.
std::optional<QSizeF> StatedDpi(const QImage& image)
{
    const QImage unstated(1, 1, QImage::Format_Grayscale8);
    if (image.dotsPerMeterX() == unstated.dotsPerMeterX() && image.dotsPerMeterY() == unstated.dotsPerMeterY())
        return std::nullopt;
    return QSizeF(image.dotsPerMeterX() * kMetresPerInch, image.dotsPerMeterY() * kMetresPerInch);
}

std::optional<PictureFile> FactsOfFile(const QString& name)
{
    if (!QFileInfo(name).isFile()) // The document names it: it may be a pipe, or anything.
        return std::nullopt;
    CShapeImage loaded;
    try {
        OpenPicture(loaded, name, false); // which also refuses sizes that no reader should make room for
    } catch (const Failure&) {
        return std::nullopt;
    }
    QImageReader reader(name);
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    return PictureFile{image.size(), StatedDpi(image), QSize(int(loaded.GetXDpi()), int(loaded.GetYDpi())),
                       loaded.GetOriginalPixelSize().width() - image.width()};
}

QString Pair(QSizeF size, int decimals)
{
    return QString("%1 x %2").arg(size.width(), 0, 'f', decimals).arg(size.height(), 0, 'f', decimals);
}

QJsonObject PairJson(QSizeF size)
{
    return {{"x", size.width()}, {"y", size.height()}};
}

} // namespace

std::optional<QSizeF> PictureFacts::Excess() const
{
    if (!file || !file->dpi)
        return std::nullopt;
    return size -
           QSizeF(file->pixels.width() / file->dpi->width(), file->pixels.height() / file->dpi->height()) * kMmPerInch;
}

PictureFacts FactsOfPicture(CShapeImage& picture)
{
    PictureFacts facts;
    facts.name = QString::fromUtf8(picture.GetFilename());
    facts.pixels = picture.GetOriginalPixelSize();
    facts.size = picture.GetRect(false).size();
    if (!facts.name.isEmpty())
        facts.file = FactsOfFile(facts.name);
    return facts;
}

QString PictureText(const PictureFacts& facts)
{
    QString text = QString("%1 pixels, %2 mm").arg(Pair(facts.pixels, 0), Pair(facts.size, 3));
    if (facts.name.isEmpty())
        return text;
    text += "; " + Escaped(facts.name);
    if (!facts.file)
        return text + " is not there or of another kind";
    text +=
        QString(": %1 pixels, %2 columns padded, %3, %4 dpi used")
            .arg(Pair(facts.file->pixels, 0))
            .arg(facts.file->padding)
            .arg(facts.file->dpi ? Pair(*facts.file->dpi, 2) + " dpi" : "no resolution", Pair(facts.file->dpiUsed, 0));
    if (const auto excess = facts.Excess())
        text +=
            QString(", %1, %2 mm larger than it says").arg(excess->width(), 0, 'f', 3).arg(excess->height(), 0, 'f', 3);
    return text;
}

QJsonObject PictureJson(const PictureFacts& facts)
{
    QJsonObject json{{"pixels", PairJson(facts.pixels)}, {"size", PairJson(facts.size)}, {"file", facts.name}};
    if (facts.file) {
        json["filePixels"] = PairJson(facts.file->pixels);
        json["fileDpi"] = facts.file->dpi ? QJsonValue(PairJson(*facts.file->dpi)) : QJsonValue();
        json["dpiUsed"] = PairJson(facts.file->dpiUsed);
        json["padding"] = facts.file->padding;
    }
    if (const auto excess = facts.Excess())
        json["excess"] = PairJson(*excess);
    return json;
}
