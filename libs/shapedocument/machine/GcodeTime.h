/// Lengths and time of a work's G-code.
#pragma once

#include "machine/GcodeOptions.h"
#include "machine/MachineSettings.h"
#include "shapedocument_export.h"

#include <QPointF>

#include <cstddef>

namespace shapedocument {

struct MachineWork;

/// Sums over all passes. Lengths are mm.
struct GcodeTime
{
    double seconds = 0;             ///< from 0, 0 and back to it
    double cutLength = 0;           ///< leads included
    double travelLength = 0;        ///< all moves without burning, from 0, 0 and back to it
    double engraveTravelLength = 0; ///< of travelLength: to the rows, between them, over white and in run-ups
    double engravedArea = 0;        ///< mm²
    size_t engravedRows = 0;        ///< that burn
};

/// Times the moves that WriteGcode writes. The machine stops before and behind each path, where the laser is switched,
/// as GRBL and Marlin do; not where only the power changes. Cost: that of WriteGcode without output.
SHAPEDOCUMENT_EXPORT GcodeTime TimeGcode(const MachineWork& work, const GcodeOptions& options,
                                         const MachineSettings& machine);

/// The place in the document (mm, y down) that is 0, 0 in the work's G-code. Cost: O(1).
SHAPEDOCUMENT_EXPORT QPointF GcodeOrigin(const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
