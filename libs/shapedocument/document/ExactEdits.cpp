#include "document/ExactEdits.h"

#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "text/ShapeText.h"

#include <QTransform>

#include <cmath>

namespace shapedocument {

namespace {

constexpr double kFullTurn = 360; // degrees

/// In [0, 360), other than shapes::WithinFullTurn, which keeps 360.
double BelowFullTurn(double angle)
{
    const double rest = std::fmod(angle, kFullTurn);
    return rest < 0 ? rest + kFullTurn : rest;
}

/// CShapeText::Rotate moves the text as the centre of its rectangle moves, which is not exactly the text's centre.
void TurnText(CShapeText& shape, double degrees, QPointF centre)
{
    shape.GetPath(false); // carries out a mirror that is pending
    SText& text = *shape.GetTextP();
    text.ptCenter = centre + QTransform().rotate(degrees).map(text.ptCenter - centre);
    text.dAngle = BelowFullTurn(text.dAngle + degrees);
    shape.UpdatePainterPath();
}

/// Reflects the text's centre and its angle, and toggles one of its glyph mirrors.
void MirrorText(CShapeText& shape, MirrorAxis axis, double position)
{
    shape.GetPath(false); // carries out a mirror that is pending
    SText& text = *shape.GetTextP();
    const bool vertical = axis == MirrorAxis::Vertical;
    double& across = vertical ? text.ptCenter.rx() : text.ptCenter.ry();
    across = 2 * position - across;
    uint8_t& flag = vertical ? text.bMirrorX : text.bMirrorY;
    flag = flag == 0;
    text.dAngle = BelowFullTurn(-text.dAngle);
    shape.UpdatePainterPath();
}

void MirrorAlone(CShape& shape, MirrorAxis axis, double position)
{
    if (axis == MirrorAxis::Vertical)
        shape.MirrorX(position);
    else
        shape.MirrorY(position);
}

/// The offset (mm) from the stored members to their copies in the first cell.
QPointF FirstCell(CShapeArray& array)
{
    return array.GetRect(0).topLeft() - array.GetRect(true).topLeft();
}

/// Moves the array so that the offset to its first cell becomes wanted (mm), where the edit has not done so.
void PutFirstCell(CShapeArray& array, QPointF wanted)
{
    const QPointF way = wanted - FirstCell(array);
    if (!array.GetShapeArrayInfo().isEmpty())
        array.Offset(way.x(), way.y());
}

void MirrorArray(CShapeArray& array, MirrorAxis axis, double position)
{
    const QRectF before = array.GetRect(false);
    MirrorAlone(array, axis, position);
    const QRectF after = array.GetRect(false);
    if (axis == MirrorAxis::Vertical)
        array.Offset(2 * position - before.right() - after.left(), 0);
    else
        array.Offset(0, 2 * position - before.bottom() - after.top());
}

/// Edits every member of a group; false for other shapes.
template <class Edit>
bool EditMembers(CShape& shape, const Edit& edit)
{
    auto* group = dynamic_cast<CShapeGroup*>(&shape);
    if (!group)
        return false;
    CShapeList& members = *group->GetShapeList();
    for (unsigned int i = 0; i < members.GetCount(); ++i)
        if (CShape* member = members.GetShape(i))
            edit(*member);
    group->ResetPath();
    return true;
}

} // namespace

void Mirror(CShape& shape, MirrorAxis axis, double position)
{
    if (auto* text = dynamic_cast<CShapeText*>(&shape))
        return MirrorText(*text, axis, position);
    if (auto* array = dynamic_cast<CShapeArray*>(&shape))
        return MirrorArray(*array, axis, position);
    if (!EditMembers(shape, [=](CShape& member) { Mirror(member, axis, position); }))
        MirrorAlone(shape, axis, position);
}

void Turn(CShape& shape, double degrees, QPointF centre)
{
    if (auto* text = dynamic_cast<CShapeText*>(&shape))
        return TurnText(*text, degrees, centre);
    if (auto* array = dynamic_cast<CShapeArray*>(&shape)) {
        const QPointF way = QTransform().rotate(degrees).map(FirstCell(*array));
        array->Rotate(degrees, centre, Qt::ZAxis);
        PutFirstCell(*array, way);
    } else if (!EditMembers(shape, [=](CShape& member) { Turn(member, degrees, centre); })) {
        shape.Rotate(degrees, centre, Qt::ZAxis);
    }
}

} // namespace shapedocument
