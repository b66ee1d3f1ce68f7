#include "image/DecoderGaps.h"

#include "image/FileNumbers.h"
#include "image/TiffDirectory.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <cstring>
#include <utility>

namespace shapes {

namespace {

std::span<const unsigned char> BytesOf(const QByteArray& file)
{
    return {reinterpret_cast<const unsigned char*>(file.constData()), static_cast<size_t>(file.size())};
}

bool IsTiff(const QByteArray& file)
{
    return file.startsWith("II*") || file.startsWith("II+") || file.startsWith(QByteArray("MM\0*", 4)) ||
           file.startsWith(QByteArray("MM\0+", 4));
}

/// Type, count and value of an entry that holds the 16-bit number 1, in the file's byte order.
QByteArray ShortOne(const TiffDirectory& directory)
{
    constexpr char kShort = 3;
    const qsizetype countBytes = directory.IsWide() ? 8 : 4;
    QByteArray field(2 + 2 * countBytes, '\0');
    const bool big = directory.IsBigEndian();
    field[big ? 1 : 0] = kShort;
    field[big ? 1 + countBytes : 2] = 1;
    field[2 + countBytes + (big ? 1 : 0)] = 1;
    return field;
}

/// Whether each mask is one whole byte: red, green and blue, and alpha if the header has a mask for it that is not 0.
bool MasksAreBytes(const FileNumbers& bmp)
{
    constexpr uint32_t kLeastHeaderWithAlpha = 56;
    constexpr uint64_t kRed = 54, kAlpha = 66;
    const auto isByte = [](uint32_t mask) {
        return mask == 0xFF || mask == 0xFF00 || mask == 0xFF0000 || mask == 0xFF000000;
    };
    for (uint64_t mask = kRed; mask < kAlpha; mask += 4)
        if (!isByte(bmp.Get<uint32_t>(mask)))
            return false;
    const uint32_t alpha = bmp.Get<uint32_t>(14) >= kLeastHeaderWithAlpha ? bmp.Get<uint32_t>(kAlpha) : 0;
    return alpha == 0 || isByte(alpha);
}

} // namespace

QByteArray WithoutOrientation(const QByteArray& file)
{
    if (!IsTiff(file))
        return file;
    QByteArray upright = file;
    const TiffDirectory directory(BytesOf(file));
    const QByteArray one = ShortOne(directory);
    for (const TiffField& field : directory.Fields()) {
        const auto place = static_cast<qsizetype>(field.entry) + 2;
        if (field.tag == TIFF_ORIENTATION && place + one.size() <= upright.size())
            std::memcpy(upright.data() + place, one.constData(), static_cast<size_t>(one.size()));
    }
    return upright;
}

bool HasPlanes(const QByteArray& tiff)
{
    constexpr uint64_t kSeparate = 2;
    return IsTiff(tiff) && TiffDirectory(BytesOf(tiff)).Number(TIFF_PLANAR, 1) == kSeparate;
}

bool HasColourMasks(const QByteArray& file)
{
    constexpr unsigned kBitsToPixel = 32, kMasks = 3, kHeaderThatTheDecoderReads = 56;
    const FileNumbers numbers(BytesOf(file), false);
    if (!file.startsWith("BM") || numbers.Get<uint16_t>(28) != kBitsToPixel || numbers.Get<uint32_t>(30) != kMasks)
        return false;
    return numbers.Get<uint32_t>(14) != kHeaderThatTheDecoderReads || !MasksAreBytes(numbers);
}

cv::Mat DecodeColourMasks(const QByteArray& bmp)
{
    if (!MasksAreBytes(FileNumbers(BytesOf(bmp), false)))
        return {};
    QByteArray bytes = bmp;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "bmp");
    reader.setAutoDetectImageFormat(false);
    const QImage image = std::move(reader.read()).convertToFormat(QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    const cv::Mat pixels(image.height(), image.width(), CV_8UC4, const_cast<uchar*>(image.constBits()),
                         static_cast<size_t>(image.bytesPerLine()));
    return pixels.clone();
}

} // namespace shapes
