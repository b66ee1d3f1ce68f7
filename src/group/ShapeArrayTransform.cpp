/// Transforms of the array: its cells, its members and its template.
#include "geometry/PlaneTransforms.h"
#include "geometry/Tolerances.h"
#include "group/ShapeArray.h"
#include "list/ShapeList.h"

#include <QTransform>

#include <cmath>

using namespace shapes;

void CShapeArray::MoveCells(QPointF offset)
{
    if (!IsFinite(offset))
        return; // A stored position may be no number; the other cells stay where they are.
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.ptPos += offset;
}

void CShapeArray::MapCells(const QTransform& transform)
{
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.ptPos = transform.map(cell.ptPos);
}

bool CShapeArray::Offset(double dx, double dy)
{
    if (!AllFinite({dx, dy}))
        return false;
    MoveCells({dx, dy});
    m_rcTemplate.translate(dx, dy);
    CShapeGroup::Offset(dx, dy);
    return true;
}

bool CShapeArray::RotateLeft(QPointF centre)
{
    return Rotate(-90, centre, Qt::ZAxis);
}

bool CShapeArray::RotateRight(QPointF centre)
{
    return Rotate(90, centre, Qt::ZAxis);
}

bool CShapeArray::Rotate(double angle, QPointF centre, Qt::Axis axis)
{
    if (!std::isfinite(angle) || !IsFinite(centre))
        return false;
    CShapeGroup::Rotate(angle, centre, axis);
    MapCells(RotationAbout(centre, angle));
    RenewTemplate();
    MoveCells(centre - GetAllRect().center());
    return true;
}

bool CShapeArray::MirrorX(double axis)
{
    if (!AllFinite({axis}))
        return false;
    const QPointF before = GetAllRect().center();
    MapCells(MirrorAtX(axis));
    GetShapeList()->MirrorX(axis);
    const QPointF moved = GetAllRect().center() - before;
    GetShapeList()->Offset(-moved.x(), -moved.y(), true);
    RenewTemplate();
    MoveCells(-moved);
    return AfterReset(true);
}

/// Only the array's X mirror moves the members back.
bool CShapeArray::MirrorY(double axis)
{
    if (!AllFinite({axis}))
        return false;
    const QPointF before = GetAllRect().center();
    MapCells(MirrorAtY(axis));
    GetShapeList()->MirrorY(axis);
    const QPointF moved = GetAllRect().center() - before;
    RenewTemplate();
    MoveCells(-moved);
    return AfterReset(true);
}

bool CShapeArray::MirrorAttachLine(double value, bool bVertical)
{
    return bVertical ? MirrorX(value) : MirrorY(value);
}

bool CShapeArray::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit)
{
    if (!IsFinite(p1) || !IsFinite(p2))
        return false;
    if (p1 == p2)
        return AfterReset(true);
    std::vector<QPointF> positions;
    positions.reserve(static_cast<size_t>(m_listInfo.size()));
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo))
        positions.push_back(cell.ptPos);
    positions = GetMirroredPoint(std::move(positions), QLineF(p1, p2));
    for (qsizetype i = 0; i < m_listInfo.size(); ++i)
        m_listInfo[i].ptPos = positions[static_cast<size_t>(i)];
    GetShapeList()->MirrorFixedOrMovingLine(p1, p2, bCommit);
    RenewTemplate();
    if (!m_listInfo.isEmpty())
        MoveCells(CShapeGroup::GetRect(false).topLeft() - m_listInfo.constFirst().ptPos);
    return AfterReset(true);
}

bool CShapeArray::Resize(QRectF target)
{
    if (!IsFinite(target))
        return false;
    const RectFit fit(GetRect(false), target);
    const QRectF members = fit.Map(GetShapeList()->GetRect(false));
    m_rcTemplate = fit.Map(m_rcTemplate);
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.ptPos = fit.Map(cell.ptPos);
    GetShapeList()->Resize(members);
    return AfterReset(true);
}
