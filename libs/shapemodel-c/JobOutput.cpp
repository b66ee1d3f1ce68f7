/// Writes jobs as G-code, CSV and SVG, and reports on them.
#include "Arguments.h"
#include "Buffer.h"
#include "Entry.h"
#include "Job.h"
#include "Structs.h"
#include "document/OutputFile.h"
#include "machine/BedCheck.h"
#include "machine/GcodeOutput.h"
#include "machine/JobNotes.h"
#include "machine/LineOutput.h"
#include "machine/ReportText.h"

#include <QBuffer>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <functional>

using namespace capi;
using namespace shapedocument;

namespace capi {

namespace {

sm_gcode_options DefaultGcode()
{
    const GcodeOptions gcode;
    sm_gcode_options options{};
    options.struct_size = sizeof options;
    options.passes = gcode.passes;
    options.feed = gcode.feed;
    options.power = options.most_power = -1;
    return options;
}

void ExpectRanges(const sm_gcode_options& options)
{
    ExpectBetween(options.dialect, SM_DIALECT_GRBL, SM_DIALECT_MARLIN, "dialect");
    ExpectBetween(options.passes, 1, kMostPasses, "passes");
    ExpectBetween(options.air, SM_AIR_OFF, SM_AIR_ALL, "air");
    ExpectWithinReach(options.height, "height");
    ExpectBetween(options.feed, kLeastFeed, kMostFeed, "feed");
    ExpectBetween(options.pass_depth, 0, kMostDepth, "pass_depth");
    ExpectBetween(options.least_power, 0, kMostPower, "least_power");
    ExpectBetween(options.overscan, 0, kMostOverscan, "overscan");
}

void ExpectPowers(const GcodeOptions& gcode, const ColorSettings& colors)
{
    const double most = MostPower(*gcode.dialect);
    ExpectBetween(gcode.power, 0, most, "power");
    ExpectBetween(gcode.mostPower, 0, most, "most_power");
    Expect(gcode.leastPower <= gcode.mostPower, SM_BAD_ARGUMENT, "black would burn with less power than white");
    bool deepens = gcode.passes > 1;
    for (const auto& [color, setting] : colors) {
        ExpectBetween(setting.power.value_or(0), 0, most, "the power of a colour");
        deepens |= setting.passes.value_or(1) > 1;
    }
    Expect(gcode.passDepth == 0 || deepens, SM_BAD_ARGUMENT, "pass_depth: no line has a second pass");
}

sm_report_options DefaultReport()
{
    const ReportOptions report;
    sm_report_options options{};
    options.struct_size = sizeof options;
    options.rapid = report.machine.rapid;
    options.acceleration = report.machine.acceleration;
    options.junction_deviation = report.machine.junctionDeviation;
    options.beam = report.machine.beam;
    options.widest_gap = report.widestGap;
    return options;
}

ReportOptions ReportOptionsOf(const sm_report_options* given, const GcodeOptions& gcode)
{
    const sm_report_options options = WithDefaults(given, DefaultReport());
    ReportOptions report;
    report.gcode = gcode;
    ExpectBetween(report.machine.rapid = options.rapid, kLeastSetting, kMostSetting, "rapid");
    ExpectBetween(report.machine.acceleration = options.acceleration, kLeastSetting, kMostSetting, "acceleration");
    ExpectBetween(report.machine.junctionDeviation = options.junction_deviation, kLeastSetting, kMostSetting,
                  "junction_deviation");
    ExpectBetween(report.machine.beam = options.beam, kLeastSetting, kMostSetting, "beam");
    ExpectBetween(report.widestGap = options.widest_gap, kNarrowestGap, kWidestGap, "widest_gap");
    report.strictBed = options.strict_bed != 0;
    if (options.has_bed)
        report.bed = RectOf(options.bed);
    return report;
}

/// Throws Refusal for a job without anything to do.
void ExpectSome(const Job& job)
{
    Expect(!job.IsEmpty(), SM_REFUSED, "the job has no line to follow");
}

RowCounts Write(QIODevice& device, const MachineWork& work, int32_t format, const GcodeOptions& gcode)
{
    if (format == SM_FORMAT_GCODE)
        return WriteGcode(device, work, gcode);
    return {format == SM_FORMAT_CSV ? WriteCsv(device, work) : WriteSvg(device, work)};
}

void WarnOfRows(const RowCounts& counts, const MachineWork& work)
{
    Warn(RunUpNotes(counts));
    if (counts.rows == 0 && work.EngravedShapes() > 0)
        Warn(QString("nothing is engraved: all is white, or too light for a dot"));
}

/// Writes a job to a device.
using Filling = std::function<void(QIODevice& device)>;

/// Calls give with a function that writes the job to a device. Throws Refusal and Stopped.
void WriteJob(const Job& job, int32_t format, const sm_gcode_options* options, Progress& told,
              const std::function<void(const Filling& fill)>& give)
{
    ExpectBetween(format, SM_FORMAT_GCODE, SM_FORMAT_SVG, "format");
    const MachineWork work = job.Work(told);
    const GcodeOptions gcode = GcodeOf(options, work.colors);
    ExpectSome(job);
    RowCounts counts;
    give([&](QIODevice& device) { Making([&] { counts = Write(device, work, format, gcode); }); });
    WarnOfRows(counts, work);
}

} // namespace

GcodeOptions GcodeOf(const sm_gcode_options* given, const ColorSettings& colors)
{
    constexpr std::array kAir{AirAssist::Off, AirAssist::Lines, AirAssist::All};
    const sm_gcode_options options = WithDefaults(given, DefaultGcode());
    ExpectRanges(options);
    GcodeOptions gcode;
    gcode.dialect = &kGcodeDialects.at(static_cast<size_t>(options.dialect));
    gcode.constantPower = options.constant_power != 0;
    gcode.yDown = options.y_down != 0;
    gcode.passes = options.passes;
    gcode.air = kAir.at(static_cast<size_t>(options.air));
    if (options.has_height)
        gcode.height = options.height;
    gcode.feed = options.feed;
    gcode.power = options.power < 0 ? UsualPower(*gcode.dialect) : options.power;
    gcode.passDepth = options.pass_depth;
    if (options.engrave_feed != 0)
        ExpectBetween(options.engrave_feed, kLeastFeed, kMostFeed, "engrave_feed");
    gcode.engraveFeed = options.engrave_feed != 0 ? options.engrave_feed : gcode.feed;
    gcode.leastPower = options.least_power;
    gcode.mostPower = options.most_power < 0 ? gcode.power : options.most_power;
    gcode.overscan = options.overscan;
    ExpectPowers(gcode, colors);
    return gcode;
}

} // namespace capi

sm_status sm_gcode_options_defaults(sm_gcode_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, DefaultGcode()); });
}

sm_status sm_report_options_defaults(sm_report_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, DefaultReport()); });
}

sm_status sm_job_report(sm_job job, const sm_gcode_options* gcode, const sm_report_options* options,
                        sm_progress progress, void* context, sm_buffer* json)
{
    return Enter([=] {
        Clear(json, "json");
        const JobUse use(job);
        Progress told(progress, context);
        const MachineWork work = use->Work(told);
        const ReportOptions wanted = ReportOptionsOf(options, GcodeOf(gcode, work.colors));
        Making([&] {
            JobReport report = ReportOf(work, wanted, kJobName);
            AddDoubledLines(report, use->Doubles(told));
            AddShapeFindings(report, use->Shapes(), use->LinesPerMm());
            *json = Lent(QJsonDocument(ReportJson(report)).toJson(QJsonDocument::Compact));
        });
    });
}

sm_status sm_job_write(sm_job job, int32_t format, const char* file, const sm_gcode_options* options,
                       sm_progress progress, void* context)
{
    return Enter([=] {
        const Target target{FileOf(file)};
        const JobUse use(job);
        Progress told(progress, context);
        WriteJob(*use, format, options, told, [&](const Filling& fill) {
            Writing([&] { WriteFile(target, [&](QFile& device) { fill(device); }); });
        });
    });
}

sm_status sm_job_write_bytes(sm_job job, int32_t format, const sm_gcode_options* options, sm_progress progress,
                             void* context, sm_buffer* bytes)
{
    return Enter([=] {
        Clear(bytes, "bytes");
        const JobUse use(job);
        Progress told(progress, context);
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        WriteJob(*use, format, options, told, [&](const Filling& fill) { fill(device); });
        *bytes = Lent(device.data());
    });
}
