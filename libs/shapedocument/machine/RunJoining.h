/// Joins runs whose ends meet.
#pragma once

#include "document/WorkProgress.h"
#include "machine/MachineJob.h"

namespace shapedocument {

/// mm: programs join no ends that lie farther apart.
constexpr double kWidestJoin = 10;

/// The job with cuts of one colour joined where their ends lie no farther apart than tolerance (mm, above 0): nearest
/// ends first, either way round, the gap bridged by a line. Runs of shapes with leads stay as they are, and so do
/// closed ones. A joined run has the place and the direction of the first of its runs. The ends of one run are joined
/// to each other only where it is at least ten times as long as the tolerance. Throws Failure, naming file, where the
/// temporary file fails, and Stopped. Cost: O(n log n) in the runs, and O(points).
SHAPEDOCUMENT_EXPORT MachineJob JoinRuns(MachineJob job, double tolerance, const QString& file,
                                         const WorkProgress& progress = {});

} // namespace shapedocument
