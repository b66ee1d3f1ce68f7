#include "edits/Transforms.h"

#include "document/WorkDocument.h"
#include "edits/Translated.h"

namespace {

/// Shorter moves have no effect.
constexpr double kNothing = 1e-6; // mm

bool ChangeSelection(WorkDocument& document, const char* name, const std::function<bool(CShapeList&)>& edit)
{
    return document.ChangeTogether(Edits::tr(name), document.Selection(), edit);
}

} // namespace

bool MoveSelection(WorkDocument& document, QPointF by)
{
    if (std::abs(by.x()) < kNothing && std::abs(by.y()) < kNothing)
        return false;
    return ChangeSelection(document, QT_TRANSLATE_NOOP("Edits", "Move"),
                           [&](CShapeList& shapes) { return shapes.Offset(by.x(), by.y(), true); });
}

bool ResizeSelection(WorkDocument& document, const QRectF& target)
{
    return ChangeSelection(document, QT_TRANSLATE_NOOP("Edits", "Resize"), [&](CShapeList& shapes) {
        return shapes.GetCount() == 1 ? shapes.GetShape(0)->Resize(target) : shapes.Resize(target);
    });
}

bool TurnSelection(WorkDocument& document, double degrees, QPointF centre)
{
    if (std::abs(degrees) < kNothing)
        return false;
    return ChangeSelection(document, QT_TRANSLATE_NOOP("Edits", "Turn"),
                           [&](CShapeList& shapes) { return shapes.Rotate(degrees, centre, Qt::ZAxis); });
}

bool MirrorSelectionX(WorkDocument& document)
{
    return ChangeSelection(document, QT_TRANSLATE_NOOP("Edits", "Mirror Left to Right"),
                           [](CShapeList& shapes) { return shapes.MirrorX(shapes.GetRectCenter().x()); });
}

bool MirrorSelectionY(WorkDocument& document)
{
    return ChangeSelection(document, QT_TRANSLATE_NOOP("Edits", "Mirror Top to Bottom"),
                           [](CShapeList& shapes) { return shapes.MirrorY(shapes.GetRectCenter().y()); });
}

bool MirrorSelectionAcross(WorkDocument& document, const QLineF& line)
{
    if (line.length() < kNothing)
        return false;
    return ChangeSelection(document, QT_TRANSLATE_NOOP("Edits", "Mirror Across Line"), [&](CShapeList& shapes) {
        return shapes.MirrorFixedOrMovingLine(line.p1(), line.p2(), true);
    });
}
