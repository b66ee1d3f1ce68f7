/// Properties of every shape: kind, place, rectangle, colour, state, leads.
#include "Arguments.h"
#include "Clones.h"
#include "Edits.h"
#include "Entry.h"
#include "Progress.h"
#include "Structs.h"
#include "document/ShapeWalk.h"

#include "group/ShapeGroup.h"
#include "list/ShapeList.h"

using namespace capi;
using namespace shapedocument;

namespace {

constexpr uint32_t kStates = SM_STATE_SELECTED | SM_STATE_LOCKED | SM_STATE_HIDDEN;

/// Throws Refusal for groups and arrays: only their members have leads.
void ExpectLeads(CShape& shape)
{
    Expect(!dynamic_cast<CShapeGroup*>(&shape), SM_WRONG_KIND, "leads belong to the members");
}

} // namespace

sm_status sm_shape_type(sm_shape shape, int32_t* type)
{
    return Enter([=] {
        Clear(type, "type");
        *type = ShapeUse(shape)->GetShapeType();
    });
}

sm_status sm_shape_document(sm_shape shape, sm_document* document)
{
    return Enter([=] {
        Clear(document, "document");
        const ShapeUse use(shape);
        if (!use.TheHome()->detached)
            *document = HandleOf(use.TheHome());
    });
}

sm_status sm_shape_index(sm_shape shape, size_t* index)
{
    return Enter([=] {
        Clear(index, "index");
        const ShapeUse use(shape);
        Expect(!use.TheHome()->detached && use.Holders().empty(), SM_REFUSED,
               "the shape is a member or in no document");
        *index = static_cast<size_t>(use.TheHome()->list->FindShape(&*use));
    });
}

sm_status sm_shape_rect(sm_shape shape, sm_rect* rect)
{
    return Enter([=] {
        Clear(rect, "rect");
        *rect = RectOf(RectOf(*ShapeUse(shape)));
    });
}

sm_status sm_shape_color(sm_shape shape, uint32_t* color)
{
    return Enter([=] {
        Clear(color, "color");
        *color = ShapeUse(shape)->GetColor();
    });
}

sm_status sm_shape_set_color(sm_shape shape, uint32_t color)
{
    return Enter([=] {
        Expect(color <= 0xFFFFFFU, SM_BAD_ARGUMENT, "the colour is beyond 0xFFFFFF");
        const ShapeUse use(shape);
        use->SetColor(color);
        // SetColor of an array does not change its members, whose lines it shows
        if (CShapeList* members = MembersOf(*use))
            ForEachShape(*members, [=](CShape& member, int) { member.SetColor(color); });
    });
}

sm_status sm_shape_state(sm_shape shape, uint32_t* state)
{
    return Enter([=] {
        Clear(state, "state");
        const ShapeUse use(shape);
        for (const auto& [isSet, bit] :
             {std::pair(use->IsSelect(), SM_STATE_SELECTED), std::pair(use->IsLock(), SM_STATE_LOCKED),
              std::pair(use->IsHide(), SM_STATE_HIDDEN)})
            if (isSet)
                *state |= static_cast<uint32_t>(bit);
    });
}

sm_status sm_shape_set_state(sm_shape shape, uint32_t state)
{
    return Enter([=] {
        Expect((state & ~kStates) == 0, SM_BAD_ARGUMENT, "the state has bits that mean nothing");
        const ShapeUse use(shape);
        use->Select((state & SM_STATE_SELECTED) != 0);
        use->Lock((state & SM_STATE_LOCKED) != 0);
        use->Hide((state & SM_STATE_HIDDEN) != 0);
    });
}

sm_status sm_leads_defaults(sm_leads* leads, size_t size)
{
    return Enter([=] { Fill(leads, size, sm_leads{}); });
}

sm_status sm_shape_leads(sm_shape shape, sm_leads* leads)
{
    return Enter([=] {
        ExpectAnswerable(leads);
        const ShapeUse use(shape);
        ExpectLeads(*use);
        const SGuideLine line = use->GetGuideLine();
        Answer(leads,
               sm_leads{0, line.nMode == 1, line.bInLine ? line.dInLength : 0, line.bOutLine ? line.dOutLength : 0});
    });
}

sm_status sm_shape_set_leads(sm_shape shape, const sm_leads* leads)
{
    return Enter([=] {
        ExpectGiven(leads, "leads");
        constexpr double kLongestLead = 1000; // mm
        const sm_leads taken = WithDefaults(leads, sm_leads{});
        ExpectBetween(taken.in_length, 0, kLongestLead, "in_length");
        ExpectBetween(taken.out_length, 0, kLongestLead, "out_length");
        const ShapeUse use(shape);
        ExpectLeads(*use);
        SGuideLine line = use->GetGuideLine();
        line.nMode = taken.as_open != 0;
        line.bInLine = taken.in_length > 0;
        line.dInLength = taken.in_length;
        line.bOutLine = taken.out_length > 0;
        line.dOutLength = taken.out_length;
        use->SetGuideLine(line);
    });
}

sm_status sm_shape_clone(sm_shape shape, sm_progress progress, void* context, sm_shape* clone)
{
    return Enter([=] {
        Clear(clone, "clone");
        Progress told(progress, context);
        std::unique_ptr<CShape> copy = CloneOf(*ShapeUse(shape), told);
        LeaveGroup(*copy);
        *clone = Detached(std::move(copy));
    });
}
