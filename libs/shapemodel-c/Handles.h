/// The table of handles: the object of each number, and its reference count.
#pragma once

#include "Object.h"

#include <cstdint>
#include <vector>

namespace capi {

/// A handle is a place in the table and the place's generation, which counts up whenever an object leaves it, so that a
/// released number finds nothing. Not synchronised; use TableLock.
class Handles
{
public:
    /// A new handle with a count of 1. Cost: O(1).
    sm_handle Give(std::shared_ptr<Object> object);

    /// The object; null for a handle that is not valid (any more). Cost: O(1).
    const std::shared_ptr<Object>* Find(sm_handle handle);

    /// Counts up; false for a handle that is not valid. Cost: O(1).
    bool Retain(sm_handle handle);

    /// Counts down; found: the handle was valid. At 0 the handle becomes invalid and its object is returned, which the
    /// caller must destroy after it has released the lock. Cost: O(1).
    std::shared_ptr<Object> Release(sm_handle handle, bool& found);

    /// Makes the handle invalid, whatever its count. Returns its object, to be destroyed as with Release. Cost: O(1).
    std::shared_ptr<Object> Drop(sm_handle handle);

    /// Number of valid handles.
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

/// Locks the process's table for this thread while it lives. No other lock may be taken meanwhile, and no object
/// destroyed.
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

/// The object of a handle, for callers that hold the lock.
const std::shared_ptr<Object>& ObjectOf(const TableLock& table, sm_handle handle, Kind kind);

} // namespace capi
