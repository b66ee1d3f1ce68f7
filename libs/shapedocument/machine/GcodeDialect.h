/// How the firmware of machines differs in the words that it takes.
#pragma once

#include <array>
#include <string_view>

namespace shapedocument {

/// Line ends included where the text is a line or several.
struct GcodeDialect
{
    std::string_view name;       ///< as options name it
    std::string_view begin;      ///< in front of everything
    std::string_view end;        ///< behind everything
    std::string_view on;         ///< the power follows the speed; no line end, power may follow
    std::string_view onConstant; ///< the power stays whatever the speed
    bool powerWithOn;            ///< else the S word stands with the moves alone
    std::string_view off;        ///< the laser does not burn
    std::string_view airOn;      ///< air assist begins
    std::string_view airOff;     ///< air assist ends
    bool keepsMotion;            ///< a line without a G word goes on as the one before
    double fullPower;            ///< S word of the whole power, as the firmware is delivered
    bool boundedPower;           ///< S words cannot be beyond it
    /// mm per minute of G0 before any F word, where G0 is as fast as the last F word says; 0 where it is as fast as the
    /// machine can.
    double feedOfRapid;
};

/// GRBL 1.1 in laser mode ($32=1, $30=1000). Marlin 2.1 with inline power: M3 and M4 with I hand the power to the
/// moves, S is a byte (CUTTER_POWER_UNIT PWM255), G0 is off; it knows neither G94 nor M2, every line needs its G word,
/// and G0 has no speed of its own (G0_FEEDRATE is not set).
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

} // namespace shapedocument
