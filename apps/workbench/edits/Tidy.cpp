#include "edits/Tidy.h"

#include "document/ListEntries.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Translated.h"

#include "document/FillMarker.h"
#include "document/ShapeWalk.h"
#include "fit/OutlineFit.h"
#include "group/ShapeArray.h"
#include "list/ShapeListView.h"
#include "list/ShapeOwner.h"
#include "shape/ShapeCast.h"
#include "vector/ShapeVector.h"

#include <unordered_set>

namespace {

template <class Test>
std::vector<CShape*> Those(WorkDocument& document, Test test)
{
    std::vector<CShape*> shapes = EntriesOf(document.Shapes());
    std::erase_if(shapes, [&](CShape* shape) { return !test(*shape); });
    return shapes;
}

/// Changes the outlines of all selected vectors, members of groups included.
bool ChangeOutlines(WorkDocument& document, const QString& name, const std::function<bool(CShapeVector&)>& edit)
{
    return document.Change(name, document.Selection(), [&](CShape& shape) {
        bool changed = false;
        const auto visit = [&](CShape& part, int) {
            if (auto* vector = shapes::ShapeCast<CShapeVector>(&part, ESHAPE_VECTOR))
                changed = edit(*vector) || changed;
        };
        visit(shape, 0);
        if (CShapeList* members = shapedocument::MembersOf(shape))
            shapedocument::ForEachShape(*members, visit);
        return changed;
    });
}

/// The members at all levels, each with its group.
std::vector<std::pair<CShape*, CShape*>> MembersWithHolders(CShape& holder)
{
    std::vector<std::pair<CShape*, CShape*>> members;
    CShapeList* own = shapedocument::MembersOf(holder);
    for (unsigned int i = 0; own && i < own->GetCount(); ++i) {
        members.emplace_back(own->GetShape(i), &holder);
        for (const auto& inner : MembersWithHolders(*own->GetShape(i)))
            members.push_back(inner);
    }
    return members;
}

/// Removes unusable members at all levels from this copy of a group. @return their number
int CleanGroup(CShapeList& view, CShapeGroup& group)
{
    const auto before = MembersWithHolders(group);
    view.RemoveInvalidShapeItem(&group);
    std::unordered_set<CShape*> kept{&group};
    for (const auto& [member, holder] : MembersWithHolders(group))
        kept.insert(member);
    int removed = 0;
    for (const auto& [member, holder] : before) {
        if (kept.contains(member) || !kept.contains(holder))
            continue; // freed with the removed group that holds it
        ShapeOwner(member).reset();
        ++removed;
    }
    if (removed > 0)
        group.ResetPath();
    return removed;
}

} // namespace

bool LockSelection(WorkDocument& document)
{
    return document.Change(Edits::tr("Lock"), document.Selection(), [](CShape& shape) {
        shape.Lock(true);
        return true;
    });
}

bool UnlockAll(WorkDocument& document)
{
    const auto locked = Those(document, [](CShape& shape) { return shape.IsLock(); });
    return document.Change(Edits::tr("Unlock All"), locked, [](CShape& shape) {
        shape.Lock(false);
        return true;
    });
}

bool HideSelection(WorkDocument& document)
{
    return document.Change(Edits::tr("Hide"), document.Selection(), [](CShape& shape) {
        shape.Hide(true);
        return true;
    });
}

bool ShowAll(WorkDocument& document)
{
    const auto hidden = Those(document, [](CShape& shape) { return shape.IsHide(); });
    return document.Change(Edits::tr("Show All"), hidden, [](CShape& shape) {
        shape.Hide(false);
        return true;
    });
}

bool FillOutline(CShapeVector& vector)
{
    constexpr int kLeastPoints = 3;
    if (vector.IsFilled() || vector.GetPath(false)->elementCount() < kLeastPoints)
        return false;
    vector.Close(0, true);
    const bool marked = vector.IsFilled() || shapedocument::MarkAsFilled(vector);
    CShape::DeletePath(&vector);
    return marked;
}

bool CloseSelection(WorkDocument& document, bool fill)
{
    constexpr double kAnyGap = 1e6; // mm: closes the outlines however far apart their ends lie
    const bool changed =
        ChangeOutlines(document, fill ? Edits::tr("Fill") : Edits::tr("Close Outlines"), [&](CShapeVector& vector) {
            if (fill ? vector.IsFilled() : vector.IsClose())
                return false;
            if (fill || vector.GetVectorType() == EVECTOR_ELLIPSE || vector.GetVectorType() == EVECTOR_BEZIER_CHAIN)
                vector.ConvertPainterPathToLocalShapePoints(*vector.GetPath(false));
            return fill ? FillOutline(vector) : vector.Close(kAnyGap, false);
        });
    if (fill && !changed)
        document.Ask().Tell(
            Edits::tr("No selected outline could be filled: each is filled already or has fewer than three points."));
    return changed;
}

bool UnfillSelection(WorkDocument& document)
{
    return ChangeOutlines(document, Edits::tr("Unfill"), [](CShapeVector& vector) {
        if (!vector.IsFilled())
            return false;
        vector.ProcessFilledShape(); // the marker becomes a straight point, so the outline stays closed
        CShape::DeletePath(&vector);
        return true;
    });
}

bool FitCurves(WorkDocument& document)
{
    if (!shapedocument::IsFittingOn()) {
        document.Ask().Complain(Edits::tr("Curves cannot be fitted: the plug-in is not installed, or switched off."));
        return false;
    }
    size_t before = 0, after = 0;
    int fitted = 0;
    ChangeOutlines(document, Edits::tr("Fit Curves"), [&](CShapeVector& vector) {
        const shapedocument::OutlineFit fit = shapedocument::FitOutline(vector);
        if (fit.outcome != shapedocument::FitOutcome::Fitted)
            return false;
        ++fitted;
        before += fit.before;
        after += fit.after;
        return true;
    });
    document.Ask().Tell(
        fitted == 0 ? Edits::tr("No selected outline has fewer points as curves.")
                    : Edits::tr("%n outlines fitted: %1 points became %2.", nullptr, fitted).arg(before).arg(after));
    return fitted > 0;
}

bool CleanUp(WorkDocument& document)
{
    const QString name = Edits::tr("Clean Up");
    const ShapeListView view(Those(document, [](CShape& shape) { return !shapedocument::MembersOf(shape); }));
    std::vector<CShape*> before = EntriesOf(view.List());
    view.List().RemoveInvalidShapeItem();
    const std::vector<CShape*> usable = EntriesOf(view.List());
    const std::unordered_set<CShape*> kept(usable.begin(), usable.end());
    std::erase_if(before, [&](CShape* shape) { return kept.contains(shape); });
    int removed = static_cast<int>(before.size());
    const bool several = !before.empty(); // otherwise there is at most one command, and an empty macro would be one
    if (several) {
        document.Undo().beginMacro(name);
        document.Remove(name, before);
    }
    document.Change(name, EntriesOf(document.Shapes()), [&](CShape& shape) {
        auto* group = dynamic_cast<CShapeGroup*>(&shape);
        const int members = group ? CleanGroup(view.List(), *group) : 0;
        removed += members;
        return members > 0;
    });
    if (several)
        document.Undo().endMacro();
    document.Ask().Tell(removed == 0 ? Edits::tr("Every shape can be used.")
                                     : Edits::tr("%n unusable shapes removed.", nullptr, removed));
    return removed > 0;
}
