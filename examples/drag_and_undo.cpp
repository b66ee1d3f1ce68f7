// Interactive editing: a clone is dragged and drawn while the shape stays, the drop moves the shape, and copies taken
// before each change are what undo goes back to.
#include "list/ShapeListOwner.h"
#include "list/ShapeOwner.h"
#include "vector/ShapeVector.h"

#include <QGuiApplication>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

/// What undo goes back to. Clones keep the ids of their shapes, so a selection by id survives.
class History
{
public:
    void Remember(CShapeList& document) { m_states.emplace_back(document.Clone()); }

    bool Undo(CShapeList& document)
    {
        if (m_states.empty())
            return false;
        document.Copy(m_states.back().get()); // frees the present shapes
        m_states.pop_back();
        return true;
    }

private:
    std::vector<ShapeListOwner> m_states;
};

/// From the press of the mouse to its release.
class Drag
{
public:
    Drag(CShape& shape, QPointF start) : m_shape(shape), m_ghost(shape.Clone()), m_start(start), m_last(start) {}

    /// The outline to be drawn dashed while the mouse moves.
    QPainterPath MoveTo(QPointF mouse)
    {
        m_ghost->Offset(mouse.x() - m_last.x(), mouse.y() - m_last.y());
        m_last = mouse;
        return *m_ghost->GetPath(false);
    }

    /// One move for the whole drag, so that rounding does not add up.
    bool Drop() { return m_shape.Offset(m_last.x() - m_start.x(), m_last.y() - m_start.y()); }

private:
    CShape& m_shape;
    ShapeOwner m_ghost;
    QPointF m_start;
    QPointF m_last;
};

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const ShapeListOwner document = NewShapeList();
    auto* square = new CShapeVector;
    square->SetShapeRect({0, 0, 20, 20});
    document->AddTail(square);

    History history;
    history.Remember(*document);
    Drag drag(*document->GetShape(0), {10, 10});
    for (const QPointF mouse : {QPointF(12, 10), QPointF(20, 14), QPointF(40, 20)})
        drag.MoveTo(mouse);
    drag.Drop();
    QTextStream out(stdout);
    out << "dropped at " << document->GetRect(false).left() << ' ' << document->GetRect(false).top() << '\n';

    history.Undo(*document); // pointers to shapes, square too, are not valid any more
    out << "undone to " << document->GetRect(false).left() << ' ' << document->GetRect(false).top() << '\n';
    return document->GetRect(false).topLeft() == QPointF(0, 0) ? 0 : 1;
}
