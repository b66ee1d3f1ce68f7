/// Handles the pointer and the keys on CanvasView.
#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <utility>

CanvasPoint CanvasView::PointOf(QPointF pixel, Qt::KeyboardModifiers keys) const
{
    return {pixel, m_view.ToMm(pixel), keys};
}

void CanvasView::mousePressEvent(QMouseEvent* event)
{
    m_place = {};
    m_keyPointer.reset();
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_space)) {
        m_spaceMoved = m_space;
        m_hand.Grab(event->position(), event->button());
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        m_tool->Press(PointOf(event->position(), event->modifiers()));
    }
    update();
}

void CanvasView::mouseMoveEvent(QMouseEvent* event)
{
    const CanvasPoint point = PointOf(event->position(), event->modifiers());
    if (m_hand.Holds()) {
        Pan(m_hand.MoveTo(event->position()));
    } else if (event->buttons() & Qt::LeftButton) {
        m_tool->Drag(point);
    } else if (!m_space) {
        m_tool->Hover(point);
    }
    emit PointerMoved(point.mm);
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_hand.Release(event->button())) {
        setCursor(m_space ? Qt::OpenHandCursor : m_tool->Cursor());
    } else if (event->button() == Qt::LeftButton) {
        m_tool->Release(PointOf(event->position(), event->modifiers()));
        m_snapping.End();
    }
    update();
}

void CanvasView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_tool->DoubleClick(PointOf(event->position(), event->modifiers()));
    update();
}

void CanvasView::wheelEvent(QWheelEvent* event)
{
    const WheelStep step = StepOf(*event);
    if (step.pan.isNull())
        ZoomAt(event->position(), step.zoom);
    else
        Pan(step.pan);
    event->accept();
}

/// While the space bar is down, drags move the view, unless one is under way.
void CanvasView::SetHand(bool takes)
{
    m_space = takes;
    if (!m_hand.Holds())
        setCursor(takes ? QCursor(Qt::OpenHandCursor) : m_tool->Cursor());
}

/// A space bar that is released without a drag acts on the keyboard pointer.
void CanvasView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || !m_space)
        return QWidget::keyReleaseEvent(event);
    if (event->isAutoRepeat())
        return;
    SetHand(false);
    if (!std::exchange(m_spaceMoved, false) && MoveKeyPointer(*event))
        update();
}

void CanvasView::focusOutEvent(QFocusEvent* event)
{
    if (m_space)
        SetHand(false);
    QWidget::focusOutEvent(event);
}

void CanvasView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        if (!event->isAutoRepeat() && QGuiApplication::mouseButtons() == Qt::NoButton)
            SetHand(true);
        return;
    }
    if (m_tool->Key(*event) || MoveKeyPointer(*event))
        update();
    else
        QWidget::keyPressEvent(event);
}

/// The keyboard pointer for drawing tools: arrows move it (with Shift by single pixels), the space bar is its button.
bool CanvasView::MoveKeyPointer(QKeyEvent& event)
{
    if (!m_tool->TakesKeyPointer())
        return false;
    const double step = event.modifiers() & Qt::ShiftModifier ? 1 : 10; // pixels
    QPointF move;
    switch (event.key()) {
    case Qt::Key_Left:
        move = {-step, 0};
        break;
    case Qt::Key_Right:
        move = {step, 0};
        break;
    case Qt::Key_Up:
        move = {0, -step};
        break;
    case Qt::Key_Down:
        move = {0, step};
        break;
    case Qt::Key_Space:
        break;
    default:
        return false;
    }
    m_keyPointer = m_keyPointer.value_or(QRectF(rect()).center()) + move;
    const CanvasPoint point = PointOf(*m_keyPointer, Qt::ControlModifier); // with Ctrl, so that it does not snap
    emit PointerMoved(point.mm);
    if (event.key() != Qt::Key_Space) {
        if (m_keyPressed)
            m_tool->Drag(point);
        else
            m_tool->Hover(point);
        return true;
    }
    if (!m_keyPressed)
        m_tool->Press(point);
    m_keyPressed = !m_keyPressed && m_tool->DragsWithKeys();
    if (!m_keyPressed)
        m_tool->Release(point);
    return true;
}

void CanvasView::contextMenuEvent(QContextMenuEvent* event)
{
    emit MenuAsked(event->globalPos());
}

void CanvasView::leaveEvent(QEvent*)
{
    SetHover(nullptr);
}
