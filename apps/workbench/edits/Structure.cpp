#include "edits/Structure.h"

#include "document/ListEntries.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Attempt.h"
#include "edits/Translated.h"

#include "document/Failure.h"
#include "document/ShapeWalk.h"
#include "group/ShapeArray.h"
#include "list/ShapeOwner.h"
#include "shape/ShapeCast.h"

#include <algorithm>

using shapedocument::Failure;

namespace {

/// Copies of the selected shapes in drawing order, for a group or array. Throws Failure where they cannot be nested.
ShapeListOwner CopiesToNest(WorkDocument& document)
{
    ShapeListOwner copies = NewShapeList();
    for (CShape* shape : document.InOrder(document.Selection()))
        copies->AddTail(shape->Clone());
    shapedocument::ExpectNestable(*copies, document.Title());
    return copies;
}

/// Clears the group bit; the library does so only for selected shapes.
void ClearGroupBit(CShape& shape)
{
    if (!shape.IsGroup())
        return;
    shape.Select(true);
    shape.SetGroup(false);
    shape.Select(false);
}

std::vector<CShape*> PartsOf(CShape& shape)
{
    if (auto* array = shapes::ShapeCast<CShapeArray>(&shape, ESHAPE_ARRAY)) {
        const ShapeListOwner all(array->GetAllShapeList());
        return TakenFrom(*all);
    }
    const ShapeOwner copy(shape.Clone());
    return TakenFrom(*static_cast<CShapeGroup&>(*copy).GetShapeList());
}

} // namespace

bool GroupSelection(WorkDocument& document)
{
    return !document.Selection().empty() && Attempt(document, [&] {
        const ShapeListOwner copies = CopiesToNest(document);
        auto group = std::make_unique<CShapeGroup>();
        for (CShape* member : TakenFrom(*copies)) {
            member->SetGroup(true);
            group->GetShapeList()->AddTail(member);
        }
        group->ResetPath();
        return document.Replace(Edits::tr("Group"), document.Selection(), {group.release()});
    });
}

bool UngroupSelection(WorkDocument& document)
{
    std::vector<CShape*> holders, parts;
    for (CShape* shape : document.InOrder(document.Selection())) {
        if (!shapedocument::MembersOf(*shape))
            continue;
        const std::vector<CShape*> own = PartsOf(*shape);
        if (own.empty() && shape->GetShapeType() == ESHAPE_ARRAY) {
            document.Ask().Complain(
                Edits::tr("The array stays: its cells hold nothing, or more shapes than memory takes."));
            continue;
        }
        holders.push_back(shape);
        parts.insert(parts.end(), own.begin(), own.end());
    }
    if (holders.empty())
        return false;
    for (CShape* part : parts)
        ClearGroupBit(*part);
    return document.Replace(Edits::tr("Ungroup"), holders, parts);
}

bool ArraySelection(WorkDocument& document, const ArrayGrid& grid)
{
    return !document.Selection().empty() && Attempt(document, [&] {
        const ShapeListOwner copies = CopiesToNest(document);
        ShapeOwner made(CShape::NewShape(ESHAPE_ARRAY));
        auto& array = static_cast<CShapeArray&>(*made);
        array.SetShapeList(copies.get());
        copies->RemoveAll(); // the array owns them now
        if (!LayOut(array, grid))
            throw Failure{Edits::tr("Array"), Edits::tr("has too many cells, or goes beyond a kilometre")};
        return document.Replace(Edits::tr("Array"), document.Selection(), {made.release()});
    });
}

bool ChangeArrays(WorkDocument& document, const ArrayGrid& grid, const std::vector<int>& leftOut)
{
    bool refused = false;
    const bool changed = document.Change(Edits::tr("Array"), document.Selection(), [&](CShape& shape) {
        auto* array = shapes::ShapeCast<CShapeArray>(&shape, ESHAPE_ARRAY);
        if (!array)
            return false;
        const bool possible = LayOut(*array, grid);
        for (const int cell : leftOut)
            array->SetInvalid(cell);
        refused = refused || !possible || array->GetCount() == 0;
        return possible && array->GetCount() > 0;
    });
    if (refused)
        document.Ask().Complain(Edits::tr("The array stays: it needs a cell, and no more cells than memory takes, none "
                                          "of them beyond a kilometre."));
    return changed;
}

bool DeleteSelectedCells(WorkDocument& document)
{
    return document.Change(Edits::tr("Delete Cells"), document.Selection(), [](CShape& shape) {
        auto* array = shapes::ShapeCast<CShapeArray>(&shape, ESHAPE_ARRAY);
        if (!array || array->GetSelectCount() == 0 || array->GetSelectCount() == array->GetCount())
            return false; // an array without cells would show nothing: the array is deleted instead
        array->DeleteSelect();
        array->SelectAll(false);
        return true;
    });
}

bool OrderSelection(WorkDocument& document, Order order)
{
    std::vector<CShape*> shapes = EntriesOf(document.Shapes());
    const auto selected = [&](CShape* shape) { return document.IsSelected(shape); };
    const auto other = [&](CShape* shape) { return !document.IsSelected(shape); };
    if (order == Order::Front)
        std::stable_partition(shapes.begin(), shapes.end(), other);
    if (order == Order::Back)
        std::stable_partition(shapes.begin(), shapes.end(), selected);
    if (order == Order::Forward)
        for (size_t i = shapes.size(); i-- > 1;)
            if (selected(shapes[i - 1]) && other(shapes[i]))
                std::swap(shapes[i - 1], shapes[i]);
    if (order == Order::Backward)
        for (size_t i = 1; i < shapes.size(); ++i)
            if (selected(shapes[i]) && other(shapes[i - 1]))
                std::swap(shapes[i - 1], shapes[i]);
    return document.Reorder(Edits::tr("Order"), shapes);
}
