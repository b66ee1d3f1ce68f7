/// The speeds of a machine, for estimates of time.
#pragma once

#include "shapedocument_export.h"
#include <QString>

#include <optional>

namespace shapedocument {

// Limits of a machine's values.
constexpr double kLeastSetting = 0.001; ///< in the unit of each value
constexpr double kMostSetting = 1e6;    ///< in the unit of each value

/// The values of a small desktop machine, until a file says otherwise.
struct MachineSettings
{
    std::optional<double> feed;        ///< mm per minute with the laser on, where the job has no feed of its own
    std::optional<double> engraveFeed; ///< the same along rows of pictures and hatches
    double rapid = 6000;               ///< mm per minute between paths; nothing is faster
    double acceleration = 500;         ///< mm/s²
    double junctionDeviation = 0.01;   ///< mm; by how much a corner may be cut, in GRBL's sense ($11)
    double beam = 0.1;                 ///< mm, the width of the line that the laser burns
};

/// Reads an INI file of lines such as "feed = 1500" under the heading [machine]; what stands behind a semicolon and
/// lines that begin with # are remarks. What is not in it keeps its value. Throws Failure for a file that cannot be
/// read; naming the line, for any other line, an unknown name, a name that comes twice, and a value that is not a
/// number from 0.001 to 1,000,000. Cost: O(bytes).
SHAPEDOCUMENT_EXPORT MachineSettings ReadMachineSettings(const QString& file);

} // namespace shapedocument
