/// Which pieces of runs have others beside them.
#pragma once

#include "machine/MachineJob.h"
#include "machine/WorkProgress.h"

#include <vector>

namespace shapedocument {

/// A bit for each piece of the job's cuts, as ForEachPiece hands them on: false where no piece of its colour may lie on
/// it. Most pieces of most drawings are alone, and need not be held while doubled lines are looked for. Holds some of
/// the pieces at a time, those of one band after the other. Throws Stopped.
std::vector<bool> FindNearPieces(const MachineJob& job, double most, const WorkWatch& watch);

} // namespace shapedocument
