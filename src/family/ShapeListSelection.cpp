/// Queries, status and rectangles of all shapes; asks arrays for their cells and groups for their lists.
#include "geometry/RectUnion.h"
#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "list/ShapeWalk.h"
#include "shape/ShapeCast.h"

#include <algorithm>
#include <unordered_set>

using namespace shapes;

namespace {

/// Appends the shapes for which keep() is true to out, which may be the list itself.
template <class Keep>
void AppendKept(const std::vector<CShape*>& shapes, CShapeList* out, Keep keep)
{
    std::vector<CShape*> kept;
    ForEachShape(shapes, [&](CShape* shape) {
        if (keep(shape))
            kept.push_back(shape);
    });
    for (CShape* shape : kept)
        out->AddTail(shape);
}

/// The member list of a group or array; null for other shapes and for null.
const CShapeList* MembersOf(CShape* shape)
{
    const ESHAPE_TYPE type = shape ? shape->GetShapeType() : ESHAPE_VECTOR;
    const auto* group = type == ESHAPE_GROUP || type == ESHAPE_ARRAY ? dynamic_cast<CShapeGroup*>(shape) : nullptr;
    return group ? group->GetShapeList() : nullptr;
}

/// Union of the rectangles of the shapes that count.
template <class Counts>
QRectF RectOf(const std::vector<CShape*>& shapes, bool bFlag, Counts counts)
{
    RectUnion all;
    ForEachShape(shapes, [&](CShape* shape) {
        if (counts(shape))
            all.Add(shape->GetRect(bFlag));
    });
    return all.Result();
}

} // namespace

CShape* CShapeList::GetFirstSelectedShape()
{
    return FirstShape(m_listShapes, [](CShape* shape) { return !shape->IsLock() && shape->IsSelect(); });
}

unsigned int CShapeList::GetSelectedCount(bool bWithLocked)
{
    unsigned int count = 0;
    ForEachShape(m_listShapes, [&](CShape* shape) {
        if (!bWithLocked && shape->IsLock())
            return;
        // The select bit alone: an array's own IsSelect() asks its cells.
        if (shape->CShape::IsSelect())
            ++count;
        if (auto* array = ShapeCast<CShapeArray>(shape, ESHAPE_ARRAY))
            count += static_cast<unsigned int>(array->GetSelectCount());
    });
    return count;
}

void CShapeList::GetSelectedShapes(CShapeList* out)
{
    if (out)
        AppendKept(m_listShapes, out, [](CShape* shape) { return !shape->IsLock() && shape->IsSelect(); });
}

void CShapeList::GetAllImageShapes(CShapeList* out)
{
    if (out)
        AppendKept(m_listShapes, out, [](CShape* shape) { return shape->GetShapeType() == ESHAPE_IMAGE; });
}

void CShapeList::GetShapesByColor(unsigned int color, CShapeList* out)
{
    if (out)
        AppendKept(m_listShapes, out, [color](CShape* shape) { return shape->GetColor() == color; });
}

bool CShapeList::FindColor(unsigned int color)
{
    return FirstShape(m_listShapes, [color](CShape* shape) { return shape->GetColor() == color; });
}

void CShapeList::Select(bool bSelect)
{
    ForEachShape(m_listShapes, [bSelect](CShape* shape) {
        shape->Select(bSelect);
        if (auto* array = ShapeCast<CShapeArray>(shape, ESHAPE_ARRAY))
            array->SelectAll(bSelect);
    });
}

void CShapeList::Lock(bool bLock)
{
    ForEachShape(m_listShapes, [bLock](CShape* shape) { shape->Lock(bLock); });
}

void CShapeList::Hide(bool bHide)
{
    ForEachShape(m_listShapes, [bHide](CShape* shape) { shape->Hide(bHide); });
}

void CShapeList::SetColor(unsigned int color)
{
    ForEachShape(m_listShapes, [color](CShape* shape) { shape->SetColor(color); });
}

QRectF CShapeList::GetRect(bool bFlag)
{
    return RectOf(m_listShapes, bFlag, [](CShape*) { return true; });
}

QRectF CShapeList::GetSelectedRect()
{
    return RectOf(m_listShapes, false, [](CShape* shape) { return shape->IsSelect() && !shape->IsLock(); });
}

QRectF CShapeList::GetUnSelectedRect()
{
    return RectOf(m_listShapes, false, [](CShape* shape) { return !shape->IsSelect(); });
}

QPointF CShapeList::GetRectCenter()
{
    return GetRect(false).center();
}

/// Visits the shapes of this list and of the groups in it, at any depth; each list once, because groups may share one.
/// True as soon as visit() returns true, or when the list sought (null for none) is reached.
template <class Visit>
bool CShapeList::AnyShape(const CShapeList* sought, Visit visit) const
{
    std::vector<const CShapeList*> pending{this};
    std::unordered_set<const CShapeList*> seen;
    while (!pending.empty()) {
        const CShapeList* next = pending.back();
        pending.pop_back();
        if (next == sought)
            return true;
        if (!seen.insert(next).second)
            continue;
        const auto wanted = [&](CShape* shape) {
            if (const CShapeList* members = MembersOf(shape))
                pending.push_back(members);
            return visit(shape);
        };
        if (FirstShape(next->m_listShapes, wanted))
            return true;
    }
    return false;
}

/// Whether list is this list or that of a group, at any depth, in it.
bool CShapeList::Reaches(const CShapeList* list) const
{
    return AnyShape(list, [](CShape*) { return false; });
}

/// Drops the painter paths of all shapes at any depth, without making arrays measure their template.
void CShapeList::DeletePaths() const
{
    AnyShape(nullptr, [](CShape* shape) {
        CShape::DeletePath(shape);
        return false;
    });
}

/// Whether other is the list of a group in this list, or both hold the same shape. Members of groups count.
bool CShapeList::SharesShapes(const CShapeList& other) const
{
    if (m_listShapes.empty())
        return false;
    const bool shares = AnyShape(&other, [](CShape* shape) { return shape->m_bVisited = true, false; }) ||
                        other.AnyShape(nullptr, [](CShape* shape) { return shape->m_bVisited; });
    AnyShape(nullptr, [](CShape* shape) { return shape->m_bVisited = false; });
    return shares;
}

/// False for a group that holds this list: a circle could be neither walked nor freed. Only a group's list can be held.
bool CShapeList::MayHold(CShape* shape) const
{
    const CShapeList* members = m_bMembers ? MembersOf(shape) : nullptr;
    return !members || !members->Reaches(this);
}

/// Appends the shapes of other that this list may hold to held, which may be the vector of either list.
void CShapeList::AppendHoldable(const CShapeList& other, std::vector<CShape*>& held) const
{
    const size_t count = other.m_listShapes.size();
    if (held.capacity() < held.size() + count)
        held.reserve(std::max(held.size() + count, 2 * held.capacity())); // many small lists may follow
    for (size_t i = 0; i < count; ++i) {
        if (m_bMembers)
            Prefetch(other.m_listShapes, i + kPrefetchDistance);
        if (MayHold(other.m_listShapes[i]))
            held.push_back(other.m_listShapes[i]);
    }
}
