#include "tools/Gestures.h"

#include "look/LengthUnit.h"

#include <QKeyEvent>
#include <QLineF>

#include <cmath>

bool DragBegin::Moved(QPointF pixel)
{
    constexpr double kTremble = 3; // pixels
    m_began = m_began || QLineF(m_from, pixel).length() >= kTremble;
    return m_began;
}

std::optional<QPointF> NudgeOf(const QKeyEvent& event)
{
    constexpr double kFar = 10, kNear = 0.1; // times
    const look::LengthUnit& unit = look::LengthUnit::Shown();
    const double usual = unit.IsInch() ? unit.Millimetres() / 16 : unit.Millimetres();
    const double step = usual * (event.modifiers() & Qt::ShiftModifier ? kFar
                                 : event.modifiers() & Qt::AltModifier ? kNear
                                                                       : 1);
    switch (event.key()) {
    case Qt::Key_Left:
        return QPointF(-step, 0);
    case Qt::Key_Right:
        return QPointF(step, 0);
    case Qt::Key_Up:
        return QPointF(0, -step);
    case Qt::Key_Down:
        return QPointF(0, step);
    default:
        return std::nullopt;
    }
}

std::optional<int> StepOf(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Tab)
        return 1;
    return event.key() == Qt::Key_Backtab ? std::optional(-1) : std::nullopt;
}

QPointF AtRoundAngle(QPointF from, QPointF to, Qt::KeyboardModifiers keys)
{
    constexpr double kStep = 15; // degrees
    QLineF line(from, to);
    if (keys & Qt::ShiftModifier)
        line.setAngle(std::round(line.angle() / kStep) * kStep);
    return line.p2();
}
