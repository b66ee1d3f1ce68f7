#include "ShapeWalk.h"

#include "DocumentFile.h"

#include "group/ShapeArray.h"

namespace {

void Walk(CShapeList& list, int depth, const std::function<void(CShape& shape, int depth)>& visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        if (!shape)
            continue;
        visit(*shape, depth);
        if (CShapeList* members = MembersOf(*shape))
            Walk(*members, depth + 1, visit);
    }
}

} // namespace

CShapeList* MembersOf(CShape& shape)
{
    auto* group = dynamic_cast<CShapeGroup*>(&shape);
    return group ? group->GetShapeList() : nullptr;
}

void ForEachShape(CShapeList& list, const std::function<void(CShape& shape, int depth)>& visit)
{
    Walk(list, 0, visit);
}

void ForEachVisibleOutline(CShapeList& list, const std::function<void(CShape& shape)>& visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        if (!shape || shape->IsHide())
            continue;
        if (auto* array = dynamic_cast<CShapeArray*>(shape)) {
            const Document cells(array->GetAllShapeList());
            ForEachVisibleOutline(*cells, visit);
        } else if (CShapeList* members = MembersOf(*shape)) {
            ForEachVisibleOutline(*members, visit);
        } else {
            visit(*shape);
        }
    }
}
