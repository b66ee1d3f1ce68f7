/// The caller's progress callback.
#pragma once

#include "shapemodel.h"

#include "document/WorkProgress.h"

#include <chrono>

namespace capi {

/// Calls the callback (null: none) with its context when a step starts and then every 20 ms: callbacks into other
/// languages may take longer than a piece of work. One object for each call of the interface.
class Progress
{
public:
    Progress(sm_progress callback, void* context) : m_callback(callback), m_context(context) {}
    /// The callback of a struct of options.
    template <class Options>
    explicit Progress(const Options& options) : Progress(options.progress, options.context)
    {}

    /// Throws Stopped.
    void At(const char* step, size_t done, size_t total)
    {
        if (!GoesOn(step, done, total))
            throw shapedocument::Stopped();
    }

    /// A progress for the document library, valid while this object lives; empty without a callback.
    shapedocument::WorkProgress OfWork();

private:
    using Clock = std::chrono::steady_clock;

    bool GoesOn(const char* step, size_t done, size_t total);

    sm_progress m_callback;
    void* m_context;
    const char* m_step = nullptr; ///< of the last call
    Clock::time_point m_next;     ///< when to call again within a step
};

} // namespace capi
