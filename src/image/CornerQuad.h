/// The four corners that an image covers on the design, and how edits move them.
#pragma once

#include "image/ImageOperation.h"

#include <QPointF>
#include <QRectF>

#include <array>
#include <optional>
#include <span>

class QLineF;
class QTransform;

namespace shapes {

/// The angle plus or minus whole turns, so that it lies in [0, 360]. An angle that lies there already stays, 360 too;
/// larger multiples of 360 become 360, negative ones 0.
double WithinFullTurn(double degrees);

/// The smallest rectangle around the points.
QRectF BoundsOf(std::span<const QPointF> points);

/// The argument of an operation in the type that its code asks for; nothing when it cannot be converted.
template <class Argument>
std::optional<Argument> ArgumentOf(const ImageOperation& operation)
{
    QVariant argument = operation.argument;
    if (!argument.convert(QMetaType::fromType<Argument>()))
        return std::nullopt;
    return argument.value<Argument>();
}

/// Corners in the order of the unedited picture: top left, top right, bottom right, bottom left.
class CornerQuad
{
public:
    explicit CornerQuad(const QRectF& rect);

    /// Begins anew with the rectangle's corners. The turning done so far is remembered.
    void Restart(const QRectF& rect);

    /// Moves the corners as the operation says. Inverting and cutting move nothing (a cut is followed by Restart), nor
    /// does an operation with an unknown code or an argument of another type.
    void Apply(const ImageOperation& operation);

    const std::array<QPointF, 4>& Corners() const { return m_corners; }

private:
    void Map(const QTransform& transform);
    void Fit(const QRectF& target);
    void FollowMirrored(const QLineF& line);

    std::array<QPointF, 4> m_corners;
    double m_angleSum = 0.0; ///< degrees
};

} // namespace shapes
