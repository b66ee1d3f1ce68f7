/// Tools that draw point by point: polyline and Bézier pen.
#pragma once

#include "canvas/CanvasTool.h"

#include <QPainterPath>

#include <vector>

/// Each press adds a point; one on the first point closes the outline. Enter or a double click ends it, Backspace
/// removes the last point, Escape cancels.
class PathTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void Press(const CanvasPoint& point) override;
    void Release(const CanvasPoint& point) override;
    void DoubleClick(const CanvasPoint& point) override;
    void Hover(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    void Paint(QPainter& painter) override;
    void Leave() override;

protected:
    /// For the menu.
    virtual QString Name() const = 0;

    /// A point with its outgoing handle; the incoming one is its mirror image.
    struct Anchor
    {
        QPointF at;     ///< mm
        QPointF handle; ///< mm, from the point; null for a corner
    };
    std::vector<Anchor> m_anchors;
    bool m_pressed = false;

private:
    QPainterPath Path(bool closed) const;
    void Finish(bool closed);
    bool IsAtStart(const CanvasPoint& point) const;

    QPointF m_pointer; ///< mm
};

/// Straight pieces.
class PolylineTool : public PathTool
{
public:
    using PathTool::PathTool;
    QString Hint() const override;

protected:
    QString Name() const override;
};

/// A drag from a point bends the curve there.
class PenTool : public PathTool
{
public:
    using PathTool::PathTool;
    void Drag(const CanvasPoint& point) override;
    bool DragsWithKeys() const override { return true; }
    QString Hint() const override;

protected:
    QString Name() const override;
};
