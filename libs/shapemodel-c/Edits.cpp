/// Moves, resizes, turns and mirrors shapes; takes them out of documents and puts them in.
#include "Edits.h"

#include "Arguments.h"
#include "Entry.h"
#include "Progress.h"
#include "Structs.h"
#include "document/ExactEdits.h"
#include "document/ShapeWalk.h"

#include "fit/OutlineFit.h"
#include "geometry/Tolerances.h"
#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "text/ShapeText.h"

#include <QTransform>

#include <algorithm>
#include <cmath>

using namespace capi;
using namespace shapedocument;

namespace capi {

namespace {

/// Calls edit with the shape. Throws Refusal where it may not be edited.
template <class Edit>
sm_status EditShape(sm_shape shape, const Edit& edit)
{
    return Enter([&] {
        const ShapeUse use(shape);
        ExpectEditable(use);
        edit(*use);
        FinishEdit(use);
    });
}

void ExpectDone(bool done)
{
    Expect(done, SM_REFUSED, "the shape does not take that");
}

/// Warns of texts that are not resized: a group scaled by different factors in x and y leaves them unchanged.
void WarnOfTextsThatStay(CShape& shape, const QRectF& from, const QRectF& target)
{
    constexpr double kEqualScales = 0.001;
    CShapeList* members = MembersOf(shape);
    if (!members || from.width() <= 0 || from.height() <= 0)
        return;
    size_t texts = 0;
    ForEachShape(*members, [&](CShape& member, int) { texts += member.GetShapeType() == ESHAPE_TEXT; });
    const double difference = target.width() / from.width() - target.height() / from.height();
    if (texts > 0 && std::abs(difference) > kEqualScales)
        Warn(QString("%1 x text is not resized: the sides change by different factors").arg(texts));
}

/// Shapes are not scaled along sides of kCoincident or less: such a side may be 0 in the target, where it stays, and no
/// other side may become as short. Throws Refusal.
void ExpectSide(double own, double& side, const char* name)
{
    const bool isFlat = own <= shapes::kCoincident;
    if (isFlat && side == 0)
        side = shapes::kCoincident;
    else if (isFlat && side > shapes::kCoincident)
        Warn(QString("the shape has no %1 to resize").arg(name));
    else
        Expect(side > shapes::kCoincident, SM_BAD_ARGUMENT, "a side of the rectangle is not above 0.000001 mm");
}

/// The target rectangle. Throws Refusal.
QRectF TargetOf(const sm_rect& target, const QRectF& own)
{
    sm_rect sides = target;
    ExpectSide(own.width(), sides.width, "width");
    ExpectSide(own.height(), sides.height, "height");
    capi::RectOf(sides);
    return {target.x, target.y, target.width, target.height};
}

sm_status MirrorShape(sm_shape shape, MirrorAxis axis, double position)
{
    return EditShape(shape, [=](CShape& edited) {
        capi::ExpectWithinReach(position, "the axis");
        QRectF rect = RectOf(edited);
        const QPointF centre = rect.center();
        rect.moveCenter(axis == MirrorAxis::Vertical ? QPointF(2 * position - centre.x(), centre.y())
                                                     : QPointF(centre.x(), 2 * position - centre.y()));
        capi::ExpectWithinReach(rect);
        Mirror(edited, axis, position);
    });
}

} // namespace

CShape& EntryAt(CShapeList& list, size_t index)
{
    Expect(index < list.GetCount(), SM_OUT_OF_RANGE, "the index is at or behind the count");
    CShape* shape = list.GetShape(static_cast<unsigned int>(index));
    Expect(shape != nullptr, SM_REFUSED, "there is no shape at that place");
    return *shape;
}

QRectF RectOf(CShape& shape)
{
    return shape.GetRect(dynamic_cast<CShapeImage*>(&shape) != nullptr);
}

void ExpectEditable(const ShapeUse& use)
{
    for (CShapeGroup* holder : use.Holders())
        Expect(holder->GetShapeType() != ESHAPE_ARRAY, SM_REFUSED,
               "the shape is a member of an array, whose cells are laid out for it as it is");
}

void FinishEdit(const ShapeUse& use)
{
    const auto update = [](CShape& shape) {
        if (dynamic_cast<CShapeImage*>(&shape))
            shape.UpdatePainterPath();
    };
    update(*use);
    if (CShapeList* members = MembersOf(*use))
        ForEachShape(*members, [&](CShape& shape, int) { update(shape); });
    for (auto holder = use.Holders().rbegin(); holder != use.Holders().rend(); ++holder)
        (*holder)->ResetPath();
}

void LeaveGroup(CShape& member)
{
    // SetGroup(false) clears the mark of selected shapes only.
    if (!member.IsGroup())
        return;
    const bool selected = member.CShape::IsSelect();
    if (!selected)
        member.CShape::Select(true);
    member.SetGroup(false);
    if (!selected)
        member.CShape::Select(false);
}

void ExpectWithinReach(const QRectF& rect)
{
    Expect(WithinReach(rect), SM_BAD_ARGUMENT, "the shape would go beyond a kilometre");
}

} // namespace capi

sm_status sm_shape_move(sm_shape shape, double dx, double dy)
{
    return EditShape(shape, [=](CShape& edited) {
        capi::ExpectWithinReach(dx, "dx");
        capi::ExpectWithinReach(dy, "dy");
        capi::ExpectWithinReach(capi::RectOf(edited).translated(dx, dy));
        edited.Offset(dx, dy); // result not checked: an array returns false for a distance of 0
    });
}

sm_status sm_shape_resize(sm_shape shape, sm_rect target)
{
    return EditShape(shape, [=](CShape& edited) {
        const QRectF before = capi::RectOf(edited);
        const QRectF rect = TargetOf(target, before);
        ExpectDone(edited.Resize(rect));
        WarnOfTextsThatStay(edited, before, rect);
    });
}

sm_status sm_shape_turn(sm_shape shape, double degrees, double x, double y)
{
    return EditShape(shape, [=](CShape& edited) {
        capi::ExpectWithinReach(degrees, "the angle");
        capi::ExpectWithinReach(x, "x");
        capi::ExpectWithinReach(y, "y");
        const QTransform turn = QTransform().translate(x, y).rotate(degrees).translate(-x, -y);
        capi::ExpectWithinReach(turn.mapRect(capi::RectOf(edited)));
        Turn(edited, degrees, {x, y});
    });
}

sm_status sm_shape_mirror_x(sm_shape shape, double axis)
{
    return MirrorShape(shape, MirrorAxis::Vertical, axis);
}

sm_status sm_shape_mirror_y(sm_shape shape, double axis)
{
    return MirrorShape(shape, MirrorAxis::Horizontal, axis);
}

sm_status sm_shape_fit(sm_shape vector, sm_progress progress, void* context, sm_fit_result* result)
{
    return Enter([=] {
        ExpectAnswerable(result);
        const ShapeUse use(vector);
        auto& outline = use.As<CShapeVector>();
        Expect(outline.GetShapeType() == ESHAPE_VECTOR, SM_WRONG_KIND, "the shape is no vector");
        ExpectEditable(use);
        Expect(IsFittingOn(), SM_UNAVAILABLE, "the curve-fitting plug-in is missing or switched off");
        Progress told(progress, context);
        const OutlineFit fit = FitOutline(outline, told.OfWork());
        FinishEdit(use);
        Answer(result, sm_fit_result{0, fit.outcome == FitOutcome::Fitted, fit.before, fit.after, fit.deviation});
    });
}

sm_status sm_shape_remove(sm_shape shape)
{
    return Enter([=] {
        const ShapeUse use(shape);
        Expect(!use.TheHome()->detached, SM_REFUSED, "the shape is in no document");
        Expect(use.Holders().empty(), SM_REFUSED, "the shape is a member of a group or array");
        const auto home = std::make_shared<Home>(true);
        home->list->AddTail(&*use);
        try {
            MoveHandles({{use.TheHome()}, home, {&*use}, 0, {}});
        } catch (...) {
            home->list->RemoveAll();
            throw;
        }
        use.TheHome()->list->Remove(&*use);
    });
}

sm_status sm_document_add(sm_document document, sm_shape shape, size_t index)
{
    return Enter([=] {
        Expect(document != 0, SM_BAD_HANDLE, "the handle stands for nothing");
        const ShapesUse use(&shape, 1, document);
        const ShapesUse::Shape& added = use.Shapes().front();
        Expect(added.home->detached && added.holders.empty(), SM_REFUSED, "the shape is not detached");
        CShapeList& list = *use.DocumentHome()->list;
        const size_t place = index == static_cast<size_t>(SM_END) ? list.GetCount() : index;
        Expect(place <= list.GetCount(), SM_OUT_OF_RANGE, "the index is behind the count");
        ExpectDone(list.Insert(added.shape, static_cast<unsigned int>(place)));
        try {
            MoveHandles({{added.home}, use.DocumentHome(), {added.shape}, 0, {}});
        } catch (...) {
            list.Remove(added.shape);
            throw;
        }
        added.home->list->RemoveAll();
    });
}
