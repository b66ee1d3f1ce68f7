/// Progress and cancellation of long work.
#pragma once

#include "shapedocument_export.h"

#include <cstddef>
#include <functional>

namespace shapedocument {

/// The steps of long work, and what done and all count in each. Steps may come more than once.
enum class WorkStep
{
    Lines,     ///< shapes, whose runs are made
    Joining,   ///< paths; ends that meet are searched
    Ordering,  ///< a short order is searched
    Doubles,   ///< lines that lie on others are searched
    Reading,   ///< bytes of a document or a drawing
    Texts,     ///< letters of texts are looked up in their fonts
    Saving,    ///< bytes of a document; their total is not known
    Painting,  ///< a drawing's page is painted by its renderer, which does not report its progress
    Cutting,   ///< painted elements of a drawing are cut at their clips
    Shaping,   ///< painted elements of a drawing become shapes
    Decoding,  ///< a picture file is decoded by its decoder, which does not report its progress
    Checking,  ///< bytes of a document are checked against its format
    Searching, ///< bytes of a damaged document; the search for shapes may go back
    Fitting,   ///< an outline is fitted by the plug-in for curves, which does not report its progress
    Comparing, ///< points of a fitted outline are compared with the former one
    Cloning,   ///< shapes are cloned
    Measuring, ///< shapes, whose outlines are made for it
    Drawing,   ///< shapes or paths onto a picture
    Encoding   ///< bytes of a picture; their total is not known
};

/// Called many times a second, on the thread that asked for the work. done counts what the step says, up to all; all is
/// 0 where the total is not known. Returns whether to go on. Must not throw.
using WorkProgress = std::function<bool(WorkStep step, size_t done, size_t all)>;

/// Thrown by value where a WorkProgress has returned false. The partial result is discarded.
struct SHAPEDOCUMENT_EXPORT Stopped
{};

/// Reports the progress of one step.
class WorkWatch
{
public:
    /// progress is borrowed, and may be empty.
    WorkWatch(const WorkProgress& progress, WorkStep step, size_t all = 0)
        : m_progress(progress), m_step(step), m_all(all)
    {}

    /// Counts one more as done. Throws Stopped.
    void Next() { At(m_done + 1); }

    /// Sets how many are done. Throws Stopped.
    void At(size_t done)
    {
        m_done = done;
        Ask();
    }

    /// Calls the progress during long work on one item. Throws Stopped.
    void Ask() const
    {
        if (!GoesOn())
            throw Stopped();
    }

    /// Ask for code that must not throw: returns whether to go on.
    bool GoesOn() const { return !m_progress || m_progress(m_step, m_done, m_all); }
    /// At for code that must not throw: returns whether to go on.
    bool GoesOn(size_t done)
    {
        m_done = done;
        return GoesOn();
    }

private:
    const WorkProgress& m_progress;
    WorkStep m_step;
    size_t m_all;
    size_t m_done = 0;
};

} // namespace shapedocument
