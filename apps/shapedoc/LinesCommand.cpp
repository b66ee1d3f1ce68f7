/// shapedoc lines: a document becomes lines for the machine.
#include "Arguments.h"
#include "Commands.h"
#include "FittingNote.h"
#include "LeftOutNote.h"
#include "Messages.h"
#include "Progress.h"
#include "RunOptions.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "machine/LineOutput.h"
#include "machine/MachinePaths.h"

#include "OpenDocument.h"

#include <CLI/CLI.hpp>
#include <QFile>

using namespace shapedocument;

namespace {

struct LinesOptions
{
    std::string document;
    Target output;
    std::string format;
    StreamFormat stream;
    JobOptions job;
    GcodeOptions gcode;
};

const std::vector<Format> kFormats{{"csv", {"csv"}}, {"svg", {"svg"}}, {"gcode", {"gcode", "nc", "ngc", "gc"}}};

void WriteJob(QFile& file, const QString& format, const MachineJob& job, const GcodeOptions& gcode)
{
    if (format == "csv")
        WriteCsv(file, job);
    else if (format == "svg")
        WriteSvg(file, job);
    else
        WriteGcode(file, job, gcode);
}

PreparedJob Prepare(const LinesOptions& options)
{
    const QString name = FileName(options.document);
    const Document document = OpenDocument(name, options.stream);
    Progress progress("making lines of shapes");
    return PrepareJob(*document, options.job, InputName(name), [&](size_t shapes) { progress.At(shapes, 0); });
}

int Lines(const LinesOptions& options, const QString& format)
{
    const QString name = InputName(FileName(options.document));
    const PreparedJob prepared = Prepare(options);
    WarnOfLeftOut(name, prepared.leftOut);
    WarnOfDoubles(name, prepared.doubled);
    if (prepared.job.PathCount() == 0)
        throw Failure{name, "has no line to follow"};
    WriteFile(options.output, [&](QFile& file) { WriteJob(file, format, prepared.job, options.gcode); });
    SayWhetherFitted(ReportStream(options.output.file));
    return 0;
}

} // namespace

void AddLines(CLI::App& app, Command& chosen)
{
    CLI::App* command =
        app.add_subcommand("lines", "Write the machine lines of all shapes that are not hidden, in order");
    const auto options = std::make_shared<LinesOptions>();
    GcodeOptions& gcode = options->gcode;
    AddDocument(*command, options->document);
    AddOutput(*command, options->output);
    AddFormat(*command, options->format, kFormats);
    AddStreamFormat(*command, options->stream);
    command->add_flag("--leads", options->job.leads, "with lead-in and lead-out lines where shapes have them active");
    command->add_flag("--frames", options->job.frames, "with the frames of pictures, which are left out otherwise");
    AddRunOptions(*command, options->job);
    constexpr double kMost = 1e6;
    command->add_option("--feed", gcode.feed, "G-code: mm per minute")
        ->check(NumberBetween(0.001, kMost))
        ->capture_default_str();
    command->add_option("--power", gcode.power, "G-code: S word of the laser")
        ->check(NumberBetween(0, kMost))
        ->capture_default_str();
    command->add_flag("--constant-power", gcode.constantPower, "G-code: M3 instead of M4");
    CLI::Option* yDown = command->add_flag("--y-down", gcode.yDown, "G-code: y as in the document, not upwards");
    command
        ->add_option("--height", gcode.height, "G-code: the document's y that becomes 0 (default: the lowest line's)")
        ->check(NumberBetween(-kFarthest, kFarthest))
        ->excludes(yDown);
    command->callback([&chosen, options] {
        chosen = [options, format = FormatOf(options->output, options->format, kFormats)] {
            return Lines(*options, format);
        };
    });
}
