/// The way of the machine's head through a work, with the times at which it comes to each place.
#pragma once

#include "machine/GcodeTime.h"
#include "shapedocument_export.h"

#include <QPointF>

#include <cstddef>
#include <vector>

namespace shapedocument {

/// What the head does in a step.
enum class HeadStepKind
{
    Travel, ///< straight to the next place without burning
    Row,    ///< engraves a row, its run-ups included
    Path    ///< follows a path of the job
};

/// A step starts where the one before ends; the first one at the origin of the G-code.
struct HeadStep
{
    HeadStepKind kind = HeadStepKind::Travel; ///< what it is
    QPointF from = {};                        ///< mm, y down; not set for paths, which begin at their first point
    QPointF to = {};                          ///< mm, y down
    size_t path = 0;                          ///< of paths: its number in the job, 0 for the first
    int pass = 0;                             ///< of paths: 0 for the first time that it is followed
    double end = 0;                           ///< seconds from the start of the work to the end of the step
};

/// All steps in the order of the G-code, and their sums.
struct HeadWay
{
    std::vector<HeadStep> steps; ///< their ends never decrease; the last one is back at the origin
    GcodeTime time;              ///< as TimeGcode returns it
};

/// The moves that WriteGcode writes: a step for each path, row and move between them. A path is timed as a whole, not
/// point by point. Cost: as TimeGcode; a step takes 64 bytes.
SHAPEDOCUMENT_EXPORT HeadWay WayOfHead(const MachineWork& work, const GcodeOptions& options,
                                       const MachineSettings& machine);

} // namespace shapedocument
