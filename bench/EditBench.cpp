/// Edits of large lists: deleting one by one, groups, copies of documents, undo, optimisation and clean-up.
#include "Drawings.h"
#include "Goals.h"
#include "Growth.h"
#include "Limits.h"

#include "group/ShapeGroup.h"
#include "vector/ShapeVector.h"

#include <QList>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

namespace {

using namespace bench;

constexpr int kMany = 100'000;
constexpr int kMillion = 1'000'000;
constexpr int kPoints = 100; ///< a shape
constexpr int kShown = 50'000;
constexpr int kEdited = 1'000;

std::function<void()> Fill(const SharedList& list, int count)
{
    return [=] {
        list->DeleteAll();
        for (int i = 0; i < count; ++i)
            list->AddTail(new CShapeVector);
    };
}

/// Shape by shape, from the last one on.
Side DeleteFromBack(int count)
{
    const SharedList list = ShapeListOwner(CShapeList::New());
    const auto empty = [=] {
        while (const unsigned int left = list->GetCount())
            list->Delete(left - 1);
    };
    return {empty, Fill(list, count)};
}

Side TakeLastFromQList(int count)
{
    const auto list = std::make_shared<QList<CShape*>>();
    const auto fill = [=] {
        for (int i = 0; i < count; ++i)
            list->append(new CShapeVector);
    };
    return {[=] {
                while (!list->isEmpty())
                    CShape::Release(list->takeLast());
            },
            fill};
}

using SharedGroup = std::shared_ptr<CShapeGroup>;

SharedGroup Group(int members)
{
    auto group = std::make_shared<CShapeGroup>();
    for (int i = 0; i < members; ++i)
        group->GetShapeList()->AddTail(new CShapeVector);
    return group;
}

/// A group put into a group and taken out again.
Side PutInGroup(int members)
{
    return {[inner = Group(members), outer = Group(1)] {
        outer->GetShapeList()->AddTail(inner.get());
        outer->GetShapeList()->Remove(inner.get());
    }};
}

/// The limit of a search for circles: the type of each member is asked once.
Side AskMembers(int members)
{
    return {[group = Group(members)] {
        int groups = 0;
        VisitShapes(*group->GetShapeList(), [&](CShape& shape) { groups += shape.GetShapeType() == ESHAPE_GROUP; });
        benchmark::DoNotOptimize(groups);
    }};
}

/// Documents whose paths are built; the copy shares them.
Side Clone(const SharedList& list)
{
    const auto clone = std::make_shared<ShapeListOwner>();
    return {[=] { clone->reset(list->Clone()); }, [=] { clone->reset(); }};
}

SharedList BuiltDrawing(int shapes)
{
    SharedList list = Drawing(shapes, kPoints);
    list->GetRect(false);
    return list;
}

SharedList EditedDocument(int count)
{
    SharedList list = Drawing(count, 4);
    list->GetRect(false);
    return list;
}

/// Shapes all over the document are replaced by their clones, as undoing an edit of them does.
Side Undo(int count)
{
    return {[list = EditedDocument(count), step = count / kEdited] {
        for (int i = 0; i < kEdited; ++i) {
            CShape* edited = list->GetShape(static_cast<unsigned int>(i * step));
            list->Replace(edited, edited->Clone());
            CShape::Release(edited);
        }
    }};
}

Side UndoInQList(int count)
{
    const auto free = [](QList<CShape*>* shapes) {
        std::for_each(shapes->begin(), shapes->end(), CShape::Release);
        delete shapes;
    };
    const std::shared_ptr<QList<CShape*>> shapes(new QList<CShape*>, free);
    const SharedList list = EditedDocument(count);
    VisitShapes(*list, [&](CShape& shape) { shapes->append(&shape); });
    list->RemoveAll();
    return {[shapes, step = count / kEdited] {
        for (int i = 0; i < kEdited; ++i) {
            CShape* edited = shapes->at(i * step);
            (*shapes)[shapes->indexOf(edited)] = edited->Clone();
            CShape::Release(edited);
        }
    }};
}

/// Fresh polylines of four points, on which work() is done once.
Side OnFreshPolylines(int count, const std::function<void(CShapeList&)>& work)
{
    const auto list = std::make_shared<SharedList>();
    return {[=] { work(**list); },
            [=] {
                list->reset();
                *list = Drawing(count, 4);
                VisitShapes(**list,
                            [](CShape& shape) { static_cast<CShapeVector&>(shape).SetVectorType(EVECTOR_POLYLINE); });
            }};
}

Side Optimize(int count)
{
    return OnFreshPolylines(count, [](CShapeList& list) { list.OptimizeShapeList(true); });
}

/// What optimisation of polylines comes down to: building a polyline's path fits it.
Side AskForPaths(int count)
{
    return OnFreshPolylines(count,
                            [](CShapeList& list) { VisitShapes(list, [](CShape& shape) { shape.GetPath(true); }); });
}

/// Every other shape is broken and taken out; the owner keeps all.
Side CleanUp(int count)
{
    const SharedList owner = Drawing(count / 2, 4);
    for (int i = 0; i < count / 2; ++i)
        owner->Insert(new CShapeVector, static_cast<unsigned int>(i * 2));
    const SharedList list(CShapeList::New(), [](CShapeList* view) { CShapeList::Release(view); });
    return {[=] { list->RemoveInvalidShapeItem(); },
            [=] {
                list->RemoveAll();
                list->AddTail(*owner);
            }};
}

Side CleanUpQList(int count)
{
    const SharedList owner = Drawing(count / 2, 4);
    for (int i = 0; i < count / 2; ++i)
        owner->Insert(new CShapeVector, static_cast<unsigned int>(i * 2));
    const auto list = std::make_shared<QList<CShape*>>();
    return {[=] { list->removeIf([](CShape* shape) { return !shape->IsValid(); }); },
            [=] {
                list->clear();
                VisitShapes(*owner, [&](CShape& shape) { list->append(&shape); });
            }};
}

Row PeerRow(const std::string& name, const std::string& against, double factor, std::function<Sides()> sides)
{
    return {.name = name, .against = against, .goal = AtMost(factor), .sides = std::move(sides), .rounds = 9};
}

const bool kRegistered = Register({
    GrowthRow("N1 Delete(index) of 100,000 shapes, back to front", kMany, DeleteFromBack),
    PeerRow("N1 the same", "QList::takeLast of each", 2.5,
            [] {
                return Sides{DeleteFromBack(kMany), TakeLastFromQList(kMany)};
            }),
    GrowthRow("N2 a group of a million into a group and out", kMillion, PutInGroup),
    PeerRow("N2 the same", "the type of each member asked once", 1.5,
            [] {
                return Sides{PutInGroup(kMillion), AskMembers(kMillion)};
            }),
    GrowthRow("N3 Clone of a document of 1 M points", kMillion / kPoints,
              [](int shapes) { return InFreshMemory(Clone(BuiltDrawing(shapes))); }),
    PeerRow("N3 the same", "points copied, a fresh block a shape", 1.5,
            [] {
                const SharedList list = BuiltDrawing(kMillion / kPoints);
                return Sides{InFreshMemory(Clone(list)), InFreshMemory(CopyShapes(*list))};
            }),
    GrowthRow("N4 undo of an edit of 1,000 of 50,000 shapes", kShown, Undo),
    PeerRow("N4 the same", "QList::indexOf and assignment", 1.1,
            [] {
                return Sides{Undo(kShown), UndoInQList(kShown)};
            }),
    GrowthRow("N5 OptimizeShapeList of 100,000 polylines", kMany, Optimize),
    PeerRow("N5 the same", "the path of each asked for", 1.2,
            [] {
                return Sides{Optimize(kMany), AskForPaths(kMany)};
            }),
    GrowthRow("N6 clean-up of 100,000 shapes, half of them broken", kMany, CleanUp),
    PeerRow("N6 the same", "QList::removeIf with the same test", 1.8,
            [] {
                return Sides{CleanUp(kMany), CleanUpQList(kMany)};
            }),
});

} // namespace
