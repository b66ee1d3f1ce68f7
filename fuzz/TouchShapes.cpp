#include "TouchShapes.h"

#include "MemoryFile.h"

#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "list/ShapeListOwner.h"
#include "text/ShapeText.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace fuzz {

namespace {

constexpr int kShapesToChange = 16;     ///< few: copies of groups copy all their members
constexpr int kCellsToFill = 1'000;     ///< most cells times members that an array has to make
constexpr size_t kLettersToChange = 32; ///< longest text that is laid out again and again
constexpr double kTolerance = 0.01;

void AskArray(CShapeArray& array)
{
    array.GetAllRect();
    array.GetCount();
    array.GetHitIndex(array.GetAllRect().center(), 0);
    array.SelectByRect(array.GetAllRect(), true);
    array.GetSelectRect();
    const qsizetype cells = array.GetShapeArrayInfo().size();
    if (cells * array.GetShapeList()->GetCount() <= kCellsToFill)
        const ShapeListOwner filled(array.GetAllShapeList());
}

void AskImage(CShapeImage& image)
{
    image.GetImage(false);
    image.GetImage(true);
    image.GetOrgImage(false);
    image.GetImageRect();
    image.GetOriginalPixelSize();
    image.GetShapeImagePath();
}

void Ask(CShape& shape)
{
    const QRectF rect = shape.GetRect(false);
    int reach = 2;
    shape.GetPath(false);
    shape.GetPathUI(0.5);
    shape.GetRectUI(0.5);
    shape.Flatten(kTolerance);
    shape.Hit(rect.topLeft(), reach);
    shape.Contains(rect.center(), 1);
    shape.IsClose();
    shape.IsValid();
    QPointF in, out;
    shape.GetInAndOutPoint(in, out);
    if (auto* array = dynamic_cast<CShapeArray*>(&shape))
        AskArray(*array);
    if (auto* image = dynamic_cast<CShapeImage*>(&shape))
        AskImage(*image);
    if (auto* vector = dynamic_cast<CShapeVector*>(&shape)) {
        QPointF guide[4];
        vector->GetGuideLinePoints(guide);
    }
}

void Change(CShape& shape)
{
    shape.Offset(1.5, -2.5);
    shape.Rotate(30, QPointF(3, 4), Qt::ZAxis);
    shape.RotateLeft(QPointF(1, 2));
    shape.MirrorX(5);
    shape.MirrorY(-5);
    shape.MirrorAttachLine(7, true);
    shape.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, 2), true);
    shape.Resize(QRectF(0, 0, 30, 20));
    shape.ReverseDir();
    shape.Close(kTolerance, true);
    shape.IsFilled();
    shape.ProcessFilledShape();
    shape.RestoreFilledShape();
    shape.SetGuideLine({1, 1, 2.0, 1, 3.0});
    shape.UpdatePainterPath();
    Ask(shape);
}

void CollectLists(CShapeList& list, std::vector<CShapeList*>& lists)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        if (auto* group = dynamic_cast<CShapeGroup*>(list.GetShape(i)))
            CollectLists(*group->GetShapeList(), lists);
    lists.push_back(&list);
}

/// As a host does after a drag: it owns the shapes' temporary paths.
void EndDrag(CShapeList& list)
{
    std::vector<CShapeList*> lists;
    CollectLists(list, lists);
    for (CShapeList* members : lists)
        for (unsigned int i = 0; i < members->GetCount(); ++i)
            members->GetShape(i)->ExitPathTmp();
}

bool IsLongText(CShape& shape)
{
    auto* text = dynamic_cast<CShapeText*>(&shape);
    return text && std::strlen(text->GetTextP()->pText) > kLettersToChange;
}

void TouchMembers(CShapeList& list, int& left)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape& shape = *list.GetShape(i);
        Ask(shape);
        if (IsLongText(shape))
            continue;
        if (left-- > 0) {
            const ShapeListOwner copy(CShapeList::New());
            copy->AddTail(shape.Clone());
            Change(*copy->GetShape(0));
            EndDrag(*copy);
            copy->GetShape(0)->Copy(&shape);
        }
        if (auto* group = dynamic_cast<CShapeGroup*>(&shape))
            TouchMembers(*group->GetShapeList(), left);
    }
}

/// The list does not free the shapes that it takes out.
void RemoveInvalid(CShapeList& list)
{
    std::vector<CShapeList*> lists; // inner lists before outer ones
    CollectLists(list, lists);
    std::vector<std::vector<CShape*>> before(lists.size());
    for (size_t i = 0; i < lists.size(); ++i)
        for (unsigned int k = 0; k < lists[i]->GetCount(); ++k)
            before[i].push_back(lists[i]->GetShape(k));
    list.RemoveInvalidShapeItem();
    for (size_t i = 0; i < lists.size(); ++i)
        for (CShape* shape : before[i])
            if (lists[i]->FindShape(shape) < 0)
                CShape::Release(shape);
}

/// Whether a shape at any depth is of that kind.
bool HasAny(CShapeList& list, bool (*isOne)(CShape&))
{
    std::vector<CShapeList*> lists;
    CollectLists(list, lists);
    return std::any_of(lists.begin(), lists.end(), [isOne](CShapeList* members) {
        for (unsigned int i = 0; i < members->GetCount(); ++i)
            if (isOne(*members->GetShape(i)))
                return true;
        return false;
    });
}

/// Whether saving and reading may change the shape: mirrored texts mirror their stored points at each layout, and a
/// picture that does not fit its rectangle gains pixels at each load until it does.
bool MayChangeByLoading(CShape& shape)
{
    if (dynamic_cast<CShapeImage*>(&shape))
        return true;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return dynamic_cast<CShapeText*>(&shape) && !points.empty();
}

QByteArray Saved(CShapeList& list)
{
    MemoryFile file;
    list.Save(&file.File());
    return file.Content();
}

} // namespace

void TouchShapes(CShapeList& list)
{
    int left = kShapesToChange;
    TouchMembers(list, left);
    list.GetRect(false);
    if (left < 0 || HasAny(list, IsLongText))
        return;
    const ShapeListOwner copy(list.Clone());
    copy->Rotate(90, copy->GetRectCenter(), Qt::ZAxis);
    copy->Resize(QRectF(10, 10, 50, 40));
    copy->MirrorY(20);
    copy->Select(true);
    copy->Sort();
    copy->OptimizeShapeList(true);
    RemoveInvalid(*copy);
    Saved(*copy);
}

void CheckSecondGeneration(CShapeList& list)
{
    const auto again = [](const QByteArray& bytes) {
        MemoryFile file({reinterpret_cast<const uint8_t*>(bytes.data()), static_cast<size_t>(bytes.size())});
        const ShapeListOwner read(CShapeList::New());
        return read->Read(&file.File(), SHAPE_DOCUMENT_VERSION) == 0 ? Saved(*read) : QByteArray("refused");
    };
    const QByteArray first = again(Saved(list));
    if (again(first) == first || HasAny(list, MayChangeByLoading))
        return;
    std::fprintf(stderr, "a saved document changed when it was read and saved once more\n");
    std::abort();
}

} // namespace fuzz
