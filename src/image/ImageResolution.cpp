#include "image/ImageResolution.h"

#include "image/FileNumbers.h"
#include "image/JpegResolution.h"
#include "image/PictureCodecs.h"
#include "image/PictureHeader.h"
#include "image/PngChunks.h"

#include <QBuffer>
#include <QByteArray>
#include <QByteArrayView>
#include <QDataStream>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace shapes {

namespace {

constexpr double kLeastDecoderDpi = 72.0;
constexpr qsizetype kLeastWebp =
    40; ///< bytes; from 6.8 on Qt reads no shorter file, whatever stands behind its picture

thread_local JpegResolution s_header; ///< fields of the JPEG headers that this thread has read so far

unsigned int Truncated(double value)
{
    return static_cast<unsigned int>(std::min<double>(value, std::numeric_limits<unsigned int>::max()));
}

/// Needs the codecs.
QByteArray OnePixel(const char* extension)
{
    std::vector<unsigned char> bytes;
    Codecs()->encode(extension, cv::Mat(1, 1, CV_8U, cv::Scalar(0)), bytes);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// A PNG of one pixel with the file's density chunk.
QByteArray SmallPng(const QByteArray& file)
{
    constexpr qsizetype kBehindHeaderChunk = 33; // signature and header chunk
    QByteArray density;
    for (qsizetype chunk = kBehindHeaderChunk; chunk + kPngChunkFrame <= file.size();) {
        const qsizetype size = kPngChunkFrame + qFromBigEndian<quint32>(file.constData() + chunk);
        const QByteArrayView name = QByteArrayView(file).sliced(chunk + 4, 4);
        if (name == "IDAT" || size > file.size() - chunk)
            break;
        if (name == "pHYs")
            density.append(QByteArrayView(file).sliced(chunk, size));
        chunk += size;
    }
    return OnePixel(".png").insert(kBehindHeaderChunk, density);
}

/// A JPEG of one pixel with the file's JFIF segments. Markers may be preceded by any number of fill bytes.
QByteArray SmallJpeg(const QByteArray& file)
{
    constexpr qsizetype kStart = 2;      // start of image
    constexpr qsizetype kOwnHeader = 20; // start of image and the encoder's JFIF segment
    constexpr char kMarker = '\xFF', kJfif = '\xE0', kScan = '\xDA';
    QByteArray small = file.first(kStart);
    for (qsizetype segment = kStart; segment + 4 <= file.size() && file[segment] == kMarker;) {
        if (file[segment + 1] == kMarker) {
            ++segment;
            continue;
        }
        const qsizetype size = 2 + qFromBigEndian<quint16>(file.constData() + segment + 2);
        if (file[segment + 1] == kScan || size > file.size() - segment)
            break;
        if (file[segment + 1] == kJfif)
            small.append(QByteArrayView(file).sliced(segment, size));
        segment += size;
    }
    return small.append(OnePixel(".jpg").sliced(kOwnHeader));
}

/// An entry of the first directory; value is what the entry contains or refers to.
struct TiffEntry
{
    quint16 tag, type;
    QByteArrayView value; ///< 4 or 8 bytes
};

std::vector<TiffEntry> ResolutionEntries(const QByteArray& file, const FileNumbers& numbers)
{
    constexpr quint16 kAcross = 282, kDown = 283, kUnit = 296;
    constexpr quint16 kRational = 5, kSignedRational = 10, kDouble = 12; // the types of 8 bytes
    std::vector<TiffEntry> entries;
    const uint64_t directory = numbers.Get<uint32_t>(4);
    const uint64_t end = directory + 2 + 12 * uint64_t{numbers.Get<uint16_t>(directory)};
    for (uint64_t entry = directory + 2; entry < end && entries.size() < 3; entry += 12) {
        const auto tag = numbers.Get<uint16_t>(entry);
        const auto type = numbers.Get<uint16_t>(entry + 2);
        if ((tag != kAcross && tag != kDown && tag != kUnit) || numbers.Get<uint32_t>(entry + 4) != 1)
            continue;
        const bool isFar = type == kRational || type == kSignedRational || type == kDouble;
        const uint64_t place = isFar ? numbers.Get<uint32_t>(entry + 8) : entry + 8;
        const uint64_t size = isFar ? 8 : 4;
        if (place + size <= numbers.Size())
            entries.push_back({tag, type, QByteArrayView(file).sliced(qsizetype(place), qsizetype(size))});
    }
    return entries;
}

/// A TIFF of one pixel with the file's resolution, in its byte order. A file with 64-bit offsets is returned whole.
QByteArray SmallTiff(const QByteArray& file)
{
    constexpr quint16 kShort = 3, kClassic = 42;
    constexpr quint32 kDirectory = 8;
    const bool isBigEndian = file.startsWith('M');
    const FileNumbers numbers({reinterpret_cast<const unsigned char*>(file.constData()), size_t(file.size())},
                              isBigEndian);
    if (numbers.Get<uint16_t>(2) != kClassic)
        return file;
    // Width, height, bits, no compression, black is zero, place of the pixel (any byte will do), rows, bytes.
    const std::vector<std::pair<quint16, quint16>> picture{{256, 1}, {257, 1},          {258, 8}, {259, 1},
                                                           {262, 1}, {273, kDirectory}, {278, 1}, {279, 1}};
    const std::vector<TiffEntry> resolution = ResolutionEntries(file, numbers);
    const size_t count = picture.size() + resolution.size();
    QByteArray small, far;
    QDataStream out(&small, QIODevice::WriteOnly);
    out.setByteOrder(isBigEndian ? QDataStream::BigEndian : QDataStream::LittleEndian);
    out.writeRawData(file.constData(), 4);
    out << kDirectory << static_cast<quint16>(count);
    for (const auto& [tag, value] : picture)
        out << tag << kShort << quint32{1} << value << quint16{0};
    for (const TiffEntry& entry : resolution) {
        out << entry.tag << entry.type << quint32{1};
        if (entry.value.size() == 4) {
            out.writeRawData(entry.value.data(), 4);
        } else {
            out << static_cast<quint32>(kDirectory + 2 + 12 * count + 4 + static_cast<size_t>(far.size()));
            far.append(entry.value);
        }
    }
    out << quint32{0}; // no further directory
    return small + far;
}

/// A small file with the same resolution: decoding all pixels again would double the time of loading.
QByteArray WithoutPixels(const QByteArray& file, const QByteArray& format)
{
    if (!Codecs())
        return file;
    if (format == "png")
        return SmallPng(file);
    if (format == "jpeg")
        return SmallJpeg(file);
    if (format == "tiff")
        return SmallTiff(file);
    if (format == "webp") // never states one
        return OnePixel(".webp").append(kLeastWebp, '\0');
    return file;
}

/// The format is given: to detect it, Qt would pass the bytes to every image plug-in of the host.
QImage Decoded(QByteArray bytes, const QByteArray& format)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

/// A picture with the file's resolution; null when Qt has no reader for the format. Not every version of a reader takes
/// pictures of one pixel.
QImage WithResolution(const QByteArray& file, const QByteArray& format)
{
    const QByteArray small = WithoutPixels(file, format);
    const QImage image = Decoded(small, format);
    return image.isNull() && small != file ? Decoded(file, format) : image;
}

} // namespace

bool GetImageDpi(const QByteArray& file, unsigned int& x, unsigned int& y)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(file.constData());
    if (ReadJpegResolution({bytes, static_cast<size_t>(file.size())}, s_header)) {
        x = Truncated(s_header.x);
        y = Truncated(s_header.y);
        return true;
    }
    const auto header = ReadPictureHeader({bytes, static_cast<size_t>(file.size())});
    if (!header)
        return false;
    const QImage image = WithResolution(file, header->format);
    const double dpiX = image.dotsPerMeterX() * kMetresPerInch + 0.5;
    const double dpiY = image.dotsPerMeterY() * kMetresPerInch + 0.5;
    if (!(dpiX > 0 && dpiY > 0))
        return false;
    x = Truncated(std::max(dpiX, kLeastDecoderDpi));
    y = Truncated(std::max(dpiY, kLeastDecoderDpi));
    return true;
}

} // namespace shapes
