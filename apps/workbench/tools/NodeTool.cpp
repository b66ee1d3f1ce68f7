#include "tools/NodeTool.h"

#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"
#include "edits/Nodes.h"
#include "look/Look.h"
#include "tools/Translated.h"

#include "fit/PathNodes.h"
#include "shape/ShapeCast.h"
#include "vector/ShapeVector.h"

#include <QKeyEvent>
#include <QPainter>

using shapedocument::PathNode;

namespace {

constexpr double kHalfNode = 3.5; // pixels: half a point's side

} // namespace

NodeTool::NodeTool(CanvasView& view) : CanvasTool(view)
{
    Load();
}

CShape* NodeTool::Outline() const
{
    const std::vector<CShape*>& selection = View().Document().Selection();
    return selection.size() == 1 ? shapes::ShapeCast<CShapeVector>(selection.front(), ESHAPE_VECTOR) : nullptr;
}

void NodeTool::Load()
{
    CShape* shape = Outline();
    m_path = shape ? *shape->GetPath(false) : QPainterPath();
    if (m_element >= m_path.elementCount())
        m_element = -1;
    m_dragged = false;
}

void NodeTool::Hover(const CanvasPoint& point)
{
    View().setCursor(ElementAt(point.pixel) < 0 ? Cursor().shape() : Qt::SizeAllCursor);
}

/// Prefers points to control points, which may lie on them.
int NodeTool::ElementAt(QPointF pixel) const
{
    int found = -1;
    for (const PathNode& node : shapedocument::NodesOf(m_path)) {
        if (QLineF(View().View().ToPixel(node.at), pixel).length() > kGrip)
            continue;
        if (!node.control)
            return node.element;
        found = node.element;
    }
    return found;
}

void NodeTool::Press(const CanvasPoint& point)
{
    m_drag.Press(point.pixel);
    m_element = ElementAt(point.pixel);
    if (m_element >= 0)
        return;
    CShape* hit = View().ShapeAt(point.mm);
    if (hit == Outline())
        return;
    View().Document().Select(hit ? std::vector<CShape*>{hit} : std::vector<CShape*>());
}

void NodeTool::Drag(const CanvasPoint& point)
{
    if (m_element < 0 || !m_drag.Moved(point.pixel))
        return;
    const QPointF place = View().Snap().Place(point.mm, point.keys, Snapping::Selected::IsDragged);
    m_path = shapedocument::WithNodeMoved(m_path, m_element, place);
    m_dragged = true;
    View().update();
}

void NodeTool::Release(const CanvasPoint&)
{
    View().Snap().End();
    if (m_dragged && !Adopt(Tools::tr("Move Node"), m_path))
        Load();
}

void NodeTool::DoubleClick(const CanvasPoint& point)
{
    Adopt(Tools::tr("Insert Node"), shapedocument::WithNodeInserted(m_path, point.mm, View().View().LengthToMm(kGrip)));
}

bool NodeTool::Delete()
{
    if (m_element < 0 || !Outline())
        return Outline() != nullptr; // without a present point nothing is deleted: the user does not mean the shape
    const QPainterPath path = shapedocument::WithNodeRemoved(m_path, m_element);
    m_element = -1;
    if (path.isEmpty())
        View().Document().Remove(Tools::tr("Delete Node"), View().Document().Selection());
    else
        Adopt(Tools::tr("Delete Node"), path);
    return true;
}

/// Replaces the outline by the path. @return whether that changed anything
bool NodeTool::Adopt(const QString& name, const QPainterPath& path)
{
    return ReplaceOutline(View().Document(), name, Outline(), path);
}

/// Undoes the drag; the rest of it has no effect.
void NodeTool::GiveUp()
{
    m_element = -1;
    View().Snap().End();
    Load();
}

void NodeTool::SelectNext(int step)
{
    const std::vector<PathNode> nodes = shapedocument::NodesOf(m_path);
    const int count = static_cast<int>(nodes.size());
    if (count == 0)
        return;
    int place = step > 0 ? -1 : 0;
    for (int i = 0; i < count; ++i)
        if (nodes[static_cast<size_t>(i)].element == m_element)
            place = i;
    m_element = nodes[static_cast<size_t>((place + step + count) % count)].element;
}

void NodeTool::Nudge(QPointF by)
{
    if (m_element >= 0)
        Adopt(Tools::tr("Move Node"),
              shapedocument::WithNodeMoved(m_path, m_element, QPointF(m_path.elementAt(m_element)) + by));
}

bool NodeTool::Key(QKeyEvent& event)
{
    if (const std::optional<QPointF> by = NudgeOf(event)) {
        Nudge(*by);
        return true;
    }
    if (const std::optional<int> step = StepOf(event)) {
        SelectNext(*step);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        if (m_dragged)
            GiveUp();
        else
            emit View().SelectToolAsked();
        return true;
    default:
        return false;
    }
}

void NodeTool::Paint(QPainter& painter)
{
    const ViewTransform& view = View().View();
    if (m_dragged) {
        painter.setPen(QPen(look::Marker(), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(view.Matrix().map(m_path));
    }
    const std::vector<PathNode> nodes = shapedocument::NodesOf(m_path);
    painter.setPen(QPen(look::Travel(), 1));
    for (const PathNode& node : nodes)
        if (node.control)
            painter.drawLine(view.ToPixel(node.at), view.ToPixel(m_path.elementAt(node.anchor)));
    painter.setPen(QPen(look::Marker(), 1));
    for (const PathNode& node : nodes) {
        const QRectF knot(view.ToPixel(node.at) - QPointF(kHalfNode, kHalfNode), QSizeF(2 * kHalfNode, 2 * kHalfNode));
        painter.setBrush(node.element == m_element ? look::Marker() : QColor(Qt::white));
        node.control ? painter.drawEllipse(knot) : painter.drawRect(knot);
    }
}

QString NodeTool::Hint() const
{
    return Tools::tr("Drag moves a point, Ctrl does not snap; double click sets one, Delete removes it; "
                     "Tab goes on, arrows move it");
}
