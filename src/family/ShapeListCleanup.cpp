/// Removal of shapes whose data has become unusable. Nothing is freed: the shapes pass to the caller.
#include "group/ShapeArray.h"
#include "host/ILog.h"
#include "image/ShapeImage.h"
#include "list/ShapeList.h"
#include "list/ShapeWalk.h"
#include "shape/ShapeCast.h"

using shapes::ShapeCast;

namespace {

enum class Logging
{
    Loud,
    Silent
};

/// Every shape is judged by its points, except texts, whose outline is made from their parameters.
bool IsBroken(CShape* shape, Logging logging)
{
    if (shape->GetShapeType() == ESHAPE_TEXT || shape->IsValid())
        return false;
    if (logging == Logging::Loud)
        ILog_WriteLogF(ELOG_NOTE, "图元链表_移除无效图元");
    return true;
}

bool IsEmptyArray(CShapeArray* array)
{
    if (array->GetCount() > 0)
        return false;
    ILog_WriteLogF(ELOG_NOTE, "图元链表_移除无效图元,数组数据已经无效");
    return true;
}

bool IsEmptyImage(CShapeImage* image)
{
    if (!image->GetImage(false).empty())
        return false;
    ILog_WriteLogF(ELOG_NOTE, "图元链表_移除无效图元,图片数据已经无效");
    return true;
}

} // namespace

void CShapeList::RemoveInvalidShapeItem()
{
    shapes::RemoveBackToFront(m_listShapes, [this](CShape* shape) {
        if (auto* group = ShapeCast<CShapeGroup>(shape, ESHAPE_GROUP)) {
            RemoveInvalidShapeItem(group);
            return false;
        }
        if (auto* array = ShapeCast<CShapeArray>(shape, ESHAPE_ARRAY))
            return IsEmptyArray(array);
        if (auto* image = ShapeCast<CShapeImage>(shape, ESHAPE_IMAGE))
            return IsEmptyImage(image);
        return IsBroken(shape, Logging::Loud);
    });
}

/// Members are judged otherwise than the list's own shapes: arrays by their points, and only images with a log line.
void CShapeList::RemoveInvalidShapeItem(CShapeGroup* group)
{
    if (!group)
        return;
    shapes::RemoveBackToFront(group->GetShapeList()->m_listShapes, [this](CShape* shape) {
        if (auto* inner = ShapeCast<CShapeGroup>(shape, ESHAPE_GROUP)) {
            RemoveInvalidShapeItem(inner);
            return false;
        }
        if (auto* image = ShapeCast<CShapeImage>(shape, ESHAPE_IMAGE))
            return IsEmptyImage(image);
        return IsBroken(shape, Logging::Silent);
    });
}
