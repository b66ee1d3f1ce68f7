/// Lines that lie on each other are cut once.
#pragma once

#include "document/WorkProgress.h"
#include "machine/MachineJob.h"

namespace shapedocument {

/// What has been left out.
struct DoubledLines
{
    /// Limit of the lines that are listed singly.
    static constexpr size_t kMostFirst = 1000;

    /// A run or a stretch of one.
    struct Line
    {
        QPointF begin; ///< mm, y down
        double length; ///< mm
    };

    size_t count = 0;        ///< whole runs and stretches of runs
    double length = 0;       ///< mm, of all of them
    std::vector<Line> first; ///< kMostFirst at most
    bool gaveUp = false;     ///< there may be more: the search ended after its number of comparisons
};

/// Which doubles are left out.
enum class DoublesOf
{
    WholeRuns, ///< before runs are joined, so that a line is not joined to its double
    Everything ///< stretches of runs too
};

/// The job without the cuts that lie on an earlier cut of their colour, nearer than 0.02 mm: whole runs, and stretches
/// of runs of 1 mm or more, also where a run lies on itself. What is left out is added to doubled. What is left of a
/// run stands in its place; a closed run without a lead-in that loses a stretch starts at the end of that stretch.
/// Leads are not compared; those of a cut that no longer starts or ends at them are left out, too. Throws Failure,
/// naming file, where the temporary file fails, and Stopped. Cost: O(n log n) in the segments, and the comparisons with
/// near ones; the search ends after a fixed number of these, see gaveUp.
SHAPEDOCUMENT_EXPORT MachineJob LeaveOutDoubles(const MachineJob& job, DoublesOf which, const QString& file,
                                                DoubledLines& doubled, const WorkProgress& progress = {});

} // namespace shapedocument
