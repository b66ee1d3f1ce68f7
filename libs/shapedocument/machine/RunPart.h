/// Lengths and parts of runs.
#pragma once

#include "machine/MachineJob.h"
#include "plane/Length.h"

#include <cmath>
#include <span>

namespace shapedocument {

/// The length of a run, mm.
double RunLength(std::span<const JobPoint> run);

/// A place on a run: a segment's index, and the part of it (0 to 1) that lies before the place.
struct RunPlace
{
    size_t segment = 0;
    double part = 0;
};

/// The run between two places; empty when it has no length.
std::vector<JobPoint> RunPart(std::span<const JobPoint> run, RunPlace begin, RunPlace end);

} // namespace shapedocument
