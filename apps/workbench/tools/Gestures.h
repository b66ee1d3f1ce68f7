/// What the tools' gestures have in common.
#pragma once

#include "canvas/CanvasTool.h"

#include <optional>

class QKeyEvent;

/// A press that may become a drag: the hand that clicks trembles a little.
class DragBegin
{
public:
    void Press(QPointF pixel)
    {
        m_from = pixel;
        m_began = false;
    }
    /// Whether the pointer has gone far enough since the press, now or before.
    bool Moved(QPointF pixel);
    /// Whether it had, so far.
    bool Began() const { return m_began; }

private:
    QPointF m_from;
    bool m_began = false;
};

/// How far an arrow key moves what is selected (mm): a millimetre or the 16th of an inch, with Shift ten of them, with
/// Alt the tenth; nothing for other keys.
std::optional<QPointF> NudgeOf(const QKeyEvent& event);

/// 1 for the key that goes to the next shape or node, -1 for the one that goes back; nothing for other keys.
std::optional<int> StepOf(const QKeyEvent& event);

/// The line from one place to another, turned to the next multiple of 15 degrees while Shift is held.
QPointF AtRoundAngle(QPointF from, QPointF to, Qt::KeyboardModifiers keys);
