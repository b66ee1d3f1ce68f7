/// Removal of shapes whose data has become unusable. Nothing is freed here: whoever still holds a shape owns it.
#include "host/ILog.h"
#include "list/ShapeList.h"
#include "list/ShapeWalk.h"

namespace {

constexpr int kNote = 1; ///< log level

void LogRemoval()
{
    ILog_WriteLogF(kNote, "图元链表_移除无效图元");
}

} // namespace

void CShapeList::RemoveInvalidShapeItem()
{
    shapes::TakeOutBackToFront(m_listShapes, [](CShape* shape) {
        switch (shape->GetShapeType()) {
        case ESHAPE_TEXT:
            return false;
        default:
            if (shape->IsValid())
                return false;
            LogRemoval();
            return true;
        }
    });
}

void CShapeList::RemoveInvalidShapeItem(CShapeGroup*) {}
