/// What wheel and hand ask of a view: the drawing's and the job's take the same.
#pragma once

#include <QPoint>
#include <QPointF>
#include <Qt>

#include <optional>

class QWheelEvent;

/// What a turn of the wheel asks for: one of both is without effect.
struct WheelStep
{
    QPoint pan;      ///< pixels
    double zoom = 1; ///< at the pointer
};

/// The wheel zooms; with Shift it moves sideways, with Alt up and down. Touch pads move, with Ctrl they zoom.
WheelStep StepOf(const QWheelEvent& event);

/// A hand that holds a view, from press to release. Moves by whole pixels of the screen, so that what is painted can be
/// moved as it is.
class PanHand
{
public:
    void Take(QPointF pixel, Qt::MouseButton button)
    {
        m_at = pixel;
        m_button = button;
    }
    /// @return whether that button held the view
    bool Release(Qt::MouseButton button);
    bool Holds() const { return m_at.has_value(); }
    /// How far the view follows the pointer (pixels). To be called while it holds.
    QPoint MoveTo(QPointF pixel);

private:
    std::optional<QPointF> m_at;
    Qt::MouseButton m_button = Qt::NoButton;
};
