#include "render/PicturePage.h"

#include "document/Failure.h"
#include "plane/Length.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <new>

namespace shapedocument {

namespace {

void PaintOn(QPaintDevice& device, const PicturePage& page, double width, const QString& name)
{
    QPainter painter;
    if (!painter.begin(&device))
        throw Failure{name, "cannot be painted"};
    page.sheet.SetUp(painter, width);
    page.sheet.DrawFrame(painter);
    page.content(painter);
}

/// A buffer in memory that reports its bytes; the encoder writes after each band of the picture. After a stop further
/// bytes are dropped instead of refused: the encoder would print an error.
class EncodedBytes : public QBuffer
{
public:
    explicit EncodedBytes(const WorkProgress& progress) : m_watch(progress, WorkStep::Encoding) {}

    /// Throws Stopped and std::bad_alloc.
    void ExpectGoesOn() const
    {
        if (m_full)
            throw std::bad_alloc();
        if (m_stopped)
            throw Stopped();
    }

protected:
    /// No exception may pass through the encoder.
    qint64 writeData(const char* bytes, qint64 count) override
    try {
        m_stopped = m_stopped || !m_watch.GoesOn(static_cast<size_t>(size()));
        return m_stopped ? count : QBuffer::writeData(bytes, count);
    } catch (const std::bad_alloc&) {
        m_full = m_stopped = true;
        return count;
    }

private:
    WorkWatch m_watch;
    bool m_stopped = false;
    bool m_full = false; ///< there is no memory for more
};

/// Size in device units of a sheet of the given width; the height is limited.
QSize PixelSize(const Sheet& sheet, int width)
{
    const QSizeF size = sheet.Size() * (width / sheet.Size().width());
    const double shrink = std::min(1.0, kMostPixels / size.height());
    return {std::max(1, int(std::ceil(size.width() * shrink))), std::max(1, int(std::ceil(size.height() * shrink)))};
}

void WritePng(QIODevice& device, const PicturePage& page, int width, const QString& name, const WorkProgress& progress)
{
    QImage image(PixelSize(page.sheet, width), QImage::Format_RGB32);
    if (image.isNull())
        throw std::bad_alloc();
    image.fill(Qt::white);
    PaintOn(image, page, image.width(), name);
    EncodedBytes png(progress); // In memory: on a full disk the encoder fails without a reason.
    // level 2: for line drawings the files are no larger than with level 6, in half the time
    constexpr int kQuality = 75;
    const bool encoded = image.save(&png, "PNG", kQuality);
    png.ExpectGoesOn();
    if (!encoded)
        throw Failure{name, "cannot be encoded"};
    device.write(png.data());
}

void WriteSvg(QIODevice& device, const PicturePage& page, const QString& name)
{
    constexpr int kDpi = 96;
    constexpr double kDotsPerMm = kDpi / kMmPerInch;
    const QSizeF size = page.sheet.Size() * kDotsPerMm;
    QSvgGenerator svg;
    svg.setOutputDevice(&device);
    svg.setResolution(kDpi);
    svg.setSize(size.toSize().expandedTo({1, 1}));
    svg.setViewBox(QRectF(QPointF(), size));
    PaintOn(svg, page, size.width(), name);
}

void WritePdf(QIODevice& device, const PicturePage& page, const QString& name)
{
    QPdfWriter pdf(&device);
    pdf.setPageMargins(QMarginsF());
    pdf.setPageSize(QPageSize(page.sheet.Size(), QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    // The page's size is rounded down to whole points; the drawing keeps its scale.
    PaintOn(pdf, page, page.sheet.Size().width() * pdf.resolution() / kMmPerInch, name);
}

} // namespace

void WritePicture(QIODevice& device, const PicturePage& page, PictureFormat format, int width, const QString& name,
                  const WorkProgress& progress)
{
    switch (format) {
    case PictureFormat::Png:
        return WritePng(device, page, std::clamp(width, kLeastPixels, kMostPixels), name, progress);
    case PictureFormat::Svg:
        return WriteSvg(device, page, name);
    case PictureFormat::Pdf:
        return WritePdf(device, page, name);
    }
}

} // namespace shapedocument
