/// Finds the pieces of runs that may lie on other pieces.
#pragma once

#include "document/WorkProgress.h"
#include "machine/MachineJob.h"

#include <vector>

namespace shapedocument {

/// A bit for each piece of the job's cuts, in the order of ForEachPiece: false where no other piece of its colour can
/// lie on it. Most pieces of most drawings are alone, and need not be held while doubled lines are searched. most: mm,
/// the longest piece. The job is searched in horizontal bands, of no more than mostHeld pieces each unless one of 4096
/// slices of the height has more. Throws Stopped.
std::vector<bool> FindNearPieces(const MachineJob& job, double most, const WorkWatch& watch, size_t mostHeld = 120'000);

} // namespace shapedocument
