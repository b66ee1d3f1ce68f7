/// Input by wheel and hand, common to the views of the drawing and the job.
#pragma once

#include <QPoint>
#include <QPointF>
#include <Qt>

#include <optional>

class QWheelEvent;

/// The effect of a turn of the wheel: either a pan or a zoom.
struct WheelStep
{
    QPoint pan;      ///< pixels
    double zoom = 1; ///< at the pointer
};

/// The wheel zooms; with Shift it moves sideways, with Alt up and down. Touch pads move, with Ctrl they zoom.
WheelStep StepOf(const QWheelEvent& event);

/// Drags a view from press to release. Moves by whole pixels of the screen, so that the painted picture can be shifted.
class PanHand
{
public:
    void Grab(QPointF pixel, Qt::MouseButton button)
    {
        m_at = pixel;
        m_button = button;
    }
    /// @return whether that button was dragging the view
    bool Release(Qt::MouseButton button);
    bool Holds() const { return m_at.has_value(); }
    /// The distance by which the view follows the pointer (pixels). Only while Holds().
    QPoint MoveTo(QPointF pixel);

private:
    std::optional<QPointF> m_at;
    Qt::MouseButton m_button = Qt::NoButton;
};
