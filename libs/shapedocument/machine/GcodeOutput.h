/// Writing a machine's work as G-code.
#pragma once

#include "machine/GcodeOptions.h"
#include "machine/MachineWork.h"
#include "shapedocument_export.h"

class QIODevice;

namespace shapedocument {

/// Counts of the engraved rows that were written.
struct RowCounts
{
    size_t rows = 0;       ///< that burn
    size_t leftOfZero = 0; ///< whose run-up reaches beyond x = 0, where no machine can go
    double least = 0;      ///< mm: the least x of these run-ups
};

/// Absolute millimetres; first the engraved rows, then the lines in the order of ForEachPass. The laser is off whenever
/// the head moves between two paths or rows. Moves that have no length after rounding are left out. Cost: O(points ×
/// passes + runs of dots).
SHAPEDOCUMENT_EXPORT RowCounts WriteGcode(QIODevice& device, const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
