#include "edits/Pictures.h"

#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Translated.h"

#include "image/ShapeImage.h"
#include "shape/ShapeCast.h"

namespace {

constexpr double kLeastLeft = 0.1; // mm: least side of a cropped picture

bool Cut(CShapeImage& picture, const QMarginsF& sides)
{
    const QRectF rect = picture.GetRect(true), left = rect.marginsRemoved(sides);
    const cv::Mat shown = picture.GetImage(false);
    if (shown.empty() || left.width() < kLeastLeft || left.height() < kLeastLeft)
        return false;
    const double across = shown.cols / rect.width(), down = shown.rows / rect.height(); // pixels per mm
    picture.UpdateCropImage(QRectF((left.left() - rect.left()) * across, (left.top() - rect.top()) * down,
                                   left.width() * across, left.height() * down),
                            left);
    picture.GetRect(true);
    return true;
}

/// Makes the edits so far part of the picture, so that it stays in place.
bool InvertPixels(CShapeImage& picture)
{
    cv::Mat pixels = picture.GetImage(true);
    if (pixels.empty())
        return false;
    cv::bitwise_not(pixels, pixels);
    picture.SetImage(pixels, true);
    picture.RemoveImageCache();
    picture.GetRect(true);
    return true;
}

bool ChangePictures(WorkDocument& document, const QString& name, const QString& refusal,
                    const std::function<bool(CShapeImage&)>& edit)
{
    int refused = 0;
    const bool changed = document.Change(name, document.Selection(), [&](CShape& shape) {
        CShapeImage* picture = PictureOf(&shape);
        const bool edited = picture && edit(*picture);
        refused += picture && !edited;
        return edited;
    });
    if (refused > 0)
        document.Ask().Tell(refusal);
    return changed;
}

} // namespace

CShapeImage* PictureOf(CShape* shape)
{
    return shapes::ShapeCast<CShapeImage>(shape, ESHAPE_IMAGE);
}

bool CropPictures(WorkDocument& document, const QMarginsF& sides)
{
    if (sides.isNull()) {
        document.Ask().Tell(Edits::tr("Nothing is cut off: the sides are to be filled in first."));
        return false;
    }
    return ChangePictures(document, Edits::tr("Crop"),
                          Edits::tr("A picture stays as it is: nothing of it would remain."),
                          [&](CShapeImage& picture) { return Cut(picture, sides); });
}

bool InvertPictures(WorkDocument& document)
{
    return ChangePictures(document, Edits::tr("Invert"), Edits::tr("A picture stays as it is: it has no pixels."),
                          InvertPixels);
}
