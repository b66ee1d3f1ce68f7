/// The four corners that an image covers on the design, and how edits move them.
#pragma once

#include <QPointF>
#include <QRectF>

#include <array>

class QLineF;
class QTransform;

namespace shapes {

/// Corners in the order of the unedited picture: top left, top right, bottom right, bottom left (model units).
class CornerQuad
{
public:
    explicit CornerQuad(const QRectF& rect);

    /// Begins anew with the rectangle's corners. The sum of the rotations so far stays, see FollowMirror.
    void Restart(const QRectF& rect);

    void Move(QPointF offset);
    /// @param angle degrees, clockwise on screen
    void Rotate(double angle, QPointF centre);
    /// Reflects across the vertical line x = axis, the horizontal line y = axis.
    void MirrorX(double axis);
    void MirrorY(double axis);
    /// Maps the bounds onto target. A side without extent is moved, not stretched.
    void FitTo(const QRectF& target);
    /// Moves and turns the corners to where their reflection across the line lies, without reflecting them. The angle
    /// follows from the reflected top edge and the rotations so far. Nothing for a line without length.
    void FollowMirror(const QLineF& line);

    const std::array<QPointF, 4>& Corners() const { return m_corners; }

private:
    void Map(const QTransform& transform);

    std::array<QPointF, 4> m_corners;
    double m_angleSum = 0.0; ///< of all rotations, degrees
};

} // namespace shapes
