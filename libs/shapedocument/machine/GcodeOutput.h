/// Writing a machine's work as G-code.
#pragma once

#include "machine/GcodeOptions.h"
#include "machine/MachineWork.h"
#include "shapedocument_export.h"

class QIODevice;

namespace shapedocument {

/// Engraved rows.
struct RowCounts
{
    size_t rows = 0;       ///< that burn
    size_t leftOfZero = 0; ///< whose run-up reaches beyond x = 0, which no machine does
    double least = 0;      ///< mm: how far
};

/// Absolute millimetres; first the engraved rows, then the lines, pass by pass. The laser is off whenever the head
/// moves between two paths or rows. Moves without length, as they are written, are left out.
/// Cost: O(points × passes + runs of dots).
SHAPEDOCUMENT_EXPORT RowCounts WriteGcode(QIODevice& device, const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
