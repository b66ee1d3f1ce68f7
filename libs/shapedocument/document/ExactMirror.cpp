#include "document/ExactMirror.h"

#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "text/ShapeText.h"

#include <cmath>

namespace shapedocument {

namespace {

/// Reflects the text's centre and its direction; one mirrored glyph flag does the rest.
void MirrorText(CShapeText& shape, MirrorAxis axis, double position)
{
    constexpr double kFullTurn = 360;
    shape.GetPath(false); // carries out a mirror that is pending
    SText& text = *shape.GetTextP();
    const bool vertical = axis == MirrorAxis::Vertical;
    double& across = vertical ? text.ptCenter.rx() : text.ptCenter.ry();
    across = 2 * position - across;
    uint8_t& flag = vertical ? text.bMirrorX : text.bMirrorY;
    flag = flag == 0;
    text.dAngle = std::fmod(kFullTurn - std::fmod(text.dAngle, kFullTurn), kFullTurn);
    shape.UpdatePainterPath();
}

void MirrorAlone(CShape& shape, MirrorAxis axis, double position)
{
    if (axis == MirrorAxis::Vertical)
        shape.MirrorX(position);
    else
        shape.MirrorY(position);
}

/// The rectangle of all cells comes to lie where its mirror image does.
void MirrorArray(CShapeArray& array, MirrorAxis axis, double position)
{
    const QPointF before = array.GetRect(false).center();
    MirrorAlone(array, axis, position);
    const QPointF after = array.GetRect(false).center();
    if (axis == MirrorAxis::Vertical)
        array.Offset(2 * position - before.x() - after.x(), 0);
    else
        array.Offset(0, 2 * position - before.y() - after.y());
}

} // namespace

void Mirror(CShape& shape, MirrorAxis axis, double position)
{
    if (auto* text = dynamic_cast<CShapeText*>(&shape))
        return MirrorText(*text, axis, position);
    if (auto* array = dynamic_cast<CShapeArray*>(&shape))
        return MirrorArray(*array, axis, position);
    auto* group = dynamic_cast<CShapeGroup*>(&shape);
    if (!group)
        return MirrorAlone(shape, axis, position);
    CShapeList& members = *group->GetShapeList();
    for (unsigned int i = 0; i < members.GetCount(); ++i)
        if (CShape* member = members.GetShape(i))
            Mirror(*member, axis, position);
    group->ResetPath();
}

} // namespace shapedocument
