/// The objects of handles.
#pragma once

#include "shapemodel.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

namespace capi {

enum class Kind
{
    Document,
    Shape,
    Job,
    Buffer
};

/// An object of a handle. Shared by its handle and by calls that use it.
class Object
{
public:
    explicit Object(Kind kind) : m_kind(kind) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    Kind KindOf() const { return m_kind; }

private:
    Kind m_kind;
};

/// An object on which one call at a time works. Calls on other threads wait; one on the same thread, which can only
/// come from a callback, is refused.
class Workplace : public Object
{
public:
    using Object::Object;

    /// Throws Refusal (SM_BUSY).
    void Enter();
    void Leave();

private:
    std::mutex m_mutex;
    std::atomic<std::thread::id> m_worker;
};

/// Locks a workplace for this thread, and keeps it alive, while this object lives.
class Work
{
public:
    explicit Work(std::shared_ptr<Workplace> place) : m_place(std::move(place)) { m_place->Enter(); }
    Work(Work&&) noexcept = default;
    Work& operator=(Work&&) = delete;
    ~Work()
    {
        if (m_place)
            m_place->Leave();
    }

private:
    std::shared_ptr<Workplace> m_place;
};

} // namespace capi
