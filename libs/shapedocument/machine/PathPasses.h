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

/// Calls take with every path and the reader that gives its points. Colours of a lower order come first; within an
/// order the blocks of the job follow each other. Each block is repeated for all its passes before the next one, so
/// that all passes of what lies inside come before the first one of what lies around it. passes: of colours whose
/// setting has none; without it every path is followed once, whatever the settings.
void ForEachPass(const MachineWork& work, std::optional<int> passes,
                 const std::function<void(const PathPass& pass, JobReader& points)>& take);

} // namespace shapedocument
