#include "tools/MirrorTool.h"

#include "canvas/CanvasView.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Transforms.h"
#include "look/Look.h"
#include "tools/Translated.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr double kShortestMirror = 0.05; // mm: shorter lines have no direction

/// The reflection across the line.
QTransform Mirrored(const QLineF& line)
{
    const QTransform upright = QTransform::fromTranslate(-line.x1(), -line.y1()) * QTransform().rotate(line.angle());
    return upright * QTransform::fromScale(1, -1) * upright.inverted();
}

} // namespace

void MirrorTool::Press(const CanvasPoint& point)
{
    m_isSecond = m_line.has_value();
    m_drag.Press(point.pixel);
    if (m_isSecond)
        return Turn(point);
    if (View().Document().Selection().empty())
        return View().Document().Ask().Tell(Tools::tr("Nothing is selected that could be mirrored"));
    const QPointF from = View().Snap().Place(point.mm, point.keys);
    m_line = QLineF(from, from);
}

void MirrorTool::Drag(const CanvasPoint& point)
{
    if (m_drag.Moved(point.pixel))
        Turn(point);
}

void MirrorTool::Hover(const CanvasPoint& point)
{
    Turn(point);
}

void MirrorTool::Turn(const CanvasPoint& point)
{
    if (!m_line)
        return;
    m_line->setP2(AtRoundAngle(m_line->p1(), View().Snap().Place(point.mm, point.keys), point.keys));
    if (m_line->length() >= kShortestMirror)
        View().SetPreview(Mirrored(*m_line));
}

void MirrorTool::Release(const CanvasPoint&)
{
    if (m_line && (m_isSecond || m_drag.Began()))
        Commit();
}

/// Mirrors the selection as previewed.
void MirrorTool::Commit()
{
    const QLineF line = *m_line;
    Leave();
    if (line.length() >= kShortestMirror)
        MirrorSelectionAcross(View().Document(), line);
}

bool MirrorTool::Key(QKeyEvent& event)
{
    if (event.key() != Qt::Key_Escape)
        return false;
    m_line ? Leave() : emit View().SelectToolAsked();
    return true;
}

void MirrorTool::Paint(QPainter& painter)
{
    if (!m_line)
        return;
    const QLineF line = View().View().Matrix().map(*m_line);
    painter.setPen(QPen(look::Marker(), 2));
    painter.drawLine(line);
    painter.setBrush(Qt::white);
    for (const QPointF end : {line.p1(), line.p2()})
        painter.drawEllipse(end, 4, 4);
}

void MirrorTool::Leave()
{
    m_line.reset();
    View().Snap().End();
    View().ClearPreview();
    View().update();
}

QString MirrorTool::Hint() const
{
    return Tools::tr("Drag along the line to mirror across, or click its two ends; "
                     "Shift turns it by 15 degrees, Ctrl does not snap");
}
