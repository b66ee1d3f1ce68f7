/// The G-code dialects of firmware, as a table.
#pragma once

#include <array>
#include <string_view>

namespace shapedocument {

/// The words of one firmware. Texts that are whole lines include their line ends.
struct GcodeDialect
{
    std::string_view name;       ///< as options name it
    std::string_view begin;      ///< in front of everything
    std::string_view end;        ///< behind everything
    std::string_view on;         ///< power in proportion to the speed; without line end, an S word may follow
    std::string_view onConstant; ///< constant power at any speed; likewise
    bool powerWithOn;            ///< an S word may follow on; else it stands with the moves only
    std::string_view off;        ///< the laser does not burn
    std::string_view airOn;      ///< air assist begins
    std::string_view airOff;     ///< air assist ends
    bool keepsMotion;            ///< a line without a G word repeats the last one's
    double fullPower;            ///< S word of full power, as the firmware is delivered
    bool boundedPower;           ///< S words above it are not possible
    /// mm per minute of G0 before any F word, for firmware whose G0 has the speed of the last F word; 0 where G0 is as
    /// fast as the machine can.
    double feedOfRapid;
};

/// GRBL 1.1 in laser mode ($32=1, $30=1000). Marlin 2.1 with inline power: M3 and M4 with I make moves set the power, S
/// is a byte (CUTTER_POWER_UNIT PWM255), the laser is off on G0. It knows neither G94 nor M2, every line needs its G
/// word, and G0 has the speed of the last F word (G0_FEEDRATE is not set).
inline constexpr std::array<GcodeDialect, 2> kGcodeDialects{{
    {.name = "grbl",
     .begin = "G21\nG90\nG94\nM5\n",
     .end = "G0 X0 Y0\nM2\n",
     .on = "M4",
     .onConstant = "M3",
     .powerWithOn = true,
     .off = "M5\n",
     .airOn = "M8\n",
     .airOff = "M9\n",
     .keepsMotion = true,
     .fullPower = 1000,
     .boundedPower = false,
     .feedOfRapid = 0},
    {.name = "marlin",
     .begin = "G21\nG90\nM5 I\n",
     .end = "G0 X0 Y0\nM400\n",
     .on = "M4 I",
     .onConstant = "M3 I",
     .powerWithOn = false,
     .off = "M5 I\n",
     .airOn = "M106 S255\n",
     .airOff = "M107\n",
     .keepsMotion = false,
     .fullPower = 255,
     .boundedPower = true,
     .feedOfRapid = 1500},
}};

/// Their names, in the same order.
inline constexpr std::array<const char*, kGcodeDialects.size()> kGcodeDialectNames = [] {
    std::array<const char*, kGcodeDialects.size()> names{};
    for (size_t i = 0; i < names.size(); ++i)
        names[i] = kGcodeDialects[i].name.data(); // of a literal, so it ends with 0
    return names;
}();

} // namespace shapedocument
