#include "Clones.h"

#include "document/ShapeWalk.h"

#include "group/ShapeGroup.h"
#include "list/ShapeList.h"

using namespace shapedocument;

namespace capi {

namespace {

void AppendClones(CShapeList& shapes, CShapeList& clones, WorkWatch& watch);

std::unique_ptr<CShape> CloneOf(CShape& shape, WorkWatch& watch)
{
    watch.Next();
    if (shape.GetShapeType() != ESHAPE_GROUP)
        return std::unique_ptr<CShape>(shape.Clone());
    auto group = std::make_unique<CShapeGroup>();
    group->CShape::Copy(&shape);
    AppendClones(*MembersOf(shape), *group->GetShapeList(), watch);
    group->ResetPath();
    return group;
}

void AppendClones(CShapeList& shapes, CShapeList& clones, WorkWatch& watch)
{
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        if (CShape* shape = shapes.GetShape(i)) {
            std::unique_ptr<CShape> clone = CloneOf(*shape, watch);
            clones.AddTail(clone.get());
            static_cast<void>(clone.release());
        }
}

size_t CountOf(CShapeList& shapes)
{
    size_t count = 0;
    ForEachShape(shapes, [&count](CShape&, int) { ++count; });
    return count;
}

} // namespace

std::unique_ptr<CShape> CloneOf(CShape& shape, Progress& progress)
{
    const WorkProgress work = progress.OfWork();
    CShapeList* members = MembersOf(shape);
    WorkWatch watch(work, WorkStep::Cloning, 1 + (members ? CountOf(*members) : 0));
    return CloneOf(shape, watch);
}

Document CopyOf(CShapeList& document, Progress& progress)
{
    const WorkProgress work = progress.OfWork();
    WorkWatch watch(work, WorkStep::Cloning, CountOf(document));
    Document copy = NewDocument();
    AppendClones(document, *copy, watch);
    return copy;
}

} // namespace capi
