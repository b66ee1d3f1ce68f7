#include "canvas/ViewInput.h"

#include <QWheelEvent>

#include <cmath>

WheelStep StepOf(const QWheelEvent& event)
{
    constexpr double kNotch = 120; // eighths of a degree
    constexpr double kPerNotch = 1.2;
    constexpr double kPanPerNotch = 60; // pixels
    const QPoint delta = event.angleDelta();
    const double notches = (delta.y() != 0 ? delta.y() : delta.x()) / kNotch;
    if (!event.pixelDelta().isNull() && !(event.modifiers() & Qt::ControlModifier))
        return {event.pixelDelta(), 1};
    if (event.modifiers() & Qt::ShiftModifier)
        return {QPointF(notches * kPanPerNotch, 0).toPoint(), 1};
    if (event.modifiers() & Qt::AltModifier)
        return {QPointF(0, notches * kPanPerNotch).toPoint(), 1};
    return {{}, std::pow(kPerNotch, notches)};
}

QPoint PanHand::MoveTo(QPointF pixel)
{
    const QPoint moved = (pixel - m_at.value_or(pixel)).toPoint();
    m_at = m_at.value_or(pixel) + moved;
    return moved;
}

bool PanHand::Release(Qt::MouseButton button)
{
    if (!Holds() || m_button != button)
        return false;
    m_at.reset();
    return true;
}
