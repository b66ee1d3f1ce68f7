/// SelectTool: the arrow, which selects, moves, resizes and turns.
#pragma once

#include "tools/FrameHandles.h"
#include "tools/Gestures.h"

#include <QRectF>
#include <QTransform>

class CShape;

/// A press on a shape selects it, with Shift adds or removes it. A press elsewhere starts a marquee: from left to right
/// it selects the shapes inside, from right to left also those it touches. The frame's handles resize (Shift: freely,
/// Alt: about the middle) and turn (Shift: by 15 degrees). Drags snap, unless Ctrl is held. During a drag a preview is
/// shown; the drawing changes at the end.
class SelectTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void Press(const CanvasPoint& point) override;
    void Drag(const CanvasPoint& point) override;
    void Release(const CanvasPoint& point) override;
    void DoubleClick(const CanvasPoint& point) override;
    void Hover(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    void Paint(QPainter& painter) override;
    void DrawingChanged() override;
    void Leave() override;
    QString Hint() const override;
    bool TakesKeyPointer() const override { return false; }
    QCursor Cursor() const override { return Qt::ArrowCursor; }

private:
    enum class State
    {
        Idle,
        Pressed, ///< on a shape that can be moved
        Move,
        Marquee,
        Resize,
        Turn
    };

    int HandleAt(QPointF pixel) const;
    QPointF SidesShift(const QRectF& rect, const HandleSides& sides, const CanvasPoint& point) const;
    QTransform MoveBy(const CanvasPoint& point) const;
    QRectF ResizedTo(const CanvasPoint& point) const;
    double TurnedBy(const CanvasPoint& point) const;
    void SelectMarquee(bool add);
    void Commit(const CanvasPoint& point);
    void SelectNext(int step);

    State m_state = State::Idle;
    CanvasPoint m_from{};
    DragBegin m_drag;
    QRectF m_frame;    ///< mm, at the start of the drag
    int m_handle = -1; ///< index of the dragged handle
    QRectF m_marquee;  ///< mm
    bool m_touching = false;
    CShape* m_hit = nullptr; ///< the pressed shape
};
