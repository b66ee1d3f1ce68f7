#include "svg/PictureShape.h"

#include "plane/Length.h"

#include "image/ShapeImage.h"

#include <QImage>
#include <QTemporaryFile>

#include <cmath>
#include <numbers>

namespace shapedocument::drawing {

namespace {

constexpr double kMostDrawnPixels = 64e6; ///< limit for a redrawn picture

/// Loads the bytes of a picture file into a shape, by way of a temporary file.
std::unique_ptr<CShapeImage> Loaded(const QByteArray& file)
{
    QTemporaryFile onDisk;
    if (!onDisk.open() || onDisk.write(file) != file.size() || !onDisk.flush())
        return nullptr;
    auto shape = std::make_unique<CShapeImage>();
    if (shape->OpenImage(onDisk.fileName().toUtf8().data()) != 0)
        return nullptr;
    *shape->GetFilename() = 0; // the file is gone
    return shape;
}

/// The picture as the drawing shows it, with white around it. onPage becomes the place of the result.
QImage Redrawn(const QImage& picture, QTransform& onPage)
{
    const QTransform turned(onPage.m11(), onPage.m12(), onPage.m21(), onPage.m22(), 0, 0);
    const double pixelsPerMm = std::sqrt(1 / std::abs(turned.determinant()));
    const QTransform inPixels = turned * QTransform::fromScale(pixelsPerMm, pixelsPerMm);
    const QRectF place = onPage.mapRect(QRectF(QPointF(), QSizeF(picture.size())));
    onPage =
        QTransform::fromScale(1 / pixelsPerMm, 1 / pixelsPerMm) * QTransform::fromTranslate(place.left(), place.top());
    return picture.transformed(inPixels, Qt::SmoothTransformation);
}

std::unique_ptr<CShapeImage> NewSkewed(const PaintedItem& item)
{
    PaintedItem redrawn = item;
    const QSizeF size = item.onPage.mapRect(QRectF(QPointF(), QSizeF(item.pixels))).size();
    if (size.width() * size.height() > kMostDrawnPixels * std::abs(item.onPage.determinant()))
        return nullptr;
    const QImage picture = Redrawn(QImage::fromData(item.picture), redrawn.onPage);
    QTemporaryFile onDisk;
    if (picture.isNull() || !onDisk.open() || !picture.save(&onDisk, "PNG"))
        return nullptr;
    onDisk.seek(0);
    redrawn.picture = onDisk.readAll();
    redrawn.pixels = picture.size();
    return NewPicture(redrawn);
}

} // namespace

std::unique_ptr<CShapeImage> NewPicture(const PaintedItem& item)
{
    constexpr double kSkew = 1e-4; ///< sides whose angle has a smaller cosine count as perpendicular
    const QTransform& place = item.onPage;
    const QPointF corner = place.map(QPointF()), right = place.map(QPointF(item.pixels.width(), 0)) - corner,
                  down = place.map(QPointF(0, item.pixels.height())) - corner;
    const double width = Length(right), height = Length(down);
    if (!(width > 0 && height > 0) || !std::isfinite(width * height))
        return nullptr;
    if (std::abs(QPointF::dotProduct(right, down)) > kSkew * width * height)
        return NewSkewed(item);
    auto shape = Loaded(item.picture);
    if (!shape)
        return nullptr;
    const QPointF centre = corner + (right + down) / 2;
    shape->SetOrgRect(QRectF(centre - QPointF(width, height) / 2, QSizeF(width, height)), true);
    const bool mirrored = place.determinant() < 0;
    if (mirrored)
        shape->MirrorX(centre.x());
    const QPointF direction = mirrored ? -right : right;
    const double angle = std::atan2(direction.y(), direction.x()) * 180 / std::numbers::pi;
    if (std::abs(angle) > kSkew)
        shape->Rotate(angle, centre, Qt::ZAxis);
    shape->UpdatePainterPath();
    return shape;
}

} // namespace shapedocument::drawing
