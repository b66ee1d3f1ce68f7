#include "Handles.h"

#include "Refusal.h"

#include <limits>
#include <utility>

namespace capi {

namespace {

constexpr int kGenerationShift = 32;

struct Table
{
    std::mutex mutex;
    Handles handles;
};

/// Never destroyed: hosts may release handles while the process ends.
Table& TheTable()
{
    static Table& table = *new Table;
    return table;
}

/// Places count from 1, so that no handle is 0.
sm_handle HandleOf(size_t place, uint32_t generation)
{
    return (sm_handle{generation} << kGenerationShift) | (place + 1);
}

} // namespace

sm_handle Handles::Give(std::shared_ptr<Object> object)
{
    if (m_free.empty()) {
        Expect(m_places.size() < std::numeric_limits<uint32_t>::max(), SM_NO_MEMORY, "there are too many handles");
        m_places.emplace_back();
        m_free.reserve(m_places.capacity()); // so that releasing never fails
        m_free.push_back(static_cast<uint32_t>(m_places.size() - 1));
    }
    const uint32_t place = m_free.back();
    m_free.pop_back();
    ++m_count;
    m_places[place].object = std::move(object);
    m_places[place].holders = 1;
    return HandleOf(place, m_places[place].generation);
}

Handles::Place* Handles::PlaceOf(sm_handle handle)
{
    const auto number = static_cast<uint32_t>(handle);
    if (number == 0 || number > m_places.size())
        return nullptr;
    Place& place = m_places[number - 1];
    return place.object && place.generation == handle >> kGenerationShift ? &place : nullptr;
}

const std::shared_ptr<Object>* Handles::Find(sm_handle handle)
{
    Place* place = PlaceOf(handle);
    return place ? &place->object : nullptr;
}

bool Handles::Retain(sm_handle handle)
{
    Place* place = PlaceOf(handle);
    if (place)
        ++place->holders;
    return place != nullptr;
}

std::shared_ptr<Object> Handles::Release(sm_handle handle, bool& found)
{
    Place* place = PlaceOf(handle);
    found = place != nullptr;
    return place && --place->holders == 0 ? Drop(handle) : nullptr;
}

std::shared_ptr<Object> Handles::Drop(sm_handle handle)
{
    Place* place = PlaceOf(handle);
    if (!place)
        return nullptr;
    std::shared_ptr<Object> object = std::exchange(place->object, nullptr);
    place->holders = 0;
    --m_count;
    // A place whose generations are used up is not used again.
    if (++place->generation != 0)
        m_free.push_back(static_cast<uint32_t>(handle) - 1);
    return object;
}

TableLock::TableLock() : m_lock(TheTable().mutex) {}

Handles* TableLock::operator->() const
{
    return &TheTable().handles;
}

const std::shared_ptr<Object>& ObjectOf(const TableLock& table, sm_handle handle, Kind kind)
{
    const std::shared_ptr<Object>* object = table->Find(handle);
    Expect(object != nullptr, SM_BAD_HANDLE, "the handle stands for nothing");
    Expect((*object)->KindOf() == kind, SM_WRONG_KIND, "the handle is of another kind");
    return *object;
}

std::shared_ptr<Object> ObjectOf(sm_handle handle, Kind kind)
{
    const TableLock table;
    return ObjectOf(table, handle, kind);
}

} // namespace capi
