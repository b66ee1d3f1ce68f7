/// Transforms of all shapes of a list.
#include "geometry/Tolerances.h"
#include "list/ShapeList.h"
#include "list/ShapeWalk.h"

#include <algorithm>
#include <cmath>

using namespace shapes;

namespace {

constexpr double kUniform = 0.001; ///< scales that differ by less count as equal

/// The rectangle that a shape's rectangle becomes. On each axis the near edge is set first, then the extent: the
/// results depend on this order.
QRectF Fitted(const QRectF& rect, QPointF target, double scaleX, double scaleY)
{
    QRectF fitted = rect;
    fitted.setX(target.x() + (rect.x() - target.x()) * scaleX);
    if (rect.width() > 0)
        fitted.setWidth(rect.width() * scaleX);
    fitted.setY(target.y() + (rect.y() - target.y()) * scaleY);
    if (rect.height() > 0)
        fitted.setHeight(rect.height() * scaleY);
    return fitted;
}

QRectF OutlineRect(CShape* shape)
{
    if (shape->GetShapeType() != ESHAPE_IMAGE)
        return shape->GetRect(false);
    const QPainterPath* path = shape->GetPath(false);
    return path ? path->boundingRect() : QRectF();
}

/// Images keep their old outline when they are turned, mirrored or fitted; the next transform, and a group around this
/// list, need the new one.
void RenewOutlines(const std::vector<CShape*>& shapes)
{
    ForEachShape(shapes, [](CShape* shape) {
        const ESHAPE_TYPE type = shape->GetShapeType();
        if (type == ESHAPE_IMAGE || type == ESHAPE_CODEIMAGE)
            shape->UpdatePainterPath();
    });
}

/// Turns, mirrors or fits every shape; false when there is none.
template <class Change>
bool ChangeEach(const std::vector<CShape*>& shapes, Change change)
{
    const bool any = ForEachShape(shapes, change);
    RenewOutlines(shapes);
    return any;
}

bool IsText(CShape* shape)
{
    return shape->GetShapeType() == ESHAPE_TEXT;
}

/// Mirrors every shape; across() moves a text across the axis first, unless it stands alone.
template <class Mirror, class Across>
bool MirrorEach(const std::vector<CShape*>& shapes, bool alone, Mirror mirror, Across across)
{
    return ChangeEach(shapes, [&](CShape* shape) {
        if (!alone && IsText(shape))
            across(shape, shape->GetRect(false));
        mirror(shape);
    });
}

} // namespace

bool CShapeList::Offset(double dx, double dy, bool bWithText)
{
    if (!AllFinite({dx, dy}) || IsNoMove(dx, dy))
        return false;
    return ForEachShape(m_listShapes, [=](CShape* shape) {
        if (bWithText || !IsText(shape))
            shape->Offset(dx, dy);
    });
}

bool CShapeList::Resize(QRectF target)
{
    if (ShapeCount() == 0 || target.width() < 0 || target.height() < 0 || !IsFinite(target))
        return false;
    RenewOutlines(m_listShapes);
    const QRectF own = GetRect(false);
    const double scaleX = own.width() > 0 ? target.width() / own.width() : 1.0;
    const double scaleY = own.height() > 0 ? target.height() / own.height() : 1.0;
    if (!AllFinite({scaleX, scaleY}))
        return false;
    const bool uniform = std::abs(scaleX - scaleY) < kUniform;
    Offset(target.x() - own.x(), target.y() - own.y(), uniform);
    return ForEachShape(m_listShapes, [=](CShape* shape) {
        if (!uniform && IsText(shape))
            return;
        shape->Resize(Fitted(OutlineRect(shape), target.topLeft(), scaleX, scaleY));
        shape->UpdatePainterPath();
        if (shape->GetShapeType() == ESHAPE_VECTOR)
            shape->UpdatePainterPath();
    });
}

bool CShapeList::RotateLeft(QPointF centre)
{
    if (!IsFinite(centre))
        return false;
    return ChangeEach(m_listShapes, [=](CShape* shape) { shape->RotateLeft(centre); });
}

bool CShapeList::RotateRight(QPointF centre)
{
    if (!IsFinite(centre))
        return false;
    return ChangeEach(m_listShapes, [=](CShape* shape) { shape->RotateRight(centre); });
}

bool CShapeList::Rotate(double angle, QPointF centre, Qt::Axis axis)
{
    if (!AllFinite({angle}) || !IsFinite(centre))
        return false;
    return ChangeEach(m_listShapes, [=](CShape* shape) { shape->Rotate(angle, centre, axis); });
}

bool CShapeList::MirrorX(double axis)
{
    if (!AllFinite({axis}))
        return false;
    return MirrorEach(
        m_listShapes, ShapeCount() == 1, [=](CShape* shape) { shape->MirrorX(axis); },
        [=](CShape* shape, QRectF rect) { shape->Offset(2 * (axis - rect.x()) - rect.width(), 0); });
}

bool CShapeList::MirrorY(double axis)
{
    if (!AllFinite({axis}))
        return false;
    return MirrorEach(
        m_listShapes, ShapeCount() == 1, [=](CShape* shape) { shape->MirrorY(axis); },
        [=](CShape* shape, QRectF rect) { shape->Offset(0, 2 * (axis - rect.y()) - rect.height()); });
}

bool CShapeList::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bFlag)
{
    if (!IsFinite(p1) || !IsFinite(p2))
        return false;
    const auto mirror = [=](CShape* shape) { shape->MirrorFixedOrMovingLine(p1, p2, bFlag); };
    // While the line is dragged, images have not changed, and their temporary path must stay.
    return bFlag ? ChangeEach(m_listShapes, mirror) : ForEachShape(m_listShapes, mirror);
}

bool CShapeList::MirrorAttachLine(double value, bool bFlag)
{
    if (!AllFinite({value}))
        return false;
    return ChangeEach(m_listShapes, [=](CShape* shape) { shape->MirrorAttachLine(value, bFlag); });
}
