#include "image/OperationReplay.h"

#include "geometry/CornerQuad.h"
#include "geometry/Tolerances.h"
#include "image/PixelWarp.h"

#include <QLineF>

#include <opencv2/core/mat.hpp>

#include <algorithm>
#include <cmath>
#include <optional>

namespace shapes {

namespace {

constexpr double kFarOut = 1e8; ///< pixels; beyond any picture, within the range of int

/// Rounded to whole pixels; edges far outside any picture are clamped to fit into int. Empty when not finite.
cv::Rect PixelRect(QRectF rect)
{
    if (!IsFinite(rect))
        return {};
    if (std::max({std::abs(rect.left()), std::abs(rect.top()), std::abs(rect.right()), std::abs(rect.bottom())}) >
        kFarOut)
        rect.setCoords(std::clamp(rect.left(), -kFarOut, kFarOut), std::clamp(rect.top(), -kFarOut, kFarOut),
                       std::clamp(rect.right(), -kFarOut, kFarOut), std::clamp(rect.bottom(), -kFarOut, kFarOut));
    const QRect whole = rect.toRect();
    return {whole.x(), whole.y(), whole.width(), whole.height()};
}

cv::Mat CutOut(const cv::Mat& image, const CornerQuad& quad, const QRectF& cut)
{
    const cv::Rect inSource = PixelRect(cut) & cv::Rect({0, 0}, image.size());
    if (inSource.empty())
        return {};
    const auto& corners = quad.Corners();
    const cv::Mat warped = ApplyTransform(image, corners[0], corners[1], corners[2], corners[3]);
    const cv::Rect part = inSource & cv::Rect({0, 0}, warped.size());
    return part.empty() ? cv::Mat() : warped(part).clone();
}

/// The argument of an operation in the type that its code asks for; nothing when it cannot be converted.
template <class Argument>
std::optional<Argument> ArgumentOf(const ImageOperation& operation)
{
    QVariant argument = operation.argument;
    if (!argument.convert(QMetaType::fromType<Argument>()))
        return std::nullopt;
    return argument.value<Argument>();
}

/// Moves the corners as the operation says. Inverting moves nothing, nor does an operation with an unknown code or an
/// argument of another type.
void Apply(const ImageOperation& operation, CornerQuad& quad)
{
    switch (operation.nCode) {
    case EIMAGE_MOVE:
        if (const auto offset = ArgumentOf<QPointF>(operation))
            quad.Move(*offset);
        break;
    case EIMAGE_ROTATE:
        if (const auto rotation = ArgumentOf<SRotate>(operation))
            quad.Rotate(rotation->angle, rotation->centre);
        break;
    case EIMAGE_MIRROR_X:
        if (const auto x = ArgumentOf<double>(operation))
            quad.MirrorX(*x);
        break;
    case EIMAGE_MIRROR_Y:
        if (const auto y = ArgumentOf<double>(operation))
            quad.MirrorY(*y);
        break;
    case EIMAGE_RESIZE:
        if (const auto target = ArgumentOf<QRectF>(operation))
            quad.FitTo(*target);
        break;
    case EIMAGE_MIRROR_LINE:
        if (const auto line = ArgumentOf<QLineF>(operation))
            quad.FollowMirror(*line);
        break;
    default:
        break;
    }
}

QVariant ConvertedArgument(const ImageOperation& operation, const UnitConversion& to)
{
    switch (operation.nCode) {
    case EIMAGE_MOVE:
        if (const auto offset = ArgumentOf<QPointF>(operation))
            return QPointF(to.length(offset->x()), to.length(offset->y()));
        break;
    case EIMAGE_ROTATE:
        if (const auto rotation = ArgumentOf<SRotate>(operation))
            return QVariant::fromValue(SRotate{rotation->angle, to.point(rotation->centre)});
        break;
    case EIMAGE_MIRROR_X:
        if (const auto x = ArgumentOf<double>(operation))
            return to.point({*x, 0}).x();
        break;
    case EIMAGE_MIRROR_Y:
        if (const auto y = ArgumentOf<double>(operation))
            return to.point({0, *y}).y();
        break;
    case EIMAGE_CUT:
        if (const auto cut = ArgumentOf<SCut>(operation))
            return QVariant::fromValue(SCut{to.rect(cut->cut), to.rect(cut->target)});
        break;
    case EIMAGE_RESIZE:
        if (const auto target = ArgumentOf<QRectF>(operation))
            return to.rect(*target);
        break;
    case EIMAGE_MIRROR_LINE:
        if (const auto line = ArgumentOf<QLineF>(operation))
            return QLineF(to.point(line->p1()), to.point(line->p2()));
        break;
    default:
        break;
    }
    return operation.argument;
}

} // namespace

void Replay(const QList<ImageOperation>& operations, CornerQuad& quad, cv::Mat* image)
{
    for (const ImageOperation& operation : operations) {
        if (operation.nCode != EIMAGE_CUT) {
            Apply(operation, quad);
            continue;
        }
        if (const auto cut = ArgumentOf<SCut>(operation)) {
            if (image)
                *image = CutOut(*image, quad, cut->cut);
            quad.Restart(cut->target);
        }
    }
}

QList<ImageOperation> Converted(const QList<ImageOperation>& operations, const UnitConversion& conversion)
{
    QList<ImageOperation> converted;
    converted.reserve(operations.size());
    for (const ImageOperation& operation : operations)
        converted.append({operation.nCode, ConvertedArgument(operation, conversion)});
    return converted;
}

} // namespace shapes
