/// MirrorTool: mirrors the selection across a line that the user draws.
#pragma once

#include "tools/Gestures.h"

#include <QLineF>

#include <optional>

/// The line is a drag, or two clicks; the selection is shown mirrored meanwhile. Shift turns the line by 15 degrees.
/// Escape cancels.
class MirrorTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void Press(const CanvasPoint& point) override;
    void Drag(const CanvasPoint& point) override;
    void Release(const CanvasPoint& point) override;
    void Hover(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    void Paint(QPainter& painter) override;
    void DrawingChanged() override { Leave(); }
    void SelectionChanged() override { Leave(); }
    void Leave() override;
    QString Hint() const override;

private:
    void Turn(const CanvasPoint& point);
    void Commit();

    std::optional<QLineF> m_line; ///< mm
    DragBegin m_drag;
    bool m_isSecond = false; ///< the press is the second click
};
