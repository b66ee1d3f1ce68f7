/// CanvasTool: the base of tools, which handle the pointer and the keys on the canvas.
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
    QPointF pixel; ///< in the widget
    QPointF mm;    ///< in the drawing
    Qt::KeyboardModifiers keys;
};

/// Receives the pointer's left button and the keys while it is the canvas's tool. Drag is called between Press and
/// Release, Hover while no button is pressed.
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
    /// Handles a key. Returns whether the tool used it.
    virtual bool Key(QKeyEvent&) { return false; }
    /// Handles the Delete command. Returns false to let the canvas delete the selection.
    virtual bool Delete() { return false; }
    /// Paints the shape being made, in pixels.
    virtual void Paint(QPainter&) {}
    /// Called when the drawing has changed: shapes to which the tool points may be freed.
    virtual void DrawingChanged() {}
    /// Called when the selection has changed.
    virtual void SelectionChanged() {}
    /// Called before another tool is set: finishes or drops a drawing in progress.
    virtual void Leave() {}
    /// One line on how to use the tool.
    virtual QString Hint() const { return {}; }
    /// Whether the arrow keys move a keyboard pointer, whose button is the space bar.
    virtual bool TakesKeyPointer() const { return true; }
    /// Whether the space bar presses that button and the next time releases it.
    virtual bool DragsWithKeys() const { return false; }
    virtual QCursor Cursor() const { return Qt::CrossCursor; }

protected:
    CanvasView& View() const { return m_view; }

private:
    CanvasView& m_view;
};
