/// shapedoc lines: a document becomes lines for the machine.
#include "Arguments.h"
#include "Commands.h"
#include "EngraveOptions.h"
#include "FittingNote.h"
#include "LeftOutNote.h"
#include "Messages.h"
#include "Progress.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "machine/GcodeOutput.h"
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
    EngraveArguments engraving;
    GcodeArguments machine;
    GcodeOptions gcode;
};

const std::vector<Format> kFormats{{"csv", {"csv"}}, {"svg", {"svg"}}, {"gcode", {"gcode", "nc", "ngc", "gc"}}};

void WriteWork(QFile& file, const QString& format, const MachineWork& work, const GcodeOptions& gcode)
{
    if (format == "csv")
        WriteCsv(file, work);
    else if (format == "svg")
        WriteSvg(file, work);
    else
        WriteGcode(file, work, gcode);
}

PreparedJob Prepare(CShapeList& document, const JobOptions& options, const QString& name)
{
    Progress progress("making lines of shapes");
    return PrepareJob(document, options, name, [&](size_t shapes) { progress.At(shapes, 0); });
}

int Lines(const LinesOptions& options, const QString& format)
{
    const QString name = InputName(FileName(options.document));
    const Document document = OpenDocument(FileName(options.document), options.stream);
    const PreparedJob prepared = Prepare(*document, options.job, name);
    WarnOfLeftOut(name, prepared.leftOut);
    MachineWork work(prepared.job);
    std::optional<Engraving> engraving;
    if (options.engraving.engrave)
        work.engraving = &engraving.emplace(*document, options.engraving.options, name);
    if (prepared.job.PathCount() == 0 && !(engraving && engraving->ShapeCount() > 0))
        throw Failure{name, "has no line to follow"};
    if (!options.machine.colors.empty())
        work.colors = ReadColorSettings(FileName(options.machine.colors));
    WriteFile(options.output, [&](QFile& file) { WriteWork(file, format, work, options.gcode); });
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
    command->add_flag("--frames", options->job.frames,
                      "with the frames of pictures and the outlines of what is engraved");
    AddEngraveOptions(*command, options->engraving, gcode);
    AddGcodeOptions(*command, options->machine, gcode);
    command->add_flag("--constant-power", gcode.constantPower, "G-code: M3 instead of M4");
    CLI::Option* yDown = command->add_flag("--y-down", gcode.yDown, "G-code: y as in the document, not upwards");
    command
        ->add_option("--height", gcode.height, "G-code: the document's y that becomes 0 (default: the lowest line's)")
        ->check(NumberBetween(-kFarthest, kFarthest))
        ->excludes(yDown);
    command->callback([&chosen, options] {
        options->job.engraved = options->engraving.engrave;
        Complete(options->engraving, options->machine, options->gcode);
        chosen = [options, format = FormatOf(options->output, options->format, kFormats)] {
            return Lines(*options, format);
        };
    });
}
