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
        return; // It comes from a cell at no finite position; the others must stay where they are.
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
    if (IsNoMove(dx, dy))
        return AfterReset(false); // As the members' list refuses it, cells and template must not move either.
    MoveCells({dx, dy});
    SetTemplate(Template().translated(dx, dy));
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

bool CShapeArray::Rotate(double angle, QPointF centre, Qt::Axis)
{
    if (!std::isfinite(angle) || !IsFinite(centre))
        return false;
    MembersToChange()->Rotate(angle, centre, Qt::ZAxis);
    MapCells(RotationAbout(centre, angle));
    RenewTemplate();
    MoveCells(centre - GetAllRect().center());
    return AfterReset(true);
}

bool CShapeArray::MirrorX(double axis)
{
    if (!AllFinite({axis}))
        return false;
    const QPointF before = GetAllRect().center();
    MapCells(MirrorAtX(axis));
    MembersToChange()->MirrorX(axis);
    const QPointF moved = GetAllRect().center() - before;
    if (!IsNoMove(moved.x(), moved.y())) { // As in Offset, cells and members move alike or not at all.
        GetShapeList()->Offset(-moved.x(), -moved.y(), true);
        MoveCells(-moved);
    }
    RenewTemplate();
    return AfterReset(true);
}

/// Only the array's X mirror moves the members back.
bool CShapeArray::MirrorY(double axis)
{
    if (!AllFinite({axis}))
        return false;
    const QPointF before = GetAllRect().center();
    MapCells(MirrorAtY(axis));
    MembersToChange()->MirrorY(axis);
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
    if (p1 != p2) // Coincident points mirror nothing, but the first cell is still moved onto the members.
        MirrorCellsAndMembers(p1, p2, bCommit);
    RenewTemplate(Previews::Keep);
    if (!m_listInfo.isEmpty())
        MoveCells(CShapeGroup::GetRect(false).topLeft() - m_listInfo.constFirst().ptPos);
    return AfterReset(true);
}

void CShapeArray::MirrorCellsAndMembers(QPointF p1, QPointF p2, bool bCommit)
{
    std::vector<QPointF> positions;
    positions.reserve(static_cast<size_t>(m_listInfo.size()));
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo))
        positions.push_back(cell.ptPos);
    positions = GetMirroredPoint(std::move(positions), QLineF(p1, p2));
    for (qsizetype i = 0; i < m_listInfo.size(); ++i)
        m_listInfo[i].ptPos = positions[static_cast<size_t>(i)];
    MembersToChange()->MirrorFixedOrMovingLine(p1, p2, bCommit);
}

bool CShapeArray::Resize(QRectF target)
{
    if (!IsFinite(target))
        return false;
    // The members' list brings edited images up to date before it fits them; cells and template must use the same
    // rectangle.
    if (BringUpToDate(*GetShapeList(), Previews::End))
        SetTemplate(m_pShapeList->GetRect(false));
    const RectFit fit(GetRect(false), target);
    const QRectF members = fit.Map(MembersToChange()->GetRect(false));
    SetTemplate(fit.Map(Template()));
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.ptPos = fit.Map(cell.ptPos);
    GetShapeList()->Resize(members);
    return AfterReset(true);
}
