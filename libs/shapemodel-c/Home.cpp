#include "Home.h"

#include "Refusal.h"

#include "group/ShapeGroup.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace shapedocument;

namespace capi {

namespace {

std::shared_ptr<ShapeEntry> EntryOf(const TableLock& table, sm_shape handle)
{
    return std::static_pointer_cast<ShapeEntry>(ObjectOf(table, handle, Kind::Shape));
}

std::shared_ptr<Home> HomeOf(sm_document handle)
{
    return std::static_pointer_cast<Home>(ObjectOf(handle, Kind::Document));
}

/// An entry and its new holders.
struct Moved
{
    std::shared_ptr<ShapeEntry> entry;
    std::vector<CShapeGroup*> holders;
};

/// Whether the shape is among those that move, or inside one.
bool MovesAlong(const ShapeEntry& entry, const Move& move)
{
    CShape* held = entry.holders.size() > move.oldDepth ? entry.holders[move.oldDepth] : entry.shape;
    return entry.holders.size() >= move.oldDepth && move.shapes.count(held) > 0;
}

std::vector<CShapeGroup*> NewHolders(const ShapeEntry& entry, const Move& move)
{
    std::vector<CShapeGroup*> holders = move.newHolders;
    holders.insert(holders.end(), entry.holders.begin() + std::ptrdiff_t(move.oldDepth), entry.holders.end());
    return holders;
}

} // namespace

DocumentUse::DocumentUse(sm_document handle) : m_home(HomeOf(handle)), m_work(m_home) {}

ShapeUse::ShapeUse(sm_shape handle) : m_work(WorkOn(handle)) {}

/// Repeats where the shape has changed its home while this call was waiting for the former one.
Work ShapeUse::WorkOn(sm_shape handle)
{
    for (;;) {
        std::shared_ptr<ShapeEntry> entry;
        std::shared_ptr<Home> home;
        {
            const TableLock table;
            entry = EntryOf(table, handle);
            home = entry->home;
        }
        m_home = home;
        Work work(home);
        const TableLock table;
        ObjectOf(table, handle, Kind::Shape);
        if (entry->home != home)
            continue;
        m_shape = entry->shape;
        m_holders = entry->holders;
        return work;
    }
}

void ShapeUse::RefuseKind() const
{
    throw Refusal{SM_WRONG_KIND, "the shape is of another kind"};
}

ShapesUse::ShapesUse(const sm_shape* handles, size_t count, sm_document document)
{
    Expect(count <= static_cast<size_t>(PTRDIFF_MAX) / sizeof(sm_shape), SM_BAD_ARGUMENT, "so many shapes cannot be");
    std::vector<sm_shape> sorted(handles, handles + count);
    std::sort(sorted.begin(), sorted.end());
    Expect(std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end(), SM_BAD_ARGUMENT, "a shape is given twice");
    for (;;) {
        const std::vector<std::shared_ptr<Home>> homes = FindHomes(handles, count, document);
        m_works.clear();
        for (const std::shared_ptr<Home>& home : homes) // locked in the order of addresses, which excludes deadlocks
            m_works.emplace_back(home);
        if (FindHomes(handles, count, document) == homes)
            return;
    }
}

std::vector<std::shared_ptr<Home>> ShapesUse::FindHomes(const sm_shape* handles, size_t count, sm_document document)
{
    m_shapes.clear();
    std::vector<std::shared_ptr<Home>> homes;
    m_document = document ? HomeOf(document) : nullptr;
    if (m_document)
        homes.push_back(m_document);
    const TableLock table;
    for (size_t i = 0; i < count; ++i) {
        const std::shared_ptr<ShapeEntry> entry = EntryOf(table, handles[i]);
        m_shapes.push_back({handles[i], entry->home, entry->shape, entry->holders});
        homes.push_back(entry->home);
    }
    std::sort(homes.begin(), homes.end());
    homes.erase(std::unique(homes.begin(), homes.end()), homes.end());
    return homes;
}

sm_shape HandleOf(const std::shared_ptr<Home>& home, CShape& shape, std::vector<CShapeGroup*> holders)
{
    auto entry = std::make_shared<ShapeEntry>();
    entry->home = home;
    entry->shape = &shape;
    entry->holders = std::move(holders);
    const TableLock table;
    const auto [place, isNew] = home->shapes.try_emplace(&shape, 0);
    if (!isNew && table->Retain(place->second))
        return place->second;
    try {
        place->second = table->Give(std::move(entry));
    } catch (...) {
        home->shapes.erase(place);
        throw;
    }
    return place->second;
}

sm_shape Detached(std::unique_ptr<CShape> shape)
{
    const auto home = std::make_shared<Home>(true);
    CShape& kept = *shape;
    home->list->AddTail(shape.get());
    shape.release();
    return HandleOf(home, kept);
}

sm_document HandleOf(const std::shared_ptr<Home>& home)
{
    const TableLock table;
    if (!table->Retain(home->handle))
        home->handle = table->Give(home);
    return home->handle;
}

void MoveHandles(const Move& move)
{
    std::vector<Moved> moved;
    const TableLock table;
    for (const std::shared_ptr<Home>& home : move.from)
        for (const auto& [shape, handle] : home->shapes) {
            const std::shared_ptr<ShapeEntry> entry = EntryOf(table, handle);
            if (MovesAlong(*entry, move))
                moved.push_back({entry, NewHolders(*entry, move)});
        }
    move.to->shapes.reserve(move.to->shapes.size() + moved.size());
    for (Moved& one : moved) { // nothing throws from here on
        one.entry->holders.swap(one.holders);
        if (one.entry->home != move.to)
            move.to->shapes.insert(one.entry->home->shapes.extract(one.entry->shape));
        one.entry->home = move.to;
    }
}

void GiveBack(sm_handle handle)
{
    std::shared_ptr<Object> last; // destroyed without the lock
    bool found = false;
    {
        const TableLock table;
        last = table->Release(handle, found);
        if (last && last->KindOf() == Kind::Shape) {
            const auto& entry = static_cast<const ShapeEntry&>(*last);
            entry.home->shapes.erase(entry.shape);
        }
    }
    Expect(found, SM_BAD_HANDLE, "the handle stands for nothing");
}

void DropHandle(const std::shared_ptr<Home>& home, CShape& shape)
{
    std::shared_ptr<Object> dropped; // destroyed without the lock
    const TableLock table;
    const auto found = home->shapes.find(&shape);
    if (found == home->shapes.end())
        return;
    dropped = table->Drop(found->second);
    home->shapes.erase(found);
}

} // namespace capi
