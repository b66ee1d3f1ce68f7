#include "EngraveOptions.h"

#include "Arguments.h"

#include <CLI/CLI.hpp>

#include <algorithm>

using namespace shapedocument;

namespace {

constexpr double kFinest = 200;       // lines per mm
constexpr double kFarthestRun = 1000; // mm, beside a row
constexpr int kMostGreyStep = 127;
constexpr double kMostDepth = 100; // mm

const std::map<std::string, AirAssist> kAirAssists = {
    {"off", AirAssist::Off}, {"lines", AirAssist::Lines}, {"all", AirAssist::All}};

const GcodeDialect* DialectOf(const std::string& name)
{
    const auto* found = std::find_if(kGcodeDialects.begin(), kGcodeDialects.end(),
                                     [&name](const GcodeDialect& dialect) { return dialect.name == name; });
    return found == kGcodeDialects.end() ? nullptr : found;
}

std::string DialectNames()
{
    std::string names;
    for (const GcodeDialect& dialect : kGcodeDialects)
        names += (names.empty() ? "" : "|") + std::string(dialect.name);
    return names;
}

void ExpectWithin(const char* option, double power, const GcodeDialect& dialect)
{
    if (dialect.boundedPower && power > dialect.fullPower)
        throw CLI::ValidationError(option, QString("%1 is more than %2, which is %3's whole power")
                                               .arg(power)
                                               .arg(dialect.fullPower)
                                               .arg(dialect.name.data())
                                               .toStdString());
}

} // namespace

void AddEngraveOptions(CLI::App& command, EngraveArguments& engraving, GcodeOptions& gcode)
{
    CLI::Option* engrave = command.add_flag("--engrave", engraving.engrave,
                                            "pictures and filled outlines are engraved in rows, before the lines");
    const auto add = [&](CLI::Option* option) { return option->needs(engrave); };
    add(command.add_option("--lines-per-mm", engraving.options.linesPerMm, "engraving: rows, and dots in a row"))
        ->check(NumberBetween(0.01, kFinest))
        ->capture_default_str();
    add(command.add_flag("--one-way", engraving.options.oneWay, "engraving: all rows from left to right"));
    add(command.add_option("--overscan", gcode.overscan, "engraving: mm of run-up on either side of a row"))
        ->check(NumberBetween(0, kFarthestRun))
        ->capture_default_str();
    add(command.add_option("--engrave-power", engraving.powers,
                           "engraving: S words of nearly white and of black (default: 0 and --power)"))
        ->expected(2)
        ->delimiter(',')
        ->check(NumberBetween(0, kMostPower));
    add(command.add_option("--engrave-feed", engraving.feed, "engraving: mm per minute (default: --feed)"))
        ->check(NumberBetween(kLeastFeed, kMostFeed));
    add(command.add_option("--grey-step", engraving.options.greyStep,
                           "engraving: greys that differ by no more, of 255, burn as one"))
        ->check(CLI::Range(0, kMostGreyStep))
        ->capture_default_str();
    add(command.add_flag("--dither", engraving.options.dither,
                         "engraving: dots that burn or do not, in place of greys"));
}

void AddGcodeOptions(CLI::App& command, GcodeArguments& arguments, GcodeOptions& gcode)
{
    command.add_option("--dialect", arguments.dialect, "G-code: of which firmware: " + DialectNames())
        ->check([](const std::string& name) {
            return DialectOf(name) ? "" : name + " is none of the dialects " + DialectNames();
        })
        ->capture_default_str();
    command.add_option("--feed", gcode.feed, "G-code: mm per minute")
        ->check(NumberBetween(kLeastFeed, kMostFeed))
        ->capture_default_str();
    command.add_option("--power", arguments.power, "G-code: S word of the laser (default: half of its power)")
        ->check(NumberBetween(0, kMostPower));
    command.add_option("--passes", gcode.passes, "G-code: how often each line is followed")
        ->check(CLI::Range(1, kMostPasses))
        ->capture_default_str();
    command.add_option("--step", gcode.passDepth, "G-code: mm that each further pass goes deeper")
        ->check(NumberBetween(0, kMostDepth))
        ->capture_default_str();
    command.add_option("--colors", arguments.colors,
                       "G-code: an INI file with sections as [#ff0000] and in them feed, power, passes, order");
    command.add_option("--air", gcode.air, "G-code: air assist: off|lines|all")
        ->transform(CLI::CheckedTransformer(kAirAssists));
}

void Complete(const EngraveArguments& engraving, const GcodeArguments& arguments, GcodeOptions& gcode)
{
    gcode.dialect = DialectOf(arguments.dialect);
    gcode.power = arguments.power.value_or(std::floor(gcode.dialect->fullPower / 2));
    gcode.engraveFeed = engraving.feed.value_or(gcode.feed);
    gcode.mostPower = gcode.power;
    if (engraving.powers.size() == 2) {
        gcode.leastPower = engraving.powers[0];
        gcode.mostPower = engraving.powers[1];
    }
    if (gcode.leastPower > gcode.mostPower)
        throw CLI::ValidationError("--engrave-power", "black is to burn with less power than white");
    ExpectWithin("--power", gcode.power, *gcode.dialect);
    ExpectWithin("--engrave-power", gcode.mostPower, *gcode.dialect);
}
