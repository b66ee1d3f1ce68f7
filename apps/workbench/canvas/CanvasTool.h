/// CanvasTool, what the pointer and the keys do on the canvas.
#pragma once

#include <QCursor>
#include <QPointF>
#include <QString>

class CanvasView;
class QKeyEvent;
class QPainter;

/// A pointer event on the canvas.
struct CanvasPoint
{
    QPointF pixel; ///< of the widget
    QPointF mm;    ///< of the drawing
    Qt::KeyboardModifiers keys;
};

/// A small state machine that gets the pointer's left button and the keys while it is the canvas's tool. Drag events
/// come between Press and Release; Hover comes without a button.
class CanvasTool
{
public:
    explicit CanvasTool(CanvasView& view) : m_view(view) {}
    CanvasTool(const CanvasTool&) = delete;
    CanvasTool& operator=(const CanvasTool&) = delete;
    virtual ~CanvasTool() = default;

    virtual void Press(const CanvasPoint&) {}
    virtual void Drag(const CanvasPoint&) {}
    virtual void Release(const CanvasPoint&) {}
    virtual void DoubleClick(const CanvasPoint&) {}
    virtual void Hover(const CanvasPoint&) {}
    /// Whether the key was the tool's.
    virtual bool Key(QKeyEvent&) { return false; }
    /// The user asks to delete; whether the tool had something of its own to delete.
    virtual bool Delete() { return false; }
    /// Paints what is being made, in pixels.
    virtual void Paint(QPainter&) {}
    /// The drawing has changed: shapes that the tool remembers may be gone.
    virtual void DrawingChanged() {}
    /// Other shapes are selected.
    virtual void SelectionChanged() {}
    /// Another tool comes. Ends what was begun: a drawing in progress is finished or dropped.
    virtual void Leave() {}
    /// One line that says how the tool is used.
    virtual QString Hint() const { return {}; }
    /// Whether the arrow keys move a pointer of the keyboard, the space bar being its button.
    virtual bool TakesKeyPointer() const { return true; }
    /// Whether the space bar holds that button until it is pressed again.
    virtual bool DragsWithKeys() const { return false; }
    virtual QCursor Cursor() const { return Qt::CrossCursor; }

protected:
    CanvasView& View() const { return m_view; }

private:
    CanvasView& m_view;
};
