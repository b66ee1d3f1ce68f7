#include "tools/BoxTool.h"

#include "canvas/CanvasView.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "look/Look.h"
#include "tools/Translated.h"

#include "document/Reach.h"
#include "vector/ShapeVector.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

using shapedocument::kFarthest;

namespace {

constexpr double kLeast = 0.05; // mm: smaller drags are clicks
constexpr double kUsual = 40;   // mm, default in forms
constexpr int kMostSides = 360;

QRectF Box(const QLineF& drag)
{
    return QRectF(drag.p1(), drag.p2()).normalized();
}

bool IsBox(const QRectF& box)
{
    return box.width() >= kLeast && box.height() >= kLeast;
}

} // namespace

void BoxTool::Press(const CanvasPoint& point)
{
    const QPointF from = View().Snap().Place(point.mm, point.keys);
    m_drag = QLineF(from, from);
}

void BoxTool::Drag(const CanvasPoint& point)
{
    if (!m_drag)
        return;
    m_drag = Adjusted({m_drag->p1(), View().Snap().Place(point.mm, point.keys)}, point.keys);
    View().update();
}

void BoxTool::Release(const CanvasPoint& point)
{
    Drag(point);
    if (m_drag)
        Insert(*m_drag);
    m_drag.reset();
}

QLineF BoxTool::Adjusted(const QLineF& drag, Qt::KeyboardModifiers keys) const
{
    if (!(keys & Qt::ShiftModifier))
        return drag;
    const double side = std::max(std::abs(drag.dx()), std::abs(drag.dy()));
    return {drag.p1(), drag.p1() + QPointF(std::copysign(side, drag.dx()), std::copysign(side, drag.dy()))};
}

ShapeOwner BoxTool::Made(const QLineF& drag) const
{
    ShapeOwner shape(CShape::NewShape(ESHAPE_VECTOR));
    return Shape(static_cast<CShapeVector&>(*shape), drag) ? std::move(shape) : nullptr;
}

void BoxTool::Insert(const QLineF& drag)
{
    if (ShapeOwner shape = Made(drag)) {
        shape->SetColor(View().Document().DrawColor());
        View().Document().Insert(Name(), {shape.release()});
    }
}

bool BoxTool::Key(QKeyEvent& event)
{
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        if (const std::optional<QLineF> drag = AskDrag())
            Insert(*drag);
        return true;
    }
    if (event.key() != Qt::Key_Escape)
        return false;
    m_drag ? Leave() : emit View().SelectToolAsked();
    return true;
}

std::optional<QLineF> BoxTool::AskDrag()
{
    const QPointF corner = View().View().ToMm(QRectF(View().rect()).center()) - QPointF(kUsual, kUsual) / 2;
    const auto numbers = View().Document().Ask().AskNumbers(
        Name(), {{Tools::tr("Left"), std::round(corner.x()), -kFarthest, kFarthest, 3, true},
                 {Tools::tr("Top"), std::round(corner.y()), -kFarthest, kFarthest, 3, true},
                 {Tools::tr("Width"), kUsual, kLeast, kFarthest, 3, true},
                 {Tools::tr("Height"), kUsual, kLeast, kFarthest, 3, true}});
    if (!numbers)
        return std::nullopt;
    const QPointF from((*numbers)[0], (*numbers)[1]);
    return QLineF(from, from + QPointF((*numbers)[2], (*numbers)[3]));
}

void BoxTool::Paint(QPainter& painter)
{
    if (!m_drag)
        return;
    const ShapeOwner shape = Made(*m_drag);
    if (!shape)
        return;
    painter.setPen(QPen(look::Marker(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(View().View().Matrix().map(*shape->GetPath(false)));
}

void BoxTool::Leave()
{
    m_drag.reset();
    View().Snap().End();
}

bool RectangleTool::Shape(CShapeVector& vector, const QLineF& drag) const
{
    vector.SetShapeRect(Box(drag));
    vector.SetVectorType(EVECTOR_RECT);
    return IsBox(Box(drag));
}

QString RectangleTool::Name() const
{
    return Tools::tr("Rectangle");
}

QString RectangleTool::Hint() const
{
    return Tools::tr(
        "Drag draws a rectangle, with Shift a square; Enter asks for numbers; the space bar begins and ends it");
}

bool EllipseTool::Shape(CShapeVector& vector, const QLineF& drag) const
{
    vector.SetShapeEllipse(Box(drag));
    vector.SetVectorType(EVECTOR_ELLIPSE);
    return IsBox(Box(drag));
}

QString EllipseTool::Name() const
{
    return Tools::tr("Ellipse");
}

QString EllipseTool::Hint() const
{
    return Tools::tr(
        "Drag draws an ellipse, with Shift a circle; Enter asks for numbers; the space bar begins and ends it");
}

bool PolygonTool::Shape(CShapeVector& vector, const QLineF& drag) const
{
    const double side = 2 * drag.length() * std::sin(std::numbers::pi / m_sides); // side of a polygon in that circle
    double direction = 0;
    const ShapeOwner unused(
        vector.SetShapeIsogon(m_sides, static_cast<float>(side), drag.p1(), drag.p2(), false, ETOOL_ISOGON, direction));
    return unused && drag.length() >= kLeast;
}

bool PolygonTool::Key(QKeyEvent& event)
{
    const int step = event.key() == Qt::Key_Plus ? 1 : event.key() == Qt::Key_Minus ? -1 : 0;
    if (step == 0)
        return BoxTool::Key(event);
    m_sides = std::clamp(m_sides + step, 3, kMostSides);
    View().Document().Ask().Tell(Tools::tr("%1 sides").arg(m_sides));
    return true;
}

std::optional<QLineF> PolygonTool::AskDrag()
{
    const QPointF centre = View().View().ToMm(QRectF(View().rect()).center());
    const auto numbers = View().Document().Ask().AskNumbers(
        Name(), {{Tools::tr("Sides"), double(m_sides), 3, kMostSides, 0},
                 {Tools::tr("Centre x"), std::round(centre.x()), -kFarthest, kFarthest, 3, true},
                 {Tools::tr("Centre y"), std::round(centre.y()), -kFarthest, kFarthest, 3, true},
                 {Tools::tr("Radius of the corners"), kUsual / 2, kLeast, kFarthest, 3, true}});
    if (!numbers)
        return std::nullopt;
    m_sides = static_cast<int>((*numbers)[0]);
    const QPointF from((*numbers)[1], (*numbers)[2]);
    return QLineF(from, from - QPointF(0, (*numbers)[3]));
}

QString PolygonTool::Name() const
{
    return Tools::tr("Polygon");
}

QString PolygonTool::Hint() const
{
    return Tools::tr(
        "Drag from the centre to a corner; plus and minus change the number of sides; Enter asks for numbers");
}
