/// Splits painter paths into runs of the tool.
#pragma once

#include "machine/RunBuilder.h"

#include <functional>

class QPainterPath;

namespace shapedocument {

/// Calls take with each run of the outline, as points for a machine, and whether it is exact (RunBuilder::IsExact). A
/// sub-path that starts where the one before ends continues its run; what has no length makes no run. Cost: O(n log n)
/// in the samples of the curves.
SHAPEDOCUMENT_EXPORT void ForEachRun(const QPainterPath& outline, bool arcs,
                                     const std::function<void(const std::vector<JobPoint>& run, bool exact)>& take);

} // namespace shapedocument
