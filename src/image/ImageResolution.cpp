#include "image/ImageResolution.h"

#include "image/JpegResolution.h"
#include "image/PictureHeader.h"

#include <QBuffer>
#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

#include <opencv2/imgcodecs.hpp>

#include <algorithm>
#include <limits>
#include <vector>

namespace shapes {

namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr double kLeastDecoderDpi = 72.0;

JpegResolution s_header; ///< what the JPEG headers of this process have stated so far

unsigned int Truncated(double value)
{
    return static_cast<unsigned int>(std::min<double>(value, std::numeric_limits<unsigned int>::max()));
}

QByteArray OnePixel(const char* extension)
{
    std::vector<unsigned char> bytes;
    cv::imencode(extension, cv::Mat(1, 1, CV_8U, cv::Scalar(0)), bytes);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// A PNG of one pixel with the other's density chunk.
QByteArray SmallPng(const QByteArray& file)
{
    constexpr qsizetype kFrame = 12;             // length, name and sum around a chunk's content
    constexpr qsizetype kBehindHeaderChunk = 33; // signature and header chunk
    QByteArray density;
    for (qsizetype chunk = kBehindHeaderChunk; chunk + kFrame <= file.size();) {
        const qsizetype size = kFrame + qFromBigEndian<quint32>(file.constData() + chunk);
        const QByteArrayView name = QByteArrayView(file).sliced(chunk + 4, 4);
        if (name == "IDAT" || size > file.size() - chunk)
            break;
        if (name == "pHYs")
            density.append(QByteArrayView(file).sliced(chunk, size));
        chunk += size;
    }
    return OnePixel(".png").insert(kBehindHeaderChunk, density);
}

/// A JPEG of one pixel with the other's JFIF segments. Markers may be preceded by any number of fill bytes.
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

/// A file from which the decoder learns the same resolution: decoding all pixels for it would double the time of loading.
QByteArray WithoutPixels(const QByteArray& file, const QByteArray& format)
{
    if (format == "png")
        return SmallPng(file);
    if (format == "jpeg")
        return SmallJpeg(file);
    if (format == "webp") // never states one
        return OnePixel(".webp");
    return file;
}

/// The decoder is told the format: left to find out, it would hand the bytes to every plug-in that the host has.
QImage Decoded(const QByteArray& file, const QByteArray& format)
{
    QByteArray small = WithoutPixels(file, format);
    QBuffer buffer(&small);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    return reader.read();
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
    const QImage image = Decoded(file, header->format);
    const double dpiX = image.dotsPerMeterX() * kMetresPerInch + 0.5;
    const double dpiY = image.dotsPerMeterY() * kMetresPerInch + 0.5;
    if (!(dpiX > 0 && dpiY > 0))
        return false;
    x = Truncated(std::max(dpiX, kLeastDecoderDpi));
    y = Truncated(std::max(dpiY, kLeastDecoderDpi));
    return true;
}

} // namespace shapes
