#include "document/ShapeWalk.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"

#include "group/ShapeArray.h"
#include "record/RecordFormat.h"

#include <algorithm>

namespace shapedocument {

namespace {

static_assert(kMostGroupLevels == shapes::kDeepestGroup);

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

void WalkCells(CShapeArray& array, const std::function<void(CShape& shape)>& visit)
{
    const QList<ShapeArrayInfo> cells = array.GetShapeArrayInfo();
    for (int i = 0; i < cells.size(); ++i) {
        if (!cells[i].bValid)
            continue;
        CShape* shapes = array.GetShape(i);
        if (!shapes)
            continue; // A cell at a position that is not finite has no shape.
        const Document cell = NewDocument();
        cell->AddTail(shapes);
        ForEachVisibleOutline(*MembersOf(*shapes), visit);
    }
}

/// How many times the walk visits the shape or its members.
size_t Repetitions(CShape& shape)
{
    auto* array = dynamic_cast<CShapeArray*>(&shape);
    return array ? static_cast<size_t>(array->GetCount()) : 1;
}

/// Hidden shapes are not expanded, but count once in a cell, which is copied with them.
size_t Count(CShapeList& list, bool shown)
{
    size_t count = 0;
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        if (!shape)
            continue;
        const bool unfolds = shown && !shape->IsHide();
        CShapeList* members = MembersOf(*shape);
        const size_t held = members ? Count(*members, unfolds) : 0;
        count += std::max<size_t>(held, 1) * (unfolds ? Repetitions(*shape) : 1); // cannot overflow: both are bounded
        count = std::min(count, kMostOutlines + 1);
    }
    return count;
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

int GroupLevels(CShapeList& list)
{
    int levels = 0;
    ForEachShape(list, [&levels](CShape& shape, int depth) {
        if (MembersOf(shape))
            levels = std::max(levels, depth + 1);
    });
    return levels;
}

void ExpectNestable(CShapeList& list, const QString& file)
{
    if (list.IsEmpty())
        throw Failure{file, "holds no shape"};
    if (GroupLevels(list) >= kMostGroupLevels)
        throw Failure{file, QString("nests groups and arrays %1 deep, which is the most").arg(kMostGroupLevels)};
}

void ForEachVisibleOutline(CShapeList& list, const std::function<void(CShape& shape)>& visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        if (!shape || shape->IsHide())
            continue;
        if (auto* array = dynamic_cast<CShapeArray*>(shape))
            WalkCells(*array, visit);
        else if (CShapeList* members = MembersOf(*shape))
            ForEachVisibleOutline(*members, visit);
        else
            visit(*shape);
    }
}

size_t OutlineCount(CShapeList& list)
{
    return Count(list, true);
}

void ExpectFewOutlines(CShapeList& list, const QString& file)
{
    if (OutlineCount(list) > kMostOutlines)
        throw Failure{file, QString("its arrays ask for more than %1 outlines").arg(kMostOutlines)};
}

} // namespace shapedocument
