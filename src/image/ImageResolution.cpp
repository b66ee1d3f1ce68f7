#include "image/ImageResolution.h"

#include "image/JpegResolution.h"

#include <QByteArray>
#include <QImage>

#include <algorithm>
#include <limits>

namespace shapes {

namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr double kLeastDecoderDpi = 72.0;

JpegResolution s_header; ///< what the JPEG headers of this process have stated so far

unsigned int Truncated(double value)
{
    return static_cast<unsigned int>(std::min<double>(value, std::numeric_limits<unsigned int>::max()));
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
    const QImage image = QImage::fromData(file);
    const double dpiX = image.dotsPerMeterX() * kMetresPerInch + 0.5;
    const double dpiY = image.dotsPerMeterY() * kMetresPerInch + 0.5;
    if (!(dpiX > 0 && dpiY > 0))
        return false;
    x = Truncated(std::max(dpiX, kLeastDecoderDpi));
    y = Truncated(std::max(dpiY, kLeastDecoderDpi));
    return true;
}

} // namespace shapes
