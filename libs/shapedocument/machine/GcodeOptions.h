/// What G-code is written with.
#pragma once

#include "machine/GcodeDialect.h"

#include <optional>

namespace shapedocument {

constexpr double kLeastFeed = 0.001; ///< mm per minute
constexpr double kMostFeed = 1e6;    ///< mm per minute
constexpr double kMostPower = 1e6;   ///< S word
constexpr int kMostPasses = 1000;    ///< over one line

/// When air is blown at the place that burns.
enum class AirAssist
{
    Off,
    Lines, ///< along lines, not while engraving
    All
};

/// Feeds, powers, passes and what else a writer of G-code needs to be told.
struct GcodeOptions
{
    const GcodeDialect* dialect = &kGcodeDialects[0]; ///< borrowed
    double feed = 1200;                               ///< mm per minute while the laser is on
    double power = 500;                               ///< S word while the laser is on
    bool constantPower = false;                       ///< M3 instead of M4, which follows the speed
    bool yDown = false;                               ///< keep the document's y instead of turning it upwards
    std::optional<double> height;   ///< mm: the document's y that becomes 0 when y is turned; else the lowest line's
    int passes = 1;                 ///< how often each line is followed
    double passDepth = 0;           ///< mm by which each further pass goes deeper, down along z
    AirAssist air = AirAssist::Off; ///< when air is blown

    double engraveFeed = 1200; ///< mm per minute in rows
    double leastPower = 0;     ///< S word of what is nearly white; white is off
    double mostPower = 500;    ///< S word of black
    double overscan = 0;       ///< mm that the head runs on either side of a row, to keep its speed within it
};

} // namespace shapedocument
