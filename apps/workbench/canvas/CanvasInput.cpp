/// Pointer and keys on CanvasView.
#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cmath>

CanvasPoint CanvasView::PointOf(QPointF pixel, Qt::KeyboardModifiers keys) const
{
    return {pixel, m_view.ToMm(pixel), keys};
}

void CanvasView::mousePressEvent(QMouseEvent* event)
{
    m_place = {};
    m_keyPointer.reset();
    if (event->button() == Qt::MiddleButton) {
        m_panFrom = event->position();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        m_tool->Press(PointOf(event->position(), event->modifiers()));
    }
    update();
}

void CanvasView::mouseMoveEvent(QMouseEvent* event)
{
    const CanvasPoint point = PointOf(event->position(), event->modifiers());
    if (m_panFrom) {
        const QPoint moved = (event->position() - *m_panFrom).toPoint();
        m_panFrom = *m_panFrom + moved;
        Pan(moved);
    } else if (event->buttons() & Qt::LeftButton) {
        m_tool->Drag(point);
    } else {
        m_tool->Hover(point);
    }
    emit PointerMoved(point.mm);
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton) {
        m_panFrom.reset();
        setCursor(m_tool->Cursor());
    } else if (event->button() == Qt::LeftButton) {
        m_tool->Release(PointOf(event->position(), event->modifiers()));
    }
    update();
}

void CanvasView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_tool->DoubleClick(PointOf(event->position(), event->modifiers()));
    update();
}

/// The wheel zooms at the pointer; with Shift it moves sideways, with Alt up and down. Touch pads move.
void CanvasView::wheelEvent(QWheelEvent* event)
{
    constexpr double kNotch = 120; // eighths of a degree
    constexpr double kPerNotch = 1.2;
    constexpr double kPanPerNotch = 60; // pixels
    const QPoint delta = event->angleDelta();
    const double turned = delta.y() != 0 ? delta.y() : delta.x();
    if (!event->pixelDelta().isNull() && !(event->modifiers() & Qt::ControlModifier))
        Pan(event->pixelDelta());
    else if (event->modifiers() & Qt::ShiftModifier)
        Pan(QPointF(turned / kNotch * kPanPerNotch, 0).toPoint());
    else if (event->modifiers() & Qt::AltModifier)
        Pan(QPointF(0, turned / kNotch * kPanPerNotch).toPoint());
    else
        ZoomAt(event->position(), std::pow(kPerNotch, turned / kNotch));
    event->accept();
}

void CanvasView::keyPressEvent(QKeyEvent* event)
{
    if (m_tool->Key(*event) || MoveKeyPointer(*event))
        update();
    else
        QWidget::keyPressEvent(event);
}

/// The keyboard's own pointer, for tools that draw: arrows move it (with Shift by single pixels), the space bar is its
/// button.
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
    const CanvasPoint point = PointOf(*m_keyPointer, event.modifiers() & ~Qt::ShiftModifier);
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
