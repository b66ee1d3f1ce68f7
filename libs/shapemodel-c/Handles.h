/// The table of handles: which object a number stands for, and how often it is held.
#pragma once

#include "Object.h"

#include <cstdint>
#include <vector>

namespace capi {

/// A handle is a place in the table and the place's generation, which counts up whenever an object leaves it: a number
/// that has been released finds nothing. Not locked by itself, see TableLock.
class Handles
{
public:
    /// A new handle, held once. Cost: O(1).
    sm_handle Give(std::shared_ptr<Object> object);

    /// Null where there is none any more. Cost: O(1).
    const std::shared_ptr<Object>* Find(sm_handle handle);

    /// False where there is none. Cost: O(1).
    bool Retain(sm_handle handle);

    /// Held once less. Answers the object when nothing holds the handle any more, which then stands for nothing; the
    /// caller lets go of it without the lock. found tells whether there was one. Cost: O(1).
    std::shared_ptr<Object> Release(sm_handle handle, bool& found);

    /// The handle stands for nothing from now on, however often it is held. Cost: O(1).
    std::shared_ptr<Object> Drop(sm_handle handle);

    /// Handles that are held.
    uint64_t Count() const { return m_count; }

private:
    struct Place
    {
        std::shared_ptr<Object> object;
        uint64_t holders = 0;
        uint32_t generation = 1;
    };

    Place* PlaceOf(sm_handle handle);

    std::vector<Place> m_places;
    std::vector<uint32_t> m_free;
    uint64_t m_count = 0;
};

/// The process's table, which belongs to this thread while the object lives. Nothing else is locked under it, and
/// nothing is destroyed.
class TableLock
{
public:
    TableLock();
    Handles* operator->() const;

private:
    std::lock_guard<std::mutex> m_lock;
};

/// The object of a handle. Throws Refusal (SM_BAD_HANDLE, SM_WRONG_KIND).
std::shared_ptr<Object> ObjectOf(sm_handle handle, Kind kind);

/// The same where the lock is held.
const std::shared_ptr<Object>& ObjectOf(const TableLock& table, sm_handle handle, Kind kind);

} // namespace capi
