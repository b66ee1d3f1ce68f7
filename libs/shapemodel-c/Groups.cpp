/// Groups and arrays: making, dissolving, and their members and cells.
#include "Arguments.h"
#include "Edits.h"
#include "Entry.h"
#include "Structs.h"
#include "document/ShapeWalk.h"

#include "group/CellLimit.h"
#include "group/ShapeArray.h"
#include "list/ShapeListView.h"

#include <algorithm>
#include <limits>

using namespace capi;
using namespace shapedocument;

namespace {

using Shapes = std::vector<ShapesUse::Shape>;

/// Throws Refusal.
void ExpectBindable(const Shapes& shapes)
{
    Expect(!shapes.empty(), SM_BAD_ARGUMENT, "there is no shape to bind");
    const ShapeListView members;
    for (const ShapesUse::Shape& shape : shapes) {
        Expect(shape.holders.empty(), SM_REFUSED, "a shape is a member already");
        const bool together = shape.home->detached ? shapes.front().home->detached : shape.home == shapes.front().home;
        Expect(together, SM_REFUSED, "the shapes are not all of one document, or not all detached");
        members.List().AddTail(shape.shape);
    }
    Expect(GroupLevels(members.List()) < kMostGroupLevels, SM_REFUSED, "groups would be nested too deep");
}

/// A new group or array that does not own its members yet, so that they stay in place when something throws.
class Binding
{
public:
    explicit Binding(std::unique_ptr<CShapeGroup> group) : m_group(std::move(group)) {}
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;
    ~Binding()
    {
        if (m_group)
            m_group->GetShapeList()->RemoveAll();
        CShape::DeletePath(m_group.get()); // otherwise an empty path would leak
    }

    CShapeGroup& Group() const { return *m_group; }
    void Keep() { static_cast<void>(m_group.release()); }

private:
    std::unique_ptr<CShapeGroup> m_group;
};

/// Replaces shapes of a list by one shape, in the place of the first of them.
void Replace(CShapeList& list, const Shapes& shapes, CShape& by)
{
    std::unordered_set<CShape*> replaced;
    for (const ShapesUse::Shape& shape : shapes)
        replaced.insert(shape.shape);
    const ShapeListView kept;
    bool isIn = false;
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        if (replaced.count(shape) == 0)
            kept.List().AddTail(shape);
        else if (!std::exchange(isIn, true))
            kept.List().AddTail(&by);
    }
    list = kept.List();
}

Move MoveOf(const Shapes& shapes, const std::shared_ptr<Home>& to, CShapeGroup& group)
{
    Move move{{}, to, {}, 0, {&group}};
    for (const ShapesUse::Shape& shape : shapes) {
        move.shapes.insert(shape.shape);
        if (move.from.empty() || move.from.back() != shape.home)
            move.from.push_back(shape.home);
    }
    return move;
}

/// Puts the group in the place of its members. Returns its handle. When it throws nothing is changed.
sm_shape ReplaceMembers(Binding& binding, const Shapes& shapes)
{
    CShapeGroup& group = binding.Group();
    const bool detached = shapes.front().home->detached;
    const auto home = detached ? std::make_shared<Home>(true) : shapes.front().home;
    const ShapeListView before;
    before.List() = *home->list;
    const sm_shape handle = HandleOf(home, group);
    try {
        if (detached)
            home->list->AddTail(&group);
        else
            Replace(*home->list, shapes, group);
        MoveHandles(MoveOf(shapes, home, group));
    } catch (...) {
        *home->list = before.List();
        DropHandle(home, group);
        throw;
    }
    binding.Keep();
    if (detached)
        for (const ShapesUse::Shape& shape : shapes)
            shape.home->list->RemoveAll();
    return handle;
}

sm_array_options DefaultArray()
{
    return {sizeof(sm_array_options), 1, 1, 0, 0, 0, 0};
}

sm_array_options ArrayOf(const sm_array_options* given)
{
    sm_array_options options = WithDefaults(given, DefaultArray());
    Expect(options.rows >= 1 && options.columns >= 1 && int64_t{options.rows} * options.columns <= shapes::kMostCells,
           SM_BAD_ARGUMENT, "an array has 1 to 10 million cells");
    for (const double length : {options.column_gap, options.row_gap, options.row_shift, options.column_shift})
        capi::ExpectWithinReach(length, "a gap or shift");
    return options;
}

CShapeArray& CellsOf(const ShapeUse& use, size_t index)
{
    auto& array = use.As<CShapeArray>();
    Expect(index < static_cast<size_t>(array.GetShapeArrayInfo().size()), SM_OUT_OF_RANGE, "there is no such cell");
    return array;
}

} // namespace

sm_status sm_group_new(const sm_shape* shapes, size_t count, sm_shape* group)
{
    return Enter([=] {
        Clear(group, "group");
        ExpectGiven(shapes, "shapes");
        const ShapesUse use(shapes, count);
        ExpectBindable(use.Shapes());
        Binding binding(std::make_unique<CShapeGroup>());
        for (const ShapesUse::Shape& shape : use.Shapes())
            binding.Group().GetShapeList()->AddTail(shape.shape);
        binding.Group().ResetPath();
        // Before other threads can work on the group: a group of detached shapes gets a new home.
        for (const ShapesUse::Shape& shape : use.Shapes())
            shape.shape->SetGroup(true);
        try {
            *group = ReplaceMembers(binding, use.Shapes());
        } catch (...) {
            for (const ShapesUse::Shape& shape : use.Shapes())
                LeaveGroup(*shape.shape);
            throw;
        }
    });
}

sm_status sm_group_dissolve(sm_shape group)
{
    return Enter([=] {
        const ShapeUse use(group);
        Expect(use->GetShapeType() == ESHAPE_GROUP, SM_WRONG_KIND, "the shape is no group");
        Expect(!use.TheHome()->detached && use.Holders().empty(), SM_REFUSED,
               "the group is a member or in no document");
        auto& dissolved = use.As<CShapeGroup>();
        CShapeList& members = *dissolved.GetShapeList();
        CShapeList& list = *use.TheHome()->list;
        Move move{{use.TheHome()}, use.TheHome(), {}, 1, {}};
        const ShapeListView kept, before;
        before.List() = list;
        for (unsigned int i = 0; i < list.GetCount(); ++i)
            if (list.GetShape(i) == &dissolved)
                kept.List().AddTail(members);
            else
                kept.List().AddTail(list.GetShape(i));
        for (unsigned int i = 0; i < members.GetCount(); ++i)
            move.shapes.insert(members.GetShape(i));
        list = kept.List();
        try {
            MoveHandles(move);
        } catch (...) {
            list = before.List();
            throw;
        }
        DropHandle(use.TheHome(), dissolved);
        for (unsigned int i = 0; i < members.GetCount(); ++i) {
            LeaveGroup(*members.GetShape(i));
            if (dissolved.IsHide())
                members.GetShape(i)->Hide(true); // members of a hidden group stay hidden, and so out of jobs
        }
        members.RemoveAll();
        CShape::DeletePath(&dissolved);
        CShape::Release(&dissolved);
    });
}

sm_status sm_array_options_defaults(sm_array_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, DefaultArray()); });
}

sm_status sm_array_new(const sm_shape* shapes, size_t count, const sm_array_options* options, sm_shape* array)
{
    return Enter([=] {
        Clear(array, "array");
        ExpectGiven(shapes, "shapes");
        const sm_array_options wanted = ArrayOf(options);
        const ShapesUse use(shapes, count);
        ExpectBindable(use.Shapes());
        const ShapeListView members;
        for (const ShapesUse::Shape& shape : use.Shapes())
            members.List().AddTail(shape.shape);
        auto made = std::make_unique<CShapeArray>();
        CShapeArray& cells = *made;
        Binding binding(std::move(made));
        cells.SetShapeList(&members.List());
        cells.SetArrayInfo(wanted.rows, wanted.columns, wanted.column_gap, wanted.row_gap, wanted.row_shift,
                           wanted.column_shift);
        Expect(cells.GetShapeArrayInfo().size() == qsizetype{wanted.rows} * wanted.columns, SM_REFUSED,
               "the array does not take as many cells");
        ExpectWithinReach(cells.GetAllRect());
        *array = ReplaceMembers(binding, use.Shapes());
    });
}

sm_status sm_shape_member_count(sm_shape shape, size_t* count)
{
    return Enter([=] {
        Clear(count, "count");
        const ShapeUse use(shape);
        CShapeList* members = MembersOf(*use);
        *count = members ? members->GetCount() : 0;
    });
}

sm_status sm_shape_member(sm_shape shape, size_t index, sm_shape* member)
{
    return Enter([=] {
        Clear(member, "member");
        const ShapeUse use(shape);
        auto& group = use.As<CShapeGroup>();
        std::vector<CShapeGroup*> holders = use.Holders();
        holders.push_back(&group);
        *member = HandleOf(use.TheHome(), EntryAt(*group.GetShapeList(), index), std::move(holders));
    });
}

sm_status sm_array_cell_count(sm_shape array, size_t* count)
{
    return Enter([=] {
        Clear(count, "count");
        *count = static_cast<size_t>(ShapeUse(array).As<CShapeArray>().GetShapeArrayInfo().size());
    });
}

sm_status sm_array_cell(sm_shape array, size_t index, sm_cell* cell)
{
    return Enter([=] {
        ExpectAnswerable(cell);
        const ShapeUse use(array);
        CShapeArray& cells = CellsOf(use, index);
        const auto place = static_cast<int>(index);
        Answer(cell, sm_cell{0, cells.GetShapeArrayInfo().at(place).bValid != 0, RectOf(cells.GetRect(place))});
    });
}

sm_status sm_array_delete_cell(sm_shape array, size_t index)
{
    return Enter([=] {
        const ShapeUse use(array);
        CShapeArray& cells = CellsOf(use, index);
        ExpectEditable(use);
        cells.SetInvalid(static_cast<int>(index));
        FinishEdit(use);
    });
}
