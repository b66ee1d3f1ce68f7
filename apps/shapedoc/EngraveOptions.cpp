#include "EngraveOptions.h"

#include "DocumentArguments.h"
#include "document/Failure.h"

#include <algorithm>

using namespace shapedocument;

namespace {

constexpr Range kLinesPerMm{kFewestLines, kMostLines};
constexpr Range kOverscans{0, kMostOverscan};
constexpr Range kGreySteps{0, kMostGreyStep};
constexpr Range kFeeds{kLeastFeed, kMostFeed};
constexpr Range kPowers{0, kMostPower};
constexpr Range kPasses{1, kMostPasses};
constexpr Range kDepths{0, kMostDepth};

const std::map<std::string, AirAssist> kAirAssists = {
    {"off", AirAssist::Off}, {"lines", AirAssist::Lines}, {"all", AirAssist::All}};

const GcodeDialect& DialectOf(const std::string& name)
{
    return *std::find_if(kGcodeDialects.begin(), kGcodeDialects.end(),
                         [&name](const GcodeDialect& dialect) { return dialect.name == name; });
}

void ExpectWithin(const char* option, double power, const GcodeDialect& dialect)
{
    if (power > MostPower(dialect))
        throw UsageError{QString("%1: %2 is more than %3, the whole power of %4")
                             .arg(option)
                             .arg(power)
                             .arg(dialect.fullPower)
                             .arg(QLatin1String(dialect.name.data(), qsizetype(dialect.name.size())))
                             .toStdString()};
}

ColorSettings ColorSettingsIn(const QString& file)
{
    try {
        return ReadColorSettings(file);
    } catch (const Failure& failure) {
        throw UsageError{("--colors: " + failure.file + ": " + failure.reason).toStdString()};
    }
}

} // namespace

void AddEngraveOptions(CommandArguments& command, EngraveArguments& engraving, GcodeOptions& gcode)
{
    EngraveOptions& options = engraving.options;
    const CommandOption engrave =
        command.AddFlag("--engrave", engraving.engrave, "pictures and filled outlines become rows, before the lines");
    command.AddNumber("--lines-per-mm=N", options.linesPerMm, kLinesPerMm, "rows, and dots in a row").Needs(engrave);
    command.AddFlag("--one-way", options.oneWay, "all rows from left to right").Needs(engrave);
    command.AddNumber("--overscan=MM", gcode.overscan, kOverscans, "run-up on either side of a row").Needs(engrave);
    command
        .AddNumbers("--engrave-power=S,S", engraving.powers, 2, kPowers,
                    "G-code: S words of nearly white and of black; without it 0 and --power")
        .Needs(engrave);
    command
        .AddNumber("--engrave-feed=MM", engraving.feed, kFeeds,
                   "G-code: mm per minute in rows; without it the machine's, else --feed")
        .Needs(engrave);
    command
        .AddInteger("--grey-step=N", options.greyStep, kGreySteps, "greys that differ by no more, of 255, burn as one")
        .Needs(engrave);
    command.AddFlag("--dither", options.dither, "dots that burn or do not, in place of greys").Needs(engrave);
}

void AddGcodeOptions(CommandArguments& command, GcodeArguments& arguments, GcodeOptions& gcode)
{
    command.AddChoice("--dialect", arguments.dialect, {kGcodeDialectNames.begin(), kGcodeDialectNames.end()},
                      "G-code: of which firmware");
    command.AddNumber("--feed=MM", arguments.feed, kFeeds,
                      "G-code: mm per minute; without it the machine's, else 1200");
    command.AddNumber("--power=S", arguments.power, kPowers,
                      "G-code: S word of the laser; without it half of the dialect's whole power");
    command.AddInteger("--passes=N", gcode.passes, kPasses, "G-code: how often each line is followed");
    command.AddNumber("--step=MM", gcode.passDepth, kDepths, "G-code: how much deeper each further pass goes");
    command.AddFile("--colors=FILE", arguments.colors,
                    "an INI file with a section as [#ff0000] per colour, and in it feed, power, passes, order");
    command.AddChoice("--air", arguments.air, {"off", "lines", "all"}, "G-code: air assist");
    command.AddFlag("--constant-power", gcode.constantPower, "G-code: M3 instead of M4");
    const CommandOption yDown = command.AddFlag("--y-down", gcode.yDown, "G-code: y as in the document, not upwards");
    command
        .AddNumber("--height=MM", gcode.height, kPlaces,
                   "G-code: the document's y that becomes 0; without it the lowest line's")
        .Excludes(yDown);
    command.AddFile("--machine=FILE", arguments.settings,
                    "an INI file with a section [machine]: feed, engraveFeed and rapid (mm per minute), acceleration "
                    "(mm/s²), junctionDeviation and beam (mm)");
}

void Complete(const EngraveArguments& engraving, const GcodeArguments& arguments, const MachineSettings& settings,
              GcodeOptions& gcode)
{
    gcode.dialect = &DialectOf(arguments.dialect);
    gcode.air = kAirAssists.at(arguments.air);
    gcode.power = arguments.power.value_or(UsualPower(*gcode.dialect));
    gcode.feed = arguments.feed.value_or(settings.feed.value_or(gcode.feed));
    gcode.engraveFeed = engraving.feed.value_or(settings.engraveFeed.value_or(gcode.feed));
    gcode.mostPower = gcode.power;
    if (engraving.powers.size() == 2) {
        gcode.leastPower = engraving.powers[0];
        gcode.mostPower = engraving.powers[1];
    }
    if (gcode.leastPower > gcode.mostPower)
        throw UsageError{"--engrave-power: black would burn with less power than white"};
    ExpectWithin("--power", gcode.power, *gcode.dialect);
    ExpectWithin("--engrave-power", gcode.mostPower, *gcode.dialect);
}

ColorSettings ColorsOf(const GcodeArguments& arguments, const GcodeOptions& gcode)
{
    const ColorSettings colors = arguments.colors.isEmpty() ? ColorSettings() : ColorSettingsIn(arguments.colors);
    bool deepens = gcode.passes > 1;
    for (const auto& [color, setting] : colors) {
        ExpectWithin("--colors: power", setting.power.value_or(0), *gcode.dialect);
        deepens |= setting.passes.value_or(1) > 1;
    }
    if (gcode.passDepth > 0 && !deepens)
        throw UsageError{"--step: no line has a second pass"};
    return colors;
}

std::unique_ptr<Engraving> EngravingOf(CShapeList& document, const EngraveArguments& arguments, const QString& file)
{
    return arguments.engrave ? std::make_unique<Engraving>(document, arguments.options, file) : nullptr;
}
