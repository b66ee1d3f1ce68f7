/// How far long work has come, and whether it is to go on.
#pragma once

#include "shapedocument_export.h"

#include <cstddef>
#include <functional>

namespace shapedocument {

/// What a job's making takes time for. Steps may come more than once.
enum class WorkStep
{
    Lines,    ///< runs of shapes are made
    Joining,  ///< ends that meet are sought
    Ordering, ///< short ways are sought
    Doubles   ///< lines that lie on others are sought
};

/// Told many times a second, on the thread that does the work. done counts shapes or paths of the step up to all; both
/// are 0 where nobody can say. Answers whether to go on.
using WorkProgress = std::function<bool(WorkStep step, size_t done, size_t all)>;

/// Thrown by value where a WorkProgress has answered false. What was being made is gone.
struct SHAPEDOCUMENT_EXPORT Stopped
{};

/// One step for the code that does it.
class WorkWatch
{
public:
    /// progress is borrowed, and may be empty.
    WorkWatch(const WorkProgress& progress, WorkStep step, size_t all = 0)
        : m_progress(progress), m_step(step), m_all(all)
    {}

    /// One more is done. Throws Stopped.
    void Next()
    {
        ++m_done;
        Ask();
    }

    /// For long work on one. Throws Stopped.
    void Ask() const
    {
        if (m_progress && !m_progress(m_step, m_done, m_all))
            throw Stopped();
    }

private:
    const WorkProgress& m_progress;
    WorkStep m_step;
    size_t m_all;
    size_t m_done = 0;
};

} // namespace shapedocument
