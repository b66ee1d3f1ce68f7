/// The lines of a job, colour by colour and pass by pass.
#pragma once

#include "machine/MachineWork.h"

#include <functional>

namespace shapedocument {

/// A path as it is followed.
struct PathPass
{
    MachinePath path;
    ColorSetting setting; ///< of its colour
    int pass = 0;         ///< 0 for the first
};

/// Calls take with every path and the reader that gives its points: order by order of the colours; within an order
/// block by block of the job, once for each pass, so that all passes of what lies inside go before the first one of
/// what lies around it. passes: of colours that have none of their own; without it every path is followed once.
void ForEachPass(const MachineWork& work, std::optional<int> passes,
                 const std::function<void(const PathPass& pass, JobReader& points)>& take);

} // namespace shapedocument
