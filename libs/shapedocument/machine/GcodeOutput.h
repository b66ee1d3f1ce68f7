/// Writing a machine's work as G-code.
#pragma once

#include "machine/GcodeOptions.h"
#include "machine/MachineWork.h"
#include "shapedocument_export.h"

class QIODevice;

namespace shapedocument {

/// Absolute millimetres; first the engraved rows, then the lines, pass by pass. The laser is off whenever the head
/// moves between two paths or rows. Answers the number of rows that burn.
SHAPEDOCUMENT_EXPORT size_t WriteGcode(QIODevice& device, const MachineWork& work, const GcodeOptions& options);

} // namespace shapedocument
