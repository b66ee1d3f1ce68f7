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

/// Calls take with every path and the reader that gives its points: order by order of the colours; within an order once
/// for each pass, so that what lies inside goes before what lies around it in each of them. passes: of colours that
/// have none of their own; without it every path is followed once.
void ForEachPass(const MachineWork& work, std::optional<int> passes,
                 const std::function<void(const PathPass& pass, JobReader& points)>& take);

} // namespace shapedocument
