#include "tools/PathTool.h"

#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"
#include "look/Look.h"
#include "tools/Gestures.h"
#include "tools/Translated.h"

#include "list/ShapeOwner.h"
#include "vector/ShapeVector.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr double kHalfAnchor = 3; // pixels: half a point's side
constexpr double kBend = 3;       // pixels: shorter drags leave a corner

} // namespace

bool PathTool::IsAtStart(const CanvasPoint& point) const
{
    return m_anchors.size() > 2 && QLineF(View().View().ToPixel(m_anchors.front().at), point.pixel).length() <= kGrip;
}

void PathTool::Press(const CanvasPoint& point)
{
    m_pointer = View().Snap().Place(point.mm, point.keys);
    if (IsAtStart(point)) {
        Finish(true);
        return;
    }
    m_anchors.push_back({m_pointer, {}});
    m_pressed = true;
    View().update();
}

void PathTool::Release(const CanvasPoint&)
{
    m_pressed = false;
}

/// Ends the outline; the first click has added the last point.
void PathTool::DoubleClick(const CanvasPoint&)
{
    Finish(false);
}

void PathTool::Hover(const CanvasPoint& point)
{
    m_pointer = View().Snap().Place(point.mm, point.keys);
    View().setCursor(IsAtStart(point) ? Qt::PointingHandCursor : Cursor().shape());
    View().update();
}

bool PathTool::Key(QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Finish(event.modifiers() & Qt::ShiftModifier);
        return true;
    case Qt::Key_Backspace:
        if (!m_anchors.empty())
            m_anchors.pop_back();
        return true;
    case Qt::Key_Escape:
        m_anchors.empty() ? emit View().SelectToolAsked() : m_anchors.clear();
        return true;
    default:
        return false;
    }
}

QPainterPath PathTool::Path(bool closed) const
{
    QPainterPath path;
    if (m_anchors.empty())
        return path;
    path.moveTo(m_anchors.front().at);
    const auto join = [&path](const Anchor& from, const Anchor& to) {
        if (from.handle.isNull() && to.handle.isNull())
            path.lineTo(to.at);
        else
            path.cubicTo(from.at + from.handle, to.at - to.handle, to.at);
    };
    for (size_t i = 1; i < m_anchors.size(); ++i)
        join(m_anchors[i - 1], m_anchors[i]);
    if (closed)
        join(m_anchors.back(), m_anchors.front());
    return path;
}

void PathTool::Finish(bool closed)
{
    QPainterPath path = Path(closed);
    const bool drawn = m_anchors.size() > 1;
    m_anchors.clear();
    m_pressed = false;
    View().Snap().End();
    if (!drawn)
        return;
    ShapeOwner shape(CShape::NewShape(ESHAPE_VECTOR));
    static_cast<CShapeVector&>(*shape).ConvertPainterPathToLocalShapePoints(path);
    shape->UpdatePainterPath();
    shape->SetColor(View().Document().DrawColor());
    View().Document().Insert(Name(), {shape.release()});
}

void PathTool::Leave()
{
    Finish(false);
}

void PathTool::Paint(QPainter& painter)
{
    if (m_anchors.empty())
        return;
    const ViewTransform& view = View().View();
    painter.setPen(QPen(look::Marker(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(view.Matrix().map(Path(false)));
    painter.setPen(QPen(look::Marker(), 1, Qt::DashLine));
    if (!m_pressed)
        painter.drawLine(view.ToPixel(m_anchors.back().at), view.ToPixel(m_pointer));
    const Anchor& last = m_anchors.back();
    if (!last.handle.isNull())
        painter.drawLine(view.ToPixel(last.at - last.handle), view.ToPixel(last.at + last.handle));
    painter.setPen(QPen(look::Marker(), 1));
    painter.setBrush(Qt::white);
    for (const Anchor& anchor : m_anchors)
        painter.drawRect(QRectF(view.ToPixel(anchor.at) - QPointF(kHalfAnchor, kHalfAnchor),
                                QSizeF(2 * kHalfAnchor, 2 * kHalfAnchor)));
}

QString PolylineTool::Name() const
{
    return Tools::tr("Polyline");
}

QString PolylineTool::Hint() const
{
    return Tools::tr(
        "Each click sets a point, on the first one it closes; Enter ends, with Shift closes; Backspace goes back");
}

void PenTool::Drag(const CanvasPoint& point)
{
    if (!m_pressed || m_anchors.empty())
        return;
    Anchor& last = m_anchors.back();
    const QPointF handle = View().Snap().Place(point.mm, point.keys) - last.at;
    const double pixels = QLineF(QPointF(), handle).length() * View().View().Scale();
    last.handle = pixels < kBend ? QPointF() : handle;
    View().update();
}

QString PenTool::Name() const
{
    return Tools::tr("Curve");
}

QString PenTool::Hint() const
{
    return Tools::tr("Click sets a corner, drag bends the curve; Enter ends, with Shift closes; Backspace goes back");
}
