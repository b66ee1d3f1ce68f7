/// The caller's progress callback.
#pragma once

#include "shapemodel.h"

#include "machine/WorkProgress.h"

namespace capi {

/// Null and context, as the caller gave them.
class Progress
{
public:
    Progress(sm_progress callback, void* context) : m_callback(callback), m_context(context) {}

    /// Throws Stopped.
    void At(const char* step, size_t done, size_t total) const
    {
        if (m_callback && m_callback(m_context, step, done, total) != 0)
            throw shapedocument::Stopped();
    }

    /// For the making of jobs; empty without a callback.
    shapedocument::WorkProgress OfWork() const;

private:
    sm_progress m_callback;
    void* m_context;
};

} // namespace capi
