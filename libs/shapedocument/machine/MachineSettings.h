/// How fast a machine is, for estimates of time.
#pragma once

#include "shapedocument_export.h"
#include <QString>

namespace shapedocument {

/// The values of a small desktop machine, until a file says otherwise.
struct MachineSettings
{
    double feed = 1200;              ///< mm per minute with the laser on
    double engraveFeed = 6000;       ///< mm per minute along rows of pictures and hatches
    double rapid = 6000;             ///< mm per minute between paths
    double acceleration = 500;       ///< mm/s²
    double junctionDeviation = 0.01; ///< mm; by how much a corner may be cut, in GRBL's sense ($11)
    double beam = 0.1;               ///< mm, the width of the line that the laser burns
};

/// Reads a file of lines such as "feed = 1500" under the heading [machine]; what is not in it keeps its value. Throws
/// Failure for a file that cannot be read, a name that is none of the above, and a number that is not above 0.
SHAPEDOCUMENT_EXPORT MachineSettings ReadMachineSettings(const QString& file);

} // namespace shapedocument
