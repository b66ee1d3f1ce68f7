/// Writing machine paths in the formats that other programs and machines take.
#pragma once

#include "shapedocument_export.h"
#include <optional>

class QIODevice;

namespace shapedocument {

class MachineJob;

struct GcodeOptions
{
    double feed = 1200;           ///< mm per minute while the laser is on
    double power = 500;           ///< S word while the laser is on
    bool constantPower = false;   ///< M3 instead of M4, which follows the speed
    bool yDown = false;           ///< keep the document's y instead of turning it upwards
    std::optional<double> height; ///< mm: the document's y that becomes 0 when y is turned; else the lowest line's
};

/// A row per line: shape, path, kind (cut, lead-in, lead-out), both ends in mm (y down), colour.
SHAPEDOCUMENT_EXPORT void WriteCsv(QIODevice& device, const MachineJob& job);

/// A group per shape and a polyline per path, in mm, on a page that begins at the document's origin or the first line.
SHAPEDOCUMENT_EXPORT void WriteSvg(QIODevice& device, const MachineJob& job);

/// Absolute millimetres; the laser is off whenever the head moves between two paths.
SHAPEDOCUMENT_EXPORT void WriteGcode(QIODevice& device, const MachineJob& job, const GcodeOptions& options);

} // namespace shapedocument
