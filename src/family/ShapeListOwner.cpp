#include "list/ShapeListOwner.h"

#include "group/ShapeGroup.h"

namespace {

void FreePaths(CShapeList& list)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        if (!shape)
            continue;
        CShape::DeletePath(shape);
        if (auto* group = dynamic_cast<CShapeGroup*>(shape); group && group->GetShapeList())
            FreePaths(*group->GetShapeList());
    }
}

} // namespace

void ShapeListDeleter::operator()(CShapeList* list) const
{
    FreePaths(*list);
    list->DeleteAll();
    CShapeList::Release(list);
}
