/// How far and how long a machine goes for the G-code of a work.
#pragma once

#include "machine/GcodeOptions.h"
#include "machine/MachineSettings.h"
#include "shapedocument_export.h"

#include <QPointF>

#include <cstddef>

namespace shapedocument {

struct MachineWork;

/// Of all passes. Lengths are mm.
struct GcodeTime
{
    double seconds = 0;             ///< from 0, 0 and back to it
    double cutLength = 0;           ///< leads included
    double travelLength = 0;        ///< all that the head goes without burning, from 0, 0 and back to it
    double engraveTravelLength = 0; ///< of that: to the rows, between them, over white and in run-ups
    double engravedArea = 0;        ///< mm²
    size_t engravedRows = 0;        ///< that burn
};

/// Of the moves that WriteGcode writes. The machine stops where the laser is switched on and off before and behind each
/// path, as GRBL and Marlin do; it does not where the power alone changes. Cost: as writing it.
SHAPEDOCUMENT_EXPORT GcodeTime TimeGcode(const MachineWork& work, const GcodeOptions& options,
                                         const MachineSettings& machine);

/// The place in the document (mm, y down) that is 0, 0 in the work's G-code.
SHAPEDOCUMENT_EXPORT QPointF GcodeOrigin(const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
