/// How far long work has come, and whether it is to go on.
#pragma once

#include "shapedocument_export.h"

#include <cstddef>
#include <functional>

namespace shapedocument {

/// What long work takes time for, and what done and all count. Steps may come more than once.
enum class WorkStep
{
    Lines,     ///< runs of shapes are made
    Joining,   ///< ends that meet are sought
    Ordering,  ///< short ways are sought
    Doubles,   ///< lines that lie on others are sought
    Reading,   ///< bytes of a document or a drawing
    Texts,     ///< letters of texts are looked up in their fonts
    Saving,    ///< bytes of a document; how many there will be is not known
    Painting,  ///< a drawing's page is painted by its renderer, which does not say how far it is
    Cutting,   ///< painted elements of a drawing are cut at their clips
    Shaping,   ///< painted elements of a drawing become shapes
    Decoding,  ///< a picture file, by its decoder, which does not say how far it is
    Checking,  ///< bytes of a document are held against its format
    Searching, ///< bytes of a damaged document: the search for shapes goes to and fro
    Fitting,   ///< an outline, by the plug-in for curves, which does not say how far it is
    Comparing, ///< points of a fitted outline with the former one
    Cloning,   ///< shapes
    Measuring, ///< shapes, whose outlines are made for it
    Drawing,   ///< shapes or paths onto a picture
    Encoding   ///< bytes of a picture; how many there will be is not known
};

/// Told many times a second, on the thread that asked for the work. done counts what the step says, up to all; all is 0
/// where nobody can say. Answers whether to go on. Must not throw.
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
    void Next() { At(m_done + 1); }

    /// So many are done. Throws Stopped.
    void At(size_t done)
    {
        m_done = done;
        Ask();
    }

    /// For long work on one. Throws Stopped.
    void Ask() const
    {
        if (!GoesOn())
            throw Stopped();
    }

    /// The same for code that no exception may leave.
    bool GoesOn() const { return !m_progress || m_progress(m_step, m_done, m_all); }
    /// Likewise, after so many are done.
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
