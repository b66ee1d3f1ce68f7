/// Helpers for the gestures of tools.
#pragma once

#include "canvas/CanvasTool.h"

#include <optional>

class QKeyEvent;

constexpr double kGrip = 7; ///< pixels: a press that is no farther from a handle or point takes hold of it

/// Tells drags from clicks, in which the pointer may move a little.
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
    /// Whether Moved has returned true since the press.
    bool Began() const { return m_began; }

private:
    QPointF m_from;
    bool m_began = false;
};

/// The distance by which an arrow key moves the selection (mm): 1 mm or 1/16 inch, with Shift ten times, with Alt a
/// tenth of it; nothing for other keys.
std::optional<QPointF> NudgeOf(const QKeyEvent& event);

/// 1 for the key that goes to the next shape or node, -1 for the one that goes back; nothing for other keys.
std::optional<int> StepOf(const QKeyEvent& event);

/// The line from one place to another, turned to the nearest multiple of 15 degrees while Shift is held. Returns its
/// end.
QPointF AtRoundAngle(QPointF from, QPointF to, Qt::KeyboardModifiers keys);
