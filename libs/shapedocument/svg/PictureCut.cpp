#include "svg/PictureCut.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace shapedocument::drawing {

namespace {

constexpr double kMostCutPixels = 64e6; ///< limit for the picture and for the part that is kept
constexpr double kCutStep = 0.1;        ///< mm; largest pixel at a slanting cut
constexpr double kSlack = 0.01;         ///< pixels

/// The size of a picture's pixels on the page, mm.
QSizeF PixelSize(const QTransform& onPage)
{
    return {std::hypot(onPage.m11(), onPage.m12()), std::hypot(onPage.m21(), onPage.m22())};
}

bool AreNear(double a, double b)
{
    return std::abs(a - b) < kSlack;
}

/// Whether an area equals the rectangle around it.
bool FillsItsFrame(const QPainterPath& area)
{
    const QRectF frame = area.boundingRect();
    bool fills = true;
    for (int i = 0; fills && i < area.elementCount(); ++i) {
        const QPointF at = area.elementAt(i), last = area.elementAt(std::max(i - 1, 0));
        fills = (AreNear(at.x(), frame.left()) || AreNear(at.x(), frame.right())) &&
                (AreNear(at.y(), frame.top()) || AreNear(at.y(), frame.bottom())) &&
                (AreNear(at.x(), last.x()) || AreNear(at.y(), last.y()));
    }
    return fills;
}

/// The frame, extended to the picture's own edges where these are within x and y (pixels).
QRectF WithOwnEdges(const QRectF& frame, QSizeF picture, double x, double y)
{
    const auto low = [](double at, double near) { return at <= near ? 0 : at; };
    const auto high = [](double at, double end, double near) { return at >= end - near ? end : at; };
    return {QPointF(low(frame.left(), x), low(frame.top(), y)),
            QPointF(high(frame.right(), picture.width(), x), high(frame.bottom(), picture.height(), y))};
}

/// Number of pixels for a length of count pixels of the picture, each of side mm.
double PixelsFor(double count, double side, bool slanting)
{
    const double finer = slanting ? std::ceil(std::max(side / kCutStep, 1.0)) : 1;
    return std::max(std::ceil(count * finer - kSlack), 1.0);
}

/// A part of the picture, scaled to size without mixing pixels.
QImage PartOf(const QImage& picture, const QRectF& part, QSize size)
{
    QImage drawn(size, QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    QPainter(&drawn).drawImage(QRectF(QPointF(), QSizeF(size)), picture, part);
    return drawn;
}

void WhitenOutside(QImage& picture, const QPainterPath& area)
{
    QPainterPath outside;
    outside.addRect(picture.rect().adjusted(-1, -1, 1, 1));
    QPainter(&picture).fillPath(outside.subtracted(area), Qt::white);
}

} // namespace

bool KeepShown(PaintedItem& item, const QPainterPath& shown, double inset)
{
    bool hasPlace = false;
    const QPainterPath area = item.onPage.inverted(&hasPlace).map(shown);
    const QSizeF pixel = PixelSize(item.onPage);
    const double reach = inset * (1 + kSlack);
    const QRectF part = WithOwnEdges(area.boundingRect(), item.pixels, reach / pixel.width(), reach / pixel.height());
    const bool slanting = !FillsItsFrame(area);
    const double width = PixelsFor(part.width(), pixel.width(), slanting);
    const double height = PixelsFor(part.height(), pixel.height(), slanting);
    if (!hasPlace || part.isEmpty() || !(width * height <= kMostCutPixels) ||
        !(1.0 * item.pixels.width() * item.pixels.height() <= kMostCutPixels))
        return false;
    const QImage picture = QImage::fromData(item.picture);
    if (picture.isNull())
        return false;
    const QTransform toPart = QTransform::fromTranslate(-part.left(), -part.top()) *
                              QTransform::fromScale(width / part.width(), height / part.height());
    QImage drawn = PartOf(picture, part, QSize(static_cast<int>(width), static_cast<int>(height)));
    if (slanting && !drawn.isNull())
        WhitenOutside(drawn, toPart.map(area));
    QBuffer file;
    if (drawn.isNull() || !file.open(QIODevice::WriteOnly) || !drawn.save(&file, "PNG"))
        return false;
    item.picture = file.data();
    item.pixels = drawn.size();
    item.onPage = toPart.inverted() * item.onPage;
    return true;
}

} // namespace shapedocument::drawing
