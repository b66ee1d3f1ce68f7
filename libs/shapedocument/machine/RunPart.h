/// Lengths and parts of runs.
#pragma once

#include "machine/MachineJob.h"
#include "plane/Length.h"

#include <cmath>
#include <span>

namespace shapedocument {

/// mm.
double RunLength(std::span<const JobPoint> run);

/// A place on a run: the segment's number and how much of it lies before, 0 to 1.
struct RunPlace
{
    size_t segment = 0;
    double part = 0;
};

/// The run between two places; no points when that has no length.
std::vector<JobPoint> RunPart(std::span<const JobPoint> run, RunPlace begin, RunPlace end);

} // namespace shapedocument
