/// The caller's progress callback.
#pragma once

#include "shapemodel.h"

#include "document/WorkProgress.h"

#include <chrono>

namespace capi {

/// Callback (null: none) and context, as the caller gave them. Called when a step begins and then every 20 ms: calls
/// from other languages take longer than many a piece of work. One for each call of the interface.
class Progress
{
public:
    Progress(sm_progress callback, void* context) : m_callback(callback), m_context(context) {}
    /// That of a struct of options.
    template <class Options>
    explicit Progress(const Options& options) : Progress(options.progress, options.context)
    {}

    /// Throws Stopped.
    void At(const char* step, size_t done, size_t total)
    {
        if (!GoesOn(step, done, total))
            throw shapedocument::Stopped();
    }

    /// For the document library, while this object lives; empty without a callback.
    shapedocument::WorkProgress OfWork();

private:
    using Clock = std::chrono::steady_clock;

    bool GoesOn(const char* step, size_t done, size_t total);

    sm_progress m_callback;
    void* m_context;
    const char* m_step = nullptr; ///< told last
    Clock::time_point m_next;     ///< when to tell again
};

} // namespace capi
