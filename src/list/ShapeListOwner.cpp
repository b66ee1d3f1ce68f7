#include "list/ShapeListOwner.h"

void ShapeListDeleter::operator()(CShapeList* list) const
{
    list->DeletePaths();
    list->DeleteAll();
    CShapeList::Release(list);
}
