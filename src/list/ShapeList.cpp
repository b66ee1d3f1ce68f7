/// Container and ownership of the shape list.
#include "list/ShapeList.h"

#include "list/ShapeWalk.h"

#include <algorithm>
#include <unordered_set>

namespace {

bool HasRepeats(std::vector<CShape*> shapes)
{
    std::sort(shapes.begin(), shapes.end());
    const auto same = [](const CShape* a, const CShape* b) { return a && a == b; };
    return std::adjacent_find(shapes.begin(), shapes.end(), same) != shapes.end();
}

} // namespace

CShapeList::CShapeList() = default;

CShapeList::CShapeList(CShapeList& other) : m_listShapes(other.m_listShapes) {}

CShapeList::~CShapeList()
{
    RemoveAll();
}

CShapeList* CShapeList::New()
{
    return new CShapeList;
}

void CShapeList::Release(CShapeList*& list)
{
    delete list;
    list = nullptr;
}

CShapeList& CShapeList::operator=(const CShapeList& other)
{
    std::vector<CShape*> held;
    AppendHoldable(other, held);
    m_listShapes.swap(held);
    m_repeats = Repeats::Unknown;
    return *this;
}

void CShapeList::AddHead(CShape* shape)
{
    Insert(shape, 0);
}

void CShapeList::AddTail(CShape* shape)
{
    Insert(shape, GetCount());
}

void CShapeList::AddHead(CShapeList& other)
{
    const auto before = static_cast<std::ptrdiff_t>(m_listShapes.size());
    AddTail(other);
    std::rotate(m_listShapes.begin(), m_listShapes.begin() + before, m_listShapes.end());
}

void CShapeList::AddTail(CShapeList& other)
{
    AppendHoldable(other, m_listShapes);
    m_repeats = Repeats::Unknown;
}

bool CShapeList::Insert(CShape* shape, unsigned int index)
{
    if (index > m_listShapes.size() || !MayHold(shape))
        return false;
    m_listShapes.insert(m_listShapes.begin() + index, shape);
    m_repeats = Repeats::Unknown;
    return true;
}

bool CShapeList::Replace(CShape* oldShape, CShape* newShape)
{
    const int index = FindShape(oldShape);
    if (index < 0 || !newShape || !MayHold(newShape))
        return false;
    m_listShapes[static_cast<size_t>(index)] = newShape;
    m_repeats = Repeats::Unknown;
    return true;
}

bool CShapeList::Remove(unsigned int index)
{
    if (index >= m_listShapes.size())
        return false;
    m_listShapes.erase(m_listShapes.begin() + index);
    return true;
}

bool CShapeList::Remove(CShape* shape)
{
    const auto entry = std::find(m_listShapes.begin(), m_listShapes.end(), shape);
    if (entry == m_listShapes.end())
        return false;
    m_listShapes.erase(entry);
    return true;
}

void CShapeList::RemoveAll()
{
    m_listShapes.clear();
}

/// Whether the shape that is about to be deleted may stand in the list twice. The first deletion after an insertion
/// searches for that shape only; the second checks the whole list, so that further deletions need no search.
bool CShapeList::MayRepeat()
{
    if (m_repeats == Repeats::Unknown) {
        m_repeats = Repeats::Sought;
        return true;
    }
    if (m_repeats == Repeats::Sought)
        m_repeats = HasRepeats(m_listShapes) ? Repeats::Some : Repeats::None;
    return m_repeats == Repeats::Some;
}

bool CShapeList::Delete(unsigned int index)
{
    if (index >= m_listShapes.size())
        return false;
    CShape* shape = m_listShapes[index];
    const bool mayRepeat = MayRepeat();
    m_listShapes.erase(m_listShapes.begin() + index);
    if (shape && mayRepeat)
        std::erase(m_listShapes, shape);
    CShape::Release(shape);
    return true;
}

/// Replaces repeated entries by null. Marks all shapes before any is freed: a freed one has no mark to read.
void CShapeList::DropRepeated(std::vector<CShape*>& doomed)
{
    for (size_t i = 0; i < doomed.size(); ++i) {
        if (i + shapes::kPrefetchDistance < doomed.size())
            if (const CShape* ahead = doomed[i + shapes::kPrefetchDistance])
                __builtin_prefetch(&ahead->m_bVisited, 1);
        CShape*& shape = doomed[i];
        if (shape && shape->m_bVisited)
            shape = nullptr;
        else if (shape)
            shape->m_bVisited = true;
    }
}

void CShapeList::DeleteAll()
{
    std::vector<CShape*> doomed;
    doomed.swap(m_listShapes);
    DropRepeated(doomed);
    for (CShape* shape : doomed)
        CShape::Release(shape);
}

void CShapeList::RemoveSelectedShapes()
{
    shapes::RemoveBackToFront(m_listShapes, [](CShape* shape) { return shape->IsSelect(); });
}

void CShapeList::DeleteSelectedShapes()
{
    std::vector<CShape*> selected;
    shapes::RemoveBackToFront(m_listShapes, [&selected](CShape* shape) {
        if (!shape->IsSelect())
            return false;
        if (!shape->m_bVisited)
            selected.push_back(shape);
        shape->m_bVisited = true;
        return true;
    });
    for (CShape* shape : selected)
        CShape::Release(shape);
}

bool CShapeList::Copy(CShapeList* src)
{
    if (!src)
        return false;
    if (src == this)
        return true;
    // The own shapes are freed first, so that old and new ones are not in memory together; unless both lists hold a
    // shape, at any depth, which must be cloned before it is freed.
    if (!SharesShapes(*src))
        DeleteAll();
    const std::unordered_set<CShape*> old(m_listShapes.begin(), m_listShapes.end());
    CShapeList* clones = src->Clone();
    // Cloning may run host code; shapes that it has added stay.
    const auto added = std::stable_partition(m_listShapes.begin(), m_listShapes.end(),
                                             [&old](CShape* shape) { return old.contains(shape); });
    clones->m_listShapes.insert(clones->m_listShapes.end(), added, m_listShapes.end());
    m_listShapes.erase(added, m_listShapes.end());
    m_listShapes.swap(clones->m_listShapes);
    m_repeats = Repeats::Unknown;
    clones->DeleteAll();
    Release(clones);
    return true;
}

CShapeList* CShapeList::Clone()
{
    CShapeList* clones = New();
    clones->m_listShapes.reserve(m_listShapes.size());
    shapes::ForEachShape(m_listShapes, [clones](CShape* shape) { clones->m_listShapes.push_back(shape->Clone()); });
    return clones;
}

bool CShapeList::IsEmpty()
{
    return m_listShapes.empty();
}

unsigned int CShapeList::GetCount()
{
    return static_cast<unsigned int>(m_listShapes.size());
}

CShape* CShapeList::GetShape(unsigned int index)
{
    return index < m_listShapes.size() ? m_listShapes[index] : nullptr;
}

unsigned int CShapeList::ShapeCount() const
{
    const auto nulls = std::count(m_listShapes.begin(), m_listShapes.end(), nullptr);
    return static_cast<unsigned int>(m_listShapes.size() - static_cast<size_t>(nulls));
}

int CShapeList::FindShape(CShape* shape)
{
    const auto entry = std::find(m_listShapes.begin(), m_listShapes.end(), shape);
    return shape && entry != m_listShapes.end() ? static_cast<int>(entry - m_listShapes.begin()) : -1;
}
