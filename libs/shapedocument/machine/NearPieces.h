/// Which pieces of runs have others beside them.
#pragma once

#include "document/WorkProgress.h"
#include "machine/MachineJob.h"

#include <vector>

namespace shapedocument {

/// A bit for each piece of the job's cuts, as ForEachPiece hands them on: false where no piece of its colour may lie on
/// it. Most pieces of most drawings are alone, and need not be held while doubled lines are looked for. Pieces are no
/// longer than most (mm). Holds mostHeld of them at a time, those of one band after the other; more where one of 4096
/// slices of the height has more. Throws Stopped.
std::vector<bool> FindNearPieces(const MachineJob& job, double most, const WorkWatch& watch, size_t mostHeld = 120'000);

} // namespace shapedocument
