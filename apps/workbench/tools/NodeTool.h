/// NodeTool: edits the points of one outline.
#pragma once

#include "tools/Gestures.h"

#include <QPainterPath>

class CShape;

/// A drag moves a point or a control point, a double click on the outline adds a point, Delete removes one. Tab goes
/// from point to point, arrows move the present one. Works on the selected vector; a click on another one selects that.
class NodeTool : public CanvasTool
{
public:
    explicit NodeTool(CanvasView& view);

    void Press(const CanvasPoint& point) override;
    void Drag(const CanvasPoint& point) override;
    void Release(const CanvasPoint& point) override;
    void DoubleClick(const CanvasPoint& point) override;
    void Hover(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    bool Delete() override;
    void Paint(QPainter& painter) override;
    void DrawingChanged() override { Load(); }
    void SelectionChanged() override { Load(); }
    QString Hint() const override;
    bool TakesKeyPointer() const override { return false; }
    QCursor Cursor() const override { return Qt::ArrowCursor; }

private:
    CShape* Outline() const;
    void Load();
    int ElementAt(QPointF pixel) const;
    void SelectNext(int step);
    void Nudge(QPointF by);
    void GiveUp();
    bool Adopt(const QString& name, const QPainterPath& path);

    QPainterPath m_path; ///< of the shape, with the present drag; mm
    int m_element = -1;  ///< the present point; -1: none
    DragBegin m_drag;
    bool m_dragged = false;
};
