/// Options and limits of G-code output.
#pragma once

#include "machine/GcodeDialect.h"

#include <cmath>
#include <optional>

namespace shapedocument {

constexpr double kLeastFeed = 0.001;   ///< mm per minute
constexpr double kMostFeed = 1e6;      ///< mm per minute
constexpr double kMostPower = 1e6;     ///< S word
constexpr int kMostPasses = 1000;      ///< over one line
constexpr double kMostDepth = 100;     ///< mm, of a pass
constexpr double kMostOverscan = 1000; ///< mm

/// The greatest S word that the dialect's firmware accepts.
constexpr double MostPower(const GcodeDialect& dialect)
{
    return dialect.boundedPower ? dialect.fullPower : kMostPower;
}

/// The S word of lines for which none is asked: half of the dialect's whole power.
inline double UsualPower(const GcodeDialect& dialect)
{
    return std::floor(dialect.fullPower / 2);
}

/// When air assist is on.
enum class AirAssist
{
    Off,
    Lines, ///< along lines, not while engraving
    All
};

/// Feeds, powers, passes and the other options of G-code output.
struct GcodeOptions
{
    const GcodeDialect* dialect = &kGcodeDialects[0]; ///< borrowed
    double feed = 1200;                               ///< mm per minute while the laser is on
    double power = 500;                               ///< S word while the laser is on
    bool constantPower = false;                       ///< M3 instead of M4, which follows the speed
    bool yDown = false;                               ///< keep the document's y instead of turning it upwards
    /// mm: the document's y that becomes 0 when y is turned; if absent, the lowest line's
    std::optional<double> height;
    int passes = 1;                 ///< how often each line is followed
    double passDepth = 0;           ///< mm by which z is lowered for each further pass
    AirAssist air = AirAssist::Off; ///< when air is blown

    double engraveFeed = 1200; ///< mm per minute in rows
    double leastPower = 0;     ///< S word of nearly white; at white the laser is off
    double mostPower = 500;    ///< S word of black
    double overscan = 0; ///< mm that the head moves beyond either end of a row, so that its speed is constant within it
};

} // namespace shapedocument
